#include "Commands.h"
#include "LoadedFile.h"
#include "StoreArrays.h"

namespace ovela::tune {

int runTunings(const CommandLine& line, std::ostream& out, std::ostream& err) {
    std::string path;
    if (!tuningFileArgument(line, "tunings", true, &path, err)) {
        return kExitUsage;
    }
    const std::unique_ptr<LoadedFile> file = loadFile(path);
    if (!file->loads()) {
        return doesNotLoad("tunings", *file, err);
    }
    ProfileParamArray& store = *file->store;
    for (size_t endpoint = 0; endpoint < kNumEndpoints; ++endpoint) {
        out << kEndpointNames[endpoint] << ":";
        for (const std::string& name : availableTunings(store, static_cast<Endpoint>(endpoint))) {
            out << " " << name;
        }
        out << "\n";
    }
    return kExitOk;
}

}  // namespace ovela::tune
