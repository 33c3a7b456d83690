#define LOG_TAG "TuningFileParser"

#include <cstdlib>
#include <map>
#include <memory>

#include "ReaderLog.h"
#include "TextReaders.h"
#include "TuningFileParser.h"
#include "TuningFileVocabulary.h"
#include "XmlNodes.h"

namespace ovela {

namespace {

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
    mReport.attributes(preset, kPresetAttributes);
    const PresetLayout* layout = findByName(kPresetTypes, type);
    if (layout == nullptr) {
        mReport.presetType(preset, type);
        return;
    }

    std::map<Parameter, std::string> texts;
    xmlNode* wrapper = xml::secondChild(preset);
    xmlNode* bands = xml::secondChild(wrapper);
    for (xmlNode* row = xml::secondChild(bands); row != nullptr; row = row->next) {
        if (!xml::isElement(row)) {
            continue;
        }
        if (layout->rowNameRequired && xml::nameOf(row) != layout->rowElement) {
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
            READER_LOGE("%s() preset type=%s id=%s has no %s values", __func__, type.c_str(),
                        id.c_str(), attribute);
            mReport.presetWithoutBands(preset, *layout, attribute);
            mLoadFailed = true;
            return;
        }
    }
    mReport.descend(preset);
    mReport.positional(preset, 2, wrapper, layout->wrapperElement, "the preset has no bands");
    mReport.descend(wrapper);
    mReport.positional(wrapper, 2, bands, kPresetBandsElement, "the preset has no bands");
    mReport.descend(bands);
    mReport.bandRows(bands, *layout);

    EntityArena::Ptr<ParameterValues> entity;
    if (layout->kind == PresetKind::GEQ) {
        const int geqId = atoi(id.c_str());
        mReport.number(preset, kPresetIdAttribute, id, geqId);
        entity.reset(mArena.make<GeqPreset>(geqId));
        mReport.entity(
            entity.get(), preset, [&] { return "GEQ preset " + std::to_string(geqId); },
            "GEQ presets");
    } else {
        const PresetType* named = findWordIn(kIeqPresetIdWords, id);
        const PresetType presetType = named != nullptr ? *named : kIeqPresetIdDefault;
        if (named == nullptr) {
            mReport.ieqPresetId(preset, id, presetType);
        }
        entity.reset(mArena.make<IeqPreset>(presetType));
        mReport.entity(
            entity.get(), preset,
            [&] { return std::string("IEQ preset ") + kPresetTypeNames[presetType]; },
            "IEQ presets");
    }
    storeBands(*entity, layout->rowAttributes, texts);
    mReport.bands(entity.get(), *layout, bands);
    if (layout->kind == PresetKind::GEQ) {
        mContents.geqPresets.insert(static_cast<GeqPreset*>(entity.release()));
    } else {
        mContents.ieqPresets.insert(static_cast<IeqPreset*>(entity.release()));
    }
}

}  // namespace ovela
