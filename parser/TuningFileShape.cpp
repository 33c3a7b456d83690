#include "TuningFileShape.h"

#include <algorithm>

#include "Endpoint.h"
#include "PresetType.h"
#include "TuningFileVocabulary.h"

namespace ovela {

namespace {

// The root's name in the files we know; the reader takes any.
constexpr char kRootElement[] = "ovela_tuning";

template <typename Table>
std::vector<std::string> namesOf(const Table& table) {
    std::vector<std::string> names;
    for (const auto& entry : table) {
        names.push_back(entry.first);
    }
    return names;
}

ShapeElement element(const char* name, Occurs occurs) {
    ShapeElement shaped;
    shaped.name = name;
    shaped.occurs = occurs;
    return shaped;
}

// An element that the reader takes by its position.
ShapeElement positional(const char* name, Occurs occurs = Occurs::ONE) {
    ShapeElement shaped = element(name, occurs);
    shaped.positional = true;
    return shaped;
}

// An element that holds one setting, or one row, in its first attribute.
ShapeElement valueElement(const char* name, Parameter parameter, bool setting) {
    ShapeElement shaped = element(name, Occurs::ANY);
    shaped.parameter = parameter;
    shaped.attributes.push_back({setting ? kValueAttribute : kRowAttribute,
                                 setting ? ValueKind::SETTING : ValueKind::ROW, true, parameter});
    return shaped;
}

void addValueElements(ShapeElement& parent, const NameTable<Parameter>& table) {
    for (const auto& [name, parameter] : table) {
        parent.children.push_back(valueElement(name, parameter, true));
    }
}

void addValueElements(ShapeElement& parent, const NameTable<ElementValue>& table) {
    for (const auto& [name, value] : table) {
        parent.children.push_back(
            valueElement(name, value.parameter, value.shape == ValueShape::SINGLE));
    }
}

// The settings of one endpoint, in `parent`, which holds them once per endpoint.
template <typename Table>
void addEndpointType(ShapeElement& parent, const Table& table, const char* uniqueName) {
    ShapeElement endpointType = element(kEndpointTypeElement, Occurs::ANY);
    endpointType.attributes.push_back(
        {kEndpointIdAttribute, ValueKind::ENDPOINT_NAME, true, std::nullopt});
    addValueElements(endpointType, table);
    parent.children.push_back(std::move(endpointType));
    parent.unique.push_back({uniqueName, kEndpointTypeElement, kEndpointIdAttribute});
}

Parameter parameterOf(Parameter parameter) {
    return parameter;
}

Parameter parameterOf(const BandColumn& column) {
    return column.parameter;
}

// A list of rows named `rowName`, which the reader may take whatever their
// name, whose attributes are columns.
template <typename Columns, typename KindOf>
ShapeElement bandList(const char* name, Occurs occurs, const char* rowName, bool rowByPosition,
                      const Columns& columns, KindOf kindOf) {
    ShapeElement list = positional(name, occurs);
    list.order = ChildOrder::SEQUENCE;
    ShapeElement row = element(rowName, Occurs::MANY);
    row.positional = rowByPosition;
    for (const auto& [attribute, column] : columns) {
        row.attributes.push_back({attribute, kindOf(column), true, parameterOf(column)});
    }
    list.children.push_back(std::move(row));
    list.unique.push_back({std::string(name) + "-" + rowName, rowName, kBandFrequencyAttribute});
    return list;
}

ShapeElement version(const char* name) {
    ShapeElement shaped = element(name, Occurs::ANY);
    for (const auto& [attribute, part] : kVersionAttributes) {
        shaped.attributes.push_back({attribute, ValueKind::NUMBER, false, std::nullopt});
    }
    return shaped;
}

ShapeElement general() {
    ShapeElement general = element("general", Occurs::ANY);
    general.order = ChildOrder::SEQUENCE;
    ShapeElement settings = positional(kGeneralSettingsElement);
    addValueElements(settings, kGeneralElements);
    addEndpointType(settings, kGeneralEndpointElements, "generalEndpoint");
    general.children.push_back(std::move(settings));
    return general;
}

ShapeElement preset() {
    ShapeElement preset = element("preset", Occurs::ANY);
    preset.attributes = {
        {kPresetTypeAttribute, ValueKind::PRESET_TYPE, true, std::nullopt},
        {kPresetIdAttribute, ValueKind::PRESET_ID, true, std::nullopt},
    };
    for (const auto& [type, layout] : kPresetTypes) {
        ShapeElement wrapper = positional(layout.wrapperElement);
        wrapper.order = ChildOrder::SEQUENCE;
        wrapper.children.push_back(bandList(kPresetBandsElement, Occurs::ONE, layout.rowElement,
                                            !layout.rowNameRequired, layout.rowAttributes,
                                            [](Parameter) { return ValueKind::NUMBER; }));
        preset.children.push_back(std::move(wrapper));
    }
    return preset;
}

ShapeElement profile() {
    ShapeElement profile = element("profile", Occurs::ANY);
    profile.order = ChildOrder::SEQUENCE;
    for (const auto& [name, which] : kProfileAttributes) {
        const bool id = which == ProfileAttribute::ID;
        profile.attributes.push_back(
            {name, id ? ValueKind::PROFILE_ID : ValueKind::TEXT, id, std::nullopt});
    }
    ShapeElement settings = positional(kProfileSettingsElement);
    addValueElements(settings, kProfileElements);
    addEndpointType(settings, kProfileEndpointElements, "profileEndpoint");
    profile.children.push_back(std::move(settings));
    ShapeElement include = element(kIncludeElement, Occurs::ONE);
    include.attributes.push_back(
        {kIncludePresetAttribute, ValueKind::PRESET_NAME, true, std::nullopt});
    profile.children.push_back(std::move(include));
    return profile;
}

ShapeElement tuningData() {
    ShapeElement data = positional(kTuningDataElement);
    addValueElements(data, kTuningValueElements);
    for (const auto& [name, row] : kTuningRowElements) {
        data.children.push_back(valueElement(name, row.parameter, false));
    }
    for (const auto& [name, attributes] : kTuningAttributeElements) {
        ShapeElement shaped = element(name, Occurs::ANY);
        for (const auto& [attribute, parameter] : attributes) {
            shaped.attributes.push_back({attribute, ValueKind::NUMBER, true, parameter});
        }
        data.children.push_back(std::move(shaped));
    }
    for (const auto& [name, parameter] : kTuningAttributeListElements) {
        ShapeElement shaped = element(name, Occurs::ANY);
        shaped.anyAttributes = true;
        shaped.parameter = parameter;
        data.children.push_back(std::move(shaped));
    }
    for (const auto& [name, columns] : kTuningBandElements) {
        ShapeElement list =
            bandList(name, Occurs::ANY, kBandRowElement, true, columns, [](const BandColumn& c) {
                return c.value == BandValue::TRUE_WORD ? ValueKind::TRUE_WORD : ValueKind::NUMBER;
            });
        list.positional = false;
        data.children.push_back(std::move(list));
    }
    ShapeElement outputMode = element(kOutputModeElement, Occurs::ANY);
    for (const auto& [name, parameter] : kOutputModeMatrices) {
        ShapeElement matrix = element(name, Occurs::ANY);
        matrix.order = ChildOrder::SEQUENCE;
        matrix.parameter = parameter;
        ShapeElement row = positional(kMatrixRowElement, Occurs::MANY);
        row.attributes.push_back({kMatrixRowAttribute, ValueKind::ROW, true, std::nullopt});
        matrix.children.push_back(std::move(row));
        outputMode.children.push_back(std::move(matrix));
    }
    data.children.push_back(std::move(outputMode));
    return data;
}

ShapeElement tuning() {
    ShapeElement tuning = element("tuning", Occurs::ANY);
    tuning.order = ChildOrder::SEQUENCE;
    for (const auto& [name, which] : kTuningAttributes) {
        const ValueKind kind = which == TuningAttribute::NAME            ? ValueKind::TEXT
                               : which == TuningAttribute::ENDPOINT_TYPE ? ValueKind::ENDPOINT_NAME
                                                                         : ValueKind::TRUE_WORD;
        tuning.attributes.push_back(
            {name, kind, which != TuningAttribute::MONO_DEVICE, std::nullopt});
    }
    for (const auto& [name, parameter] : kTuningListAttributes) {
        tuning.attributes.push_back({name, ValueKind::NUMBER, false, parameter});
    }
    ShapeElement deviceId = element(kDeviceIdElement, Occurs::ANY);
    for (const auto& [name, which] : kDeviceIdAttributes) {
        deviceId.attributes.push_back({name, ValueKind::TEXT, false, std::nullopt});
    }
    tuning.children.push_back(std::move(deviceId));
    tuning.children.push_back(tuningData());
    return tuning;
}

ShapeElement root() {
    ShapeElement root = element(kRootElement, Occurs::ONE);
    for (const auto& [name, section] : kSectionElements) {
        switch (section) {
            case Section::FORMAT_VERSION:
            case Section::TOOL_VERSION:
                root.children.push_back(version(name));
                break;
            case Section::GENERAL:
                root.children.push_back(general());
                break;
            case Section::PRESET:
                root.children.push_back(preset());
                break;
            case Section::PROFILE:
                root.children.push_back(profile());
                break;
            case Section::TUNING:
                root.children.push_back(tuning());
                break;
        }
    }
    root.unique = {{"profileId", "profile", "id"}, {"tuningName", "tuning", "name"}};
    return root;
}

void addNames(std::vector<VocabularyName>& names, const std::string& path,
              const ShapeElement& element) {
    for (const ShapeAttribute& attribute : element.attributes) {
        names.push_back({path, NameRole::ATTRIBUTE, attribute.name});
        for (const std::string& word : wordsOf(attribute.kind)) {
            names.push_back({path + "@" + attribute.name, NameRole::WORD, word});
        }
    }
    for (const ShapeElement& child : element.children) {
        names.push_back({path, NameRole::ELEMENT, child.name});
        addNames(names, path + "/" + child.name, child);
    }
}

// The names of every parameter that the shape below `element` gives.
void addParameterNames(std::vector<std::string>& names, const ShapeElement& element) {
    if (element.parameter && names[*element.parameter].empty()) {
        names[*element.parameter] = element.name;
    }
    for (const ShapeAttribute& attribute : element.attributes) {
        if (attribute.parameter && names[*attribute.parameter].empty()) {
            names[*attribute.parameter] = element.name + " " + attribute.name;
        }
    }
    for (const ShapeElement& child : element.children) {
        addParameterNames(names, child);
    }
}

}  // namespace

std::string xmlNameOf(Parameter parameter) {
    static const std::vector<std::string> kNames = [] {
        std::vector<std::string> names(kNumParameters);
        addParameterNames(names, tuningFileShape());
        for (size_t i = 0; i < kNumParameters; ++i) {
            names[i] = names[i].empty() ? kParameterNames[i] : names[i];
        }
        return names;
    }();
    return kNames[parameter];
}

std::vector<VocabularyName> tuningFileVocabulary() {
    std::vector<VocabularyName> names;
    addNames(names, "*", tuningFileShape());
    return names;
}

std::vector<std::string> wordsOf(ValueKind kind) {
    switch (kind) {
        case ValueKind::SETTING:
        case ValueKind::TRUE_WORD:
            return namesOf(kTruthWords);
        case ValueKind::ENDPOINT_NAME:
            return std::vector<std::string>(kEndpointNames, kEndpointNames + kNumEndpoints);
        case ValueKind::PRESET_TYPE:
            return namesOf(kPresetTypes);
        case ValueKind::PRESET_ID:
            return namesOf(kIeqPresetIdWords);
        case ValueKind::PRESET_NAME:
            return namesOf(kIncludePresetWords);
        case ValueKind::NUMBER:
        case ValueKind::ROW:
        case ValueKind::PROFILE_ID:
        case ValueKind::TEXT:
            break;
    }
    return {};
}

const ShapeElement& tuningFileShape() {
    static const ShapeElement kShape = root();
    return kShape;
}

const ShapeElement* shapeAt(const std::string& path) {
    const ShapeElement* at = &tuningFileShape();
    size_t start = 0;
    while (at != nullptr && start < path.size()) {
        const size_t slash = std::min(path.find('/', start), path.size());
        const std::string name = path.substr(start, slash - start);
        const ShapeElement* next = nullptr;
        for (const ShapeElement& child : at->children) {
            next = next == nullptr && child.name == name ? &child : next;
        }
        at = next;
        start = slash + 1;
    }
    return at;
}

}  // namespace ovela
