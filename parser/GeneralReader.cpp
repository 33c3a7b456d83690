#define LOG_TAG "TuningFileParser"

#include <log/log.h>

#include <memory>

#include "TuningFileParser.h"
#include "TuningFileVocabulary.h"
#include "XmlNodes.h"

namespace ovela {

namespace {

// Reserved so that the usual matrices build without reallocation.
constexpr size_t kMatrixCapacity = 50;

}  // namespace

void TuningFileParser::parseGeneral(xmlNode* general) {
    ALOGD("parseGeneral");
    xmlNode* wrapper = xml::secondChild(general);
    // The section replaces any earlier one at once, also when it turns out empty.
    if (mGeneral != nullptr) {
        mReplacedGenerals.push_back(mGeneral);
    }
    mGeneral = new General();
    for (xmlNode* node = xml::secondChild(wrapper); node != nullptr; node = node->next) {
        if (!xml::isElement(node)) {
            continue;
        }
        if (xml::nameOf(node) == kEndpointTypeElement) {
            parseGeneralEndpoint(node);
        } else if (const Parameter* parameter = findByName(kGeneralElements, xml::nameOf(node))) {
            mGeneral->set(*parameter, {getNodeValue(node)});
        }
    }
}

void TuningFileParser::parseGeneralEndpoint(xmlNode* endpointType) {
    const Endpoint endpoint = endpointFromName(
        xml::firstAttributeValue(endpointType, kEndpointIdAttribute), ENDPOINT_OTHER);
    auto entity = std::make_unique<GeneralEndpoint>(endpoint);
    for (xmlNode* node = xml::secondChild(endpointType); node != nullptr; node = node->next) {
        if (!xml::isElement(node)) {
            continue;
        }
        if (const Parameter* parameter = findByName(kGeneralEndpointElements, xml::nameOf(node))) {
            entity->set(*parameter, {getNodeValue(node)});
        }
    }
    mGeneralEndpoints.insert(entity.release());
}

std::vector<int> TuningFileParser::parseMixMatrix(std::string name, xmlNode* parent) {
    std::vector<int> matrix;
    matrix.reserve(kMatrixCapacity);
    xmlNode* found = xml::secondChild(parent);
    while (found != nullptr && xml::nameOf(found) != name) {
        found = found->next;
    }
    // Each row element holds its numbers in its first attribute, read as a
    // data row; the rows are flattened in document order.
    for (xmlNode* row = xml::secondChild(found); row != nullptr; row = row->next) {
        if (!xml::isElement(row)) {
            continue;
        }
        const std::vector<int> values = parseDataRow(row);
        matrix.insert(matrix.end(), values.begin(), values.end());
    }
    return matrix;
}

}  // namespace ovela
