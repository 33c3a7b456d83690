#include <ovela/Endpoint.h>
#include <ovela/OvlProfileId.h>

#include <algorithm>
#include <vector>

#include "Commands.h"
#include "EntryNames.h"
#include "FileContents.h"
#include "SvgChart.h"
#include "TuningFileShape.h"
#include "TuningFileVocabulary.h"

// Writes the XML schema of the tuning file from the description of its shape,
// which is built from the tables that the reader reads it with, so that an
// editor and xmllint know the same names as the library.
namespace ovela::tune {

namespace {

// What the schema cannot say, or says more strictly than the reader reads.
constexpr char kDifferences[] =
    R"(The tuning file of ovela-tuning, written by `ovela-tune schema` from the
tables that the library's reader reads with: do not edit, regenerate.

A file that validates still meets the reader's own rules, which `ovela-tune check`
reports and this schema cannot express:
- The reader descends by position: it skips the first child node of an element
  that holds others, the line break that indents the first child. A file
  written without line breaks validates, yet the reader misses elements.
- A comment where the reader takes an element by its position (the preset's
  wrapper, a profile's settings and include) validates, yet moves the reader.
- The reader reads only the first attribute of a setting (value), a row (data)
  and an endpoint_type (id); the schema does not see attribute order.
- A preset's wrapper is not tied to its type: the schema accepts an ieq wrapper
  in a preset of type geq.
- The attributes of virtual-bass-subgains are read whatever their names, each
  one value: the schema accepts any attribute there and checks none.
- The rows of a mix matrix should have one length; numbers in rows are not
  checked against the 32-bit range.
- An element named twice in one section, two IEQ presets whose ids say the same
  word, and an include that names a preset the file does not define validate.

The schema rejects what the reader accepts and `ovela-tune check` warns about:
unknown elements and attributes (the reader skips them), a root of another
name (the reader does not check it), a profile id outside 0 to 9 (skipped),
endpoint names and truth words in another case, numbers with other characters
(they read as 0), empty fields in rows, elements after a tuning's data, a
profile without an include, a preset without bands, two profiles of one id,
two tunings of one name, two endpoint_type of one id in one settings element,
and two bands of one frequency in one list.)";

std::string attribute(const char* name, const std::string& value) {
    return std::string(" ") + name + "=\"" + value + "\"";
}

// Indented XSD text, one element per line.
class SchemaWriter {
  public:
    explicit SchemaWriter(std::ostream& out) : mOut(out) {}

    void open(const std::string& tag, const std::string& attributes = "") {
        line("<xs:" + tag + attributes + ">");
        mOpen.push_back(tag);
    }
    void close() {
        const std::string tag = mOpen.back();
        mOpen.pop_back();
        line("</xs:" + tag + ">");
    }
    void empty(const std::string& tag, const std::string& attributes) {
        line("<xs:" + tag + attributes + "/>");
    }
    void documentation(const std::string& text) {
        line("<xs:annotation><xs:documentation>" + escapedHtml(text) +
             "</xs:documentation></xs:annotation>");
    }
    // An element of a named type, documented when `text` is not empty.
    void element(const std::string& name, const std::string& type, const std::string& text,
                 const std::string& occurs = "") {
        const std::string attributes = attribute("name", name) + attribute("type", type) + occurs;
        if (text.empty()) {
            empty("element", attributes);
            return;
        }
        open("element", attributes);
        documentation(text);
        close();
    }
    void attributeOf(const std::string& name, const std::string& type, bool required) {
        empty("attribute", attribute("name", name) + attribute("type", type) +
                               (required ? attribute("use", "required") : ""));
    }
    // The values of `field` must not repeat among the elements that `selector`
    // finds in the element being written.
    void unique(const std::string& name, const std::string& selector, const std::string& field) {
        open("unique", attribute("name", name));
        empty("selector", attribute("xpath", selector));
        empty("field", attribute("xpath", field));
        close();
    }
    void enumeration(const std::string& name, const std::vector<std::string>& values) {
        open("simpleType", attribute("name", name));
        open("restriction", attribute("base", "xs:string"));
        for (const std::string& value : values) {
            empty("enumeration", attribute("value", value));
        }
        close();
        close();
    }
    void pattern(const std::string& name, const std::string& regex) {
        open("simpleType", attribute("name", name));
        open("restriction", attribute("base", "xs:string"));
        empty("pattern", attribute("value", escapedHtml(regex)));
        close();
        close();
    }

  private:
    void line(const std::string& text) {
        mOut << std::string(2 * mOpen.size(), ' ') << text << "\n";
    }

