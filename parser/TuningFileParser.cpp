#define LOG_TAG "TuningFileParser"

#include "TuningFileParser.h"

#include <libxml/parser.h>
#include <libxml/tree.h>
#include <log/log.h>

#include <cstdlib>
#include <cstring>
#include <iterator>
#include <utility>

#include "TextReaders.h"
#include "TuningFileVocabulary.h"
#include "XmlNodes.h"

namespace ovela {

namespace {

// Reserved so that the usual rows build without reallocation.
constexpr size_t kRowCapacity = 155;

template <typename Entity>
void deleteAll(std::set<Entity*>& entities) {
    for (Entity* entity : entities) {
        delete entity;
    }
    entities.clear();
}

// "major.minor.maintenance" from a version element's attributes; a part that
// the element lacks stays empty, so an element without attributes gives "..".
std::string readVersion(xmlNode* element) {
    std::string parts[std::size(kVersionAttributes)];
    for (xmlAttr* attribute = xml::firstAttribute(element); attribute != nullptr;
         attribute = attribute->next) {
        std::string value = xml::valueOf(attribute);
        if (const VersionPart* part = findByName(kVersionAttributes, xml::nameOf(attribute))) {
            parts[*part] = std::move(value);
        } else {
            ALOGE("invalid attribute name %s", reinterpret_cast<const char*>(attribute->name));
        }
    }
    return parts[VERSION_MAJOR] + "." + parts[VERSION_MINOR] + "." + parts[VERSION_MAINTENANCE];
}

}  // namespace

TuningFileParser::TuningFileParser() = default;

TuningFileParser::TuningFileParser(std::string path) {
    setTuningFile(std::move(path));
}

TuningFileParser::~TuningFileParser() {
    if (mDocument != nullptr) {
        xmlFreeDoc(mDocument);
        mDocument = nullptr;
    }
    xmlCleanupParser();
    deleteAll(mIeqPresets);
    deleteAll(mGeqPresets);
    deleteAll(mProfiles);
    deleteAll(mProfileEndpoints);
    deleteAll(mTunings);
    deleteAll(mDeviceTunings);
    delete mGeneral;
    for (General* replaced : mReplacedGenerals) {
        delete replaced;
    }
    deleteAll(mGeneralEndpoints);
    delete mDeviceData;
}

int TuningFileParser::setTuningFile(std::string path) {
    mTuningFilePath = std::move(path);
    if (initXmlParser() != 0) {
        return -22;
    }
    if (!parseDocument()) {
        return -22;
    }
    delete mDeviceData;
    mDeviceData = new DeviceData();
    mDeviceData->setFormatVersion(mFormatVersion);
    mDeviceData->setToolVersion(mToolVersion);
    mDeviceData->setIeqPresets(mIeqPresets);
    mDeviceData->setGeqPresets(mGeqPresets);
    mDeviceData->setProfiles(mProfiles);
    mDeviceData->setProfileEndPoints(mProfileEndpoints);
    mDeviceData->setTunings(mTunings);
    mDeviceData->setDeviceTunings(mDeviceTunings);
    mDeviceData->setGeneral(mGeneral);
    mDeviceData->setGeneralEndPoints(mGeneralEndpoints);
    return 0;
}

int TuningFileParser::initXmlParser() {
    if (mTuningFilePath.empty()) {
        ALOGE("invalide tuning file path, %d", 125);
        return -22;
    }
    // No options: the whitespace text nodes stay in the tree, and the section
    // readers count on them.
    xmlDoc* document = xmlReadFile(mTuningFilePath.c_str(), nullptr, 0);
    if (document == nullptr) {
        ALOGE("fail to call xmlReadFile,  %d", 138);
        return -22;
    }
    // The entities copy what they read, so nothing refers to an earlier document.
    if (mDocument != nullptr) {
        xmlFreeDoc(mDocument);
    }
    mDocument = document;
    mRootElement = xmlDocGetRootElement(document);
    if (mRootElement == nullptr) {
        ALOGE("fail to call xmlDocGetRootElement, %d", 144);
        return -19;
    }
    return 0;
}

void TuningFileParser::parseTuningFile() {
    if (mRootElement == nullptr) {
        return;
    }
    parseDocument();
}

bool TuningFileParser::isParsed() {
    return mParsed;
}

DeviceData* TuningFileParser::getDeviceData() {
    return mDeviceData;
}

int TuningFileParser::getNumOfProfiles() {
    return mNumOfProfiles;
}

std::string TuningFileParser::getProfileName(int id) {
    return mProfileNames[id];
}

void TuningFileParser::parseNode(xmlNode* first) {
    mLoadFailed = false;
    for (xmlNode* node = first; node != nullptr && !mLoadFailed; node = node->next) {
        if (!xml::isElement(node)) {
            continue;
        }
        const Section* section = findByName(kSectionElements, xml::nameOf(node));
        if (section == nullptr) {
            continue;
        }
        switch (*section) {
            case Section::FORMAT_VERSION:
                parseFormatVersion(node);
                break;
            case Section::TOOL_VERSION:
                parseToolVersion(node);
                break;
            case Section::GENERAL:
                parseGeneral(node);
                break;
            case Section::PRESET:
                parsePreset(node);
                break;
            case Section::PROFILE:
                parseProfile(node);
                break;
            case Section::TUNING:
                parseTuning(node);
                break;
        }
    }
    mParsed = true;
}

void TuningFileParser::parseFormatVersion(xmlNode* element) {
    mFormatVersion = readVersion(element);
}

void TuningFileParser::parseToolVersion(xmlNode* element) {
    mToolVersion = readVersion(element);
}

std::string TuningFileParser::xmlChar2String(const xmlChar* text) {
    return xml::toString(text);
}

int TuningFileParser::getNodeValue(xmlNode* element) {
    const std::string text = xml::firstAttributeValue(element, kValueAttribute);
    if (const int* truth = findByName(kTruthWords, text)) {
        return *truth;
    }
    return string2int(text);
}

std::vector<int> TuningFileParser::parseDataRow(xmlNode* element) {
    std::vector<int> row;
    row.reserve(kRowCapacity);
    const xmlAttr* first = xml::firstAttribute(element);
    if (first == nullptr) {
        return row;
    }
    std::string text = xml::valueOf(first);
    // Runs of commas separate like one, so empty fields do not exist. A field
    // that holds no number repeats the value before it (0 at the start). A
    // field reads as sscanf's "%d" reads it: strtol's long cast to int, which
    // keeps the low 32 bits of a number past the int's range.
    int value = 0;
    char* rest = nullptr;
    for (char* field = strtok_r(text.data(), ",", &rest); field != nullptr;
         field = strtok_r(nullptr, ",", &rest)) {
        char* end = nullptr;
        const long number = strtol(field, &end, 10);
        if (end != field) {
            value = static_cast<int>(number);
        }
        row.push_back(value);
    }
    return row;
}

}  // namespace ovela
