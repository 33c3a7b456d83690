#include "ReaderReport.h"

#include <algorithm>
#include <cctype>
#include <cstdio>

#include "ParameterValues.h"
#include "PresetType.h"
#include "RowReader.h"
#include "TextReaders.h"
#include "TuningFileVocabulary.h"
#include "XmlNodes.h"

namespace ovela {

using namespace rules;

namespace {

// The longest name that may get a suggestion, and the most of a text that a
// finding quotes: a hostile file's 10 MB name or row costs no more than this.
constexpr size_t kLongestSuggestedName = 128;
constexpr size_t kLongestQuote = 120;

// Names compare as a person reads them: letter case and '-' against '_'
// make no difference.
std::string folded(std::string_view name) {
    std::string text;
    for (char c : name) {
        text += c == '_' ? '-' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return text;
}

// Edits (insertions, deletions, substitutions, swaps of neighbours) between two
// names, keeping three rows of the table.
size_t editDistance(const std::string& a, const std::string& b) {
    std::vector<size_t> before(b.size() + 1), previous(b.size() + 1), row(b.size() + 1);
    for (size_t j = 0; j <= b.size(); ++j) previous[j] = j;
    for (size_t i = 1; i <= a.size(); ++i) {
        row[0] = i;
        for (size_t j = 1; j <= b.size(); ++j) {
            const size_t cost = a[i - 1] == b[j - 1] ? 0 : 1;
            row[j] = std::min({previous[j] + 1, row[j - 1] + 1, previous[j - 1] + cost});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
                row[j] = std::min(row[j], before[j - 2] + 1);
            }
        }
        std::swap(before, previous);
        std::swap(previous, row);
    }
    return previous[b.size()];
}

std::string nameOf(const xmlAttr* attribute) {
    return std::string(xml::nameOf(attribute));
}

bool hasAttribute(const xmlNode* element, std::string_view name) {
    for (const xmlAttr* a = xml::firstAttribute(element); a != nullptr; a = a->next) {
        if (xml::nameOf(a) == name) {
            return true;
        }
    }
    return false;
}

// The element and every element inside it.
size_t elementsIn(const xmlNode* element) {
    size_t count = 1;
    for (const xmlNode* child = element->children; child != nullptr; child = child->next) {
        if (xml::isElement(child)) {
            count += elementsIn(child);
        }
    }
    return count;
}

bool hasElementChild(const xmlNode* node) {
    for (const xmlNode* child = node->children; child != nullptr; child = child->next) {
        if (xml::isElement(child)) {
            return true;
        }
    }
    return false;
}

// What a node that is not an element is, as a person calls it.
std::string kindOf(const xmlNode* node) {
    switch (node->type) {
        case XML_COMMENT_NODE:
            return "a comment";
        case XML_TEXT_NODE:
            return "text";
        case XML_CDATA_SECTION_NODE:
            return "a CDATA section";
        case XML_PI_NODE:
            return "a processing instruction";
        case XML_ENTITY_REF_NODE:
            return "an entity reference";
        default:
            return "not an element";
    }
}

const char* ordinal(int position) {
    return position == 2 ? "2nd" : position == 4 ? "4th" : "next";
}

// True for an optional sign and digits, with blanks around them.
bool isWholeNumber(std::string_view text, bool* inRange) {
    size_t begin = 0;
    while (begin < text.size() && isStreamSpace(text[begin])) ++begin;
    size_t end = text.size();
    while (end > begin && isStreamSpace(text[end - 1])) --end;
    size_t digits = begin < end && (text[begin] == '+' || text[begin] == '-') ? begin + 1 : begin;
    if (digits == end) {
        return false;
    }
    for (size_t i = digits; i < end; ++i) {
        if (text[i] < '0' || text[i] > '9') {
            return false;
        }
    }
    const std::string_view magnitude = text.substr(digits, end - digits);
    const std::string limit = text[begin] == '-' ? "2147483648" : "2147483647";
    const size_t significant = std::min(magnitude.find_first_not_of('0'), magnitude.size());
    const std::string_view number = magnitude.substr(significant);
    *inRange = number.size() < limit.size() || (number.size() == limit.size() && number <= limit);
    return true;
}

std::string attributeText(std::string_view attribute) {
    return attribute.empty() ? std::string() : " " + std::string(attribute);
}

// Why the reader finds no element at `taken`, the child node at `position`
// of `parent` where it takes the element `name`; empty when it finds one.
std::string positionProblem(const xmlNode* parent, int position, const xmlNode* taken,
                            const char* name) {
    if (taken != nullptr && xml::isElement(taken)) {
        return std::string();
    }
    const xmlNode* first = parent->children;
    if (first != nullptr && xml::isElement(first)) {
        return "the reader skips " + tagOf(first) + ", the first child node of " + tagOf(parent) +
               ", as nothing comes before it (the file is not indented there)";
    }
    const std::string at = "the " + std::string(ordinal(position)) + " child node of " +
                           tagOf(parent) + ", where the reader takes <" + name + ">, ";
    if (taken == nullptr) {
        return at + "is missing";
    }
    if (first != nullptr && first->type != XML_TEXT_NODE) {
        return kindOf(first) + " comes first in " + tagOf(parent) + ", so " + at + "is " +
               kindOf(taken);
    }
    return at + "is " + kindOf(taken);
}

template <typename Table>
std::string wordsOf(const Table& table) {
    std::string words;
    for (const auto& entry : table) {
        words += (words.empty() ? "" : ", ") + std::string(entry.first);
    }
    return words;
}

}  // namespace

std::string didYouMean(std::string_view name, const KnownNames& known) {
    // No name of the file is this long: a longer one is no typo of one.
    if (name.size() > kLongestSuggestedName) {
        return std::string();
    }
    const std::string wanted = folded(name);
    std::string_view best;
    size_t bestDistance = std::max<size_t>(1, std::min<size_t>(2, wanted.size() / 3)) + 1;
    for (std::string_view candidate : known) {
        // Names whose lengths differ by more edits than allowed cannot match.
        const size_t lengthDifference = candidate.size() > wanted.size()
                                            ? candidate.size() - wanted.size()
                                            : wanted.size() - candidate.size();
        if (candidate == name || lengthDifference >= bestDistance) {
            continue;
        }
        const size_t distance = editDistance(wanted, folded(candidate));
        if (distance < bestDistance) {
            best = candidate;
            bestDistance = distance;
        }
    }
    return best.empty() ? std::string() : " (did you mean " + std::string(best) + "?)";
}

std::string quoted(std::string_view text) {
    if (text.size() > kLongestQuote) {
        std::string start = quoted(text.substr(0, kLongestQuote));
        start.insert(start.size() - 1, "...");
        return start;
    }
    std::string out = "\"";
    for (size_t i = 0; i < text.size();) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte >= 0x20 && byte < 0x7f) {
            if (byte == '"' || byte == '\\') out += '\\';
            out += static_cast<char>(byte);
            ++i;
            continue;
        }
        // A UTF-8 sequence shows as its code point, a stray byte as itself.
        const size_t length = byte >= 0xf0 ? 4 : byte >= 0xe0 ? 3 : byte >= 0xc0 ? 2 : 1;
        uint32_t code = length == 1 ? byte : byte & (0x3f >> (length - 1));
        bool valid = length > 1 && i + length <= text.size();
        for (size_t k = 1; valid && k < length; ++k) {
            const auto next = static_cast<unsigned char>(text[i + k]);
            valid = (next & 0xc0) == 0x80;
            code = (code << 6) | (next & 0x3f);
        }
        char escape[16];
        if (length == 1 || !valid) {
            snprintf(escape, sizeof(escape), byte < 0x80 ? "\\u%04x" : "\\x%02x", byte);
            ++i;
        } else {
            snprintf(escape, sizeof(escape), code > 0xffff ? "\\U%08x" : "\\u%04x", code);
            i += length;
        }
        out += escape;
    }
    return out + "\"";
}

