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

// What the store tells a load report while it composes the arrays; not part
// of the library's interface. Every operation does nothing unless a report is
// attached, and then only costs the test of one pointer.
namespace ovela {

class ArrayBuilder;
class ParameterValues;

class StoreReport {
  public:
    explicit StoreReport(LoadReport* report) : mReport(report) {}
    explicit operator bool() const { return mReport != nullptr; }
    LoadReport* get() const { return mReport; }

    // The store composes `entity` into `builder`: every value with an effect
    // code goes into the array; the entries come from `source`.
    void composed(ArrayBuilder& builder, EntrySource source, const ParameterValues* entity) {
        if (mReport != nullptr) reportComposed(builder, source, entity, std::string());
    }
    // The same, for an entity that serves `endpoint` in someone else's array.
    void composedFor(ArrayBuilder& builder, EntrySource source, const ParameterValues* entity,
                     Endpoint endpoint) {
        if (mReport != nullptr) reportComposed(builder, source, entity, kEndpointNames[endpoint]);
    }
    // Entries that the store writes itself from now on: `what` of `entity`.
    void storeEntries(ArrayBuilder& builder, const char* what, const void* entity) {
        if (mReport != nullptr) reportStoreEntries(builder, what, entity);
    }
    // The store read `parameter` of `entity` for an entry it builds itself.
    void consulted(const void* entity, Parameter parameter) {
        if (mReport != nullptr) mReport->markSent(entity, parameter);
    }
    // A composite entry `code` of `entity` is made of `lists`; `sent` tells
    // whether it went into the array (it does not when their lengths differ).
    void composite(const void* entity, KyrParameterId code, std::initializer_list<ListOf> lists,
                   bool sent) {
        if (mReport != nullptr) reportComposite(entity, code, lists, sent);
    }
    // Where a builder records its entries: the profile's or the tuning's record.
    ArrayRecord* profileRecord(int32_t profile, size_t room);
    ArrayRecord* tuningRecord(const std::string& name, size_t room);

    // The store skips a profile or profile endpoint outside 0 to 9.
    void profileOutOfRange(const void* entity, int profile, bool reportIt);
    // Sections of one kind and key, more than one each.
    void duplicateProfiles(const std::map<int, std::vector<const void*>>& profiles);
    void duplicateTunings(const std::map<std::string, std::vector<const void*>>& tunings);
    // A tuning named after `named`, an endpoint, for another endpoint.
    void tuningEndpoint(const void* tuning, const std::string& name, Endpoint endpoint);
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
    void reportStoreEntries(ArrayBuilder& builder, const char* what, const void* entity);
    void reportComposed(ArrayBuilder& builder, EntrySource source, const ParameterValues* entity,
                        const std::string& servedEndpoint);
    void reportComposite(const void* entity, KyrParameterId code,
                         std::initializer_list<ListOf> lists, bool sent);

    LoadReport* mReport;
    // Entities whose composite entry was dropped: that explains why they may
    // send nothing.
    std::set<const void*> mDropped;
};

}  // namespace ovela

#endif  // OVELA_STORE_REPORT_H
