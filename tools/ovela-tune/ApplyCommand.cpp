#include <ovela/AudioDevices.h>
#include <ovela/IEffectKyr.h>
#include <ovela/ProfileParamCache.h>

#include "Commands.h"
#include "FileContents.h"
#include "LoadedFile.h"
#include "StoreArrays.h"
#include "TuningFileVocabulary.h"

namespace ovela::tune {

namespace {

// Stands in for a running effect: prints every call it receives, each run of
// calls that a commit ends under a line that names the call of the cache that
// sent it.
class PrintingEffect : public IEffectKyr {
  public:
    explicit PrintingEffect(std::ostream& out) : mOut(out) {}

    // The labels of the next runs, in the order the cache sends them.
    void expect(std::vector<std::string> labels) {
        mLabels = std::move(labels);
        mRun = 0;
    }

    void setParameter(int device, KyrParameterId code, const int* values, int count) override {
        label();
        mOut << "setParameter(" << deviceName(device) << ", " << kyrCodeText(code) << ", " << count
             << ":";
        for (int i = 0; i < count; ++i) {
            mOut << " " << values[i];
        }
        mOut << ")\n";
    }

    int commitParameters(int device) override {
        label();
        mOut << "commitParameters(" << deviceName(device) << ") = 0\n";
        ++mRun;
        mLabelled = false;
        return 0;
    }

  private:
    void label() {
        if (!mLabelled) {
            mOut << "# " << (mRun < mLabels.size() ? mLabels[mRun] : "another call") << ":\n";
            mLabelled = true;
        }
    }

    std::ostream& mOut;
    std::vector<std::string> mLabels;
    size_t mRun = 0;
    bool mLabelled = false;
};

constexpr int kLongestLabelledName = 1024;

// What setProfile sends: the profile's array; for the general array, then
// the tuning that the cache recorded for each endpoint, endpoint by endpoint.
std::vector<std::string> profileRuns(ProfileParamCache& cache, int profile) {
    const std::string call = "setProfile(" + std::to_string(profile) + ")";
    std::vector<std::string> runs = {
        call + (profile == kGeneralProfileId ? ", the general array"
                                             : ", the array of profile " + std::to_string(profile))};
    for (size_t i = 0; profile == kGeneralProfileId && i < kNumEndpoints; ++i) {
        // The cache copies the name without its NUL; the zeroed byte after
        // the room given ends it.
        char tuning[kLongestLabelledName + 1] = {};
        cache.getEndpointTuning(static_cast<Endpoint>(i), tuning, kLongestLabelledName);
        runs.push_back(call + ", then setEndpointTuning(" + kEndpointNames[i] + ", " + tuning +
                       ") again");
    }
    return runs;
}

// Where the endpoint takes the default tuning, the cache sends nothing for
// it: the general array carried its entries, so they are shown from there.
void printDefaultTuning(const FileContents& contents, Endpoint endpoint, std::ostream& out) {
    const int32_t device = deviceForEndpoint(endpoint);
    std::vector<NamedEntry> entries;
    for (const NamedEntry& entry : sortedEntries(contents.defaultTuning)) {
        if (entry.device == device) {
            entries.push_back(entry);
        }
    }
    out << "# " << kEndpointNames[endpoint] << " takes the default tuning; setProfile(-1) sent its "
        << entries.size() << " entries with the general array:\n";
    for (const NamedEntry& entry : entries) {
        out << "#   " << kyrCodeText(entry.code) << " " << namesText(entry) << ": "
            << valuesText(entry.values) << "\n";
    }
}

}  // namespace

int runApply(const CommandLine& line, std::ostream& out, std::ostream& err) {
    std::string path;
    if (!tuningFileArgument(line, "apply", true, &path, err)) {
        return kExitUsage;
    }
    int profile = 0;
    if (!line.has("profile")) {
        err << "ovela-tune apply: --profile N is required\n";
        return kExitUsage;
    }
    if (!parseProfileOption(line, "apply", &profile, err)) {
        return kExitUsage;
    }
    if (line.has("endpoint") != line.has("tuning")) {
        err << "ovela-tune apply: --endpoint and --tuning go together\n";
        return kExitUsage;
    }
    const Endpoint endpoint = endpointFromName(line.value("endpoint"), ENDPOINT_SPEAKER);
    if (line.has("endpoint") && line.value("endpoint") != kEndpointNames[endpoint]) {
        err << "ovela-tune apply: unknown endpoint " << line.value("endpoint") << "\n";
        return kExitUsage;
    }

    const std::unique_ptr<LoadedFile> file = loadFile(path);
    if (!file->loads()) {
        return doesNotLoad("apply", *file, err);
    }
    // The cache reaches the store through the process-wide instance.
    ProfileParamArray::getInstance().loadXMLFile(path);
    PrintingEffect effect(out);
    ProfileParamCache cache;
    effect.expect(profileRuns(cache, profile));
    int result = cache.setProfile(profile, &effect);
    out << "setProfile(" << profile << ") = " << result << "\n";
    if (line.has("tuning")) {
        effect.expect({"setEndpointTuning(" + std::string(kEndpointNames[endpoint]) + ", " +
                       line.value("tuning") + ")"});
        int tuningResult = cache.setEndpointTuning(endpoint, line.value("tuning"), &effect, false);
        out << "setEndpointTuning(" << kEndpointNames[endpoint] << ", " << line.value("tuning")
            << ") = " << tuningResult << "\n";
        result = result != 0 ? result : tuningResult;
        if (tuningResult == 0 && line.value("tuning") == kDefaultTuningName) {
            printDefaultTuning(describe(*file), endpoint, out);
        }
    }
    return result == 0 ? kExitOk : kExitFindings;
}

}  // namespace ovela::tune