std::string tagOf(const xmlNode* node) {
    return "<" + std::string(xml::nameOf(node)) + ">";
}

void ReaderReport::reportDescend(const xmlNode* parent) {
    const xmlNode* first = parent == nullptr || !xml::isElement(parent) ? nullptr : parent->children;
    if (first == nullptr || !xml::isElement(first)) {
        return;
    }
    const size_t lost = elementsIn(first);
    const std::string what =
        lost == 1 ? tagOf(first) + " is"
                  : tagOf(first) + " and the " + std::to_string(lost - 1) + " elements in it are";
    mReport->addRepeated(
        kNotIndented, xmlGetLineNo(first),
        tagOf(first) + " comes first in " + tagOf(parent) +
            " with no line break before it, and the reader skips the first child node of an "
            "element: " +
            what + " not read",
        "elements come first in their parent with no line break before them, and the reader "
        "skips the first child node of an element: they are not read (indent the file)",
        lost);
}

void ReaderReport::reportPositional(const xmlNode* parent, int position, const xmlNode* taken,
                                    const char* name, const char* otherwise) {
    // A first child that is an element is reported as not indented, and
    // what the reader takes after it follows from that.
    const bool indented =
        parent == nullptr || parent->children == nullptr || !xml::isElement(parent->children);
    if (taken != nullptr && xml::isElement(taken)) {
        if (indented && xml::nameOf(taken) != name) {
            mReport->add(kPositionalName, xmlGetLineNo(taken),
                         tagOf(taken) + " is read as <" + name + "> by its position, the " +
                             ordinal(position) + " child node of " + tagOf(parent) +
                             "; the format names it <" + name + ">");
        }
        return;
    }
    // A section without elements says nothing that could be lost.
    if (!indented || !xml::isElement(parent) || !hasElementChild(parent)) {
        return;
    }
    // A comment or the like that comes first is the cause: the finding is its.
    const xmlNode* first = parent->children;
    const xmlNode* at = first->type != XML_TEXT_NODE ? first : taken != nullptr ? taken : parent;
    mReport->add(kPosition, xmlGetLineNo(at),
                 positionProblem(parent, position, taken, name) + ": " + otherwise);
}

