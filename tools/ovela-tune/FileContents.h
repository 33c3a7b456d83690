#ifndef OVELA_TUNE_FILE_CONTENTS_H
#define OVELA_TUNE_FILE_CONTENTS_H

#include <ovela/Endpoint.h>
#include <ovela/KyrParameterId.h>

#include <cstdint>
#include <string>
#include <vector>

#include "LoadTrace.h"
#include "LoadedFile.h"

// What the effect receives from a loaded tuning file, by name: the arrays of
// the store, each entry with the names that the file gives its values and
// the section it came from, and what the model says beside them.
namespace ovela::tune {

struct NamedEntry {
    int32_t device;
    KyrParameterId code;
    std::vector<int32_t> values;
    // What the file calls the values ("volume-leveler-amount"), one name per
    // part of the entry; "(store)" for the values that the store writes.
    std::vector<std::string> names;
    // The section the entry came from ("profile 2 on headphone", "IEQ preset
    // warm", "the store's defaults for ..."), and where it stands.
    std::string origin;
    Place place;
    // The runs of values the entry is made of and where each came from.
    std::vector<EntryPart> parts;
    // Of the entries of its array with the same origin, device and code, the
    // how-manieth (from 0): with the origin, what pairs entries of two files.
    size_t ordinal = 0;
};

// What the file calls the values of `part`: "band_ieq target", or "(store)"
// for the values that the store writes itself.
std::string partName(const EntryPart& part);

enum class ArrayKind { GENERAL, PROFILE, TUNING };

struct NamedArray {
    ArrayKind kind;
    int32_t header;     // profile id, -1, or a tuning's ordinal
    uint32_t size;      // bytes
    std::string name;   // a tuning's name
    Endpoint endpoint;  // a tuning's endpoint
    // A profile's name and the IEQ preset it selects, as the model has them;
    // several when the file defines the profile more than once, none when it
    // does not define it.
    std::vector<std::string> profileNames;
    std::vector<std::string> ieqPresets;
    std::vector<NamedEntry> entries;  // in the array's order

    // "general", "profile 2", "tuning speaker".
    std::string title() const;
};

// What a cache does for an endpoint: the tuning it records at start, and the
// tunings it can select.
struct EndpointTuning {
    Endpoint endpoint;
    std::string recorded;
    std::vector<std::string> available;
};

struct FileContents {
    std::string path;
    // The general array, the profiles 0 to 9, then the tunings by name.
    std::vector<NamedArray> arrays;
    std::vector<EndpointTuning> endpoints;
    // The default tuning's entries, which the general array carries once for
    // every endpoint it serves; the endpoints it serves.
    std::vector<NamedEntry> defaultTuning;
    std::vector<Endpoint> defaultServes;
};

// Everything above for a file that loads.
FileContents describe(LoadedFile& file);

// The entries in an order that does not depend on the order of the file:
// every device first, then the endpoints in their order; then by code, by
// origin and by values.
std::vector<NamedEntry> sortedEntries(std::vector<NamedEntry> entries);

// The entry's names, comma-separated, an element's name once before its
// attributes; its code when it has none.
std::string namesText(const NamedEntry& entry);

// "a, b, c".
std::string joined(const std::vector<std::string>& words);
// "1 -2 3".
std::string valuesText(const std::vector<int32_t>& values);

}  // namespace ovela::tune

#endif  // OVELA_TUNE_FILE_CONTENTS_H
