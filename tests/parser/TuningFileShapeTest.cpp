#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "TuningFileShape.h"

namespace ovela {
namespace {

// What sets each parameter: an element's value, or an attribute of an
// element that has no value of its own.
void count(const ShapeElement& element, std::vector<int>& counts) {
    if (element.parameter) {
        ++counts[*element.parameter];
    } else {
        for (const ShapeAttribute& attribute : element.attributes) {
            counts[*attribute.parameter] += attribute.parameter.has_value();
        }
    }
    for (const ShapeElement& child : element.children) {
        count(child, counts);
    }
}

TEST(TuningFileShapeTest, EveryParameterButIeqIdIsSetByExactlyOnePlace) {
    std::vector<int> counts(kNumParameters, 0);
    count(tuningFileShape(), counts);
    std::vector<int> expected(kNumParameters, 1);
    expected[IEQ_ID] = 0;  // an IEQ preset's type, set by the preset itself
    EXPECT_EQ(counts, expected);
}

// The vocabulary names every element under its parent's path, and the path
// leads back to the element in the shape.
TEST(TuningFileShapeTest, TheVocabularyListsParentsBeforeTheirChildren) {
    std::set<std::string> seen = {"*"};
    for (const VocabularyName& name : tuningFileVocabulary()) {
        const std::string element = name.where.substr(0, name.where.find('@'));
        EXPECT_EQ(seen.count(element), 1u) << name.where;
        if (name.role == NameRole::ELEMENT) {
            const std::string path = name.where + "/" + name.name;
            seen.insert(path);
            const ShapeElement* shaped = shapeAt(path.substr(2));
            ASSERT_NE(shaped, nullptr) << path;
            EXPECT_EQ(shaped->name, name.name);
        }
    }
    EXPECT_EQ(shapeAt("profile/settings/endpoint_type/volume-leveler-amount")->parameter,
              VOLUME_LEVELER_AMOUNT);
    EXPECT_EQ(shapeAt("profile/nothing"), nullptr);
    EXPECT_EQ(xmlNameOf(IEQ_TARGET), "band_ieq target");
    EXPECT_EQ(xmlNameOf(VOLUME_LEVELER_AMOUNT), "volume-leveler-amount");
}

}  // namespace
}  // namespace ovela
