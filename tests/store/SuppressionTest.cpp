// The comments by which a team accepts findings: what each silences, what it
// reports when it silences nothing, and that the reader reads it as any
// other comment.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "LoadReport.h"
#include "LogCapture.h"
#include "PackedWords.h"
#include "ProfileParamArray.h"
#include "ReportedLoads.h"
#include "TempFile.h"

namespace ovela {
namespace {

using testing::LogCapture;
using testing::Snapshot;
using testing::snapshotOf;
using testing::TempFile;

// Every section the reader reads by position: the first child of each
// element it descends into, the preset's <ieq>, the tuning's data after its
// device ids, the band tables' rows and the mix matrix.
constexpr char kFile[] = R"(<ovela_tuning>
    <format_version major="1" minor="4" maintenance="0"/>
    <general>
        <settings>
            <auxiliary-system-gain-enable value="true"/>
            <endpoint_type id="speaker">
                <auxiliary-system-gain value="-96"/>
            </endpoint_type>
        </settings>
    </general>
    <preset type="ieq" id="ieq_balanced">
        <ieq>
            <bands>
                <band_ieq frequency="65" target="120"/>
                <band_ieq frequency="1098" target="96"/>
            </bands>
        </ieq>
    </preset>
    <preset type="geq" id="1">
        <geq>
            <bands>
                <band_geq frequency="32" gain="0"/>
            </bands>
        </geq>
    </preset>
    <profile id="0" name="dynamic">
        <settings>
            <ieq-enable value="true"/>
            <endpoint_type id="speaker">
                <virtualizer-enable value="true"/>
            </endpoint_type>
        </settings>
        <include preset="ieq_balanced"/>
    </profile>
    <tuning name="speaker" endpoint_type="speaker" mono_device="false">
        <device_id id="internal_speaker" endpoint_port="speaker_0"/>
        <data>
            <bass-enhancer-boost value="192"/>
            <regulator-tuning>
                <band frequency="65" threshold_low="-272" threshold_high="-136" isolated_band="true"/>
                <band frequency="130" threshold_low="-272" threshold_high="-136" isolated_band="true"/>
            </regulator-tuning>
            <output-mode>
                <mix_matrix>
                    <row coefficients="16384,0"/>
                    <row coefficients="0,16384"/>
                </mix_matrix>
            </output-mode>
        </data>
    </tuning>
</ovela_tuning>
)";

struct Load {
    Snapshot arrays;
    std::vector<LoadFinding> findings;
};

Load loadOf(const std::string& text) {
    LogCapture log;
    TempFile file(text);
    LoadReport report;
    const ReportedLoads reported(&report);
    ProfileParamArray store(file.path());
    return {snapshotOf(store), report.findings()};
}

Snapshot arraysWithoutReport(const std::string& text) {
    LogCapture log;
    TempFile file(text);
    ProfileParamArray store(file.path());
    return snapshotOf(store);
}

// Before every start tag and just after every start tag that has children: a
// suppression gives the arrays that a plain comment of the same length
// gives, with a report and without.
TEST(SuppressionTest, AReaderReadsASuppressionAsAnyOtherComment) {
    const std::string suppression = "<!-- ovela-tune disable never-sent,position -->";
    const std::string plain = "<!-- a comment like any other of one length -->";
    ASSERT_EQ(suppression.size(), plain.size());
    const std::string text = kFile;
    size_t positions = 0;
    for (size_t tag = text.find('<'); tag != std::string::npos; tag = text.find('<', tag + 1)) {
        if (text[tag + 1] == '/') {
            continue;
        }
        const size_t end = text.find('>', tag);
        std::vector<size_t> places = {tag};
        if (text[end - 1] != '/') {
            places.push_back(end + 1);
        }
        for (const size_t at : places) {
            SCOPED_TRACE(text.substr(tag, end - tag + 1) + (at == tag ? " (before)" : " (after)"));
            std::string suppressed = text;
            suppressed.insert(at, suppression);
            std::string commented = text;
            commented.insert(at, plain);
            const Snapshot expected = arraysWithoutReport(commented);
            EXPECT_EQ(loadOf(suppressed).arrays, expected);
            EXPECT_EQ(arraysWithoutReport(suppressed), expected);
            ++positions;
        }
    }
    EXPECT_GT(positions, 50u);
}

std::string described(const LoadFinding& finding) {
    return finding.rule + "@" + std::to_string(finding.line) +
           (finding.suppressed ? " accepted" : "");
}

struct Case {
    const char* name;
    const char* text;
    std::vector<std::string> findings;  // every finding, as described()
    const char* message = "";  // of the first unused-suppression note, when one is expected
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}

class SuppressionTest : public ::testing::TestWithParam<Case> {};

TEST_P(SuppressionTest, SilencesWhatItsCommentCovers) {
    const Load load = loadOf(GetParam().text);
    std::vector<std::string> found;
    std::string message;
    for (const LoadFinding& finding : load.findings) {
        found.push_back(described(finding));
        if (finding.rule == "unused-suppression" && message.empty()) {
            message = finding.message;
        }
    }
    EXPECT_EQ(found, GetParam().findings);
    EXPECT_EQ(message, GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Comments, SuppressionTest,
    ::testing::Values(
        Case{"TheNextElementAndWhatItHolds",
             R"(<tuning_file>
    <general>
        <settings>
            <!-- ovela-tune disable missing-value -->
            <endpoint_type id="speaker">
                <auxiliary-system-gain values="-96"/>
            </endpoint_type>
            <endpoint_type id="headphone">
                <auxiliary-system-gain values="-96"/>
            </endpoint_type>
        </settings>
    </general>
</tuning_file>
)",
             {"missing-value@6 accepted", "missing-value@9"}},
        Case{"TheWholeFileFromBeforeItsRoot",
             R"(<?xml version="1.0"?>
<!-- ovela-tune disable-file missing-value, not-a-number: kept as shipped -->
<tuning_file>
    <general>
        <settings>
            <auxiliary-system-gain-enable values="1"/>
            <endpoint_type id="speaker">
                <auxiliary-system-gain value="loud"/>
            </endpoint_type>
        </settings>
    </general>
</tuning_file>
)",
             {"missing-value@6 accepted", "not-a-number@8 accepted"}},
        Case{"OccurrencesOfOneCauseFoldApart",
             R"(<tuning_file>
    <!-- ovela-tune disable never-sent -->
    <preset type="geq" id="0">
        <geq>
            <bands>
                <band_geq frequency="32" gain="0"/>
            </bands>
        </geq>
    </preset>
    <preset type="geq" id="1">
        <geq>
            <bands>
                <band_geq frequency="32" gain="0"/>
            </bands>
        </geq>
    </preset>
</tuning_file>
)",
             {"never-sent@10", "never-sent@3 accepted"}},
        Case{"AnErrorStaysAndTheCommentIsUnused",
             R"(<tuning_file>
    <!-- ovela-tune disable preset-without-bands -->
    <preset type="ieq" id="ieq_warm">
        <ieq>
            <bands>
            </bands>
        </ieq>
    </preset>
</tuning_file>
)",
             {"preset-without-bands@3", "unused-suppression@2"},
             "the suppression of preset-without-bands silences nothing: a finding that stops the "
             "load "
             "cannot be accepted"},
        Case{"ARuleThatDoesNotFireThere",
             R"(<tuning_file>
    <general>
        <settings>
            <auxiliary-system-gain-enable values="1"/>
            <!-- ovela-tune disable missing-value -->
            <endpoint_type id="speaker">
                <auxiliary-system-gain value="-96"/>
            </endpoint_type>
        </settings>
    </general>
</tuning_file>
)",
             {"missing-value@4", "unused-suppression@5"},
             "the suppression of missing-value silences nothing: the element that follows draws no "
             "such finding"},
        Case{"ANameOfNoRule",
             R"(<tuning_file>
    <!-- ovela-tune disable-file never-sen -->
</tuning_file>
)",
             {"unused-suppression@2"},
             "the suppression of never-sen silences nothing: no rule has this name (ovela-tune "
             "check "
             "--rules lists them)"},
        Case{"NothingFollows",
             R"(<tuning_file>
    <general/>
    <!-- ovela-tune disable unknown-element -->
</tuning_file>
)",
             {"unused-suppression@3"},
             "the suppression of unknown-element silences nothing: no element follows the comment"},
        Case{"NestedOnesInTheOrderOfTheFile",
             R"(<tuning_file>
    <!-- ovela-tune disable never-sent -->
    <general>
        <settings>
            <!-- ovela-tune disable unknown-element -->
            <auxiliary-system-gain-enable value="true"/>
        </settings>
    </general>
</tuning_file>
)",
             {"unused-suppression@2", "unused-suppression@5"},
             "the suppression of never-sent silences nothing: the element that follows draws no "
             "such finding"},
        Case{"OnlyItsOwnWords",
             R"(<tuning_file>
    <!-- ovela-tune: disable unknown-element -->
    <!-- ovela-tune disable-files unknown-element -->
    <!-- ovela-tune disable -->
    <bogus/>
</tuning_file>
)",
             {"unknown-element@5", "unused-suppression@4"},
             "the suppression of  silences nothing: the comment names no rule"}));

}  // namespace
}  // namespace ovela
