#include "FileContents.h"

#include <ovela/AudioDevices.h>
#include <ovela/OvlProfileId.h>

#include <algorithm>
#include <map>
#include <tuple>

#include "DeviceData.h"
#include "RecordedTuning.h"
#include "StoreArrays.h"
#include "TuningFileShape.h"
#include "TuningFileVocabulary.h"

namespace ovela::tune {

namespace {

// Names the entries of `array` from the origins that the load recorded for
// them.
std::vector<NamedEntry> namedEntries(const PackedArray& array, const ArrayRecord* record,
                                     std::vector<NamedEntry>* fromDefaultTuning) {
    const bool recorded = record != nullptr && record->entries.size() == array.entries.size();
    std::vector<NamedEntry> entries;
    std::map<std::tuple<std::string, int32_t, KyrParameterId>, size_t> seen;
    for (size_t i = 0; i < array.entries.size(); ++i) {
        const PackedEntry& entry = array.entries[i];
        NamedEntry named{entry.device, entry.code, entry.values, {}, "", Place(), {}, 0};
        if (recorded) {
            const EntryOrigin& origin = record->entries[i];
            named.origin = origin.label;
            named.place = origin.place;
            named.parts = origin.parts;
            for (const EntryPart& part : origin.parts) {
                named.names.push_back(partName(part));
            }
            named.ordinal = seen[{origin.label, entry.device, entry.code}]++;
            if (fromDefaultTuning != nullptr && origin.source == EntrySource::DEFAULT_TUNING) {
                fromDefaultTuning->push_back(named);
            }
        }
        entries.push_back(std::move(named));
    }
    return entries;
}

template <typename Records, typename Key>
const ArrayRecord* recordOf(const Records& records, const Key& key) {
    auto found = records.find(key);
    return found == records.end() ? nullptr : &found->second;
}

// Where a device word stands in the order of the entries: every device first.
size_t deviceRank(int32_t device) {
    if (device == kDeviceAll) {
        return 0;
    }
    for (size_t endpoint = 0; endpoint < kNumEndpoints; ++endpoint) {
        if (deviceForEndpoint(static_cast<Endpoint>(endpoint)) == device) {
            return 1 + endpoint;
        }
    }
    return 1 + kNumEndpoints;
}

}  // namespace

std::string partName(const EntryPart& part) {
    if (!part.sources.empty()) {
        return nameOf(part.sources.front());
    }
    return part.parameter == EntryPart::kStore ? "(store)" : xmlNameOf(part.parameter);
}

std::string NamedArray::title() const {
    switch (kind) {
        case ArrayKind::GENERAL:
            return "general";
        case ArrayKind::PROFILE:
            return "profile " + std::to_string(header);
        case ArrayKind::TUNING:
            return "tuning " + name;
    }
    return "";
}

FileContents describe(LoadedFile& file) {
    FileContents contents;
    contents.path = file.path;
    ProfileParamArray& store = *file.store;
    const LoadReport& report = file.report;

    std::map<int, std::vector<std::pair<std::string, std::string>>> profiles;
    if (DeviceData* model = report.model()) {
        for (Profile* profile : model->getProfiles()) {
            profiles[profile->getProfileId()].emplace_back(
                profile->getName(), kPresetTypeNames[profile->getSelectedIeqPreset()]);
        }
    }
    const LoadTrace& trace = report.trace();
    for (OvlProfileId id = kGeneralProfileId; id <= kLastProfileId; ++id) {
        const std::optional<PackedArray> array = profileArray(store, id);
        if (!array) {
            continue;
        }
        NamedArray named{id == kGeneralProfileId ? ArrayKind::GENERAL : ArrayKind::PROFILE,
                         array->header,
                         array->size,
                         "",
                         ENDPOINT_SPEAKER,
                         {},
                         {},
                         namedEntries(*array, recordOf(trace.profileRecords(), id),
                                      id == kGeneralProfileId ? &contents.defaultTuning : nullptr)};
        std::vector<std::pair<std::string, std::string>> models = profiles[id];
        std::sort(models.begin(), models.end());
        for (const auto& [name, preset] : models) {
            named.profileNames.push_back(name);
            named.ieqPresets.push_back(preset);
        }
        contents.arrays.push_back(std::move(named));
    }

    // Each endpoint's list, asked once: a tuning is for the endpoint that
    // lists it.
    std::vector<std::vector<std::string>> listed;
    std::map<std::string, Endpoint> endpointOf;
    for (size_t e = 0; e < kNumEndpoints; ++e) {
        listed.push_back(availableTunings(store, static_cast<Endpoint>(e)));
        for (const std::string& name : listed.back()) {
            endpointOf[name] = static_cast<Endpoint>(e);
        }
    }
    std::vector<std::string> tunings = allTunings(store);
    std::sort(tunings.begin(), tunings.end());
    for (const std::string& name : tunings) {
        if (const std::optional<PackedArray> array = tuningArray(store, name)) {
            const auto found = endpointOf.find(name);
            const Endpoint endpoint = found == endpointOf.end() ? ENDPOINT_SPEAKER : found->second;
            contents.arrays.push_back(
                {ArrayKind::TUNING,
                 array->header,
                 array->size,
                 name,
                 endpoint,
                 {},
                 {},
                 namedEntries(*array, recordOf(trace.tuningRecords(), name), nullptr)});
        }
    }

    for (size_t e = 0; e < kNumEndpoints; ++e) {
        const auto endpoint = static_cast<Endpoint>(e);
        contents.endpoints.push_back({endpoint, recordedTuning(store, endpoint), listed[e]});
        for (const NamedEntry& entry : contents.defaultTuning) {
            if (entry.device == deviceForEndpoint(endpoint)) {
                contents.defaultServes.push_back(endpoint);
                break;
            }
        }
    }
    return contents;
}

std::vector<NamedEntry> sortedEntries(std::vector<NamedEntry> entries) {
    std::stable_sort(entries.begin(), entries.end(), [](const NamedEntry& a, const NamedEntry& b) {
        return std::make_tuple(deviceRank(a.device), kyrCodeText(a.code), a.origin, a.values) <
               std::make_tuple(deviceRank(b.device), kyrCodeText(b.code), b.origin, b.values);
    });
    return entries;
}

std::string namesText(const NamedEntry& entry) {
    if (entry.names.empty()) {
        return kyrCodeText(entry.code);
    }
    // Attributes of one element follow its name once: "band_ieq frequency, target".
    std::string text;
    std::string element;
    for (const std::string& name : entry.names) {
        const size_t blank = name.find(' ');
        const std::string prefix = blank == std::string::npos ? name : name.substr(0, blank);
        if (!text.empty() && prefix == element && blank != std::string::npos) {
            text += ", " + name.substr(blank + 1);
        } else {
            text += (text.empty() ? "" : ", ") + name;
        }
        element = blank == std::string::npos ? std::string() : prefix;
    }
    return text;
}

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : ", ") + word;
    }
    return text;
}

std::string valuesText(const std::vector<int32_t>& values) {
    std::string text;
    for (int32_t value : values) {
        text += (text.empty() ? "" : " ") + std::to_string(value);
    }
    return text;
}

}  // namespace ovela::tune
