#include <iomanip>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

#include "Commands.h"
#include "FileContents.h"
#include "JsonOutput.h"
#include "LoadedFile.h"
#include "StoreArrays.h"
#include "TuningFileVocabulary.h"

namespace ovela::tune {

namespace {

bool everything(const DumpSelection& selection) {
    return !selection.profile && !selection.tuning;
}

// The default tuning has no array of its own: its entries ride in the general
// array, so it is shown apart from the arrays.
bool defaultTuningWanted(const DumpSelection& selection) {
    return everything(selection) || (selection.tuning && *selection.tuning == kDefaultTuningName);
}

bool wanted(const NamedArray& array, const DumpSelection& selection) {
    if (everything(selection)) {
        return true;
    }
    if (array.kind == ArrayKind::TUNING) {
        return selection.tuning && *selection.tuning == array.name;
    }
    return selection.profile && *selection.profile == array.header;
}

// The entries as the selection prints them: in the array's order for --raw,
// else in an order that the order of the file does not change.
std::vector<NamedEntry> ordered(const std::vector<NamedEntry>& entries, bool raw) {
    return raw ? entries : sortedEntries(entries);
}

std::vector<std::string> endpointNames(const std::vector<Endpoint>& endpoints) {
    std::vector<std::string> names;
    for (Endpoint endpoint : endpoints) {
        names.push_back(kEndpointNames[endpoint]);
    }
    return names;
}

void printEntries(const std::vector<NamedEntry>& entries, bool raw, std::ostream& out) {
    // Entries of one device and code are told apart by where they came from.
    std::map<std::pair<int32_t, KyrParameterId>, std::set<std::string>> origins;
    for (const NamedEntry& entry : entries) {
        origins[{entry.device, entry.code}].insert(entry.origin);
    }
    for (const NamedEntry& entry : ordered(entries, raw)) {
        out << "  " << std::left << std::setw(14) << deviceName(entry.device) << std::setw(5)
            << kyrCodeText(entry.code) << " " << std::setw(40) << namesText(entry) << std::right
            << std::setw(4) << entry.values.size() << ": " << valuesText(entry.values);
        if (origins[{entry.device, entry.code}].size() > 1) {
            out << "  [" << entry.origin << "]";
        }
        out << "\n";
    }
}

std::string heading(const NamedArray& array, bool raw) {
    std::string text = array.title();
    if (array.kind == ArrayKind::GENERAL) {
        text += " (profile " + std::to_string(array.header) + ")";
    }
    if (array.kind == ArrayKind::TUNING) {
        text += std::string(" for ") + kEndpointNames[array.endpoint];
        if (raw) {
            text += " (ordinal " + std::to_string(array.header) + ")";
        }
    }
    for (size_t i = 0; i < array.profileNames.size(); ++i) {
        text += " \"" + array.profileNames[i] + "\", IEQ preset " + array.ieqPresets[i];
    }
    return text + ": " + std::to_string(array.entries.size()) + " entries, " +
           std::to_string(array.size) + " bytes\n";
}

void printText(const FileContents& contents, const DumpSelection& selection, std::ostream& out) {
    out << "file: " << contents.path << "\n";
    if (everything(selection)) {
        out << "endpoints (the tuning a cache starts with; those it can select):\n";
        for (const EndpointTuning& endpoint : contents.endpoints) {
            out << "  " << std::left << std::setw(14) << kEndpointNames[endpoint.endpoint]
                << std::setw(14) << endpoint.recorded << std::right
                << "selects: " << joined(endpoint.available) << "\n";
        }
    }
    for (const NamedArray& array : contents.arrays) {
        if (wanted(array, selection)) {
            out << heading(array, selection.raw);
            printEntries(array.entries, selection.raw, out);
        }
    }
    if (defaultTuningWanted(selection) &&
        (!everything(selection) || !contents.defaultServes.empty())) {
        out << "tuning default, sent with the general array for "
            << (contents.defaultServes.empty() ? "no endpoint"
                                               : joined(endpointNames(contents.defaultServes)))
            << ": " << contents.defaultTuning.size() << " entries";
        if (everything(selection)) {
            // They are listed above, in the general array.
            out << " (dump --tuning default lists them)\n";
            return;
        }
        out << "\n";
        printEntries(contents.defaultTuning, selection.raw, out);
    }
}

nlohmann::json entriesToJson(const std::vector<NamedEntry>& entries, bool raw) {
    nlohmann::json list = nlohmann::json::array();
    for (const NamedEntry& entry : ordered(entries, raw)) {
        nlohmann::json item = {{"device", deviceName(entry.device)},
                               {"code", kyrCodeText(entry.code)},
                               {"names", entry.names},
                               {"count", entry.values.size()},
                               {"values", entry.values},
                               {"from", entry.origin}};
        if (raw) {
            item["line"] = entry.place.line;
        }
        list.push_back(item);
    }
    return list;
}

void printJson(const FileContents& contents, const DumpSelection& selection, std::ostream& out) {
    nlohmann::json document = {{"file", contents.path},
                               {"endpoints", nlohmann::json::array()},
                               {"profiles", nlohmann::json::array()},
                               {"tunings", nlohmann::json::array()}};
    for (const EndpointTuning& endpoint : contents.endpoints) {
        document["endpoints"].push_back({{"endpoint", kEndpointNames[endpoint.endpoint]},
                                         {"tuning", endpoint.recorded},
                                         {"selects", endpoint.available}});
    }
    for (const NamedArray& array : contents.arrays) {
        if (!wanted(array, selection)) {
            continue;
        }
        nlohmann::json item = {{"size", array.size},
                               {"entries", entriesToJson(array.entries, selection.raw)}};
        if (selection.raw) {
            item["header"] = array.header;
        }
        switch (array.kind) {
            case ArrayKind::GENERAL:
                document["general"] = item;
                break;
            case ArrayKind::PROFILE:
                item["profile"] = array.header;
                item["names"] = array.profileNames;
                item["ieqPresets"] = array.ieqPresets;
                document["profiles"].push_back(item);
                break;
            case ArrayKind::TUNING:
                item["name"] = array.name;
                item["endpoint"] = kEndpointNames[array.endpoint];
                document["tunings"].push_back(item);
                break;
        }
    }
    if (defaultTuningWanted(selection)) {
        document[kDefaultTuningName] = {
            {"serves", endpointNames(contents.defaultServes)},
            {"entries", entriesToJson(contents.defaultTuning, selection.raw)}};
    }
    writeJson(document, out);
}

}  // namespace

void dumpFile(const FileContents& contents, const DumpSelection& selection, std::ostream& out) {
    if (selection.json) {
        printJson(contents, selection, out);
    } else {
        printText(contents, selection, out);
    }
}

int runDump(const CommandLine& line, std::ostream& out, std::ostream& err) {
    DumpSelection selection;
    std::string path;
    if (!tuningFileArgument(line, "dump", true, &path, err)) {
        return kExitUsage;
    }
    selection.json = line.has("json");
    selection.raw = line.has("raw");
    if (line.has("profile")) {
        int profile = 0;
        if (!parseProfileOption(line, "dump", &profile, err)) {
            return kExitUsage;
        }
        selection.profile = profile;
    }
    if (line.has("tuning")) {
        selection.tuning = line.value("tuning");
    }

    const std::unique_ptr<LoadedFile> file = loadFile(path);
    if (!file->loads()) {
        return doesNotLoad("dump", *file, err);
    }
    const FileContents contents = describe(*file);
    if (selection.tuning && *selection.tuning != kDefaultTuningName &&
        file->store->getTuningParamsSize(*selection.tuning) == 0) {
        err << "ovela-tune dump: " << path << " has no tuning " << *selection.tuning << "\n";
        return kExitUsage;
    }
    dumpFile(contents, selection, out);
    return kExitOk;
}

}  // namespace ovela::tune
