// Loads a tuning file through the installed library and prints a summary of
// what the store holds: one line per profile array, then the tunings.
#include <ovela/ProfileParamArray.h>
#include <ovela/ProfileParamParser.h>

#include <cstdint>
#include <cstdio>
#include <vector>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: consumer TUNING_FILE\n");
        return 2;
    }
    ovela::ProfileParamArray store(argv[1]);
    for (int profile = -1; profile <= 9; ++profile) {
        std::vector<uint8_t> bytes(store.getProfileParamsSize(profile));
        if (bytes.empty()) {
            std::fprintf(stderr, "profile %d is missing\n", profile);
            return 1;
        }
        store.getProfileParams(profile, bytes.data());
        ovela::ProfileParamParser parser(bytes.data(), static_cast<int>(bytes.size()));
        if (!parser.validate()) {
            return 1;
        }
        std::printf("profile %d: %d entries\n", profile, parser.getParamCount());
    }
    for (size_t endpoint = 0; endpoint < ovela::kNumEndpoints; ++endpoint) {
        auto e = static_cast<ovela::Endpoint>(endpoint);
        std::vector<char> names(store.getAvailableTuningDevicesLen(e) + 1, '\0');
        store.getAvailableTuningDevices(e, names.data(), static_cast<int>(names.size() - 1));
        std::printf("%s: %s\n", ovela::kEndpointNames[endpoint], names.data());
    }
    return 0;
}
