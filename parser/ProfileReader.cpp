#define LOG_TAG "TuningFileParser"

#include <cstdlib>
#include <memory>

#include "ReaderLog.h"
#include "TuningFileParser.h"
#include "TuningFileVocabulary.h"
#include "XmlNodes.h"

namespace ovela {

void TuningFileParser::parseProfile(xmlNode* profile) {
    // Every profile element counts, whatever it holds.
    ++mContents.numOfProfiles;
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
                mReport.number(profile, xml::nameOf(attribute), value, id);
                break;
            case ProfileAttribute::NAME:
                name = value;
                break;
        }
    }
    mReport.attributes(profile, kProfileAttributes);

    // The parameters sit in the 2nd child node, the preset reference is the
    // 4th; without one the empty preset name is converted (and logged).
    mReport.descend(profile);
    xmlNode* container = xml::secondChild(profile);
    xmlNode* include = xml::fourthChild(profile);
    mReport.positional(profile, 2, container, kProfileSettingsElement,
                       "the profile sends no settings of its own");
    std::string presetName;
    if (xml::isElementNamed(include, kIncludeElement)) {
        presetName = xml::firstAttributeValue(include, kIncludePresetAttribute);
    }
    const PresetType preset = getIeqPresetTypeByName(presetName);
    mContents.profileNames[id] = name;

    EntityArena::Ptr<Profile> entity(mArena.make<Profile>(id, name, preset));
    mReport.entity(
        entity.get(), profile, [&] { return "profile " + std::to_string(id); }, "profiles");
    mReport.include(entity.get(), profile, container, include, presetName, preset);
    mReport.descend(container);
    for (xmlNode* node = xml::secondChild(container); node != nullptr; node = node->next) {
        if (!xml::isElement(node)) {
            continue;
        }
        if (xml::nameOf(node) == kEndpointTypeElement) {
            parseProfileEndpoint(node, id);
        } else if (const ElementValue* value = findByName(kProfileElements, xml::nameOf(node))) {
            storeElementValue(*entity, node, *value);
        } else {
            mReport.unknownElement(node, kProfileElements, kEndpointTypeElement);
        }
    }
    mContents.profiles.insert(entity.release());
}

void TuningFileParser::parseProfileEndpoint(xmlNode* endpointType, int profileId) {
    const Endpoint endpoint = readEndpointType(endpointType);
    EntityArena::Ptr<ProfileEndpoint> entity(mArena.make<ProfileEndpoint>(profileId, endpoint));
    mReport.entity(
        entity.get(), endpointType,
        [&] { return "profile " + std::to_string(profileId) + " on " + kEndpointNames[endpoint]; },
        "profile endpoint sections");
    mReport.descend(endpointType);
    for (xmlNode* node = xml::secondChild(endpointType); node != nullptr; node = node->next) {
        if (!xml::isElement(node)) {
            continue;
        }
        if (const ElementValue* value = findByName(kProfileEndpointElements, xml::nameOf(node))) {
            storeElementValue(*entity, node, *value);
        } else {
            mReport.unknownElement(node, kProfileEndpointElements);
        }
    }
    mContents.profileEndpoints.insert(entity.release());
}

PresetType TuningFileParser::getIeqPresetTypeByName(std::string name) {
    if (const PresetType* type = findWordIn(kIncludePresetWords, name)) {
        return *type;
    }
    READER_LOGE("name is invalid, %d", 367);
    return PRESET_TYPE_OFF;
}

}  // namespace ovela
