#ifndef OVELA_TUNING_FILE_PARSER_H
#define OVELA_TUNING_FILE_PARSER_H

#include <map>
#include <set>
#include <string>
#include <vector>

#include "DeviceData.h"
#include "PresetType.h"

// libxml2 types, declared as libxml2 itself does so that users of the reader
// need not see libxml2's headers.
typedef unsigned char xmlChar;
typedef struct _xmlNode xmlNode;
typedef struct _xmlDoc xmlDoc;

namespace ovela {

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

    void parseGeneral(xmlNode* general);
    void parseGeneralEndpoint(xmlNode* endpointType);
    static std::vector<int> parseMixMatrix(std::string name, xmlNode* parent);
    void parsePreset(xmlNode* preset);
    void parseDeviceTuning(xmlNode* deviceId, std::string tuningName);
    void parseProfile(xmlNode* profile);
    void parseProfileEndpoint(xmlNode* endpointType, int profileId);
    void parseTuning(xmlNode* tuning);

    // Preset type named by a profile's "include" element; unknown names are
    // logged and read as PRESET_TYPE_OFF.
    static PresetType getIeqPresetTypeByName(std::string name);

  private:
    // Parses the held root element's children. A load that fails part way
    // takes back everything it added, so the reader holds what it held
    // before; false then.
    bool parseDocument();

    std::string mTuningFilePath;
    bool mParsed = false;
    int mNumOfProfiles = 0;
    std::map<int, std::string> mProfileNames;
    DeviceData* mDeviceData = nullptr;
    std::string mFormatVersion;
    std::string mToolVersion;
    std::set<IeqPreset*> mIeqPresets;
    std::set<GeqPreset*> mGeqPresets;
    std::set<Profile*> mProfiles;
    std::set<ProfileEndpoint*> mProfileEndpoints;
    std::set<Tuning*> mTunings;
    std::set<DeviceTuning*> mDeviceTunings;
    General* mGeneral = nullptr;
    std::set<GeneralEndpoint*> mGeneralEndpoints;
    xmlDoc* mDocument = nullptr;
    xmlNode* mRootElement = nullptr;
    // General sections replaced by a later one: no longer handed on, but
    // still owned until the reader goes.
    std::vector<General*> mReplacedGenerals;
    // Set by a section reader that finds the file unloadable.
    bool mLoadFailed = false;
};

}  // namespace ovela

#endif  // OVELA_TUNING_FILE_PARSER_H