void ReaderReport::reportNotRead(const xmlNode* first, const std::string& why) {
    while (first != nullptr && !xml::isElement(first)) {
        first = first->next;
    }
    if (first == nullptr) {
        return;
    }
    size_t count = 0;
    for (const xmlNode* node = first; node != nullptr; node = node->next) {
        if (xml::isElement(node)) {
            count += elementsIn(node);
        }
    }
    const std::string what =
        count == 1 ? tagOf(first) + " is"
                   : tagOf(first) + " and " + std::to_string(count - 1) + " more elements are";
    mReport->add(kNotRead, xmlGetLineNo(first), what + " not read: " + why);
}

void ReaderReport::reportNamed(const xmlNode* element, const char* name) {
    if (xml::nameOf(element) != name) {
        mReport->add(kPositionalName, xmlGetLineNo(element),
                     tagOf(element) + " in " + tagOf(element->parent) + " is read as a <" + name +
                         "> whatever its name; the format names it <" + name + ">");
    }
}

void ReaderReport::reportMatrixRows(const xmlNode* matrix, const std::vector<size_t>& lengths) {
    if (lengths.empty() ||
        std::all_of(lengths.begin(), lengths.end(), [&](size_t n) { return n == lengths[0]; })) {
        return;
    }
    std::vector<std::string> counts;
    for (size_t length : lengths) {
        counts.push_back(std::to_string(length));
    }
    mReport->add(kMatrixRows, xmlGetLineNo(matrix),
                 tagOf(matrix) + " has rows of " + listOf(counts) +
                     " numbers: the effect receives them as one list and reads it by the "
                     "matrix's shape");
}

void ReaderReport::reportUnknownElement(const xmlNode* element, const KnownNames& known) {
    const std::string_view name = xml::nameOf(element);
    mReport->add(kUnknownElement, xmlGetLineNo(element),
                 "unknown element " + tagOf(element) + " in " + tagOf(element->parent) +
                     " is ignored" + didYouMean(name, known));
}

void ReaderReport::reportUnknownAttributes(const xmlNode* element, const KnownNames& known) {
    for (const xmlAttr* a = xml::firstAttribute(element); a != nullptr; a = a->next) {
        const std::string_view name = xml::nameOf(a);
        if (std::find(known.begin(), known.end(), name) == known.end()) {
            mReport->add(kUnknownAttribute, xmlGetLineNo(element),
                         "unknown attribute " + nameOf(a) + " of " + tagOf(element) +
                             " is ignored" + didYouMean(name, known));
        }
    }
}

void ReaderReport::reportAttributesAfter(const xmlNode* element, const xmlAttr* first,
                                         const char* why) {
    for (const xmlAttr* other = first->next; other != nullptr; other = other->next) {
        mReport->add(kUnknownAttribute, xmlGetLineNo(element),
                     "attribute " + nameOf(other) + " of " + tagOf(element) + " is ignored" + why);
    }
}

