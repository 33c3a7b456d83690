#include "BenchSupport.h"

#include <android/log.h>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlerror.h>
#include <ovela/Endpoint.h>
#include <ovela/OvlProfileId.h>
#include <ovela/ProfileParamArray.h>
#include <sys/stat.h>

#include <set>
#include <vector>

namespace ovela::bench {

namespace {

void dropLogLine(const __android_logger_data*, const char*) {}

void dropXmlMessage(void*, const char*, ...) {}

}  // namespace

void silenceDiagnostics() {
    __android_log_set_logger(dropLogLine);
    xmlSetGenericErrorFunc(nullptr, dropXmlMessage);
}

void parseOnly(const std::string& path) {
    xmlDoc* document = xmlReadFile(path.c_str(), nullptr, 0);
    benchmark::DoNotOptimize(document);
    xmlFreeDoc(document);
}

int64_t fileSize(const std::string& path) {
    struct stat status;
    return stat(path.c_str(), &status) == 0 ? static_cast<int64_t>(status.st_size) : -1;
}

int64_t arrayBytes(ProfileParamArray& store) {
    int64_t bytes = 0;
    for (OvlProfileId id = kGeneralProfileId; id <= kLastProfileId; ++id) {
        bytes += store.getProfileParamsSize(id);
    }
    std::set<std::string> names;
    for (size_t index = 0; index < kNumEndpoints; ++index) {
        const auto endpoint = static_cast<Endpoint>(index);
        std::vector<char> list(store.getAvailableTuningDevicesLen(endpoint) + 1, '\0');
        store.getAvailableTuningDevices(endpoint, list.data(), static_cast<int>(list.size() - 1));
        std::string name;
        for (const char* c = list.data();; ++c) {
            if (*c == ' ' || *c == '\0') {
                names.insert(name);
                name.clear();
                if (*c == '\0') {
                    break;
                }
            } else {
                name += *c;
            }
        }
    }
    for (const std::string& name : names) {
        bytes += store.getTuningParamsSize(name);
    }
    return bytes;
}

bool requireLoaded(benchmark::State& state, ProfileParamArray& store) {
    if (store.getProfileParamsSize(kFirstProfileId) <= 2 * sizeof(int32_t)) {
        state.SkipWithError("the generated tuning file did not load");
        return false;
    }
    return true;
}

}  // namespace ovela::bench
