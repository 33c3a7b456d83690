#include <ovela/Endpoint.h>
#include <ovela/OvlProfileId.h>

#include <vector>

#include "Commands.h"
#include "EntryNames.h"
#include "FileContents.h"
#include "SvgChart.h"
#include "TuningFileVocabulary.h"

// Writes the XML schema of the tuning file from the tables that the reader
// reads it with, so that an editor and xmllint know the same names as the
// library.
namespace ovela::tune {

namespace {

// The root's name in the files we know; the reader takes any.
constexpr char kRootElement[] = "ovela_tuning";

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

template <typename Table>
std::vector<std::string> namesOf(const Table& table) {
    std::vector<std::string> names;
    for (const auto& entry : table) {
        names.push_back(entry.first);
    }
    return names;
}

void writeSimpleTypes(SchemaWriter& xsd) {
    xsd.enumeration("truthWord", namesOf(kTruthWords));
    xsd.open("simpleType", attribute("name", "setting"));
    xsd.documentation("a whole number in the 32-bit range, or a truth word");
    xsd.empty("union", attribute("memberTypes", "xs:int truthWord"));
    xsd.close();
    const std::string number = "\\s*[+\\-]?[0-9]+\\s*";
    xsd.pattern("row", number + "(," + number + ")*");
    xsd.enumeration("endpointName",
                    std::vector<std::string>(kEndpointNames, kEndpointNames + kNumEndpoints));
    xsd.enumeration("presetType", namesOf(kPresetTypes));
    std::string words;
    for (const auto& word : kIncludePresetWords) {
        words += (words.empty() ? "" : "|") + std::string(word.first);
    }
    xsd.pattern("includedPreset", ".*(" + words + ").*");
    xsd.open("simpleType", attribute("name", "profileId"));
    xsd.open("restriction", attribute("base", "xs:int"));
    xsd.empty("minInclusive", attribute("value", std::to_string(kFirstProfileId)));
    xsd.empty("maxInclusive", attribute("value", std::to_string(kLastProfileId)));
    xsd.close();
    xsd.close();
}

// An element holding one value, or one row, in its first attribute.
void writeValueTypes(SchemaWriter& xsd) {
    xsd.open("complexType", attribute("name", "settingElement"));
    xsd.attributeOf(kValueAttribute, "setting", true);
    xsd.close();
    xsd.open("complexType", attribute("name", "rowElement"));
    xsd.attributeOf(kRowAttribute, "row", true);
    xsd.close();
}

void writeValueElement(SchemaWriter& xsd, const char* name, const ElementValue& value) {
    xsd.element(name, value.shape == ValueShape::SINGLE ? "settingElement" : "rowElement",
                sentAs(value.parameter));
}

// An endpoint_type element of a settings element, holding `elements`.
template <typename Table, typename WriteOne>
void writeEndpointType(SchemaWriter& xsd, const Table& elements, WriteOne writeOne) {
    xsd.open("element", attribute("name", kEndpointTypeElement) + kAnyNumber);
    xsd.open("complexType");
    xsd.open("choice", kAnyNumber);
    for (const auto& entry : elements) {
        writeOne(entry);
    }
    xsd.close();
    xsd.attributeOf(kEndpointIdAttribute, "endpointName", true);
    xsd.close();
    xsd.close();
}

void uniqueEndpoints(SchemaWriter& xsd, const std::string& name) {
    xsd.unique(name, kEndpointTypeElement, std::string("@") + kEndpointIdAttribute);
}

void writeVersion(SchemaWriter& xsd) {
    xsd.open("complexType", attribute("name", "version"));
    for (const auto& part : kVersionAttributes) {
        xsd.attributeOf(part.first, "xs:int", false);
    }
    xsd.close();
}

void writeGeneral(SchemaWriter& xsd) {
    xsd.open("complexType", attribute("name", "general"));
    xsd.open("sequence");
    xsd.open("element", attribute("name", kGeneralSettingsElement));
    xsd.open("complexType");
    xsd.open("choice", kAnyNumber);
    for (const auto& [name, parameter] : kGeneralElements) {
        xsd.element(name, "settingElement", sentAs(parameter));
    }
    writeEndpointType(xsd, kGeneralEndpointElements, [&](const NameEntry<Parameter>& entry) {
        xsd.element(entry.first, "settingElement", sentAs(entry.second));
    });
    xsd.close();
    xsd.close();
    uniqueEndpoints(xsd, "generalEndpoint");
    xsd.close();
    xsd.close();
    xsd.close();
}

// A list of rows whose attributes are the columns `columns`.
template <typename Columns, typename TypeOf>
void writeBandList(SchemaWriter& xsd, const std::string& name, const char* rowName,
                   const std::string& occurs, const Columns& columns, TypeOf typeOf) {
    xsd.open("element", attribute("name", name) + occurs);
    xsd.open("complexType");
    xsd.open("sequence");
    xsd.open("element", attribute("name", rowName) + attribute("maxOccurs", "unbounded"));
    xsd.open("complexType");
    for (const auto& column : columns) {
        xsd.attributeOf(column.first, typeOf(column.second), true);
    }
    xsd.close();
    xsd.close();
    xsd.close();
    xsd.close();
    xsd.unique(name + "-" + rowName, rowName, std::string("@") + kBandFrequencyAttribute);
    xsd.close();
}

void writePreset(SchemaWriter& xsd) {
    xsd.open("complexType", attribute("name", "preset"));
    xsd.open("choice");
    for (const auto& type : kPresetTypes) {
        const PresetLayout& layout = type.second;
        xsd.open("element", attribute("name", layout.wrapperElement));
        xsd.open("complexType");
        xsd.open("sequence");
        writeBandList(xsd, kPresetBandsElement, layout.rowElement, "", layout.rowAttributes,
                      [](Parameter) { return "xs:int"; });
        xsd.close();
        xsd.close();
        xsd.close();
    }
    xsd.close();
    for (const auto& [name, which] : kPresetAttributes) {
        xsd.attributeOf(name, which == PresetAttribute::TYPE ? "presetType" : "xs:string", true);
    }
    xsd.close();
}

void writeProfile(SchemaWriter& xsd) {
    xsd.open("complexType", attribute("name", "profile"));
    xsd.open("sequence");
    xsd.open("element", attribute("name", kProfileSettingsElement));
    xsd.open("complexType");
    xsd.open("choice", kAnyNumber);
    for (const auto& [name, value] : kProfileElements) {
        writeValueElement(xsd, name, value);
    }
    writeEndpointType(xsd, kProfileEndpointElements, [&](const NameEntry<ElementValue>& entry) {
        writeValueElement(xsd, entry.first, entry.second);
    });
    xsd.close();
    xsd.close();
    uniqueEndpoints(xsd, "profileEndpoint");
    xsd.close();
    xsd.open("element", attribute("name", kIncludeElement));
    xsd.open("complexType");
    xsd.attributeOf(kIncludePresetAttribute, "includedPreset", true);
    xsd.close();
    xsd.close();
    xsd.close();
    for (const auto& [name, which] : kProfileAttributes) {
        xsd.attributeOf(name, which == ProfileAttribute::ID ? "profileId" : "xs:string",
                        which == ProfileAttribute::ID);
    }
    xsd.close();
}

void writeOutputMode(SchemaWriter& xsd) {
    xsd.open("element", attribute("name", kOutputModeElement) + kAnyNumber);
    xsd.open("complexType");
    xsd.open("choice", kAnyNumber);
    for (const auto& [name, parameter] : kOutputModeMatrices) {
        xsd.open("element", attribute("name", name));
        xsd.documentation(sentAs(parameter));
        xsd.open("complexType");
        xsd.open("sequence");
        xsd.open("element",
                 attribute("name", kMatrixRowElement) + attribute("maxOccurs", "unbounded"));
        xsd.open("complexType");
        xsd.attributeOf(kMatrixRowAttribute, "row", true);
        xsd.close();
        xsd.close();
        xsd.close();
        xsd.close();
        xsd.close();
    }
    xsd.close();
    xsd.close();
    xsd.close();
}

void writeTuningData(SchemaWriter& xsd) {
    xsd.open("element", attribute("name", kTuningDataElement));
    xsd.open("complexType");
    xsd.open("choice", kAnyNumber);
    for (const auto& [name, parameter] : kTuningValueElements) {
        xsd.element(name, "settingElement", sentAs(parameter));
    }
    for (const auto& [name, row] : kTuningRowElements) {
        xsd.element(name, "rowElement", sentAs(row.parameter));
    }
    for (const auto& [name, columns] : kTuningAttributeElements) {
        xsd.open("element", attribute("name", name) + kAnyNumber);
        xsd.open("complexType");
        for (const auto& [column, parameter] : columns) {
            xsd.attributeOf(column, "xs:int", true);
        }
        xsd.close();
        xsd.close();
    }
    for (const auto& [name, parameter] : kTuningAttributeListElements) {
        xsd.open("element", attribute("name", name) + kAnyNumber);
        xsd.documentation(sentAs(parameter) + "; every attribute is one value, in order");
        xsd.open("complexType");
        xsd.empty("anyAttribute", attribute("processContents", "skip"));
        xsd.close();
        xsd.close();
    }
    for (const auto& [name, columns] : kTuningBandElements) {
        writeBandList(xsd, name, kBandRowElement, kAnyNumber, columns, [](const BandColumn& c) {
            return c.value == BandValue::TRUE_WORD ? "truthWord" : "xs:int";
        });
    }
    writeOutputMode(xsd);
    xsd.close();
    xsd.close();
    xsd.close();
}

void writeTuning(SchemaWriter& xsd) {
    xsd.open("complexType", attribute("name", "tuning"));
    xsd.open("sequence");
    xsd.open("element", attribute("name", kDeviceIdElement) + kAnyNumber);
    xsd.open("complexType");
    for (const auto& entry : kDeviceIdAttributes) {
        xsd.attributeOf(entry.first, "xs:string", false);
    }
    xsd.close();
    xsd.close();
    writeTuningData(xsd);
    xsd.close();
    for (const auto& [name, which] : kTuningAttributes) {
        const char* type = which == TuningAttribute::NAME            ? "xs:string"
                           : which == TuningAttribute::ENDPOINT_TYPE ? "endpointName"
                                                                     : "truthWord";
        xsd.attributeOf(name, type, which != TuningAttribute::MONO_DEVICE);
    }
    for (const auto& entry : kTuningListAttributes) {
        xsd.attributeOf(entry.first, "xs:int", false);
    }
    xsd.close();
}

const char* sectionType(Section section) {
    switch (section) {
        case Section::FORMAT_VERSION:
        case Section::TOOL_VERSION:
            return "version";
        case Section::GENERAL:
            return "general";
        case Section::PRESET:
            return "preset";
        case Section::PROFILE:
            return "profile";
        case Section::TUNING:
            return "tuning";
    }
    return "";
}

void writeRoot(SchemaWriter& xsd) {
    xsd.open("element", attribute("name", kRootElement));
    xsd.open("complexType");
    xsd.open("choice", kAnyNumber);
    for (const auto& [name, section] : kSectionElements) {
        xsd.element(name, sectionType(section), "");
    }
    xsd.close();
    xsd.close();
    xsd.unique("profileId", "profile", "@id");
    xsd.unique("tuningName", "tuning", "@name");
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
    writeRoot(xsd);
    writeSimpleTypes(xsd);
    writeValueTypes(xsd);
    writeVersion(xsd);
    writeGeneral(xsd);
    writePreset(xsd);
    writeProfile(xsd);
    writeTuning(xsd);
    xsd.close();
    return kExitOk;
}

}  // namespace ovela::tune
