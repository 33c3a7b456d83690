#include <iomanip>
#include <nlohmann/json.hpp>

#include "Commands.h"
#include "LoadedFile.h"
#include "PackedArrays.h"

namespace ovela::tune {

namespace {

constexpr int kFirstProfile = 0;
constexpr int kLastProfile = 9;
constexpr int kGeneralProfile = -1;

struct NamedArray {
    std::string kind;  // "profile", "general" or "tuning"
    std::string name;  // the tuning's name; empty otherwise
    PackedArray array;
};

nlohmann::json entriesToJson(const PackedArray& array) {
    nlohmann::json entries = nlohmann::json::array();
    for (const PackedEntry& entry : array.entries) {
        entries.push_back({{"device", deviceName(entry.device)},
                           {"code", kyrCodeText(entry.code)},
                           {"count", entry.values.size()},
                           {"values", entry.values}});
    }
    return entries;
}

void printJson(const std::string& path, const std::vector<NamedArray>& arrays, std::ostream& out) {
    nlohmann::json document = {
        {"file", path}, {"profiles", nlohmann::json::array()}, {"tunings", nlohmann::json::array()}};
    for (const NamedArray& named : arrays) {
        nlohmann::json item = {{"size", named.array.size}, {"entries", entriesToJson(named.array)}};
        if (named.kind == "tuning") {
            item["name"] = named.name;
            item["ordinal"] = named.array.header;
            document["tunings"].push_back(item);
        } else if (named.kind == "general") {
            document["general"] = item;
        } else {
            item["profile"] = named.array.header;
            document["profiles"].push_back(item);
        }
    }
    out << document.dump(2) << "\n";
}

void printText(const std::vector<NamedArray>& arrays, std::ostream& out) {
    for (const NamedArray& named : arrays) {
        const PackedArray& array = named.array;
        if (named.kind == "tuning") {
            out << "tuning " << named.name << " (ordinal " << array.header << ")";
        } else if (named.kind == "general") {
            out << "general (profile -1)";
        } else {
            out << "profile " << array.header;
        }
        out << ": " << array.entries.size() << " entries, " << array.size << " bytes\n";
        for (const PackedEntry& entry : array.entries) {
            out << "  " << std::left << std::setw(14) << deviceName(entry.device) << std::setw(5)
                << kyrCodeText(entry.code) << std::right << std::setw(4) << entry.values.size()
                << ":";
            for (int32_t value : entry.values) {
                out << " " << value;
            }
            out << "\n";
        }
    }
}

}  // namespace

void dumpStore(ProfileParamArray& store, const DumpSelection& selection, std::ostream& out) {
    std::vector<NamedArray> arrays;
    auto addProfile = [&](int profile) {
        if (auto array = profileArray(store, profile)) {
            arrays.push_back({profile == kGeneralProfile ? "general" : "profile", "", *array});
        }
    };
    auto addTuning = [&](const std::string& name) {
        if (auto array = tuningArray(store, name)) {
            arrays.push_back({"tuning", name, *array});
        }
    };
    if (!selection.profile && !selection.tuning) {
        for (int profile = kFirstProfile; profile <= kLastProfile; ++profile) {
            addProfile(profile);
        }
        addProfile(kGeneralProfile);
        for (const std::string& name : allTunings(store)) {
            addTuning(name);
        }
    }
    if (selection.profile) {
        addProfile(*selection.profile);
    }
    if (selection.tuning) {
        addTuning(*selection.tuning);
    }
    if (selection.json) {
        printJson(selection.path, arrays, out);
    } else {
        printText(arrays, out);
    }
}

int runDump(const CommandLine& line, std::ostream& out, std::ostream& err) {
    DumpSelection selection;
    if (!tuningFileArgument(line, &selection.path, err)) {
        return kExitUsage;
    }
    selection.json = line.has("json");
    if (line.has("profile")) {
        int profile = 0;
        if (!parseInt(line.value("profile"), &profile) || profile < kGeneralProfile ||
            profile > kLastProfile) {
            err << "ovela-tune dump: --profile takes a number from -1 to 9\n";
            return kExitUsage;
        }
        selection.profile = profile;
    }
    if (line.has("tuning")) {
        selection.tuning = line.value("tuning");
    }

    const std::unique_ptr<LoadedFile> file = loadFile(selection.path);
    if (!file->loads()) {
        return doesNotLoad("dump", *file, err);
    }
    if (selection.tuning && file->store->getTuningParamsSize(*selection.tuning) == 0) {
        err << "ovela-tune dump: " << selection.path << " has no tuning " << *selection.tuning
            << "\n";
        return kExitUsage;
    }
    dumpStore(*file->store, selection, out);
    return kExitOk;
}

}  // namespace ovela::tune
