#ifndef OVELA_LOAD_TRACE_H
#define OVELA_LOAD_TRACE_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "KyrParameterId.h"
#include "Parameter.h"
#include "SourcePositions.h"

// Where everything that a load read and stored came from; not part of the
// library's interface.
namespace ovela {

// Where values came from in the file: the element that gave them and, for
// values held in an attribute of their own, that attribute.
struct Source {
    Place place;            // of the attribute, or of the element
    Place elementPlace;     // of the element's start tag
    std::string element;    // "volume-leveler-amount", "band_ieq"
    std::string attribute;  // "target"; empty for an element's value or row
};

// "volume-leveler-amount", "band_ieq target": the source as findings name it.
std::string nameOf(const Source& source);

// What became of values that the reader read.
enum class Fate {
    SENT,        // an array carries them
    NEVER_SENT,  // no array carries them
    REPLACED,    // a later element gave the parameter again
    DROPPED,     // the composite entry that they belong to is not sent
    SKIPPED,     // the store skips their section
    EMPTY,       // the list holds no values, so no entry carries it
};

// "sent", "never sent", "replaced by a later one", ...
const char* fateName(Fate fate);

// The values of one parameter of one entity, as one element or a run of
// rows gave them.
struct TracedValues {
    Parameter parameter;
    // One per element; for a list that rows give value by value, one per
    // value, in the order of the list.
    std::vector<Source> sources;
    Fate fate = Fate::NEVER_SENT;
};

// Where an entity was read, and what became of it and of its values.
struct TracedEntity {
    std::string label;     // "profile 2 on headphone"
    const char* kind;      // "profile endpoint sections", for a finding about many
    Place place;           // of its element
    bool used = false;     // the store looked at it
    bool settled = false;  // a finding already says what became of it
    // In the order read; the last of a parameter is the one the entity holds.
    std::vector<TracedValues> values;
};

// Where an entry of a stored array came from.
enum class EntrySource {
    PROFILE,           // a profile's own settings
    PROFILE_ENDPOINT,  // a profile's settings for one endpoint
    TUNING,            // a named tuning
    DEFAULT_TUNING,    // the "default" tuning, in the general array for one endpoint
    IEQ_PRESET,        // an intelligent equalizer preset's bands
    GENERAL,           // the general settings
    GENERAL_ENDPOINT,  // the general settings of one endpoint
    STORE,             // written by the store itself: defaults and output modes
};

// A run of an entry's values: those of one parameter, or those that the store
// writes itself (a band count, a mode).
struct EntryPart {
    static constexpr Parameter kStore = static_cast<Parameter>(kNumParameters);

    Parameter parameter;  // kStore for the store's own values
    size_t first;         // index of the first value in the entry
    size_t count;
    // Where the values came from: one per value for a list that rows gave
    // value by value, else one; none for the store's own.
    std::vector<Source> sources;
};

// Where the values of an entry came from.
struct EntryOrigin {
    EntrySource source = EntrySource::STORE;
    Place place;        // of the section the entry came from; none for the store's own
    std::string label;  // what it came from, as a person names it ("IEQ preset warm")
    size_t words = 0;   // the entry's size in words, its header included
    int32_t device = 0;
    KyrParameterId code = 0;
    std::vector<EntryPart> parts;  // in the order of the entry's values
};

// The entries of one array as the store composed them, in array order. When
// the array outgrew its room the list goes on past what was stored.
struct ArrayRecord {
    std::vector<EntryOrigin> entries;
    size_t neededWords = 0;  // header included
    size_t room = 0;
    bool stored = false;
};

// Every entity that the reader read, with where each of its values came from
// and what became of it, and where every entry of every array came from. The
// reader and the store record each as they decide it.
class LoadTrace {
  public:
    // ---- The reader
    void recordEntity(const void* entity, Place place, std::string label, const char* kind);
    // An entity that the reader dropped: what it recorded of it no longer counts.
    void forget(const void* entity);
    // Records that `entity` took values for `parameter` from `source`.
    // Values recorded before for the same parameter are replaced: returns
    // their place, or none.
    const Place* recordValue(const void* entity, Parameter parameter, Source source);
    // Adds one more source to the list of `parameter` that rows give value by
    // value; the first starts the list.
    void gatherValue(const void* entity, Parameter parameter, Source source);

    // ---- The store
    void markUsed(const void* entity);
    // The values that `entity` holds for `parameter` take `fate`.
    void setFate(const void* entity, Parameter parameter, Fate fate);
    // Every value that `entity` holds takes `fate`.
    void setFates(const void* entity, Fate fate);
    // A finding says what became of the entity.
    void settle(const void* entity);
    ArrayRecord& profileRecord(int32_t profile) { return mProfileRecords[profile]; }
    ArrayRecord& tuningRecord(const std::string& name) { return mTuningRecords[name]; }

    // ---- What the load did
    // Null for an entity that was not recorded.
    const TracedEntity* entityOf(const void* entity) const;
    // The values that `entity` holds for `parameter`, null when it holds none.
    const TracedValues* valuesOf(const void* entity, Parameter parameter) const;
    Place placeOf(const void* entity) const;
    std::string labelOf(const void* entity) const;
    // Every entity, in the order read.
    std::vector<const TracedEntity*> entities() const;
    const std::map<int32_t, ArrayRecord>& profileRecords() const { return mProfileRecords; }
    const std::map<std::string, ArrayRecord>& tuningRecords() const { return mTuningRecords; }

    // Forget every entity and value: the file turned out unreadable.
    void clearEntities();

  private:
    TracedValues* current(const void* entity, Parameter parameter);

    std::map<const void*, TracedEntity> mEntities;
    // Entities in the order read.
    std::vector<const void*> mOrder;
    std::map<int32_t, ArrayRecord> mProfileRecords;
    std::map<std::string, ArrayRecord> mTuningRecords;
};

}  // namespace ovela

#endif  // OVELA_LOAD_TRACE_H