    std::ostream& mOut;
    std::vector<std::string> mOpen;
};

const std::string kAnyNumber = attribute("minOccurs", "0") + attribute("maxOccurs", "unbounded");

// What the effect receives of `parameter`, for an editor to show.
std::string sentAs(Parameter parameter) {
    std::vector<std::string> codes;
    for (const KyrParameterId code : entryCodesOf(parameter)) {
        codes.push_back(kyrCodeText(code));
    }
    return codes.empty() ? "read, but not sent to the effect" : "sent in " + joined(codes);
}

const char* typeOf(ValueKind kind) {
    switch (kind) {
        case ValueKind::NUMBER:
            return "xs:int";
        case ValueKind::SETTING:
            return "setting";
        case ValueKind::ROW:
            return "row";
        case ValueKind::TRUE_WORD:
            return "truthWord";
        case ValueKind::ENDPOINT_NAME:
            return "endpointName";
        case ValueKind::PRESET_TYPE:
            return "presetType";
        case ValueKind::PRESET_NAME:
            return "includedPreset";
        case ValueKind::PROFILE_ID:
            return "profileId";
        case ValueKind::PRESET_ID:
        case ValueKind::TEXT:
            break;
    }
    return "xs:string";
}

void writeSimpleTypes(SchemaWriter& xsd) {
    xsd.enumeration("truthWord", wordsOf(ValueKind::TRUE_WORD));
    xsd.open("simpleType", attribute("name", "setting"));
    xsd.documentation("a whole number in the 32-bit range, or a truth word");
    xsd.empty("union", attribute("memberTypes", "xs:int truthWord"));
    xsd.close();
    const std::string number = "\\s*[+\\-]?[0-9]+\\s*";
    xsd.pattern("row", number + "(," + number + ")*");
    xsd.enumeration("endpointName", wordsOf(ValueKind::ENDPOINT_NAME));
    xsd.enumeration("presetType", wordsOf(ValueKind::PRESET_TYPE));
    std::string words;
    for (const std::string& word : wordsOf(ValueKind::PRESET_NAME)) {
        words += (words.empty() ? "" : "|") + word;
    }
    xsd.pattern("includedPreset", ".*(" + words + ").*");
    xsd.open("simpleType", attribute("name", "profileId"));
    xsd.open("restriction", attribute("base", "xs:int"));
    xsd.empty("minInclusive", attribute("value", std::to_string(kFirstProfileId)));
    xsd.empty("maxInclusive", attribute("value", std::to_string(kLastProfileId)));
    xsd.close();
    xsd.close();
}

std::string occursOf(Occurs occurs) {
    switch (occurs) {
        case Occurs::ONE:
            break;
        case Occurs::ANY:
            return kAnyNumber;
        case Occurs::MANY:
            return attribute("maxOccurs", "unbounded");
    }
    return "";
}

// The named type of an element that holds one setting or one row and
// nothing else; empty for any other.
std::string valueTypeOf(const ShapeElement& element) {
    if (!element.children.empty() || element.anyAttributes || element.attributes.size() != 1 ||
        !element.attributes.front().required) {
        return "";
    }
    const ShapeAttribute& only = element.attributes.front();
    if (only.kind == ValueKind::SETTING && only.name == kValueAttribute) {
        return "settingElement";
    }
    return only.kind == ValueKind::ROW && only.name == kRowAttribute ? "rowElement" : "";
}

void writeValueTypes(SchemaWriter& xsd) {
    xsd.open("complexType", attribute("name", "settingElement"));
    xsd.attributeOf(kValueAttribute, typeOf(ValueKind::SETTING), true);
    xsd.close();
    xsd.open("complexType", attribute("name", "rowElement"));
    xsd.attributeOf(kRowAttribute, typeOf(ValueKind::ROW), true);
    xsd.close();
}

// An element of the shape with everything below it. Inside a choice that
// repeats, the element's own count is the choice's.
void writeElement(SchemaWriter& xsd, const ShapeElement& element, bool inRepeatedChoice) {
    const std::string occurs = inRepeatedChoice ? std::string() : occursOf(element.occurs);
    const std::string valueType = valueTypeOf(element);
    if (!valueType.empty()) {
        xsd.element(element.name, valueType,
                    element.parameter ? sentAs(*element.parameter) : std::string(), occurs);
        return;
    }
    xsd.open("element", attribute("name", element.name) + occurs);
    if (element.parameter) {
        xsd.documentation(sentAs(*element.parameter) +
                          (element.anyAttributes ? "; every attribute is one value, in order" : ""));
    }
    xsd.open("complexType");
    if (!element.children.empty()) {
        const bool repeated =
            element.order == ChildOrder::CHOICE &&
            std::all_of(element.children.begin(), element.children.end(),
                        [](const ShapeElement& child) { return child.occurs == Occurs::ANY; });
        xsd.open(element.order == ChildOrder::CHOICE ? "choice" : "sequence",
                 repeated ? kAnyNumber : "");
        for (const ShapeElement& child : element.children) {
            writeElement(xsd, child, repeated);
        }
        xsd.close();
    }
    for (const ShapeAttribute& shaped : element.attributes) {
        xsd.attributeOf(shaped.name, typeOf(shaped.kind), shaped.required);
    }
    if (element.anyAttributes) {
        xsd.empty("anyAttribute", attribute("processContents", "skip"));
    }
    xsd.close();
    for (const UniqueKey& key : element.unique) {
        xsd.unique(key.name, key.child, "@" + key.attribute);
    }
    xsd.close();
}

}  // namespace

int runSchema(const CommandLine& line, std::ostream& out, std::ostream& err) {
    if (!line.positional().empty()) {
        err << "ovela-tune schema: takes no file\n";
        return kExitUsage;
    }
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    SchemaWriter xsd(out);
    xsd.open("schema", attribute("xmlns:xs", "http://www.w3.org/2001/XMLSchema"));
    xsd.documentation(kDifferences);
    writeElement(xsd, tuningFileShape(), false);
    writeSimpleTypes(xsd);
    writeValueTypes(xsd);
    xsd.close();
    return kExitOk;
}

}  // namespace ovela::tune