void ReaderReport::reportSetting(const xmlNode* element, int readAs) {
    const xmlAttr* first = xml::firstAttribute(element);
    const std::string tag = tagOf(element);
    if (first == nullptr) {
        mReport->add(kMissingValue, xmlGetLineNo(element),
                     tag + " has no value attribute: it reads as " + std::to_string(readAs));
        return;
    }
    if (xml::nameOf(first) != kValueAttribute) {
        mReport->add(kMissingValue, xmlGetLineNo(element),
                     hasAttribute(element, kValueAttribute)
                         ? tag + " has its value after " + nameOf(first) +
                               ", and the reader reads only the first attribute: it reads as " +
                               std::to_string(readAs)
                         : tag + " has no value attribute, only " + nameOf(first) +
                               ": it reads as " + std::to_string(readAs) +
                               didYouMean(xml::nameOf(first), {kValueAttribute}));
        return;
    }
    reportAttributesAfter(element, first, ": the reader reads only its value");
    reportNumber(element, kValueAttribute, xml::valueOf(first), readAs, true);
}

void ReaderReport::reportRow(const xmlNode* element, const char* attributeName,
                             std::string_view text, size_t values, const RowProblems& problems,
                             const char* emptyAs) {
    const xmlAttr* first = xml::firstAttribute(element);
    const std::string tag = tagOf(element);
    const long line = xmlGetLineNo(element);
    if (first == nullptr) {
        mReport->add(kMissingValue, line,
                     tag + " has no " + attributeName + " attribute: " + emptyAs);
        return;
    }
    if (isExplained(element)) {
        return;
    }
    if (xml::nameOf(first) != attributeName) {
        mReport->add(kAttributeName, line,
                     tag + " gives its numbers in " + nameOf(first) +
                         ", which the reader reads as the row whatever its name; the format "
                         "names it " +
                         attributeName + didYouMean(xml::nameOf(first), {attributeName}));
    }
    reportAttributesAfter(element, first, ": the reader reads only the first attribute");
    if (text.find_first_not_of(", \t\r\n") == std::string::npos) {
        mReport->add(kEmptyList, line, tag + " holds no numbers: " + emptyAs);
        return;
    }
    if (problems.emptyFields > 0) {
        mReport->add(kEmptyField, line,
                     tag + " " + quoted(text) + " has " + std::to_string(problems.emptyFields) +
                         (problems.emptyFields == 1 ? " empty field" : " empty fields") +
                         ", which the reader drops: " + std::to_string(values) +
                         " values reach the effect");
    }
    for (const RowProblems::NotANumber& field : problems.notNumbers) {
        mReport->add(kNotANumber, line,
                     "field " + quoted(field.field) + " of " + tag +
                         " is not a number: it reads as " + std::to_string(field.readAs) +
                         (field.repeats ? ", the value before it" : ""));
    }
    if (problems.notNumberCount > problems.notNumbers.size()) {
        mReport->add(kNotANumber, line,
                     std::to_string(problems.notNumberCount - problems.notNumbers.size()) +
                         " more fields of " + tag + " are not numbers");
    }
    for (const auto& [field, readAs] : problems.outOfRange) {
        mReport->add(kNumberRange, line,
                     "field " + quoted(field) + " of " + tag +
                         " is past the 32-bit range: it reads as " + std::to_string(readAs));
    }
    if (problems.outOfRangeCount > problems.outOfRange.size()) {
        mReport->add(kNumberRange, line,
                     std::to_string(problems.outOfRangeCount - problems.outOfRange.size()) +
                         " more fields of " + tag + " are past the 32-bit range");
    }
}

void ReaderReport::reportDroppedReference(const xmlNode* element, const std::string& attribute,
                                          const std::string& entity) {
    mExplained.insert(element);
    std::string readAs;
    for (const xmlAttr* a = xml::firstAttribute(element); a != nullptr; a = a->next) {
        if (attribute == xml::nameOf(a) ||
            attribute.substr(attribute.find(':') + 1) == xml::nameOf(a)) {
            readAs = xml::valueOf(a);
        }
    }
    mReport->add(kEntityExpansion, xmlGetLineNo(element),
                 attribute + " of " + tagOf(element) + " refers to &" + entity +
                     ";, which the file does not declare (an external DTD is never read): it "
                     "reads as " +
                     quoted(readAs));
}

