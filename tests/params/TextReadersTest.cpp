#include <gtest/gtest.h>

#include <climits>
#include <vector>

#include "TextReaders.h"

namespace {

using List = std::vector<int>;

TEST(TextReadersTest, String2IntReadsLikeAStreamExtraction) {
    EXPECT_EQ(string2int(" -42"), -42);
    EXPECT_EQ(string2int("\t\n+8"), 8);
    EXPECT_EQ(string2int("4.5"), 4);
    EXPECT_EQ(string2int("12abc"), 12);
    EXPECT_EQ(string2int("3 4"), 3);
    EXPECT_EQ(string2int("0x1F"), 0);
    EXPECT_EQ(string2int("017"), 17);
    EXPECT_EQ(string2int(""), 0);
    EXPECT_EQ(string2int("abc"), 0);
    EXPECT_EQ(string2int("-"), 0);
    EXPECT_EQ(string2int("+-5"), 0);
    EXPECT_EQ(string2int("- 5"), 0);
}

TEST(TextReadersTest, String2IntSaturatesAtTheIntRange) {
    EXPECT_EQ(string2int("2147483647"), INT_MAX);
    EXPECT_EQ(string2int("2147483648"), INT_MAX);
    EXPECT_EQ(string2int("99999999999"), INT_MAX);
    EXPECT_EQ(string2int("-2147483648"), INT_MIN);
    EXPECT_EQ(string2int("-2147483649"), INT_MIN);
    EXPECT_EQ(string2int("-123456789012345678901234567890"), INT_MIN);
}

TEST(TextReadersTest, VectorKeepsEveryPieceIncludingEmptyOnes) {
    EXPECT_EQ(string_2_int_vector("1,2,3"), (List{1, 2, 3}));
    EXPECT_EQ(string_2_int_vector("1, -2 ,3"), (List{1, -2, 3}));
    EXPECT_EQ(string_2_int_vector("7,"), (List{7, 0}));
    EXPECT_EQ(string_2_int_vector(""), (List{0}));
    EXPECT_EQ(string_2_int_vector(","), (List{0, 0}));
    EXPECT_EQ(string_2_int_vector("1,,2"), (List{1, 0, 2}));
    EXPECT_EQ(string_2_int_vector("a,9"), (List{0, 9}));
    EXPECT_EQ(string_2_int_vector("1 2 3"), (List{1}));
    EXPECT_EQ(string_2_int_vector("99999999999"), (List{INT_MAX}));
}

}  // namespace
