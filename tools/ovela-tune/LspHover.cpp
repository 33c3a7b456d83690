#include <ovela/KyrParameterId.h>

#include "LspFeatures.h"
#include "LspPlaces.h"
#include "StoreArrays.h"
#include "TuningFileShape.h"

// What the effect receives from the element or attribute under the cursor,
// from the load's trace: the values as sent and the arrays that carry them,
// or what became of them and the finding that says why.
namespace ovela::tune::lsp {

namespace {

const char* entityClassName(EntityClass entity) {
    switch (entity) {
        case EntityClass::NONE:
            return "no entity of the file (the store writes it)";
        case EntityClass::GENERAL:
            return "the general settings";
        case EntityClass::GENERAL_ENDPOINT:
            return "an endpoint section of the general settings";
        case EntityClass::PROFILE:
            return "a profile's settings";
        case EntityClass::PROFILE_ENDPOINT:
            return "an endpoint section of a profile";
        case EntityClass::TUNING:
            return "a tuning";
        case EntityClass::IEQ_PRESET:
            return "an IEQ preset";
        case EntityClass::GEQ_PRESET:
            return "a GEQ preset";
    }
    return "";
}

std::string codeText(Parameter parameter) {
    const KyrParameterId code = kParameterCodes[static_cast<size_t>(parameter)];
    return code == kNoCode ? "no code of its own" : "`" + kyrCodeText(code) + "`";
}

bool samePlace(const Place& a, const Place& b) {
    return a.line == b.line && a.column == b.column;
}

// What the hover points at: a tag, and in it perhaps one attribute.
struct Target {
    const ScannedTag* tag = nullptr;
    const ScannedAttribute* attribute = nullptr;
};

Target targetAt(const DocumentLoad& load, size_t offset) {
    const CursorContext context = load.scan().contextAt(offset);
    Target target{context.tag, context.attribute};
    if (context.tag == nullptr || context.tag->closing) {
        return {};
    }
    if (target.attribute == nullptr) {
        for (const ScannedAttribute& attribute : context.tag->attributes) {
            if (attribute.nameBegin <= offset &&
                offset <= attribute.nameBegin + attribute.name.size()) {
                target.attribute = &attribute;
            }
        }
    }
    return target;
}

// Whether `source` names the target: its element, and its attribute when the
// target is one.
bool names(DocumentLoad& load, const Source& source, const Target& target) {
    if (tagAt(load, source.elementPlace) != target.tag) {
        return false;
    }
    return target.attribute == nullptr || source.attribute.empty() ||
           source.attribute == target.attribute->name;
}

// The entries of every array that carry values from `source`.
void describeSent(DocumentLoad& load, const Source& source, std::string* text) {
    for (const NamedArray& array : load.contents().arrays) {
        for (const NamedEntry& entry : array.entries) {
            for (const EntryPart& part : entry.parts) {
                const bool fromSource =
                    std::any_of(part.sources.begin(), part.sources.end(), [&](const Source& s) {
                        return samePlace(s.place, source.place) &&
                               samePlace(s.elementPlace, source.elementPlace);
                    });
                if (!fromSource) {
                    continue;
                }
                const std::vector<int32_t> values(
                    entry.values.begin() + std::min(part.first, entry.values.size()),
                    entry.values.begin() + std::min(part.first + part.count, entry.values.size()));
                *text += "- " + array.title() + ", device " + deviceName(entry.device) + ", `" +
                         kyrCodeText(entry.code) + "`: " + valuesText(values) +
                         (values.size() == entry.values.size()
                              ? ""
                              : " (values " + std::to_string(part.first + 1) + " to " +
                                    std::to_string(part.first + part.count) + " of " +
                                    std::to_string(entry.values.size()) + ")") +
                         "\n";
                break;
            }
        }
    }
}

// The number of entries of each array that came from the section at `place`.
void describeSection(DocumentLoad& load, const Place& place, std::string* text) {
    bool any = false;
    for (const NamedArray& array : load.contents().arrays) {
        const size_t count =
            std::count_if(array.entries.begin(), array.entries.end(),
                          [&](const NamedEntry& entry) { return samePlace(entry.place, place); });
        if (count != 0) {
            *text += "- " + array.title() + ": " + std::to_string(count) +
                     (count == 1 ? " entry\n" : " entries\n");
            any = true;
        }
    }
    *text += any ? "\n" : "";
}

// The parameter that the shape says the target sets, where no value was read.
std::optional<Parameter> shapeParameter(const CursorContext& context, const Target& target) {
    std::string path;
    for (size_t i = 1; i < context.open.size(); ++i) {
        path += context.open[i]->name + "/";
    }
    const ShapeElement* element = shapeAt(path + target.tag->name);
    if (element == nullptr) {
        return std::nullopt;
    }
    if (target.attribute != nullptr) {
        for (const ShapeAttribute& attribute : element->attributes) {
            if (attribute.name == target.attribute->name && attribute.parameter) {
                return attribute.parameter;
            }
        }
    }
    return element->parameter;
}

}  // namespace

Json hoverAt(DocumentLoad& load, EditorPosition position, const ServerSettings& settings) {
    const auto offset = load.offsetOf(position);
    if (!offset) {
        return nullptr;
    }
    const Target target = targetAt(load, *offset);
    if (target.tag == nullptr) {
        return nullptr;
    }
    std::string text;
    const LoadTrace& trace = load.file().report.trace();
    for (const TracedEntity* entity : trace.entities()) {
        for (const TracedValues& values : entity->values) {
            const auto source =
                std::find_if(values.sources.begin(), values.sources.end(),
                             [&](const Source& s) { return names(load, s, target); });
            if (source == values.sources.end()) {
                continue;
            }
            const size_t index = static_cast<size_t>(values.parameter);
            text += "**" + nameOf(*source) + "** of " + entity->label + ": `" +
                    kParameterNames[index] + "`, " + codeText(values.parameter) + ", " +
                    fateName(values.fate) + " (carried by " +
                    entityClassName(kParameterRows[index].validIn) + ")\n\n";
            if (values.fate == Fate::SENT) {
                describeSent(load, *source, &text);
                text += "\n";
            }
        }
        if (tagAt(load, entity->place) == target.tag && target.attribute == nullptr) {
            text += "**" + entity->label + "**" +
                    (entity->used ? "" : ": the store never looks at it, nothing is sent") + "\n\n";
            describeSection(load, entity->place, &text);
        }
    }
    // The findings of the tag say why a value is not what the text says; a
    // later place may say what replaced it ("first at line 12").
    const Place tagPlace = placeOf(load, *target.tag);
    for (const LoadFinding& finding : shownFindings(load.file(), settings)) {
        const std::vector<long> named = linesNamedBy(finding);
        if (holds(load, tagPlace, load.positions().offsetOfPlace(finding.line, finding.column)) ||
            std::find(named.begin(), named.end(), tagPlace.line) != named.end()) {
            text += std::string("*") + severityName(finding.severity) + " [" + finding.rule +
                    "]*: " + finding.message + "\n\n";
        }
    }
    if (text.empty()) {
        const CursorContext context = load.scan().contextAt(*offset);
        if (const auto parameter = shapeParameter(context, target)) {
            const auto& row = kParameterRows[static_cast<size_t>(*parameter)];
            text = std::string("`") + row.name + "`, " + codeText(*parameter) + ", carried by " +
                   entityClassName(row.validIn) + "; no value of it is read here";
        }
    }
    if (text.empty()) {
        return nullptr;
    }
    const TextPositions& positions = load.positions();
    return {{"contents", {{"kind", "markdown"}, {"value", text}}},
            {"range", rangeJson(positions.toEditor(tagPlace.line, tagPlace.column),
                                positions.toEditor(tagPlace.endLine, tagPlace.endColumn))}};
}

}  // namespace ovela::tune::lsp
