#define LOG_TAG "TuningFileParser"

#include <memory>

#include "ReaderLog.h"
#include "TuningFileParser.h"
#include "TuningFileVocabulary.h"
#include "XmlNodes.h"

namespace ovela {

void TuningFileParser::parseGeneral(xmlNode* general) {
    READER_LOGD("parseGeneral");
    mReport.attributes(general);
    childrenOf(general, mReport);
    xmlNode* wrapper =
        takeChild(general, 2, kGeneralSettingsElement, "the general section reads as empty");
    // The section replaces any earlier one at once, also when it turns out empty.
    if (mContents.general != nullptr) {
        mReport.replaced(mContents.general, general, "the general section");
        mContents.replacedGenerals.push_back(mContents.general);
    }
    mContents.general = mArena.make<General>();
    mReport.entity(
        mContents.general, general, [] { return "the general section"; }, "general sections");
    for (xmlNode* node = childrenOf(wrapper, mReport); node != nullptr; node = node->next) {
        if (!xml::isElement(node)) {
            mReport.nonElement(node);
            continue;
        }
        const std::string_view name = xml::nameOf(node);
        if (name == kEndpointTypeElement) {
            parseGeneralEndpoint(node);
        } else if (const Parameter* parameter = findByName(kGeneralElements, name)) {
            store(*mContents.general, *parameter, {readSetting(node)}, node, name);
        } else {
            mReport.unknownElement(node, kGeneralElements, kEndpointTypeElement);
        }
    }
}

void TuningFileParser::parseGeneralEndpoint(xmlNode* endpointType) {
    const Endpoint endpoint = readEndpointType(endpointType);
    EntityArena::Ptr<GeneralEndpoint> entity(mArena.make<GeneralEndpoint>(endpoint));
    mReport.entity(
        entity.get(), endpointType,
        [&] { return std::string("the general section of ") + endpointName(endpoint); },
        "general endpoint sections");
    for (xmlNode* node = childrenOf(endpointType, mReport); node != nullptr; node = node->next) {
        if (!xml::isElement(node)) {
            mReport.nonElement(node);
            continue;
        }
        const std::string_view name = xml::nameOf(node);
        if (const Parameter* parameter = findByName(kGeneralEndpointElements, name)) {
            store(*entity, *parameter, {readSetting(node)}, node, name);
        } else {
            mReport.unknownElement(node, kGeneralEndpointElements);
        }
    }
    mContents.generalEndpoints.insert(entity.release());
}

}  // namespace ovela
