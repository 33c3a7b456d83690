#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "RowReader.h"
#include "TextReaders.h"
#include "TuningFileParser.h"
#include "TuningFileVocabulary.h"
#include "XmlNodes.h"

// The small readers of values that every section reader uses.
namespace ovela {

namespace {

// Reserved so that the usual matrices build without reallocation.
constexpr size_t kMatrixCapacity = 50;

// The row in the first attribute of `element`, which the format names
// `attributeName`; `emptyAs` says what an empty row becomes.
std::vector<int> rowOf(const xmlNode* element, ReaderReport& report, const char* attributeName,
                       const char* emptyAs) {
    const xmlAttr* first = xml::firstAttribute(element);
    std::string storage;
    const std::string_view text =
        first == nullptr ? std::string_view() : xml::textOf(first, storage);
    // Room for every field, so that the row is kept at its own size.
    std::vector<int> row;
    row.reserve(std::count(text.begin(), text.end(), ',') + 1);
    RowProblems problems;
    readRow(text, row, report ? &problems : nullptr);
    report.row(element, attributeName, text, row.size(), problems, emptyAs);
    return row;
}

// The rows of the first child node named `name` of `parent`, flattened;
// `node` takes that node, or null.
std::vector<int> matrixOf(const char* name, const xmlNode* parent, ReaderReport& report,
                          const xmlNode** node) {
    std::vector<int> matrix;
    matrix.reserve(kMatrixCapacity);
    xmlNode* found = xml::secondChild(parent);
    while (found != nullptr && xml::nameOf(found) != name) {
        found = found->next;
    }
    report.descend(found);
    std::vector<size_t> lengths;
    for (xmlNode* row = xml::secondChild(found); row != nullptr; row = row->next) {
        if (!xml::isElement(row)) {
            continue;
        }
        report.named(row, kMatrixRowElement);
        const std::vector<int> values =
            rowOf(row, report, kMatrixRowAttribute, "it adds nothing to the matrix");
        matrix.insert(matrix.end(), values.begin(), values.end());
        lengths.push_back(values.size());
    }
    report.matrixRows(found, lengths);
    *node = found;
    return matrix;
}

}  // namespace

std::string TuningFileParser::xmlChar2String(const xmlChar* text) {
    return xml::toString(text);
}

int TuningFileParser::getNodeValue(xmlNode* element) {
    const xmlAttr* first = xml::firstAttribute(element);
    if (first == nullptr || xml::nameOf(first) != kValueAttribute) {
        return 0;
    }
    std::string storage;
    const std::string_view text = xml::textOf(first, storage);
    if (const int* truth = findByName(kTruthWords, text)) {
        return *truth;
    }
    return parseDecimal(text);
}

std::vector<int> TuningFileParser::parseDataRow(xmlNode* element) {
    ReaderReport none;
    return rowOf(element, none, kRowAttribute, "");
}

std::vector<int> TuningFileParser::parseMixMatrix(std::string name, xmlNode* parent) {
    ReaderReport none;
    const xmlNode* found = nullptr;
    return matrixOf(name.c_str(), parent, none, &found);
}

int TuningFileParser::readSetting(xmlNode* element) {
    const int value = getNodeValue(element);
    mReport.setting(element, value);
    return value;
}

std::vector<int> TuningFileParser::readRow(xmlNode* element, const char* emptyAs) {
    return rowOf(element, mReport, kRowAttribute, emptyAs);
}

std::vector<int> TuningFileParser::readMixMatrix(const char* name, xmlNode* parent,
                                                 const xmlNode** found) {
    return matrixOf(name, parent, mReport, found);
}

Endpoint TuningFileParser::readEndpointType(xmlNode* endpointType) {
    const Endpoint endpoint = endpointFromName(
        xml::firstAttributeValue(endpointType, kEndpointIdAttribute), ENDPOINT_OTHER);
    mReport.endpointType(endpointType, endpoint);
    mReport.endpointSection(endpointType->parent->parent, endpointType, endpoint);
    return endpoint;
}

void TuningFileParser::store(ParameterValues& entity, Parameter parameter, std::vector<int> list,
                             const xmlNode* node, std::string_view name,
                             std::string_view attribute) {
    entity.set(parameter, std::move(list));
    mReport.value(&entity, parameter, node, name, attribute);
}

void TuningFileParser::storeElementValue(ParameterValues& entity, xmlNode* element,
                                         const ElementValue& value) {
    std::vector<int> list;
    switch (value.shape) {
        case ValueShape::SINGLE:
            list.push_back(readSetting(element));
            break;
        case ValueShape::ROW:
            list = readRow(element, "the entry is not sent");
            break;
        case ValueShape::NONEMPTY_ROW:
            list = readRow(element, "it is sent as the single value 0");
            if (list.empty()) {
                list.push_back(0);
            }
            break;
    }
    store(entity, value.parameter, std::move(list), element, xml::nameOf(element));
}

}  // namespace ovela
