#define LOG_TAG "TuningFileParser"

#include <iterator>
#include <map>
#include <memory>
#include <utility>

#include "Endpoint.h"
#include "ReaderLog.h"
#include "TextReaders.h"
#include "TuningFileParser.h"
#include "TuningFileVocabulary.h"
#include "XmlNodes.h"

namespace ovela {

namespace {

// Equalizer and regulator tables have up to 20 bands.
constexpr size_t kBandCapacity = 20;

// The number in `attribute` of `element`, read as string2int reads it; the
// report learns what it read.
int numberIn(const xmlNode* element, const xmlAttr* attribute, ReaderReport& report) {
    std::string storage;
    const std::string_view text = xml::textOf(attribute, storage);
    const int value = parseDecimal(text);
    report.number(element, xml::nameOf(attribute), text, value);
    return value;
}

}  // namespace

// The lists that gather over the whole data element: the band columns, which
// every row appends to, and the kept rows, which a later element replaces.
// Every one is stored when the data element ends, empty if the file gave none.
class HeldLists {
  public:
    HeldLists() {
        for (Parameter parameter : heldParameters()) {
            mLists[parameter].reserve(kBandCapacity);
        }
    }

    std::vector<int>& of(Parameter parameter) { return mLists[parameter]; }

    // The first element of each band table, for a report, and whether more
    // came of its name.
    const xmlNode* tableMet(const char* name, const xmlNode* element) {
        auto [found, added] = mTables.try_emplace(name, Table{element, false});
        found->second.appended = !added;
        return added ? nullptr : found->second.first;
    }

    void storeInto(ParameterValues& tuning, ReaderReport& report) {
        // Tables appended to one another are reported as such, and what
        // their bands share follows from that.
        for (const auto& [name, table] : mTables) {
            const NameTable<BandColumn>& columns = *findByName(kTuningBandElements, name);
            if (!table.appended) {
                report.duplicateBands(table.first, &tuning,
                                      mLists[columns.begin()->second.parameter]);
            }
        }
        for (Parameter parameter : heldParameters()) {
            tuning.set(parameter, std::move(mLists[parameter]));
        }
    }

  private:
    // The band columns and the kept rows, from the tables.
    static const std::vector<Parameter>& heldParameters() {
        static const std::vector<Parameter> kHeld = [] {
            std::vector<Parameter> held;
            for (const auto& [element, columns] : kTuningBandElements) {
                for (const auto& [attribute, column] : columns) {
                    held.push_back(column.parameter);
                }
            }
            for (const auto& [element, row] : kTuningRowElements) {
                if (row.storage == RowStorage::KEPT) {
                    held.push_back(row.parameter);
                }
            }
            return held;
        }();
        return kHeld;
    }

