#ifndef OVELA_TUNING_FILE_SHAPE_H
#define OVELA_TUNING_FILE_SHAPE_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "Parameter.h"

// The shape of a tuning file, described once: its sections, their elements,
// each element's attributes and the values they hold, where each may appear
// and which parameter each sets. It is built from the name tables that the
// reader reads with, and every tool that needs the shape reads it here: the
// schema writer, the fuzz dictionary, the tests and the editor's completion.
// Not part of the library's interface.
namespace ovela {

// What an attribute holds, as the reader reads it.
enum class ValueKind {
    NUMBER,         // a whole number in the 32-bit range
    SETTING,        // a number, or a truth word ("true" is 1, "false" 0)
    ROW,            // comma-separated numbers
    TRUE_WORD,      // "true"; anything else reads as false
    ENDPOINT_NAME,  // an endpoint's print name
    PRESET_TYPE,    // a preset's type: ieq or geq
    PRESET_ID,      // an IEQ preset's id: holds a word that names its type
    PRESET_NAME,    // an include's preset: holds a word that names a type
    PROFILE_ID,     // a profile id, 0 to 9
    TEXT,           // any text
};

// The words that an attribute of `kind` may hold, for completion; none for
// numbers and free text.
std::vector<std::string> wordsOf(ValueKind kind);

struct ShapeAttribute {
    std::string name;
    ValueKind kind;
    bool required;
    // The parameter that its value sets, if any.
    std::optional<Parameter> parameter;
};

// How many times an element may appear where it stands.
enum class Occurs {
    ONE,   // exactly once
    ANY,   // any number of times, none included
    MANY,  // once or more
};

// The order of an element's children.
enum class ChildOrder {
    SEQUENCE,  // as listed, each as often as it may
    CHOICE,    // any of them, in any order
};

// Values of one attribute that must differ among the children of one name.
struct UniqueKey {
    std::string name;       // the constraint's own name
    std::string child;      // the children, by name
    std::string attribute;  // the attribute whose values differ
};

struct ShapeElement {
    std::string name;
    Occurs occurs = Occurs::ONE;
    // The reader takes the element by its position and reads it whatever its
    // name; the format gives it this name.
    bool positional = false;
    std::vector<ShapeAttribute> attributes;
    // Any attribute is read, each one value of `parameter`, in order.
    bool anyAttributes = false;
    // The parameter that the element's value or rows set, if any.
    std::optional<Parameter> parameter;
    ChildOrder order = ChildOrder::CHOICE;
    std::vector<ShapeElement> children;
    std::vector<UniqueKey> unique;
};

// The root element of a tuning file, whose name the reader does not check,
// with everything below it.
const ShapeElement& tuningFileShape();

// The element at `path` from the root ("profile/settings/endpoint_type"), or
// null.
const ShapeElement* shapeAt(const std::string& path);

// What a tuning file calls the parameter, as a person finds it in the file:
// the element that holds it ("volume-leveler-amount"), or the element and the
// attribute ("virtual-bass-mix-freqs frequency_high", "band_ieq target"); the
// print name for a parameter that no file gives (ieq_id).
std::string xmlNameOf(Parameter parameter);

// ---- The whole vocabulary as one list ----

enum class NameRole {
    ELEMENT,    // a child element of `where`
    ATTRIBUTE,  // an attribute of `where`
    WORD,       // a value that the reader recognizes; `where` is "<element path>@<attribute>"
};

struct VocabularyName {
    std::string where;  // an element path from the root, "*" standing for the root
    NameRole role;
    std::string name;
};

// Every name of the shape with its place in the file, parents before their
// children, for tools that check tuning files or make inputs for the reader.
std::vector<VocabularyName> tuningFileVocabulary();

}  // namespace ovela

#endif  // OVELA_TUNING_FILE_SHAPE_H
