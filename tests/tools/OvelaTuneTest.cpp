#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "Commands.h"
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

// What check prints for `path`: each finding ("LINE: message") behind the
// path, then the count.
std::string checkReport(const std::string& path, const std::vector<std::string>& findings) {
    std::string report;
    for (const std::string& finding : findings) {
        report += path + ":" + finding + "\n";
    }
    return report + path + ": " + std::to_string(findings.size()) + " findings\n";
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

    EXPECT_EQ(runOvelaTune({"dump", "--tuning", "nowhere"}).exitCode, kExitFindings);
    EXPECT_EQ(runOvelaTune({"dump", "--profile", "10"}).exitCode, kExitUsage);
    EXPECT_EQ(runOvelaTune({"dump", dataFile("no-such-file.xml")}).exitCode, kExitFindings);
}

TEST(OvelaTuneTest, UsageErrorsExitWithTwoAndHelpWithZero) {
    EXPECT_EQ(runOvelaTune({}).exitCode, kExitUsage);
    EXPECT_EQ(runOvelaTune({"frobnicate"}).exitCode, kExitUsage);
    EXPECT_EQ(runOvelaTune({"dump", "--bogus"}).exitCode, kExitUsage);
    EXPECT_EQ(runOvelaTune({"dump", "a.xml", "b.xml"}).exitCode, kExitUsage);
    EXPECT_EQ(runOvelaTune({"apply"}).exitCode, kExitUsage);
    EXPECT_EQ(runOvelaTune({"apply", "--profile", "0", "--tuning", "x"}).exitCode, kExitUsage);
    EXPECT_EQ(runOvelaTune({"check"}).exitCode, kExitUsage);
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

TEST(OvelaTuneCheckTest, TheSampleIsClean) {
    ToolRun run = runOvelaTune({"check", sampleFile()});
    EXPECT_EQ(run.exitCode, kExitOk) << run.out;
    EXPECT_EQ(run.out, sampleFile() + ": clean\n");
}

TEST(OvelaTuneCheckTest, ReportsEachKindOfFindingWithItsLine) {
    const std::string path = dataFile("check-findings.xml");
    ToolRun run = runOvelaTune({"check", path});
    EXPECT_EQ(run.exitCode, kExitFindings);
    const std::vector<std::string> expected = {
        "3: unknown attribute \"build\" of <format_version> is ignored",
        "4: unknown element <signature> in the root is ignored",
        "7: unknown attribute \"name\" of <ieq-enable> is ignored",
        "7: <ieq-enable> has \"value\" after another attribute, and the reader reads only "
        "the first: it reads as 0",
        "8: value \"ten\" of <ieq-amount> is not a number: it reads as 0",
        "9: endpoint \"Headphone\" of <endpoint_type> is not an endpoint name: it reads as "
        "other (did you mean headphone?)",
        "10: unknown element <virtual-bass-enable> in an <endpoint_type> of profile 1 is ignored",
        "15: a second <endpoint_type> for headphone in profile 1: both are sent",
        "19: preset \"Warm\" names no IEQ preset type: it reads as off (the reader is "
        "case-sensitive)",
        "21: profile id 1 is defined again (first at line 5): both are sent in the same array",
        "27: endpoint \"speakers\" of <tuning> is not an endpoint name: it reads as speaker",
        "27: mono_device \"1\" of tuning speaker is not exactly true or false: the tuning is "
        "stereo",
        "27: tuning speaker gives the effect no values: no endpoint can select it",
        "28: tuning speaker gives lists of unequal length (regulator_frequency 2, "
        "regulator_threshold_low 2, regulator_threshold_high 1, regulator_isolated_band 2): "
        "its \"arbs\" entry is dropped",
        "31: isolated_band \"yes\" of <band> is not exactly true or false: it reads as 0",
        "35: tuning bare has no data element: the tuning is dropped",
        "38: tuning silent gives the effect no values: no endpoint can select it",
        "42: field \"x\" of <row> is not a number: it repeats the field before it",
    };
    EXPECT_EQ(run.out, checkReport(path, expected));
}

TEST(OvelaTuneCheckTest, ReportsShapesThatLoseDataOrFailTheLoad) {
    TempFile file(R"(<tuning_file>
    <preset type="ieq" id="ieq_warm">
        <bands>
            <list>
                <band_ieq frequency="100"/>
            </list>
        </bands>
    </preset>
    <preset type="IEQ" id="x"/>
    <general><settings>
            <auxiliary-system-gain-enable value="true"/>
        </settings>
    </general>
</tuning_file>
)");
    ToolRun run = runOvelaTune({"check", file.path()});
    EXPECT_EQ(run.exitCode, kExitFindings);
    EXPECT_EQ(run.out,
              checkReport(file.path(),
                          {"2: the preset type=ieq id=ieq_warm has no \"target\" values: the whole "
                           "file fails to load",
                           "9: preset type \"IEQ\" is not one the reader knows: the preset is "
                           "ignored (did you mean ieq?)",
                           "10: <settings> comes first in <general> with no text before it, and "
                           "the reader skips the first child: indent the file",
                           "10: <general> has no wrapper element: none of its settings are read"}));
}

TEST(OvelaTuneCheckTest, ReportsEntityDeclarationsAndReadsReferencesUnexpanded) {
    TempFile file(R"(<!DOCTYPE tuning_file [<!ENTITY gain "-96">]>
<tuning_file>
    <general>
        <settings>
            <auxiliary-system-gain-enable value="&gain;"/>
        </settings>
    </general>
</tuning_file>
)");
    ToolRun run = runOvelaTune({"check", file.path()});
    EXPECT_EQ(run.exitCode, kExitFindings);
    EXPECT_EQ(run.out,
              checkReport(file.path(),
                          {"2: the file declares entities, which a tuning file has no use for: "
                           "the reader expands their references in attribute values (up to a "
                           "limit), check reads them as written",
                           "5: value \"&gain;\" of <auxiliary-system-gain-enable> is built from "
                           "entity references, which check does not expand"}));
}

TEST(OvelaTuneCheckTest, NonXmlFailsTheLoad) {
    TempFile file("not xml at all");
    ToolRun run = runOvelaTune({"check", file.path()});
    EXPECT_EQ(run.exitCode, kExitFindings);
    EXPECT_EQ(run.out, file.path() + ": not a tuning file (no XML document): the load fails\n");
}

}  // namespace
}  // namespace ovela::tune
