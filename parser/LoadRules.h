#ifndef OVELA_LOAD_RULES_H
#define OVELA_LOAD_RULES_H

#include <cstddef>

namespace ovela {

enum class Severity {
    ERROR,    // the file does not load
    WARNING,  // it loads, but what the effect receives differs from what the text says
    NOTE,     // read but never sent, or served by a fallback
};

// "error", "warning" or "note".
const char* severityName(Severity severity);

// One kind of decision that a load reports: its stable name, its level and
// a one-line example of a file that meets it.
struct LoadRule {
    const char* name;
    Severity severity;
    const char* example;
};

namespace rules {

// ---- The file does not load
inline constexpr LoadRule kFileUnreadable{"file-unreadable", Severity::ERROR,
                                          "no such file, a directory, a FIFO or a device"};
inline constexpr LoadRule kFileSize{"file-size", Severity::ERROR,
                                    "a tuning file past 64 MiB on disk"};
inline constexpr LoadRule kDocumentSize{"document-size", Severity::ERROR,
                                        "a compressed tuning file past 64 MiB once decompressed"};
inline constexpr LoadRule kAttributeCount{"attribute-count", Severity::ERROR,
                                          "an element with more than 256 attributes"};
inline constexpr LoadRule kXmlSyntax{"xml-syntax", Severity::ERROR,
                                     "<profile id=1> (not well-formed XML)"};
inline constexpr LoadRule kNoRoot{"no-root", Severity::ERROR, "a document without a root element"};
inline constexpr LoadRule kPresetWithoutBands{
    "preset-without-bands", Severity::ERROR,
    "<preset type=\"ieq\"> whose bands give no frequency or no target"};
inline constexpr LoadRule kArrayRoom{
    "array-room", Severity::ERROR,
    "a profile or the general array past 1200 words, a tuning past 1100"};

// ---- It loads, but the effect receives something else than the text says
inline constexpr LoadRule kXmlWarning{"xml-warning", Severity::WARNING,
                                      "an error that libxml2 recovered from"};
inline constexpr LoadRule kNotIndented{
    "not-indented", Severity::WARNING,
    "<data><bass-enhancer-boost .../> (no line break before a first child: it is skipped)"};
inline constexpr LoadRule kPosition{
    "position", Severity::WARNING,
    "<preset type=\"ieq\"> <!-- x --> <ieq> (a comment where the reader takes an element)"};
inline constexpr LoadRule kPositionalName{"positional-name", Severity::WARNING,
                                          "<dat> (read as the data element by its position)"};
inline constexpr LoadRule kNotRead{"not-read", Severity::WARNING,
                                   "elements after a tuning's data element"};
inline constexpr LoadRule kUnknownElement{"unknown-element", Severity::WARNING,
                                          "<volume-leveler-amout value=\"7\"/>"};
inline constexpr LoadRule kUnknownAttribute{"unknown-attribute", Severity::WARNING,
                                            "<band frequncy=\"65\" .../>"};
inline constexpr LoadRule kAttributeName{
    "attribute-name", Severity::WARNING,
    "<regulator-stress-amount dat=\"1,2\"/> (the first attribute is read whatever its name)"};
inline constexpr LoadRule kMissingValue{"missing-value", Severity::WARNING,
                                        "<ieq-amount values=\"10\"/> (reads as 0)"};
inline constexpr LoadRule kNotANumber{"not-a-number", Severity::WARNING,
                                      "<ieq-amount value=\"ten\"/>, data=\"1,x\""};
inline constexpr LoadRule kTruthWord{"truth-word", Severity::WARNING,
                                     "mono_device=\"TRUE\" (only \"true\" is true)"};
inline constexpr LoadRule kNumberRange{"number-range", Severity::WARNING,
                                       "value=\"99999999999\" (past the 32-bit range)"};
inline constexpr LoadRule kEmptyField{"empty-field", Severity::WARNING,
                                      "data=\"96,,80,80\" (the empty field is dropped)"};
inline constexpr LoadRule kEmptyList{"empty-list", Severity::WARNING,
                                     "data=\"\" (the entry is not sent)"};
inline constexpr LoadRule kDuplicateElement{
    "duplicate-element", Severity::WARNING, "<ieq-amount> twice in one profile (the last one wins)"};
inline constexpr LoadRule kDuplicateSection{
    "duplicate-section", Severity::WARNING,
    "two <endpoint_type id=\"speaker\"> in one profile (both are sent)"};
inline constexpr LoadRule kDuplicateProfile{"duplicate-profile", Severity::WARNING,
                                            "two <profile id=\"2\"> (both go into one array)"};
inline constexpr LoadRule kDuplicateTuning{
    "duplicate-tuning", Severity::WARNING, "two <tuning name=\"speaker\"> (one replaces the other)"};
inline constexpr LoadRule kDuplicatePreset{"duplicate-preset", Severity::WARNING,
                                           "two IEQ presets whose ids both say warm"};
inline constexpr LoadRule kDuplicateBand{"duplicate-band", Severity::WARNING,
                                         "two bands with frequency=\"65\" in one list"};
inline constexpr LoadRule kUnknownEndpoint{"unknown-endpoint", Severity::WARNING,
                                           "<endpoint_type id=\"Headphone\"> (reads as other)"};
inline constexpr LoadRule kUnknownPreset{"unknown-preset", Severity::WARNING,
                                         "<include preset=\"Warm\"/>, <preset type=\"IEQ\">"};
inline constexpr LoadRule kIncludeMissing{"include-missing", Severity::WARNING,
                                          "a profile without <include> (it selects off)"};
inline constexpr LoadRule kIncludeUndefined{
    "include-undefined", Severity::WARNING,
    "<include preset=\"ieq_warm\"/> with no warm IEQ preset in the file"};
inline constexpr LoadRule kNoData{"no-data", Severity::WARNING,
                                  "<tuning> with only <device_id> children (dropped)"};
inline constexpr LoadRule kEmptyTuning{
    "empty-tuning", Severity::WARNING, "<tuning> whose data sends nothing (no endpoint selects it)"};
inline constexpr LoadRule kTuningEndpoint{"tuning-endpoint", Severity::WARNING,
                                          "<tuning name=\"headphone\" endpoint_type=\"speaker\">"};
inline constexpr LoadRule kProfileId{"profile-id", Severity::WARNING,
                                     "<profile id=\"12\"> (outside 0 to 9: skipped)"};
inline constexpr LoadRule kMatrixRows{"matrix-rows", Severity::WARNING,
                                      "mix matrix rows \"1,0\" and \"0\" (unequal lengths)"};
inline constexpr LoadRule kCompositeDropped{
    "composite-dropped", Severity::WARNING,
    "complex-equalizer-tuning-left and -right of different lengths (no \"ceqt\")"};
inline constexpr LoadRule kEntityExpansion{
    "entity-expansion", Severity::WARNING,
    "an attribute whose entity references expand past 1 MiB (read as empty), or name an "
    "entity that the file does not declare"};

// ---- Read but never sent, or served by a fallback
inline constexpr LoadRule kNeverSent{"never-sent", Severity::NOTE,
                                     "<preset type=\"geq\">, <device_id>, orientation=\"0\""};
inline constexpr LoadRule kDefaultTuning{
    "default-tuning", Severity::NOTE,
    "endpoints without a tuning of their own take <tuning name=\"default\">"};
inline constexpr LoadRule kNoTuning{
    "no-tuning", Severity::NOTE,
    "an endpoint that profiles use, with neither its own tuning nor a default one"};
inline constexpr LoadRule kMonoSpeaker{
    "mono-speaker", Severity::NOTE,
    "<virtualizer-enable value=\"true\"/> on a mono speaker (sent as 0)"};
inline constexpr LoadRule kEntityDeclaration{"entity-declaration", Severity::NOTE,
                                             "<!DOCTYPE x [<!ENTITY e \"1\">]>"};

}  // namespace rules

// Every rule, errors first.
extern const LoadRule* const kLoadRules[];
extern const size_t kLoadRuleCount;

}  // namespace ovela

#endif  // OVELA_LOAD_RULES_H
