#include <gtest/gtest.h>

#include <cstdlib>

#include "TempFile.h"
#include "ToolRun.h"

namespace ovela::tune {
namespace {

using ovela::testing::dataFile;
using ovela::testing::sampleFile;
using ovela::testing::TempFile;

// A warning, one accepted by a comment, a comment that accepts nothing, a
// value that holds a direction mark, and a note.
constexpr char kMixedFile[] = R"(<ovela_tuning>
    <format_version major="1" minor="4" maintenance="0"/>
    <general>
        <settings>
            <auxiliary-system-gain-enable values="1"/>
            <endpoint_type id="speaker">
                <!-- ovela-tune disable missing-value -->
                <auxiliary-system-gain values="-96"/>
            </endpoint_type>
            <!-- ovela-tune disable never-sent -->
            <endpoint_type id="headphone">
                <auxiliary-system-gain value="zwölf)"
                              "\u202e"
                              R"("/>
            </endpoint_type>
        </settings>
    </general>
    <preset type="geq" id="0">
        <geq>
            <bands>
                <band_geq frequency="32" gain="0"/>
            </bands>
        </geq>
    </preset>
</ovela_tuning>
)";

constexpr size_t kAnyLines = SIZE_MAX;

struct Row {
    std::vector<std::string> arguments;
    int exitCode;
    // Lines that the output holds, in this order; `outLines` counts all.
    std::vector<std::string> out;
    size_t outLines = kAnyLines;
    std::vector<std::string> err = {};
    bool toTerminal = false;
};

// Replaces {sample}, {warning}, {mixed}, {missing} and {directory}.
std::string filled(std::string text, const std::map<std::string, std::string>& names) {
    for (const auto& [name, value] : names) {
        for (size_t at; (at = text.find(name)) != std::string::npos;) {
            text.replace(at, name.size(), value);
        }
    }
    return text;
}

// Whether `lines` holds `expected` in order, each as a whole line.
::testing::AssertionResult holdsInOrder(const std::vector<std::string>& lines,
                                        const std::vector<std::string>& expected) {
    size_t at = 0;
    for (const std::string& line : expected) {
        while (at < lines.size() && lines[at] != line) {
            ++at;
        }
        if (at == lines.size()) {
            return ::testing::AssertionFailure() << "no line, in order: " << line;
        }
        ++at;
    }
    return ::testing::AssertionSuccess();
}

const std::string kMissingValue =
    ":4:13: warning: <auxiliary-system-gain-enable> has no value attribute, only values: it "
    "reads as 0 (did you mean value?) [missing-value]";

TEST(CommandLineTest, EveryCommandAsATuningTeamUsesIt) {
    const std::vector<Row> rows = {
        // Usage: a command that needs files fails without them.
        {{}, kExitUsage, {}, 0, {"usage: ovela-tune [--verbose] COMMAND [OPTIONS] [--] [FILE...]"}},
        {{"frobnicate"}, kExitUsage, {}, 0, {"ovela-tune: unknown command frobnicate"}},
        {{"dump", "--bogus"}, kExitUsage, {}, 0, {"ovela-tune dump: unknown option --bogus"}},
        {{"dump", "a.xml", "b.xml"},
         kExitUsage,
         {},
         0,
         {"ovela-tune dump: give one tuning file, or --sample"}},
        {{"apply", "--profile", "10"},
         kExitUsage,
         {},
         0,
         {"ovela-tune apply: --profile takes a number from -1 to 9"}},
        {{"apply", "--profile", "0", "--tuning", "x"},
         kExitUsage,
         {},
         0,
         {"ovela-tune apply: --endpoint and --tuning go together"}},
        {{"check"},
         kExitUsage,
         {},
         0,
         {"ovela-tune check: give the tuning files to read, or --sample"}},
        {{"report"}, kExitUsage, {}, 0, {"ovela-tune report: give one tuning file, or --sample"}},
        {{"diff", "{sample}"},
         kExitUsage,
         {},
         0,
         {"ovela-tune diff: give two tuning files (--sample counts as the first)"}},
        {{"check", "--format=xml", "--sample"},
         kExitUsage,
         {},
         0,
         {"ovela-tune check: --format takes text, gcc, json or sarif"}},
        {{"check", "--severity=loud", "--sample"},
         kExitUsage,
         {},
         0,
         {"ovela-tune check: --severity takes error, warning or note"}},
        {{"check", "--disable=never-sent,nope", "--sample"},
         kExitUsage,
         {},
         0,
         {"ovela-tune check: --disable: no rule is named nope (check --rules lists them)"}},
        {{"check", "--disable", "xml-syntax", "--sample"},
         kExitUsage,
         {},
         0,
         {"ovela-tune check: --disable: xml-syntax says why a file does not load, which cannot "
          "be accepted"}},
        {{"check", "--max-warnings=-1", "--sample"},
         kExitUsage,
         {},
         0,
         {"ovela-tune check: --max-warnings takes a number from 0"}},
        {{"check", "--color=pink", "--sample"},
         kExitUsage,
         {},
         0,
         {"ovela-tune check: --color takes auto, always or never"}},
        {{"--version"}, kExitOk, {std::string("ovela-tune ") + OVELA_VERSION}, 1},
        {{"check", "-h"},
         kExitOk,
         {"usage: ovela-tune check FILE... | --sample [--severity=LEVEL] "
          "[--format=FORMAT] [--disable=RULE,...]",
          "  3  a file does not load (check --werror: or draws a warning)"}},

        // Severities, the summary line and quiet.
        {{"check", "--sample"},
         kExitOk,
         {"{sample}: loads, 0 errors, 0 warnings, 27 notes not shown: --severity=note"},
         1},
        {{"check", "-q", "--sample"}, kExitOk, {}, 0},
        {{"check", "--severity=note", "--sample"},
         kExitOk,
         {"{sample}: loads, 0 errors, 0 warnings, 27 notes"},
         28},
        {{"check", "{warning}"},
         kExitFindings,
         {"{warning}" + kMissingValue, "{warning}: loads, 0 errors, 1 warning"},
         2},
        {{"check", "--severity=error", "{warning}"},
         kExitOk,
         {"{warning}: loads, 0 errors, 1 warning not shown: --severity=warning"},
         1},
        {{"check", "{sample}", "{warning}", "{missing}"},
         kExitDoesNotLoad,
         {"{warning}" + kMissingValue, "{missing}: error: {missing}: no such file [file-unreadable]",
          "3 files: 2 load, 1 do not load, 1 error, 1 warning, 27 notes not shown: "
          "--severity=note"},
         3},

        // Suppressions in the file and on the command line, counted.
        {{"check", "--severity=note", "{mixed}"},
         kExitFindings,
         {"{mixed}:5:13: warning: <auxiliary-system-gain-enable> has no value attribute, only "
          "values: it reads as 0 (did you mean value?) [missing-value]",
          "{mixed}:10:13: note: the suppression of never-sent silences nothing: the element "
          "that follows draws no such finding [unused-suppression]",
          "{mixed}:12:40: warning: <auxiliary-system-gain> value \"zwölf\\u202e\" is not a "
          "number: it reads as 0 [not-a-number]",
          "{mixed}:16:5: note: read but never sent: no array carries GEQ preset 0 [never-sent]",
          "{mixed}: loads, 0 errors, 2 warnings, 2 notes, 1 suppressed"},
         5},
        {{"check", "--disable=missing-value,not-a-number", "--disable", "never-sent", "{mixed}"},
         kExitOk,
         {"{mixed}: loads, 0 errors, 0 warnings, 1 note not shown: --severity=note, 4 suppressed"},
         1},

        // CI gates.
        {{"check", "--max-warnings=1", "{warning}"}, kExitOk, {}},
        {{"check", "--max-warnings", "1", "{mixed}"}, kExitFindings, {}},
        {{"check", "--werror", "{warning}"}, kExitDoesNotLoad, {}},
        {{"check", "--werror", "--sample"}, kExitOk, {}},

        // Formats: gcc lines only; text adds colour and carets at a
        // terminal, unless NO_COLOR (set for this table) asks for none.
        {{"check", "--format=gcc", "{warning}"}, kExitFindings, {"{warning}" + kMissingValue}, 1},
        {{"check", "--format=gcc", "{missing}"},
         kExitDoesNotLoad,
         {"{missing}: error: {missing}: no such file [file-unreadable]"},
         1},
        {{"check", "--format=gcc", "{warning}"},
         kExitFindings,
         {"{warning}" + kMissingValue},
         1,
         {},
         true},
        {{"check", "{warning}"},
         kExitFindings,
         {"{warning}" + kMissingValue, "            <auxiliary-system-gain-enable values=\"1\"/>",
          "            ^" + std::string(41, '~')},
         4,
         {},
         true},
        {{"check", "--color=always", "{warning}"},
         kExitFindings,
         {"\033[1m{warning}:4:13:\033[m \033[1;35mwarning:\033[m <auxiliary-system-gain-enable> "
          "has no value attribute, only values: it reads as 0 (did you mean value?) "
          "[\033[1;35mmissing-value\033[m]",
          "            <auxiliary-system-gain-enable values=\"1\"/>",
          "\033[1;32m            ^" + std::string(41, '~') + "\033[m"},
         4},

        // Other commands: exit codes, global options anywhere, reasons.
        {{"dump", "--", "--json"}, kExitDoesNotLoad, {}, 0, {"ovela-tune dump: --json: no such file"}},
        {{"dump", "{directory}"},
         kExitDoesNotLoad,
         {},
         0,
         {"ovela-tune dump: {directory}: a directory, not a file"}},
        {{"diff", "--sample", "{missing}", "--verbose"},
         kExitDoesNotLoad,
         {},
         kAnyLines,
         {"ovela-tune diff: {missing}: no such file"}},
        {{"diff", "--sample", "{sample}"}, kExitOk, {}, 0},
        {{"report", "--sample", "-o", "{directory}/no/such/dir/r.html"},
         kExitUsage,
         {},
         0,
         {"ovela-tune report: cannot write {directory}/no/such/dir/r.html: No such file or "
          "directory"}},
        {{"tunings"}, kExitOk, {"speaker: speaker"}, 7},
    };

    TempFile warning(kOneWarningFile);
    TempFile mixed(kMixedFile);
    std::string directory = dataFile("");
    directory.pop_back();
    const std::map<std::string, std::string> names = {{"{sample}", sampleFile()},
                                                      {"{warning}", warning.path()},
                                                      {"{mixed}", mixed.path()},
                                                      {"{missing}", dataFile("no-such-file.xml")},
                                                      {"{directory}", directory}};
    setenv("NO_COLOR", "1", 1);
    for (const Row& row : rows) {
        std::vector<std::string> arguments;
        std::string shown;
        for (const std::string& argument : row.arguments) {
            arguments.push_back(filled(argument, names));
            shown += " " + argument;
        }
        SCOPED_TRACE("ovela-tune" + shown);
        const ToolRun run = runOvelaTune(arguments, row.toTerminal);
        EXPECT_EQ(run.exitCode, row.exitCode) << run.out << run.err;
        std::vector<std::string> out;
        for (const std::string& line : row.out) {
            out.push_back(filled(line, names));
        }
        EXPECT_TRUE(holdsInOrder(linesOf(run.out), out)) << run.out;
        if (row.outLines != kAnyLines) {
            EXPECT_EQ(linesOf(run.out).size(), row.outLines) << run.out;
        }
        std::vector<std::string> err;
        for (const std::string& line : row.err) {
            err.push_back(filled(line, names));
        }
        EXPECT_TRUE(holdsInOrder(linesOf(run.err), err)) << run.err;
    }
    unsetenv("NO_COLOR");
}

}  // namespace
}  // namespace ovela::tune
