#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "LspFeatures.h"
#include "TuningFileCorpus.h"

namespace ovela::tune::lsp {
namespace {

using ::ovela::testing::replaced;
using ::ovela::testing::sampleText;
using ::testing::ElementsAre;
using ::testing::IsSupersetOf;

constexpr char kUri[] = "file:///t/qrn-test.xml";

// A profile whose include names no preset of the file but reads as the warm
// one by its words, a misspelt element, an endpoint section that the default
// tuning serves, and a tuning whose first value the reader skips.
const std::string kText = R"(<ovela_tuning>
    <preset type="ieq" id="ieq_warm">
        <ieq>
            <bands>
                <band_ieq frequency="65" target="120"/>
            </bands>
        </ieq>
    </preset>
    <profile id="0" name="dynamic">
        <settings>
            <ieq-amout value="10"/>
            <endpoint_type id="headphone">
                <virtualizer-enable value="TRUE"/>
            </endpoint_type>
        </settings>
        <include preset="ieq_warm_v2"/>
    </profile>
    <tuning name="default" endpoint_type="other" mono_device="false">
        <data><bass-enhancer-boost value="192"/>
            <bass-enhancer-width value="4"/>
        </data>
    </tuning>
</ovela_tuning>
)";

std::unique_ptr<DocumentLoad> loaded(const std::string& text) {
    return std::make_unique<DocumentLoad>(kUri, text, 1, PositionEncoding::UTF16);
}

// The text with `edits` (of one line each, on ASCII text) applied.
std::string applied(const std::string& text, const Json& edits) {
    std::vector<Json> sorted(edits.begin(), edits.end());
    std::sort(sorted.begin(), sorted.end(), [](const Json& a, const Json& b) {
        return std::make_pair(a["range"]["start"]["line"], a["range"]["start"]["character"]) >
               std::make_pair(b["range"]["start"]["line"], b["range"]["start"]["character"]);
    });
    std::string result = text;
    const TextPositions positions(text, PositionEncoding::UTF16);
    for (const Json& edit : sorted) {
        const size_t from = *positions.offsetOf(
            {edit["range"]["start"]["line"], edit["range"]["start"]["character"]});
        const size_t to =
            *positions.offsetOf({edit["range"]["end"]["line"], edit["range"]["end"]["character"]});
        result.replace(from, to - from, edit["newText"].get<std::string>());
    }
    return result;
}

long lineOf(const Json& location) {
    return location["range"]["start"]["line"];
}

std::vector<std::string> labels(const Json& completion) {
    std::vector<std::string> found;
    for (const Json& item : completion["items"]) {
        found.push_back(item["label"]);
    }
    return found;
}

std::vector<std::string> rulesOf(LoadedFile& file) {
    std::vector<std::string> rules;
    for (const LoadFinding& finding : file.findings()) {
        rules.push_back(finding.rule);
    }
    return rules;
}

TEST(LspFeaturesTest, DiagnosticsPointAtTheEarlierPlacesTheyName) {
    auto load = loaded(replaced(kText, R"(<ieq-amout value="10"/>)",
                                R"(<ieq-amount value="10"/><ieq-amount value="11"/>)"));
    const Json diagnostics = diagnosticsOf(load->file(), ServerSettings(), kUri, load->positions());
    const auto duplicate = std::find_if(diagnostics.begin(), diagnostics.end(), [](const Json& d) {
        return d["code"] == "duplicate-element";
    });
    ASSERT_NE(duplicate, diagnostics.end());
    EXPECT_EQ((*duplicate)["relatedInformation"][0]["location"],
              Json::parse(R"({"uri": "file:///t/qrn-test.xml", "range": {
                  "start": {"line": 10, "character": 12}, "end": {"line": 10, "character": 60}}})"));
    EXPECT_EQ((*duplicate)["range"]["start"], Json::parse(R"({"line": 10, "character": 36})"));
    // The replaced element's hover names the finding that replaced it.
    const std::string replacedHover =
        hoverAt(*load, {10, 16}, ServerSettings())["contents"]["value"];
    EXPECT_THAT(replacedHover, ::testing::HasSubstr("replaced by a later one"));
    EXPECT_THAT(replacedHover, ::testing::HasSubstr("[duplicate-element]"));
}

