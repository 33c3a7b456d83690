#include <android/log.h>
#include <libxml/xmlerror.h>
#include <ovela/IEffectKyr.h>
#include <ovela/ProfileParamCache.h>

#include "Commands.h"
#include "LoadedFile.h"
#include "PackedArrays.h"

namespace ovela::tune {

namespace {

// Stands in for a running effect: prints every call it receives.
class PrintingEffect : public IEffectKyr {
  public:
    explicit PrintingEffect(std::ostream& out) : mOut(out) {}

    void setParameter(int device, KyrParameterId code, const int* values, int count) override {
        mOut << "setParameter(" << deviceName(device) << ", " << kyrCodeText(code) << ", " << count
             << ":";
        for (int i = 0; i < count; ++i) {
            mOut << " " << values[i];
        }
        mOut << ")\n";
    }

    int commitParameters(int device) override {
        mOut << "commitParameters(" << deviceName(device) << ") = 0\n";
        return 0;
    }

  private:
    std::ostream& mOut;
};

void ignoreXmlError(void*, const char*, ...) {}

// The cache reaches the store through the process-wide instance, which loads
// the device's default file on first use: that file is not on a host, so its
// failure is kept out of the tool's output before FILE is loaded instead.
ProfileParamArray& storeWith(LoadedFile& file) {
    int previous = __android_log_get_minimum_priority();
    __android_log_set_minimum_priority(ANDROID_LOG_SILENT);
    xmlSetGenericErrorFunc(nullptr, ignoreXmlError);
    ProfileParamArray& store = ProfileParamArray::getInstance();
    xmlSetGenericErrorFunc(nullptr, nullptr);
    __android_log_set_minimum_priority(previous);
    store.loadXMLFile(file.path, &file.report);
    return store;
}

}  // namespace

int runApply(const CommandLine& line, std::ostream& out, std::ostream& err) {
    std::string path;
    if (!tuningFileArgument(line, &path, err)) {
        return kExitUsage;
    }
    int profile = 0;
    if (!line.has("profile") || !parseInt(line.value("profile"), &profile)) {
        err << "ovela-tune apply: --profile N is required\n";
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

    LoadedFile file;
    file.path = path;
    storeWith(file);
    if (!file.loads()) {
        return doesNotLoad("apply", file, err);
    }
    PrintingEffect effect(out);
    ProfileParamCache cache;
    int result = cache.setProfile(profile, &effect);
    out << "setProfile(" << profile << ") = " << result << "\n";
    if (line.has("tuning")) {
        int tuningResult = cache.setEndpointTuning(endpoint, line.value("tuning"), &effect, false);
        out << "setEndpointTuning(" << kEndpointNames[endpoint] << ", " << line.value("tuning")
            << ") = " << tuningResult << "\n";
        result = result != 0 ? result : tuningResult;
    }
    return result == 0 ? kExitOk : kExitFindings;
}

}  // namespace ovela::tune
