#ifndef OVELA_LOAD_REPORT_H
#define OVELA_LOAD_REPORT_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "KyrParameterId.h"
#include "LoadRules.h"
#include "Parameter.h"

namespace ovela {

class DeviceData;
class TuningFileParser;

struct LoadFinding {
    Severity severity;
    std::string rule;  // a short stable name, such as "unknown-element"
    long line;         // 0 when the finding concerns the whole file
    long column;       // 0 where libxml2 gives none
    std::string message;
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

struct EntryOrigin {
    EntrySource source;
    long line;          // of the element the entry came from; 0 for the store's own
    std::string label;  // what it came from, as a person names it ("IEQ preset warm")
    size_t words;       // the entry's size in words, its header included
    KyrParameterId code;
};

// The entries of one array as the store composed them, in array order. When
// the array outgrew its room the list goes on past what was stored.
struct ArrayRecord {
    std::vector<EntryOrigin> entries;
    size_t neededWords = 0;  // header included
    size_t room = 0;
    bool stored = false;
};

// "a", "a and b", "a, b and c".
std::string listOf(const std::vector<std::string>& items);

// What one load of a tuning file decided, for the people who edit the file:
// every value that was skipped, replaced, changed, dropped or never sent, with
// the line it came from, and whether the file loads at all. The reader and the
// store fill it when a load is given one; a load without a report logs as
// always and pays one pointer test at each place that could report.
//
// After a store's load the report also keeps the model that the load read and
// the origin of every entry of the arrays, so that tools can name what the
// effect receives without reading the file again.
class LoadReport {
  public:
    LoadReport();
    ~LoadReport();
    LoadReport(const LoadReport&) = delete;
    LoadReport& operator=(const LoadReport&) = delete;

    // ---- Findings
    void add(const LoadRule& rule, long line, std::string message);
    void addAt(const LoadRule& rule, long line, long column, std::string message);
    // One cause that shows in many places: reported once, at its first line,
    // as `one` when it occurs once and as `many` with the count and the lines
    // otherwise. Occurrences group by rule and `many`; `elements` counts the
    // elements that an occurrence took down, summed in the folded finding.
    void addRepeated(const LoadRule& rule, long line, std::string one, std::string many,
                     size_t elements = 0);
    // What the report holds at one moment, to take back what came after.
    struct Mark {
        size_t findings;
        size_t repeated;
    };
    Mark mark() const { return {mFindings.size(), mRepeated.size()}; }
    // Forgets the findings added since `mark`, and everything recorded about
    // entities and values: a load whose file turns out unreadable says only
    // why.
    void discardSince(const Mark& mark);
    // Every finding, repeated causes folded, in the order they were found.
    std::vector<LoadFinding> findings() const;
    bool hasErrors() const;

    // ---- Where the reader read things, and what the store made of them
    // Records the element that an entity was read from: `label` names it
    // ("GEQ preset 3"), `kind` names its kind in the plural ("GEQ presets").
    void recordEntity(const void* entity, long line, std::string label, const char* kind);
    long lineOf(const void* entity) const;
    std::string labelOf(const void* entity) const;
    // "lines 3, 9 and 12": the lines of the entities, in order.
    std::string linesOf(const std::vector<const void*>& entities) const;
    // The line of the one written last.
    long lastLineOf(const std::vector<const void*>& entities) const;
    // Records that `entity` got a value for `parameter` from the element or
    // attribute `xmlName` at `line`. Returns the line of an earlier value of
    // the same entity and parameter, 0 when there is none; the record keeps
    // the later line.
    long recordValue(const void* entity, Parameter parameter, long line, std::string xmlName);
    // Like recordValue, for lists that gather over several elements: keeps
    // the first line and never reports an earlier one.
    void recordGathered(const void* entity, Parameter parameter, long line, std::string xmlName);
    // An entity that the reader dropped: what it recorded of it no longer counts.
    void forget(const void* entity);
    // The store looked at the entity, or at one of its values.
    void markUsed(const void* entity);
    void markSent(const void* entity, Parameter parameter);
    // Whether the store sent the value of `parameter` of `entity`: false for
    // a value that no array carries, or that the load did not record.
    bool isSent(const void* entity, Parameter parameter) const;
    // The name in the file that the value of `parameter` of `entity` came
    // from; the parameter's print name when none was recorded.
    std::string xmlNameOf(const void* entity, Parameter parameter) const;
    // A finding already explains what became of the entity and its values.
    void settle(const void* entity);
    bool isSettled(const void* entity) const;
    // Adds a note for every recorded entity that the store never looked at and
    // every recorded value of a used entity that the store never sent.
    void reportUnsent();

    // ---- The load's results
    // The reader that the load used, kept with its model.
    void keepReader(std::unique_ptr<TuningFileParser> reader);
    // The model of the file; null when the file did not load or no store kept it.
    DeviceData* model() const;
    ArrayRecord& profileRecord(int32_t profile) { return mProfileRecords[profile]; }
    ArrayRecord& tuningRecord(const std::string& name) { return mTuningRecords[name]; }
    const std::map<int32_t, ArrayRecord>& profileRecords() const { return mProfileRecords; }
    const std::map<std::string, ArrayRecord>& tuningRecords() const { return mTuningRecords; }

  private:
    struct Repeated {
        const LoadRule* rule;
        std::string one;
        std::string many;
        std::vector<long> lines;
        size_t elements;
    };
    struct EntityRecord {
        long line = 0;
        std::string label;
        const char* kind = "";
        bool used = false;
        bool settled = false;
    };
    struct ValueRecord {
        long line;
        std::string xmlName;
        bool sent;
    };

    std::vector<LoadFinding> mFindings;
    std::vector<Repeated> mRepeated;
    std::map<const void*, EntityRecord> mEntities;
    std::map<std::pair<const void*, Parameter>, ValueRecord> mValues;
    std::unique_ptr<TuningFileParser> mReader;
    std::map<int32_t, ArrayRecord> mProfileRecords;
    std::map<std::string, ArrayRecord> mTuningRecords;
};

}  // namespace ovela

#endif  // OVELA_LOAD_REPORT_H