void ReaderReport::reportNumber(const xmlNode* element, std::string_view attribute,
                                std::string_view text, int readAs, bool truthWords) {
    if ((truthWords && (text == kTrueWord || text == kFalseWord)) || isExplained(element)) {
        return;
    }
    const std::string what = tagOf(element) + attributeText(attribute) + " " + quoted(text);
    bool inRange = true;
    if (isWholeNumber(text, &inRange)) {
        if (!inRange) {
            mReport->add(kNumberRange, xmlGetLineNo(element),
                         what + " is past the 32-bit range: it reads as " + std::to_string(readAs));
        }
        return;
    }
    const std::string hint = truthWords ? didYouMean(text, knownNames(kTruthWords)) : "";
    mReport->add(hint.empty() ? kNotANumber : kTruthWord, xmlGetLineNo(element),
                 what + " is not a number: it reads as " + std::to_string(readAs) + hint);
}

void ReaderReport::reportTruthWord(const xmlNode* element, std::string_view attribute,
                                   std::string_view text) {
    if (text != kTrueWord && text != kFalseWord && !isExplained(element)) {
        mReport->add(kTruthWord, xmlGetLineNo(element),
                     tagOf(element) + attributeText(attribute) + " " + quoted(text) +
                         " is neither \"true\" nor \"false\": it reads as false" +
                         didYouMean(text, knownNames(kTruthWords)));
    }
}

void ReaderReport::reportEndpointType(const xmlNode* element, Endpoint readAs) {
    const xmlAttr* first = xml::firstAttribute(element);
    const std::string tag = tagOf(element);
    const std::string readsAs = std::string(": it reads as ") + kEndpointNames[readAs];
    if (first == nullptr) {
        mReport->add(kUnknownEndpoint, xmlGetLineNo(element), tag + " names no endpoint" + readsAs);
        return;
    }
    if (xml::nameOf(first) != kEndpointIdAttribute) {
        mReport->add(kUnknownEndpoint, xmlGetLineNo(element),
                     hasAttribute(element, kEndpointIdAttribute)
                         ? tag + " has its id after " + nameOf(first) +
                               ", and the reader reads only the first attribute" + readsAs
                         : tag + " names no endpoint, it has no id" + readsAs +
                               didYouMean(xml::nameOf(first), {kEndpointIdAttribute}));
        return;
    }
    reportAttributesAfter(element, first, "");
    reportEndpointName(element, kEndpointIdAttribute, xml::valueOf(first), readAs);
}

void ReaderReport::reportEndpointName(const xmlNode* element, std::string_view attribute,
                                      const std::string& text, Endpoint readAs) {
    if (text == kEndpointNames[readAs]) {
        return;
    }
    mReport->add(kUnknownEndpoint, xmlGetLineNo(element),
                 tagOf(element) + attributeText(attribute) + " " + quoted(text) +
                     " is not an endpoint name: it reads as " + kEndpointNames[readAs] +
                     didYouMean(text, knownNames(kEndpointNames)));
}

void ReaderReport::reportValue(const void* entity, Parameter parameter, const xmlNode* node,
                               const std::string& xmlName) {
    const long line = xmlGetLineNo(node);
    const long earlier = mReport->recordValue(entity, parameter, line, xmlName);
    if (earlier != 0) {
        mReport->add(kDuplicateElement, line,
                     xmlName + " is given again (first at line " + std::to_string(earlier) +
                         "): the later value replaces the earlier one");
    }
}

void ReaderReport::reportReplaced(const void* earlier, const xmlNode* node, const char* what) {
    mReport->add(kDuplicateSection, xmlGetLineNo(node),
                 tagOf(node) + " replaces " + what + " at line " +
                     std::to_string(mReport->lineOf(earlier)) + ": only the last one is sent");
    mReport->settle(earlier);
}

