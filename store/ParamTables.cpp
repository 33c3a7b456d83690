#include "ParamTables.h"

#include <cstdlib>

namespace ovela {

namespace {

// Stores `stored` under `key`, freeing the array that it replaces.
template <typename Key, typename Stored>
void replace(android::DefaultKeyedVector<Key, Stored>& table, const Key& key, const Stored& stored) {
    free(table.valueFor(key).words);
    table.add(key, stored);
}

template <typename Key, typename Stored>
void freeAll(android::DefaultKeyedVector<Key, Stored>& table) {
    for (size_t i = 0; i < table.size(); ++i) {
        free(table.valueAt(i).words);
    }
    table.clear();
}

}  // namespace

ParamTables::ParamTables() : mProfiles(StoredArray()), mTunings(StoredArray()) {}

ParamTables::~ParamTables() {
    clear();
}

void ParamTables::addProfile(OvlProfileId profile, int32_t* array, uint32_t size) {
    replace(mProfiles, profile, StoredArray{array, size, ENDPOINT_SPEAKER});
}

void ParamTables::addTuning(const std::string& name, int32_t* array, uint32_t size,
                            Endpoint endpoint) {
    replace(mTunings, name, StoredArray{array, size, endpoint});
}

void ParamTables::takeFrom(ParamTables& other) {
    for (size_t i = 0; i < other.mProfiles.size(); ++i) {
        replace(mProfiles, other.mProfiles.keyAt(i), other.mProfiles.valueAt(i));
    }
    for (size_t i = 0; i < other.mTunings.size(); ++i) {
        replace(mTunings, other.mTunings.keyAt(i), other.mTunings.valueAt(i));
    }
    // The arrays belong to these tables now.
    other.mProfiles.clear();
    other.mTunings.clear();
    // The tables stay as they are for the life of the store: no room to spare
    // (libutils keeps at least one more element than the table holds).
    mTunings.setCapacity(mTunings.size() + 1);
}

const int32_t* ParamTables::getProfileArray(OvlProfileId profile) const {
    return mProfiles.valueFor(profile).words;
}

uint32_t ParamTables::getProfileSize(OvlProfileId profile) const {
    return mProfiles.valueFor(profile).size;
}

const int32_t* ParamTables::getTuningArray(const std::string& name) const {
    return mTunings.valueFor(name).words;
}

uint32_t ParamTables::getTuningSize(const std::string& name) const {
    return mTunings.valueFor(name).size;
}

Endpoint ParamTables::getTuningEndpoint(const std::string& name) const {
    return mTunings.valueFor(name).endpoint;
}

size_t ParamTables::getTuningCount() const {
    return mTunings.size();
}

const std::string& ParamTables::getTuningNameAt(size_t index) const {
    return mTunings.keyAt(index);
}

void ParamTables::clear() {
    freeAll(mProfiles);
    freeAll(mTunings);
}

}  // namespace ovela