TEST(LspFeaturesTest, DefinitionsGoWhereTheLoadReads) {
    auto load = loaded(kText);
    // The include reads as the warm preset by its words, not by its text.
    const Json preset = definitionAt(*load, {15, 20});
    ASSERT_TRUE(preset.is_array());
    EXPECT_EQ(preset.size(), 1u);
    EXPECT_EQ(lineOf(preset[0]), 1);
    // The headphone has no tuning of its own: it starts with the default one.
    EXPECT_EQ(lineOf(definitionAt(*load, {11, 20})), 17);
    auto own = loaded(
        replaced(kText, "</ovela_tuning>",
                 R"(    <tuning name="headphone" endpoint_type="headphone" mono_device="false">
        <data>
            <bass-enhancer-width value="4"/>
        </data>
    </tuning>
</ovela_tuning>)"));
    EXPECT_EQ(lineOf(definitionAt(*own, {11, 20})), 22);
    EXPECT_EQ(definitionAt(*load, {10, 16}), nullptr);  // an element that names nothing
    // The preset's references are the includes that select it.
    const Json references = referencesAt(*load, {1, 8});
    ASSERT_EQ(references.size(), 1u);
    EXPECT_EQ(lineOf(references[0]), 15);
}

TEST(LspFeaturesTest, HoverSaysWhatTheEffectReceivesOrWhyNot) {
    auto load = loaded(kText);
    const std::string sent = hoverAt(*load, {19, 16}, ServerSettings())["contents"]["value"];
    EXPECT_EQ(sent,
              "**bass-enhancer-width** of tuning default: `bass_enhancer_width`, `bew`, sent "
              "(carried by a tuning)\n\n"
              "- general, device headphone, `bew`: 4\n\n");
    const std::string wrong = hoverAt(*load, {12, 42}, ServerSettings())["contents"]["value"];
    EXPECT_THAT(wrong, ::testing::HasSubstr("`virtualizer_enable`"));
    EXPECT_THAT(wrong, ::testing::HasSubstr("[truth-word]"));
    EXPECT_THAT(wrong, ::testing::HasSubstr(": 0"));  // TRUE is not true
    EXPECT_EQ(hoverAt(*load, {0, 0}, ServerSettings()), nullptr);
    // A rule that the user switched off stays out of the hover too.
    ServerSettings quiet;
    quiet.filter.disabled.push_back("truth-word");
    EXPECT_THAT(hoverAt(*load, {12, 42}, quiet)["contents"]["value"].get<std::string>(),
                ::testing::Not(::testing::HasSubstr("[truth-word]")));
}

TEST(LspFeaturesTest, CompletionOffersWhatFitsThePlace) {
    auto load = loaded(kText);
    EXPECT_THAT(labels(completionAt(*load, {15, 26})), IsSupersetOf({"ieq_warm", "warm", "off"}));
    EXPECT_THAT(labels(completionAt(*load, {11, 32})), IsSupersetOf({"speaker", "bluetooth"}));
    const std::vector<std::string> settings = labels(completionAt(*load, {10, 13}));
    EXPECT_THAT(settings, IsSupersetOf({"ieq-amount", "endpoint_type"}));
    EXPECT_THAT(settings, ::testing::Not(::testing::Contains("band_ieq")));
    // A tag being typed before others: the scan goes on past it.
    auto typing = loaded(replaced(kText, "<ieq-amout value=\"10\"/>", "<ieq-am"));
    EXPECT_THAT(labels(completionAt(*typing, {10, 19})), ::testing::Contains("ieq-amount"));
    EXPECT_THAT(labels(completionAt(*typing, {12, 17})), ::testing::Contains("virtualizer-enable"));
    // At the end of a start tag: the attributes that it does not give yet.
    EXPECT_THAT(labels(completionAt(*load, {17, 68})),
                ElementsAre("orientation", "output_channels"));
}

TEST(LspFeaturesTest, QuickFixesApplyTheFindingsOwnSuggestion) {
    auto load = loaded(kText);
    const Json everywhere = {{"start", {{"line", 0}, {"character", 0}}},
                             {"end", {{"line", 30}, {"character", 0}}}};
    std::string fixed = kText;
    std::vector<std::string> titles;
    for (const Json& action : codeActions(*load, everywhere, ServerSettings())) {
        titles.push_back(action["title"]);
        fixed = applied(fixed, action["edit"]["changes"][kUri]);
    }
    EXPECT_THAT(titles, ElementsAre("Change to ieq-amount", "Change to true",
                                    "Break the line before <bass-enhancer-boost>: the reader then "
                                    "reads it, and the effect receives its values"));
    auto after = loaded(fixed);
    EXPECT_THAT(rulesOf(after->file()), ElementsAre("include-name", "default-tuning"));
    EXPECT_THAT(fixed, ::testing::HasSubstr("<data>\n            <bass-enhancer-boost"));
}

TEST(LspFeaturesTest, ARenamedElementKeepsItsEndTag) {
    const std::string misnamed =
        replaced(replaced(kText, "<settings>", "<setings>"), "</settings>", "</setings>");
    auto load = loaded(misnamed);
    const Json line = {{"start", {{"line", 9}, {"character", 0}}},
                       {"end", {{"line", 9}, {"character", 20}}}};
    const Json actions = codeActions(*load, line, ServerSettings());
    ASSERT_EQ(actions.size(), 1u);
    EXPECT_EQ(actions[0]["title"], "Change to settings");
    EXPECT_EQ(applied(misnamed, actions[0]["edit"]["changes"][kUri]), kText);
}

TEST(LspFeaturesTest, FormattingIndentsWithoutChangingAnArray) {
    std::string ragged;
    size_t line = 0;
    for (size_t at = 0, next; at < kText.size(); at = next + 1, ++line) {
        next = kText.find('\n', at);
        const std::string text = kText.substr(at, next - at);
        const size_t first = text.find_first_not_of(' ');
        ragged +=
            (line % 2 ? "\t " : "") + text.substr(first == std::string::npos ? 0 : first) + "\n";
    }
    auto load = loaded(ragged);
    EXPECT_EQ(applied(ragged, formattingEdits(*load)), kText);
    auto canonical = loaded(kText);
    EXPECT_TRUE(formattingEdits(*canonical).empty());
    EXPECT_TRUE(sameArrays(load->file(), canonical->file()));
    // A text that does not load is left alone.
    auto broken = loaded(replaced(ragged, "</profile>", ""));
    EXPECT_TRUE(formattingEdits(*broken).empty());
}

TEST(LspFeaturesTest, OutlineListsTheSectionsWithTheirNames) {
    auto load = loaded(sampleText());
    std::vector<std::string> names;
    for (const Json& symbol : documentSymbols(*load)) {
        names.push_back(symbol["name"].get<std::string>() + " " +
                        symbol["detail"].get<std::string>());
    }
    EXPECT_EQ(names.front(), "general ");
    EXPECT_THAT(names, IsSupersetOf({"IEQ preset warm ", "profile 0 dynamic",
                                     "tuning speaker for speaker", "tuning default for other"}));
}

}  // namespace
}  // namespace ovela::tune::lsp
