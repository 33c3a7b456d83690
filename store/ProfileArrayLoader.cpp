#define LOG_TAG "OvlProfileParamArray"

#include "ProfileArrayLoader.h"

#include <log/log.h>

#include <algorithm>
#include <set>
#include <vector>

#include "ArrayBuilder.h"
#include "AudioDevices.h"
#include "EntityValues.h"
#include "OvlProfileId.h"
#include "ParamCodes.h"
#include "ParamTables.h"
#include "SpeakerData.h"
#include "TuningConversion.h"
#include "TuningFileParser.h"

namespace ovela {

namespace {

// Messages name the store operation that runs the load.
constexpr char kLoadName[] = "loadXMLFile";
// A tuning of this name is not stored: it serves every endpoint that profiles
// use and that has no tuning of its own name.
constexpr char kDefaultTuningName[] = "default";
constexpr size_t kMixMatrixReserve = 50;

// Profile 1 carries the speaker's rendering configuration.
constexpr OvlProfileId kSpeakerRenderingProfile = 1;
// Profile 8 gives a headphone in virtualizer mode 2 a fixed rendering
// configuration when the file has none.
constexpr OvlProfileId kHeadphoneRenderingProfile = 8;
constexpr int kHeadphoneModeNeedingConfig = 2;
const std::vector<int> kDefaultHeadphoneRenderingConfig = {103, 32568, 11164, 5090, 0, 2, 2, 2};
// Virtualizer mode of an endpoint whose settings give none, and the speaker
// virtualizer mode that renders through the plain output mix matrix.
constexpr int kDefaultVirtualizerMode = 1;

// One run of the load over the model of one tuning file.
class Load {
  public:
    Load(ParamTables& tables, SpeakerData& speaker)
        : mTables(tables), mSpeaker(speaker), mConversion(tables, speaker) {
        mBuilders.reserve(kLastProfileId - kFirstProfileId + 2);
        for (OvlProfileId id = kFirstProfileId; id <= kLastProfileId; ++id) {
            mBuilders.emplace_back(id, kProfileCapacity);
        }
        mBuilders.emplace_back(kGeneralProfileId, kProfileCapacity);
    }

    bool run(DeviceData& data) {
        mSpeaker.outputMixMatrix.reserve(kMixMatrixReserve);
        mSpeaker.advancedOutputMixMatrix.reserve(kMixMatrixReserve);
        composeProfiles(data);
        composeProfileEndpoints(data);
        if (!convertTunings(data)) {
            return false;
        }
        composeDefaultTuning();
        appendOutputModes(data);
        appendIeqPresets(data);
        composeGeneral(data);
        return storeBuilders();
    }

  private:
    ArrayBuilder& general() { return mBuilders.back(); }

    ArrayBuilder* profileBuilder(OvlProfileId profile) {
        if (profile < kFirstProfileId || profile > kLastProfileId) {
            return nullptr;
        }
        return &mBuilders[profile - kFirstProfileId];
    }

    void composeProfiles(DeviceData& data) {
        for (Profile* profile : data.getProfiles()) {
            ArrayBuilder* builder = profileBuilder(profile->getProfileId());
            if (builder == nullptr) {
                ALOGE("%s() Invalid profile %d: profile skipped", kLoadName,
                      profile->getProfileId());
                continue;
            }
            builder->compose(kDeviceAll, *profile);
        }
    }

    void composeProfileEndpoints(DeviceData& data) {
        for (ProfileEndpoint* settings : data.getProfileEndpoints()) {
            OvlProfileId profile = settings->getProfileId();
            Endpoint endpoint = settings->getEndpoint();
            ArrayBuilder* builder = profileBuilder(profile);
            if (builder == nullptr) {
                ALOGE("%s() Invalid profile %d: %s endpoint skipped", kLoadName, profile,
                      kEndpointNames[endpoint]);
                continue;
            }
            mUsedEndpoints.insert(endpoint);
            int32_t device = deviceForEndpoint(endpoint);
            builder->compose(device, *settings);
            if (profile == kSpeakerRenderingProfile && endpoint == ENDPOINT_SPEAKER) {
                keepSpeakerRendering(*settings);
            }
            const std::vector<int>& headphoneMode = valuesOf(*settings, HEADPHONE_VIRTUALIZER_MODE);
            if (profile == kHeadphoneRenderingProfile && !headphoneMode.empty() &&
                headphoneMode.front() == kHeadphoneModeNeedingConfig &&
                valuesOf(*settings, ADVANCED_HEADPHONE_VIRTUALIZER_RENDERING_CONFIG).empty()) {
                builder->append(device,
                                kParameterCodes[ADVANCED_HEADPHONE_VIRTUALIZER_RENDERING_CONFIG],
                                kDefaultHeadphoneRenderingConfig);
            }
            for (Parameter mode : {HEADPHONE_VIRTUALIZER_MODE, SPEAKER_VIRTUALIZER_MODE}) {
                if (valuesOf(*settings, mode).empty()) {
                    builder->append(device, kParameterCodes[mode], {kDefaultVirtualizerMode});
                }
            }
        }
    }

    void keepSpeakerRendering(ProfileEndpoint& settings) {
        const std::vector<int>& config =
            valuesOf(settings, ADVANCED_SPEAKER_VIRTUALIZER_RENDERING_CONFIG);
        if (config.size() == mSpeaker.renderingConfig.size()) {
            std::copy(config.begin(), config.end(), mSpeaker.renderingConfig.begin());
        }
        const std::vector<int>& startBin =
            valuesOf(settings, ADVANCED_SPEAKER_VIRTUALIZER_START_BIN);
        if (!startBin.empty()) {
            mSpeaker.startBin = startBin.front();
        }
    }

