// Writes every packed array that the store builds from a tuning file into a
// directory, one file each, as seeds for packed_array_fuzzer.
// Usage: packed_array_seeds TUNING_FILE OUTPUT_DIR

#include <ovela/Endpoint.h>
#include <ovela/OvlProfileId.h>
#include <ovela/ProfileParamArray.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

bool writeArray(const std::string& path, const std::vector<char>& array) {
    FILE* out = fopen(path.c_str(), "wb");
    if (out == nullptr) {
        perror(path.c_str());
        return false;
    }
    const bool written = fwrite(array.data(), 1, array.size(), out) == array.size();
    return fclose(out) == 0 && written;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        fprintf(stderr, "usage: %s TUNING_FILE OUTPUT_DIR\n", argv[0]);
        return 2;
    }
    ovela::ProfileParamArray store(argv[1]);
    const std::string dir = argv[2];
    int written = 0;
    for (ovela::OvlProfileId profile = ovela::kGeneralProfileId; profile <= ovela::kLastProfileId;
         ++profile) {
        std::vector<char> array(store.getProfileParamsSize(profile));
        if (array.empty() || store.getProfileParams(profile, array.data()) != 0 ||
            !writeArray(dir + "/profile_" + std::to_string(profile), array)) {
            continue;
        }
        written++;
    }
    // The sample's tunings are named after their endpoints.
    for (const char* name : ovela::kEndpointNames) {
        std::vector<char> array(store.getTuningParamsSize(name));
        if (array.empty() || store.getTuningParams(name, array.data()) != 0 ||
            !writeArray(dir + "/tuning_" + name, array)) {
            continue;
        }
        written++;
    }
    if (written == 0) {
        fprintf(stderr, "%s: no array from %s\n", argv[0], argv[1]);
        return 1;
    }
    return 0;
}
