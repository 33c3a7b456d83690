#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "TempFile.h"
#include "ToolRun.h"
#include "TuningFileCorpus.h"

namespace ovela::tune {
namespace {

using ovela::testing::dataFile;
using ovela::testing::editedOnce;
using ovela::testing::fileText;
using ovela::testing::sampleFile;
using ovela::testing::TempFile;

struct Edit {
    const char* from;
    const char* to;
    const char* differences;
};

// One edit of each kind, and what diff says of it: the place, by array,
// device and name, and the values before and after.
TEST(OvelaTuneDiffTest, SaysWhatTheEffectReceivesDifferently) {
    const Edit kEdits[] = {
        {"value=\"7\"", "value=\"6\"",
         "profile 2 / headphone / volume-leveler-amount (qvla): 7 -> 6\n"},
        {"1,2,3,4", "1,2,-3,4", "tuning speaker / bass-mbdrc-tuning (bmdt)[2]: 3 -> -3\n"},
        {"1,2,3,4", "1,2,3",
         "tuning speaker / bass-mbdrc-tuning (bmdt)[3]: 4 -> (missing)\n"
         "tuning speaker / bass-mbdrc-tuning (bmdt): 4 values -> 3 values\n"},
        {"<ieq-amount value=\"10\"/>", "<ieq-amount value=\"10\"/><ieq-enable value=\"0\"/>",
         "profile 2 / all / ieq-enable (ieon): added 0\n"},
        {"<ieq-amount value=\"10\"/>", "", "profile 2 / all / ieq-amount (iea): removed 10\n"},
        {"preset=\"ieq_warm\"", "preset=\"ieq_off\"", "profile 2 / IEQ preset: warm -> off\n"},
        {"target=\"5\"", "target=\"6\"", "general / all / iebs: band 1 (100 Hz): target 5 -> 6\n"},
        // Headphone gets a tuning of its own: the default tuning no longer
        // serves it from the general array.
        {"name=\"speaker\"", "name=\"headphone\"",
         "general / headphone / virtual-bass-subgains (vbhg): removed -80 -144\n"
         "tuning speaker: removed 1 entries\n"
         "tuning headphone: added 1 entries\n"
         "endpoint speaker / tuning: speaker -> default\n"
         "endpoint speaker / selects: speaker -> headphone\n"
         "endpoint headphone / tuning: default -> headphone\n"},
        {"endpoint_type=\"speaker\"", "endpoint_type=\"headphone\"",
         "tuning speaker / endpoint: speaker -> headphone\n"
         "endpoint speaker / selects: speaker -> default\n"
         "endpoint headphone / selects: default -> speaker\n"},
    };
    const std::string before = dataFile("music.xml");
    const std::string text = fileText(before);
    for (const Edit& edit : kEdits) {
        SCOPED_TRACE(edit.to);
        TempFile after(editedOnce(text, edit.from, edit.to));
        ToolRun run = runOvelaTune({"diff", before, after.path()});
        EXPECT_EQ(run.exitCode, kExitFindings) << run.err;
        EXPECT_EQ(run.out, edit.differences);
    }

    TempFile after(editedOnce(text, "value=\"7\"", "value=\"6\""));
    ToolRun json = runOvelaTune({"diff", "--json", before, after.path()});
    EXPECT_EQ(
        nlohmann::json::parse(json.out)["differences"][0],
        nlohmann::json::parse(R"json({"array": "profile 2", "device": "headphone", "code": "qvla",
                  "what": "volume-leveler-amount (qvla)", "change": "changed", "before": "7",
                  "after": "6", "text": "profile 2 / headphone / volume-leveler-amount (qvla): 7 -> 6"})json"));
}

// Entries pair by where they came from, and lists differ band by band, by
// frequency: a band taken out is one band missing, not every band after it
// moved; of the two entries of one element, only the one changed.
TEST(OvelaTuneDiffTest, PairsEntriesByOriginAndListsBandByBand) {
    const std::string sample = fileText(sampleFile());
    const struct {
        const char* from;
        const char* to;
        const char* differences;
    } kEdits[] = {
        {"<regulator-stress-amount data=\"96,96,80,80\"/>",
         "<regulator-stress-amount data=\"96,96,80,70\"/>",
         "tuning speaker / regulator-stress-amount (arsa)[3]: 80 -> 70\n"
         "tuning speaker / regulator-stress-amount (arsa, entry 2)[3]: 80 -> 70\n"},
        {"                <band frequency=\"1098\" threshold_low=\"-244\" threshold_high=\"-122\" "
         "isolated_band=\"false\"/>\n",
         "",
         "tuning speaker / arbs: band 8 (1098 Hz): threshold_low -244 -> (missing)\n"
         "tuning speaker / arbs: band 8 (1098 Hz): threshold_high -122 -> (missing)\n"
         "tuning speaker / arbs: band 8 (1098 Hz): isolated_band 0 -> (missing)\n"
         "tuning speaker / arbs: 81 values -> 77 values\n"},
        {"frequency=\"1098\" target=\"94\"", "frequency=\"1098\" target=\"95\"",
         "general / all / iebs [IEQ preset detailed]: band 8 (1098 Hz): target 94 -> 95\n"},
    };
    for (const auto& edit : kEdits) {
        SCOPED_TRACE(edit.to);
        TempFile after(editedOnce(sample, edit.from, edit.to));
        ToolRun run = runOvelaTune({"diff", sampleFile(), after.path()});
        EXPECT_EQ(run.out, edit.differences);
    }
    TempFile after(editedOnce(sample, kEdits[1].from, kEdits[1].to));
    ToolRun stat = runOvelaTune({"diff", "--stat", sampleFile(), after.path()});
    EXPECT_EQ(stat.exitCode, kExitFindings);
    EXPECT_EQ(stat.out, "tuning speaker: 1 changed (3 values), 0 added, 0 removed\n");
}

// The sample's top-level sections in the opposite order.
std::string reversedSections(const std::string& text) {
    const size_t first = text.find("\n    <");
    const size_t end = text.rfind("\n</");
    std::vector<std::string> sections;
    for (size_t at = first; at < end;) {
        size_t next = text.find("\n    <", at + 1);
        while (next < end && text.compare(next, 7, "\n    </") == 0) {
            next = text.find("\n    <", next + 1);
        }
        next = std::min(next, end);
        sections.push_back(text.substr(at, next - at));
        at = next;
    }
    std::string reversed = text.substr(0, first);
    for (auto section = sections.rbegin(); section != sections.rend(); ++section) {
        reversed += *section;
    }
    return reversed + text.substr(end);
}

// Files that mean the same dump alike, whatever their order and encoding,
// and diff finds nothing between them.
TEST(OvelaTuneDiffTest, EquivalentFilesDumpAlikeAndDoNotDiffer) {
    const std::string sample = fileText(sampleFile());
    const std::string expected = afterFirstLine(runOvelaTune({"dump", sampleFile()}).out);
    std::vector<testing::CorpusFile> variants = testing::harmlessSampleVariants();
    variants.push_back({"Reversed", reversedSections(sample)});
    ASSERT_NE(variants.back().text, sample);
    for (const testing::CorpusFile& variant : variants) {
        SCOPED_TRACE(variant.name);
        TempFile file(variant.text);
        EXPECT_EQ(afterFirstLine(runOvelaTune({"dump", file.path()}).out), expected);
        ToolRun diff = runOvelaTune({"diff", sampleFile(), file.path()});
        EXPECT_EQ(diff.exitCode, kExitOk);
        EXPECT_EQ(diff.out, "");
    }
}

// A file that does not load exits as for every command; bad arguments with 2.
TEST(OvelaTuneDiffTest, AFileThatDoesNotLoadExitsWithThree) {
    TempFile broken("<tuning_file><profile>");
    ToolRun run = runOvelaTune({"diff", sampleFile(), broken.path()});
    EXPECT_EQ(run.exitCode, kExitDoesNotLoad);
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err.find(broken.path() + ":1: not well-formed XML"), std::string::npos) << run.err;
    EXPECT_EQ(runOvelaTune({"diff", sampleFile()}).exitCode, kExitUsage);
}

}  // namespace
}  // namespace ovela::tune
