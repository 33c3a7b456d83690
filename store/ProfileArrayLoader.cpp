#define LOG_TAG "OvlProfileParamArray"

#include "ProfileArrayLoader.h"

#include <log/log.h>

#include <algorithm>
#include <cctype>
#include <iterator>
#include <map>
#include <memory>
#include <set>
#include <utility>
#include <vector>

#include "ArrayBuilder.h"
#include "AudioDevices.h"
#include "CompositeEntries.h"
#include "EntityValues.h"
#include "LoadReport.h"
#include "OvlProfileId.h"
#include "ParamTables.h"
#include "Parameter.h"
#include "ProfileParamArray.h"
#include "SpeakerData.h"
#include "StoreReport.h"
#include "TuningConversion.h"
#include "TuningFileParser.h"
#include "TuningFileVocabulary.h"

namespace ovela {

namespace {

// Messages name the store operation that runs the load.
constexpr char kLoadName[] = "loadXMLFile";
constexpr size_t kMixMatrixReserve = 50;
// Builders of profiles 0 to 9, then of the general array.
constexpr size_t kBuilderCount = kLastProfileId - kFirstProfileId + 2;

// Profile 1 carries the speaker's rendering configuration.
constexpr OvlProfileId kSpeakerRenderingProfile = 1;
// Profile 8 gives a headphone in virtualizer mode 2 a fixed rendering
// configuration when the file has none.
constexpr OvlProfileId kHeadphoneRenderingProfile = 8;
constexpr int kHeadphoneModeNeedingConfig = 2;
constexpr int32_t kDefaultHeadphoneRenderingConfig[] = {103, 32568, 11164, 5090, 0, 2, 2, 2};
// Virtualizer mode of an endpoint whose settings give none, and the speaker
// virtualizer mode that renders through the plain output mix matrix.
constexpr int32_t kDefaultVirtualizerMode[] = {1};

// The output mode entry of an endpoint follows its virtualizer switch with
// how the endpoint renders. The speaker renders in mode 0 with layout 1,
// followed by the mix matrix of its virtualizer mode; the other endpoints
// render on a channel pair, the digital outputs (digital auxiliary, remote
// submix) in mode 2 and the rest in mode 1.
constexpr int32_t kSpeakerOutputMode[] = {0, 1};
constexpr int32_t kDigitalOutputMode = 2;
constexpr int32_t kEndpointOutputMode = 1;
constexpr int32_t kEndpointOutputChannels = 2;

// Whether two names differ in letter case alone.
bool sameLetters(const std::string& a, const std::string& b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) ==
                      std::tolower(static_cast<unsigned char>(y));
           });
}

bool isDigitalOutput(Endpoint endpoint) {
    return endpoint == ENDPOINT_AUX_DIGITAL || endpoint == ENDPOINT_REMOTE_SUBMIX;
}

std::string profileLabel(OvlProfileId profile) {
    return profile == kGeneralProfileId ? "the general array"
                                        : "the array of profile " + std::to_string(profile);
}

// One run of the load over the model of one tuning file.
class Load {
  public:
    Load(ParamTables& tables, SpeakerData& speaker, LoadReport* report)
        : mTables(tables),
          mSpeaker(speaker),
          mReport(report),
          mConversion(tables, speaker, mReport),
          mScratch(kBuilderCount * kProfileArrayWords) {
        mBuilders.reserve(kBuilderCount);
        for (size_t i = 0; i < kBuilderCount; ++i) {
            const OvlProfileId id =
                i + 1 < kBuilderCount ? kFirstProfileId + static_cast<int>(i) : kGeneralProfileId;
            mBuilders.emplace_back(mScratch.data() + i * kProfileArrayWords, kProfileArrayWords, id);
            mBuilders.back().recordInto(mReport.profileRecord(id, kProfileArrayWords),
                                        mReport.trace());
        }
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
        std::map<int, std::vector<const void*>> byId;
        for (Profile* profile : data.getProfiles()) {
            ArrayBuilder* builder = profileBuilder(profile->getProfileId());
            if (builder == nullptr) {
                ALOGE("%s() Invalid profile %d: profile skipped", kLoadName,
                      profile->getProfileId());
                mReport.profileOutOfRange(profile, profile->getProfileId(), true);
                continue;
            }
            if (mReport) {
                byId[profile->getProfileId()].push_back(profile);
            }
            mReport.composed(*builder, EntrySource::PROFILE, profile);
            builder->composeParams(kDeviceAll, *profile);
        }
        for (const auto& [id, profiles] : byId) {
            if (profiles.size() > 1) {
                mDuplicateProfiles.insert(id);
            }
        }
        mReport.duplicateProfiles(byId);
    }