    bool convertTunings(DeviceData& data) {
        int counter = 0;
        for (Tuning* tuning : data.getTunings()) {
            std::string name = tuning->getName();
            for (size_t endpoint = 0; endpoint < kNumEndpoints; ++endpoint) {
                if (name == kEndpointNames[endpoint]) {
                    mUsedEndpoints.erase(static_cast<Endpoint>(endpoint));
                }
            }
            if (name == kDefaultTuningName) {
                mDefaultTuning = tuning;
            } else if (!mConversion.convertTuning(tuning, counter)) {
                return false;
            }
        }
        return true;
    }

    void composeDefaultTuning() {
        if (mDefaultTuning == nullptr) {
            return;
        }
        for (Endpoint endpoint : mUsedEndpoints) {
            general().compose(deviceForEndpoint(endpoint), *mDefaultTuning);
            if (endpoint == ENDPOINT_SPEAKER) {
                mConversion.setCommonSpeakerParams(mDefaultTuning);
            }
        }
    }

    // One "dom" entry per profile endpoint: the virtualizer switch, then the
    // output mode; the speaker's also carries the mix matrix of its
    // virtualizer mode.
    void appendOutputModes(DeviceData& data) {
        for (ProfileEndpoint* settings : data.getProfileEndpoints()) {
            OvlProfileId profile = settings->getProfileId();
            Endpoint endpoint = settings->getEndpoint();
            ArrayBuilder* builder = profileBuilder(profile);
            if (builder == nullptr) {
                ALOGE("%s() Invalid profile %d: %s output mode skipped", kLoadName, profile,
                      kEndpointNames[endpoint]);
                continue;
            }
            const std::vector<int>& enable = valuesOf(*settings, VIRTUALIZER_ENABLE);
            int virtualizer = enable.empty() ? 0 : enable.front();
            std::vector<int> values;
            if (endpoint != ENDPOINT_SPEAKER) {
                // The outputs past USB (digital auxiliary, remote submix)
                // take mode 2, the others mode 1.
                values = {virtualizer, endpoint > ENDPOINT_USB ? 2 : 1, 2};
            } else {
                // A mono speaker cannot virtualize.
                values = {mSpeaker.mono ? 0 : virtualizer, 0, 1};
                const std::vector<int>& mode = valuesOf(*settings, SPEAKER_VIRTUALIZER_MODE);
                bool plain = mode.empty() || mode.front() == kDefaultVirtualizerMode;
                const std::vector<int32_t>& matrix =
                    plain ? mSpeaker.outputMixMatrix : mSpeaker.advancedOutputMixMatrix;
                values.insert(values.end(), matrix.begin(), matrix.end());
            }
            builder->append(deviceForEndpoint(endpoint), kyrCode("dom"), values);
        }
        mSpeaker.outputMixMatrix.clear();
        mSpeaker.advancedOutputMixMatrix.clear();
    }

    void appendIeqPresets(DeviceData& data) {
        for (IeqPreset* preset : data.getIeqPresets()) {
            const std::vector<int>& frequencies = valuesOf(*preset, IEQ_FREQUENCY);
            const std::vector<int>& targets = valuesOf(*preset, IEQ_TARGET);
            if (frequencies.empty() || frequencies.size() != targets.size()) {
                continue;
            }
            std::vector<int> values = {static_cast<int>(frequencies.size())};
            values.insert(values.end(), frequencies.begin(), frequencies.end());
            values.insert(values.end(), targets.begin(), targets.end());
            general().append(kDeviceAll, kyrCode("iebs"), values);
        }
    }

    void composeGeneral(DeviceData& data) {
        if (data.getGeneral() != nullptr) {
            general().compose(kDeviceAll, *data.getGeneral());
        }
        for (GeneralEndpoint* settings : data.getGeneralEndpoints()) {
            general().compose(deviceForEndpoint(settings->getEndpoint()), *settings);
        }
    }

    bool storeBuilders() {
        for (const ArrayBuilder& builder : mBuilders) {
            if (builder.overflowed()) {
                ALOGE("%s() profile %d does not fit in %zu words", kLoadName, builder.getHeader(),
                      kProfileCapacity);
                return false;
            }
        }
        for (const ArrayBuilder& builder : mBuilders) {
            int32_t* array = builder.copyArray();
            if (array == nullptr) {
                continue;
            }
            mTables.addProfile(builder.getHeader(), array, builder.getSizeInBytes());
            ALOGD("add the profile table: profileId=%d, paramNum=%d, size=%u", builder.getHeader(),
                  builder.getParamCount(), builder.getSizeInBytes());
        }
        return true;
    }

    ParamTables& mTables;
    SpeakerData& mSpeaker;
    TuningConversion mConversion;
    // Builders of profiles 0 to 9, then of the general array.
    std::vector<ArrayBuilder> mBuilders;
    // Endpoints that profiles use; those without a tuning of their own name
    // take the default tuning.
    std::set<Endpoint> mUsedEndpoints;
    Tuning* mDefaultTuning = nullptr;
};

}  // namespace

bool loadProfileArrays(const std::string& path, ParamTables& tables, SpeakerData& speaker) {
    TuningFileParser parser;
    if (parser.setTuningFile(path) != 0) {
        ALOGE("XML parses error!!");
        return false;
    }
    return Load(tables, speaker).run(*parser.getDeviceData());
}

}  // namespace ovela
