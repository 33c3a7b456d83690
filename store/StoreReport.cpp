#include "StoreReport.h"

#include <algorithm>
#include <set>

#include "ArrayBuilder.h"
#include "Parameter.h"
#include "ParameterValues.h"

namespace ovela {

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
    Place place;
};

bool isEarlier(const Place& a, const Place& b) {
    return a.line < b.line || (a.line == b.line && a.column < b.column);
}

bool samePlace(const Place& a, const Place& b) {
    return a.line == b.line && a.column == b.column;
}

std::string linesOf(const LoadTrace& trace, const std::vector<const void*>& entities) {
    std::vector<long> lines;
    for (const void* entity : entities) {
        lines.push_back(trace.placeOf(entity).line);
    }
    std::sort(lines.begin(), lines.end());
    std::vector<std::string> texts;
    for (long line : lines) {
        texts.push_back(std::to_string(line));
    }
    return "lines " + listOf(texts);
}

}  // namespace

std::vector<Source> StoreReport::sourcesOf(const void* entity, Parameter parameter) const {
    const TracedValues* traced = mReport->trace().valuesOf(entity, parameter);
    return traced == nullptr ? std::vector<Source>() : traced->sources;
}

void StoreReport::reportComposed(ArrayBuilder& builder, EntrySource source,
                                 const ParameterValues* entity, const char* servedEndpoint) {
    LoadTrace& trace = mReport->trace();
    trace.markUsed(entity);
    for (const auto& [param, list] : entity->values) {
        if (kParameterCodes[param] != 0) {
            trace.setFate(entity, param, list.empty() ? Fate::EMPTY : Fate::SENT);
        }
    }
    std::string label = trace.labelOf(entity);
    if (servedEndpoint != nullptr) {
        label += std::string(" for ") + servedEndpoint;
    }
    builder.setOrigin(source, entity, trace.placeOf(entity), label);
}

void StoreReport::reportBuilds(ArrayBuilder& builder, EntrySource source, const void* entity,
                               const char* what) {
    LoadTrace& trace = mReport->trace();
    trace.markUsed(entity);
    builder.setOrigin(source, entity, trace.placeOf(entity), what + trace.labelOf(entity));
}

void StoreReport::reportParts(ArrayBuilder& builder, std::initializer_list<PartOf> parts) {
    EntryOrigin* entry = builder.lastRecorded();
    if (entry == nullptr) {
        return;
    }
    size_t first = 0;
    for (const PartOf& part : parts) {
        if (part.count == 0) {
            continue;
        }
        // The store's own values in a row make one part.
        if (part.parameter == EntryPart::kStore && !entry->parts.empty() &&
            entry->parts.back().parameter == EntryPart::kStore) {
            entry->parts.back().count += part.count;
            first += part.count;
            continue;
        }
        std::vector<Source> sources;
        if (part.parameter != EntryPart::kStore && part.entity != nullptr) {
            sources = sourcesOf(part.entity, part.parameter);
        } else if (part.parameter != EntryPart::kStore) {
            // The speaker's matrix: what every tuning that gave it gave.
            for (const void* tuning : mMatrixTunings[part.parameter]) {
                const std::vector<Source> given = sourcesOf(tuning, part.parameter);
                sources.insert(sources.end(), given.begin(), given.end());
                consulted(tuning, part.parameter);
            }
        }
        entry->parts.push_back({part.parameter, first, part.count, std::move(sources)});
        first += part.count;
    }
}

void StoreReport::consulted(const void* entity, Parameter parameter) {
    if (mReport == nullptr) {
        return;
    }
    mConsulted.emplace(entity, parameter);
    mReport->trace().setFate(entity, parameter, Fate::SENT);
}

void StoreReport::speakerMatrix(const void* tuning, Parameter matrix) {
    if (mReport != nullptr) {
        mMatrixTunings[matrix].push_back(tuning);
    }
}

