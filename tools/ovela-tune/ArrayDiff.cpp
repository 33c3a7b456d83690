#include "ArrayDiff.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>
#include <utility>

#include "StoreArrays.h"
#include "TuningFileVocabulary.h"

namespace ovela::tune {

namespace {

constexpr char kMissing[] = "(missing)";

// What pairs an entry of one file with one of the other: its device, code,
// origin in the file and how-manieth it is of those.
using EntryKey = std::tuple<int32_t, std::string, std::string, size_t>;

// One value of an entry as diff compares it: the part it belongs to, by
// what the file calls it, and its band or its place in the list.
struct CellKey {
    std::string name;
    bool banded;
    long band;  // a band's frequency, or a place in the list
    bool operator<(const CellKey& other) const {
        return std::tie(name, banded, band) < std::tie(other.name, other.banded, other.band);
    }
};

struct Cell {
    int32_t value;
    std::string bandLabel;  // "band 9 (1098 Hz)"
    size_t order;           // where it stands in the entry
    bool store = false;     // the store wrote it, not the file
};

// Whether rows gave the part's values one by one: a band's each.
bool isPerRow(const EntryPart& part) {
    return part.count > 0 && part.sources.size() == part.count &&
           !part.sources.front().attribute.empty();
}

// The part of `entry` that gives its bands' frequencies, with every
// frequency once; null when it has none.
const EntryPart* frequencyPart(const NamedEntry& entry) {
    for (const EntryPart& part : entry.parts) {
        if (!isPerRow(part) || part.sources.front().attribute != kBandFrequencyAttribute) {
            continue;
        }
        std::set<int32_t> seen;
        for (size_t i = 0; i < part.count; ++i) {
            if (!seen.insert(entry.values[part.first + i]).second) {
                return nullptr;
            }
        }
        return &part;
    }
    return nullptr;
}

// The values of `entry` by part and band: a list that rows give value by
// value is told band by band (by frequency where the entry has one), any
// other list value by value.
std::map<CellKey, Cell> cellsOf(const NamedEntry& entry) {
    std::map<CellKey, Cell> cells;
    if (entry.parts.empty()) {
        for (size_t i = 0; i < entry.values.size(); ++i) {
            cells[{"", false, static_cast<long>(i)}] = {entry.values[i], "", i, false};
        }
        return cells;
    }
    const EntryPart* frequencies = frequencyPart(entry);
    for (const EntryPart& part : entry.parts) {
        const std::string name = isPerRow(part) && (part.count > 1 || frequencies != nullptr)
                                     ? part.sources.front().attribute
                                     : partName(part);
        // A single value that an attribute gives is no band.
        const bool banded = isPerRow(part) && (part.count > 1 || frequencies != nullptr);
        for (size_t i = 0; i < part.count && part.first + i < entry.values.size(); ++i) {
            const int32_t value = entry.values[part.first + i];
            if (!banded) {
                cells[{name, false, static_cast<long>(i)}] = {value, "", part.first + i,
                                                              part.parameter == EntryPart::kStore};
                continue;
            }
            const bool byFrequency = frequencies != nullptr && frequencies->count == part.count;
            const int32_t frequency = byFrequency ? entry.values[frequencies->first + i] : 0;
            if (&part == frequencies) {
                continue;  // the band's own name
            }
            const std::string label =
                "band " + std::to_string(i + 1) +
                (byFrequency ? " (" + std::to_string(frequency) + " Hz)" : std::string());
            cells[{name, true, byFrequency ? frequency : static_cast<long>(i)}] = {
                value, label, part.first + i, false};
        }
    }
    return cells;
}

class Comparison {
  public:
    explicit Comparison(std::vector<Difference>& differences) : mDifferences(differences) {}

