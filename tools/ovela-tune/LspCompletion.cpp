#include <set>

#include "LspFeatures.h"
#include "LspPlaces.h"
#include "TuningFileShape.h"
#include "TuningFileVocabulary.h"

// Names and closed sets of values that fit where the cursor is, from the one
// description of the file's shape and, for presets, from the load.
namespace ovela::tune::lsp {

namespace {

enum CompletionKind { PROPERTY = 10, ENUM_MEMBER = 20, STRUCT = 22 };

// The shape of the element that `open` (root first) ends in; `extra`, when
// given, one more step down.
const ShapeElement* shapeOf(const std::vector<const ScannedTag*>& open, const std::string* extra) {
    if (open.empty()) {
        return nullptr;
    }
    std::string path;
    for (size_t i = 1; i < open.size(); ++i) {
        path += (path.empty() ? "" : "/") + open[i]->name;
    }
    if (extra != nullptr) {
        path += (path.empty() ? "" : "/") + *extra;
    }
    return shapeAt(path);
}

// The ids of the IEQ presets that the load read.
std::vector<std::string> presetIds(DocumentLoad& load) {
    std::vector<std::string> ids;
    if (DeviceData* model = modelOf(load)) {
        for (IeqPreset* preset : model->getIeqPresets()) {
            if (const ScannedTag* tag = tagAt(load, entityPlace(load, preset))) {
                ids.push_back(tag->valueOf(kPresetIdAttribute));
            }
        }
    }
    return ids;
}

// Whether the cursor is in the start tag of a tuning section.
bool inTuningTag(const CursorContext& context) {
    const Section* section = findByName(kSectionElements, context.tag->name);
    return context.open.size() == 1 && section != nullptr && *section == Section::TUNING;
}

// The words that the attribute at the cursor may hold.
std::vector<std::string> valuesAt(DocumentLoad& load, const CursorContext& context) {
    const ShapeElement* element = shapeOf(context.open, &context.tag->name);
    if (element == nullptr) {
        return {};
    }
    for (const ShapeAttribute& attribute : element->attributes) {
        if (attribute.name != context.attribute->name) {
            continue;
        }
        std::vector<std::string> words = wordsOf(attribute.kind);
        if (attribute.kind == ValueKind::PRESET_NAME) {
            // The presets of the file first: an include names one of them.
            std::vector<std::string> ids = presetIds(load);
            words.insert(words.begin(), ids.begin(), ids.end());
        }
        const TuningAttribute* tuning = findByName(kTuningAttributes, attribute.name);
        if (tuning != nullptr && *tuning == TuningAttribute::NAME && inTuningTag(context)) {
            // A tuning named after an endpoint is that endpoint's own.
            words = wordsOf(ValueKind::ENDPOINT_NAME);
            words.push_back(kDefaultTuningName);
        }
        return words;
    }
    return {};
}

Json item(const std::string& label, CompletionKind kind, const DocumentLoad& load, size_t from,
          size_t to) {
    const TextPositions& positions = load.positions();
    return {{"label", label},
            {"kind", kind},
            {"textEdit",
             {{"range", rangeJson(positions.editorPositionOf(from), positions.editorPositionOf(to))},
              {"newText", label}}}};
}

}  // namespace

Json completionAt(DocumentLoad& load, EditorPosition position) {
    const auto offset = load.offsetOf(position);
    if (!offset) {
        return nullptr;
    }
    const CursorContext context = load.scan().contextAt(*offset);
    Json items = Json::array();
    std::set<std::string> offered;
    auto offer = [&](const std::string& label, CompletionKind kind) {
        if (!label.empty() && offered.insert(label).second) {
            items.push_back(item(label, kind, load, context.wordBegin, *offset));
        }
    };
    switch (context.where) {
        case CursorContext::Where::ELEMENT_NAME:
            if (context.tag->closing) {
                if (!context.open.empty()) {
                    offer(context.open.back()->name, STRUCT);
                }
            } else if (context.open.empty()) {
                offer(tuningFileShape().name, STRUCT);
            } else if (const ShapeElement* parent = shapeOf(context.open, nullptr)) {
                for (const ShapeElement& child : parent->children) {
                    offer(child.name, STRUCT);
                }
            }
            break;
        case CursorContext::Where::ATTRIBUTE_NAME:
            if (const ShapeElement* element = shapeOf(context.open, &context.tag->name)) {
                for (const ShapeAttribute& attribute : element->attributes) {
                    const bool given = std::any_of(
                        context.tag->attributes.begin(), context.tag->attributes.end(),
                        [&](const ScannedAttribute& a) {
                            return a.name == attribute.name && a.nameBegin != context.wordBegin;
                        });
                    if (!given) {
                        offer(attribute.name, PROPERTY);
                    }
                }
            }
            break;
        case CursorContext::Where::ATTRIBUTE_VALUE:
            for (const std::string& word : valuesAt(load, context)) {
                offer(word, ENUM_MEMBER);
            }
            break;
        case CursorContext::Where::CONTENT:
        case CursorContext::Where::OTHER:
            break;
    }
    return {{"isIncomplete", false}, {"items", items}};
}

}  // namespace ovela::tune::lsp
