// What a load with a report says about a file: each decision at its line and
// level, one finding per cause, and never a different load than without it.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "LoadReport.h"
#include "LogCapture.h"
#include "PackedWords.h"
#include "ProfileParamArray.h"
#include "ReportedLoads.h"
#include "TempFile.h"
#include "TuningFileCorpus.h"

namespace ovela {
namespace {

using testing::attributes;
using testing::LogCapture;
using testing::Snapshot;
using testing::snapshotOf;
using testing::TempFile;

// A file that loads with nothing to report; each case edits it.
constexpr char kClean[] = R"(<?xml version="1.0"?>
<tuning_file>
    <general>
        <settings>
            <auxiliary-system-gain-enable value="true"/>
            <endpoint_type id="speaker">
                <auxiliary-system-gain value=" -96 "/>
            </endpoint_type>
        </settings>
    </general>
    <preset type="ieq" id="ieq_warm">
        <ieq>
            <bands>
                <band_ieq frequency="100" target="1"/>
                <band_ieq frequency="200" target="2"/>
            </bands>
        </ieq>
    </preset>
    <profile id="2" name="music">
        <settings>
            <ieq-amount value="7"/>
            <drc-metadata data="0,1,2"/>
            <endpoint_type id="speaker">
                <volume-leveler-amount value="7"/>
            </endpoint_type>
        </settings>
        <include preset="ieq_warm"/>
    </profile>
    <tuning name="speaker" endpoint_type="speaker" mono_device="false">
        <data>
            <bass-enhancer-boost value="192"/>
            <regulator-stress-amount data="96,96,80,80"/>
            <complex-equalizer-tuning-left data="1,2"/>
            <complex-equalizer-tuning-right data="3,4"/>
            <regulator-tuning>
                <band frequency="65" threshold_low="-272" threshold_high="-136" isolated_band="true"/>
            </regulator-tuning>
            <output-mode>
                <mix_matrix>
                    <row coefficients="1,0"/>
                    <row coefficients="0,1"/>
                </mix_matrix>
            </output-mode>
        </data>
    </tuning>
</tuning_file>
)";

struct Edit {
    std::string from;
    std::string to;
};

struct Case {
    const char* name;
    std::vector<Edit> edits;
    const char* finding;  // "rule@line:column level"
    // Where the rule and the line do not say enough: the message in full.
    std::string message = "";
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}

std::string edited(const std::vector<Edit>& edits) {
    std::string text = kClean;
    for (const Edit& edit : edits) {
        text = testing::editedOnce(text, edit.from, edit.to);
    }
    return text;
}

std::string described(const LoadFinding& finding) {
    return finding.rule + "@" + std::to_string(finding.line) + ":" +
           std::to_string(finding.column) + " " + severityName(finding.severity);
}

std::vector<LoadFinding> findingsOf(const std::string& path, Snapshot* snapshot = nullptr) {
    LogCapture log;
    LoadReport report;
    const ReportedLoads reported(&report);
    ProfileParamArray store(path);
    if (snapshot != nullptr) {
        *snapshot = snapshotOf(store);
    }
    return report.findings();
}

class LoadReportTest : public ::testing::TestWithParam<Case> {};

// The finding the case expects, and no other error or warning: what follows
// from a cause is not reported again.
TEST_P(LoadReportTest, ReportsTheDecisionOnceAtItsLine) {
    TempFile file(edited(GetParam().edits));
    const std::string expected = GetParam().finding;
    std::vector<std::string> found;
    for (const LoadFinding& finding : findingsOf(file.path())) {
        if (finding.severity != Severity::NOTE || described(finding) == expected) {
            found.push_back(described(finding));
        }
        if (described(finding) == expected && !GetParam().message.empty()) {
            EXPECT_EQ(finding.message, GetParam().message);
        }
    }
    EXPECT_EQ(found, std::vector<std::string>{expected});
}

const std::string kSpeakerSettings =
    "            <endpoint_type id=\"speaker\">\n                <volume";
const std::string kProfileStart = "    <profile id=\"2\"";
// A second warm IEQ preset, for putting before the profile.
const std::string kWarmPreset =
    "    <preset type=\"ieq\" id=\"warm\">\n        <ieq>\n            <bands>\n"
    "                <band_ieq frequency=\"1\" target=\"1\"/>\n"
    "            </bands>\n        </ieq>\n    </preset>\n";
const std::string kTuningEnd = "        </data>\n    </tuning>\n";
const std::string kProfileEnd = "        <include preset=\"ieq_warm\"/>\n    </profile>\n";

// One case per rule, or per way a rule is met: the file's fragment, and the
// rule, line, column and level of the one finding it gives.
const Case kCases[] = {
    Case{"AStartTagOverTwoLines",
         {{"mono_device=\"false\">\n        <data>",
           "mono_device=\"false\">\n        <device_id\n            id=\"x\"/>\n        <data>"}},
         "never-sent@30:9 note"},
    Case{"TransposedLetters",
         {{"<ieq-amount value=\"7\"/>", "<ieq-amount vlaue=\"7\"/>"}},
         "missing-value@21:13 warning",
         "<ieq-amount> has no value attribute, only vlaue: it reads as 0 (did you mean value?)"},
    Case{"AfterTheFourthChildOfAProfile",
         {{kProfileEnd,
           "        <include preset=\"ieq_warm\"/>\n        <!-- x -->\n"
           "        <bogus/>\n    </profile>\n"}},
         "not-read@29:9 warning",
         "<bogus> is not read: the reader takes only the 2nd child node of <profile> as "
         "<settings> and the 4th as <include>"},
    Case{"EndpointAttributesAfterItsId",
         {{kSpeakerSettings,
           "            <endpoint_type id=\"speaker\" name=\"x\">\n"
           "                <volume"}},
         "unknown-attribute@23:41 warning",
         "name of <endpoint_type> is ignored: the reader reads only its id"},
    Case{"XmlSyntax", {{"<profile id=\"2\"", "<profile id=2"}}, "xml-syntax@19:17 error"},
    Case{"PresetWithoutTargets",
         {{"target=", "tagret="}, {"target=", "tagret="}},
         "preset-without-bands@11:5 error",
         "no band row has a target attribute, the first has tagret (did you mean target?): "
         "<preset> \"ieq_warm\" gives no target values, so the file does not load"},
    Case{"CommentBeforePresetWrapper",
         {{"ieq_warm\">\n", "ieq_warm\"><!-- x -->\n"}},
         "preset-without-bands@11:5 error"},
    Case{"ProfilePastItsRoom",
         {{"data=\"0,1,2\"", "data=\"" + testing::numbers(1201) + "\""}},
         "array-room@19:5 error",
         "the array of profile 2 needs 1232 words but has room for 1200, so the file does not "
         "load: profile 2 takes 1208 words, 2 kinds of entries of the store's own take 18 "
         "words and profile 2 on speaker takes 4 words"},
    Case{"XmlWarning",
         {{"<tuning_file>", "<tuning_file xmlns:x=\"a b\">"}},
         "xml-warning@2:27 warning"},
    Case{
        "NotIndented", {{"<data>\n            <bass", "<data><bass"}}, "not-indented@30:15 warning"},
    Case{"NotIndentedTwice",
         {{"music\">\n        <settings>", "music\"><settings>"},
          {"<data>\n            <bass", "<data><bass"}},
         "not-indented@19:34 warning",
         "elements come first in their parent with no line break before them, and the reader "
         "skips the first child node of an element: they are not read (2 times: lines 19, "
         "29; 6 elements in all)"},
    Case{"CommentBeforeProfileSettings",
         {{"music\">\n", "music\"><!-- x -->\n"}},
         "position@19:34 warning",
         "the 2nd child node of <profile>, where the reader takes <settings>, is text, as a "
         "comment comes first in it: the profile sends no settings of its own, <settings> and "
         "4 more elements are not read, and its <include> is not read either: it reads as "
         "off"},
    Case{"DataElementNamedOtherwise",
         {{"<data>", "<dat>"}, {"</data>", "</dat>"}},
         "positional-name@30:9 warning"},
    Case{"ElementAfterTheData",
         {{kTuningEnd,
           "        </data>\n        <bass-enhancer-width value=\"1\"/>\n    </tuning>\n"}},
         "not-read@45:9 warning"},
    Case{"UnknownElement",
         {{"<ieq-amount", "<ieq-anoxnt"}},
         "unknown-element@21:13 warning",
         "unknown element <ieq-anoxnt> in <settings> is ignored (did you mean ieq-amount?)"},
    Case{"UnknownAttributeFarFromAnyName",
         {{"<tuning name=", "<tuning nxmx=\"1\" name="}},
         "unknown-attribute@29:13 warning",
         "nxmx of <tuning> is ignored: the format has no such attribute there"},
    Case{"UnknownPresetAttribute",
         {{"type=\"ieq\" id=", "type=\"ieq\" q=\"1\" id="}},
         "unknown-attribute@11:24 warning"},
    Case{"UnknownAttribute",
         {{"isolated_band=\"true\"", "isolated_band=\"true\" q=\"1\""}},
         "unknown-attribute@36:102 warning"},
    Case{"RowAttributeNamedOtherwise",
         {{"<drc-metadata data=", "<drc-metadata dat="}},
         "attribute-name@22:27 warning"},
    Case{"ValueAttributeNamedOtherwise",
         {{"<ieq-amount value=", "<ieq-amount values="}},
         "missing-value@21:13 warning"},
    Case{"InvisibleCharacter",
         {{"value=\"192\"", "value=\"192\xc2\xa0\""}},
         "not-a-number@31:34 warning"},
    Case{"RowFieldNotANumber", {{"data=\"96,96", "data=\"96,x"}}, "not-a-number@32:13 warning"},
    Case{"TruthWordInCapitals",
         {{"mono_device=\"false\"", "mono_device=\"TRUE\""}},
         "truth-word@29:52 warning"},
    Case{"NumberPastTheRange",
         {{"value=\"7\"", "value=\"99999999999\""}},
         "number-range@21:25 warning"},
    Case{"EmptyField", {{"96,96,80", "96,,80"}}, "empty-field@32:13 warning"},
    Case{"EmptyRow", {{"data=\"96,96,80,80\"", "data=\"\""}}, "empty-list@32:13 warning"},
    Case{"SettingTwice",
         {{"<ieq-amount value=\"7\"/>", "<ieq-amount value=\"7\"/><ieq-amount value=\"8\"/>"}},
         "duplicate-element@21:36 warning"},
    Case{"EndpointSectionTwice",
         {{kSpeakerSettings,
           "            <endpoint_type id=\"speaker\">\n            </endpoint_type>\n" +
               kSpeakerSettings}},
         "duplicate-section@25:13 warning"},
    Case{"ProfileTwice",
         {{kProfileEnd, kProfileEnd + "    <profile id=\"2\">\n        <settings/>\n" + kProfileEnd}},
         "duplicate-profile@29:5 warning"},
    Case{"TuningTwice",
         {{kTuningEnd, kTuningEnd +
                           "    <tuning name=\"speaker\">\n        <data>\n"
                           "            <bass-enhancer-width value=\"1\"/>\n" +
                           kTuningEnd}},
         "duplicate-tuning@46:5 warning"},
    Case{"PresetThreeTimes",
         {{kProfileStart, kWarmPreset + kWarmPreset + kProfileStart}},
         "duplicate-preset@26:5 warning",
         "the IEQ presets at lines 11, 19 and 26 are all warm: each is sent, and a profile "
         "that selects warm cannot tell which one it means"},
    Case{"BandTwice", {{"frequency=\"200\"", "frequency=\"100\""}}, "duplicate-band@13:13 warning"},
    Case{
        "EndpointInCapitals",
        {{kSpeakerSettings, "            <endpoint_type id=\"Speaker\">\n                <volume"}},
        "unknown-endpoint@23:28 warning"},
    Case{"IncludeInCapitals",
         {{"preset=\"ieq_warm\"", "preset=\"Warm\""}},
         "unknown-preset@27:18 warning"},
    Case{"PresetTypeInCapitals", {{"type=\"ieq\"", "type=\"IEQ\""}}, "unknown-preset@11:13 warning"},
    Case{"NoInclude",
         {{"        <include preset=\"ieq_warm\"/>\n", ""}},
         "include-missing@19:5 warning"},
    Case{"IncludeOfAnUndefinedPreset",
         {{"preset=\"ieq_warm\"", "preset=\"ieq_detailed\""}},
         "include-undefined@27:18 warning"},
    Case{"TuningWithoutData",
         {{kTuningEnd, kTuningEnd + "    <tuning name=\"t\">\n        <device_id id=\"x\"/>\n"
                                    "    </tuning>\n"}},
         "no-data@46:5 warning"},
    Case{"TuningThatSendsNothing",
         {{kTuningEnd, kTuningEnd +
                           "    <tuning name=\"t\">\n        <data>\n"
                           "            <regulator-tuning/>\n" +
                           kTuningEnd}},
         "empty-tuning@46:5 warning"},
    Case{"TuningNamedAfterAnotherEndpoint",
         {{"endpoint_type=\"speaker\" mono", "endpoint_type=\"headphone\" mono"}},
         "tuning-endpoint@29:5 warning"},
    Case{"ProfileOutsideTheRange",
         {{"<profile id=\"2\"", "<profile id=\"12\""}},
         "profile-id@19:5 warning"},
    Case{"MatrixRowsOfUnequalLength",
         {{"coefficients=\"0,1\"", "coefficients=\"0,1,2\"/><row coefficients=\"5\""}},
         "matrix-rows@39:17 warning",
         "<mix_matrix> has rows of 2, 3 and 1 numbers: the effect receives them as one list "
         "and reads it by the matrix's shape"},
    Case{"ComplexEqualizerOfUnequalSides",
         {{"data=\"3,4\"", "data=\"3,4,5\""}},
         "composite-dropped@33:13 warning"},
    Case{"ValueThatNoArrayCarries",
         {{"mono_device=\"false\"", "orientation=\"0\""}},
         "never-sent@29:52 note"},
    Case{"DefaultTuning",
         {{"<tuning name=\"speaker\"", "<tuning name=\"default\""}},
         "default-tuning@29:5 note"},
    Case{"NoTuningForAnEndpoint",
         {{"<tuning name=\"speaker\" endpoint_type=\"speaker\"",
           "<tuning name=\"headphone\" endpoint_type=\"headphone\""}},
         "no-tuning@0:0 note"},
    Case{"MonoSpeaker",
         {{"mono_device=\"false\"", "mono_device=\"true\""},
          {"<volume-leveler-amount value=\"7\"/>", "<virtualizer-enable value=\"true\"/>"}},
         "mono-speaker@23:13 note"},
    Case{"ElementWithTooManyAttributes",
         {{"target=\"2\"", "target=\"2\"" + attributes(256)}},
         "attribute-count@15:0 error"},
    Case{"ValueOfAnEntityThatTheFileDoesNotDeclare",
         {{"<tuning_file>", "<!DOCTYPE tuning_file SYSTEM \"tuning.dtd\">\n<tuning_file>"},
          {"<ieq-amount value=\"7\"/>", "<ieq-amount value=\"&amount;\"/>"}},
         "entity-expansion@22:25 warning",
         "value of <ieq-amount> refers to &amount;, which the file does not declare (an "
         "external DTD is never read): it reads as \"\""},
    Case{"ValueAfterAnotherAttribute",
         {{"<ieq-amount value=", "<ieq-amount unit=\"dB\" value="}},
         "attribute-order@21:13 warning"},
    Case{"ElementsThatAnEntityStandsFor",
         {{"<tuning_file>",
           "<!DOCTYPE t [<!ENTITY vl \"<volume-leveler-amount value='7'/><ieq-amount "
           "value='1'/>\">]>\n<tuning_file>"},
          {"<volume-leveler-amount value=\"7\"/>", "&vl;"}},
         "entity-content@25:17 warning",
         "&vl; in <endpoint_type> stands for <volume-leveler-amount> and more elements: the "
         "reader reads no element that an entity reference brings in, so these 2 elements are "
         "not read"},
    Case{"ElementThatAnEntityStandsFor",
         {{"<tuning_file>",
           "<!DOCTYPE t [<!ENTITY vl \"<volume-leveler-amount value='7'/>\">]>\n<tuning_file>"},
          {"<volume-leveler-amount value=\"7\"/>", "&vl;"}},
         "entity-content@25:17 warning"},
    Case{"BandTableTwice",
         {{"            </regulator-tuning>\n",
           "            </regulator-tuning>\n            <regulator-tuning>\n"
           "                <band frequency=\"65\" threshold_low=\"1\" threshold_high=\"1\" "
           "isolated_band=\"true\"/>\n            </regulator-tuning>\n"}},
         "duplicate-table@38:13 warning",
         "a second <regulator-tuning> in tuning speaker (the first at line 35): its rows are "
         "appended to the first's, 2 bands in all"},
    Case{"IncludeOfTwoPresetWords",
         {{"preset=\"ieq_warm\"", "preset=\"ieq_warm_off\""}},
         "preset-words@27:18 warning"},
    Case{"IncludeNamingThePresetOtherwise",
         {{"id=\"ieq_warm\"", "id=\"ieq_detailed_warm\""},
          {"preset=\"ieq_warm\"", "preset=\"ieq_detailed_warm\""}},
         "preset-words@27:18 warning",
         "<include> \"ieq_detailed_warm\" holds the words warm and detailed: it reads as warm, "
         "while <preset> \"ieq_detailed_warm\" at line 11 reads as detailed: the two test the "
         "words in different orders"},
    Case{"PresetIdOfTwoWords",
         {{kProfileStart,
           "    <preset type=\"ieq\" id=\"balanced_detailed\">\n        <ieq>\n"
           "            <bands>\n                <band_ieq frequency=\"1\" target=\"1\"/>\n"
           "            </bands>\n        </ieq>\n    </preset>\n" +
               kProfileStart}},
         "preset-words@19:24 warning"},
    Case{"IncludeOfNoPresetOfTheFile",
         {{"preset=\"ieq_warm\"", "preset=\"ieq_warm_v2\""}},
         "include-name@27:18 warning",
         "<include> \"ieq_warm_v2\" of profile 2 names no preset of the file: it reads as warm "
         "by its words, the preset \"ieq_warm\" at line 11"},
    Case{"TuningNamedLikeAnEndpoint",
         {{"<tuning name=\"speaker\"", "<tuning name=\"Speaker\""}},
         "tuning-name-case@29:5 warning"},
    Case{"BandWithoutATarget",
         {{"<band_ieq frequency=\"200\" target=\"2\"/>", "<band_ieq frequency=\"200\"/>"}},
         "composite-dropped@15:17 warning",
         "IEQ preset warm gives band_ieq frequency 2 and band_ieq target 1 values, and the "
         "<band_ieq> here gives no target: its iebs entry takes as many of each, so it is not "
         "sent"},
    Case{"ElementBesideSettingsAndInclude",
         {{kProfileEnd,
           "        <include preset=\"ieq_warm\"/>\n        <ieq-amount value=\"1\"/>\n"
           "    </profile>\n"}},
         "not-read@28:9 warning"},
    Case{"CommentBeforeTheInclude",
         {{"        <include", "        <!-- x --><include"}},
         "include-missing@27:9 warning"},
    Case{"EntityDeclaration",
         {{"<tuning_file>", "<!DOCTYPE tuning_file [<!ENTITY e \"1\">]>\n<tuning_file>"}},
         "entity-declaration@3:0 note"},
};

INSTANTIATE_TEST_SUITE_P(EveryRule, LoadReportTest, ::testing::ValuesIn(kCases),
                         [](const ::testing::TestParamInfo<Case>& info) {
                             return std::string(info.param.name);
                         });

// The rules that may say why values of one fate reach no array.
std::set<std::string> rulesFor(Fate fate) {
    switch (fate) {
        case Fate::NEVER_SENT:
            return {"never-sent", "default-tuning", "tuning-endpoint", "tuning-name-case"};
        case Fate::REPLACED:
            return {"duplicate-element", "duplicate-tuning", "duplicate-section"};
        case Fate::DROPPED:
            return {"composite-dropped"};
        case Fate::SKIPPED:
            return {"profile-id"};
        case Fate::EMPTY:
            return {"empty-list",       "missing-value", "attribute-name",
                    "entity-expansion", "not-indented",  "empty-field"};
        case Fate::SENT:
            break;
    }
    return {};
}

bool samePlace(const Place& a, const Place& b) {
    return a.line == b.line && a.column == b.column;
}

// Every entry of every stored array has its origin and the runs of values it
// is made of, and every value that the reader read is carried by an entry or
// a finding says why none carries it.
void expectEverythingTraced(const LoadReport& report, const Snapshot& arrays) {
    const LoadTrace& trace = report.trace();
    std::vector<const EntryPart*> parts;
    auto checkArray = [&](const std::string& name, const ArrayRecord& record) {
        SCOPED_TRACE(name);
        if (!record.stored) {
            return;
        }
        const std::vector<int32_t>& words = arrays.arrays.at(name);
        ASSERT_GE(words.size(), 2u);
        ASSERT_EQ(static_cast<size_t>(words[1]), record.entries.size());
        size_t at = 2;
        for (const EntryOrigin& entry : record.entries) {
            ASSERT_LT(at + 2, words.size());
            EXPECT_EQ(entry.device, words[at]);
            EXPECT_EQ(entry.code, static_cast<KyrParameterId>(words[at + 1]));
            const size_t count = static_cast<size_t>(words[at + 2]);
            EXPECT_EQ(entry.words, count + 3);
            size_t covered = 0;
            for (const EntryPart& part : entry.parts) {
                EXPECT_EQ(part.first, covered) << kyrCodeText(entry.code);
                covered += part.count;
                EXPECT_EQ(part.parameter == EntryPart::kStore, part.sources.empty())
                    << kyrCodeText(entry.code);
                parts.push_back(&part);
            }
            EXPECT_EQ(covered, count) << kyrCodeText(entry.code) << " of " << entry.label;
            at += 3 + count;
        }
        EXPECT_EQ(at, words.size());
    };
    for (const auto& [id, record] : trace.profileRecords()) {
        checkArray("profile " + std::to_string(id), record);
    }
    for (const auto& [name, record] : trace.tuningRecords()) {
        if (name != "default") {
            checkArray("tuning " + name, record);
        }
    }
    const std::vector<LoadFinding> findings = report.findings();
    for (const TracedEntity* entity : trace.entities()) {
        for (const TracedValues& values : entity->values) {
            const Source& source = values.sources.front();
            SCOPED_TRACE(entity->label + ": " + nameOf(source) + ", " + fateName(values.fate));
            if (values.fate == Fate::SENT) {
                const bool carried =
                    std::any_of(parts.begin(), parts.end(), [&](const EntryPart* part) {
                        return part->parameter == values.parameter &&
                               std::any_of(part->sources.begin(), part->sources.end(),
                                           [&](const Source& s) {
                                               return samePlace(s.place, source.place);
                                           });
                    });
                EXPECT_TRUE(carried || entity->settled);
                continue;
            }
            const std::set<std::string> rules = rulesFor(values.fate);
            const bool told =
                std::any_of(findings.begin(), findings.end(), [&](const LoadFinding& f) {
                    return (rules.count(f.rule) != 0 || entity->settled) &&
                           (f.line == source.place.line || f.line == entity->place.line ||
                            f.message.find(nameOf(source)) != std::string::npos ||
                            f.message.find(entity->label) != std::string::npos ||
                            // "profile 12" for its section "profile 12 on speaker"
                            f.message.find(entity->label.substr(0, entity->label.find(" on "))) !=
                                std::string::npos ||
                            f.message.find(entity->kind) != std::string::npos);
                });
            EXPECT_TRUE(told);
        }
    }
}

// For every tuning file that the tests have, the report has an error exactly
// when the file does not load, and a load with a report builds the same
// arrays as one without and traces them.
TEST(LoadReportTest, ErrorsExactlyWhenTheLoadFailsAndTheSameArraysEitherWay) {
    std::vector<testing::CorpusFile> corpus = testing::tuningFileCorpus();
    for (const testing::CorpusFile& file : corpus) {
        SCOPED_TRACE(file.name);
        TempFile written(file.text);
        LogCapture log;
        ProfileParamArray plain(written.path());
        const Snapshot withoutReport = snapshotOf(plain);
        Snapshot withReport;
        const std::vector<LoadFinding> findings = findingsOf(written.path(), &withReport);
        const bool loads = !withoutReport.arrays.at("profile -1").empty();
        const bool errors = std::any_of(findings.begin(), findings.end(), [](const LoadFinding& f) {
            return f.severity == Severity::ERROR;
        });
        EXPECT_EQ(errors, !loads);
        EXPECT_EQ(withReport, withoutReport);
    }
}

// The same for the table's files, which give values of every fate.
TEST(LoadReportTest, EveryArrayEntryAndEveryValueIsTraced) {
    std::vector<testing::CorpusFile> files = testing::tuningFileCorpus();
    files.push_back({"Clean", kClean});
    for (const Case& c : kCases) {
        files.push_back({c.name, edited(c.edits)});
    }
    for (const testing::CorpusFile& file : files) {
        SCOPED_TRACE(file.name);
        TempFile written(file.text);
        LogCapture log;
        LoadReport report;
        const ReportedLoads reported(&report);
        ProfileParamArray store(written.path());
        if (!report.hasErrors()) {
            expectEverythingTraced(report, snapshotOf(store));
        }
    }
}

// A cause met in many places lists at most eight of their lines.
TEST(LoadReportTest, AFoldedFindingListsEightLinesAtMost) {
    for (const size_t presets : {8u, 9u}) {
        std::string text = "<tuning_file>\n";
        for (size_t id = 0; id < presets; ++id) {
            text += "    <preset type=\"geq\" id=\"" + std::to_string(id) +
                    "\">\n        <geq>\n            <bands>\n"
                    "                <band_geq frequency=\"32\" gain=\"0\"/>\n"
                    "            </bands>\n        </geq>\n    </preset>\n";
        }
        TempFile file(text + "</tuning_file>\n");
        const std::vector<LoadFinding> findings = findingsOf(file.path());
        ASSERT_EQ(findings.size(), 1u);
        const std::string lines =
            presets == 8 ? "2, 9, 16, 23, 30, 37, 44, 51)" : "2, 9, 16, 23, 30, 37, 44, 51, ...)";
        EXPECT_EQ(findings[0].message, "read but never sent: no array carries GEQ presets (" +
                                           std::to_string(presets) + " times: lines " + lines);
    }
}

}  // namespace
}  // namespace ovela
