// SPDX-License-Identifier: MIT
#include <vaultry/foundation/Text.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

namespace Tarnex::Test {

namespace {

using namespace std::string_view_literals;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr std::int32_t kMax = 2147483647;
constexpr std::int32_t kMin = -2147483647 - 1;

// Distinguishes 0.0 from -0.0, unlike a comparison.
void ExpectZero(double value, bool negative) {
    EXPECT_EQ(value, 0.0);
    EXPECT_EQ(std::signbit(value), negative);
}

TEST(ToUpperTest, RaisesTheLettersAToZ) {
    EXPECT_EQ(ToUpper("abcdefghijklmnopqrstuvwxyz"), "ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    EXPECT_EQ(ToUpper("Ctr_01"), "CTR_01");
    EXPECT_EQ(ToUpper(""), "");
}

TEST(ToUpperTest, LeavesEveryOtherByte) {
    std::string others;
    for (int c = 0; c < 256; ++c) {
        if (c < 'a' || c > 'z') {
            others.push_back(static_cast<char>(static_cast<unsigned char>(c)));
        }
    }
    EXPECT_EQ(ToUpper(others), others);
}

TEST(EqualsNoCaseTest, IgnoresTheCaseOfLetters) {
    EXPECT_TRUE(EqualsNoCase("HallNS", "hallns"));
    EXPECT_TRUE(EqualsNoCase("FName", "FNAME"));
    EXPECT_TRUE(EqualsNoCase("", ""));
}

TEST(EqualsNoCaseTest, ComparesWholeNames) {
    EXPECT_FALSE(EqualsNoCase("Hall", "HallNS"));
    EXPECT_FALSE(EqualsNoCase("HallNS", "Hall"));
    EXPECT_FALSE(EqualsNoCase("", "a"));
    EXPECT_FALSE(EqualsNoCase("HallNS", "HallEW"));
}

TEST(EqualsNoCaseTest, DistinguishesBytesThatOnlyDifferByTheCaseBit) {
    EXPECT_FALSE(EqualsNoCase("@", "`"));
    EXPECT_FALSE(EqualsNoCase("[", "{"));
    EXPECT_FALSE(EqualsNoCase("\xC9", "\xE9"));
    EXPECT_TRUE(EqualsNoCase("caf\xE9", "CAF\xE9"));
}

TEST(ParseIntTest, ReadsWholeNumbers) {
    EXPECT_EQ(ParseInt("0"), 0);
    EXPECT_EQ(ParseInt("42"), 42);
    EXPECT_EQ(ParseInt("007"), 7);
    EXPECT_EQ(ParseInt("+7"), 7);
    EXPECT_EQ(ParseInt("-7"), -7);
    EXPECT_EQ(ParseInt("-0"), 0);
}

TEST(ParseIntTest, SkipsLeadingWhiteSpace) {
    EXPECT_EQ(ParseInt(" \t\n\v\f\r12"), 12);
    EXPECT_EQ(ParseInt("  -3"), -3);
    EXPECT_EQ(ParseInt("\xA0"
                       "12"),
              0);
}

TEST(ParseIntTest, StopsAtTheFirstByteThatIsNoDigit) {
    EXPECT_EQ(ParseInt("12abc"), 12);
    EXPECT_EQ(ParseInt("12 34"), 12);
    EXPECT_EQ(ParseInt("3.9"), 3);
    EXPECT_EQ(ParseInt("-3.9"), -3);
    EXPECT_EQ(ParseInt("1e3"), 1);
    EXPECT_EQ(ParseInt("1,000"), 1);
    EXPECT_EQ(ParseInt("12\0"
                       "34"sv),
              12);
}

TEST(ParseIntTest, ReadsHexadecimalAsZero) {
    EXPECT_EQ(ParseInt("0x10"), 0);
    EXPECT_EQ(ParseInt("#10"), 0);
}

TEST(ParseIntTest, TextThatIsNoNumberReadsZero) {
    for (const char* text : {"", " ", "+", "-", "abc", "+-7", "-+7", "--7", "- 7", ".5", "inf"}) {
        EXPECT_EQ(ParseInt(text), 0) << text;
    }
}

TEST(ParseIntTest, SaturatesAtTheEndsOfTheRange) {
    EXPECT_EQ(ParseInt("2147483647"), kMax);
    EXPECT_EQ(ParseInt("2147483648"), kMax);
    EXPECT_EQ(ParseInt("4294967296"), kMax);
    EXPECT_EQ(ParseInt("18446744073709551617"), kMax);
    EXPECT_EQ(ParseInt("-2147483647"), -kMax);
    EXPECT_EQ(ParseInt("-2147483648"), kMin);
    EXPECT_EQ(ParseInt("-2147483649"), kMin);
    EXPECT_EQ(ParseInt("-18446744073709551617"), kMin);
    EXPECT_EQ(ParseInt(std::string(5000, '9')), kMax);
    EXPECT_EQ(ParseInt("-" + std::string(5000, '9')), kMin);
    EXPECT_EQ(ParseInt(std::string(5000, '0') + "5"), 5);
}

TEST(ParseRealTest, ReadsPlainNumbers) {
    EXPECT_EQ(ParseReal("0"), 0.0);
    EXPECT_EQ(ParseReal("42"), 42.0);
    EXPECT_EQ(ParseReal("0.25"), 0.25);
    EXPECT_EQ(ParseReal("-128.5"), -128.5);
    EXPECT_EQ(ParseReal("+7"), 7.0);
    EXPECT_EQ(ParseReal("0.1"), 0.1);
    EXPECT_EQ(ParseReal("0009.5"), 9.5);
}

TEST(ParseRealTest, DigitsMayBeMissingOnOneSideOfThePoint) {
    EXPECT_EQ(ParseReal(".5"), 0.5);
    EXPECT_EQ(ParseReal("5."), 5.0);
    EXPECT_EQ(ParseReal("-.5"), -0.5);
    EXPECT_EQ(ParseReal("+.5"), 0.5);
    EXPECT_EQ(ParseReal(".5e1"), 5.0);
    EXPECT_EQ(ParseReal("5.e1"), 50.0);
}

TEST(ParseRealTest, ReadsExponents) {
    EXPECT_EQ(ParseReal("1e3"), 1000.0);
    EXPECT_EQ(ParseReal("1E3"), 1000.0);
    EXPECT_EQ(ParseReal("1e+3"), 1000.0);
    EXPECT_EQ(ParseReal("25e-2"), 0.25);
    EXPECT_EQ(ParseReal("-2.5E+1x"), -25.0);
}

TEST(ParseRealTest, AnExponentWithoutDigitsIsTrailingText) {
    EXPECT_EQ(ParseReal("1e"), 1.0);
    EXPECT_EQ(ParseReal("1e+"), 1.0);
    EXPECT_EQ(ParseReal("1e-"), 1.0);
    EXPECT_EQ(ParseReal("1ex"), 1.0);
    EXPECT_EQ(ParseReal("1e 5"), 1.0);
}

TEST(ParseRealTest, SkipsLeadingWhiteSpace) {
    EXPECT_EQ(ParseReal(" \t\n\v\f\r1.5"), 1.5);
    EXPECT_EQ(ParseReal("  -1.5 "), -1.5);
}

TEST(ParseRealTest, StopsWhereTheNumberEnds) {
    EXPECT_EQ(ParseReal("1.5abc"), 1.5);
    EXPECT_EQ(ParseReal("1.5.5"), 1.5);
    EXPECT_EQ(ParseReal("1,5"), 1.0);
    EXPECT_EQ(ParseReal("1.5f"), 1.5);
    EXPECT_EQ(ParseReal("2-1"), 2.0);
    EXPECT_EQ(ParseReal("1.\0"
                        "5"sv),
              1.0);
}

TEST(ParseRealTest, ReadsHexadecimalAsZero) {
    ExpectZero(ParseReal("0x10"), false);
    ExpectZero(ParseReal("0x1p4"), false);
    ExpectZero(ParseReal("0X.8"), false);
}

TEST(ParseRealTest, ReadsInfinityAndNotANumberAsZero) {
    for (const char* text : {"inf", "INF", "+inf", "-inf", "infinity", "nan", "-nan", "NAN(1)"}) {
        ExpectZero(ParseReal(text), false);
    }
}

TEST(ParseRealTest, TextThatIsNoNumberReadsZero) {
    for (const char* text :
         {"", " ", "+", "-", ".", "-.", "e5", ".e5", "abc", "+-7", "-+7", "--7", "- 7", ". 5"}) {
        ExpectZero(ParseReal(text), false);
    }
}

TEST(ParseRealTest, KeepsTheSignOfZero) {
    ExpectZero(ParseReal("-0"), true);
    ExpectZero(ParseReal("-0.0"), true);
    ExpectZero(ParseReal("+0"), false);
}

TEST(ParseRealTest, TooLargeBecomesInfinity) {
    EXPECT_EQ(ParseReal("1e400"), kInfinity);
    EXPECT_EQ(ParseReal("-1e400"), -kInfinity);
    EXPECT_EQ(ParseReal("1e309"), kInfinity);
    EXPECT_EQ(ParseReal("0.001e400"), kInfinity);
    EXPECT_EQ(ParseReal("1e99999999999999999999"), kInfinity);
    EXPECT_EQ(ParseReal(std::string(400, '9')), kInfinity);
    EXPECT_EQ(ParseReal("1" + std::string(400, '0') + ".5"), kInfinity);
    EXPECT_EQ(ParseReal("1e400 and more"), kInfinity);
}

TEST(ParseRealTest, TooCloseToZeroBecomesZero) {
    ExpectZero(ParseReal("1e-400"), false);
    ExpectZero(ParseReal("-1e-400"), true);
    ExpectZero(ParseReal("1000e-400"), false);
    ExpectZero(ParseReal("1e-99999999999999999999"), false);
    ExpectZero(ParseReal("0." + std::string(400, '0') + "1"), false);
}

TEST(ParseRealTest, ZeroStaysZeroUnderEveryExponent) {
    ExpectZero(ParseReal("0e400"), false);
    ExpectZero(ParseReal("0e-400"), false);
    ExpectZero(ParseReal("-0e400"), true);
    ExpectZero(ParseReal("0.000e99999999999999999999"), false);
    ExpectZero(ParseReal(std::string(400, '0') + ".0e400"), false);
}

TEST(ParseRealTest, LongDigitsAndExponentCanBalance) {
    EXPECT_EQ(ParseReal("1" + std::string(400, '0') + "e-400"), 1.0);
    EXPECT_EQ(ParseReal("0." + std::string(399, '0') + "1e400"), 1.0);
}

TEST(ParseRealTest, RoundsToTheNearestDouble) {
    EXPECT_EQ(ParseReal("0.017453292519943295"), 0x1.1df46a2529d39p-6);
    EXPECT_EQ(ParseReal("9007199254740993"), 9007199254740992.0);
    EXPECT_EQ(ParseReal("1.7976931348623157e308"), std::numeric_limits<double>::max());
    EXPECT_EQ(ParseReal("4.9406564584124654e-324"), std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(ParseReal("1e-310"), 1e-310);
}

TEST(SplitListTest, SeparatorsInARowMakeNoEmptyNames) {
    EXPECT_EQ(SplitList(",a;;b\n\tc,"), (std::vector<std::string_view>{"a", "b", "c"}));
    EXPECT_TRUE(SplitList("\r\f").empty());
}

TEST(SplitListTest, ABlankBelongsToTheName) {
    EXPECT_EQ(SplitList("a, b"), (std::vector<std::string_view>{"a", " b"}));
}

TEST(JoinWordsTest, SeparatorsStandBetweenWordsOnly) {
    EXPECT_EQ(JoinWords({"a", "b", "c"}), "a, b, c");
    EXPECT_EQ(JoinWords({"a", "b"}, "|"), "a|b");
    EXPECT_EQ(JoinWords({"a"}), "a");
    EXPECT_EQ(JoinWords({}), "");
}

} // namespace

} // namespace Tarnex::Test
