#ifndef OVELA_TUNING_FILE_PARSER_H
#define OVELA_TUNING_FILE_PARSER_H

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "DeviceData.h"
#include "EntityArena.h"
#include "PresetType.h"
#include "ReaderReport.h"
#include "SectionStream.h"
#include "XmlNodes.h"

namespace ovela {

class HeldLists;
class LoadReport;
struct ElementValue;

// Everything that the reader collects from tuning files: the reader owns
// every entity in it. A load that fails puts back the copy it took before.
struct TuningFileContents {
    bool parsed = false;
    int numOfProfiles = 0;
    std::map<int, std::string> profileNames;
    std::string formatVersion;
    std::string toolVersion;
    std::set<IeqPreset*> ieqPresets;
    std::set<GeqPreset*> geqPresets;
    std::set<Profile*> profiles;
    std::set<ProfileEndpoint*> profileEndpoints;
    std::set<Tuning*> tunings;
    std::set<DeviceTuning*> deviceTunings;
    General* general = nullptr;
    std::set<GeneralEndpoint*> generalEndpoints;
    // General sections replaced by a later one: no longer handed on, but
    // still owned until the reader goes.
    std::vector<General*> replacedGenerals;

    // Calls `visit` with every entity owned here, of every kind.
    template <typename Visit>
    void forEachEntity(Visit visit) const {
        for (IeqPreset* entity : ieqPresets) visit(entity);
        for (GeqPreset* entity : geqPresets) visit(entity);
        for (Profile* entity : profiles) visit(entity);
        for (ProfileEndpoint* entity : profileEndpoints) visit(entity);
        for (Tuning* entity : tunings) visit(entity);
        for (DeviceTuning* entity : deviceTunings) visit(entity);
        if (general != nullptr) visit(general);
        for (General* entity : replacedGenerals) visit(entity);
        for (GeneralEndpoint* entity : generalEndpoints) visit(entity);
    }
};

// Reads one XML tuning file into the model. The reader owns every entity it
// creates, the DeviceData and the document: a DeviceData from getDeviceData()
// and everything reachable from it live exactly as long as the reader.
class TuningFileParser {
  public:
    TuningFileParser();
    // Loads `path` at once; check getDeviceData() for null to see a failure.
    explicit TuningFileParser(std::string path);
    virtual ~TuningFileParser();

    // Loads and parses the file and builds a new DeviceData: 0 on success,
    // -22 on any failure, in which case the reader keeps what it held before.
    int setTuningFile(std::string path);
    // The same, telling `report` what the reader skips, changes or drops.
    int setTuningFile(std::string path, LoadReport* report);
    // The same for a document already read (readTuningFile), which `path`
    // names in messages.
    int setTuningDocument(std::string path, std::string document, LoadReport* report);
    int initXmlParser();
    void parseTuningFile();
    bool isParsed();
    DeviceData* getDeviceData();
    int getNumOfProfiles();
    std::string getProfileName(int id);

    void parseNode(xmlNode* first);
    void parseFormatVersion(xmlNode* element);
    void parseToolVersion(xmlNode* element);
    static std::string xmlChar2String(const xmlChar* text);
    static int getNodeValue(xmlNode* element);
    static std::vector<int> parseDataRow(xmlNode* element);
    static std::vector<int> parseMixMatrix(std::string name, xmlNode* parent);
    // The child nodes of `parent` that the reader reads: from the second on,
    // as indented files put a whitespace text node first. A first child that
    // is an element is skipped, and `report` learns of it.
    static xmlNode* childrenOf(const xmlNode* parent, ReaderReport& report);

    void parseGeneral(xmlNode* general);
    void parseGeneralEndpoint(xmlNode* endpointType);
    void parsePreset(xmlNode* preset);
    void parseProfile(xmlNode* profile);
    void parseProfileEndpoint(xmlNode* endpointType, int profileId);
    void parseTuning(xmlNode* tuning);
    void parseDeviceTuning(xmlNode* deviceId, std::string tuningName);

    // Preset type named by a profile's "include" element; unknown names are
    // logged and read as PRESET_TYPE_OFF.
    static PresetType getIeqPresetTypeByName(std::string name);

  private:
    // Parses the held root element's children. A load that fails part way
    // takes back everything it added, so the reader holds what it held
    // before; false then.
    bool parseDocument();
    // Parses a document from its bytes, section by section as they stream
    // in, with the same taking back; 0, -22 or -19.
    // `positions`, when given, takes the places of the document's elements.
    int parseSource(const std::string& source, SourcePositions* positions);
    // Whether libxml2 may parse the document: false, logged and reported,
    // when an element of it carries too many attributes. Makes room for the
    // document's entities.
    bool checkMarkup(const std::string& document);
    // Logs and reports a document without a root element; returns -19.
    int rootMissing();
    // Deletes what was added since `before` and puts it back.
    void restore(const TuningFileContents& before);
    // Reads one child element of the root; call ReaderReport::beginSection
    // first.
    void parseSection(xmlNode* element);
    // Logs and reports an entity reference that libxml2 left out of an
    // attribute of an element in `section`.
    void droppedReference(const SectionStream::DroppedReference& dropped, const xmlNode* section);
    // What a parse that reports adds at the end: how the profiles' preset
    // references meet the IEQ presets of the file.
    void reportPresetLinks();

    // Tells the report how the reader took the settings and the preset
    // reference of `profile`, and what it left alone.
    void reportProfileShape(const Profile* entity, xmlNode* profile, const xmlNode* container,
                            const xmlNode* include, const std::string& presetName,
                            PresetType readAs);
    // The value readers of the sections, which also tell the report what
    // they read.
    int readSetting(xmlNode* element);
    // The row in the element's first attribute; `emptyAs` says what an empty
    // row becomes.
    std::vector<int> readRow(xmlNode* element, const char* emptyAs);
    // The endpoint that an "endpoint_type" section of a profile or of the
    // general settings names by its first attribute, else other.
    Endpoint readEndpointType(xmlNode* endpointType);
    // The rows of a matrix element, flattened.
    std::vector<int> readMatrix(const xmlNode* matrix);
    // The child node at `position` (2 or 4) of `parent`, which the reader
    // takes as the element `name` by its position; the report learns when
    // it is not one, and `loss` says what the file loses then.
    xmlNode* takeChild(const xmlNode* parent, int position, const char* name,
                       const std::string& loss);
    // Stores `list` under `parameter` of `entity`, read from `node`.
    void store(ParameterValues& entity, Parameter parameter, std::vector<int> list,
               const xmlNode* node, std::string_view name,
               std::string_view attribute = std::string_view());
    void storeElementValue(ParameterValues& entity, xmlNode* element, const ElementValue& value);
    void readDataElement(Tuning& tuning, xmlNode* element, HeldLists& held);
    void readOutputMode(Tuning& tuning, xmlNode* outputMode);

    // Holds the entities of mContents: it goes last.
    EntityArena mArena;
    std::string mTuningFilePath;
    TuningFileContents mContents;
    DeviceData* mDeviceData = nullptr;
    // The document of initXmlParser, read whole.
    xml::Document mDocument;
    xmlNode* mRootElement = nullptr;
    // The bytes of the document of setTuningFile, which streams them in: kept
    // so that parseTuningFile reads the same document again.
    std::string mSource;
    // Set by a section reader that finds the file unloadable.
    bool mLoadFailed = false;
    ReaderReport mReport;
};

}  // namespace ovela

#endif  // OVELA_TUNING_FILE_PARSER_H
