// SPDX-License-Identifier: MIT
#include "tools/search/Condition.h"

#include "tools/text/UsageError.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace Tarnex::Test {

namespace {

using Search::Condition;

// All facts 0 but the given ones.
Report::FactValues Values(std::initializer_list<std::pair<const char*, std::int64_t>> given) {
    Report::FactValues values(Report::Facts().size());
    for (const auto& [name, value] : given) {
        values.at(Report::FindFact(name).value()) = value;
    }
    return values;
}

struct Judged {
    const char* condition;
    bool holds;
};

class ConditionTest : public ::testing::TestWithParam<Judged> {};

TEST_P(ConditionTest, HoldsForTwelveRoomsThreeLoopsAndNoOpenings) {
    const Report::FactValues values =
        Values({{"rooms", 12}, {"loops", 3}, {"walkable", 1}, {"openings", 0}, {"treasure", -5}});
    EXPECT_EQ(Condition(GetParam().condition).Holds(values), GetParam().holds)
        << GetParam().condition;
}

INSTANTIATE_TEST_SUITE_P(Table,
                         ConditionTest,
                         ::testing::Values(Judged{"rooms=12", true},
                                           Judged{"rooms==12", true},
                                           Judged{"rooms!=12", false},
                                           Judged{"rooms<12", false},
                                           Judged{"rooms<=12", true},
                                           Judged{"rooms>12", false},
                                           Judged{"rooms>=12", true},
                                           Judged{"12>=rooms", true},
                                           Judged{"rooms > loops", true},
                                           Judged{"loops > rooms", false},
                                           Judged{"1<2", true},
                                           Judged{"walkable", true},
                                           Judged{"openings", false},
                                           Judged{"not openings", true},
                                           Judged{"not not openings", false},
                                           Judged{"rooms>=12 and walkable and loops>=2", true},
                                           Judged{"rooms>=12 and walkable and loops>=4", false},
                                           // "and" binds more closely than "or", "not" than both.
                                           Judged{"walkable or walkable and openings", true},
                                           Judged{"(walkable or walkable) and openings", false},
                                           Judged{"openings and openings or walkable", true},
                                           Judged{"not walkable or walkable", true},
                                           Judged{"not (walkable or walkable)", false},
                                           Judged{"not openings and walkable", true},
                                           Judged{"not openings and openings", false},
                                           Judged{"not walkable and openings", false},
                                           Judged{"not walkable and walkable", false},
                                           Judged{"not rooms=12 and openings", false},
                                           Judged{"ROOMS>=12 AND Not Openings", true},
                                           Judged{"dead-ends=0 and dead_ends=0", true},
                                           Judged{"creatures-to-4=0", true},
                                           Judged{"treasure=-5", true},
                                           Judged{"treasure>-9223372036854775808", true},
                                           Judged{"rooms<9223372036854775807", true},
                                           Judged{"\t rooms\n>= 12\r", true},
                                           Judged{"((((((rooms))))))", true}));

struct Mistaken {
    const char* condition;
    const char* message; // behind "--where, "
};

class ConditionMistakeTest : public ::testing::TestWithParam<Mistaken> {};

TEST_P(ConditionMistakeTest, NamesThePlaceAndTheCure) {
    try {
        const Condition condition(GetParam().condition);
        FAIL() << GetParam().condition;
    } catch (const UsageError& e) {
        EXPECT_EQ(e.what(), std::string("--where, ") + GetParam().message);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Table,
    ConditionMistakeTest,
    ::testing::Values(
        Mistaken{"", "position 1: a fact or a number is expected, not the end"},
        Mistaken{"romms>=12", "position 1: \"romms\" is no fact; did you mean \"rooms\"?"},
        Mistaken{"quetzalcoatlquetzalcoatlquetzalcoatlquet",
                 "position 1: \"quetzalcoatlquetzalcoatlquetzalcoatlquet\" is no fact; \"vaultry "
                 "search --help\" lists them"},
        Mistaken{"rooms>1234567890123456789012345678901234567890",
                 "position 7: \"1234567890123456789012345678901234567890\" is too large"},
        Mistaken{"rooms>12345678901234567890123456789012345678901",
                 "position 7: \"1234567890123456789012345678901234567890...\" is too large"},
        Mistaken{"rooms>=12 and lops>2",
                 "position 15: \"lops\" is no fact; did you mean \"loops\"?"},
        Mistaken{"quetzalcoatl",
                 "position 1: \"quetzalcoatl\" is no fact; \"vaultry search --help\" lists them"},
        Mistaken{"rooms>=", "position 8: a fact or a number is expected, not the end"},
        Mistaken{"rooms>=>2",
                 "position 6: \">=>\" is none of < <= > >= = !=; for \"not\" write not"},
        Mistaken{"!walkable", "position 1: a fact or a number is expected, not \"!\""},
        Mistaken{"rooms 12", "position 7: \"and\", \"or\" or the end is expected, not \"12\""},
        Mistaken{"rooms>=12 && walkable",
                 "position 11: \"and\", \"or\" or the end is expected, not \"&\""},
        Mistaken{"(rooms>=12", "position 1: this \"(\" is never closed"},
        Mistaken{"(rooms loops)",
                 "position 8: \"and\", \"or\" or \")\" is expected, not \"loops\""},
        Mistaken{"rooms)", "position 6: \"and\", \"or\" or the end is expected, not \")\""},
        Mistaken{"()", "position 2: a fact or a number is expected, not \")\""},
        Mistaken{"rooms>=2.5", "position 8: \"2.5\" is no whole number"},
        Mistaken{"rooms>=1e9", "position 8: \"1e9\" is no whole number"},
        Mistaken{"rooms>99999999999999999999", "position 7: \"99999999999999999999\" is too large"},
        Mistaken{"12", "position 1: a number must be compared with something"},
        Mistaken{"3<=rooms<=9",
                 "position 9: a comparison has two sides; join comparisons with \"and\""},
        Mistaken{"rooms and and", "position 11: a fact or a number is expected, not \"and\""},
        Mistaken{"not", "position 4: a fact or a number is expected, not the end"},
        // Characters are counted, not bytes, and told whole.
        Mistaken{"rooms>5 \xC3\xA4 \xC3\xB6",
                 "position 9: \"and\", \"or\" or the end is expected, not \"\xC3\xA4\""}));

TEST(ConditionLimitsTest, NestsAHundredDeepAndNoDeeper) {
    const auto nested = [](std::size_t depth) {
        return std::string(depth, '(') + "walkable" + std::string(depth, ')');
    };
    EXPECT_TRUE(Condition(nested(100)).Holds(Values({{"walkable", 1}})));
    EXPECT_THROW(Condition(nested(101)), UsageError);
    EXPECT_THROW(Condition(std::string(1'000'000, '(')), UsageError);
    std::string negations;
    for (int i = 0; i < 100'000; ++i) {
        negations += "not ";
    }
    EXPECT_THROW(Condition(negations + "walkable"), UsageError);
}

// What is closed is no longer nested.
TEST(ConditionLimitsTest, NestingOnceEndedDoesNotCount) {
    std::string groups = "(walkable)";
    std::string negations = "not openings";
    for (int i = 0; i < 200; ++i) {
        groups += " and (walkable)";
        negations += " and not openings";
    }
    EXPECT_TRUE(Condition(groups).Holds(Values({{"walkable", 1}})));
    EXPECT_TRUE(Condition(negations).Holds(Values({})));
}

TEST(ConditionLimitsTest, LongChainsAreNotNested) {
    std::string chain = "walkable";
    for (int i = 0; i < 100'000; ++i) {
        chain += i % 2 == 0 ? " and walkable" : " or rooms>3";
    }
    EXPECT_TRUE(Condition(chain).Holds(Values({{"walkable", 1}})));
}

TEST(ConditionLimitsTest, AnEmptyConditionHoldsAlways) {
    EXPECT_TRUE(Condition().Holds(Values({})));
}

TEST(ConditionLimitsTest, TellsWhichFactsAreAskedFor) {
    const Condition condition("loops>2 and rooms>3 and loops<9");
    EXPECT_EQ(condition.FactsUsed(),
              (std::vector<std::size_t>{*Report::FindFact("loops"), *Report::FindFact("rooms")}));
}

// Any text is either a condition or refused with a place in it.
TEST(ConditionLimitsTest, AnyTextIsJudgedOrRefused) {
    const std::vector<std::string> pieces = {"rooms", "loops", "and", "or",  "not",  "(",  ")",
                                             "<",     ">=",    "=",   "!=",  "12",   "-3", " ",
                                             "\xFF",  "\xC3",  "\t",  "xyz", "9e99", "-",  "\x01"};
    std::mt19937 chance(7);
    int judged = 0;
    for (int i = 0; i < 20'000; ++i) {
        std::string text;
        for (auto length = chance() % 12; length > 0; --length) {
            text += pieces[chance() % pieces.size()] + (chance() % 2 == 0 ? " " : "");
        }
        try {
            Condition(text).Holds(Values({{"rooms", 5}}));
            ++judged;
        } catch (const UsageError& e) {
            EXPECT_EQ(std::string(e.what()).find("--where, position "), 0U) << text;
        }
    }
    EXPECT_GT(judged, 100);
}

TEST(ConditionPartsTest, AndDividesAConditionWhereOrDoesNot) {
    using Parts = std::vector<std::string>;
    const auto partsOf = [](const char* text) { return Condition(text).Parts(); };
    EXPECT_EQ(partsOf("rooms>=12 AND walkable\n and not loops < 2\t"),
              (Parts{"rooms>=12", "walkable", "not loops < 2"}));
    EXPECT_EQ(partsOf("rooms>=12 and (walkable and loops or doors)"),
              (Parts{"rooms>=12", "(walkable and loops or doors)"}));
    EXPECT_EQ(partsOf(" rooms and loops or doors "), Parts{"rooms and loops or doors"});
    EXPECT_EQ(partsOf("(rooms)and(loops)"), (Parts{"(rooms)", "(loops)"}));
    EXPECT_EQ(partsOf("not (rooms and not loops)and dead-ends"),
              (Parts{"not (rooms and not loops)", "dead-ends"}));
    EXPECT_TRUE(Condition().Parts().empty());
}

} // namespace

} // namespace Tarnex::Test
