#define LOG_TAG "OvlProfileParamArray"

#include "ProfileParamArray.h"

#include <log/log.h>

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

#include "PackedEntry.h"
#include "ParamCodes.h"
#include "ParamTables.h"
#include "ParameterValues.h"
#include "ProfileArrayLoader.h"
#include "SpeakerData.h"
#include "TuningConversion.h"
#include "TuningFileVocabulary.h"

// A product build may name another file with -DOVELA_DEFAULT_TUNING_FILE.
#ifndef OVELA_DEFAULT_TUNING_FILE
#define OVELA_DEFAULT_TUNING_FILE "/vendor/etc/ovela/qrn-default.xml"
#endif

ANDROID_SINGLETON_STATIC_INSTANCE(ovela::ProfileParamArray)

namespace ovela {

namespace {

constexpr char kDefaultTuningFile[] = OVELA_DEFAULT_TUNING_FILE;
// An endpoint without tunings lists the default one; the byte after its name
// is reserved but left unwritten.
constexpr const char* kNoTunings = kDefaultTuningName;
constexpr uint32_t kNoTuningsLength = sizeof(kDefaultTuningName);

std::vector<std::string> tuningsOf(const ParamTables& tables, Endpoint endpoint) {
    std::vector<std::string> names;
    for (size_t i = 0; i < tables.getTuningCount(); ++i) {
        const std::string& name = tables.getTuningNameAt(i);
        if (tables.getTuningEndpoint(name) == endpoint) {
            names.push_back(name);
        }
    }
    return names;
}

void copyArray(const int32_t* array, uint32_t size, void* out) {
    if (size != 0) {
        memcpy(out, array, size);
    }
}

}  // namespace

ProfileParamArray::ProfileParamArray() : ProfileParamArray(kDefaultTuningFile) {}

ProfileParamArray::ProfileParamArray(std::string path)
    : ProfileParamArray(std::move(path), nullptr) {}

ProfileParamArray::ProfileParamArray(std::string path, LoadReport* report)
    : mTables(std::make_unique<ParamTables>()), mSpeaker(std::make_unique<SpeakerData>()) {
    loadXMLFile(std::move(path), report);
}

ProfileParamArray::~ProfileParamArray() = default;

void ProfileParamArray::loadXMLFile(std::string path) {
    loadXMLFile(std::move(path), nullptr);
}

void ProfileParamArray::loadXMLFile(std::string path, LoadReport* report) {
    ALOGD("%s", __func__);
    android::Mutex::Autolock lock(mLock);
    // Everything is built aside and taken over only when the whole file
    // loaded, so that a failed load leaves the store as it was.
    ParamTables tables;
    SpeakerData speaker = *mSpeaker;
    if (!loadProfileArrays(path, tables, speaker, report)) {
        return;
    }
    mTables->takeFrom(tables);
    *mSpeaker = speaker;
}

int ProfileParamArray::composeParams(int* out, int device, ParameterValues* values, int& count) {
    size_t written = 0;
    for (const auto& [param, list] : values->values) {
        if (kParameterCodes[param] != 0 && !list.empty()) {
            written += writeEntry(out + written, device, kParameterCodes[param], {list});
            count++;
        }
    }
    return static_cast<int>(written);
}

int ProfileParamArray::composeParams(int* out, int room, int device, ParameterValues* values,
                                     int& count) {
    size_t needed = 0;
    for (const auto& [param, list] : values->values) {
        if (kParameterCodes[param] != 0 && !list.empty()) {
            needed += kEntryHeaderWords + list.size();
        }
    }
    if (room < 0 || needed > static_cast<size_t>(room)) {
        return -1;
    }
    return composeParams(out, device, values, count);
}

void ProfileParamArray::convertTuning(Tuning* tuning, int& counter) {
    TuningConversion(*mTables, *mSpeaker, nullptr).convertTuning(tuning, counter);
}

void ProfileParamArray::setCommonSpeakerParams(Tuning* tuning) {
    TuningConversion(*mTables, *mSpeaker, nullptr).setCommonSpeakerParams(tuning);
}

int ProfileParamArray::getProfileParams(OvlProfileId profile, void* out) {
    ALOGD("%s(profile = %d)", __func__, profile);
    android::Mutex::Autolock lock(mLock);
    if (out == nullptr) {
        return -22;
    }
    copyArray(mTables->getProfileArray(profile), mTables->getProfileSize(profile), out);
    return 0;
}

uint32_t ProfileParamArray::getProfileParamsSize(OvlProfileId profile) {
    android::Mutex::Autolock lock(mLock);
    return mTables->getProfileSize(profile);
}

int ProfileParamArray::getTuningParams(std::string tuning, void* out) {
    ALOGD("%s(tuning = %s)", __func__, tuning.c_str());
    android::Mutex::Autolock lock(mLock);
    if (out == nullptr) {
        return -22;
    }
    copyArray(mTables->getTuningArray(tuning), mTables->getTuningSize(tuning), out);
    return 0;
}

uint32_t ProfileParamArray::getTuningParamsSize(std::string tuning) {
    android::Mutex::Autolock lock(mLock);
    return mTables->getTuningSize(tuning);
}

uint32_t ProfileParamArray::copyProfileParams(OvlProfileId profile, void* out, uint32_t capacity) {
    ALOGD("%s(profile = %d)", "getProfileParams", profile);
    android::Mutex::Autolock lock(mLock);
    uint32_t size = mTables->getProfileSize(profile);
    if (size <= capacity) {
        copyArray(mTables->getProfileArray(profile), size, out);
    }
    return size;
}

uint32_t ProfileParamArray::copyTuningParams(const std::string& tuning, void* out,
                                             uint32_t capacity) {
    ALOGD("%s(tuning = %s)", "getTuningParams", tuning.c_str());
    android::Mutex::Autolock lock(mLock);
    uint32_t size = mTables->getTuningSize(tuning);
    if (size <= capacity) {
        copyArray(mTables->getTuningArray(tuning), size, out);
    }
    return size;
}

uint32_t ProfileParamArray::getAvailableTuningDevicesLen(Endpoint endpoint) {
    android::Mutex::Autolock lock(mLock);
    std::vector<std::string> names = tuningsOf(*mTables, endpoint);
    if (names.empty()) {
        return kNoTuningsLength;
    }
    uint32_t length = 0;
    for (const std::string& name : names) {
        ALOGD("%s, tuning = %s, length = %zu", __func__, name.c_str(), name.size());
        length += static_cast<uint32_t>(name.size()) + 1;
    }
    return length;
}

int ProfileParamArray::getAvailableTuningDevices(Endpoint endpoint, void* buf, int len) {
    android::Mutex::Autolock lock(mLock);
    if (buf == nullptr) {
        return -22;
    }
    std::vector<std::string> names = tuningsOf(*mTables, endpoint);
    std::string list;
    if (names.empty()) {
        list = kNoTunings;
    } else {
        for (const std::string& name : names) {
            list += name;
            list += ' ';
        }
        list.back() = '\0';
    }
    size_t room = len > 0 ? static_cast<size_t>(len) : 0;
    memcpy(buf, list.data(), std::min(list.size(), room));
    return 0;
}

}  // namespace ovela
