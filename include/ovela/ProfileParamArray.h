#ifndef OVELA_PROFILE_PARAM_ARRAY_H
#define OVELA_PROFILE_PARAM_ARRAY_H

#include <utils/Mutex.h>
#include <utils/Singleton.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "Endpoint.h"
#include "Export.h"
#include "OvlProfileId.h"

namespace ovela {

/** Room of a profile array and of the general array, in 32-bit words, header included. */
constexpr uint32_t kProfileArrayWords = 1200;
/** Room of a tuning array, in 32-bit words, header included. */
constexpr uint32_t kTuningArrayWords = 1100;

/**
 * The parameter store: the packed arrays of every profile (ids 0 to 9), of the
 * general settings (profile id -1, kGeneralProfileId) and of every named tuning,
 * composed from an XML tuning file, in the layout that ProfileParamParser walks.
 *
 * **The process-wide store.** An effect and its service reach one store per
 * process through `ProfileParamArray::getInstance()` (libutils' Singleton): the
 * first call creates it under the singleton's lock, and its constructor loads
 * the default tuning file, "/vendor/etc/ovela/qrn-default.xml" unless the
 * library was built with another path (OVELA_DEFAULT_TUNING_FILE). A file that
 * is missing or does not load gives an empty store: every size query returns 0
 * and every endpoint lists only "default". The instance is never destroyed; it
 * lives until the process ends. A tool or a test may construct a store of its
 * own on another path instead.
 *
 * **Ownership.** The store owns its arrays for its whole life. Callers always
 * receive copies, into buffers that they allocate and own.
 *
 * **Threads.** Any thread may call any member at any time. One mutex guards the
 * arrays: each query holds it for its whole run, and a load holds it only to
 * swap in the arrays it composed, so queries are answered while a file is read
 * and parsed; loads take turns under a second lock. The queries copy, and may
 * allocate and wait for that mutex: do not call them from a real-time audio
 * thread.
 *
 * **Errors.** Members that return `int` return 0 or a negated errno value,
 * -22 (EINVAL) for a bad argument; every failure is also logged under the tag
 * "OvlProfileParamArray" (or "TuningFileParser" for a file's content).
 */
class OVELA_EXPORT ProfileParamArray : public android::Singleton<ProfileParamArray> {
  public:
    /** Creates a store and loads the default tuning file into it (see above). */
    ProfileParamArray();
    /**
     * Creates a store and loads the tuning file at `path` into it, as
     * loadXMLFile() does; for tools and tests that need a store of their own.
     */
    explicit ProfileParamArray(std::string path);
    /**
     * Creates a store and loads the tuning file whose text is the `size`
     * bytes at `data` into it, as loadXMLText() does; for tools that check
     * text that is not saved yet.
     */
    ProfileParamArray(const char* data, size_t size, std::string name);
    /** Frees every array. */
    virtual ~ProfileParamArray();
    ProfileParamArray(const ProfileParamArray&) = delete;
    ProfileParamArray& operator=(const ProfileParamArray&) = delete;

    /**
     * Loads the tuning file at `path` and adds its arrays to the store. An
     * array of the file replaces the array of the same profile id or tuning
     * name; arrays that the file does not have stay, so the tunings of an
     * earlier file remain listed. A cache created before keeps the tuning
     * names it recorded when it was created: create caches after the loads
     * that give the tunings they should start with.
     *
     * Nothing changes when the file cannot be read (only a regular file is
     * read, opened without blocking, of at most 64 MiB, also once
     * decompressed), when it is not well-formed XML or has an element of more
     * than 256 attributes, when an IEQ preset has no bands, or when an array
     * would outgrow its room (kProfileArrayWords, kTuningArrayWords). Each of
     * these logs why at error level.
     *
     * @param path The tuning file; an empty path is an error.
     */
    void loadXMLFile(std::string path);

    /**
     * Loads a tuning file from memory: the `size` bytes at `data`, read as
     * loadXMLFile() reads a file's bytes, with the same limits and the same
     * result. Nothing is read from disk; an editor or a fuzzer hands over text
     * that no file holds. The store keeps no reference to `data`.
     *
     * @param data The file's text; null only with a size of 0.
     * @param size The bytes at `data`; more than 64 MiB is refused (logged,
     *     nothing changes).
     * @param name What the log calls the text, as it would name a file's path.
     */
    void loadXMLText(const char* data, size_t size, std::string name);

