#include "ReaderReport.h"

#include <algorithm>

#include "ParameterValues.h"
#include "RowReader.h"
#include "TextReaders.h"
#include "TuningFileVocabulary.h"
#include "XmlNodes.h"

namespace ovela {

namespace {

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

std::string lineText(const Place& place) {
    return std::to_string(place.line);
}

// The words of `table` that `text` holds, as findings list them: "the
// words off and balanced", "the words warm and off (in coffee)".
template <typename Table>
std::vector<std::string> wordsIn(const Table& table, std::string_view text) {
    std::vector<std::string> found;
    for (const auto& [word, value] : table) {
        const size_t at = text.find(word);
        if (at == std::string_view::npos) {
            continue;
        }
        // A word inside a longer one is named with the longer one.
        size_t begin = at;
        size_t end = at + std::string_view(word).size();
        while (begin > 0 && std::isalpha(static_cast<unsigned char>(text[begin - 1]))) --begin;
        while (end < text.size() && std::isalpha(static_cast<unsigned char>(text[end]))) ++end;
        const std::string_view whole = text.substr(begin, end - begin);
        found.push_back(whole == word ? std::string(word)
                                      : std::string(word) + " (in " + std::string(whole) + ")");
    }
    return found;
}

}  // namespace

Place ReaderReport::placeOf(const xmlNode* node) const {
    if (node == nullptr) {
        return Place();
    }
    if (mPositions != nullptr) {
        return mPositions->of(node);
    }
    const long line = xmlGetLineNo(node);
    return {line, 0, line, 0};
}

Place ReaderReport::placeOf(const xmlNode* element, std::string_view attribute) const {
    return mPositions != nullptr ? mPositions->of(element, attribute) : placeOf(element);
}

void ReaderReport::reportDescend(const xmlNode* parent, size_t lost) {
    const xmlNode* first = parent->children;
    const std::string what =
        tagOf(first) + " comes first in " + tagOf(parent) + " with no line break before it";
    mReport->addRepeated(
        Rule::NOT_INDENTED, placeOf(first), {{"what", what}, {"lost", lostText(first, lost, true)}},
        {{"what", "elements come first in their parent with no line break before them"},
         {"lost", "they are"}},
        lost);
}

void ReaderReport::reportPositional(const xmlNode* parent, int position, const xmlNode* taken,
                                    const char* name, const std::string& loss) {
    if (taken != nullptr && xml::isElement(taken)) {
        if (xml::nameOf(taken) != name) {
            mReport->add(Rule::POSITIONAL_NAME, placeOf(taken),
                         {{"element", tagOf(taken)},
                          {"name", name},
                          {"because", std::string("by its position, the ") + ordinal(position) +
                                          " child node of " + tagOf(parent)},
                          {"loss", ""}});
        }
        return;
    }
    // What comes first instead of the indentation moves the reader: the
    // finding is at that node.
    const xmlNode* first = parent->children;
    const bool moved = first != nullptr && first->type != XML_TEXT_NODE;
    const xmlNode* at = moved ? first : taken != nullptr ? taken : parent;
    mReport->add(Rule::POSITION, placeOf(at),
                 {{"ordinal", ordinal(position)},
                  {"parent", tagOf(parent)},
                  {"name", name},
                  {"found", taken == nullptr ? "missing" : kindOf(taken)},
                  {"because", moved ? ", as " + kindOf(first) + " comes first in it" : ""},
                  {"loss", loss}});
}

void ReaderReport::reportNotRead(const xmlNode* first, size_t count, const std::string& why) {
    mReport->add(Rule::NOT_READ, placeOf(first),
                 {{"lost", lostText(first, count, false)}, {"why", why}});
}

void ReaderReport::reportNamed(const xmlNode* element, const char* name) {
    if (xml::nameOf(element) != name) {
        mReport->add(Rule::POSITIONAL_NAME, placeOf(element),
                     {{"element", tagOf(element)},
                      {"name", name},
                      {"because", "whatever its name, in " + tagOf(element->parent)},
                      {"loss", ""}});
    }
}

void ReaderReport::reportEntityContent(const xmlNode* reference) {
    // The reference's children are its entity's declaration, whose own
    // children are what the entity stands for.
    const xmlNode* content =
        reference->children == nullptr ? nullptr : reference->children->children;
    const xmlNode* first = xml::firstElementFrom(content);
    if (first == nullptr) {
        return;
    }
    const size_t lost = xml::elementsFrom(first);
    mReport->add(
        Rule::ENTITY_CONTENT, placeOf(reference),
        {{"entity", std::string(xml::nameOf(reference))},
         {"parent", tagOf(reference->parent)},
         {"content", tagOf(first) + (lost == 1 ? "" : " and more elements")},
         {"lost", lost == 1 ? "it is" : "these " + std::to_string(lost) + " elements are"}});
}

void ReaderReport::reportUnknownElement(const xmlNode* element, const KnownNames& known) {
    mReport->add(Rule::UNKNOWN_ELEMENT, placeOf(element),
                 {{"element", tagOf(element)},
                  {"parent", tagOf(element->parent)},
                  {"hint", didYouMean(xml::nameOf(element), known)}});
}

void ReaderReport::reportUnknownAttributes(const xmlNode* element, const KnownNames& known) {
    for (const xmlAttr* a = xml::firstAttribute(element); a != nullptr; a = a->next) {
        const std::string_view name = xml::nameOf(a);
        if (std::find(known.begin(), known.end(), name) == known.end()) {
            mReport->add(Rule::UNKNOWN_ATTRIBUTE, placeOf(element, name),
                         {{"attribute", nameOf(a)},
                          {"element", tagOf(element)},
                          {"why", "the format has no such attribute there"},
                          {"hint", didYouMean(name, known)}});
        }
    }
}

void ReaderReport::reportAttributesAfter(const xmlNode* element, const xmlAttr* first,
                                         const char* why) {
    for (const xmlAttr* other = first->next; other != nullptr; other = other->next) {
        mReport->add(
            Rule::UNKNOWN_ATTRIBUTE, placeOf(element, xml::nameOf(other)),
            {{"attribute", nameOf(other)}, {"element", tagOf(element)}, {"why", why}, {"hint", ""}});
    }
}

void ReaderReport::reportSetting(const xmlNode* element, int readAs) {
    const xmlAttr* first = xml::firstAttribute(element);
    const std::string readsAs = "it reads as " + std::to_string(readAs);
    if (first == nullptr) {
        mReport->add(Rule::MISSING_VALUE, placeOf(element),
                     {{"element", tagOf(element)},
                      {"wanted", kValueAttribute},
                      {"only", ""},
                      {"consequence", readsAs},
                      {"hint", ""}});
        return;
    }
    if (xml::nameOf(first) != kValueAttribute) {
        if (hasAttribute(element, kValueAttribute)) {
            mReport->add(Rule::ATTRIBUTE_ORDER, placeOf(element),
                         {{"element", tagOf(element)},
                          {"wanted", kValueAttribute},
                          {"first", nameOf(first)},
                          {"readAs", std::to_string(readAs)}});
        } else {
            mReport->add(Rule::MISSING_VALUE, placeOf(element),
                         {{"element", tagOf(element)},
                          {"wanted", kValueAttribute},
                          {"only", ", only " + nameOf(first)},
                          {"consequence", readsAs},
                          {"hint", didYouMean(xml::nameOf(first), {kValueAttribute})}});
        }
        return;
    }
    reportAttributesAfter(element, first, "the reader reads only its value");
    reportNumber(element, kValueAttribute, xml::valueOf(first), readAs, true);
}

void ReaderReport::reportRow(const xmlNode* element, const char* attributeName,
                             std::string_view text, size_t values, const RowProblems& problems,
                             const char* emptyAs) {
    const xmlAttr* first = xml::firstAttribute(element);
    const std::string tag = tagOf(element);
    const Place at = placeOf(element);
    if (first == nullptr) {
        mReport->add(Rule::MISSING_VALUE, at,
                     {{"element", tag},
                      {"wanted", attributeName},
                      {"only", ""},
                      {"consequence", emptyAs},
                      {"hint", ""}});
        return;
    }
    if (isExplained(element)) {
        return;
    }
    if (xml::nameOf(first) != attributeName) {
        mReport->add(Rule::ATTRIBUTE_NAME, placeOf(element, xml::nameOf(first)),
                     {{"element", tag},
                      {"first", nameOf(first)},
                      {"wanted", attributeName},
                      {"hint", didYouMean(xml::nameOf(first), {attributeName})}});
    }
    reportAttributesAfter(element, first, "the reader reads only the first attribute");
    if (text.find_first_not_of(", \t\r\n") == std::string::npos) {
        mReport->add(Rule::EMPTY_LIST, at, {{"element", tag}, {"consequence", emptyAs}});
        return;
    }
    if (problems.emptyFields > 0) {
        mReport->add(
            Rule::EMPTY_FIELD, at,
            {{"what", tag},
             {"text", quoted(text)},
             {"problem", "has " + std::to_string(problems.emptyFields) +
                             (problems.emptyFields == 1 ? " empty field" : " empty fields") +
                             ", which the reader drops: " + std::to_string(values) +
                             " values reach the effect"}});
    }
    for (const RowProblems::NotANumber& field : problems.notNumbers) {
        mReport->add(Rule::NOT_A_NUMBER, at,
                     {{"what", "field " + quoted(field.field) + " of " + tag},
                      {"readAs", std::to_string(field.readAs) +
                                     (field.repeats ? ", the value before it" : "")}});
    }
    if (problems.notNumberCount > problems.notNumbers.size()) {
        mReport->add(
            Rule::NOT_A_NUMBER, at,
            {{"what", "each of " +
                          std::to_string(problems.notNumberCount - problems.notNumbers.size()) +
                          " more fields of " + tag},
             {"readAs", "the number at its start, or the value before it"}});
    }
    for (const auto& [field, readAs] : problems.outOfRange) {
        mReport->add(Rule::NUMBER_RANGE, at,
                     {{"what", "field " + quoted(field) + " of " + tag},
                      {"readAs", std::to_string(readAs)}});
    }
    if (problems.outOfRangeCount > problems.outOfRange.size()) {
        mReport->add(
            Rule::NUMBER_RANGE, at,
            {{"what", "each of " +
                          std::to_string(problems.outOfRangeCount - problems.outOfRange.size()) +
                          " more fields of " + tag},
             {"readAs", "its low 32 bits"}});
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
    mReport->add(Rule::ENTITY_EXPANSION, placeOf(element, attribute),
                 {{"attribute", attribute},
                  {"element", tagOf(element)},
                  {"problem", "refers to &" + entity +
                                  ";, which the file does not declare (an external DTD is never "
                                  "read)"},
                  {"readAs", quoted(readAs)}});
}

void ReaderReport::reportNumber(const xmlNode* element, std::string_view attribute,
                                std::string_view text, int readAs, bool truthWords) {
    if ((truthWords && (text == kTrueWord || text == kFalseWord)) || isExplained(element)) {
        return;
    }
    const Place at = placeOf(element, attribute);
    const std::string what = tagOf(element) + attributeText(attribute) + " " + quoted(text);
    bool inRange = true;
    if (isWholeNumber(text, &inRange)) {
        if (!inRange) {
            mReport->add(Rule::NUMBER_RANGE, at,
                         {{"what", what}, {"readAs", std::to_string(readAs)}});
        }
        return;
    }
    const std::string hint = truthWords ? didYouMean(text, knownNames(kTruthWords)) : "";
    if (hint.empty()) {
        mReport->add(Rule::NOT_A_NUMBER, at, {{"what", what}, {"readAs", std::to_string(readAs)}});
    } else {
        mReport->add(Rule::TRUTH_WORD, at,
                     {{"what", what}, {"readAs", std::to_string(readAs)}, {"hint", hint}});
    }
}

void ReaderReport::reportTruthWord(const xmlNode* element, std::string_view attribute,
                                   std::string_view text) {
    if (text != kTrueWord && text != kFalseWord && !isExplained(element)) {
        mReport->add(Rule::TRUTH_WORD, placeOf(element, attribute),
                     {{"what", tagOf(element) + attributeText(attribute) + " " + quoted(text)},
                      {"readAs", "false"},
                      {"hint", didYouMean(text, knownNames(kTruthWords))}});
    }
}

void ReaderReport::reportBandValue(const xmlNode* row, std::string_view attribute,
                                   std::string_view text, int last, size_t read) {
    if (read == 1) {
        reportNumber(row, attribute, text, last, false);
        return;
    }
    mReport->add(Rule::EMPTY_FIELD, placeOf(row, attribute),
                 {{"what", tagOf(row) + attributeText(attribute)},
                  {"text", quoted(text)},
                  {"problem", "holds a comma: the reader reads every piece as a band of its own, " +
                                  std::to_string(read) + " bands"}});
}

void ReaderReport::reportEndpointType(const xmlNode* element, Endpoint readAs) {
    const xmlAttr* first = xml::firstAttribute(element);
    if (first == nullptr || xml::nameOf(first) != kEndpointIdAttribute) {
        const bool later = first != nullptr && hasAttribute(element, kEndpointIdAttribute);
        mReport->add(Rule::UNKNOWN_ENDPOINT, placeOf(element),
                     {{"element", tagOf(element)},
                      {"problem", first == nullptr ? "names no endpoint"
                                  : later          ? "has its id after " + nameOf(first) +
                                                ", and the reader reads only the first attribute"
                                          : "names no endpoint, it has no id"},
                      {"readAs", ovela::endpointName(readAs)},
                      {"hint", first == nullptr || later
                                   ? ""
                                   : didYouMean(xml::nameOf(first), {kEndpointIdAttribute})}});
        return;
    }
    reportAttributesAfter(element, first, "the reader reads only its id");
    reportEndpointName(element, kEndpointIdAttribute, xml::valueOf(first), readAs);
}

void ReaderReport::reportEndpointName(const xmlNode* element, std::string_view attribute,
                                      const std::string& text, Endpoint readAs) {
    if (text == ovela::endpointName(readAs)) {
        return;
    }
    mReport->add(
        Rule::UNKNOWN_ENDPOINT, placeOf(element, attribute),
        {{"element", tagOf(element)},
         {"problem", std::string(attribute) + " " + quoted(text) + " is not an endpoint name"},
         {"readAs", ovela::endpointName(readAs)},
         {"hint", didYouMean(text, knownNames(kEndpointNames))}});
}

void ReaderReport::reportValue(const void* entity, Parameter parameter, const xmlNode* node,
                               std::string_view name, std::string_view attribute) {
    Source source{attribute.empty() ? placeOf(node) : placeOf(node, attribute), placeOf(node),
                  std::string(name), std::string(attribute)};
    const std::string what = nameOf(source);
    const Place at = source.place;
    if (const Place* earlier = mReport->trace().recordValue(entity, parameter, std::move(source))) {
        mReport->add(Rule::DUPLICATE_ELEMENT, at, {{"name", what}, {"first", lineText(*earlier)}});
    }
}

void ReaderReport::gathered(const void* entity, Parameter parameter, const xmlNode* row,
                            std::string_view name, std::string_view attribute) {
    if (mReport != nullptr) {
        mReport->trace().gatherValue(
            entity, parameter,
            {placeOf(row, attribute), placeOf(row), std::string(name), std::string(attribute)});
    }
}

void ReaderReport::reportReplaced(const void* earlier, const xmlNode* node, const char* what) {
    mReport->add(Rule::DUPLICATE_SECTION, placeOf(node),
                 {{"element", tagOf(node)},
                  {"where", "in the file"},
                  {"first", lineText(mReport->trace().placeOf(earlier))},
                  {"consequence", std::string("it replaces ") + what + ", which is not sent"}});
    mReport->trace().settle(earlier);
}

void ReaderReport::reportEndpointSection(const xmlNode* owner, const xmlNode* section,
                                         Endpoint endpoint) {
    auto [first, added] = mEndpointSections.emplace(std::make_pair(owner, endpoint), section);
    if (!added) {
        mReport->add(
            Rule::DUPLICATE_SECTION, placeOf(section),
            {{"element", tagOf(section)},
             {"where", std::string("for ") + ovela::endpointName(endpoint) + " in " + tagOf(owner)},
             {"first", lineText(placeOf(first->second))},
             {"consequence", "the store sends the entries of both"}});
    }
}

void ReaderReport::reportBandTable(const void* tuningEntity, const xmlNode* table,
                                   const xmlNode* first, size_t bands) {
    mReport->add(Rule::DUPLICATE_TABLE, placeOf(table),
                 {{"element", tagOf(table)},
                  {"tuning", mReport->trace().labelOf(tuningEntity)},
                  {"first", lineText(placeOf(first))},
                  {"bands", std::to_string(bands)}});
}

void ReaderReport::reportSecondMatrix(const xmlNode* outputMode, const xmlNode* matrix,
                                      const xmlNode* first) {
    mReport->add(Rule::DUPLICATE_SECTION, placeOf(matrix),
                 {{"element", tagOf(matrix)},
                  {"where", "in " + tagOf(outputMode)},
                  {"first", lineText(placeOf(first))},
                  {"consequence", "the reader reads the first one only"}});
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
    mReport->add(Rule::MATRIX_ROWS, placeOf(matrix),
                 {{"matrix", tagOf(matrix)}, {"lengths", listOf(counts)}});
}

void ReaderReport::reportInclude(const void* profileEntity, const xmlNode* profile,
                                 const xmlNode* include, const xmlNode* misplaced,
                                 const std::string& presetName, PresetType readAs) {
    const std::string label = mReport->trace().labelOf(profileEntity);
    const char* readsAs = kPresetTypeNames[readAs];
    if (!xml::isElementNamed(include, kIncludeElement)) {
        std::string why = include == nullptr        ? "it has no 4th child node"
                          : xml::isElement(include) ? "its 4th child node is " + tagOf(include)
                                                    : "its 4th child node is " + kindOf(include);
        why += std::string(", where the reader takes its <") + kIncludeElement + ">";
        if (misplaced != nullptr) {
            why += ", and its <" + std::string(kIncludeElement) + "> at line " +
                   lineText(placeOf(misplaced)) + " is not read";
        }
        // The node that stands where the <include> should, unless it is text,
        // which has no place of its own.
        const xmlNode* at = include != nullptr && include->type != XML_TEXT_NODE ? include
                            : misplaced != nullptr                               ? misplaced
                            : include != nullptr                                 ? include
                                                                                 : profile;
        mReport->add(Rule::INCLUDE_MISSING, placeOf(at),
                     {{"profile", label}, {"why", why}, {"readAs", readsAs}});
        return;
    }
    const xmlAttr* first = xml::firstAttribute(include);
    if (first == nullptr || xml::nameOf(first) != kIncludePresetAttribute) {
        const bool later = hasAttribute(include, kIncludePresetAttribute);
        mReport->add(Rule::INCLUDE_MISSING, placeOf(include),
                     {{"profile", label},
                      {"why", later ? tagOf(include) + " has its preset after " + nameOf(first) +
                                          ", and the reader reads only the first attribute"
                                    : tagOf(include) + " names no preset"},
                      {"readAs", readsAs}});
        return;
    }
    reportUnknownAttributes(include, {kIncludePresetAttribute});
    if (findWordIn(kIncludePresetWords, presetName) == nullptr) {
        mReport->add(Rule::UNKNOWN_PRESET, placeOf(include, kIncludePresetAttribute),
                     {{"element", tagOf(include) + " " + quoted(presetName)},
                      {"problem", "holds none of the words " + wordsOf(kIncludePresetWords) +
                                      ": it reads as " + readsAs},
                      {"hint", didYouMean(presetName, knownNames(kIncludePresetWords))}});
        return;
    }
    mIncludes[profileEntity] = {placeOf(include, kIncludePresetAttribute), presetName};
}

void ReaderReport::presetLinks(const std::map<const void*, PresetType>& selections) {
    if (mReport == nullptr) {
        return;
    }
    std::set<const void*> named;
    for (const auto& [profile, type] : selections) {
        const auto include = mIncludes.find(profile);
        if (include == mIncludes.end()) {
            continue;
        }
        const std::string& name = include->second.presetName;
        const Place& at = include->second.place;
        const std::string label = mReport->trace().labelOf(profile);
        const std::vector<std::string> words = wordsIn(kIncludePresetWords, name);
        const PresetName* same = nullptr;
        const PresetName* ofType = nullptr;
        for (const PresetName& preset : mPresets) {
            same = preset.id == name ? &preset : same;
            ofType = ofType == nullptr && preset.type == type ? &preset : ofType;
        }
        if (same != nullptr) {
            named.insert(same->entity);
        }
        if (same != nullptr && same->type != type) {
            mReport->add(Rule::PRESET_WORDS, at,
                         {{"element", "<include>"},
                          {"name", quoted(name)},
                          {"words", "the words " + listOf(words)},
                          {"readAs", kPresetTypeNames[type]},
                          {"why", "while <preset> " + quoted(name) + " at line " +
                                      lineText(mReport->trace().placeOf(same->entity)) +
                                      " reads as " + kPresetTypeNames[same->type] +
                                      ": the two test the words in different orders"}});
        } else if (words.size() > 1) {
            mReport->add(Rule::PRESET_WORDS, at,
                         {{"element", "<include>"},
                          {"name", quoted(name)},
                          {"words", "the words " + listOf(words)},
                          {"readAs", kPresetTypeNames[type]},
                          {"why", "the first of " + wordsOf(kIncludePresetWords) +
                                      " that it holds, in that order"}});
        } else if (same == nullptr && ofType != nullptr) {
            mReport->add(Rule::INCLUDE_NAME, at,
                         {{"name", quoted(name)},
                          {"profile", label},
                          {"type", kPresetTypeNames[type]},
                          {"preset", quoted(ofType->id)},
                          {"line", lineText(mReport->trace().placeOf(ofType->entity))}});
        } else if (ofType == nullptr && mUnreadPresetTypes.count(type) == 0) {
            mReport->add(
                Rule::INCLUDE_UNDEFINED, at,
                {{"name", quoted(name)}, {"profile", label}, {"type", kPresetTypeNames[type]}});
        }
    }
    // An id that a profile would read otherwise, which no profile names.
    for (const PresetName& preset : mPresets) {
        const PresetType* asInclude = findWordIn(kIncludePresetWords, preset.id);
        if (asInclude == nullptr || *asInclude == preset.type || named.count(preset.entity) != 0) {
            continue;
        }
        mReport->add(Rule::PRESET_WORDS, preset.place,
                     {{"element", "<preset>"},
                      {"name", quoted(preset.id)},
                      {"words", "the words " + listOf(wordsIn(kIeqPresetIdWords, preset.id))},
                      {"readAs", kPresetTypeNames[preset.type]},
                      {"why", std::string("while an <include> of that name reads as ") +
                                  kPresetTypeNames[*asInclude] +
                                  ": the two test the words in different orders"}});
    }
}

void ReaderReport::reportPresetType(const xmlNode* preset, const std::string& type, bool given,
                                    const PresetType* named) {
    // A profile that selects what this preset's id names is told here already.
    if (named != nullptr) {
        mUnreadPresetTypes.insert(*named);
    }
    mReport->add(Rule::UNKNOWN_PRESET, placeOf(preset, kPresetTypeAttribute),
                 {{"element", tagOf(preset)},
                  {"problem", (given ? "type " + quoted(type) + " is not " + wordsOf(kPresetTypes)
                                     : std::string("has no type")) +
                                  ": the preset is not read"},
                  {"hint", didYouMean(type, knownNames(kPresetTypes))}});
}

void ReaderReport::reportIeqPreset(const xmlNode* preset, const void* entity, const std::string& id,
                                   PresetType type) {
    mPresets.push_back({entity, id, type, placeOf(preset, kPresetIdAttribute)});
}

void ReaderReport::reportIeqPresetId(const xmlNode* preset, const std::string& id,
                                     PresetType readAs) {
    mReport->add(Rule::UNKNOWN_PRESET, placeOf(preset, kPresetIdAttribute),
                 {{"element", tagOf(preset) + " id " + quoted(id)},
                  {"problem", "holds none of the words " + wordsOf(kIeqPresetIdWords) +
                                  ": it reads as " + kPresetTypeNames[readAs]},
                  {"hint", didYouMean(id, knownNames(kIeqPresetIdWords))}});
}

std::string ReaderReport::positionText(const xmlNode* parent, int position, const xmlNode* taken,
                                       const char* name) const {
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

void ReaderReport::reportPresetWithoutBands(const xmlNode* preset, const std::string& id,
                                            const PresetLayout& layout, const char* attribute,
                                            const BandRows& rows) {
    std::string cause;
    if (rows.wrapper == nullptr || !xml::isElement(rows.wrapper) ||
        xml::isElement(preset->children)) {
        cause = positionText(preset, 2, rows.wrapper, layout.wrapperElement);
    } else if (rows.bands == nullptr || !xml::isElement(rows.bands) ||
               xml::isElement(rows.wrapper->children)) {
        cause = positionText(rows.wrapper, 2, rows.bands, kPresetBandsElement);
    } else if (rows.bands->children != nullptr && xml::isElement(rows.bands->children)) {
        cause = positionText(rows.bands, 2, nullptr, layout.rowElement);
    } else if (rows.first == nullptr && rows.stop != nullptr) {
        cause = tagOf(rows.bands) + " starts with " + tagOf(rows.stop) +
                ", and the reader stops at the first element that is not <" + layout.rowElement +
                ">";
    } else if (rows.first == nullptr) {
        cause = tagOf(rows.bands) + " holds no band rows";
    } else {
        cause = std::string("no band row has a ") + attribute + " attribute";
        for (const xmlAttr* a = xml::firstAttribute(rows.first); a != nullptr; a = a->next) {
            const std::string hint = didYouMean(xml::nameOf(a), {attribute});
            if (!hint.empty() && findByName(layout.rowAttributes, xml::nameOf(a)) == nullptr) {
                cause += ", the first has " + nameOf(a) + hint;
                break;
            }
        }
    }
    mReport->add(Rule::PRESET_WITHOUT_BANDS, placeOf(preset),
                 {{"cause", cause},
                  {"preset", tagOf(preset) + (id.empty() ? "" : " " + quoted(id))},
                  {"attribute", attribute}});
}

void ReaderReport::reportDuplicateBands(const xmlNode* table, const void* entity,
                                        const std::vector<int>& frequencies) {
    const std::string what = tagOf(table) + " of " + mReport->trace().labelOf(entity);
    for (size_t i = 0; i < frequencies.size(); ++i) {
        for (size_t j = 0; j < i; ++j) {
            if (frequencies[j] == frequencies[i]) {
                mReport->add(Rule::DUPLICATE_BAND, placeOf(table),
                             {{"table", what},
                              {"frequency", std::to_string(frequencies[i])},
                              {"first", std::to_string(j + 1)},
                              {"second", std::to_string(i + 1)}});
                break;
            }
        }
    }
}

void ReaderReport::duplicatePresets(const std::vector<const void*>& presets, PresetType type) {
    if (mReport == nullptr) {
        return;
    }
    std::vector<long> lines;
    for (const void* preset : presets) {
        lines.push_back(mReport->trace().placeOf(preset).line);
    }
    std::sort(lines.begin(), lines.end());
    std::vector<std::string> texts;
    for (long line : lines) {
        texts.push_back(std::to_string(line));
    }
    mReport->add(Rule::DUPLICATE_PRESET, mReport->trace().placeOf(presets.back()),
                 {{"lines", "lines " + listOf(texts)}, {"type", kPresetTypeNames[type]}});
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
    mReport->add(Rule::NO_DATA, placeOf(tuning), {{"name", name}});
}

void ReaderReport::reportDataElement(const void* tuningEntity, const xmlNode* tuning,
                                     const xmlNode* data, const xmlNode* firstAfter, size_t after) {
    const std::string label = mReport->trace().labelOf(tuningEntity);
    const std::string where =
        "the first element of " + tagOf(tuning) + " after the <" + kDeviceIdElement + "> ones";
    if (xml::nameOf(data) == kTuningDataElement) {
        if (after != 0) {
            reportNotRead(firstAfter, after,
                          "the reader reads only " + where + ", the data of " + label);
        }
        return;
    }
    mReport->add(Rule::POSITIONAL_NAME, placeOf(data),
                 {{"element", tagOf(data)},
                  {"name", kTuningDataElement},
                  {"because", "as the data of " + label + ", being " + where},
                  {"loss", after == 0 ? std::string()
                                      : ", and the " + std::to_string(after) +
                                            " elements after it are not read"}});
    if (after != 0) {
        mReport->trace().settle(tuningEntity);
    }
}

}  // namespace ovela
