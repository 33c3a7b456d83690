#ifndef OVELA_TUNING_CONVERSION_H
#define OVELA_TUNING_CONVERSION_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "ProfileParamArray.h"
#include "StoreReport.h"

namespace ovela {

class ParamTables;
class Tuning;
struct SpeakerData;

// Turns endpoint tunings into packed tuning arrays. It writes into the tables
// and the speaker data of one load, which the store takes over only when the
// whole load succeeded.
class TuningConversion {
  public:
    // `report` is the load's, which the conversion shares.
    TuningConversion(ParamTables& tables, SpeakerData& speaker, StoreReport& report);

    // Builds the tuning's array (its plain entries, then the composite "ceqt",
    // "rssa", "aobs", "arsa" and "arbs" entries) and adds it under the tuning's
    // name with `counter` as its ordinal. `counter` advances only when an
    // array was stored: a tuning without entries stores nothing. Returns false
    // when the array outgrows kTuningArrayWords; nothing is stored then.
    bool convertTuning(Tuning* tuning, int& counter);

    // Takes the mono flag, the speaker angles and the mix matrices of a
    // speaker tuning. The matrices are appended to what earlier speaker
    // tunings gave, until the output mode entries consume them.
    void setCommonSpeakerParams(Tuning* tuning);

  private:
    ParamTables& mTables;
    SpeakerData& mSpeaker;
    StoreReport& mReport;
    // The words of the array being built, allocated by the first tuning and
    // reused by the next.
    std::vector<int32_t> mScratch;
};

}  // namespace ovela

#endif  // OVELA_TUNING_CONVERSION_H
