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

void TuningFileParser::parsePreset(xmlNode* preset) {
    std::string type;
    std::string id;
    bool typeGiven = false;
    for (xmlAttr* attribute = xml::firstAttribute(preset); attribute != nullptr;
         attribute = attribute->next) {
        const PresetAttribute* known = findByName(kPresetAttributes, xml::nameOf(attribute));
        if (known == nullptr) {
            continue;
        }
        switch (*known) {
            case PresetAttribute::TYPE:
                type = xml::valueOf(attribute);
                typeGiven = true;
                break;
            case PresetAttribute::ID:
                id = xml::valueOf(attribute);
                break;
        }
    }
    mReport.attributes(preset, kPresetAttributes);
    const PresetLayout* layout = findByName(kPresetTypes, type);
    if (layout == nullptr) {
        mReport.presetType(preset, type, typeGiven, findWordIn(kIeqPresetIdWords, id));
        return;
    }

    // A preset without bands fails the load, which then says only that.
    const LoadReport::Mark mark = mReport.mark();
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
        mReport.ieqPreset(preset, entity.get(), id, presetType);
    }

    // Each row attribute gathers its values over the rows, in the layout's order.
    std::map<Parameter, std::vector<int>> lists;
    BandRows rows;
    childrenOf(preset, mReport);
    rows.wrapper = takeChild(preset, 2, layout->wrapperElement, "the preset has no bands");
    childrenOf(rows.wrapper, mReport);
    rows.bands = takeChild(rows.wrapper, 2, kPresetBandsElement, "the preset has no bands");
    for (xmlNode* row = childrenOf(rows.bands, mReport); row != nullptr; row = row->next) {
        if (!xml::isElement(row)) {
            mReport.nonElement(row);
            continue;
        }
        if (layout->rowNameRequired && xml::nameOf(row) != layout->rowElement) {
            rows.stop = row;
            mReport.notRead(row, xml::elementsFrom(row),
                            std::string("the reader stops at the first element that is not <") +
                                layout->rowElement + ">");
            break;
        }
        rows.first = rows.first == nullptr ? row : rows.first;
        if (!layout->rowNameRequired) {
            mReport.named(row, layout->rowElement);
        }
        mReport.attributes(row, layout->rowAttributes);
        for (xmlAttr* attribute = row->properties; attribute != nullptr;
             attribute = attribute->next) {
            const std::string_view name = xml::nameOf(attribute);
            const Parameter* parameter = findByName(layout->rowAttributes, name);
            if (parameter == nullptr) {
                continue;
            }
            std::string storage;
            const std::string_view text = xml::textOf(attribute, storage);
            std::vector<int>& list = lists[*parameter];
            const size_t read = appendDecimals(text, list);
            mReport.bandValue(row, name, text, list.back(), read);
            for (size_t i = 0; i < read; ++i) {
                mReport.gathered(entity.get(), *parameter, row, layout->rowElement, name);
            }
        }
    }

    // A preset without bands would leave the effect with nothing to apply, so
    // such a file is not loadable at all.
    for (const auto& [attribute, parameter] : layout->rowAttributes) {
        if (lists[parameter].empty()) {
            READER_LOGE("%s() preset type=%s id=%s has no %s values", __func__, type.c_str(),
                        id.c_str(), attribute);
            mReport.discardSince(mark);
            mReport.presetWithoutBands(preset, id, *layout, attribute, rows);
            mLoadFailed = true;
            return;
        }
    }
    for (const auto& [attribute, parameter] : layout->rowAttributes) {
        entity->set(parameter, std::move(lists[parameter]));
    }
    mReport.duplicateBands(rows.bands, entity.get(),
                           entity->values[layout->rowAttributes.begin()->second]);
    if (layout->kind == PresetKind::GEQ) {
        mContents.geqPresets.insert(static_cast<GeqPreset*>(entity.release()));
    } else {
        mContents.ieqPresets.insert(static_cast<IeqPreset*>(entity.release()));
    }
}

}  // namespace ovela
