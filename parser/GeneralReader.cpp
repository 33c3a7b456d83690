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
    mReport.descend(general);
    xmlNode* wrapper = xml::secondChild(general);
    mReport.positional(general, 2, wrapper, kGeneralSettingsElement,
                       "the general section reads as empty");
    // The section replaces any earlier one at once, also when it turns out empty.
    if (mContents.general != nullptr) {
        mReport.replaced(mContents.general, general, "the general section");
        mContents.replacedGenerals.push_back(mContents.general);
    }
    mContents.general = mArena.make<General>();
    mReport.entity(
        mContents.general, general, [] { return "the general section"; }, "general sections");
    mReport.descend(wrapper);
    for (xmlNode* node = xml::secondChild(wrapper); node != nullptr; node = node->next) {
        if (!xml::isElement(node)) {
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
        [&] { return std::string("the general section of ") + kEndpointNames[endpoint]; },
        "general endpoint sections");
    mReport.descend(endpointType);
    for (xmlNode* node = xml::secondChild(endpointType); node != nullptr; node = node->next) {
        if (!xml::isElement(node)) {
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