void ReaderReport::reportInclude(const void* profileEntity, const xmlNode* profile,
                                 const xmlNode* container, const xmlNode* include,
                                 const std::string& presetName, PresetType readAs) {
    // An element first is reported as not indented, and a comment or the
    // like first shifts what the reader takes, which the position of the
    // settings reports: what the reader takes after either follows from it.
    const xmlNode* first = profile->children;
    const bool shifted = first != nullptr && first->type != XML_TEXT_NODE;
    const std::string label = mReport->labelOf(profileEntity);
    for (const xmlNode* node = profile->children; !shifted && node != nullptr; node = node->next) {
        if (xml::isElement(node) && node != container && node != include) {
            mReport->add(kNotRead, xmlGetLineNo(node),
                         tagOf(node) + " in " + label + " is not read: the reader takes only the " +
                             "2nd child node as <" + kProfileSettingsElement +
                             "> and the 4th as <" + kIncludeElement + ">");
        }
    }
    const std::string readsAs = std::string(": it reads as ") + kPresetTypeNames[readAs];
    if (!xml::isElementNamed(include, kIncludeElement)) {
        if (shifted) {
            return;
        }
        std::string why = include == nullptr        ? "it has no 4th child node"
                          : xml::isElement(include) ? "its 4th child node is " + tagOf(include)
                                                    : "its 4th child node is " + kindOf(include);
        mReport->add(kIncludeMissing, xmlGetLineNo(include != nullptr ? include : profile),
                     label + " selects no IEQ preset: " + why + ", where the reader takes its <" +
                         kIncludeElement + ">" + readsAs);
        return;
    }
    const xmlAttr* attribute = xml::firstAttribute(include);
    if (attribute == nullptr || xml::nameOf(attribute) != kIncludePresetAttribute) {
        mReport->add(kIncludeMissing, xmlGetLineNo(include),
                     tagOf(include) + " of " + label +
                         (hasAttribute(include, kIncludePresetAttribute)
                              ? " has its preset after another attribute, and the reader reads "
                                "only the first"
                              : " names no preset") +
                         readsAs);
        return;
    }
    reportUnknownAttributes(include, {kIncludePresetAttribute});
    if (findWordIn(kIncludePresetWords, presetName) == nullptr) {
        mReport->add(kUnknownPreset, xmlGetLineNo(include),
                     tagOf(include) + " " + quoted(presetName) + " holds none of the words " +
                         wordsOf(kIncludePresetWords) + readsAs +
                         didYouMean(presetName, knownNames(kIncludePresetWords)));
        return;
    }
    mIncludes[profileEntity] = {xmlGetLineNo(include), presetName};
}

void ReaderReport::selection(const void* profileEntity, PresetType type, bool defined) {
    auto include = mIncludes.find(profileEntity);
    if (mReport == nullptr || defined || include == mIncludes.end() ||
        mUnreadPresetTypes.count(type) != 0) {
        return;
    }
    mReport->add(kIncludeUndefined, include->second.line,
                 "<" + std::string(kIncludeElement) + "> " + quoted(include->second.presetName) +
                     " of " + mReport->labelOf(profileEntity) + " selects the " +
                     kPresetTypeNames[type] + " IEQ preset, which the file does not define");
}

void ReaderReport::reportPresetType(const xmlNode* preset, const std::string& type) {
    // A profile that selects what this preset's id names is told here already.
    for (const xmlAttr* a = xml::firstAttribute(preset); a != nullptr; a = a->next) {
        const PresetType* named = xml::nameOf(a) == kPresetIdAttribute
                                      ? findWordIn(kIeqPresetIdWords, xml::valueOf(a))
                                      : nullptr;
        if (named != nullptr) {
            mUnreadPresetTypes.insert(*named);
        }
    }
    const std::string what = hasAttribute(preset, kPresetTypeAttribute)
                                 ? "type " + quoted(type) + " is not " + wordsOf(kPresetTypes)
                                 : "has no type";
    mReport->add(kUnknownPreset, xmlGetLineNo(preset),
                 tagOf(preset) + " " + what + ": the preset is not read" +
                     didYouMean(type, knownNames(kPresetTypes)));
}

void ReaderReport::reportIeqPresetId(const xmlNode* preset, const std::string& id,
                                     PresetType readAs) {
    mReport->add(kUnknownPreset, xmlGetLineNo(preset),
                 tagOf(preset) + " id " + quoted(id) + " holds none of the words " +
                     wordsOf(kIeqPresetIdWords) + ": it reads as " + kPresetTypeNames[readAs] +
                     didYouMean(id, knownNames(kIeqPresetIdWords)));
}

void ReaderReport::reportBandRows(const xmlNode* bands, const PresetLayout& layout) {
    for (const xmlNode* row = xml::secondChild(bands); row != nullptr; row = row->next) {
        if (!xml::isElement(row)) {
            continue;
        }
        if (layout.rowNameRequired && xml::nameOf(row) != layout.rowElement) {
            reportNotRead(row, std::string("the reader stops at the first element that is not <") +
                                   layout.rowElement + ">");
            return;
        }
        if (!layout.rowNameRequired) {
            reportNamed(row, layout.rowElement);
        }
        reportUnknownAttributes(row, knownNames(layout.rowAttributes));
        for (const xmlAttr* a = row->properties; a != nullptr; a = a->next) {
            if (findByName(layout.rowAttributes, xml::nameOf(a)) != nullptr) {
                reportBandValue(row, xml::nameOf(a), xml::valueOf(a));
            }
        }
    }
}

