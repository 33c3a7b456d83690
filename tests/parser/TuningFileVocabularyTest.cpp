#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <tuple>

#include "ParserTestSupport.h"
#include "TempFile.h"
#include "TuningFileVocabulary.h"

namespace ovela {
namespace {

using testing::sampleFile;

template <typename Table, typename ParameterOf>
void count(const Table& table, ParameterOf parameterOf, std::vector<int>& counts) {
    for (const auto& [name, value] : table) {
        ++counts[parameterOf(value)];
    }
}

TEST(TuningFileVocabularyTest, EveryParameterButIeqIdIsFilledByExactlyOneEntry) {
    std::vector<int> counts(kNumParameters, 0);
    const auto itself = [](Parameter parameter) { return parameter; };
    count(kGeneralElements, itself, counts);
    count(kGeneralEndpointElements, itself, counts);
    count(kIeqBandAttributes, itself, counts);
    count(kGeqBandAttributes, itself, counts);
    count(
        kProfileElements, [](const ElementValue& value) { return value.parameter; }, counts);
    count(
        kProfileEndpointElements, [](const ElementValue& value) { return value.parameter; }, counts);
    count(kTuningListAttributes, itself, counts);
    count(kTuningValueElements, itself, counts);
    count(
        kTuningRowElements, [](const TuningRow& row) { return row.parameter; }, counts);
    for (const auto& [element, attributes] : kTuningAttributeElements) {
        count(attributes, itself, counts);
    }
    count(kTuningAttributeListElements, itself, counts);
    for (const auto& [element, columns] : kTuningBandElements) {
        count(
            columns, [](const BandColumn& column) { return column.parameter; }, counts);
    }
    count(kOutputModeMatrices, itself, counts);

    std::vector<int> expected(kNumParameters, 1);
    expected[IEQ_ID] = 0;  // an IEQ preset's type, set by the preset itself
    EXPECT_EQ(counts, expected);
}

TEST(TuningFileVocabularyTest, LookupMatchesWholeNamesExactly) {
    ASSERT_NE(findByName(kProfileElements, "ieq-enable"), nullptr);
    EXPECT_EQ(findByName(kProfileElements, "ieq-enable")->parameter, IEQ_ENABLE);
    EXPECT_EQ(findByName(kProfileElements, "ieq-enabl"), nullptr);
    EXPECT_EQ(findByName(kProfileElements, "ieq-enable "), nullptr);
    EXPECT_EQ(findByName(kProfileElements, "IEQ-ENABLE"), nullptr);
    EXPECT_EQ(findByName(kProfileElements, ""), nullptr);
}

TEST(TuningFileVocabularyTest, NamesAreUniqueWithinTheirPlace) {
    const std::vector<VocabularyName> names = tuningFileVocabulary();
    std::set<std::tuple<std::string, NameRole, std::string>> distinct;
    for (const VocabularyName& name : names) {
        distinct.emplace(name.where, name.role, name.name);
    }
    EXPECT_EQ(distinct.size(), names.size());
}

// True when the element's ancestors, from the root down, match `where`.
bool isAt(const xmlNode* element, const std::string& where) {
    std::vector<std::string> path;
    for (const xmlNode* node = element; node != nullptr && node->type == XML_ELEMENT_NODE;
         node = node->parent) {
        path.insert(path.begin(), reinterpret_cast<const char*>(node->name));
    }
    std::vector<std::string> pattern;
    std::istringstream parts(where);
    for (std::string part; std::getline(parts, part, '/');) {
        pattern.push_back(part);
    }
    if (pattern.size() != path.size()) {
        return false;
    }
    for (size_t i = 0; i < path.size(); ++i) {
        if (pattern[i] != "*" && pattern[i] != path[i]) {
            return false;
        }
    }
    return true;
}

bool usedAt(const xmlNode* element, const VocabularyName& name) {
    for (const xmlNode* node = element; node != nullptr; node = node->next) {
        if (node->type != XML_ELEMENT_NODE) {
            continue;
        }
        if (name.role == NameRole::ELEMENT &&
            name.name == reinterpret_cast<const char*>(node->name) &&
            isAt(node->parent, name.where)) {
            return true;
        }
        if (name.role == NameRole::ATTRIBUTE && isAt(node, name.where) &&
            xmlHasProp(node, reinterpret_cast<const xmlChar*>(name.name.c_str())) != nullptr) {
            return true;
        }
        if (usedAt(node->children, name)) {
            return true;
        }
    }
    return false;
}

TEST(TuningFileVocabularyTest, ReferenceFileUsesEveryElementAndAttributeAtItsPlace) {
    xmlDoc* document = xmlReadFile(sampleFile().c_str(), nullptr, 0);
    ASSERT_NE(document, nullptr);
    std::vector<std::string> unused;
    for (const VocabularyName& name : tuningFileVocabulary()) {
        if (name.role != NameRole::WORD && !usedAt(xmlDocGetRootElement(document), name)) {
            unused.push_back(name.where + " " + name.name);
        }
    }
    xmlFreeDoc(document);
    EXPECT_EQ(unused, std::vector<std::string>{});
}

}  // namespace
}  // namespace ovela
