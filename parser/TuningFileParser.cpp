#define LOG_TAG "TuningFileParser"

#include "TuningFileParser.h"

#include <libxml/parser.h>
#include <libxml/tree.h>
#include <log/log.h>
#include <utils/Mutex.h>

#include <iterator>
#include <utility>

#include "LoadReport.h"
#include "ReaderLog.h"
#include "SectionStream.h"
#include "TuningFileVocabulary.h"
#include "XmlDocumentReport.h"
#include "XmlNodes.h"

namespace ovela {

namespace {

// libxml2 keeps state for the whole process (its dictionaries' lock, its
// encoding handlers), which xmlCleanupParser in every reader's destructor
// resets: readers in several threads take turns for the calls that use it.
android::Mutex& libxmlLock() {
    // Never destroyed: a reader may go after the static objects do.
    static android::Mutex* const lock = new android::Mutex();
    return *lock;
}

// "major.minor.maintenance" from a version element's attributes; a part that
// the element lacks stays empty, so an element without attributes gives "..".
std::string readVersion(xmlNode* element, ReaderReport& report) {
    std::string parts[std::size(kVersionAttributes)];
    for (xmlAttr* attribute = xml::firstAttribute(element); attribute != nullptr;
         attribute = attribute->next) {
        std::string value = xml::valueOf(attribute);
        if (const VersionPart* part = findByName(kVersionAttributes, xml::nameOf(attribute))) {
            parts[*part] = std::move(value);
        } else {
            READER_LOGE("invalid attribute name %s", reinterpret_cast<const char*>(attribute->name));
        }
    }
    report.attributes(element, kVersionAttributes);
    return parts[VERSION_MAJOR] + "." + parts[VERSION_MINOR] + "." + parts[VERSION_MAINTENANCE];
}

// Attaches a report to a reader for one load.
class AttachedReport {
  public:
    AttachedReport(ReaderReport& reader, LoadReport* report) : mReader(reader) {
        mReader.attach(report);
        xml::setExpansionReport(report);
    }
    ~AttachedReport() {
        mReader.attach(nullptr);
        xml::setExpansionReport(nullptr);
    }