void ReaderReport::reportBandValue(const xmlNode* row, std::string_view attribute,
                                   const std::string& text) {
    const std::string what = tagOf(row) + " " + std::string(attribute) + " " + quoted(text);
    if (text.find(',') != std::string::npos) {
        mReport->add(kEmptyField, xmlGetLineNo(row),
                     what + " holds a comma: the reader reads every piece as a band of its own" +
                         (text.back() == ',' ? ", the empty one after it as 0" : ""));
        return;
    }
    reportNumber(row, attribute, text, string2int(text), false);
}

void ReaderReport::reportBands(const ParameterValues* preset, const PresetLayout& layout,
                               const xmlNode* bands) {
    const xmlNode* row = xml::secondChild(bands);
    while (row != nullptr && !xml::isElement(row)) {
        row = row->next;
    }
    for (const auto& [attribute, parameter] : layout.rowAttributes) {
        mReport->recordGathered(preset, parameter, row == nullptr ? 0 : xmlGetLineNo(row),
                                std::string(layout.rowElement) + " " + attribute);
    }
    // The first column holds the band frequencies.
    const auto frequencies = preset->values.find(layout.rowAttributes.begin()->second);
    if (frequencies != preset->values.end()) {
        reportDuplicateBands(bands, mReport->labelOf(preset), frequencies->second);
    }
}

void ReaderReport::reportPresetWithoutBands(const xmlNode* preset, const PresetLayout& layout,
                                            const char* attribute) {
    const xmlNode* wrapper = xml::secondChild(preset);
    const xmlNode* bands = xml::secondChild(wrapper);
    std::string cause = positionProblem(preset, 2, wrapper, layout.wrapperElement);
    if (cause.empty()) {
        cause = positionProblem(wrapper, 2, bands, kPresetBandsElement);
    }
    const xmlNode* row = xml::secondChild(bands);
    while (cause.empty() && row != nullptr && !xml::isElement(row)) {
        row = row->next;
    }
    if (!cause.empty()) {
    } else if (bands->children != nullptr && xml::isElement(bands->children)) {
        cause = positionProblem(bands, 2, nullptr, layout.rowElement);
    } else if (row == nullptr) {
        cause = tagOf(bands) + " holds no band rows";
    } else if (layout.rowNameRequired && xml::nameOf(row) != layout.rowElement) {
        cause = tagOf(bands) + " starts with " + tagOf(row) +
                ", and the reader stops at the first element that is not <" + layout.rowElement +
                ">";
    } else {
        cause = std::string("no band row has a ") + attribute + " attribute";
        for (const xmlAttr* a = xml::firstAttribute(row); a != nullptr; a = a->next) {
            const std::string hint = didYouMean(xml::nameOf(a), {attribute});
            if (!hint.empty() && findByName(layout.rowAttributes, xml::nameOf(a)) == nullptr) {
                cause += ", the first has " + nameOf(a) + hint;
                break;
            }
        }
    }
    std::string id;
    for (const xmlAttr* a = xml::firstAttribute(preset); a != nullptr; a = a->next) {
        id = xml::nameOf(a) == kPresetIdAttribute ? " " + quoted(xml::valueOf(a)) : id;
    }
    mReport->add(kPresetWithoutBands, xmlGetLineNo(preset),
                 cause + ": " + tagOf(preset) + id + " gives no " + attribute +
                     " values, so the file does not load");
}

void ReaderReport::reportTuningAttributes(const xmlNode* tuning, const std::string& endpointName,
                                          const std::string& mono) {
    reportUnknownAttributes(tuning, knownNames(kTuningAttributes, kTuningListAttributes));
    for (const xmlAttr* a = xml::firstAttribute(tuning); a != nullptr; a = a->next) {
        const TuningAttribute* known = findByName(kTuningAttributes, xml::nameOf(a));
        if (known != nullptr && *known == TuningAttribute::ENDPOINT_TYPE) {
            reportEndpointName(tuning, xml::nameOf(a), endpointName,
                               endpointFromName(endpointName, ENDPOINT_SPEAKER));
            break;
        }
    }
    if (hasAttribute(tuning, kMonoDeviceAttribute)) {
        reportTruthWord(tuning, kMonoDeviceAttribute, mono);
    }
}

