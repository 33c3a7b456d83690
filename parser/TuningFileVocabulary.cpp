#include "TuningFileVocabulary.h"

#include "Endpoint.h"

namespace ovela {

namespace {

const char* entryName(const char* name) {
    return name;
}

template <typename Value>
const char* entryName(const NameEntry<Value>& entry) {
    return entry.first;
}

// The name under which `table` holds `value`; every value asked for is there.
template <typename Table, typename Value>
const char* nameOf(const Table& table, Value value) {
    for (const auto& entry : table) {
        if (entry.second == value) {
            return entry.first;
        }
    }
    return "";
}

std::string child(const std::string& parent, const char* name) {
    return parent + "/" + name;
}

std::string attributeOf(const std::string& element, const char* attribute) {
    return element + "@" + attribute;
}

bool isSetting(Parameter) {
    return true;
}

bool isSetting(const ElementValue& value) {
    return value.shape == ValueShape::SINGLE;
}

bool isSetting(const TuningRow&) {
    return false;
}

class VocabularyList {
  public:
    void add(const std::string& where, NameRole role, const char* name) {
        mNames.push_back({where, role, name});
    }

    template <typename Table>
    void addAll(const std::string& where, NameRole role, const Table& table) {
        for (const auto& entry : table) {
            add(where, role, entryName(entry));
        }
    }

    // Parameter elements; a setting element also brings its "value" attribute
    // and the truth words that it may hold, a row element its "data" attribute.
    template <typename Table>
    void addParameterElements(const std::string& parent, const Table& table) {
        for (const auto& [name, value] : table) {
            add(parent, NameRole::ELEMENT, name);
            const std::string element = child(parent, name);
            if (isSetting(value)) {
                add(element, NameRole::ATTRIBUTE, kValueAttribute);
                addAll(attributeOf(element, kValueAttribute), NameRole::WORD, kTruthWords);
            } else {
                add(element, NameRole::ATTRIBUTE, kRowAttribute);
            }
        }
    }

    // An element that the reader takes by its position; returns its path.
    std::string addWrapper(const std::string& parent, const char* name) {
        add(parent, NameRole::ELEMENT, name);
        return child(parent, name);
    }

    // An endpoint section of `parent` and its endpoint names; returns its path.
    std::string addEndpointType(const std::string& parent) {
        add(parent, NameRole::ELEMENT, kEndpointTypeElement);
        const std::string endpointType = child(parent, kEndpointTypeElement);
        add(endpointType, NameRole::ATTRIBUTE, kEndpointIdAttribute);
        addAll(attributeOf(endpointType, kEndpointIdAttribute), NameRole::WORD, kEndpointNames);
        return endpointType;
    }

    std::vector<VocabularyName> take() { return std::move(mNames); }