    /**
     * Copies the array of `profile` into `out`: the second call of the
     * size-then-contents protocol, after getProfileParamsSize().
     *
     * The copy never writes more bytes than getProfileParamsSize() last told
     * the calling thread for that profile. When another thread's reload made
     * the array larger in between, nothing is copied, the error is logged and
     * -22 returned: ask for the size again. Prefer copyProfileParams(), which
     * takes the buffer's size in the same call.
     *
     * @param profile 0 to 9, or -1 for the general array.
     * @param out A buffer of at least the size that the size query returned.
     * @return 0, also for an unknown profile, whose array is empty and copies
     *     nothing; -22 for a null `out` or an array that grew.
     */
    int getProfileParams(OvlProfileId profile, void* out);
    /**
     * The size of the array of `profile`, in bytes: 8 for a profile that the
     * file lacks (its header alone), 0 for an id outside -1 to 9 or before any
     * file loaded. Remembered for the calling thread's next copy.
     */
    uint32_t getProfileParamsSize(OvlProfileId profile);
    /**
     * Copies the array of the tuning named `tuning` into `out`, as
     * getProfileParams() does for profiles: never more than the size that
     * getTuningParamsSize() last told the calling thread for that name.
     *
     * @param tuning A tuning name as getAvailableTuningDevices() lists it.
     * @param out A buffer of at least the size that the size query returned.
     * @return 0, also for an unknown name, which copies nothing; -22 for a
     *     null `out` or an array that grew.
     */
    int getTuningParams(std::string tuning, void* out);
    /**
     * The size of the array of the tuning named `tuning`, in bytes; 0 for an
     * unknown name. Remembered for the calling thread's next copy.
     */
    uint32_t getTuningParamsSize(std::string tuning);
    /**
     * Copies the array of `profile` into `out` when it fits in `capacity`
     * bytes, in one call; the recommended way. When it does not fit (another
     * thread may have reloaded the store since a size query), nothing is
     * written: grow the buffer to the returned size and call again.
     *
     * @param profile 0 to 9, or -1 for the general array.
     * @param out The buffer; null only with a capacity of 0 (a null buffer
     *     with a capacity is an error: logged, nothing written).
     * @param capacity The bytes that `out` holds.
     * @return The array's size in bytes, whether or not it was copied; 0 for
     *     an unknown profile.
     */
    uint32_t copyProfileParams(OvlProfileId profile, void* out, uint32_t capacity);
    /**
     * Copies the array of the tuning named `tuning` into `out` when it fits in
     * `capacity` bytes, as copyProfileParams() does.
     *
     * @param tuning A tuning name as getAvailableTuningDevices() lists it.
     * @param out The buffer; null only with a capacity of 0.
     * @param capacity The bytes that `out` holds.
     * @return The array's size in bytes, whether or not it was copied; 0 for
     *     an unknown name.
     */
    uint32_t copyTuningParams(const std::string& tuning, void* out, uint32_t capacity);

    /**
     * The bytes that getAvailableTuningDevices() needs for `endpoint`: the
     * lengths of its tunings' names, each plus one for the blank or the NUL
     * after it; 8 when it has none ("default" is 7 characters, written
     * without a NUL, and the eighth byte is left as it was).
     *
     * @param endpoint Any value: one outside 0 to 6 has no tunings.
     */
    uint32_t getAvailableTuningDevicesLen(Endpoint endpoint);
    /**
     * Writes the names of the tunings for `endpoint`, in byte order, separated
     * by one blank and ended by a NUL; when it has none, the seven characters
     * "default" without a NUL. Never writes more than `len` bytes: a list cut
     * short by a reload since the length query has no NUL.
     *
     * @param endpoint Any value: one outside 0 to 6 has no tunings.
     * @param buf The buffer, of getAvailableTuningDevicesLen(endpoint) bytes.
     * @param len The bytes that `buf` holds.
     * @return 0; -22 for a null `buf`.
     */
    int getAvailableTuningDevices(Endpoint endpoint, void* buf, int len);

  private:
    struct State;

    // Parses and composes `document`, the text of the file called `name`, and
    // takes its arrays over when the whole file loaded.
    void loadDocument(const std::string& name, std::string document);

    // The arrays and what the loads learn about the speaker.
    std::unique_ptr<State> mState;
    // Guards the arrays: every query, and a load's swap of its new arrays.
    android::Mutex mLock;
    // Loads take turns under this lock, reading and composing outside mLock.
    android::Mutex mLoadLock;
    // Names this store to the two-call queries' record of what each thread
    // was told.
    const uint64_t mSerial;
};

}  // namespace ovela

#endif  // OVELA_PROFILE_PARAM_ARRAY_H
