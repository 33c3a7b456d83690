#include <nlohmann/json.hpp>

#include "ArrayDiff.h"
#include "Commands.h"
#include "FileContents.h"
#include "JsonOutput.h"
#include "LoadedFile.h"

namespace ovela::tune {

namespace {

void printJson(const std::string& before, const std::string& after,
               const std::vector<Difference>& differences, std::ostream& out) {
    nlohmann::json document = {{"files", {before, after}},
                               {"same", differences.empty()},
                               {"differences", nlohmann::json::array()}};
    for (const Difference& difference : differences) {
        nlohmann::json item = {{"array", difference.array},   {"what", difference.what},
                               {"change", difference.change}, {"before", difference.before},
                               {"after", difference.after},   {"text", difference.text()}};
        if (!difference.device.empty()) {
            item["device"] = difference.device;
        }
        if (!difference.code.empty()) {
            item["code"] = difference.code;
        }
        if (difference.index) {
            item["index"] = *difference.index;
        }
        if (!difference.band.empty()) {
            item["band"] = difference.band;
        }
        if (!difference.name.empty()) {
            item["name"] = difference.name;
        }
        document["differences"].push_back(item);
    }
    writeJson(document, out);
}

}  // namespace

// 0 the same, 1 different, as diff(1); 3 when a file does not load, as
// every command.
int runDiff(const CommandLine& line, std::ostream& out, std::ostream& err) {
    const std::vector<std::string> paths = namedTuningFiles(line);
    if (paths.size() != 2) {
        err << "ovela-tune diff: give two tuning files (--sample counts as the first)\n";
        return kExitUsage;
    }
    std::unique_ptr<LoadedFile> files[2];
    int status = kExitOk;
    for (int i = 0; i < 2; ++i) {
        files[i] = loadFile(paths[i]);
        if (!files[i]->loads()) {
            status = doesNotLoad("diff", *files[i], err);
        }
    }
    if (status != kExitOk) {
        return status;
    }
    const std::vector<Difference> differences =
        compareFiles(describe(*files[0]), describe(*files[1]));
    if (line.has("json")) {
        printJson(files[0]->path, files[1]->path, differences, out);
    } else if (line.has("stat")) {
        for (const std::string& stat : differenceStats(differences)) {
            out << stat << "\n";
        }
    } else {
        for (const Difference& difference : differences) {
            out << difference.text() << "\n";
        }
    }
    return differences.empty() ? kExitOk : kExitFindings;
}

}  // namespace ovela::tune
