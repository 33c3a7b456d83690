#ifndef OVELA_STORE_REPORT_H
#define OVELA_STORE_REPORT_H

#include <cstdint>
#include <initializer_list>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "CompositeEntries.h"
#include "Endpoint.h"
#include "KyrParameterId.h"
#include "LoadReport.h"
#include "Parameter.h"

// What the store records of a load while it composes the arrays: where each
// entry came from, what became of each value, and its findings; not part of
// the library's interface. Every operation does nothing unless a report is
// attached, and then only costs the test of one pointer.
namespace ovela {

class ArrayBuilder;
class ParameterValues;

// A run of values of an entry that the store builds itself: `count` values
// of `parameter` of `entity`, or of the store's own (EntryPart::kStore). A
// null entity with a parameter stands for the speaker's mix matrices, which
// several tunings may give.
struct PartOf {
    Parameter parameter;
    size_t count;
    const void* entity = nullptr;
};

class StoreReport {
  public:
    explicit StoreReport(LoadReport* report) : mReport(report) {}
    explicit operator bool() const { return mReport != nullptr; }
    LoadReport* get() const { return mReport; }

    // ---- Where entries come from
    // The store composes `entity` into `builder`: every value with an effect
    // code goes into the array; the entries come from `source`.
    void composed(ArrayBuilder& builder, EntrySource source, const ParameterValues* entity) {
        if (mReport != nullptr) reportComposed(builder, source, entity, nullptr);
    }
    // The same, for an entity that serves `endpoint` in someone else's array.
    void composedFor(ArrayBuilder& builder, EntrySource source, const ParameterValues* entity,
                     Endpoint endpoint) {
        if (mReport != nullptr) reportComposed(builder, source, entity, endpointName(endpoint));
    }
    // Entries that the store builds from now on of `entity`'s values, as
    // `source`; `what` names them before the entity's label, or is empty.
    void builds(ArrayBuilder& builder, EntrySource source, const void* entity, const char* what) {
        if (mReport != nullptr) reportBuilds(builder, source, entity, what);
    }
    // The runs of values of the entry appended last to `builder`, in order.
    void parts(ArrayBuilder& builder, std::initializer_list<PartOf> parts) {
        if (mReport != nullptr) reportParts(builder, parts);
    }
    // The store read `parameter` of `entity` for an entry it builds itself.
    void consulted(const void* entity, Parameter parameter);
    // The speaker's mix matrix `matrix` takes the values of `tuning`'s, after
    // those of earlier speaker tunings; an output mode entry that carries the
    // matrix sends them all.
    void speakerMatrix(const void* tuning, Parameter matrix);
    // The output mode entries took the speaker's mix matrices.
    void speakerMatricesSent() { mMatrixTunings.clear(); }
    // A composite entry `code` of `entity` is made of `lists`; `sent` tells
    // whether it went into the array (it does not when their lengths differ).
    void composite(const void* entity, KyrParameterId code, std::initializer_list<ListOf> lists,
                   bool sent) {
        if (mReport != nullptr) reportComposite(entity, code, lists, sent);
    }
    // Where a builder records its entries: the profile's or the tuning's record.
    ArrayRecord* profileRecord(int32_t profile, size_t room);
    ArrayRecord* tuningRecord(const std::string& name, size_t room);
    const LoadTrace* trace() const { return mReport == nullptr ? nullptr : &mReport->trace(); }

    // ---- Findings
    // The store skips a profile or profile endpoint outside 0 to 9.
    void profileOutOfRange(const void* entity, int profile, bool reportIt);
    // Sections of one kind and key, more than one each.
    void duplicateProfiles(const std::map<int, std::vector<const void*>>& profiles);
    // Tunings of one name, more than one: the last replaces the others.
    void duplicateTunings(const std::map<std::string, std::vector<const void*>>& tunings);
    // A tuning named after `named`, an endpoint, for another endpoint.
    void tuningEndpoint(const void* tuning, const std::string& name, Endpoint endpoint);
    // A tuning whose name is `endpoint`'s in another letter case, while the
    // endpoint is served by `servedBy` ("the default tuning").
    void tuningNameCase(const void* tuning, const std::string& name, Endpoint endpoint,
                        const std::string& servedBy);
    // A tuning that gives no entries: nothing is stored.
    void emptyTuning(const void* tuning);
    // The default tuning serves `endpoints`, or none; or there is no default
    // tuning and `endpoints` have no tuning at all.
    void defaultTuning(const void* tuning, const std::vector<Endpoint>& endpoints);
    // A mono speaker's virtualizer is sent as switched off.
    void monoSpeaker(const void* settings);
    // An array past its room: the load fails.
    void arrayRoom(const std::string& array, const ArrayRecord& record, const std::string& cause);

  private:
    void reportComposed(ArrayBuilder& builder, EntrySource source, const ParameterValues* entity,
                        const char* servedEndpoint);
    void reportBuilds(ArrayBuilder& builder, EntrySource source, const void* entity,
                      const char* what);
    void reportParts(ArrayBuilder& builder, std::initializer_list<PartOf> parts);
    void reportComposite(const void* entity, KyrParameterId code,
                         std::initializer_list<ListOf> lists, bool sent);
    // Where the finding about a dropped composite of `entity` belongs: the
    // row that gives fewer of `lists`' values than the others.
    Place compositeFault(const void* entity, std::initializer_list<ListOf> lists,
                         std::string* where) const;
    std::vector<Source> sourcesOf(const void* entity, Parameter parameter) const;

    LoadReport* mReport;
    // Entities whose composite entry was dropped: that explains why they may
    // send nothing.
    std::set<const void*> mDropped;
    // Values that the store read for entries of its own.
    std::set<std::pair<const void*, Parameter>> mConsulted;
    // The tunings that gave the speaker's mix matrices, by matrix.
    std::map<Parameter, std::vector<const void*>> mMatrixTunings;
};

}  // namespace ovela

#endif  // OVELA_STORE_REPORT_H
