#ifndef OVELA_PROFILE_ARRAY_LOADER_H
#define OVELA_PROFILE_ARRAY_LOADER_H

#include <cstddef>
#include <string>

namespace ovela {

class LoadReport;
class ParamTables;
struct SpeakerData;

// Parses `document`, the tuning file at `path` as readTuningFile read it, and
// adds to `tables` the arrays of profiles 0 to 9, the general array (-1) and
// one array per named tuning; `speaker` takes what the file says about the
// internal speaker. Returns false when the file does not parse or an array
// outgrows its room; the caller then discards `tables` and `speaker`, which
// may hold part of the load. `report`, when given, learns what the load
// decided, and keeps the model it read.
bool loadProfileArrays(const std::string& path, std::string document, ParamTables& tables,
                       SpeakerData& speaker, LoadReport* report);

}  // namespace ovela

#endif  // OVELA_PROFILE_ARRAY_LOADER_H
