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
    // Where each line's first character stands, and how deep it is.
    std::vector<size_t> firsts;
    for (size_t line = 0, start = 0; line < positions.lineCount(); ++line) {
        const std::string_view lineText = positions.lineText(line);
        firsts.push_back(start + std::min(lineText.find_first_not_of(" \t"), lineText.size()));
        start = text.find('\n', start) + 1;
    }
    const std::vector<size_t> depths = scan.openCounts(firsts);
    std::string formatted;
    formatted.reserve(text.size());
    size_t copied = 0;
    for (size_t line = 0; line < firsts.size(); ++line) {
        const size_t at = firsts[line];
        // Only a line that starts with a tag or with markup between tags
        // moves: a line inside a tag, a comment or a text stays as written.
        const ScannedTag* tag = scan.tagStartingAt(at);
        if (tag == nullptr && !scan.markupStartsAt(at)) {
            continue;
        }
        const size_t depth =
            tag != nullptr && tag->closing && depths[line] > 0 ? depths[line] - 1 : depths[line];
        const std::string indent(depth * kIndent, ' ');
        const size_t lineStart = positions.offsetOf({static_cast<long>(line), 0}).value_or(at);
        if (std::string_view(text).substr(lineStart, at - lineStart) == indent) {
            continue;
        }
        edits.push_back({{"range", rangeJson(positions.editorPositionOf(lineStart),
                                             positions.editorPositionOf(at))},
                         {"newText", indent}});
        formatted.append(text, copied, lineStart - copied);
        formatted += indent;
        copied = at;
    }
    formatted.append(text, copied, std::string::npos);
    if (edits.empty()) {
        return edits;
    }
    const std::unique_ptr<LoadedFile> check = loadText(load.file().path, formatted);
    return sameArrays(load.file(), *check) ? edits : Json::array();
}

}  // namespace ovela::tune::lsp
