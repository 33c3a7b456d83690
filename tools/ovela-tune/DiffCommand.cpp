#include <nlohmann/json.hpp>

#include "ArrayDiff.h"
#include "Commands.h"
#include "FileContents.h"
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
    out << document.dump(2) << "\n";
}

}  // namespace

// Exit codes as diff(1)'s: 0 the same, 1 different, 2 trouble.
int runDiff(const CommandLine& line, std::ostream& out, std::ostream& err) {
    if (line.positional().size() != 2) {
        err << "ovela-tune diff: give two tuning files\n";
        return kExitUsage;
    }
    std::unique_ptr<LoadedFile> files[2];
    bool load = true;
    for (int i = 0; i < 2; ++i) {
        files[i] = loadFile(line.positional()[i]);
        if (!files[i]->loads()) {
            doesNotLoad("diff", *files[i], err);
            load = false;
        }
    }
    if (!load) {
        return kExitUsage;
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
