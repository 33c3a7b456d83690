#include "ArrayDiff.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "StoreArrays.h"

namespace ovela::tune {

namespace {

// The entries of one array under one key, before and after.
struct Group {
    std::vector<const NamedEntry*> before;
    std::vector<const NamedEntry*> after;
};

class Comparison {
  public:
    explicit Comparison(std::vector<Difference>& differences) : mDifferences(differences) {}

    void arrays(const NamedArray* before, const NamedArray* after) {
        const NamedArray& either = before != nullptr ? *before : *after;
        mArray = either.title();
        mTuning = either.kind == ArrayKind::TUNING;
        if (before == nullptr || after == nullptr) {
            const std::string count = std::to_string(either.entries.size()) + " entries";
            add({mArray, "", "", "", std::nullopt, before == nullptr ? "added" : "removed",
                 before == nullptr ? "" : count, after == nullptr ? "" : count});
            return;
        }
        if (mTuning && before->endpoint != after->endpoint) {
            add({mArray, "", "", "endpoint", std::nullopt, "changed",
                 kEndpointNames[before->endpoint], kEndpointNames[after->endpoint]});
        }
        if (before->ieqPresets != after->ieqPresets) {
            add({mArray, "", "", "IEQ preset", std::nullopt, "changed", joined(before->ieqPresets),
                 joined(after->ieqPresets)});
        }
        // A tuning's entries all carry its endpoint's device, told above.
        const std::vector<NamedEntry> beforeSorted = sortedEntries(before->entries);
        const std::vector<NamedEntry> afterSorted = sortedEntries(after->entries);
        std::map<std::pair<int32_t, std::string>, Group> groups;
        for (const NamedEntry& entry : beforeSorted) {
            groups[{mTuning ? 0 : entry.device, kyrCodeText(entry.code)}].before.push_back(&entry);
        }
        for (const NamedEntry& entry : afterSorted) {
            groups[{mTuning ? 0 : entry.device, kyrCodeText(entry.code)}].after.push_back(&entry);
        }
        for (auto& [key, group] : groups) {
            compareGroup(group);
        }
    }

  private:
    // Pairs the entries of a group: the same entry first, then the ones from
    // the same section, then the rest in order.
    void compareGroup(Group& group) {
        // Entries of one device and code are told apart by where they came from.
        std::set<std::string> origins;
        for (const auto* entries : {&group.before, &group.after}) {
            for (const NamedEntry* entry : *entries) {
                origins.insert(entry->origin);
            }
        }
        const bool shared = origins.size() > 1;
        std::vector<std::pair<const NamedEntry*, const NamedEntry*>> pairs;
        auto pairWhere = [&](auto same) {
            for (auto b = group.before.begin(); b != group.before.end();) {
                auto a = std::find_if(group.after.begin(), group.after.end(),
                                      [&](const NamedEntry* entry) { return same(**b, *entry); });
                if (a == group.after.end()) {
                    ++b;
                    continue;
                }
                pairs.emplace_back(*b, *a);
                group.after.erase(a);
                b = group.before.erase(b);
            }
        };
        pairWhere([](const NamedEntry& x, const NamedEntry& y) {
            return x.origin == y.origin && x.values == y.values;
        });
        pairWhere([](const NamedEntry& x, const NamedEntry& y) { return x.origin == y.origin; });
        pairWhere([](const NamedEntry&, const NamedEntry&) { return true; });
        for (const auto& [before, after] : pairs) {
            compareEntries(*before, *after, shared);
        }
        for (const NamedEntry* entry : group.before) {
            add(entryDifference(*entry, shared, std::nullopt, "removed", valuesText(entry->values),
                                ""));
        }
        for (const NamedEntry* entry : group.after) {
            add(entryDifference(*entry, shared, std::nullopt, "added", "",
                                valuesText(entry->values)));
        }
    }

    void compareEntries(const NamedEntry& before, const NamedEntry& after, bool shared) {
        if (before.values == after.values) {
            return;
        }
        if (before.values.size() != after.values.size()) {
            add(entryDifference(after, shared, std::nullopt, "changed",
                                std::to_string(before.values.size()) + " values",
                                std::to_string(after.values.size()) + " values"));
            return;
        }
        if (before.values.size() == 1) {
            add(entryDifference(after, shared, std::nullopt, "changed",
                                std::to_string(before.values[0]), std::to_string(after.values[0])));
            return;
        }
        for (size_t i = 0; i < before.values.size(); ++i) {
            if (before.values[i] != after.values[i]) {
                add(entryDifference(after, shared, i, "changed", std::to_string(before.values[i]),
                                    std::to_string(after.values[i])));
            }
        }
    }

    // An entry's place: its name and code ("volume-leveler-amount (qvla)"),
    // the code alone for an entry made of several values; and where it came
    // from when its device and code do not tell it apart.
    Difference entryDifference(const NamedEntry& entry, bool shared, std::optional<size_t> index,
                               const char* change, std::string before, std::string after) const {
        const std::string code = kyrCodeText(entry.code);
        std::string what = entry.names.size() == 1 ? entry.names[0] + " (" + code + ")" : code;
        if (shared) {
            what += " [" + entry.origin + "]";
        }
        return {mArray,
                mTuning ? "" : deviceName(entry.device),
                code,
                what,
                index,
                change,
                std::move(before),
                std::move(after)};
    }

    void add(Difference difference) { mDifferences.push_back(std::move(difference)); }

    std::vector<Difference>& mDifferences;
    std::string mArray;
    bool mTuning = false;
};

}  // namespace

std::string Difference::text() const {
    std::string place = array;
    if (!device.empty()) {
        place += " / " + device;
    }
    if (!what.empty()) {
        place += " / " + what;
    }
    if (index) {
        place += "[" + std::to_string(*index) + "]";
    }
    if (change == "added") {
        return place + ": added" + (after.empty() ? "" : " " + after);
    }
    if (change == "removed") {
        return place + ": removed" + (before.empty() ? "" : " " + before);
    }
    return place + ": " + before + " -> " + after;
}

std::vector<Difference> compareFiles(const FileContents& before, const FileContents& after) {
    std::vector<Difference> differences;
    Comparison comparison(differences);
    std::map<std::string, std::pair<const NamedArray*, const NamedArray*>> arrays;
    std::vector<std::string> order;
    for (const NamedArray& array : before.arrays) {
        arrays[array.title()].first = &array;
        order.push_back(array.title());
    }
    for (const NamedArray& array : after.arrays) {
        if (arrays[array.title()].first == nullptr) {
            order.push_back(array.title());
        }
        arrays[array.title()].second = &array;
    }
    for (const std::string& title : order) {
        comparison.arrays(arrays[title].first, arrays[title].second);
    }
    for (size_t i = 0; i < before.endpoints.size() && i < after.endpoints.size(); ++i) {
        const EndpointTuning& b = before.endpoints[i];
        const EndpointTuning& a = after.endpoints[i];
        const std::string array = std::string("endpoint ") + kEndpointNames[b.endpoint];
        if (b.recorded != a.recorded) {
            differences.push_back(
                {array, "", "", "tuning", std::nullopt, "changed", b.recorded, a.recorded});
        }
        if (b.available != a.available) {
            differences.push_back({array, "", "", "selects", std::nullopt, "changed",
                                   joined(b.available), joined(a.available)});
        }
    }
    return differences;
}

}  // namespace ovela::tune