    void arrays(const NamedArray* before, const NamedArray* after) {
        const NamedArray& either = before != nullptr ? *before : *after;
        mArray = either.title();
        mTuning = either.kind == ArrayKind::TUNING;
        if (before == nullptr || after == nullptr) {
            const std::string count = std::to_string(either.entries.size()) + " entries";
            add({mArray, "", "", "", std::nullopt, "", "", before == nullptr ? "added" : "removed",
                 before == nullptr ? "" : count, after == nullptr ? "" : count});
            return;
        }
        if (mTuning && before->endpoint != after->endpoint) {
            add({mArray, "", "", "endpoint", std::nullopt, "", "", "changed",
                 endpointName(before->endpoint), endpointName(after->endpoint)});
        }
        if (before->ieqPresets != after->ieqPresets) {
            add({mArray, "", "", "IEQ preset", std::nullopt, "", "", "changed",
                 joined(before->ieqPresets), joined(after->ieqPresets)});
        }
        // Entries of one device and code from several places are told apart
        // by their origin.
        std::map<std::pair<int32_t, std::string>, std::set<std::string>> origins;
        std::map<EntryKey, std::pair<const NamedEntry*, const NamedEntry*>> paired;
        std::vector<EntryKey> order;
        mSorted[0] = sortedEntries(before->entries);
        mSorted[1] = sortedEntries(after->entries);
        for (int side = 0; side < 2; ++side) {
            for (const NamedEntry& entry : mSorted[side]) {
                // A tuning's entries all carry its endpoint's device, told above.
                const int32_t device = mTuning ? 0 : entry.device;
                const EntryKey key{device, kyrCodeText(entry.code), entry.origin, entry.ordinal};
                origins[{device, kyrCodeText(entry.code)}].insert(entry.origin);
                auto& pair = paired[key];
                if (pair.first == nullptr && pair.second == nullptr) {
                    order.push_back(key);
                }
                (side == 0 ? pair.first : pair.second) = &entry;
            }
        }
        std::sort(order.begin(), order.end());
        for (const EntryKey& key : order) {
            const auto& [b, a] = paired[key];
            const bool shared = origins[{std::get<0>(key), std::get<1>(key)}].size() > 1;
            if (b == nullptr || a == nullptr) {
                const NamedEntry& entry = b != nullptr ? *b : *a;
                add(entryDifference(entry, shared, b == nullptr ? "added" : "removed",
                                    b == nullptr ? "" : valuesText(entry.values),
                                    a == nullptr ? "" : valuesText(entry.values)));
            } else {
                compareEntries(*b, *a, shared);
            }
        }
    }

  private:
    void compareEntries(const NamedEntry& before, const NamedEntry& after, bool shared) {
        if (before.values == after.values) {
            return;
        }
        if (before.values.size() == 1 && after.values.size() == 1) {
            add(entryDifference(after, shared, "changed", std::to_string(before.values[0]),
                                std::to_string(after.values[0])));
            return;
        }
        const std::map<CellKey, Cell> was = cellsOf(before);
        const std::map<CellKey, Cell> is = cellsOf(after);
        // In the order of the entry after the change, then what it lost.
        std::vector<std::pair<size_t, CellKey>> keys;
        for (const auto& [key, cell] : is) {
            keys.emplace_back(cell.order, key);
        }
        for (const auto& [key, cell] : was) {
            if (is.count(key) == 0) {
                keys.emplace_back(after.values.size() + cell.order, key);
            }
        }
        std::sort(keys.begin(), keys.end());
        // The store's own values (band counts, channels) follow from the
        // file's: they are told only when nothing else changed.
        auto differs = [&](const CellKey& key, bool* store) {
            const auto b = was.find(key);
            const auto a = is.find(key);
            *store = (a != is.end() ? a->second : b->second).store;
            return b == was.end() || a == is.end() || b->second.value != a->second.value;
        };
        const bool fileValuesDiffer = std::any_of(keys.begin(), keys.end(), [&](const auto& k) {
            bool store = false;
            return differs(k.second, &store) && !store;
        });
        for (const auto& [order, key] : keys) {
            bool store = false;
            if (!differs(key, &store) || (store && fileValuesDiffer)) {
                continue;
            }
            const auto b = was.find(key);
            const auto a = is.find(key);
            Difference difference =
                entryDifference(after, shared, "changed",
                                b == was.end() ? kMissing : std::to_string(b->second.value),
                                a == is.end() ? kMissing : std::to_string(a->second.value));
            const Cell& cell = a != is.end() ? a->second : b->second;
            if (key.banded) {
                difference.band = cell.bandLabel;
                difference.name = key.name;
            } else {
                difference.index = static_cast<size_t>(key.band);
                difference.name = key.name == nameOf(after) ? "" : key.name;
            }
            add(std::move(difference));
        }
        if (before.values.size() != after.values.size()) {
            add(entryDifference(after, shared, "changed",
                                std::to_string(before.values.size()) + " values",
                                std::to_string(after.values.size()) + " values"));
        }
    }

