#include "RecordedTuning.h"

#include "ProfileParamArray.h"
#include "TuningFileVocabulary.h"

namespace ovela {

std::string recordedTuning(ProfileParamArray& store, Endpoint endpoint) {
    const char* name = kEndpointNames[endpoint];
    return store.getTuningParamsSize(name) != 0 ? name : kDefaultTuningName;
}

}  // namespace ovela
