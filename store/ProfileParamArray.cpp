#define LOG_TAG "OvlProfileParamArray"

#include "ProfileParamArray.h"

#include <log/log.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <utility>
#include <vector>

#include "ParamTables.h"
#include "ProfileArrayLoader.h"
#include "ReportedLoads.h"
#include "SpeakerData.h"
#include "ToldSizes.h"
#include "TuningFileBytes.h"
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

// Tells one store from another, also from one that lived at the same address.
std::atomic<uint64_t> gNextSerial{1};

}  // namespace

// The arrays that the store holds, and what its loads learn about the speaker.
struct ProfileParamArray::State {
    ParamTables tables;
    SpeakerData speaker;
};

ProfileParamArray::ProfileParamArray() : ProfileParamArray(kDefaultTuningFile) {}

ProfileParamArray::ProfileParamArray(std::string path)
    : mState(std::make_unique<State>()), mSerial(gNextSerial++) {
    loadXMLFile(std::move(path));
}

ProfileParamArray::ProfileParamArray(const char* data, size_t size, std::string name)
    : mState(std::make_unique<State>()), mSerial(gNextSerial++) {
    loadXMLText(data, size, std::move(name));
}

ProfileParamArray::~ProfileParamArray() = default;

void ProfileParamArray::loadXMLFile(std::string path) {
    ALOGD("%s", __func__);
    // The file is read before any lock is taken, so a slow or hostile path
    // holds up nobody but this caller.
    std::string document;
    if (!readTuningFile(path, &document, ReportedLoads::current())) {
        ALOGE("XML parses error!!");
        return;
    }
    loadDocument(path, std::move(document));
}

void ProfileParamArray::loadXMLText(const char* data, size_t size, std::string name) {
    ALOGD("%s", __func__);
    std::string document;
    if (!takeTuningText(name, data, size, &document, ReportedLoads::current())) {
        ALOGE("XML parses error!!");
        return;
    }
    loadDocument(name, std::move(document));
}

void ProfileParamArray::loadDocument(const std::string& name, std::string document) {
    // Loads take turns; queries go on while one parses and composes, and
    // wait only for the swap. Everything is built aside and taken over only
    // when the whole file loaded, so that a failed load leaves the store as
    // it was. The speaker data is the loads' alone.
    android::Mutex::Autolock loading(mLoadLock);
    ParamTables tables;
    SpeakerData speaker = mState->speaker;
    if (!loadProfileArrays(name, std::move(document), tables, speaker, ReportedLoads::current())) {
        return;
    }
    mState->speaker = speaker;
    android::Mutex::Autolock lock(mLock);
    mState->tables.takeFrom(tables);
}

int ProfileParamArray::getProfileParams(OvlProfileId profile, void* out) {
    ALOGD("%s(profile = %d)", __func__, profile);
    const uint32_t told = ToldSizes::ofThisThread().sizeOf(mSerial, profile);
    android::Mutex::Autolock lock(mLock);
    if (out == nullptr) {
        return -22;
    }
    const uint32_t size = mState->tables.getProfileSize(profile);
    if (size > told) {
        ALOGE(
            "%s() profile %d takes %u bytes now, more than the %u that getProfileParamsSize() "
            "told this thread: nothing copied",
            __func__, profile, size, told);
        return -22;
    }
    copyArray(mState->tables.getProfileArray(profile), size, out);
    return 0;
}

uint32_t ProfileParamArray::getProfileParamsSize(OvlProfileId profile) {
    uint32_t size = 0;
    {
        android::Mutex::Autolock lock(mLock);
        size = mState->tables.getProfileSize(profile);
    }
    ToldSizes::ofThisThread().tell(mSerial, profile, size);
    return size;
}

int ProfileParamArray::getTuningParams(std::string tuning, void* out) {
    ALOGD("%s(tuning = %s)", __func__, tuning.c_str());
    const uint32_t told = ToldSizes::ofThisThread().sizeOf(mSerial, tuning);
    android::Mutex::Autolock lock(mLock);
    if (out == nullptr) {
        return -22;
    }
    const uint32_t size = mState->tables.getTuningSize(tuning);
    if (size > told) {
        ALOGE(
            "%s() tuning %s takes %u bytes now, more than the %u that getTuningParamsSize() "
            "told this thread: nothing copied",
            __func__, tuning.c_str(), size, told);
        return -22;
    }
    copyArray(mState->tables.getTuningArray(tuning), size, out);
    return 0;
}

uint32_t ProfileParamArray::getTuningParamsSize(std::string tuning) {
    uint32_t size = 0;
    {
        android::Mutex::Autolock lock(mLock);
        size = mState->tables.getTuningSize(tuning);
    }
    ToldSizes::ofThisThread().tell(mSerial, tuning, size);
    return size;
}

uint32_t ProfileParamArray::copyProfileParams(OvlProfileId profile, void* out, uint32_t capacity) {
    ALOGD("%s(profile = %d)", "getProfileParams", profile);
    android::Mutex::Autolock lock(mLock);
    uint32_t size = mState->tables.getProfileSize(profile);
    if (out == nullptr && capacity != 0) {
        ALOGE("%s() no buffer for %u bytes: nothing copied", __func__, capacity);
    } else if (size <= capacity) {
        copyArray(mState->tables.getProfileArray(profile), size, out);
    }
    return size;
}

uint32_t ProfileParamArray::copyTuningParams(const std::string& tuning, void* out,
                                             uint32_t capacity) {
    ALOGD("%s(tuning = %s)", "getTuningParams", tuning.c_str());
    android::Mutex::Autolock lock(mLock);
    uint32_t size = mState->tables.getTuningSize(tuning);
    if (out == nullptr && capacity != 0) {
        ALOGE("%s() no buffer for %u bytes: nothing copied", __func__, capacity);
    } else if (size <= capacity) {
        copyArray(mState->tables.getTuningArray(tuning), size, out);
    }
    return size;
}

uint32_t ProfileParamArray::getAvailableTuningDevicesLen(Endpoint endpoint) {
    android::Mutex::Autolock lock(mLock);
    std::vector<std::string> names = tuningsOf(mState->tables, endpoint);
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
    std::vector<std::string> names = tuningsOf(mState->tables, endpoint);
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