  private:
    std::vector<VocabularyName> mNames;
};

void addGeneral(VocabularyList& list, const std::string& general) {
    const std::string wrapper = list.addWrapper(general, kGeneralSettingsElement);
    list.addParameterElements(wrapper, kGeneralElements);
    list.addParameterElements(list.addEndpointType(wrapper), kGeneralEndpointElements);
}

void addPreset(VocabularyList& list, const std::string& preset) {
    list.addAll(preset, NameRole::ATTRIBUTE, kPresetAttributes);
    list.addAll(attributeOf(preset, nameOf(kPresetAttributes, PresetAttribute::TYPE)),
                NameRole::WORD, kPresetTypes);
    list.addAll(attributeOf(preset, nameOf(kPresetAttributes, PresetAttribute::ID)), NameRole::WORD,
                kIeqPresetIdWords);
    for (const auto& [type, layout] : kPresetTypes) {
        const std::string rows =
            list.addWrapper(list.addWrapper(preset, layout.wrapperElement), kPresetBandsElement);
        list.addAll(list.addWrapper(rows, layout.rowElement), NameRole::ATTRIBUTE,
                    layout.rowAttributes);
    }
}

void addProfile(VocabularyList& list, const std::string& profile) {
    list.addAll(profile, NameRole::ATTRIBUTE, kProfileAttributes);
    list.add(profile, NameRole::ELEMENT, kIncludeElement);
    const std::string include = child(profile, kIncludeElement);
    list.add(include, NameRole::ATTRIBUTE, kIncludePresetAttribute);
    list.addAll(attributeOf(include, kIncludePresetAttribute), NameRole::WORD, kIncludePresetWords);
    const std::string container = list.addWrapper(profile, kProfileSettingsElement);
    list.addParameterElements(container, kProfileElements);
    list.addParameterElements(list.addEndpointType(container), kProfileEndpointElements);
}

void addTuning(VocabularyList& list, const std::string& tuning) {
    list.addAll(tuning, NameRole::ATTRIBUTE, kTuningAttributes);
    list.addAll(attributeOf(tuning, nameOf(kTuningAttributes, TuningAttribute::ENDPOINT_TYPE)),
                NameRole::WORD, kEndpointNames);
    list.add(attributeOf(tuning, nameOf(kTuningAttributes, TuningAttribute::MONO_DEVICE)),
             NameRole::WORD, kTrueWord);
    list.addAll(tuning, NameRole::ATTRIBUTE, kTuningListAttributes);
    list.add(tuning, NameRole::ELEMENT, kDeviceIdElement);
    list.addAll(child(tuning, kDeviceIdElement), NameRole::ATTRIBUTE, kDeviceIdAttributes);

    const std::string data = list.addWrapper(tuning, kTuningDataElement);
    list.addParameterElements(data, kTuningValueElements);
    list.addParameterElements(data, kTuningRowElements);
    for (const auto& [name, attributes] : kTuningAttributeElements) {
        list.add(data, NameRole::ELEMENT, name);
        list.addAll(child(data, name), NameRole::ATTRIBUTE, attributes);
    }
    list.addAll(data, NameRole::ELEMENT, kTuningAttributeListElements);
    for (const auto& [name, columns] : kTuningBandElements) {
        const std::string row = list.addWrapper(list.addWrapper(data, name), kBandRowElement);
        for (const auto& [attribute, column] : columns) {
            list.add(row, NameRole::ATTRIBUTE, attribute);
            if (column.value == BandValue::TRUE_WORD) {
                list.add(attributeOf(row, attribute), NameRole::WORD, kTrueWord);
            }
        }
    }
    const std::string outputMode = list.addWrapper(data, kOutputModeElement);
    for (const auto& [matrix, parameter] : kOutputModeMatrices) {
        const std::string row =
            list.addWrapper(list.addWrapper(outputMode, matrix), kMatrixRowElement);
        list.add(row, NameRole::ATTRIBUTE, kMatrixRowAttribute);
    }
}

}  // namespace

std::vector<VocabularyName> tuningFileVocabulary() {
    VocabularyList list;
    const std::string root = "*";
    list.addAll(root, NameRole::ELEMENT, kSectionElements);
    for (const auto& [name, section] : kSectionElements) {
        const std::string element = child(root, name);
        switch (section) {
            case Section::FORMAT_VERSION:
            case Section::TOOL_VERSION:
                list.addAll(element, NameRole::ATTRIBUTE, kVersionAttributes);
                break;
            case Section::GENERAL:
                addGeneral(list, element);
                break;
            case Section::PRESET:
                addPreset(list, element);
                break;
            case Section::PROFILE:
                addProfile(list, element);
                break;
            case Section::TUNING:
                addTuning(list, element);
                break;
        }
    }
    return list.take();
}

namespace {

Parameter parameterOf(Parameter parameter) {
    return parameter;
}

Parameter parameterOf(const ElementValue& value) {
    return value.parameter;
}

Parameter parameterOf(const TuningRow& row) {
    return row.parameter;
}

Parameter parameterOf(const BandColumn& column) {
    return column.parameter;
}

// The name under which `table` holds `parameter`, behind `element` when given.
template <typename Table>
bool nameIn(const Table& table, Parameter parameter, const char* element, std::string* name) {
    for (const auto& [entry, value] : table) {
        if (parameterOf(value) == parameter) {
            *name = element == nullptr ? entry : std::string(element) + " " + entry;
            return true;
        }
    }
    return false;
}

}  // namespace

std::string xmlNameOf(Parameter parameter) {
    std::string name;
    if (nameIn(kGeneralElements, parameter, nullptr, &name) ||
        nameIn(kGeneralEndpointElements, parameter, nullptr, &name) ||
        nameIn(kProfileElements, parameter, nullptr, &name) ||
        nameIn(kProfileEndpointElements, parameter, nullptr, &name) ||
        nameIn(kTuningListAttributes, parameter, nullptr, &name) ||
        nameIn(kTuningValueElements, parameter, nullptr, &name) ||
        nameIn(kTuningRowElements, parameter, nullptr, &name) ||
        nameIn(kTuningAttributeListElements, parameter, nullptr, &name) ||
        nameIn(kOutputModeMatrices, parameter, nullptr, &name)) {
        return name;
    }
    for (const auto& [type, layout] : kPresetTypes) {
        if (nameIn(layout.rowAttributes, parameter, layout.rowElement, &name)) {
            return name;
        }
    }
    for (const auto& [element, attributes] : kTuningAttributeElements) {
        if (nameIn(attributes, parameter, element, &name)) {
            return name;
        }
    }
    for (const auto& [element, columns] : kTuningBandElements) {
        if (nameIn(columns, parameter, element, &name)) {
            return name;
        }
    }
    return kParameterNames[parameter];
}

}  // namespace ovela