    // What the file calls the entry's values when one element gives them.
    static std::string nameOf(const NamedEntry& entry) {
        std::vector<std::string> named;
        for (const EntryPart& part : entry.parts) {
            if (part.parameter != EntryPart::kStore) {
                named.push_back(partName(part));
            }
        }
        return named.size() == 1 ? named.front() : std::string();
    }

    // An entry's place: its name and code ("volume-leveler-amount (qvla)"),
    // the code alone for an entry made of several parts; and where it came
    // from when its device and code do not tell it apart.
    Difference entryDifference(const NamedEntry& entry, bool shared, const char* change,
                               std::string before, std::string after) const {
        const std::string code = kyrCodeText(entry.code);
        const std::string name = nameOf(entry);
        // A second entry of one origin, device and code says so.
        const std::string nth =
            entry.ordinal == 0 ? "" : ", entry " + std::to_string(entry.ordinal + 1);
        std::string what = name.empty() ? code + nth : name + " (" + code + nth + ")";
        if (shared) {
            what += " [" + entry.origin + "]";
        }
        return {mArray,
                mTuning ? "" : deviceName(entry.device),
                code,
                what,
                std::nullopt,
                "",
                "",
                change,
                std::move(before),
                std::move(after)};
    }

    void add(Difference difference) { mDifferences.push_back(std::move(difference)); }

    std::vector<Difference>& mDifferences;
    std::string mArray;
    bool mTuning = false;
    // The entries of the two arrays being compared, which the pairs point at.
    std::vector<NamedEntry> mSorted[2];
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
        place += (name.empty() ? "" : " " + name) + "[" + std::to_string(*index) + "]";
    }
    if (!band.empty()) {
        place += ": " + band + ": " + name;
    }
    if (change == "added") {
        return place + ": added" + (after.empty() ? "" : " " + after);
    }
    if (change == "removed") {
        return place + ": removed" + (before.empty() ? "" : " " + before);
    }
    return place + (band.empty() ? ": " : " ") + before + " -> " + after;
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
        const std::string array = std::string("endpoint ") + endpointName(b.endpoint);
        if (b.recorded != a.recorded) {
            differences.push_back(
                {array, "", "", "tuning", std::nullopt, "", "", "changed", b.recorded, a.recorded});
        }
        if (b.available != a.available) {
            differences.push_back({array, "", "", "selects", std::nullopt, "", "", "changed",
                                   joined(b.available), joined(a.available)});
        }
    }
    return differences;
}

std::vector<std::string> differenceStats(const std::vector<Difference>& differences) {
    struct Counts {
        std::set<std::pair<std::string, std::string>> changed;
        size_t added = 0;
        size_t removed = 0;
        size_t values = 0;
    };
    std::vector<std::string> order;
    std::map<std::string, Counts> byArray;
    for (const Difference& difference : differences) {
        if (byArray.count(difference.array) == 0) {
            order.push_back(difference.array);
        }
        Counts& counts = byArray[difference.array];
        if (difference.change == "added") {
            ++counts.added;
        } else if (difference.change == "removed") {
            ++counts.removed;
        } else {
            counts.changed.emplace(difference.device, difference.what);
            counts.values += difference.index || !difference.band.empty() ||
                             difference.before.find(" values") == std::string::npos;
        }
    }
    std::vector<std::string> lines;
    for (const std::string& array : order) {
        const Counts& counts = byArray[array];
        lines.push_back(
            array + ": " + std::to_string(counts.changed.size()) + " changed (" +
            std::to_string(counts.values) + (counts.values == 1 ? " value), " : " values), ") +
            std::to_string(counts.added) + " added, " + std::to_string(counts.removed) + " removed");
    }
    return lines;
}

}  // namespace ovela::tune
