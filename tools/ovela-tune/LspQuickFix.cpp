#include <algorithm>
#include <string_view>

#include "LspFeatures.h"
#include "LspPlaces.h"

// Quick fixes for the findings that have one certain fix: the name or word
// that the finding suggests ("did you mean value?", "the format names it
// <settings>"), and the line break that lets the reader read an element that
// it skips.
namespace ovela::tune::lsp {

namespace {

// What a suggestion of a rule renames.
enum class Renames { ELEMENT_NAME, ATTRIBUTE_NAME, ATTRIBUTE_VALUE };

// Where a rule's message names the right word: after `before`, up to `after`.
struct RenameRule {
    const char* rule;
    Renames renames;
    std::string_view before = "(did you mean ";
    std::string_view after = "?)";
};

constexpr RenameRule kRenameRules[] = {
    {"unknown-element", Renames::ELEMENT_NAME},
    {"positional-name", Renames::ELEMENT_NAME, "the format names it <", ">"},
    {"unknown-attribute", Renames::ATTRIBUTE_NAME},
    {"missing-value", Renames::ATTRIBUTE_NAME},
    {"attribute-name", Renames::ATTRIBUTE_NAME},
    {"truth-word", Renames::ATTRIBUTE_VALUE},
    {"unknown-endpoint", Renames::ATTRIBUTE_VALUE},
    {"unknown-preset", Renames::ATTRIBUTE_VALUE},
    {"tuning-name-case", Renames::ATTRIBUTE_VALUE},
};

constexpr char kNotIndented[] = "not-indented";

// The word that the message of `rule` suggests, if it suggests one.
std::optional<std::string> suggestionOf(const std::string& message, const RenameRule& rule) {
    const size_t start = message.rfind(rule.before);
    const size_t end = message.find(rule.after, start + rule.before.size());
    if (start == std::string::npos || end == std::string::npos) {
        return std::nullopt;
    }
    const size_t from = start + rule.before.size();
    const std::string word = message.substr(from, end - from);
    if (word.empty() || word.find(' ') != std::string::npos) {
        return std::nullopt;
    }
    return word;
}

size_t distance(const std::string& a, const std::string& b) {
    std::vector<size_t> row(b.size() + 1);
    for (size_t j = 0; j <= b.size(); ++j) row[j] = j;
    for (size_t i = 1; i <= a.size(); ++i) {
        size_t diagonal = row[0];
        row[0] = i;
        for (size_t j = 1; j <= b.size(); ++j) {
            const size_t above = row[j];
            row[j] =
                std::min({row[j] + 1, row[j - 1] + 1,
                          diagonal + (std::tolower(a[i - 1]) == std::tolower(b[j - 1]) ? 0 : 1)});
            diagonal = above;
        }
    }
    return row[b.size()];
}

Json edit(const DocumentLoad& load, size_t from, size_t to, const std::string& text) {
    const TextPositions& positions = load.positions();
    return {{"range", rangeJson(positions.editorPositionOf(from), positions.editorPositionOf(to))},
            {"newText", text}};
}

// The edits that put `word` in place of what `renames` names in the tag of
// the finding at `offset`: the attribute there, or the one it most likely means.
Json renameEdits(const DocumentLoad& load, const ScannedTag& tag, size_t offset, Renames renames,
                 const std::string& word) {
    Json edits = Json::array();
    if (renames == Renames::ELEMENT_NAME) {
        edits.push_back(edit(load, tag.begin + 1, tag.begin + 1 + tag.name.size(), word));
        if (const ScannedTag* end = load.scan().endTagOf(tag)) {
            edits.push_back(edit(load, end->begin + 2, end->begin + 2 + end->name.size(), word));
        }
        return edits;
    }
    const ScannedAttribute* chosen = nullptr;
    size_t best = SIZE_MAX;
    for (const ScannedAttribute& attribute : tag.attributes) {
        const std::string& text =
            renames == Renames::ATTRIBUTE_NAME ? attribute.name : attribute.value;
        const size_t d = attribute.nameBegin == offset ? 0 : distance(text, word) + 1;
        if (d < best) {
            best = d;
            chosen = &attribute;
        }
    }
    if (chosen == nullptr) {
        return edits;
    }
    if (renames == Renames::ATTRIBUTE_NAME) {
        edits.push_back(
            edit(load, chosen->nameBegin, chosen->nameBegin + chosen->name.size(), word));
    } else if (chosen->valueEnd != std::string_view::npos) {
        edits.push_back(edit(load, chosen->valueBegin, chosen->valueEnd, word));
    }
    return edits;
}

Json action(const DocumentLoad& load, const std::string& title, Json diagnostic, Json edits) {
    return {{"title", title},
            {"kind", "quickfix"},
            {"isPreferred", true},
            {"diagnostics", Json::array({std::move(diagnostic)})},
            {"edit", {{"changes", {{load.uri(), std::move(edits)}}}}}};
}

// Whether two ranges share a place; a position that the client gave wrong
// counts as the start of the text.
bool overlaps(const Json& a, const Json& b) {
    auto at = [](const Json& position) {
        return std::make_pair(integerAt(position, "line").value_or(0),
                              integerAt(position, "character").value_or(0));
    };
    return !(at(objectAt(a, "end")) < at(objectAt(b, "start")) ||
             at(objectAt(b, "end")) < at(objectAt(a, "start")));
}

}  // namespace

Json codeActions(DocumentLoad& load, const Json& range, const ServerSettings& settings) {
    Json actions = Json::array();
    for (const LoadFinding& finding : shownFindings(load.file(), settings)) {
        Json diagnostic = diagnosticOf(finding, load.uri(), load.positions());
        if (finding.line == 0 || !overlaps(diagnostic["range"], range)) {
            continue;
        }
        const size_t offset = load.positions().offsetOfPlace(finding.line, finding.column);
        const CursorContext context = load.scan().contextAt(offset + 1);
        const ScannedTag* tag =
            context.tag != nullptr ? context.tag : load.scan().tagStartingAt(offset);
        if (tag == nullptr || tag->closing) {
            continue;
        }
        if (finding.rule == kNotIndented && tag->begin == offset) {
            // The element goes on a line of its own, one level below its parent.
            const std::string_view line = load.positions().lineText(finding.line - 1);
            const std::string indent(line.substr(0, line.find_first_not_of(" \t")));
            actions.push_back(
                action(load,
                       "Break the line before <" + tag->name +
                           ">: the reader then reads it, and the effect receives its values",
                       std::move(diagnostic),
                       Json::array({edit(load, offset, offset, "\n" + indent + "    ")})));
            continue;
        }
        const auto rule = std::find_if(std::begin(kRenameRules), std::end(kRenameRules),
                                       [&](const RenameRule& r) { return finding.rule == r.rule; });
        const auto word =
            rule != std::end(kRenameRules) ? suggestionOf(finding.message, *rule) : std::nullopt;
        if (!word) {
            continue;
        }
        Json edits = renameEdits(load, *tag, offset, rule->renames, *word);
        if (!edits.empty()) {
            actions.push_back(
                action(load, "Change to " + *word, std::move(diagnostic), std::move(edits)));
        }
    }
    return actions;
}

}  // namespace ovela::tune::lsp
