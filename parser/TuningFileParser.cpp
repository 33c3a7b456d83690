#define LOG_TAG "TuningFileParser"

#include "TuningFileParser.h"

#include <libxml/parser.h>
#include <libxml/tree.h>
#include <log/log.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

#include "LoadReport.h"
#include "MarkupScan.h"
#include "ReaderLog.h"
#include "SectionStream.h"
#include "TuningFileBytes.h"
#include "TuningFileVocabulary.h"
#include "XmlDocumentReport.h"
#include "XmlNodes.h"

namespace ovela {

namespace {

// libxml2 sets up its state for the whole process once, when the library is
// loaded: the dynamic linker runs this before any thread of ours parses, and
// libxml2's own first-use setup is not safe against two threads at once. The
// reader never calls xmlCleanupParser, which would reset that state under any
// other user of libxml2 in the process (the audio server has its own
// configuration loaders), so readers in several threads parse side by side.
[[maybe_unused]] const bool kLibxmlReady = (xmlInitParser(), true);

// Room for one entity of any kind, with what its alignment may waste.
constexpr size_t kEntityRoom =
    std::max({sizeof(General), sizeof(GeneralEndpoint), sizeof(Profile), sizeof(ProfileEndpoint),
              sizeof(Tuning), sizeof(DeviceTuning), sizeof(IeqPreset), sizeof(GeqPreset)}) +
    alignof(std::max_align_t);

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
        mReader.attach(report, report == nullptr ? nullptr : &mPositions);
        xml::setExpansionReport(report == nullptr ? nullptr : &reader);
    }
    ~AttachedReport() {
        mReader.attach(nullptr, nullptr);
        xml::setExpansionReport(nullptr);
    }

    // Where the elements of the document stand, for a load that reports.
    SourcePositions* positions() { return mReader ? &mPositions : nullptr; }

  private:
    ReaderReport& mReader;
    SourcePositions mPositions;
};

}  // namespace

TuningFileParser::TuningFileParser() = default;

TuningFileParser::TuningFileParser(std::string path) {
    setTuningFile(std::move(path));
}

TuningFileParser::~TuningFileParser() {
    mDocument.reset();
    mContents.forEachEntity([](auto* entity) { EntityArena::destroy(entity); });
    delete mDeviceData;
}

int TuningFileParser::rootMissing() {
    ALOGE("fail to call xmlDocGetRootElement, %d", 144);
    mReport.add(Rule::NO_ROOT, nullptr, {});
    return -19;
}

bool TuningFileParser::checkMarkup(const std::string& document) {
    const MarkupScan scan = scanMarkup(document);
    if (scan.crowdedLine != 0) {
        ALOGE("%s() an element at line %ld carries more than %zu attributes: the file is not read",
              __func__, scan.crowdedLine, kMaxAttributesPerElement);
        ALOGE("fail to call xmlReadFile,  %d", 138);
        if (mReport) {
            mReport.get()->add(Rule::ATTRIBUTE_COUNT, {scan.crowdedLine, 0, scan.crowdedLine, 0},
                               {{"limit", std::to_string(kMaxAttributesPerElement)}});
        }
        return false;
    }
    // No more entities than elements, and no more elements than openings.
    mArena.reserve(scan.openings * kEntityRoom);
    return true;
}

int TuningFileParser::setTuningFile(std::string path) {
    return setTuningFile(std::move(path), nullptr);
}

int TuningFileParser::setTuningFile(std::string path, LoadReport* report) {
    std::string document;
    if (!readTuningFile(path, &document, report)) {
        mTuningFilePath = std::move(path);
        return -22;
    }
    return setTuningDocument(std::move(path), std::move(document), report);
}

