#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <sstream>

#include "Commands.h"
#include "LoadRules.h"
#include "PackedArrays.h"
#include "TempFile.h"

namespace ovela::tune {
namespace {

using ovela::testing::dataFile;
using ovela::testing::sampleFile;
using ovela::testing::TempFile;

struct ToolRun {
    int exitCode;
    std::string out;
    std::string err;
};

ToolRun runOvelaTune(const std::vector<std::string>& arguments) {
    std::ostringstream out, err;
    int exitCode = runTool(arguments, out, err);
    return {exitCode, out.str(), err.str()};
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

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

// Packs an array back from the JSON that dump printed for it.
std::vector<uint8_t> packFromJson(const nlohmann::json& item, int32_t header) {
    std::vector<uint8_t> bytes;
    appendWord(&bytes, header);
    appendWord(&bytes, static_cast<int32_t>(item["entries"].size()));
    for (const auto& entry : item["entries"]) {
        appendWord(&bytes, deviceFromName(entry["device"]).value());
        appendWord(&bytes, codeFromText(entry["code"]).value());
        EXPECT_EQ(entry["count"], entry["values"].size());
        appendWord(&bytes, entry["count"].get<int32_t>());
        for (int32_t value : entry["values"]) {
            appendWord(&bytes, value);
        }
    }
    EXPECT_EQ(item["size"], bytes.size());
    return bytes;
}

TEST(OvelaTuneDumpTest, JsonPacksBackToTheStoresArraysByteForByte) {
    const std::string sample = sampleFile();
    ProfileParamArray store(sample);
    std::ostringstream out;
    dumpStore(store, {sample, true, {}, {}}, out);
    nlohmann::json document = nlohmann::json::parse(out.str());

    ASSERT_EQ(document["profiles"].size(), 10u);
    for (const auto& profile : document["profiles"]) {
        int id = profile["profile"];
        EXPECT_EQ(packFromJson(profile, id), profileBytes(store, id)) << "profile " << id;
    }
    EXPECT_EQ(packFromJson(document["general"], -1), profileBytes(store, -1));

    std::vector<std::string> names;
    for (const auto& tuning : document["tunings"]) {
        names.push_back(tuning["name"]);
        EXPECT_EQ(packFromJson(tuning, tuning["ordinal"]), tuningBytes(store, tuning["name"]))
            << "tuning " << tuning["name"];
    }
    EXPECT_EQ(names, allTunings(store));
    EXPECT_GE(names.size(), 3u);
}

TEST(OvelaTuneDumpTest, TextPacksBackToTheStoresArraysByteForByte) {
    const std::string sample = sampleFile();
    ProfileParamArray store(sample);
    std::ostringstream out;
    dumpStore(store, {sample, false, {}, {}}, out);

    // Each array is a title line ("profile 3: ...", "general ...", "tuning NAME ...")
    // followed by one line per entry: device, code, count ":" values.
    std::vector<std::pair<std::string, std::vector<uint8_t>>> arrays;
    for (const std::string& line : linesOf(out.str())) {
        std::istringstream words(line);
        if (line.rfind("  ", 0) != 0) {
            std::string kind, name;
            words >> kind >> name;
            arrays.push_back({kind + " " + name, {}});
            continue;
        }
        std::string device, code, count;
        words >> device >> code >> count;
        std::vector<uint8_t>& bytes = arrays.back().second;
        appendWord(&bytes, deviceFromName(device).value());
        appendWord(&bytes, codeFromText(code).value());
        appendWord(&bytes, std::stoi(count));
        for (int32_t value; words >> value;) {
            appendWord(&bytes, value);
        }
    }
    ASSERT_EQ(arrays.size(), 11 + allTunings(store).size());
    for (auto& [title, entries] : arrays) {
        std::vector<uint8_t> expected;
        if (title.rfind("tuning ", 0) == 0) {
            expected = tuningBytes(store, title.substr(7));
        } else {
            int id = title.rfind("general", 0) == 0 ? -1 : std::stoi(title.substr(8));
            expected = profileBytes(store, id);
        }
        ASSERT_GE(expected.size(), 8u) << title;
        std::vector<uint8_t> header(expected.begin(), expected.begin() + 8);
        entries.insert(entries.begin(), header.begin(), header.end());
        EXPECT_EQ(entries, expected) << title;
    }
}

TEST(OvelaTuneDumpTest, NarrowsToOneProfileOrTuning) {
    ToolRun general = runOvelaTune({"dump", "--profile", "-1"});
    EXPECT_EQ(general.exitCode, kExitOk);
    EXPECT_EQ(general.out.rfind("general (profile -1): ", 0), 0u) << general.out;
    ToolRun speaker = runOvelaTune({"dump", "--tuning", "speaker", "--json"});
    ASSERT_EQ(speaker.exitCode, kExitOk);
    nlohmann::json document = nlohmann::json::parse(speaker.out);
    EXPECT_EQ(document["profiles"].size(), 0u);
    ASSERT_EQ(document["tunings"].size(), 1u);
    EXPECT_EQ(document["tunings"][0]["name"], "speaker");

    EXPECT_EQ(runOvelaTune({"dump", "--tuning", "nowhere"}).exitCode, kExitUsage);
    EXPECT_EQ(runOvelaTune({"dump", "--profile", "10"}).exitCode, kExitUsage);
    EXPECT_EQ(runOvelaTune({"dump", dataFile("no-such-file.xml")}).exitCode, kExitDoesNotLoad);
}

TEST(OvelaTuneTest, UsageErrorsExitWithTwoAndHelpWithZero) {
    EXPECT_EQ(runOvelaTune({}).exitCode, kExitUsage);
    EXPECT_EQ(runOvelaTune({"frobnicate"}).exitCode, kExitUsage);
    EXPECT_EQ(runOvelaTune({"dump", "--bogus"}).exitCode, kExitUsage);
    EXPECT_EQ(runOvelaTune({"dump", "a.xml", "b.xml"}).exitCode, kExitUsage);
    EXPECT_EQ(runOvelaTune({"apply"}).exitCode, kExitUsage);
    EXPECT_EQ(runOvelaTune({"apply", "--profile", "0", "--tuning", "x"}).exitCode, kExitUsage);
    EXPECT_EQ(runOvelaTune({"check", "--format=xml"}).exitCode, kExitUsage);
    for (const char* command : {"dump", "tunings", "apply", "check"}) {
        ToolRun help = runOvelaTune({command, "--help"});
        EXPECT_EQ(help.exitCode, kExitOk) << command;
        EXPECT_EQ(help.out.rfind(std::string("usage: ovela-tune ") + command, 0), 0u) << help.out;
    }
    EXPECT_EQ(runOvelaTune({"--help"}).exitCode, kExitOk);
}

TEST(OvelaTuneTest, TuningsListsEachEndpoint) {
    TempFile file(R"(<tuning_file>
    <tuning name="a" endpoint_type="headphone">
        <data>
            <bass-enhancer-boost value="1"/>
        </data>
    </tuning>
    <tuning name="bb" endpoint_type="headphone">
        <data>
            <bass-enhancer-boost value="2"/>
        </data>
    </tuning>
</tuning_file>
)");
    ToolRun run = runOvelaTune({"tunings", file.path()});
    EXPECT_EQ(run.exitCode, kExitOk);
    EXPECT_EQ(run.out,
              "speaker: default\nheadphone: a bb\nother: default\nbluetooth: default\n"
              "usb: default\naux_digital: default\nremote_submix: default\n");
}

TEST(OvelaTuneTest, ApplyPrintsTheCallsTheEffectReceives) {
    TempFile file(R"(<tuning_file>
    <profile id="4" name="game">
        <parameters>
            <ieq-enable value="false"/>
            <endpoint_type id="usb">
                <virtualizer-enable value="1"/>
                <volmax-boost value="9"/>
            </endpoint_type>
        </parameters>
        <include preset="warm"/>
    </profile>
    <tuning name="apply-usb-tuning" endpoint_type="usb">
        <data>
            <bass-enhancer-boost value="6"/>
        </data>
    </tuning>
</tuning_file>
)");
    ToolRun run = runOvelaTune({"apply", file.path(), "--profile", "4", "--endpoint", "usb",
                                "--tuning", "apply-usb-tuning"});
    EXPECT_EQ(run.exitCode, kExitOk) << run.err;
    EXPECT_EQ(run.out,
              "setParameter(all, ieon, 1: 0)\n"
              "setParameter(usb, vmb, 1: 9)\n"
              "setParameter(usb, hvm, 1: 1)\n"
              "setParameter(usb, svm, 1: 1)\n"
              "setParameter(usb, dom, 3: 1 1 2)\n"
              "commitParameters(all) = 0\n"
              "setProfile(4) = 0\n"
              "setParameter(usb, beb, 1: 6)\n"
              "commitParameters(all) = 0\n"
              "setEndpointTuning(usb, apply-usb-tuning) = 0\n");

    ToolRun unknown = runOvelaTune(
        {"apply", file.path(), "--profile", "4", "--endpoint", "usb", "--tuning", "missing"});
    EXPECT_EQ(unknown.exitCode, kExitFindings);
    EXPECT_NE(unknown.out.find("setEndpointTuning(usb, missing) = -22\n"), std::string::npos);
}

// A file with one warning and no error: a setting that reads as 0.
constexpr char kWarningFile[] = R"(<tuning_file>
    <general>
        <settings>
            <auxiliary-system-gain-enable values="1"/>
        </settings>
    </general>
</tuning_file>
)";

TEST(OvelaTuneCheckTest, PrintsEachFindingOnALineOfItsOwnAndExitsByTheWorstFile) {
    TempFile warning(kWarningFile);
    const std::string missing = dataFile("no-such-file.xml");
    ToolRun run = runOvelaTune({"check", sampleFile(), warning.path(), missing});
    EXPECT_EQ(run.exitCode, kExitDoesNotLoad);
    // A finding is "FILE:LINE:COLUMN: LEVEL: message [rule]"; the rest are
    // the files' summaries.
    auto isFinding = [](const std::string& text) {
        std::istringstream in(text);
        std::string file, level;
        long line = 0, column = 0;
        char colon = 0;
        return std::getline(in, file, ':') && in >> line >> colon >> column >> colon >> level &&
               (level == "error:" || level == "warning:" || level == "note:") &&
               text.back() == ']' && text.find(" [") != std::string::npos;
    };
    std::vector<std::string> summaries;
    for (const std::string& text : linesOf(run.out)) {
        if (!isFinding(text)) {
            summaries.push_back(text);
        }
    }
    EXPECT_NE(run.out.find(warning.path() +
                           ":4:0: warning: <auxiliary-system-gain-enable> has no value attribute, "
                           "only values: it reads as 0 (did you mean value?) [missing-value]\n"),
              std::string::npos)
        << run.out;
    EXPECT_NE(
        run.out.find(missing + ":0:0: error: " + missing + ": no such file [file-unreadable]\n"),
        std::string::npos)
        << run.out;
    ASSERT_EQ(summaries.size(), 3u) << run.out;
    EXPECT_EQ(summaries[0].rfind(sampleFile() + ": loads, 0 errors, 0 warnings, ", 0), 0u);
    EXPECT_EQ(summaries[1], warning.path() + ": loads, 0 errors, 1 warning, 0 notes");
    EXPECT_EQ(summaries[2], missing + ": does not load, 1 error, 0 warnings, 0 notes");

    EXPECT_EQ(runOvelaTune({"check", sampleFile()}).exitCode, kExitOk);
    EXPECT_EQ(runOvelaTune({"check", sampleFile(), warning.path()}).exitCode, kExitFindings);
}

TEST(OvelaTuneCheckTest, JsonCarriesTheFilesAndTheFindings) {
    TempFile warning(kWarningFile);
    ToolRun run = runOvelaTune({"check", "--format=json", warning.path()});
    EXPECT_EQ(run.exitCode, kExitFindings);
    nlohmann::json expected = nlohmann::json::parse(R"json({
        "files": [{"loads": true, "errors": 0, "warnings": 1, "notes": 0}],
        "findings": [{"line": 4, "column": 0, "severity": "warning", "rule": "missing-value",
                      "message": "<auxiliary-system-gain-enable> has no value attribute, only values: it reads as 0 (did you mean value?)"}]
    })json");
    expected["files"][0]["file"] = warning.path();
    expected["findings"][0]["file"] = warning.path();
    EXPECT_EQ(nlohmann::json::parse(run.out), expected);
}

// The README's table of rules is the one that "check --rules" prints.
TEST(OvelaTuneCheckTest, ReadmeListsEveryRule) {
    ToolRun run = runOvelaTune({"check", "--rules"});
    ASSERT_EQ(run.exitCode, kExitOk);
    EXPECT_EQ(linesOf(run.out).size(), kLoadRuleCount + 2);
    std::ifstream readme(std::string(OVELA_SOURCE_DIR) + "/README.md");
    const std::string text((std::istreambuf_iterator<char>(readme)),
                           std::istreambuf_iterator<char>());
    EXPECT_NE(text.find(run.out), std::string::npos) << run.out;
}

}  // namespace
}  // namespace ovela::tune
