#define LOG_TAG "TuningFileParser"

#include <log/log.h>

#include <map>
#include <memory>
#include <utility>

#include "Endpoint.h"
#include "TextReaders.h"
#include "TuningFileParser.h"
#include "TuningFileVocabulary.h"
#include "XmlNodes.h"

namespace ovela {

namespace {

// Equalizer and regulator tables have up to 20 bands.
constexpr size_t kBandCapacity = 20;

// The lists that gather over the whole data element: the band columns, which
// every row appends to, and the kept rows, which a later element replaces.
// Every one is stored when the data element ends, empty if the file gave none.
class HeldLists {
  public:
    HeldLists() {
        for (const auto& [element, columns] : kTuningBandElements) {
            for (const auto& [attribute, column] : columns) {
                mLists[column.parameter].reserve(kBandCapacity);
            }
        }
        for (const auto& [element, row] : kTuningRowElements) {
            if (row.storage == RowStorage::KEPT) {
                mLists[row.parameter];
            }
        }
    }

    std::vector<int>& of(Parameter parameter) { return mLists[parameter]; }

    void storeInto(ParameterValues& tuning) {
        for (const auto& [parameter, list] : mLists) {
            tuning.set(parameter, list);
        }
    }

  private:
    std::map<Parameter, std::vector<int>> mLists;
};

void readBandRows(xmlNode* element, const NameTable<BandColumn>& columns, HeldLists& held) {
    for (xmlNode* row = xml::secondChild(element); row != nullptr; row = row->next) {
        if (!xml::isElement(row)) {
            continue;
        }
        for (xmlAttr* attribute = row->properties; attribute != nullptr;
             attribute = attribute->next) {
            const BandColumn* column = findByName(columns, xml::nameOf(attribute));
            if (column == nullptr) {
                continue;
            }
            const std::string value = xml::valueOf(attribute);
            held.of(column->parameter)
                .push_back(column->value == BandValue::TRUE_WORD ? value == kTrueWord
                                                                 : string2int(value));
        }
    }
}

void readDataElement(Tuning& tuning, xmlNode* element, HeldLists& held) {
    const std::string_view name = xml::nameOf(element);
    if (const Parameter* parameter = findByName(kTuningValueElements, name)) {
        tuning.set(*parameter, {TuningFileParser::getNodeValue(element)});
    } else if (const TuningRow* row = findByName(kTuningRowElements, name)) {
        if (row->storage == RowStorage::AT_ONCE) {
            tuning.set(row->parameter, TuningFileParser::parseDataRow(element));
        } else {
            held.of(row->parameter) = TuningFileParser::parseDataRow(element);
        }
    } else if (const NameTable<Parameter>* attributes = findByName(kTuningAttributeElements, name)) {
        for (xmlAttr* attribute = element->properties; attribute != nullptr;
             attribute = attribute->next) {
            if (const Parameter* parameter = findByName(*attributes, xml::nameOf(attribute))) {
                tuning.set(*parameter, {string2int(xml::valueOf(attribute))});
            }
        }
    } else if (const Parameter* parameter = findByName(kTuningAttributeListElements, name)) {
        std::vector<int> list;
        for (xmlAttr* attribute = element->properties; attribute != nullptr;
             attribute = attribute->next) {
            list.push_back(string2int(xml::valueOf(attribute)));
        }
        tuning.set(*parameter, list);
    } else if (const NameTable<BandColumn>* columns = findByName(kTuningBandElements, name)) {
        readBandRows(element, *columns, held);
    } else if (name == kOutputModeElement) {
        for (const auto& [matrix, parameter] : kOutputModeMatrices) {
            tuning.set(parameter, TuningFileParser::parseMixMatrix(matrix, element));
        }
    }
}

}  // namespace

void TuningFileParser::parseTuning(xmlNode* tuning) {
    std::string name;
    std::string endpointName;
    std::string mono;
    std::map<Parameter, std::vector<int>> lists;
    for (const auto& [attribute, parameter] : kTuningListAttributes) {
        lists[parameter];
    }
    for (xmlAttr* attribute = xml::firstAttribute(tuning); attribute != nullptr;
         attribute = attribute->next) {
        std::string value = xml::valueOf(attribute);
        if (const TuningAttribute* known = findByName(kTuningAttributes, xml::nameOf(attribute))) {
            switch (*known) {
                case TuningAttribute::NAME:
                    name = std::move(value);
                    break;
                case TuningAttribute::ENDPOINT_TYPE:
                    endpointName = std::move(value);
                    break;
                case TuningAttribute::MONO_DEVICE:
                    mono = std::move(value);
                    break;
            }
        } else if (const Parameter* parameter =
                       findByName(kTuningListAttributes, xml::nameOf(attribute))) {
            lists[*parameter].push_back(string2int(value));
        }
    }

    // Unlike the profile readers, a tuning for an unknown endpoint serves the speaker.
    auto entity = std::make_unique<Tuning>(name, endpointFromName(endpointName, ENDPOINT_SPEAKER),
                                           mono == kTrueWord);
    for (const auto& [parameter, list] : lists) {
        entity->set(parameter, list);
    }

    xmlNode* data = nullptr;
    for (xmlNode* node = xml::secondChild(tuning); node != nullptr; node = node->next) {
        if (!xml::isElement(node)) {
            continue;
        }
        if (xml::nameOf(node) != kDeviceIdElement) {
            data = node;
            break;
        }
        parseDeviceTuning(node, name);
    }
    if (data == nullptr) {
        ALOGE("There is no <data> in Tuning section");
        return;
    }

    HeldLists held;
    for (xmlNode* node = xml::secondChild(data); node != nullptr; node = node->next) {
        if (xml::isElement(node)) {
            readDataElement(*entity, node, held);
        }
    }
    held.storeInto(*entity);
    mTunings.insert(entity.release());
}

}  // namespace ovela