  private:
    ReaderReport& mReader;
};

}  // namespace

void TuningFileParser::DocumentDeleter::operator()(xmlDoc* document) const {
    android::Mutex::Autolock lock(libxmlLock());
    xml::FreeDocument()(document);
}

TuningFileParser::TuningFileParser() = default;

TuningFileParser::TuningFileParser(std::string path) {
    setTuningFile(std::move(path));
}

TuningFileParser::~TuningFileParser() {
    mDocument.reset();
    {
        android::Mutex::Autolock lock(libxmlLock());
        xmlCleanupParser();
    }
    mContents.forEachEntity([](auto* entity) { delete entity; });
    delete mDeviceData;
}

bool TuningFileParser::hasPath() {
    if (mTuningFilePath.empty()) {
        ALOGE("invalide tuning file path, %d", 125);
        mReport.add(rules::kFileUnreadable, nullptr, "no tuning file given");
        return false;
    }
    return true;
}

int TuningFileParser::rootMissing() {
    ALOGE("fail to call xmlDocGetRootElement, %d", 144);
    mReport.add(rules::kNoRoot, nullptr, "the document has no root element");
    return -19;
}

int TuningFileParser::setTuningFile(std::string path) {
    return setTuningFile(std::move(path), nullptr);
}

int TuningFileParser::setTuningFile(std::string path, LoadReport* report) {
    AttachedReport attached(mReport, report);
    mTuningFilePath = std::move(path);
    if (!hasPath()) {
        return -22;
    }
    std::string source;
    bool readable = false;
    {
        android::Mutex::Autolock lock(libxmlLock());
        readable = readTuningFileBytes(mTuningFilePath, &source);
    }
    if (!readable) {
        XmlDocumentReport(mReport.get(), mTuningFilePath).parsed(nullptr);
        ALOGE("fail to call xmlReadFile,  %d", 138);
        return -22;
    }
    if (parseSource(source) != 0) {
        return -22;
    }
    // The entities copy what they read, so nothing refers to an earlier document.
    mSource = std::move(source);
    mDocument.reset();
    mRootElement = nullptr;
    delete mDeviceData;
    mDeviceData = new DeviceData();
    mDeviceData->setFormatVersion(mContents.formatVersion);
    mDeviceData->setToolVersion(mContents.toolVersion);
    mDeviceData->setIeqPresets(mContents.ieqPresets);
    mDeviceData->setGeqPresets(mContents.geqPresets);
    mDeviceData->setProfiles(mContents.profiles);
    mDeviceData->setProfileEndPoints(mContents.profileEndpoints);
    mDeviceData->setTunings(mContents.tunings);
    mDeviceData->setDeviceTunings(mContents.deviceTunings);
    mDeviceData->setGeneral(mContents.general);
    mDeviceData->setGeneralEndPoints(mContents.generalEndpoints);
    return 0;
}

int TuningFileParser::parseSource(const std::string& source) {
    const TuningFileContents before = mContents;
    const LoadReport::Mark mark = mReport.mark();
    // The sections are read while the document streams in; until its end
    // tells that it is well-formed, their log lines wait.
    HeldReaderLog held;
    XmlDocumentReport documentReport(mReport.get(), mTuningFilePath);
    mLoadFailed = false;
    bool wellFormed = false;
    bool hasRoot = false;
    {
        android::Mutex::Autolock lock(libxmlLock());
        SectionStream stream(documentReport.options());
        wellFormed = stream.parse(
            source, mTuningFilePath,
            [](void* self, xmlNode* section) {
                auto* parser = static_cast<TuningFileParser*>(self);
                if (!parser->mLoadFailed) {
                    parser->parseSection(section);
                }
            },
            this);
        hasRoot = stream.hasRoot();
        if (!wellFormed) {
            mReport.discardSince(mark);
        }
        documentReport.parsed(wellFormed ? stream.document() : nullptr);
    }
    if (!wellFormed) {
        restore(before);
        ALOGE("fail to call xmlReadFile,  %d", 138);
        return -22;
    }
    held.release();
    if (!hasRoot) {
        restore(before);
        return rootMissing();
    }
    if (mLoadFailed) {
        restore(before);
        return -22;
    }
    mContents.parsed = true;
    reportLinks();
    return 0;
}

void TuningFileParser::restore(const TuningFileContents& before) {
    std::set<const void*> kept;
    before.forEachEntity([&](const void* entity) { kept.insert(entity); });
    mContents.forEachEntity([&](auto* entity) {
        if (kept.count(entity) == 0) {
            delete entity;
        }
    });
    mContents = before;
}

int TuningFileParser::initXmlParser() {
    if (!hasPath()) {
        return -22;
    }
    // No options: the whitespace text nodes stay in the tree, and the section
    // readers count on them.
    XmlDocumentReport documentReport(mReport.get(), mTuningFilePath);
    xmlDoc* document = nullptr;
    {
        android::Mutex::Autolock lock(libxmlLock());
        document = xmlReadFile(mTuningFilePath.c_str(), nullptr, documentReport.options());
    }
    documentReport.parsed(document);
    if (document == nullptr) {
        ALOGE("fail to call xmlReadFile,  %d", 138);
        return -22;
    }
    // The entities copy what they read, so nothing refers to an earlier document.
    mDocument.reset(document);
    mRootElement = xmlDocGetRootElement(document);
    if (mRootElement == nullptr) {
        return rootMissing();
    }
    return 0;
}

void TuningFileParser::parseTuningFile() {
    if (mRootElement != nullptr) {
        parseDocument();
    } else if (!mSource.empty()) {
        parseSource(mSource);
    }
}

bool TuningFileParser::isParsed() {
    return mContents.parsed;
}

DeviceData* TuningFileParser::getDeviceData() {
    return mDeviceData;
}

int TuningFileParser::getNumOfProfiles() {
    return mContents.numOfProfiles;
}

std::string TuningFileParser::getProfileName(int id) {
    return mContents.profileNames[id];
}

bool TuningFileParser::parseDocument() {
    // A file that cannot be loaded must leave no partly built model behind,
    // so keep what a load may change and put it back if the load fails.
    const TuningFileContents before = mContents;
    mLoadFailed = false;
    parseNode(mRootElement->children);
    if (mLoadFailed) {
        restore(before);
        return false;
    }
    reportLinks();
    return true;
}

void TuningFileParser::reportLinks() {
    if (!mReport) {
        return;
    }
    std::map<PresetType, std::vector<const void*>> presets;
    for (IeqPreset* preset : mContents.ieqPresets) {
        presets[preset->getType()].push_back(preset);
    }
    for (const auto& [type, sameType] : presets) {
        if (sameType.size() > 1) {
            mReport.duplicatePresets(sameType, type);
        }
    }
    for (Profile* profile : mContents.profiles) {
        const PresetType type = profile->getSelectedIeqPreset();
        mReport.selection(profile, type, presets.count(type) != 0);
    }
}

void TuningFileParser::parseNode(xmlNode* first) {
    for (xmlNode* node = first; node != nullptr && !mLoadFailed; node = node->next) {
        if (xml::isElement(node)) {
            parseSection(node);
        }
    }
    mContents.parsed = true;
}

void TuningFileParser::parseSection(xmlNode* element) {
    mReport.beginSection();
    const Section* section = findByName(kSectionElements, xml::nameOf(element));
    if (section == nullptr) {
        mReport.unknownElement(element, kSectionElements);
        return;
    }
    switch (*section) {
        case Section::FORMAT_VERSION:
            parseFormatVersion(element);
            break;
        case Section::TOOL_VERSION:
            parseToolVersion(element);
            break;
        case Section::GENERAL:
            parseGeneral(element);
            break;
        case Section::PRESET:
            parsePreset(element);
            break;
        case Section::PROFILE:
            parseProfile(element);
            break;
        case Section::TUNING:
            parseTuning(element);
            break;
    }
}

void TuningFileParser::parseFormatVersion(xmlNode* element) {
    mContents.formatVersion = readVersion(element, mReport);
}

void TuningFileParser::parseToolVersion(xmlNode* element) {
    mContents.toolVersion = readVersion(element, mReport);
}

}  // namespace ovela