    // Indexed by parameter: a list is found without a search.
    std::vector<int> mLists[kNumParameters];
    struct Table {
        const xmlNode* first;
        bool appended;
    };
    std::map<std::string_view, Table> mTables;
};

namespace {

void readBandRows(Tuning& tuning, xmlNode* element, const char* name,
                  const NameTable<BandColumn>& columns, HeldLists& held, ReaderReport& report) {
    const xmlNode* first = report ? held.tableMet(name, element) : nullptr;
    for (xmlNode* row = TuningFileParser::childrenOf(element, report); row != nullptr;
         row = row->next) {
        if (!xml::isElement(row)) {
            report.nonElement(row);
            continue;
        }
        report.named(row, kBandRowElement);
        report.attributes(row, columns);
        for (xmlAttr* attribute = row->properties; attribute != nullptr;
             attribute = attribute->next) {
            const BandColumn* column = findByName(columns, xml::nameOf(attribute));
            if (column == nullptr) {
                continue;
            }
            int number = 0;
            if (column->value == BandValue::TRUE_WORD) {
                std::string storage;
                const std::string_view value = xml::textOf(attribute, storage);
                number = value == kTrueWord;
                report.truthWord(row, xml::nameOf(attribute), value);
            } else {
                number = numberIn(row, attribute, report);
            }
            held.of(column->parameter).push_back(number);
            report.gathered(&tuning, column->parameter, row, name, xml::nameOf(attribute));
        }
    }
    // A second table of the name adds its rows to the first's.
    if (first != nullptr) {
        report.bandTable(&tuning, element, first, held.of(columns.begin()->second.parameter).size());
    }
}

}  // namespace

void TuningFileParser::readDataElement(Tuning& tuning, xmlNode* element, HeldLists& held) {
    const std::string_view view = xml::nameOf(element);
    if (const Parameter* parameter = findByName(kTuningValueElements, view)) {
        store(tuning, *parameter, {readSetting(element)}, element, view);
    } else if (const TuningRow* row = findByName(kTuningRowElements, view)) {
        if (row->storage == RowStorage::AT_ONCE) {
            store(tuning, row->parameter, readRow(element, "the entry is not sent"), element, view);
        } else {
            held.of(row->parameter) = readRow(element, "the list is empty");
            mReport.value(&tuning, row->parameter, element, view);
        }
    } else if (const NameTable<Parameter>* attributes = findByName(kTuningAttributeElements, view)) {
        mReport.attributes(element, *attributes);
        for (xmlAttr* attribute = element->properties; attribute != nullptr;
             attribute = attribute->next) {
            if (const Parameter* parameter = findByName(*attributes, xml::nameOf(attribute))) {
                store(tuning, *parameter, {numberIn(element, attribute, mReport)}, element, view,
                      xml::nameOf(attribute));
            }
        }
    } else if (const Parameter* parameter = findByName(kTuningAttributeListElements, view)) {
        std::vector<int> list;
        for (xmlAttr* attribute = element->properties; attribute != nullptr;
             attribute = attribute->next) {
            list.push_back(numberIn(element, attribute, mReport));
        }
        if (list.empty()) {
            mReport.add(Rule::EMPTY_LIST, element,
                        {{"element", tagOf(element)}, {"consequence", "the entry is not sent"}});
        }
        store(tuning, *parameter, std::move(list), element, view);
    } else if (const auto* table = findEntry(kTuningBandElements, view)) {
        readBandRows(tuning, element, table->first, table->second, held, mReport);
    } else if (view == kOutputModeElement) {
        readOutputMode(tuning, element);
    } else {
        mReport.unknownElement(element, kTuningValueElements, kTuningRowElements,
                               kTuningAttributeElements, kTuningAttributeListElements,
                               kTuningBandElements, kOutputModeElement);
    }
}

void TuningFileParser::readOutputMode(Tuning& tuning, xmlNode* outputMode) {
    // Every matrix is stored, empty when the element holds none. The reader
    // takes the first child node under a matrix's name, whatever its kind.
    const xmlNode* found[std::size(kOutputModeMatrices)] = {};
    for (const auto& [matrix, parameter] : kOutputModeMatrices) {
        tuning.set(parameter, std::vector<int>());
    }
    for (xmlNode* node = childrenOf(outputMode, mReport); node != nullptr; node = node->next) {
        const auto* matrix = findEntry(kOutputModeMatrices, xml::nameOf(node));
        if (matrix == nullptr) {
            if (xml::isElement(node)) {
                mReport.unknownElement(node, kOutputModeMatrices);
            } else {
                mReport.nonElement(node);
            }
            continue;
        }
        const xmlNode*& first = found[matrix - std::begin(kOutputModeMatrices)];
        if (first != nullptr) {
            if (xml::isElement(node)) {
                mReport.secondMatrix(outputMode, node, first);
            }
            continue;
        }
        first = node;
        store(tuning, matrix->second, readMatrix(node), node, matrix->first);
    }
}

void TuningFileParser::parseTuning(xmlNode* tuning) {
    std::string name;
    std::string endpointName;
    std::string mono;
    std::map<Parameter, std::vector<int>> lists;
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
            lists[*parameter].push_back(parseDecimal(value));
            mReport.number(tuning, xml::nameOf(attribute), value, lists[*parameter].back());
        }
    }
    mReport.tuningAttributes(tuning, endpointName, mono);

    // Unlike the profile readers, a tuning for an unknown endpoint serves the speaker.
    const Endpoint endpoint = endpointFromName(endpointName, ENDPOINT_SPEAKER);
    EntityArena::Ptr<Tuning> entity(mArena.make<Tuning>(name, endpoint, mono == kTrueWord));
    mReport.entity(
        entity.get(), tuning, [&] { return "tuning " + name; }, "tunings");
    for (const auto& [attribute, parameter] : kTuningListAttributes) {
        entity->set(parameter, lists[parameter]);
        if (!lists[parameter].empty()) {
            mReport.value(entity.get(), parameter, tuning, xml::nameOf(tuning), attribute);
        }
    }

    xmlNode* data = nullptr;
    for (xmlNode* node = childrenOf(tuning, mReport); node != nullptr; node = node->next) {
        if (!xml::isElement(node)) {
            mReport.nonElement(node);
            continue;
        }
        if (xml::nameOf(node) != kDeviceIdElement) {
            data = node;
            break;
        }
        parseDeviceTuning(node, name);
    }
    // A first child that is an element is reported as not indented, and
    // what the reader takes after it follows from that.
    const bool indented = tuning->children == nullptr || !xml::isElement(tuning->children);
    if (data == nullptr) {
        READER_LOGE("There is no <data> in Tuning section");
        if (indented) {
            mReport.noData(tuning, name);
        }
        mReport.forget(entity.get());
        return;
    }
    if (mReport && indented) {
        const xmlNode* firstAfter = xml::firstElementFrom(data->next);
        mReport.dataElement(entity.get(), tuning, data, firstAfter, xml::elementsFrom(firstAfter));
    }

    HeldLists held;
    for (xmlNode* node = childrenOf(data, mReport); node != nullptr; node = node->next) {
        if (xml::isElement(node)) {
            readDataElement(*entity, node, held);
        } else {
            mReport.nonElement(node);
        }
    }
    held.storeInto(*entity, mReport);
    mContents.tunings.insert(entity.release());
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
    mReport.attributes(deviceId, kDeviceIdAttributes);
    auto* entity = mArena.make<DeviceTuning>(device, port, tuningName);
    mReport.entity(
        entity, deviceId,
        [&] {
            return "<" + std::string(kDeviceIdElement) + "> " + device + " of tuning " + tuningName;
        },
        "<device_id> elements");
    mContents.deviceTunings.insert(entity);
}

}  // namespace ovela
