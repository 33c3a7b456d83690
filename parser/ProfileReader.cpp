#include <cstdlib>
#include <memory>

#include "TuningFileParser.h"
#include "TuningFileVocabulary.h"
#include "XmlNodes.h"

namespace ovela {

namespace {

void storeElementValue(ParameterValues& entity, xmlNode* element, const ElementValue& value) {
    std::vector<int> list;
    switch (value.shape) {
        case ValueShape::SINGLE:
            list.push_back(TuningFileParser::getNodeValue(element));
            break;
        case ValueShape::ROW:
            list = TuningFileParser::parseDataRow(element);
            break;
        case ValueShape::NONEMPTY_ROW:
            list = TuningFileParser::parseDataRow(element);
            if (list.empty()) {
                list.push_back(0);
            }
            break;
    }
    entity.set(value.parameter, list);
}

}  // namespace

void TuningFileParser::parseProfile(xmlNode* profile) {
    // Every profile element counts, whatever it holds.
    ++mNumOfProfiles;
    int id = 0;
    std::string name;
    for (xmlAttr* attribute = xml::firstAttribute(profile); attribute != nullptr;
         attribute = attribute->next) {
        const ProfileAttribute* known = findByName(kProfileAttributes, xml::nameOf(attribute));
        if (known == nullptr) {
            continue;
        }
        const std::string value = xml::valueOf(attribute);
        switch (*known) {
            case ProfileAttribute::ID:
                id = atoi(value.c_str());
                break;
            case ProfileAttribute::NAME:
                name = value;
                break;
        }
    }

    // The parameters sit in the 2nd child node, the preset reference is the
    // 4th; without one the empty preset name is converted (and logged).
    xmlNode* container = xml::secondChild(profile);
    xmlNode* include = xml::fourthChild(profile);
    std::string presetName;
    if (xml::isElementNamed(include, kIncludeElement)) {
        presetName = xml::firstAttributeValue(include, kIncludePresetAttribute);
    }
    const PresetType preset = getIeqPresetTypeByName(presetName);
    mProfileNames[id] = name;

    auto entity = std::make_unique<Profile>(id, name, preset);
    for (xmlNode* node = xml::secondChild(container); node != nullptr; node = node->next) {
        if (!xml::isElement(node)) {
            continue;
        }
        if (xml::nameOf(node) == kEndpointTypeElement) {
            parseProfileEndpoint(node, id);
        } else if (const ElementValue* value = findByName(kProfileElements, xml::nameOf(node))) {
            storeElementValue(*entity, node, *value);
        }
    }
    mProfiles.insert(entity.release());
}

void TuningFileParser::parseProfileEndpoint(xmlNode* endpointType, int profileId) {
    const Endpoint endpoint = endpointFromName(
        xml::firstAttributeValue(endpointType, kEndpointIdAttribute), ENDPOINT_OTHER);
    auto entity = std::make_unique<ProfileEndpoint>(profileId, endpoint);
    for (xmlNode* node = xml::secondChild(endpointType); node != nullptr; node = node->next) {
        if (!xml::isElement(node)) {
            continue;
        }
        if (const ElementValue* value = findByName(kProfileEndpointElements, xml::nameOf(node))) {
            storeElementValue(*entity, node, *value);
        }
    }
    mProfileEndpoints.insert(entity.release());
}

}  // namespace ovela
