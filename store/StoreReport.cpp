#include "StoreReport.h"

#include <algorithm>
#include <set>

#include "ArrayBuilder.h"
#include "Parameter.h"
#include "ParameterValues.h"

namespace ovela {

using namespace rules;

namespace {

// The most parts of an array that a room finding names.
constexpr size_t kRoomParts = 4;

const char* pluralOf(EntrySource source) {
    switch (source) {
        case EntrySource::PROFILE:
            return "profile sections";
        case EntrySource::PROFILE_ENDPOINT:
            return "endpoint sections";
        case EntrySource::TUNING:
            return "tunings";
        case EntrySource::DEFAULT_TUNING:
            return "endpoints served by the default tuning";
        case EntrySource::IEQ_PRESET:
            return "IEQ presets";
        case EntrySource::GENERAL:
            return "general sections";
        case EntrySource::GENERAL_ENDPOINT:
            return "general endpoint sections";
        case EntrySource::STORE:
            return "kinds of entries of the store's own";
    }
    return "";
}

// One part of an array that a room finding names: what takes how many words.
struct RoomPart {
    std::string what;
    std::set<std::pair<long, std::string>> sources;
    size_t words = 0;
    long line = 0;
};

}  // namespace

void StoreReport::reportComposed(ArrayBuilder& builder, EntrySource source,
                                 const ParameterValues* entity, const std::string& servedEndpoint) {
    mReport->markUsed(entity);
    for (const auto& [param, list] : entity->values) {
        if (kParameterCodes[param] != 0) {
            mReport->markSent(entity, param);
        }
    }
    std::string label = mReport->labelOf(entity);
    if (!servedEndpoint.empty()) {
        label += " for " + servedEndpoint;
    }
    builder.setOrigin(source, mReport->lineOf(entity), label);
}

void StoreReport::reportStoreEntries(ArrayBuilder& builder, const char* what, const void* entity) {
    builder.setOrigin(EntrySource::STORE, mReport->lineOf(entity), what + mReport->labelOf(entity));
}

void StoreReport::reportComposite(const void* entity, KyrParameterId code,
                                  std::initializer_list<ListOf> lists, bool sent) {
    bool given = false;
    for (const auto& [parameter, list] : lists) {
        mReport->markSent(entity, parameter);
        given = given || !list->empty();
    }
    if (sent || !given) {
        return;
    }
    mDropped.insert(entity);
    std::vector<std::string> counts;
    for (const auto& [parameter, list] : lists) {
        counts.push_back(mReport->xmlNameOf(entity, parameter) + " " +
                         (list->empty() ? std::string("none") : std::to_string(list->size())));
    }
    mReport->add(kCompositeDropped, mReport->lineOf(entity),
                 mReport->labelOf(entity) + " gives " + listOf(counts) + " values: its " +
                     kyrCodeText(code) + " entry takes as many of each, so it is not sent");
}

ArrayRecord* StoreReport::profileRecord(int32_t profile, size_t room) {
    if (mReport == nullptr) {
        return nullptr;
    }
    ArrayRecord& record = mReport->profileRecord(profile);
    record = ArrayRecord();
    record.room = room;
    return &record;
}

ArrayRecord* StoreReport::tuningRecord(const std::string& name, size_t room) {
    if (mReport == nullptr) {
        return nullptr;
    }
    ArrayRecord& record = mReport->tuningRecord(name);
    record = ArrayRecord();
    record.room = room;
    return &record;
}

void StoreReport::profileOutOfRange(const void* entity, int profile, bool reportIt) {
    if (mReport == nullptr) {
        return;
    }
    mReport->settle(entity);
    if (reportIt) {
        mReport->add(kProfileId, mReport->lineOf(entity),
                     "profile " + std::to_string(profile) +
                         " is outside 0 to 9: the store skips it and its endpoint sections");
    }
}

void StoreReport::duplicateProfiles(const std::map<int, std::vector<const void*>>& profiles) {
    if (mReport == nullptr) {
        return;
    }
    for (const auto& [id, entities] : profiles) {
        if (entities.size() > 1) {
            mReport->add(kDuplicateProfile, mReport->lastLineOf(entities),
                         "profile " + std::to_string(id) + " is defined " +
                             std::to_string(entities.size()) + " times (" +
                             mReport->linesOf(entities) +
                             "): the store sends the entries of every one in its array");
        }
    }
}

void StoreReport::duplicateTunings(const std::map<std::string, std::vector<const void*>>& tunings) {
    if (mReport == nullptr) {
        return;
    }
    for (const auto& [name, entities] : tunings) {
        if (entities.size() > 1) {
            mReport->add(kDuplicateTuning, mReport->lastLineOf(entities),
                         "tuning " + name + " is defined " + std::to_string(entities.size()) +
                             " times (" + mReport->linesOf(entities) +
                             "): the store keeps one of them, and which one the file does not "
                             "decide");
        }
    }
}

void StoreReport::tuningEndpoint(const void* tuning, const std::string& name, Endpoint endpoint) {
    if (mReport == nullptr) {
        return;
    }
    mReport->add(kTuningEndpoint, mReport->lineOf(tuning),
                 "tuning " + name + " is for the " + kEndpointNames[endpoint] +
                     " endpoint, but its name is the " + name +
                     " endpoint's: a cache records it for " + name +
                     " by its name while the store lists it for " + kEndpointNames[endpoint] +
                     ", so " + name +
                     " cannot select it, and the default tuning no longer "
                     "serves " +
                     name);
}

void StoreReport::emptyTuning(const void* tuning) {
    if (mReport == nullptr || mReport->isSettled(tuning) || mDropped.count(tuning) != 0) {
        return;
    }
    mReport->add(kEmptyTuning, mReport->lineOf(tuning),
                 mReport->labelOf(tuning) +
                     " sends nothing: none of its values has an effect parameter, so the store "
                     "keeps no array for it and no endpoint can select it");
}

void StoreReport::defaultTuning(const void* tuning, const std::vector<Endpoint>& endpoints) {
    if (mReport == nullptr) {
        return;
    }
    std::vector<std::string> names;
    for (Endpoint endpoint : endpoints) {
        names.push_back(kEndpointNames[endpoint]);
    }
    if (tuning == nullptr) {
        if (!names.empty()) {
            mReport->add(kNoTuning, 0,
                         "profiles use the endpoints " + listOf(names) +
                             ", which have neither a tuning of their own name nor a default "
                             "tuning");
        }
        return;
    }
    if (names.empty()) {
        mReport->add(kDefaultTuning, mReport->lineOf(tuning),
                     "the default tuning serves no endpoint: every endpoint that profiles use "
                     "has a tuning of its own name, so its values are never sent");
        mReport->settle(tuning);
        return;
    }
    mReport->add(kDefaultTuning, mReport->lineOf(tuning),
                 "the default tuning serves " + listOf(names) +
                     ", which profiles use and no tuning is named after: its entries go into "
                     "the general array once for each");
}

void StoreReport::monoSpeaker(const void* settings) {
    if (mReport == nullptr) {
        return;
    }
    mReport->add(kMonoSpeaker, mReport->lineOf(settings),
                 "the virtualizer of " + mReport->labelOf(settings) +
                     " is sent as switched off in its output mode: the speaker tuning is mono");
}

void StoreReport::arrayRoom(const std::string& array, const ArrayRecord& record,
                            const std::string& cause) {
    if (mReport == nullptr) {
        return;
    }
    // One source of entries, a tuning's: name its largest entries; several:
    // name the kinds of section that take the most.
    std::set<std::string> labels;
    for (const EntryOrigin& entry : record.entries) {
        labels.insert(entry.label);
    }
    std::map<std::string, RoomPart> parts;
    for (const EntryOrigin& entry : record.entries) {
        const std::string key =
            labels.size() == 1 ? kyrCodeText(entry.code) : pluralOf(entry.source);
        RoomPart& part = parts[key];
        part.what = key;
        part.sources.emplace(entry.line, entry.label);
        part.words += entry.words;
        part.line =
            part.line == 0 || (entry.line != 0 && entry.line < part.line) ? entry.line : part.line;
    }
    std::vector<RoomPart> largest;
    for (const auto& [key, part] : parts) {
        largest.push_back(part);
    }
    std::stable_sort(largest.begin(), largest.end(),
                     [](const RoomPart& a, const RoomPart& b) { return a.words > b.words; });
    std::vector<std::string> named;
    for (size_t i = 0; i < largest.size() && i < kRoomParts; ++i) {
        const RoomPart& part = largest[i];
        const bool one = labels.size() != 1 && part.sources.size() == 1;
        const std::string who = labels.size() == 1 ? part.what + " entries"
                                : one              ? part.sources.begin()->second
                                      : std::to_string(part.sources.size()) + " " + part.what;
        named.push_back(who + (one ? " takes " : " take ") + std::to_string(part.words) + " words");
    }
    const long line = largest.empty() ? 0 : largest.front().line;
    mReport->add(kArrayRoom, line,
                 (cause.empty() ? std::string() : cause + ", and ") + array + " needs " +
                     std::to_string(record.neededWords) + " words but has room for " +
                     std::to_string(record.room) + ", so the file does not load: " + listOf(named));
}

}  // namespace ovela
