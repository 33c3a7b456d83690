#include <libxml/tree.h>

#include "TuningFileParser.h"

namespace ovela {

namespace {

// Deletes the entities that a failed load added to `now` and puts back the
// set as it was.
template <typename Entity>
void takeBack(std::set<Entity*>& now, const std::set<Entity*>& before) {
    for (Entity* entity : now) {
        if (before.count(entity) == 0) {
            delete entity;
        }
    }
    now = before;
}

}  // namespace

bool TuningFileParser::parseDocument() {
    // A file that cannot be loaded must leave no partly built model behind,
    // so keep what a load may change and restore it if the load fails.
    const bool parsed = mParsed;
    const int numOfProfiles = mNumOfProfiles;
    const std::map<int, std::string> profileNames = mProfileNames;
    const std::string formatVersion = mFormatVersion;
    const std::string toolVersion = mToolVersion;
    const std::set<IeqPreset*> ieqPresets = mIeqPresets;
    const std::set<GeqPreset*> geqPresets = mGeqPresets;
    const std::set<Profile*> profiles = mProfiles;
    const std::set<ProfileEndpoint*> profileEndpoints = mProfileEndpoints;
    const std::set<Tuning*> tunings = mTunings;
    const std::set<DeviceTuning*> deviceTunings = mDeviceTunings;
    const std::set<GeneralEndpoint*> generalEndpoints = mGeneralEndpoints;
    General* const general = mGeneral;
    const size_t replacedGenerals = mReplacedGenerals.size();

    parseNode(mRootElement->children);
    if (!mLoadFailed) {
        return true;
    }

    takeBack(mIeqPresets, ieqPresets);
    takeBack(mGeqPresets, geqPresets);
    takeBack(mProfiles, profiles);
    takeBack(mProfileEndpoints, profileEndpoints);
    takeBack(mTunings, tunings);
    takeBack(mDeviceTunings, deviceTunings);
    takeBack(mGeneralEndpoints, generalEndpoints);
    // Generals made by this load are the current one and those it replaced,
    // all but the one held before the load.
    for (auto it = mReplacedGenerals.begin() + replacedGenerals; it != mReplacedGenerals.end();
         ++it) {
        if (*it != general) {
            delete *it;
        }
    }
    mReplacedGenerals.resize(replacedGenerals);
    if (mGeneral != general) {
        delete mGeneral;
    }
    mGeneral = general;
    mParsed = parsed;
    mNumOfProfiles = numOfProfiles;
    mProfileNames = profileNames;
    mFormatVersion = formatVersion;
    mToolVersion = toolVersion;
    return false;
}

}  // namespace ovela
