#include "LoadRules.h"

#include <iterator>

namespace ovela {

const char* severityName(Severity severity) {
    switch (severity) {
        case Severity::ERROR:
            return "error";
        case Severity::WARNING:
            return "warning";
        case Severity::NOTE:
            return "note";
    }
    return "";
}

using namespace rules;

const LoadRule* const kLoadRules[] = {
    &kFileUnreadable,   &kFileSize,         &kDocumentSize,       &kAttributeCount,
    &kXmlSyntax,        &kNoRoot,           &kPresetWithoutBands, &kArrayRoom,
    &kXmlWarning,       &kNotIndented,      &kPosition,           &kPositionalName,
    &kNotRead,          &kUnknownElement,   &kUnknownAttribute,   &kAttributeName,
    &kMissingValue,     &kNotANumber,       &kTruthWord,          &kNumberRange,
    &kEmptyField,       &kEmptyList,        &kDuplicateElement,   &kDuplicateSection,
    &kDuplicateProfile, &kDuplicateTuning,  &kDuplicatePreset,    &kDuplicateBand,
    &kUnknownEndpoint,  &kUnknownPreset,    &kIncludeMissing,     &kIncludeUndefined,
    &kNoData,           &kEmptyTuning,      &kTuningEndpoint,     &kProfileId,
    &kMatrixRows,       &kCompositeDropped, &kEntityExpansion,    &kNeverSent,
    &kDefaultTuning,    &kNoTuning,         &kMonoSpeaker,        &kEntityDeclaration,
};
const size_t kLoadRuleCount = std::size(kLoadRules);

}  // namespace ovela
