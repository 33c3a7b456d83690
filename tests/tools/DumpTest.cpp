#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "../store/PackedWords.h"
#include "StoreArrays.h"
#include "TempFile.h"
#include "ToolRun.h"

namespace ovela::tune {
namespace {

using ovela::testing::dataFile;
using ovela::testing::sampleFile;

// The arrays that --raw --json prints, packed back into words, as a snapshot
// of the store would hold them.
testing::Snapshot snapshotFromJson(const nlohmann::json& document) {
    testing::Snapshot snapshot;
    auto add = [&](const std::string& what, const nlohmann::json& array) {
        std::vector<testing::Entry> entries;
        for (const auto& entry : array["entries"]) {
            EXPECT_EQ(entry["count"], entry["values"].size());
            entries.push_back({deviceFromName(entry["device"]).value(),
                               codeFromText(entry["code"]).value(), entry["values"]});
        }
        std::vector<int32_t> words = testing::packed(array["header"], entries);
        EXPECT_EQ(array["size"], words.size() * sizeof(int32_t)) << what;
        snapshot.arrays[what] = words;
    };
    add("profile -1", document["general"]);
    for (const auto& profile : document["profiles"]) {
        add("profile " + std::to_string(profile["profile"].get<int>()), profile);
    }
    for (const auto& tuning : document["tunings"]) {
        add("tuning " + tuning["name"].get<std::string>(), tuning);
    }
    return snapshot;
}

// Every array of the sample, packed back from what --raw --json prints, is
// the store's own, entry for entry: nothing is lost between the store and a
// reader.
TEST(OvelaTuneDumpTest, RawOutputPacksBackToTheStoresArrays) {
    ProfileParamArray store(sampleFile());
    ToolRun json = runOvelaTune({"dump", "--json", "--raw"});
    ASSERT_EQ(json.exitCode, kExitOk);
    testing::Snapshot stored = testing::snapshotOf(store);
    // Endpoints without a tuning list "default", under which no array is kept.
    stored.tunings.clear();
    stored.arrays.erase("tuning default");
    EXPECT_EQ(snapshotFromJson(nlohmann::json::parse(json.out)), stored);
}

// Each entry says what the file calls its values; a profile says the IEQ
// preset it selects; the default tuning's entries are found in the general
// array and under its own name.
TEST(OvelaTuneDumpTest, NamesWhatItPrints) {
    const std::string file = dataFile("music.xml");
    ToolRun all = runOvelaTune({"dump", file});
    ASSERT_EQ(all.exitCode, kExitOk) << all.err;
    auto hasLine = [&](const std::string& text, const std::string& line) {
        EXPECT_NE(("\n" + text).find("\n" + line + "\n"), std::string::npos) << text;
    };
    hasLine(all.out, "file: " + file);
    hasLine(all.out, "  headphone     qvla  volume-leveler-amount                      1: 7");
    hasLine(all.out, "  headphone     dom   (store)                                    3: 0 1 2");
    hasLine(all.out, "  all           iebs  (store), band_ieq frequency, target        3: 1 100 5");
    hasLine(all.out, "profile 2 \"music\", IEQ preset warm: 5 entries, 96 bytes");
    hasLine(all.out, "  headphone     default       selects: default");

    ToolRun fallback = runOvelaTune({"dump", "--tuning", "default", file});
    EXPECT_EQ(afterFirstLine(fallback.out),
              "tuning default, sent with the general array for headphone: 1 entries\n"
              "  headphone     vbhg  virtual-bass-subgains                      2: -80 -144\n");

    ToolRun json = runOvelaTune({"dump", "--json", "--profile", "2", file});
    const nlohmann::json profile = nlohmann::json::parse(json.out)["profiles"][0];
    EXPECT_EQ(profile["ieqPresets"], nlohmann::json::array({"warm"}));
    EXPECT_EQ(profile["entries"][3]["names"], nlohmann::json::array({"volume-leveler-amount"}));
    EXPECT_EQ(profile["entries"][3]["from"], "profile 2 on headphone");
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
