#ifndef OVELA_PARAM_TABLES_H
#define OVELA_PARAM_TABLES_H

#include <utils/KeyedVector.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "Endpoint.h"
#include "OvlProfileId.h"

namespace ovela {

// The packed arrays of the store, keyed by profile id and by tuning name, with
// their sizes in bytes and the endpoint of each tuning. The tables own every
// array (malloc'ed) and free it when it is replaced or when they go away.
class ParamTables {
  public:
    ParamTables();
    ~ParamTables();
    ParamTables(const ParamTables&) = delete;
    ParamTables& operator=(const ParamTables&) = delete;

    // Both take ownership of `array`.
    void addProfile(OvlProfileId profile, int32_t* array, uint32_t size);
    void addTuning(const std::string& name, int32_t* array, uint32_t size, Endpoint endpoint);
    // Moves every entry of `other` into these tables, replacing entries with
    // the same key; `other` is left empty.
    void takeFrom(ParamTables& other);

    // Null and 0 for an unknown profile or tuning; ENDPOINT_SPEAKER for the
    // endpoint of an unknown tuning.
    const int32_t* getProfileArray(OvlProfileId profile) const;
    uint32_t getProfileSize(OvlProfileId profile) const;
    const int32_t* getTuningArray(const std::string& name) const;
    uint32_t getTuningSize(const std::string& name) const;
    Endpoint getTuningEndpoint(const std::string& name) const;
    // The tuning names in byte order.
    size_t getTuningCount() const;
    const std::string& getTuningNameAt(size_t index) const;

  private:
    // One array with its size; a tuning's also with its endpoint. Keeping the
    // three together stores each tuning's name once.
    struct StoredArray {
        int32_t* words = nullptr;
        uint32_t size = 0;
        Endpoint endpoint = ENDPOINT_SPEAKER;
    };

    void clear();

    android::DefaultKeyedVector<OvlProfileId, StoredArray> mProfiles;
    android::DefaultKeyedVector<std::string, StoredArray> mTunings;
};

}  // namespace ovela

#endif  // OVELA_PARAM_TABLES_H
