#ifndef OVELA_LOAD_RULES_H
#define OVELA_LOAD_RULES_H

#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <string>
#include <string_view>

// The rules of what a load reports, one row each; not part of the library's
// interface.
namespace ovela {

enum class Severity {
    ERROR,    // the file does not load
    WARNING,  // it loads, but what the effect receives differs from what the text says
    NOTE,     // read but never sent, or served by a fallback
};

// "error", "warning" or "note".
const char* severityName(Severity severity);

// Every kind of decision that a load reports. A rule named at a call site
// must have its row in kLoadRules: the table is checked against this list
// when it compiles.
enum class Rule {
    FILE_UNREADABLE,
    FILE_SIZE,
    DOCUMENT_SIZE,
    ATTRIBUTE_COUNT,
    XML_SYNTAX,
    NO_ROOT,
    PRESET_WITHOUT_BANDS,
    ARRAY_ROOM,
    XML_WARNING,
    NOT_INDENTED,
    POSITION,
    POSITIONAL_NAME,
    NOT_READ,
    ENTITY_CONTENT,
    UNKNOWN_ELEMENT,
    UNKNOWN_ATTRIBUTE,
    ATTRIBUTE_ORDER,
    ATTRIBUTE_NAME,
    MISSING_VALUE,
    NOT_A_NUMBER,
    TRUTH_WORD,
    NUMBER_RANGE,
    EMPTY_FIELD,
    EMPTY_LIST,
    DUPLICATE_ELEMENT,
    DUPLICATE_SECTION,
    DUPLICATE_TABLE,
    DUPLICATE_PROFILE,
    DUPLICATE_TUNING,
    DUPLICATE_PRESET,
    DUPLICATE_BAND,
    UNKNOWN_ENDPOINT,
    UNKNOWN_PRESET,
    PRESET_WORDS,
    INCLUDE_MISSING,
    INCLUDE_UNDEFINED,
    INCLUDE_NAME,
    NO_DATA,
    EMPTY_TUNING,
    TUNING_ENDPOINT,
    TUNING_NAME_CASE,
    PROFILE_ID,
    MATRIX_ROWS,
    COMPOSITE_DROPPED,
    ENTITY_EXPANSION,
    NEVER_SENT,
    DEFAULT_TUNING,
    NO_TUNING,
    MONO_SPEAKER,
    ENTITY_DECLARATION,
    UNUSED_SUPPRESSION,
    COUNT,
};

// One kind of decision: its stable name, its level, the message of a
// finding, whose {slots} the finding fills, and a one-line example of a file
// that meets it.
struct LoadRule {
    Rule rule;
    const char* name;
    Severity severity;
    const char* message;
    const char* example;
};

// clang-format off
inline constexpr LoadRule kLoadRules[] = {
    // ---- The file does not load
    {Rule::FILE_UNREADABLE, "file-unreadable", Severity::ERROR,
     "{file}: {why}",
     "no such file, a directory, a FIFO or a device"},
    {Rule::FILE_SIZE, "file-size", Severity::ERROR,
     "{file}: {bytes} bytes, past the {limit} that a tuning file may take",
     "a tuning file past 64 MiB on disk"},
    {Rule::DOCUMENT_SIZE, "document-size", Severity::ERROR,
     "{file}: passes {limit} once decompressed, more than a tuning file may hold",
     "a compressed tuning file past 64 MiB once decompressed"},
    {Rule::ATTRIBUTE_COUNT, "attribute-count", Severity::ERROR,
     "an element starts here with more than {limit} attributes, more than a tuning file's "
     "elements carry: the file is not read",
     "an element with more than 256 attributes"},
    {Rule::XML_SYNTAX, "xml-syntax", Severity::ERROR,
     "not well-formed XML: {error}",
     "<profile id=1> (not well-formed XML)"},
    {Rule::NO_ROOT, "no-root", Severity::ERROR,
     "the document has no root element",
     "a document without a root element"},
    {Rule::PRESET_WITHOUT_BANDS, "preset-without-bands", Severity::ERROR,
     "{cause}: {preset} gives no {attribute} values, so the file does not load",
     "<preset type=\"ieq\"> whose bands give no frequency or no target"},
    {Rule::ARRAY_ROOM, "array-room", Severity::ERROR,
     "{array} needs {needed} words but has room for {room}, so the file does not load: "
     "{parts}{cause}",
     "a profile or the general array past 1200 words, a tuning past 1100"},

    // ---- It loads, but the effect receives something else than the text says
    {Rule::XML_WARNING, "xml-warning", Severity::WARNING,
     "{error}",
     "an error that libxml2 recovered from"},
    {Rule::NOT_INDENTED, "not-indented", Severity::WARNING,
     "{what}, and the reader skips the first child node of an element: {lost} not read",
     "<data><bass-enhancer-boost .../> (no line break before a first child: it is skipped)"},
    {Rule::POSITION, "position", Severity::WARNING,
     "the {ordinal} child node of {parent}, where the reader takes <{name}>, is {found}"
     "{because}: {loss}",
     "<preset type=\"ieq\"> <!-- x --> <ieq> (a comment where the reader takes an element)"},
    {Rule::POSITIONAL_NAME, "positional-name", Severity::WARNING,
     "{element} is read as <{name}> {because}; the format names it <{name}>{loss}",
     "<dat> (read as the data element by its position)"},
    {Rule::NOT_READ, "not-read", Severity::WARNING,
     "{lost} not read: {why}",
     "elements after a tuning's data element"},
    {Rule::ENTITY_CONTENT, "entity-content", Severity::WARNING,
     "&{entity}; in {parent} stands for {content}: the reader reads no element that an entity "
     "reference brings in, so {lost} not read",
     "<settings>&hpvl;</settings> where hpvl stands for an element"},
    {Rule::UNKNOWN_ELEMENT, "unknown-element", Severity::WARNING,
     "unknown element {element} in {parent} is ignored{hint}",
     "<volume-leveler-amout value=\"7\"/>"},
    {Rule::UNKNOWN_ATTRIBUTE, "unknown-attribute", Severity::WARNING,
     "{attribute} of {element} is ignored: {why}{hint}",
     "<band frequncy=\"65\" .../>"},
    {Rule::ATTRIBUTE_ORDER, "attribute-order", Severity::WARNING,
     "{element} has its {wanted} after {first}, and the reader reads only the first "
     "attribute: it reads as {readAs}",
     "<ieq-amount unit=\"dB\" value=\"10\"/> (the value is not the first attribute)"},
    {Rule::ATTRIBUTE_NAME, "attribute-name", Severity::WARNING,
     "{element} gives its numbers in {first}, which the reader reads as the row whatever its "
     "name; the format names it {wanted}{hint}",
     "<regulator-stress-amount dat=\"1,2\"/> (the first attribute is read whatever its name)"},
    {Rule::MISSING_VALUE, "missing-value", Severity::WARNING,
     "{element} has no {wanted} attribute{only}: {consequence}{hint}",
     "<ieq-amount values=\"10\"/> (reads as 0)"},
    {Rule::NOT_A_NUMBER, "not-a-number", Severity::WARNING,
     "{what} is not a number: it reads as {readAs}",
     "<ieq-amount value=\"ten\"/>, data=\"1,x\""},
    {Rule::TRUTH_WORD, "truth-word", Severity::WARNING,
     "{what} is neither \"true\" nor \"false\": it reads as {readAs}{hint}",
     "mono_device=\"TRUE\" (only \"true\" is true)"},
    {Rule::NUMBER_RANGE, "number-range", Severity::WARNING,
     "{what} is past the 32-bit range: it reads as {readAs}",
     "value=\"99999999999\" (past the 32-bit range)"},
    {Rule::EMPTY_FIELD, "empty-field", Severity::WARNING,
     "{what} {text} {problem}",
     "data=\"96,,80,80\" (the empty field is dropped)"},
    {Rule::EMPTY_LIST, "empty-list", Severity::WARNING,
     "{element} holds no numbers: {consequence}",
     "data=\"\" (the entry is not sent)"},
    {Rule::DUPLICATE_ELEMENT, "duplicate-element", Severity::WARNING,
     "{name} is given again (first at line {first}): the later value replaces the earlier one",
     "<ieq-amount> twice in one profile (the last one wins)"},
    {Rule::DUPLICATE_SECTION, "duplicate-section", Severity::WARNING,
     "a second {element} {where} (the first at line {first}): {consequence}",
     "two <endpoint_type id=\"speaker\"> in one profile (both are sent)"},
    {Rule::DUPLICATE_TABLE, "duplicate-table", Severity::WARNING,
     "a second {element} in {tuning} (the first at line {first}): its rows are appended to "
     "the first's, {bands} bands in all",
     "two <regulator-tuning> in one tuning (one table of both)"},
    {Rule::DUPLICATE_PROFILE, "duplicate-profile", Severity::WARNING,
     "profile {id} is defined {count} times ({lines}): the store sends the entries of every "
     "one in its array",
     "two <profile id=\"2\"> (both go into one array)"},
    {Rule::DUPLICATE_TUNING, "duplicate-tuning", Severity::WARNING,
     "tuning {name} is defined {count} times ({lines}): the one at line {kept}, the last in "
     "the file, replaces the others",
     "two <tuning name=\"speaker\"> (the later replaces the earlier)"},
    {Rule::DUPLICATE_PRESET, "duplicate-preset", Severity::WARNING,
     "the IEQ presets at {lines} are all {type}: each is sent, and a profile that selects "
     "{type} cannot tell which one it means",
     "two IEQ presets whose ids both say warm"},
    {Rule::DUPLICATE_BAND, "duplicate-band", Severity::WARNING,
     "{table} has two bands at {frequency} (bands {first} and {second})",
     "two bands with frequency=\"65\" in one list"},
    {Rule::UNKNOWN_ENDPOINT, "unknown-endpoint", Severity::WARNING,
     "{element} {problem}: it reads as {readAs}{hint}",
     "<endpoint_type id=\"Headphone\"> (reads as other)"},
    {Rule::UNKNOWN_PRESET, "unknown-preset", Severity::WARNING,
     "{element} {problem}{hint}",
     "<include preset=\"Warm\"/>, <preset type=\"IEQ\">"},
    {Rule::PRESET_WORDS, "preset-words", Severity::WARNING,
     "{element} {name} holds {words}: it reads as {readAs}, {why}",
     "<include preset=\"warm_coffee\"/> (it holds \"off\", which decides)"},
    {Rule::INCLUDE_MISSING, "include-missing", Severity::WARNING,
     "{profile} selects no IEQ preset: {why}: it reads as {readAs}",
     "a profile without <include> (it selects off)"},
    {Rule::INCLUDE_UNDEFINED, "include-undefined", Severity::WARNING,
     "<include> {name} of {profile} selects the {type} IEQ preset, which the file does not "
     "define",
     "<include preset=\"ieq_warm\"/> with no warm IEQ preset in the file"},
    {Rule::INCLUDE_NAME, "include-name", Severity::WARNING,
     "<include> {name} of {profile} names no preset of the file: it reads as {type} by its "
     "words, the preset {preset} at line {line}",
     "<include preset=\"ieq_warm_v2\"/> where the file defines ieq_warm"},
    {Rule::NO_DATA, "no-data", Severity::WARNING,
     "tuning {name} has no data element, no element after its <device_id> ones: the reader "
     "drops the tuning",
     "<tuning> with only <device_id> children (dropped)"},
    {Rule::EMPTY_TUNING, "empty-tuning", Severity::WARNING,
     "{tuning} sends nothing: none of its values has an effect parameter, so the store keeps "
     "no array for it and no endpoint can select it",
     "<tuning> whose data sends nothing (no endpoint selects it)"},
    {Rule::TUNING_ENDPOINT, "tuning-endpoint", Severity::WARNING,
     "tuning {name} is for the {endpoint} endpoint, but its name is the {name} endpoint's: a "
     "cache records it for {name} by its name while the store lists it for {endpoint}, so "
     "{name} cannot select it, and the default tuning no longer serves {name}",
     "<tuning name=\"headphone\" endpoint_type=\"speaker\">"},
    {Rule::TUNING_NAME_CASE, "tuning-name-case", Severity::WARNING,
     "tuning {name} is named like the {endpoint} endpoint in another letter case: only a "
     "tuning named exactly {endpoint} is the endpoint's own, so {endpoint} {consequence} "
     "(did you mean {endpoint}?)",
     "<tuning name=\"Speaker\"> (the speaker takes the default tuning)"},
    {Rule::PROFILE_ID, "profile-id", Severity::WARNING,
     "profile {id} is outside 0 to 9: the store skips it and its endpoint sections",
     "<profile id=\"12\"> (outside 0 to 9: skipped)"},
    {Rule::MATRIX_ROWS, "matrix-rows", Severity::WARNING,
     "{matrix} has rows of {lengths} numbers: the effect receives them as one list and reads "
     "it by the matrix's shape",
     "mix matrix rows \"1,0\" and \"0\" (unequal lengths)"},
    {Rule::COMPOSITE_DROPPED, "composite-dropped", Severity::WARNING,
     "{owner} gives {counts} values{where}: its {code} entry takes as many of each, so it is "
     "not sent",
     "complex-equalizer-tuning-left and -right of different lengths (no \"ceqt\")"},
    {Rule::ENTITY_EXPANSION, "entity-expansion", Severity::WARNING,
     "{attribute} of {element} {problem}: it reads as {readAs}",
     "an attribute whose entity references expand past 1 MiB (read as empty), or name an "
     "entity that the file does not declare"},

    // ---- Read but never sent, or served by a fallback
    {Rule::NEVER_SENT, "never-sent", Severity::NOTE,
     "read but never sent: no array carries {what}",
     "<preset type=\"geq\">, <device_id>, orientation=\"0\""},
    {Rule::DEFAULT_TUNING, "default-tuning", Severity::NOTE,
     "the default tuning serves {endpoints}: {consequence}",
     "endpoints without a tuning of their own take <tuning name=\"default\">"},
    {Rule::NO_TUNING, "no-tuning", Severity::NOTE,
     "profiles use the endpoints {endpoints}, which have neither a tuning of their own name "
     "nor a default tuning",
     "an endpoint that profiles use, with neither its own tuning nor a default one"},
    {Rule::MONO_SPEAKER, "mono-speaker", Severity::NOTE,
     "the virtualizer of {settings} is sent as switched off in its output mode: the speaker "
     "tuning is mono",
     "<virtualizer-enable value=\"true\"/> on a mono speaker (sent as 0)"},
    {Rule::ENTITY_DECLARATION, "entity-declaration", Severity::NOTE,
     "the file declares entities, which a tuning file has no use for: the reader expands "
     "their references in attribute values, up to a limit",
     "<!DOCTYPE x [<!ENTITY e \"1\">]>"},

    // ---- About the file's own suppression comments
    {Rule::UNUSED_SUPPRESSION, "unused-suppression", Severity::NOTE,
     "the suppression of {rule} silences nothing: {why}",
     "<!-- ovela-tune disable never-sent --> before an element that draws no such note"},
};
// clang-format on

namespace load_rules {

constexpr bool inRuleOrder() {
    for (size_t i = 0; i < std::size(kLoadRules); ++i) {
        if (kLoadRules[i].rule != static_cast<Rule>(i)) {
            return false;
        }
    }
    return std::size(kLoadRules) == static_cast<size_t>(Rule::COUNT);
}
static_assert(inRuleOrder(), "kLoadRules holds one row for every Rule, in its order");

}  // namespace load_rules

constexpr const LoadRule& ruleOf(Rule rule) {
    return kLoadRules[static_cast<size_t>(rule)];
}

// The rule named `name`; null when no rule has that name.
const LoadRule* ruleNamed(std::string_view name);

// A value that a finding gives one {slot} of its rule's message.
struct Slot {
    std::string_view name;
    std::string value;
};
using Slots = std::initializer_list<Slot>;

// The rule's message with its slots filled; a slot that `slots` does not give
// stays as it is written, which the tests of every rule catch.
std::string messageOf(const LoadRule& rule, Slots slots);

}  // namespace ovela

#endif  // OVELA_LOAD_RULES_H
