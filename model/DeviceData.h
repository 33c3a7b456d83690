#ifndef OVELA_DEVICE_DATA_H
#define OVELA_DEVICE_DATA_H

#include <set>
#include <string>

#include "DeviceTuning.h"
#include "General.h"
#include "GeneralEndpoint.h"
#include "GeqPreset.h"
#include "IeqPreset.h"
#include "Profile.h"
#include "ProfileEndpoint.h"
#include "Tuning.h"

namespace ovela {

// The model of one tuning file. It only refers to the entities: the reader
// that built them owns and deletes them, so a DeviceData must not outlive its
// reader. The sets are ordered by address; nothing may rely on their order.
class DeviceData {
  public:
    virtual ~DeviceData();
    virtual std::string getFormatVersion();
    virtual std::string getToolVersion();
    virtual std::set<IeqPreset*>& getIeqPresets();
    virtual std::set<GeqPreset*>& getGeqPresets();
    virtual std::set<Profile*>& getProfiles();
    virtual std::set<ProfileEndpoint*>& getProfileEndpoints();
    virtual std::set<Tuning*>& getTunings();
    virtual std::set<DeviceTuning*>& getDeviceTunings();
    virtual General* getGeneral();
    virtual std::set<GeneralEndpoint*>& getGeneralEndpoints();
    virtual void setFormatVersion(std::string version);
    virtual void setToolVersion(std::string version);
    virtual void setIeqPresets(std::set<IeqPreset*>& presets);
    virtual void setGeqPresets(std::set<GeqPreset*>& presets);
    virtual void setProfiles(std::set<Profile*>& profiles);
    virtual void setProfileEndPoints(std::set<ProfileEndpoint*>& endpoints);
    virtual void setTunings(std::set<Tuning*>& tunings);
    virtual void setDeviceTunings(std::set<DeviceTuning*>& deviceTunings);
    virtual void setGeneral(General* general);
    virtual void setGeneralEndPoints(std::set<GeneralEndpoint*>& endpoints);
    virtual std::string getSignature();
    virtual void setSignature(std::string signature);
    // Makes every profile whose ieq_enable is 0 select PRESET_TYPE_OFF. A
    // profile without an ieq_enable value counts as switched on.
    virtual void validateData();

  private:
    std::string mFormatVersion;
    std::string mToolVersion;
    std::string mSignature;
    std::set<IeqPreset*> mIeqPresets;
    std::set<GeqPreset*> mGeqPresets;
    std::set<Profile*> mProfiles;
    std::set<ProfileEndpoint*> mProfileEndpoints;
    std::set<Tuning*> mTunings;
    std::set<DeviceTuning*> mDeviceTunings;
    General* mGeneral = nullptr;
    std::set<GeneralEndpoint*> mGeneralEndpoints;
};

}  // namespace ovela

#endif  // OVELA_DEVICE_DATA_H
