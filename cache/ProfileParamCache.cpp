#define LOG_TAG "OvlProfileParamCache"

#include "ProfileParamCache.h"

#include <log/log.h>
#include <utils/String8.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

#include "AudioDevices.h"
#include "IEffectKyr.h"
#include "Parameter.h"
#include "ProfileParamArray.h"
#include "ProfileParamParser.h"
#include "RecordedTuning.h"
#include "TuningFileVocabulary.h"

namespace ovela {

namespace {

constexpr int kInvalidArgument = -22;
constexpr int kNoMemory = -12;

using Scratch = std::unique_ptr<void, decltype(&free)>;

// A copy of one array of the store in a buffer of its own.
struct ArrayCopy {
    Scratch data{nullptr, &free};
    uint32_t size = 0;
};

// Copies an array: `size` is the store's size query, `copy` writes the array
// only when it fits the buffer and returns its size either way. A reload by
// another thread may change the size between the two; the buffer then grows
// and the copy is asked again. False when no buffer could be allocated; an
// unknown array copies as empty.
template <typename Size, typename Copy>
bool copyArray(Size size, Copy copy, ArrayCopy* out) {
    uint32_t wanted = size();
    while (wanted != 0) {
        out->data.reset(malloc(wanted));
        if (out->data == nullptr) {
            return false;
        }
        const uint32_t copied = copy(out->data.get(), wanted);
        const bool fitted = copied <= wanted;
        wanted = copied;
        if (fitted) {
            break;
        }
    }
    out->size = wanted;
    return true;
}

bool copyProfile(OvlProfileId profile, ArrayCopy* copy) {
    ProfileParamArray& store = ProfileParamArray::getInstance();
    return copyArray([&] { return store.getProfileParamsSize(profile); },
                     [&](void* out, uint32_t capacity) {
                         return store.copyProfileParams(profile, out, capacity);
                     },
                     copy);
}

bool copyTuning(const std::string& tuning, ArrayCopy* copy) {
    ProfileParamArray& store = ProfileParamArray::getInstance();
    return copyArray(
        [&] { return store.getTuningParamsSize(tuning); },
        [&](void* out, uint32_t capacity) { return store.copyTuningParams(tuning, out, capacity); },
        copy);
}

// Calls `visit` with every entry of the array, in order, once the whole array
// has validated; false when it does not.
template <typename Visit>
bool forEachEntry(ArrayCopy& copy, Visit visit) {
    ProfileParamParser parser(copy.data.get(), static_cast<int>(copy.size));
    if (!parser.validate()) {
        return false;
    }
    parser.begin();
    while (parser.next()) {
        visit(parser);
    }
    return true;
}

// Sends every entry to the effect and commits them; false when the array does
// not validate, in which case nothing was sent.
bool sendArray(ArrayCopy& copy, IEffectKyr* effect, int* status) {
    bool valid = forEachEntry(copy, [effect](const ProfileParamParser& entry) {
        effect->setParameter(entry.getDevice(), entry.getParamId(), entry.getValues(),
                             entry.getValueCount());
    });
    if (valid) {
        *status = effect->commitParameters(kDeviceAll);
    }
    return valid;
}

bool isEndpoint(Endpoint endpoint) {
    return endpoint >= ENDPOINT_SPEAKER && static_cast<size_t>(endpoint) < kNumEndpoints;
}

}  // namespace

ProfileParamCache::ProfileParamCache()
    : mProfile(kGeneralProfileId), mEndpointTunings(std::string()) {
    ProfileParamArray& store = ProfileParamArray::getInstance();
    for (size_t i = 0; i < kNumEndpoints; ++i) {
        const auto endpoint = static_cast<Endpoint>(i);
        const std::string tuning = recordedTuning(store, endpoint);
        if (tuning != kDefaultTuningName) {
            ALOGD("%s(There is specific tuning for endpiont: %s)", __func__, tuning.c_str());
        }
        mEndpointTunings.add(endpoint, tuning);
    }
}

ProfileParamCache::~ProfileParamCache() {
    mEndpointTunings.clear();
}

int ProfileParamCache::setProfile(OvlProfileId profile, IEffectKyr* effect) {
    ALOGD("%s(profile=%d)", __func__, profile);
    if (profile < kGeneralProfileId || profile > kLastProfileId) {
        ALOGE("%s() Invalid profile %d", __func__, profile);
        return kInvalidArgument;
    }
    if (effect == nullptr) {
        ALOGE("%s() effect instance should not be null", __func__);
        return kInvalidArgument;
    }
    mProfile = profile;
    ArrayCopy copy;
    if (!copyProfile(profile, &copy)) {
        ALOGE("%s() Fail to allocate scratch memory!", __func__);
        return kNoMemory;
    }
    int status = 0;
    if (!sendArray(copy, effect, &status)) {
        ALOGE("%s() Invalid data for profile parameter values.", __func__);
        return kInvalidArgument;
    }
    // The general array carries the default tuning only; the endpoints with a
    // tuning of their own get it back on top.
    if (profile == kGeneralProfileId) {
        for (size_t i = 0; i < mEndpointTunings.size(); ++i) {
            setEndpointTuning(mEndpointTunings.keyAt(i), mEndpointTunings.valueAt(i), effect, false);
        }
    }
    return status;
}

int ProfileParamCache::setEndpointTuning(Endpoint endpoint, std::string tuning, IEffectKyr* effect,
                                         bool skipIfUnchanged) {
    if (!isEndpoint(endpoint)) {
        ALOGE("%s() Invalid endpoint %d", __func__, endpoint);
        return kInvalidArgument;
    }
    const char* name = endpointName(endpoint);
    ALOGD("%s(endpoint=%s, tuning=%s)", __func__, name, tuning.c_str());
    if (effect == nullptr) {
        ALOGE("%s() effect instance should not be null", __func__);
        return kInvalidArgument;
    }
    ProfileParamArray& store = ProfileParamArray::getInstance();
    const uint32_t length = store.getAvailableTuningDevicesLen(endpoint);
    // Zeroed, so that the search stops at the list's NUL or at the first byte
    // the store did not write: after "default", or where another thread's
    // reload made the list shorter than the length asked for.
    Scratch list(calloc(length, 1), &free);
    if (list == nullptr) {
        ALOGE("%s() Fail to allocate scratch memory!", __func__);
        return kNoMemory;
    }
    store.getAvailableTuningDevices(endpoint, list.get(), static_cast<int>(length));
    const auto* text = static_cast<const char*>(list.get());
    const std::string_view names(text, strnlen(text, length));
    if (names.find(tuning) == std::string_view::npos) {
        // The run of thirteen blanks is part of the message that log readers
        // match on.
        ALOGE(
            "%s, %s is not a valid tuning device for endpoint %s,"
            "             please call getAvailableTuningDevice(endpoint) to check first!",
            __func__, tuning.c_str(), name);
        return kInvalidArgument;
    }
    list.reset();
    if (tuning == mEndpointTunings.valueFor(endpoint)) {
        if (skipIfUnchanged || tuning == kDefaultTuningName) {
            return 0;
        }
    } else {
        mEndpointTunings.add(endpoint, tuning);
    }
    ArrayCopy copy;
    if (!copyTuning(tuning, &copy)) {
        ALOGE("%s() Fail to allocate scratch memory!", __func__);
        return kNoMemory;
    }
    int status = 0;
    if (!sendArray(copy, effect, &status)) {
        ALOGE("%s() Invalid data for tuning parameter values.", __func__);
        return kInvalidArgument;
    }
    return status;
}

void ProfileParamCache::getEndpointTuning(Endpoint endpoint, void* out, int len) {
    ssize_t index = mEndpointTunings.indexOfKey(endpoint);
    if (index < 0 || out == nullptr || len <= 0) {
        return;
    }
    const std::string& tuning = mEndpointTunings.valueAt(index);
    memcpy(out, tuning.data(), std::min(tuning.size(), static_cast<size_t>(len)));
}

int ProfileParamCache::resetParam(KyrParameterId param, IEffectKyr* effect) {
    ALOGD("%s(param=%s)", __func__, android::String8(kyrCodeText(param).c_str()).c_str());
    if (effect == nullptr) {
        ALOGE("%s() effect instance should not be null", __func__);
        return kInvalidArgument;
    }
    ArrayCopy copy;
    if (!copyProfile(mProfile, &copy)) {
        ALOGE("%s() Fail to allocate scratch memory!", __func__);
        return kNoMemory;
    }
    // The living room and concert hall configurations are variants that the
    // effect only takes as its one headphone rendering configuration.
    bool renderingVariant =
        param == kParameterCodes[ADVANCED_HEADPHONE_VIRTUALIZER_RENDERING_CONFIG_FOR_CONCERT_HALL] ||
        param == kParameterCodes[ADVANCED_HEADPHONE_VIRTUALIZER_RENDERING_CONFIG_FOR_LIVING_ROOM];
    bool valid = forEachEntry(copy, [&](const ProfileParamParser& entry) {
        if (entry.getParamId() != param) {
            return;
        }
        if (renderingVariant) {
            ALOGD("%s() set the headphone virtualizer rendering config value got from xml file.",
                  "resetParam");
            effect->setParameter(entry.getDevice(),
                                 kParameterCodes[ADVANCED_HEADPHONE_VIRTUALIZER_RENDERING_CONFIG],
                                 entry.getValues(), entry.getValueCount());
        } else {
            ALOGD("%s() resend the parameter value got from xml.", "resetParam");
            effect->setParameter(entry.getDevice(), param, entry.getValues(), entry.getValueCount());
        }
    });
    if (!valid) {
        ALOGE("%s() Invalid data for profile parameter values.", __func__);
        return kInvalidArgument;
    }
    return effect->commitParameters(kDeviceAll);
}

}  // namespace ovela
