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

TEST(OvelaTuneTest, CommandLineAsPeopleExpectIt) {
    EXPECT_EQ(runOvelaTune({}).exitCode, kExitUsage);
    EXPECT_EQ(runOvelaTune({"frobnicate"}).exitCode, kExitUsage);
    EXPECT_EQ(runOvelaTune({"dump", "--bogus"}).exitCode, kExitUsage);
    EXPECT_EQ(runOvelaTune({"dump", "a.xml", "b.xml"}).exitCode, kExitUsage);
    EXPECT_EQ(runOvelaTune({"apply"}).exitCode, kExitUsage);
    EXPECT_EQ(runOvelaTune({"apply", "--profile", "10"}).exitCode, kExitUsage);
    EXPECT_EQ(runOvelaTune({"apply", "--profile", "0", "--tuning", "x"}).exitCode, kExitUsage);
    EXPECT_EQ(runOvelaTune({"check", "--format=xml"}).exitCode, kExitUsage);
    for (const char* command : {"dump", "diff", "tunings", "apply", "check", "schema"}) {
        for (const char* help : {"--help", "-h"}) {
            ToolRun run = runOvelaTune({command, help});
            EXPECT_EQ(run.exitCode, kExitOk) << command;
            EXPECT_EQ(run.out.rfind(std::string("usage: ovela-tune ") + command, 0), 0u) << run.out;
        }
    }
    EXPECT_EQ(runOvelaTune({"-h"}).exitCode, kExitOk);
    EXPECT_EQ(runOvelaTune({"--version"}).out, std::string("ovela-tune ") + OVELA_VERSION + "\n");

    // After "--" a word that looks like an option is a file name.
    ToolRun dashed = runOvelaTune({"dump", "--", "--json"});
    EXPECT_EQ(dashed.exitCode, kExitDoesNotLoad);
    EXPECT_EQ(dashed.err, "ovela-tune dump: --json: no such file\n");
}

// Every command that reads a file says the same of one it cannot read, and
// the library's log lines stay out of its output unless --verbose asks.
TEST(OvelaTuneTest, AFileThatCannotBeReadIsNamedPlainly) {
    const std::string missing = dataFile("no-such-file.xml");
    const std::string directory = dataFile("");
    for (const char* command : {"dump", "tunings", "apply", "diff"}) {
        SCOPED_TRACE(command);
        std::vector<std::string> arguments = {command, missing};
        if (std::string(command) == "apply") {
            arguments.push_back("--profile=0");
        }
        if (std::string(command) == "diff") {
            arguments.insert(arguments.begin() + 1, sampleFile());
        }
        ToolRun run = runOvelaTune(arguments);
        EXPECT_EQ(run.exitCode, std::string(command) == "diff" ? kExitUsage : kExitDoesNotLoad);
        EXPECT_EQ(run.err,
                  "ovela-tune " + std::string(command) + ": " + missing + ": no such file\n");
        arguments[arguments.size() - (std::string(command) == "apply" ? 2 : 1)] = directory;
        EXPECT_NE(runOvelaTune(arguments).err.find(": a directory, not a file\n"),
                  std::string::npos);
    }

    testing::LogCapture log;
    runOvelaTune({"dump", missing});
    EXPECT_TRUE(log.lines().empty());
    runOvelaTune({"--verbose", "dump", missing});
    EXPECT_FALSE(log.messages("OvlProfileParamArray", ANDROID_LOG_ERROR).empty());
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
                           ":4:13: warning: <auxiliary-system-gain-enable> has no value attribute, "
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
        "findings": [{"line": 4, "column": 13, "endLine": 4, "endColumn": 55,
                      "severity": "warning", "rule": "missing-value",
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
    EXPECT_EQ(linesOf(run.out).size(), std::size(kLoadRules) + 2);
    EXPECT_NE(fileText(std::string(OVELA_SOURCE_DIR) + "/README.md").find(run.out), std::string::npos)
        << run.out;
}

}  // namespace
}  // namespace ovela::tune