    void composeProfileEndpoints(DeviceData& data) {
        for (ProfileEndpoint* settings : data.getProfileEndpoints()) {
            OvlProfileId profile = settings->getProfileId();
            Endpoint endpoint = settings->getEndpoint();
            ArrayBuilder* builder = profileBuilder(profile);
            if (builder == nullptr) {
                ALOGE("%s() Invalid profile %d: %s endpoint skipped", kLoadName, profile,
                      kEndpointNames[endpoint]);
                mReport.profileOutOfRange(settings, profile, false);
                continue;
            }
            mUsedEndpoints.insert(endpoint);
            int32_t device = deviceForEndpoint(endpoint);
            mReport.composed(*builder, EntrySource::PROFILE_ENDPOINT, settings);
            builder->composeParams(device, *settings);
            if (profile == kSpeakerRenderingProfile && endpoint == ENDPOINT_SPEAKER) {
                keepSpeakerRendering(*settings);
            }
            mReport.builds(*builder, EntrySource::STORE, settings, "the store's defaults for ");
            const std::vector<int>& headphoneMode = valuesOf(*settings, HEADPHONE_VIRTUALIZER_MODE);
            if (profile == kHeadphoneRenderingProfile && !headphoneMode.empty() &&
                headphoneMode.front() == kHeadphoneModeNeedingConfig &&
                valuesOf(*settings, ADVANCED_HEADPHONE_VIRTUALIZER_RENDERING_CONFIG).empty()) {
                builder->append(device,
                                kParameterCodes[ADVANCED_HEADPHONE_VIRTUALIZER_RENDERING_CONFIG],
                                {kDefaultHeadphoneRenderingConfig});
                mReport.parts(*builder,
                              {{EntryPart::kStore, std::size(kDefaultHeadphoneRenderingConfig)}});
            }
            for (Parameter mode : {HEADPHONE_VIRTUALIZER_MODE, SPEAKER_VIRTUALIZER_MODE}) {
                if (valuesOf(*settings, mode).empty()) {
                    builder->append(device, kParameterCodes[mode], {kDefaultVirtualizerMode});
                    mReport.parts(*builder,
                                  {{EntryPart::kStore, std::size(kDefaultVirtualizerMode)}});
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
        std::map<std::string, std::vector<const void*>> byName;
        int counter = 0;
        for (Tuning* tuning : data.getTunings()) {
            std::string name = tuning->getName();
            if (mReport) {
                byName[name].push_back(tuning);
            }
            for (size_t endpoint = 0; endpoint < kNumEndpoints; ++endpoint) {
                if (name == kEndpointNames[endpoint]) {
                    mUsedEndpoints.erase(static_cast<Endpoint>(endpoint));
                    if (tuning->getEndpoint() != static_cast<Endpoint>(endpoint)) {
                        mReport.tuningEndpoint(tuning, name, tuning->getEndpoint());
                    }
                }
            }
            if (name == kDefaultTuningName) {
                mDefaultTuning = tuning;
            } else if (!mConversion.convertTuning(tuning, counter)) {
                return false;
            }
        }
        mReport.duplicateTunings(byName);
        if (mReport) {
            reportNameCases(byName);
        }
        return true;
    }

    // Tunings named like an endpoint in another letter case, which serve
    // no endpoint by their name.
    void reportNameCases(const std::map<std::string, std::vector<const void*>>& byName) {
        for (const auto& [name, tunings] : byName) {
            for (size_t i = 0; i < kNumEndpoints; ++i) {
                const Endpoint endpoint = static_cast<Endpoint>(i);
                const std::string own = endpointName(endpoint);
                if (name == own || !sameLetters(name, own)) {
                    continue;
                }
                const bool used = mUsedEndpoints.count(endpoint) != 0;
                const std::string servedBy = byName.count(own) != 0 ? "its own tuning, not this one"
                                             : !used                ? "no tuning of its own"
                                             : mDefaultTuning != nullptr ? "the default tuning"
                                                                         : "no tuning at all";
                mReport.tuningNameCase(tunings.back(), name, endpoint, servedBy);
            }
        }
    }

    void composeDefaultTuning() {
        if (mReport) {
            mReport.defaultTuning(mDefaultTuning, std::vector<Endpoint>(mUsedEndpoints.begin(),
                                                                        mUsedEndpoints.end()));
        }
        if (mDefaultTuning == nullptr) {
            return;
        }
        for (Endpoint endpoint : mUsedEndpoints) {
            mReport.composedFor(general(), EntrySource::DEFAULT_TUNING, mDefaultTuning, endpoint);
            general().composeParams(deviceForEndpoint(endpoint), *mDefaultTuning);
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
            mReport.builds(*builder, EntrySource::STORE, settings, "the output mode of ");
            mReport.consulted(settings, VIRTUALIZER_ENABLE);
            const std::vector<int>& enable = valuesOf(*settings, VIRTUALIZER_ENABLE);
            const int32_t virtualizer = enable.empty() ? 0 : enable.front();
            // The switch is the settings' own when they give one.
            const PartOf switchPart = enable.empty() ? PartOf{EntryPart::kStore, 1}
                                                     : PartOf{VIRTUALIZER_ENABLE, 1, settings};
            const int32_t device = deviceForEndpoint(endpoint);
            if (endpoint != ENDPOINT_SPEAKER) {
                const int32_t values[] = {
                    virtualizer,
                    isDigitalOutput(endpoint) ? kDigitalOutputMode : kEndpointOutputMode,
                    kEndpointOutputChannels};
                builder->append(device, kOutputModeCode, {values});
                mReport.parts(*builder, {switchPart, {EntryPart::kStore, std::size(values) - 1}});
                continue;
            }
            // A mono speaker cannot virtualize.
            if (mSpeaker.mono && virtualizer != 0) {
                mReport.monoSpeaker(settings);
            }
            const int32_t switched[] = {mSpeaker.mono ? 0 : virtualizer};
            const std::vector<int>& mode = valuesOf(*settings, SPEAKER_VIRTUALIZER_MODE);
            const bool plain = mode.empty() || mode.front() == kDefaultVirtualizerMode[0];
            const std::vector<int32_t>& matrix =
                plain ? mSpeaker.outputMixMatrix : mSpeaker.advancedOutputMixMatrix;
            builder->append(device, kOutputModeCode, {switched, kSpeakerOutputMode, matrix});
            mReport.parts(*builder,
                          {switchPart,
                           {EntryPart::kStore, std::size(kSpeakerOutputMode)},
                           {plain ? OUTPUT_MIX_MATRIX : ADVANCED_OUTPUT_MIX_MATRIX, matrix.size()}});
        }
        mSpeaker.outputMixMatrix.clear();
        mSpeaker.advancedOutputMixMatrix.clear();
        mReport.speakerMatricesSent();
    }

    void appendIeqPresets(DeviceData& data) {
        for (IeqPreset* preset : data.getIeqPresets()) {
            const std::vector<int>& frequencies = valuesOf(*preset, IEQ_FREQUENCY);
            const std::vector<int>& targets = valuesOf(*preset, IEQ_TARGET);
            const std::initializer_list<ListOf> bands = {{IEQ_FREQUENCY, &frequencies},
                                                         {IEQ_TARGET, &targets}};
            const bool sent = sameBandCount(bands);
            mReport.builds(general(), EntrySource::IEQ_PRESET, preset, "");
            mReport.composite(preset, kIeqBandsCode, bands, sent);
            if (!sent) {
                continue;
            }
            const int32_t count[] = {static_cast<int32_t>(frequencies.size())};
            general().append(kDeviceAll, kIeqBandsCode, {count, frequencies, targets});
            mReport.parts(general(), {{EntryPart::kStore, std::size(count)},
                                      {IEQ_FREQUENCY, frequencies.size(), preset},
                                      {IEQ_TARGET, targets.size(), preset}});
        }
    }

    void composeGeneral(DeviceData& data) {
        if (data.getGeneral() != nullptr) {
            mReport.composed(general(), EntrySource::GENERAL, data.getGeneral());
            general().composeParams(kDeviceAll, *data.getGeneral());
        }
        for (GeneralEndpoint* settings : data.getGeneralEndpoints()) {
            mReport.composed(general(), EntrySource::GENERAL_ENDPOINT, settings);
            general().composeParams(deviceForEndpoint(settings->getEndpoint()), *settings);
        }
    }

    bool storeBuilders() {
        for (const ArrayBuilder& builder : mBuilders) {
            if (builder.overflowed()) {
                ALOGE("%s() profile %d does not fit in %u words", kLoadName, builder.getHeader(),
                      kProfileArrayWords);
                reportRoom(builder);
                return false;
            }
        }
        for (const ArrayBuilder& builder : mBuilders) {
            int32_t* array = builder.copyArray();
            if (array == nullptr) {
                continue;
            }
            mTables.addProfile(builder.getHeader(), array, builder.getSizeInBytes());
            if (ArrayRecord* record = builder.record()) {
                record->stored = true;
            }
            ALOGD("add the profile table: profileId=%d, paramNum=%d, size=%u", builder.getHeader(),
                  builder.getParamCount(), builder.getSizeInBytes());
        }
        return true;
    }

    void reportRoom(const ArrayBuilder& builder) {
        ArrayRecord* record = builder.record();
        if (record == nullptr) {
            return;
        }
        const OvlProfileId id = builder.getHeader();
        record->neededWords = builder.getNeededWords();
        const std::string cause =
            mDuplicateProfiles.count(id) != 0
                ? "profile " + std::to_string(id) + " is defined more than once"
                : std::string();
        mReport.arrayRoom(profileLabel(id), *record, cause);
    }

    ParamTables& mTables;
    SpeakerData& mSpeaker;
    StoreReport mReport;
    TuningConversion mConversion;
    // One zeroed area for every builder: nothing is allocated while composing.
    std::vector<int32_t> mScratch;
    // Builders of profiles 0 to 9, then of the general array.
    std::vector<ArrayBuilder> mBuilders;
    // Endpoints that profiles use; those without a tuning of their own name
    // take the default tuning.
    std::set<Endpoint> mUsedEndpoints;
    Tuning* mDefaultTuning = nullptr;
    std::set<int> mDuplicateProfiles;
};

}  // namespace

bool loadProfileArrays(const std::string& path, std::string document, ParamTables& tables,
                       SpeakerData& speaker, LoadReport* report) {
    auto parser = std::make_unique<TuningFileParser>();
    if (parser->setTuningDocument(path, std::move(document), report) != 0) {
        ALOGE("XML parses error!!");
        if (report != nullptr && !report->hasErrors()) {
            report->add(Rule::XML_SYNTAX, Place(), {{"error", "the file does not load"}});
        }
        return false;
    }
    const bool loaded = Load(tables, speaker, report).run(*parser->getDeviceData());
    if (report != nullptr) {
        if (loaded) {
            report->reportUnsent();
        }
        report->keepReader(std::move(parser));
    }
    return loaded;
}

}  // namespace ovela
