#include <gtest/gtest.h>

#include <vector>

#include "TuningFileVocabulary.h"

namespace ovela {
namespace {

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

}  // namespace
}  // namespace ovela
