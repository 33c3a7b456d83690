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

// The rows of the matrix element `matrix`, flattened.
std::vector<int> rowsOf(const xmlNode* matrix, ReaderReport& report) {
    std::vector<int> values;
    values.reserve(kMatrixCapacity);
    std::vector<size_t> lengths;
    for (xmlNode* row = TuningFileParser::childrenOf(matrix, report); row != nullptr;
         row = row->next) {
        if (!xml::isElement(row)) {
            continue;
        }
        report.named(row, kMatrixRowElement);
        const std::vector<int> rowValues =
            rowOf(row, report, kMatrixRowAttribute, "it adds nothing to the matrix");
        values.insert(values.end(), rowValues.begin(), rowValues.end());
        lengths.push_back(rowValues.size());
    }
    if (matrix != nullptr) {
        report.matrixRows(matrix, lengths);
    }
    return values;
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
    xmlNode* found = xml::secondChild(parent);
    while (found != nullptr && xml::nameOf(found) != name) {
        found = found->next;
    }
    ReaderReport none;
    return rowsOf(found, none);
}

xmlNode* TuningFileParser::childrenOf(const xmlNode* parent, ReaderReport& report) {
    if (report && parent != nullptr && xml::isElement(parent) && parent->children != nullptr &&
        xml::isElement(parent->children)) {
        report.descend(parent, xml::elementsIn(parent->children));
    }
    return xml::secondChild(parent);
}

xmlNode* TuningFileParser::takeChild(const xmlNode* parent, int position, const char* name,
                                     const std::string& loss) {
    xmlNode* taken = position == 2 ? xml::secondChild(parent) : xml::fourthChild(parent);
    // A first child that is an element is reported as not indented, and what
    // the reader takes after it follows from that; a section without
    // elements loses nothing.
    const bool indented =
        parent == nullptr || parent->children == nullptr || !xml::isElement(parent->children);
    if (mReport && indented &&
        ((taken != nullptr && xml::isElement(taken)) || xml::hasElementChild(parent))) {
        mReport.positional(parent, position, taken, name, loss);
    }
    return taken;
}

int TuningFileParser::readSetting(xmlNode* element) {
    const int value = getNodeValue(element);
    mReport.setting(element, value);
    return value;
}

std::vector<int> TuningFileParser::readRow(xmlNode* element, const char* emptyAs) {
    return rowOf(element, mReport, kRowAttribute, emptyAs);
}

std::vector<int> TuningFileParser::readMatrix(const xmlNode* matrix) {
    return rowsOf(matrix, mReport);
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