Place StoreReport::compositeFault(const void* entity, std::initializer_list<ListOf> lists,
                                  std::string* where) const {
    // Lists gathered row by row: the first row of the longest list that
    // gives no value to a shorter one.
    const ListOf* longest = lists.begin();
    for (const ListOf& list : lists) {
        longest = list.second->size() > longest->second->size() ? &list : longest;
    }
    const std::vector<Source> rows = sourcesOf(entity, longest->first);
    for (const ListOf& list : lists) {
        if (list.second->size() >= longest->second->size()) {
            continue;
        }
        const std::vector<Source> given = sourcesOf(entity, list.first);
        if (given.empty()) {
            return rows.empty() ? mReport->trace().placeOf(entity) : rows.front().elementPlace;
        }
        if (rows.size() != longest->second->size()) {
            // Lists of one element each: the shorter one's element.
            return given.front().elementPlace;
        }
        for (const Source& row : rows) {
            const bool gives = std::any_of(given.begin(), given.end(), [&](const Source& value) {
                return samePlace(value.elementPlace, row.elementPlace);
            });
            if (!gives) {
                *where = ", and the <" + row.element + "> here gives no " + given.front().attribute;
                return row.elementPlace;
            }
        }
        return given.front().elementPlace;
    }
    return mReport->trace().placeOf(entity);
}

void StoreReport::reportComposite(const void* entity, KyrParameterId code,
                                  std::initializer_list<ListOf> lists, bool sent) {
    LoadTrace& trace = mReport->trace();
    bool given = false;
    for (const auto& [parameter, list] : lists) {
        trace.setFate(entity, parameter,
                      sent            ? Fate::SENT
                      : list->empty() ? Fate::EMPTY
                                      : Fate::DROPPED);
        given = given || !list->empty();
    }
    if (sent || !given) {
        return;
    }
    mDropped.insert(entity);
    std::vector<std::string> counts;
    for (const auto& [parameter, list] : lists) {
        const TracedValues* traced = trace.valuesOf(entity, parameter);
        const std::string name =
            traced == nullptr ? kParameterNames[parameter] : nameOf(traced->sources.front());
        counts.push_back(name + " " +
                         (list->empty() ? std::string("none") : std::to_string(list->size())));
    }
    std::string where;
    const Place at = compositeFault(entity, lists, &where);
    mReport->add(Rule::COMPOSITE_DROPPED, at,
                 {{"owner", trace.labelOf(entity)},
                  {"counts", listOf(counts)},
                  {"where", where},
                  {"code", kyrCodeText(code)}});
}

ArrayRecord* StoreReport::profileRecord(int32_t profile, size_t room) {
    if (mReport == nullptr) {
        return nullptr;
    }
    ArrayRecord& record = mReport->trace().profileRecord(profile);
    record = ArrayRecord();
    record.room = room;
    return &record;
}

ArrayRecord* StoreReport::tuningRecord(const std::string& name, size_t room) {
    if (mReport == nullptr) {
        return nullptr;
    }
    ArrayRecord& record = mReport->trace().tuningRecord(name);
    record = ArrayRecord();
    record.room = room;
    return &record;
}

void StoreReport::profileOutOfRange(const void* entity, int profile, bool reportIt) {
    if (mReport == nullptr) {
        return;
    }
    LoadTrace& trace = mReport->trace();
    trace.markUsed(entity);
    trace.setFates(entity, Fate::SKIPPED);
    trace.settle(entity);
    if (reportIt) {
        mReport->add(Rule::PROFILE_ID, trace.placeOf(entity), {{"id", std::to_string(profile)}});
    }
}

void StoreReport::duplicateProfiles(const std::map<int, std::vector<const void*>>& profiles) {
    if (mReport == nullptr) {
        return;
    }
    for (const auto& [id, entities] : profiles) {
        if (entities.size() > 1) {
            mReport->add(Rule::DUPLICATE_PROFILE, mReport->trace().placeOf(entities.back()),
                         {{"id", std::to_string(id)},
                          {"count", std::to_string(entities.size())},
                          {"lines", linesOf(mReport->trace(), entities)}});
        }
    }
}

