#include "DeviceData.h"

#include <utility>

namespace ovela {

DeviceData::~DeviceData() = default;

std::string DeviceData::getFormatVersion() {
    return mFormatVersion;
}

std::string DeviceData::getToolVersion() {
    return mToolVersion;
}

std::set<IeqPreset*>& DeviceData::getIeqPresets() {
    return mIeqPresets;
}

std::set<GeqPreset*>& DeviceData::getGeqPresets() {
    return mGeqPresets;
}

std::set<Profile*>& DeviceData::getProfiles() {
    return mProfiles;
}

std::set<ProfileEndpoint*>& DeviceData::getProfileEndpoints() {
    return mProfileEndpoints;
}

std::set<Tuning*>& DeviceData::getTunings() {
    return mTunings;
}

std::set<DeviceTuning*>& DeviceData::getDeviceTunings() {
    return mDeviceTunings;
}

General* DeviceData::getGeneral() {
    return mGeneral;
}

std::set<GeneralEndpoint*>& DeviceData::getGeneralEndpoints() {
    return mGeneralEndpoints;
}

void DeviceData::setFormatVersion(std::string version) {
    mFormatVersion = std::move(version);
}

void DeviceData::setToolVersion(std::string version) {
    mToolVersion = std::move(version);
}

void DeviceData::setIeqPresets(std::set<IeqPreset*>& presets) {
    mIeqPresets = presets;
}

void DeviceData::setGeqPresets(std::set<GeqPreset*>& presets) {
    mGeqPresets = presets;
}

void DeviceData::setProfiles(std::set<Profile*>& profiles) {
    mProfiles = profiles;
}

void DeviceData::setProfileEndPoints(std::set<ProfileEndpoint*>& endpoints) {
    mProfileEndpoints = endpoints;
}

void DeviceData::setTunings(std::set<Tuning*>& tunings) {
    mTunings = tunings;
}

void DeviceData::setDeviceTunings(std::set<DeviceTuning*>& deviceTunings) {
    mDeviceTunings = deviceTunings;
}

void DeviceData::setGeneral(General* general) {
    mGeneral = general;
}

void DeviceData::setGeneralEndPoints(std::set<GeneralEndpoint*>& endpoints) {
    mGeneralEndpoints = endpoints;
}

std::string DeviceData::getSignature() {
    return mSignature;
}

void DeviceData::setSignature(std::string signature) {
    mSignature = std::move(signature);
}

void DeviceData::validateData() {
    for (Profile* profile : mProfiles) {
        auto ieqEnable = profile->values.find(IEQ_ENABLE);
        if (ieqEnable == profile->values.end() || ieqEnable->second.empty()) {
            continue;
        }
        if (ieqEnable->second.front() == 0) {
            profile->setSelectedIeqPreset(PRESET_TYPE_OFF);
        }
    }
}

}  // namespace ovela
