// Arbitrary bytes as a tuning file. A store of its own loads them, half the
// time with a report, and every array that it then holds must be exactly its
// header and its entries. For
// some inputs the process-wide store loads them as well, and a cache sends
// every profile and every listed tuning to an effect that keeps nothing.

#include <ovela/Endpoint.h>
#include <ovela/IEffectKyr.h>
#include <ovela/KyrParameterId.h>
#include <ovela/OvlProfileId.h>
#include <ovela/ProfileParamArray.h>
#include <ovela/ProfileParamCache.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "FuzzSupport.h"
#include "LoadReport.h"
#include "ReportedLoads.h"

namespace ovela::fuzz {

namespace {

// Every file that the process-wide store loads adds its tuning names to it
// for good, so only the inputs whose hash is a multiple of this reach it and
// the cache; the choice depends on the input alone, so a rerun does the same.
constexpr uint32_t kSharedStoreShare = 8;
constexpr size_t kProfileArrays = kLastProfileId - kGeneralProfileId + 1;

// The library reads tuning files by path: each input is written to a file in
// memory, which its descriptor's name reaches, so that no input touches a disk.
int gInput = -1;
std::string gPath;

volatile int32_t gValueSink;

void createInputFile() {
    gInput = memfd_create("ovela-fuzz-input", MFD_CLOEXEC);
    require(gInput >= 0, "cannot create the input file");
    gPath = "/proc/self/fd/" + std::to_string(gInput);
}

void writeInput(const uint8_t* data, size_t size) {
    require(ftruncate(gInput, 0) == 0 && pwrite(gInput, data, size, 0) == static_cast<ssize_t>(size),
            "cannot write the input file");
}

uint32_t hashOf(const uint8_t* data, size_t size) {
    uint32_t hash = 2166136261u;
    for (size_t i = 0; i < size; ++i) {
        hash = (hash ^ data[i]) * 16777619u;
    }
    return hash;
}

class NullEffect : public IEffectKyr {
  public:
    void setParameter(int, KyrParameterId, const int* values, int count) override {
        require(count >= 0, "the cache sent a negative value count");
        for (int i = 0; i < count; ++i) {
            gValueSink = values[i];
        }
    }
    int commitParameters(int) override { return 0; }
};

// The names that the store lists for `endpoint`. A name that holds a blank
// comes out in pieces, which the callers treat like unknown names.
std::vector<std::string> tuningNames(ProfileParamArray& store, Endpoint endpoint) {
    const uint32_t length = store.getAvailableTuningDevicesLen(endpoint);
    // One byte more than asked for: the list "default" is not terminated.
    std::vector<char> list(length + 1, '\0');
    require(store.getAvailableTuningDevices(endpoint, list.data(), static_cast<int>(length)) == 0,
            "getAvailableTuningDevices() failed");
    std::vector<std::string> names;
    std::string name;
    for (const char* c = list.data(); *c != '\0'; ++c) {
        if (*c == ' ') {
            names.push_back(name);
            name.clear();
        } else {
            name += *c;
        }
    }
    names.push_back(name);
    return names;
}

void requireExactArray(void* array, uint32_t size, const char* what) {
    ArrayWalk walk = walkPackedArray(array, size);
    require(walk.valid && walk.bytesUsed == size, what);
}

// Returns how many profile arrays the store holds: all or none.
size_t checkProfiles(ProfileParamArray& store) {
    size_t stored = 0;
    for (OvlProfileId profile = kGeneralProfileId; profile <= kLastProfileId; ++profile) {
        const uint32_t size = store.getProfileParamsSize(profile);
        if (size == 0) {
            continue;
        }
        stored++;
        void* array = malloc(size);
        require(store.getProfileParams(profile, array) == 0, "getProfileParams() failed");
        requireExactArray(array, size, "a profile array is not exactly its entries");
        int32_t header;
        memcpy(&header, array, sizeof(header));
        require(header == profile, "a profile array carries another profile id");
        free(array);
    }
    require(stored == 0 || stored == kProfileArrays, "a load stored only some profile arrays");
    return stored;
}

void checkTunings(ProfileParamArray& store) {
    for (size_t endpoint = 0; endpoint < kNumEndpoints; ++endpoint) {
        for (const std::string& name : tuningNames(store, static_cast<Endpoint>(endpoint))) {
            const uint32_t size = store.getTuningParamsSize(name);
            if (size == 0) {
                continue;
            }
            void* array = malloc(size);
            require(store.getTuningParams(name, array) == 0, "getTuningParams() failed");
            requireExactArray(array, size, "a tuning array is not exactly its entries");
            free(array);
        }
    }
}

void driveCache(ProfileParamArray& store) {
    NullEffect effect;
    ProfileParamCache cache;
    for (OvlProfileId profile = kGeneralProfileId; profile <= kLastProfileId; ++profile) {
        cache.setProfile(profile, &effect);
    }
    for (size_t index = 0; index < kNumEndpoints; ++index) {
        const auto endpoint = static_cast<Endpoint>(index);
        for (const std::string& name : tuningNames(store, endpoint)) {
            cache.setEndpointTuning(endpoint, name, &effect, false);
            cache.setEndpointTuning(endpoint, name, &effect, true);
        }
    }
    for (KyrParameterId code : {kyrCode("vrch"), kyrCode("vrcr"), kyrCode("dom")}) {
        cache.resetParam(code, &effect);
    }
}

}  // namespace

}  // namespace ovela::fuzz

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    ovela::fuzz::silenceDiagnostics();
    ovela::fuzz::createInputFile();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace ovela;
    using namespace ovela::fuzz;
    writeInput(data, size);
    // Half the inputs load from the file, the other half from memory as an
    // editor's text, with a report, which must say that the text does not
    // load exactly when the store took nothing from it.
    const uint32_t hash = hashOf(data, size);
    if (hash % 2 == 0) {
        ProfileParamArray store(gPath);
        checkProfiles(store);
        checkTunings(store);
    } else {
        LoadReport report;
        const ReportedLoads reported(&report);
        ProfileParamArray store(reinterpret_cast<const char*>(data), size, "fuzz input");
        const bool loaded = checkProfiles(store) != 0;
        checkTunings(store);
        require(loaded != report.hasErrors(), "the report and the load disagree on the file");
        for (const LoadFinding& finding : report.findings()) {
            require(!finding.message.empty() && !finding.rule.empty(), "a finding says nothing");
        }
    }
    if (hash % kSharedStoreShare == 0) {
        ProfileParamArray& shared = ProfileParamArray::getInstance();
        shared.loadXMLFile(gPath);
        driveCache(shared);
    }
    return 0;
}
