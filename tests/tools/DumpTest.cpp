#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <nlohmann/json.hpp>
#include <regex>

#include "StoreArrays.h"
#include "TempFile.h"
#include "ToolRun.h"

namespace ovela::tune {
namespace {

using ovela::testing::sampleFile;
using ovela::testing::TempFile;

std::vector<uint8_t> profileBytes(ProfileParamArray& store, int profile) {
    std::vector<uint8_t> bytes(store.getProfileParamsSize(profile));
    store.getProfileParams(profile, bytes.data());
    return bytes;
}

std::vector<uint8_t> tuningBytes(ProfileParamArray& store, const std::string& name) {
    std::vector<uint8_t> bytes(store.getTuningParamsSize(name));
    store.getTuningParams(name, bytes.data());
    return bytes;
}

void appendWord(std::vector<uint8_t>* bytes, int32_t word) {
    const auto* raw = reinterpret_cast<const uint8_t*>(&word);
    bytes->insert(bytes->end(), raw, raw + sizeof(word));
}

// An array as the store packs it: its header, its entry count, then each
// entry's device, code, count and values.
class ArrayPacker {
  public:
    void entry(const std::string& device, const std::string& code,
               const std::vector<int32_t>& values) {
        appendWord(&mEntries, deviceFromName(device).value());
        appendWord(&mEntries, codeFromText(code).value());
        appendWord(&mEntries, static_cast<int32_t>(values.size()));
        for (int32_t value : values) {
            appendWord(&mEntries, value);
        }
        ++mCount;
    }
    std::vector<uint8_t> bytes(int32_t header) const {
        std::vector<uint8_t> bytes;
        appendWord(&bytes, header);
        appendWord(&bytes, mCount);
        bytes.insert(bytes.end(), mEntries.begin(), mEntries.end());
        return bytes;
    }

