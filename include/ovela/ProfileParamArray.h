#ifndef OVELA_PROFILE_PARAM_ARRAY_H
#define OVELA_PROFILE_PARAM_ARRAY_H

#include <utils/Mutex.h>
#include <utils/Singleton.h>

#include <cstdint>
#include <memory>
#include <string>

#include "Endpoint.h"
#include "OvlProfileId.h"

namespace ovela {

class LoadReport;
class ParameterValues;
class ParamTables;
class Tuning;
struct SpeakerData;

// The process-wide parameter store: the packed arrays of every profile, of
// the general settings (profile id -1) and of every named tuning, composed
// from the tuning file. The effect and the cache reach it through
// getInstance(), which loads the default tuning file on first use. Callers
// always receive copies: ask for a size, allocate, then ask for the contents.
class ProfileParamArray : public android::Singleton<ProfileParamArray> {
  public:
    // Loads the default tuning file.
    ProfileParamArray();
    // Loads `path` instead, for tools and tests that need a store of their own.
    explicit ProfileParamArray(std::string path);
    // The same, telling `report` what the load skips, changes or drops.
    ProfileParamArray(std::string path, LoadReport* report);
    virtual ~ProfileParamArray();

    // Adds the arrays of the tuning file at `path` to the store, replacing
    // those with the same profile id or tuning name. A file that cannot be
    // read (only a regular file is read, up to 64 MiB, also once
    // decompressed), that is not well-formed, or whose arrays outgrow their
    // room changes nothing. Queries are answered while the file is parsed;
    // loads take turns.
    void loadXMLFile(std::string path);
    // The same, telling `report` everything that the load decided: what it
    // skipped, changed, dropped or never sent, with the lines of the file,
    // and whether the file loaded. The report also keeps the model the load
    // read and the origin of every entry.
    void loadXMLFile(std::string path, LoadReport* report);

    // The two calls of the size-then-contents protocol: ask for the size,
    // allocate, then copy the array into `out`. The copy never writes more
    // than the size that the calling thread was last told for that profile or
    // tuning: when another thread's reload made the array larger in between,
    // it copies nothing, logs why and returns -22 (ask for the size again).
    // -22 for a null `out`. An unknown profile or tuning copies nothing and
    // returns 0. Prefer copyProfileParams() and copyTuningParams(), which
    // take the buffer's size in the same call.
    int getProfileParams(OvlProfileId profile, void* out);
    uint32_t getProfileParamsSize(OvlProfileId profile);
    int getTuningParams(std::string tuning, void* out);
    uint32_t getTuningParamsSize(std::string tuning);
    // Copy the array into `out` only when it fits in `capacity` bytes, and
    // return its size either way (0 for an unknown profile or tuning); they
    // log as getProfileParams() and getTuningParams() do. Between a size
    // query and a copy another thread may reload the store; a caller that sees
    // a size above its capacity grows its buffer and asks again. A null `out`
    // with a capacity is an error: logged, nothing written, the size returned.
    uint32_t copyProfileParams(OvlProfileId profile, void* out, uint32_t capacity);
    uint32_t copyTuningParams(const std::string& tuning, void* out, uint32_t capacity);

    // Bytes that getAvailableTuningDevices() writes for `endpoint`.
    uint32_t getAvailableTuningDevicesLen(Endpoint endpoint);
    // Writes the names of the endpoint's tunings, blank-separated and
    // NUL-terminated, or the seven characters "default" without a NUL when it
    // has none; never more than `len` bytes. -22 for a null `buf`.
    int getAvailableTuningDevices(Endpoint endpoint, void* buf, int len);

    // The steps of a load, for code that composes arrays itself. They take no
    // lock: the store runs them only inside loadXMLFile.
    //
    // Writes at `out` one entry (device, code, count, values) for every
    // parameter of `values` that has an effect code and holds values, adds
    // the number of entries to `count` and returns the words written. The
    // caller guarantees room.
    int composeParams(int* out, int device, ParameterValues* values, int& count);
    // The same within `room` words: writes nothing and returns -1 when the
    // entries would not fit.
    int composeParams(int* out, int room, int device, ParameterValues* values, int& count);
    // Builds the tuning's array and adds it to the store's tuning tables
    // under its name, with `counter` as its ordinal; `counter` advances when
    // an array was stored. A tuning past 1100 words stores nothing.
    void convertTuning(Tuning* tuning, int& counter);
    // Takes the mono flag, the angles and the mix matrices of a speaker
    // tuning into the store's speaker data.
    void setCommonSpeakerParams(Tuning* tuning);

  private:
    std::unique_ptr<ParamTables> mTables;
    // Guards the tables: every query, and a load's swap of its new arrays.
    android::Mutex mLock;
    // Loads take turns under this lock, reading and composing outside mLock.
    android::Mutex mLoadLock;
    std::unique_ptr<SpeakerData> mSpeaker;
    // Names this store to the two-call queries' record of what each thread
    // was told.
    const uint64_t mSerial;
};

}  // namespace ovela

#endif  // OVELA_PROFILE_PARAM_ARRAY_H
