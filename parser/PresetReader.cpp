#define LOG_TAG "TuningFileParser"

#include <log/log.h>

#include <cstdlib>
#include <map>
#include <memory>

#include "TextReaders.h"
#include "TuningFileParser.h"
#include "TuningFileVocabulary.h"
#include "XmlNodes.h"

namespace ovela {

namespace {

PresetType ieqPresetTypeOfId(const std::string& id) {
    for (const auto& [word, type] : kIeqPresetIdWords) {
        if (id.find(word) != std::string::npos) {
            return type;
        }
    }
    return kIeqPresetIdDefault;
}

// Each text holds the values of one row attribute, every value followed by a
// comma; stores them in the layout's order.
void storeBands(ParameterValues& preset, const NameTable<Parameter>& columns,
                std::map<Parameter, std::string>& texts) {
    for (const auto& [attribute, parameter] : columns) {
        std::string& text = texts[parameter];
        text.pop_back();
        preset.set(parameter, string_2_int_vector(text));
    }
}

}  // namespace

void TuningFileParser::parsePreset(xmlNode* preset) {
    std::string type;
    std::string id;
    for (xmlAttr* attribute = xml::firstAttribute(preset); attribute != nullptr;
         attribute = attribute->next) {
        const PresetAttribute* known = findByName(kPresetAttributes, xml::nameOf(attribute));
        if (known == nullptr) {
            continue;
        }
        switch (*known) {
            case PresetAttribute::TYPE:
                type = xml::valueOf(attribute);
                break;
            case PresetAttribute::ID:
                id = xml::valueOf(attribute);
                break;
        }
    }
    const PresetLayout* layout = findByName(kPresetTypes, type);
    if (layout == nullptr) {
        return;
    }

    std::map<Parameter, std::string> texts;
    xmlNode* bands = xml::secondChild(xml::secondChild(preset));
    for (xmlNode* row = xml::secondChild(bands); row != nullptr; row = row->next) {
        if (!xml::isElement(row)) {
            continue;
        }
        if (layout->rowElement != nullptr && xml::nameOf(row) != layout->rowElement) {
            break;
        }
        for (xmlAttr* attribute = row->properties; attribute != nullptr;
             attribute = attribute->next) {
            if (const Parameter* parameter =
                    findByName(layout->rowAttributes, xml::nameOf(attribute))) {
                texts[*parameter] += xml::valueOf(attribute) + ",";
            }
        }
    }

    // A preset without bands would leave the effect with nothing to apply, so
    // such a file is not loadable at all.
    for (const auto& [attribute, parameter] : layout->rowAttributes) {
        if (texts[parameter].empty()) {
            ALOGE("%s() preset type=%s id=%s has no %s values", __func__, type.c_str(), id.c_str(),
                  attribute);
            mLoadFailed = true;
            return;
        }
    }
    if (layout->kind == PresetKind::GEQ) {
        auto entity = std::make_unique<GeqPreset>(atoi(id.c_str()));
        storeBands(*entity, layout->rowAttributes, texts);
        mGeqPresets.insert(entity.release());
    } else {
        auto entity = std::make_unique<IeqPreset>(ieqPresetTypeOfId(id));
        storeBands(*entity, layout->rowAttributes, texts);
        mIeqPresets.insert(entity.release());
    }
}

void TuningFileParser::parseDeviceTuning(xmlNode* deviceId, std::string tuningName) {
    std::string device;
    std::string port;
    for (xmlAttr* attribute = xml::firstAttribute(deviceId); attribute != nullptr;
         attribute = attribute->next) {
        const DeviceIdAttribute* known = findByName(kDeviceIdAttributes, xml::nameOf(attribute));
        if (known == nullptr) {
            continue;
        }
        switch (*known) {
            case DeviceIdAttribute::ID:
                device = xml::valueOf(attribute);
                break;
            case DeviceIdAttribute::ENDPOINT_PORT:
                port = xml::valueOf(attribute);
                break;
        }
    }
    mDeviceTunings.insert(new DeviceTuning(device, port, std::move(tuningName)));
}

}  // namespace ovela