  private:
    std::vector<uint8_t> mEntries;
    int32_t mCount = 0;
};

// The array's header words, then each entry's bytes in sorted order: two
// loads of one file may order the entries of an array, and number the
// tunings, differently, as the model's sets order them by address.
std::vector<std::vector<uint8_t>> inAnyOrder(std::vector<uint8_t> bytes, bool tuning = false) {
    auto word = [&](size_t at) {
        int32_t value = 0;
        std::memcpy(&value, bytes.data() + at, sizeof(value));
        return value;
    };
    if (bytes.size() < 8) {
        return {bytes};
    }
    if (tuning) {
        std::fill(bytes.begin(), bytes.begin() + 4, 0);
    }
    std::vector<std::vector<uint8_t>> parts = {{bytes.begin(), bytes.begin() + 8}};
    for (size_t at = 8; at + 12 <= bytes.size();) {
        const size_t end = std::min(bytes.size(), at + 12 + 4 * static_cast<size_t>(word(at + 8)));
        parts.emplace_back(bytes.begin() + at, bytes.begin() + end);
        at = end;
    }
    std::sort(parts.begin() + 1, parts.end());
    return parts;
}

std::vector<uint8_t> packFromJson(const nlohmann::json& array) {
    ArrayPacker packer;
    for (const auto& entry : array["entries"]) {
        EXPECT_EQ(entry["count"], entry["values"].size());
        packer.entry(entry["device"], entry["code"], entry["values"]);
    }
    const std::vector<uint8_t> bytes = packer.bytes(array["header"]);
    EXPECT_EQ(array["size"], bytes.size());
    return bytes;
}

// Packs the one array of a raw text dump: a heading, then one line per entry,
// "device code names... count: values [origin]".
std::vector<uint8_t> packFromText(const std::string& dump) {
    const std::vector<std::string> lines = linesOf(afterFirstLine(dump));
    EXPECT_GE(lines.size(), 1u);
    std::smatch header;
    const std::regex headerPattern(
        R"(^(general \(profile (-1)\)|profile (\d+)|tuning .*\(ordinal (\d+)\)))");
    if (lines.empty() || !std::regex_search(lines[0], header, headerPattern)) {
        ADD_FAILURE() << "no array heading in " << dump;
        return {};
    }
    ArrayPacker packer;
    for (size_t i = 1; i < lines.size(); ++i) {
        std::istringstream words(lines[i]);
        std::string device, code;
        words >> device >> code;
        std::istringstream values(lines[i].substr(lines[i].find(':') + 1));
        std::vector<int32_t> list;
        for (int32_t value; values >> value;) {
            list.push_back(value);
        }
        packer.entry(device, code, list);
    }
    for (size_t group = 2; group <= 4; ++group) {
        if (header[group].matched) {
            return packer.bytes(std::stoi(header[group]));
        }
    }
    return {};
}

// Every array of the sample, packed back from what --raw prints, is the
// store's own, entry for entry: nothing is lost between the store and a reader.
TEST(OvelaTuneDumpTest, RawOutputPacksBackToTheStoresArrays) {
    const std::string sample = sampleFile();
    ProfileParamArray store(sample);
    ToolRun json = runOvelaTune({"dump", "--json", "--raw"});
    ASSERT_EQ(json.exitCode, kExitOk);
    const nlohmann::json document = nlohmann::json::parse(json.out);
    EXPECT_EQ(inAnyOrder(packFromJson(document["general"])), inAnyOrder(profileBytes(store, -1)));
    ASSERT_EQ(document["profiles"].size(), 10u);
    for (const auto& profile : document["profiles"]) {
        EXPECT_EQ(inAnyOrder(packFromJson(profile)),
                  inAnyOrder(profileBytes(store, profile["profile"])));
    }
    std::vector<std::string> names;
    for (const auto& tuning : document["tunings"]) {
        names.push_back(tuning["name"]);
        EXPECT_EQ(inAnyOrder(packFromJson(tuning), true),
                  inAnyOrder(tuningBytes(store, tuning["name"]), true))
            << tuning["name"];
    }
    std::sort(names.begin(), names.end());
    std::vector<std::string> stored = allTunings(store);
    std::sort(stored.begin(), stored.end());
    EXPECT_EQ(names, stored);

    for (int profile = -1; profile <= 9; ++profile) {
        ToolRun text = runOvelaTune({"dump", "--raw", "--profile", std::to_string(profile)});
        EXPECT_EQ(inAnyOrder(packFromText(text.out)), inAnyOrder(profileBytes(store, profile)))
            << text.out;
    }
    for (const std::string& name : stored) {
        ToolRun text = runOvelaTune({"dump", "--raw", "--tuning", name});
        EXPECT_EQ(inAnyOrder(packFromText(text.out), true),
                  inAnyOrder(tuningBytes(store, name), true))
            << text.out;
    }
}

constexpr char kNamedFile[] = R"(<tuning_file>
    <preset type="ieq" id="ieq_warm">
        <ieq>
            <bands>
                <band_ieq frequency="100" target="5"/>
            </bands>
        </ieq>
    </preset>
    <profile id="2" name="music">
        <settings>
            <endpoint_type id="headphone">
                <volume-leveler-amount value="7"/>
            </endpoint_type>
        </settings>
        <include preset="ieq_warm"/>
    </profile>
    <tuning name="default" endpoint_type="other">
        <data>
            <virtual-bass-subgains gain_2nd="-80" gain_3rd="-144"/>
        </data>
    </tuning>
</tuning_file>
)";

// Each entry says what the file calls its values; a profile says the IEQ
// preset it selects; the default tuning's entries are found in the general
// array and under its own name.
TEST(OvelaTuneDumpTest, NamesWhatItPrints) {
    TempFile file(kNamedFile);
    ToolRun all = runOvelaTune({"dump", file.path()});
    ASSERT_EQ(all.exitCode, kExitOk) << all.err;
    auto hasLine = [&](const std::string& text, const std::string& line) {
        EXPECT_NE(("\n" + text).find("\n" + line + "\n"), std::string::npos) << text;
    };
    hasLine(all.out, "file: " + file.path());
    hasLine(all.out, "  headphone     qvla  volume-leveler-amount                      1: 7");
    hasLine(all.out,
            "  headphone     dom   virtualizer-enable, mix_matrix, advanced_mix_matrix   3: 0 1 2");
    hasLine(all.out, "  all           iebs  band_ieq frequency, target                 3: 1 100 5");
    hasLine(all.out, "profile 2 \"music\", IEQ preset warm: 4 entries, 80 bytes");
    hasLine(all.out, "  headphone     default       selects: default");

    ToolRun fallback = runOvelaTune({"dump", "--tuning", "default", file.path()});
    EXPECT_EQ(afterFirstLine(fallback.out),
              "tuning default, sent with the general array for headphone: 1 entries\n"
              "  headphone     vbhg  virtual-bass-subgains                      2: -80 -144\n");

    ToolRun json = runOvelaTune({"dump", "--json", "--profile", "2", file.path()});
    const nlohmann::json profile = nlohmann::json::parse(json.out)["profiles"][0];
    EXPECT_EQ(profile["ieqPresets"], nlohmann::json::array({"warm"}));
    EXPECT_EQ(profile["entries"][2]["names"], nlohmann::json::array({"volume-leveler-amount"}));
    EXPECT_EQ(profile["entries"][2]["from"], "profile 2 on headphone");
}

TEST(OvelaTuneDumpTest, NarrowsToOneProfileOrTuning) {
    ToolRun general = runOvelaTune({"dump", "--profile", "-1"});
    EXPECT_EQ(general.exitCode, kExitOk);
    EXPECT_EQ(afterFirstLine(general.out).rfind("general (profile -1): ", 0), 0u) << general.out;
    ToolRun speaker = runOvelaTune({"dump", "--tuning", "speaker", "--json"});
    ASSERT_EQ(speaker.exitCode, kExitOk);
    nlohmann::json document = nlohmann::json::parse(speaker.out);
    EXPECT_EQ(document["profiles"].size(), 0u);
    ASSERT_EQ(document["tunings"].size(), 1u);
    EXPECT_EQ(document["tunings"][0]["name"], "speaker");

    EXPECT_EQ(runOvelaTune({"dump", "--tuning", "nowhere"}).exitCode, kExitUsage);
    EXPECT_EQ(runOvelaTune({"dump", "--profile", "10"}).exitCode, kExitUsage);
}

}  // namespace
}  // namespace ovela::tune
