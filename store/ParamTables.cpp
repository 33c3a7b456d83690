#include "ParamTables.h"

#include <cstdlib>

namespace ovela {

namespace {

// Stores `array` under `key`, freeing the array that it replaces.
template <typename Key>
void replaceArray(android::DefaultKeyedVector<Key, int32_t*>& table, const Key& key,
                  int32_t* array) {
    free(table.valueFor(key));
    table.add(key, array);
}

}  // namespace

ParamTables::ParamTables()
    : mProfileArrays(nullptr),
      mProfileSizes(0),
      mTuningArrays(nullptr),
      mTuningSizes(0),
      mTuningEndpoints(ENDPOINT_SPEAKER) {}

ParamTables::~ParamTables() {
    clear();
}

void ParamTables::addProfile(OvlProfileId profile, int32_t* array, uint32_t size) {
    replaceArray(mProfileArrays, profile, array);
    mProfileSizes.add(profile, size);
}

void ParamTables::addTuning(const std::string& name, int32_t* array, uint32_t size,
                            Endpoint endpoint) {
    replaceArray(mTuningArrays, name, array);
    mTuningSizes.add(name, size);
    mTuningEndpoints.add(name, endpoint);
}

void ParamTables::takeFrom(ParamTables& other) {
    for (size_t i = 0; i < other.mProfileArrays.size(); ++i) {
        OvlProfileId profile = other.mProfileArrays.keyAt(i);
        addProfile(profile, other.mProfileArrays.valueAt(i), other.mProfileSizes.valueFor(profile));
    }
    for (size_t i = 0; i < other.mTuningArrays.size(); ++i) {
        const std::string& name = other.mTuningArrays.keyAt(i);
        addTuning(name, other.mTuningArrays.valueAt(i), other.mTuningSizes.valueFor(name),
                  other.mTuningEndpoints.valueFor(name));
    }
    // The arrays belong to these tables now.
    other.mProfileArrays.clear();
    other.mTuningArrays.clear();
    other.clear();
}

const int32_t* ParamTables::getProfileArray(OvlProfileId profile) const {
    return mProfileArrays.valueFor(profile);
}

uint32_t ParamTables::getProfileSize(OvlProfileId profile) const {
    return mProfileSizes.valueFor(profile);
}

const int32_t* ParamTables::getTuningArray(const std::string& name) const {
    return mTuningArrays.valueFor(name);
}

uint32_t ParamTables::getTuningSize(const std::string& name) const {
    return mTuningSizes.valueFor(name);
}

Endpoint ParamTables::getTuningEndpoint(const std::string& name) const {
    return mTuningEndpoints.valueFor(name);
}

size_t ParamTables::getTuningCount() const {
    return mTuningArrays.size();
}

const std::string& ParamTables::getTuningNameAt(size_t index) const {
    return mTuningArrays.keyAt(index);
}

void ParamTables::clear() {
    for (size_t i = 0; i < mProfileArrays.size(); ++i) {
        free(mProfileArrays.valueAt(i));
    }
    for (size_t i = 0; i < mTuningArrays.size(); ++i) {
        free(mTuningArrays.valueAt(i));
    }
    mProfileArrays.clear();
    mProfileSizes.clear();
    mTuningArrays.clear();
    mTuningSizes.clear();
    mTuningEndpoints.clear();
}

}  // namespace ovela
