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
    childrenOf(profile, mReport);
    xmlNode* container = xml::secondChild(profile);
    xmlNode* include = xml::fourthChild(profile);
    std::string presetName;
    if (xml::isElementNamed(include, kIncludeElement)) {
        presetName = xml::firstAttributeValue(include, kIncludePresetAttribute);
    }
    const PresetType preset = getIeqPresetTypeByName(presetName);
    mContents.profileNames[id] = name;

    EntityArena::Ptr<Profile> entity(mArena.make<Profile>(id, name, preset));
    mReport.entity(
        entity.get(), profile, [&] { return "profile " + std::to_string(id); }, "profiles");
    if (mReport) {
        reportProfileShape(entity.get(), profile, container, include, presetName, preset);
    }
    for (xmlNode* node = childrenOf(container, mReport); node != nullptr; node = node->next) {
        if (!xml::isElement(node)) {
            mReport.nonElement(node);
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
        [&] { return "profile " + std::to_string(profileId) + " on " + endpointName(endpoint); },
        "profile endpoint sections");
    for (xmlNode* node = childrenOf(endpointType, mReport); node != nullptr; node = node->next) {
        if (!xml::isElement(node)) {
            mReport.nonElement(node);
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

void TuningFileParser::reportProfileShape(const Profile* entity, xmlNode* profile,
                                          const xmlNode* container, const xmlNode* include,
                                          const std::string& presetName, PresetType readAs) {
    // An element first is reported as not indented, and what the reader
    // takes after it follows from that.
    const xmlNode* first = profile->children;
    if (first != nullptr && xml::isElement(first)) {
        return;
    }
    // The elements that the reader leaves alone: all but the two it takes.
    // An <include> among them, when the 4th child node is none, is the one
    // the profile means to select.
    const bool selects = xml::isElementNamed(include, kIncludeElement);
    const xmlNode* misplaced = nullptr;
    const xmlNode* unread = nullptr;
    size_t unreadCount = 0;
    for (const xmlNode* node = first; node != nullptr; node = node->next) {
        if (!xml::isElement(node) || node == container || node == include) {
            continue;
        }
        if (!selects && misplaced == nullptr && xml::nameOf(node) == kIncludeElement) {
            misplaced = node;
            continue;
        }
        unread = unread == nullptr ? node : unread;
        unreadCount += xml::elementsIn(node);
    }
    if (container == nullptr || !xml::isElement(container)) {
        // What stands where the settings should is the one cause: everything
        // that the profile holds is lost with it.
        if (unread == nullptr && misplaced == nullptr && !selects) {
            return;
        }
        std::string loss = "the profile sends no settings of its own";
        if (unread != nullptr) {
            loss += ", " + lostText(unread, unreadCount, false) + " not read";
        }
        if (!selects) {
            loss += std::string(misplaced != nullptr ? ", and its <include> is not read either"
                                                     : ", and it selects no IEQ preset") +
                    ": it reads as " + kPresetTypeNames[readAs];
        }
        mReport.positional(profile, 2, container, kProfileSettingsElement, loss);
        if (!selects) {
            return;
        }
    } else {
        mReport.positional(profile, 2, container, kProfileSettingsElement, std::string());
        if (unread != nullptr) {
            mReport.notRead(unread, unreadCount,
                            std::string("the reader takes only the 2nd child node of ") +
                                tagOf(profile) + " as <" + kProfileSettingsElement +
                                "> and the 4th as <" + kIncludeElement + ">");
        }
    }
    mReport.include(entity, profile, include, misplaced, presetName, readAs);
}

PresetType TuningFileParser::getIeqPresetTypeByName(std::string name) {
    if (const PresetType* type = findWordIn(kIncludePresetWords, name)) {
        return *type;
    }
    READER_LOGE("name is invalid, %d", 367);
    return PRESET_TYPE_OFF;
}

}  // namespace ovela