int TuningFileParser::setTuningDocument(std::string path, std::string document, LoadReport* report) {
    AttachedReport attached(mReport, report);
    mTuningFilePath = std::move(path);
    if (parseSource(document, attached.positions()) != 0) {
        return -22;
    }
    // The entities copy what they read, so nothing refers to an earlier document.
    mSource = std::move(document);
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

int TuningFileParser::parseSource(const std::string& source, SourcePositions* positions) {
    if (!checkMarkup(source)) {
        return -22;
    }
    const TuningFileContents before = mContents;
    const LoadReport::Mark mark = mReport.mark();
    // The sections are read while the document streams in; until its end
    // tells that it is well-formed, their log lines wait.
    HeldReaderLog held;
    XmlDocumentReport documentReport(mReport.get());
    mLoadFailed = false;
    bool wellFormed = false;
    bool hasRoot = false;
    {
        SectionStream stream(documentReport.options());
        stream.recordPositions(positions);
        struct Visit {
            TuningFileParser* parser;
            const SectionStream* stream;
            size_t droppedSeen;
        } visit{this, &stream, 0};
        wellFormed = stream.parse(
            source, mTuningFilePath,
            [](void* context, xmlNode* section) {
                auto* visit = static_cast<Visit*>(context);
                TuningFileParser* parser = visit->parser;
                if (parser->mLoadFailed) {
                    return;
                }
                parser->mReport.beginSection();
                const auto& dropped = visit->stream->droppedReferences();
                for (; visit->droppedSeen < dropped.size(); ++visit->droppedSeen) {
                    parser->droppedReference(dropped[visit->droppedSeen], section);
                }
                parser->parseSection(section);
            },
            &visit);
        hasRoot = stream.hasRoot();
        if (positions != nullptr && wellFormed) {
            mReport.get()->setSuppressions(stream.takeSuppressions());
        }
        if (!wellFormed) {
            mReport.discardSince(mark);
        }
        std::vector<std::pair<long, std::string>> explained;
        for (const SectionStream::DroppedReference& dropped : stream.droppedReferences()) {
            explained.emplace_back(dropped.line, dropped.entity);
        }
        documentReport.parsed(wellFormed ? stream.document() : nullptr, explained);
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
    reportPresetLinks();
    return 0;
}

void TuningFileParser::restore(const TuningFileContents& before) {
    std::set<const void*> kept;
    before.forEachEntity([&](const void* entity) { kept.insert(entity); });
    mContents.forEachEntity([&](auto* entity) {
        if (kept.count(entity) == 0) {
            EntityArena::destroy(entity);
        }
    });
    mContents = before;
}

int TuningFileParser::initXmlParser() {
    std::string document;
    if (!readTuningFile(mTuningFilePath, &document, mReport.get()) || !checkMarkup(document)) {
        return -22;
    }
    // No options that change the tree: the whitespace text nodes stay in it,
    // and the section readers count on them.
    XmlDocumentReport documentReport(mReport.get());
    xmlDoc* parsed = xmlReadMemory(document.data(), static_cast<int>(document.size()),
                                   mTuningFilePath.c_str(), nullptr, documentReport.options());
    documentReport.parsed(parsed);
    if (parsed == nullptr) {
        ALOGE("fail to call xmlReadFile,  %d", 138);
        return -22;
    }
    // The entities copy what they read, so nothing refers to an earlier document.
    mDocument.reset(parsed);
    mRootElement = xmlDocGetRootElement(parsed);
    if (mRootElement == nullptr) {
        return rootMissing();
    }
    return 0;
}

void TuningFileParser::parseTuningFile() {
    if (mRootElement != nullptr) {
        parseDocument();
    } else if (!mSource.empty()) {
        parseSource(mSource, nullptr);
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
    reportPresetLinks();
    return true;
}

void TuningFileParser::reportPresetLinks() {
    if (!mReport) {
        return;
    }
    std::map<PresetType, std::vector<const void*>> byType;
    for (IeqPreset* preset : mContents.ieqPresets) {
        byType[preset->getType()].push_back(preset);
    }
    for (const auto& [type, sameType] : byType) {
        if (sameType.size() > 1) {
            mReport.duplicatePresets(sameType, type);
        }
    }
    std::map<const void*, PresetType> selections;
    for (Profile* profile : mContents.profiles) {
        selections[profile] = profile->getSelectedIeqPreset();
    }
    mReport.presetLinks(selections);
}

void TuningFileParser::parseNode(xmlNode* first) {
    for (xmlNode* node = first; node != nullptr && !mLoadFailed; node = node->next) {
        if (xml::isElement(node)) {
            mReport.beginSection();
            parseSection(node);
        }
    }
    mContents.parsed = true;
}

void TuningFileParser::droppedReference(const SectionStream::DroppedReference& dropped,
                                        const xmlNode* section) {
    const xmlNode* node = dropped.element;
    while (node != nullptr && node != section) {
        node = node->parent;
    }
    // The root's own attributes are not read.
    if (node == nullptr) {
        return;
    }
    const std::string element = xml::toString(dropped.element->name);
    READER_LOGE("%s() %s of <%s> refers to &%s;, which the file does not declare: read without it",
                __func__, dropped.attribute.c_str(), element.c_str(), dropped.entity.c_str());
    mReport.droppedReference(dropped.element, dropped.attribute, dropped.entity);
}

void TuningFileParser::parseSection(xmlNode* element) {
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