void StoreReport::duplicateTunings(const std::map<std::string, std::vector<const void*>>& tunings) {
    if (mReport == nullptr) {
        return;
    }
    LoadTrace& trace = mReport->trace();
    for (const auto& [name, entities] : tunings) {
        if (entities.size() < 2) {
            continue;
        }
        // The tunings come in file order, and a later array of a name
        // replaces the earlier: what the earlier ones sent by themselves is
        // gone, while the mix matrices that the store kept are not.
        for (size_t i = 0; i + 1 < entities.size(); ++i) {
            const TracedEntity* traced = trace.entityOf(entities[i]);
            for (const TracedValues& values : traced->values) {
                if (values.fate == Fate::SENT &&
                    mConsulted.count({entities[i], values.parameter}) == 0) {
                    trace.setFate(entities[i], values.parameter, Fate::REPLACED);
                }
            }
            trace.settle(entities[i]);
        }
        mReport->add(Rule::DUPLICATE_TUNING, trace.placeOf(entities.back()),
                     {{"name", name},
                      {"count", std::to_string(entities.size())},
                      {"lines", linesOf(trace, entities)},
                      {"kept", std::to_string(trace.placeOf(entities.back()).line)}});
    }
}

void StoreReport::tuningEndpoint(const void* tuning, const std::string& name, Endpoint endpoint) {
    if (mReport == nullptr) {
        return;
    }
    mReport->add(Rule::TUNING_ENDPOINT, mReport->trace().placeOf(tuning),
                 {{"name", name}, {"endpoint", endpointName(endpoint)}});
}

void StoreReport::tuningNameCase(const void* tuning, const std::string& name, Endpoint endpoint,
                                 const std::string& servedBy) {
    if (mReport == nullptr) {
        return;
    }
    std::string consequence = "is served by " + servedBy;
    if (endpoint == ENDPOINT_SPEAKER) {
        consequence += ", which also gives the speaker's mix matrices and angles";
    }
    mReport->add(
        Rule::TUNING_NAME_CASE, mReport->trace().placeOf(tuning),
        {{"name", name}, {"endpoint", endpointName(endpoint)}, {"consequence", consequence}});
}

void StoreReport::emptyTuning(const void* tuning) {
    if (mReport == nullptr || mDropped.count(tuning) != 0) {
        return;
    }
    const TracedEntity* traced = mReport->trace().entityOf(tuning);
    if (traced == nullptr || traced->settled) {
        return;
    }
    mReport->add(Rule::EMPTY_TUNING, traced->place, {{"tuning", traced->label}});
}

void StoreReport::defaultTuning(const void* tuning, const std::vector<Endpoint>& endpoints) {
    if (mReport == nullptr) {
        return;
    }
    std::vector<std::string> names;
    for (Endpoint endpoint : endpoints) {
        names.push_back(endpointName(endpoint));
    }
    if (tuning == nullptr) {
        if (!names.empty()) {
            mReport->add(Rule::NO_TUNING, Place(), {{"endpoints", listOf(names)}});
        }
        return;
    }
    const Place at = mReport->trace().placeOf(tuning);
    if (names.empty()) {
        mReport->add(Rule::DEFAULT_TUNING, at,
                     {{"endpoints", "no endpoint"},
                      {"consequence",
                       "every endpoint that profiles use has a tuning of its own "
                       "name, so its values are never sent"}});
        mReport->trace().settle(tuning);
        return;
    }
    mReport->add(Rule::DEFAULT_TUNING, at,
                 {{"endpoints", listOf(names)},
                  {"consequence",
                   "profiles use them and no tuning is named after them, so its "
                   "entries go into the general array once for each"}});
}

void StoreReport::monoSpeaker(const void* settings) {
    if (mReport == nullptr) {
        return;
    }
    mReport->add(Rule::MONO_SPEAKER, mReport->trace().placeOf(settings),
                 {{"settings", mReport->trace().labelOf(settings)}});
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
        part.sources.emplace(entry.place.line, entry.label);
        part.words += entry.words;
        if (part.place.line == 0 || (entry.place.line != 0 && isEarlier(entry.place, part.place))) {
            part.place = entry.place;
        }
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
    mReport->add(Rule::ARRAY_ROOM, largest.empty() ? Place() : largest.front().place,
                 {{"array", array},
                  {"needed", std::to_string(record.neededWords)},
                  {"room", std::to_string(record.room)},
                  {"parts", listOf(named)},
                  {"cause", cause.empty() ? std::string() : "; " + cause}});
}

}  // namespace ovela
