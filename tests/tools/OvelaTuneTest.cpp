#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "LoadRules.h"
#include "LogCapture.h"
#include "TempFile.h"
#include "ToolRun.h"

namespace ovela::tune {
namespace {

using ovela::testing::dataFile;
using ovela::testing::fileText;
using ovela::testing::sampleFile;
using ovela::testing::TempFile;

// The library's log lines stay out of the tool's output unless --verbose,
// before or after the command, asks for them.
TEST(OvelaTuneTest, LogLinesOnlyWhenVerbose) {
    const std::string missing = dataFile("no-such-file.xml");
    for (const std::vector<std::string>& verbose :
         {std::vector<std::string>{"--verbose", "dump", missing},
          std::vector<std::string>{"dump", missing, "--verbose"}}) {
        testing::LogCapture log;
        runOvelaTune({"dump", missing});
        EXPECT_TRUE(log.lines().empty());
        runOvelaTune(verbose);
        EXPECT_FALSE(log.messages("OvlProfileParamArray", ANDROID_LOG_ERROR).empty());
    }
}

TEST(OvelaTuneTest, TuningsListsEachEndpoint) {
    ToolRun run = runOvelaTune({"tunings", dataFile("store-arrays.xml")});
    EXPECT_EQ(run.exitCode, kExitOk);
    EXPECT_EQ(run.out,
              "speaker: speaker\nheadphone: a bb\nother: default\nbluetooth: c\n"
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
              "# setProfile(4), the array of profile 4:\n"
              "setParameter(all, ieon, 1: 0)\n"
              "setParameter(usb, vmb, 1: 9)\n"
              "setParameter(usb, hvm, 1: 1)\n"
              "setParameter(usb, svm, 1: 1)\n"
              "setParameter(usb, dom, 3: 1 1 2)\n"
              "commitParameters(all) = 0\n"
              "setProfile(4) = 0\n"
              "# setEndpointTuning(usb, apply-usb-tuning):\n"
              "setParameter(usb, beb, 1: 6)\n"
              "commitParameters(all) = 0\n"
              "setEndpointTuning(usb, apply-usb-tuning) = 0\n");

    ToolRun unknown = runOvelaTune(
        {"apply", file.path(), "--profile", "4", "--endpoint", "usb", "--tuning", "missing"});
    EXPECT_EQ(unknown.exitCode, kExitFindings);
    EXPECT_NE(unknown.out.find("setEndpointTuning(usb, missing) = -22\n"), std::string::npos);
}

// The cache sends nothing for the default tuning: the general array carried
// it, and apply shows what it carried for the endpoint. (The process store
// keeps the tunings of earlier loads: no other test gives aux_digital one.)
TEST(OvelaTuneTest, ApplyShowsTheDefaultTuningWhereAnEndpointTakesIt) {
    TempFile file(R"(<tuning_file>
    <profile id="1" name="movie">
        <settings>
            <endpoint_type id="aux_digital">
                <volmax-boost value="2"/>
            </endpoint_type>
        </settings>
        <include preset="off"/>
    </profile>
    <tuning name="default" endpoint_type="other">
        <data>
            <bass-enhancer-boost value="3"/>
        </data>
    </tuning>
</tuning_file>
)");
    ToolRun run = runOvelaTune({"apply", file.path(), "--profile", "1", "--endpoint", "aux_digital",
                                "--tuning", "default"});
    EXPECT_EQ(run.exitCode, kExitOk) << run.err;
    const std::string tail =
        "setEndpointTuning(aux_digital, default) = 0\n"
        "# aux_digital takes the default tuning; setProfile(-1) sent its 1 entries with the "
        "general array:\n"
        "#   beb bass-enhancer-boost: 3\n";
    ASSERT_GE(run.out.size(), tail.size());
    EXPECT_EQ(run.out.substr(run.out.size() - tail.size()), tail);
}

// The JSON keeps the fields it always had, and says which version it is.
TEST(OvelaTuneCheckTest, JsonCarriesTheFilesAndTheFindings) {
    TempFile warning(kOneWarningFile);
    ToolRun run = runOvelaTune({"check", "--format=json", warning.path()});
    EXPECT_EQ(run.exitCode, kExitFindings);
    nlohmann::json expected = nlohmann::json::parse(R"json({
        "version": 1,
        "files": [{"loads": true, "errors": 0, "warnings": 1, "notes": 0, "suppressed": 0}],
        "findings": [{"line": 4, "column": 13, "endLine": 4, "endColumn": 55,
                      "severity": "warning", "rule": "missing-value",
                      "message": "<auxiliary-system-gain-enable> has no value attribute, only values: it reads as 0 (did you mean value?)"}]
    })json");
    expected["files"][0]["file"] = warning.path();
    expected["findings"][0]["file"] = warning.path();
    EXPECT_EQ(nlohmann::json::parse(run.out), expected);

    // A finding that --disable accepts is counted once, as suppressed.
    const nlohmann::json disabled = nlohmann::json::parse(
        runOvelaTune({"check", "--format=json", "--disable=missing-value", warning.path()}).out);
    EXPECT_EQ(disabled["files"][0]["warnings"], 0);
    EXPECT_EQ(disabled["files"][0]["suppressed"], 1);
    EXPECT_EQ(disabled["findings"].size(), 0u);
}

// The README's table of rules is the one that "check --rules" prints.
TEST(OvelaTuneCheckTest, ReadmeListsEveryRule) {
    ToolRun run = runOvelaTune({"check", "--rules"});
    ASSERT_EQ(run.exitCode, kExitOk);
    EXPECT_EQ(linesOf(run.out).size(), std::size(kLoadRules) + 2);
    EXPECT_NE(fileText(std::string(OVELA_SOURCE_DIR) + "/README.md").find(run.out), std::string::npos)
        << run.out;
}

// Every XML example of the README loads without a warning, as the README
// says: an example that a reader copies must not teach a mistake.
TEST(OvelaTuneCheckTest, ReadmeExamplesLoadWithoutAWarning) {
    const std::string readme = fileText(std::string(OVELA_SOURCE_DIR) + "/README.md");
    size_t examples = 0;
    for (size_t at = readme.find("```xml\n"); at != std::string::npos;
         at = readme.find("```xml\n", at + 1)) {
        const size_t start = at + 7;
        const std::string example = readme.substr(start, readme.find("```", start) - start);
        SCOPED_TRACE(example);
        TempFile file(example);
        const ToolRun run = runOvelaTune({"check", "--severity=warning", "-q", file.path()});
        EXPECT_EQ(run.exitCode, kExitOk);
        EXPECT_EQ(run.out, "");
        ++examples;
    }
    EXPECT_GE(examples, 3u);
}

}  // namespace
}  // namespace ovela::tune
