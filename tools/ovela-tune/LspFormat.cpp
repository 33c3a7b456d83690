#include "LspFeatures.h"
#include "LspPlaces.h"
#include "StoreArrays.h"

// Formatting: every line that starts with a tag or a comment is indented by
// the depth of its element, four spaces a level; nothing else changes. The
// reader skips the first child node of an element, so only a text whose
// arrays come out the same is offered: both texts are loaded and compared.
namespace ovela::tune::lsp {

namespace {

constexpr size_t kIndent = 4;

bool sameArray(const std::optional<PackedArray>& a, const std::optional<PackedArray>& b) {
    if (a.has_value() != b.has_value()) {
        return false;
    }
    if (!a) {
        return true;
    }
    if (a->header != b->header || a->size != b->size || a->entries.size() != b->entries.size()) {
        return false;
    }
    for (size_t i = 0; i < a->entries.size(); ++i) {
        const PackedEntry& x = a->entries[i];
        const PackedEntry& y = b->entries[i];
        if (x.device != y.device || x.code != y.code || x.values != y.values) {
            return false;
        }
    }
    return true;
}

}  // namespace

bool sameArrays(LoadedFile& a, LoadedFile& b) {
    if (a.loads() != b.loads()) {
        return false;
    }
    ProfileParamArray& x = *a.store;
    ProfileParamArray& y = *b.store;
    for (int profile = kGeneralProfileId; profile <= kLastProfileId; ++profile) {
        if (!sameArray(profileArray(x, profile), profileArray(y, profile))) {
            return false;
        }
    }
    const std::vector<std::string> tunings = allTunings(x);
    if (tunings != allTunings(y)) {
        return false;
    }
    for (const std::string& tuning : tunings) {
        if (!sameArray(tuningArray(x, tuning), tuningArray(y, tuning))) {
            return false;
        }
    }
    for (size_t endpoint = 0; endpoint < kNumEndpoints; ++endpoint) {
        if (availableTunings(x, static_cast<Endpoint>(endpoint)) !=
            availableTunings(y, static_cast<Endpoint>(endpoint))) {
            return false;
        }
    }
    return true;
}

Json formattingEdits(DocumentLoad& load) {
    Json edits = Json::array();
    if (!load.file().loads()) {
        return edits;  // the scan of the tags is the least sure where the reader fails
    }
    const std::string& text = load.text();
    const TextPositions& positions = load.positions();
    const TagScan& scan = load.scan();
    std::string formatted;
    formatted.reserve(text.size());
    size_t lineStart = 0;
    for (size_t line = 0; line < positions.lineCount(); ++line) {
        const std::string_view lineText = positions.lineText(line);
        const size_t end = lineStart + lineText.size();
        const size_t first = lineText.find_first_not_of(" \t");
        const size_t at = lineStart + (first == std::string_view::npos ? lineText.size() : first);
        const CursorContext context = scan.contextAt(at);
        const ScannedTag* tag = scan.tagStartingAt(at);
        // Only a line that starts with markup between tags moves: a line
        // inside a tag, a comment or a text stays as written.
        const bool movable = first != std::string_view::npos && text[at] == '<' &&
                             context.where == CursorContext::Where::CONTENT;
        if (movable) {
            size_t depth = context.open.size();
            if (tag != nullptr && tag->closing && depth > 0) {
                --depth;
            }
            const std::string indent(depth * kIndent, ' ');
            formatted += indent;
            if (std::string_view(text).substr(lineStart, at - lineStart) != indent) {
                edits.push_back({{"range", rangeJson(positions.editorPositionOf(lineStart),
                                                     positions.editorPositionOf(at))},
                                 {"newText", indent}});
            }
            formatted.append(text, at, end - at);
        } else {
            formatted.append(text, lineStart, end - lineStart);
        }
        // The line break as the text has it.
        const size_t next = text.find('\n', end);
        if (next != std::string::npos) {
            formatted.append(text, end, next + 1 - end);
            lineStart = next + 1;
        }
    }
    if (edits.empty()) {
        return edits;
    }
    const std::unique_ptr<LoadedFile> check = loadText(load.file().path, formatted);
    return sameArrays(load.file(), *check) ? edits : Json::array();
}

}  // namespace ovela::tune::lsp