void ReaderReport::reportNoData(const xmlNode* tuning, const std::string& name) {
    if (tuning->children != nullptr && xml::isElement(tuning->children)) {
        return;  // not indented: the element that was skipped is reported
    }
    mReport->add(kNoData, xmlGetLineNo(tuning),
                 "tuning " + name + " has no data element, no element after its <" +
                     kDeviceIdElement + "> ones: the reader drops the tuning");
}

void ReaderReport::reportDataElement(const void* tuningEntity, const xmlNode* tuning,
                                     const xmlNode* data) {
    size_t after = 0;
    const xmlNode* firstAfter = nullptr;
    for (const xmlNode* node = data->next; node != nullptr; node = node->next) {
        if (xml::isElement(node)) {
            after += elementsIn(node);
            firstAfter = firstAfter == nullptr ? node : firstAfter;
        }
    }
    if (xml::isElement(tuning->children)) {
        return;  // not indented: what the reader takes follows from that
    }
    const std::string label = mReport->labelOf(tuningEntity);
    const std::string where =
        "the first element of " + tagOf(tuning) + " after the <" + kDeviceIdElement + "> ones";
    if (xml::nameOf(data) == kTuningDataElement) {
        if (firstAfter != nullptr) {
            reportNotRead(firstAfter, "the reader reads only " + where + ", the data of " + label);
        }
        return;
    }
    mReport->add(
        kPositionalName, xmlGetLineNo(data),
        tagOf(data) + " is read as the data of " + label + ", being " + where +
            "; the format names it <" + kTuningDataElement + ">" +
            (after == 0 ? std::string()
                        : ", and the " + std::to_string(after) + " elements after it are not read"));
    if (after != 0) {
        mReport->settle(tuningEntity);
    }
}

void ReaderReport::reportOutputMode(const xmlNode* outputMode) {
    reportDescend(outputMode);
    std::vector<std::string_view> seen;
    for (const xmlNode* node = xml::secondChild(outputMode); node != nullptr; node = node->next) {
        if (!xml::isElement(node)) {
            continue;
        }
        const std::string_view name = xml::nameOf(node);
        if (findByName(kOutputModeMatrices, name) == nullptr) {
            reportUnknownElement(node, knownNames(kOutputModeMatrices));
        } else if (std::find(seen.begin(), seen.end(), name) != seen.end()) {
            mReport->add(kDuplicateSection, xmlGetLineNo(node),
                         "a second " + tagOf(node) + " in " + tagOf(outputMode) +
                             " is not read: the reader reads the first one");
        } else {
            seen.push_back(name);
        }
    }
}

void ReaderReport::reportBandFrequencies(const void* tuningEntity, const xmlNode* table,
                                         const std::vector<int>& frequencies) {
    reportDuplicateBands(table, tagOf(table) + " of " + mReport->labelOf(tuningEntity), frequencies);
}

void ReaderReport::reportDuplicateBands(const xmlNode* table, const std::string& what,
                                        const std::vector<int>& frequencies) {
    for (size_t i = 0; i < frequencies.size(); ++i) {
        for (size_t j = 0; j < i; ++j) {
            if (frequencies[j] == frequencies[i]) {
                mReport->add(kDuplicateBand, xmlGetLineNo(table),
                             what + " has two bands at " + std::to_string(frequencies[i]) +
                                 " (bands " + std::to_string(j + 1) + " and " +
                                 std::to_string(i + 1) + ")");
                break;
            }
        }
    }
}

void ReaderReport::duplicatePresets(const std::vector<const void*>& presets, PresetType type) {
    if (mReport == nullptr) {
        return;
    }
    mReport->add(kDuplicatePreset, mReport->lastLineOf(presets),
                 "the IEQ presets at " + mReport->linesOf(presets) + " are all " +
                     kPresetTypeNames[type] + ": each is sent, and a profile that selects " +
                     kPresetTypeNames[type] + " cannot tell which one it means");
}

void ReaderReport::reportEndpointSection(const xmlNode* owner, const xmlNode* section,
                                         Endpoint endpoint) {
    auto [first, added] = mEndpointSections.emplace(std::make_pair(owner, endpoint), section);
    if (!added) {
        mReport->add(kDuplicateSection, xmlGetLineNo(section),
                     "a second " + tagOf(section) + " for " + kEndpointNames[endpoint] + " in " +
                         tagOf(owner) + " (the first at line " +
                         std::to_string(xmlGetLineNo(first->second)) +
                         "): the store sends the entries of both");
    }
}

}  // namespace ovela
