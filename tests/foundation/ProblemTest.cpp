// SPDX-License-Identifier: MIT
#include "tests/support/LogTest.h"

#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/Problem.h>
#include <vaultry/foundation/RunState.h>

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace Tarnex::Test {

namespace {

using Lines = std::vector<std::string>;

class ProblemTest : public LogTest {};

Lines TextsOf(const ProblemList& list) {
    Lines texts;
    for (const Problem& problem : list.Get()) {
        texts.push_back(TextOf(problem));
    }
    return texts;
}

TEST_F(ProblemTest, IsLoggedWithItsNamesInTheirOrder) {
    ReportProblem({ProblemKind::CellOutside, {"Hall", "2", "7"}});
    EXPECT_EQ(ErrorLines(),
              Lines({"Error : XML Parser : Too many rows/cols in Layout 'Hall' at Row 2 Col 7."}));
    EXPECT_EQ(LogLines(), ErrorLines());
}

TEST_F(ProblemTest, ALetterOfATextInANameIsPartOfTheName) {
    EXPECT_EQ(TextOf({ProblemKind::UnknownElement, {"%s%l"}}),
              "XML Parser : Unrecognized tag in XML:  '%s%l'");
}

TEST_F(ProblemTest, WhatTheParserSaysStandsBehindItsPlace) {
    EXPECT_EQ(TextOf({ProblemKind::Broken, {"words"}, {3, 14}}),
              "XML Parser : Fatal Error parsing XML line 3 col 14:  words");
}

TEST_F(ProblemTest, MissingNamesAreEmpty) {
    EXPECT_EQ(TextOf({ProblemKind::TileTwice, {"WallN"}}),
              "TileSet : Duplicate tile 'WallN' encountered in TileSet '.'");
}

TEST_F(ProblemTest, TheMessageIsCutLikeEveryOther) {
    const std::string most(Logger::kMaxMessage, 'x');
    const std::string before = "XML Parser : ";
    EXPECT_EQ(TextOf({ProblemKind::UnknownElement, {most}}).size(),
              before.size() + Logger::kMaxMessage);
}

TEST_F(ProblemTest, EveryKindHasAWordOfItsOwnASourceAndAText) {
    std::set<std::string> words;
    for (int i = 0; i <= static_cast<int>(ProblemKind::FieldTooLong); ++i) {
        const auto kind = static_cast<ProblemKind>(i);
        EXPECT_TRUE(words.insert(WordOf(kind)).second) << WordOf(kind);
        const std::string text = TextOf({kind, {"a", "b", "c", "d"}});
        const std::size_t end = text.find(" : ");
        EXPECT_TRUE(end > 0 && end < text.size() - 3) << text;
    }
}

TEST_F(ProblemTest, ANameEndsLikeAnyTextOfC) {
    ReportProblem({ProblemKind::UnknownThemeItem, {std::string("Ru\0g", 4), "Theme", "Hall"}});
    EXPECT_EQ(ErrorLines(),
              Lines({"Error : Generator : Unrecognized theme item type 'Ru' in Theme 'Hall'."}));
}

TEST_F(ProblemTest, LinesForPeopleAreThoseOfErrorsInUtf8) {
    const std::vector<Problem> problems = {{ProblemKind::Odd, {"words"}},
                                           {ProblemKind::UnknownElement, {"R\xFCgg"}}};
    EXPECT_EQ(Tarnex::ErrorLines(problems),
              Lines({"Error : XML Parser : Unrecognized tag in XML:  'R\xC3\xBCgg'"}));
}

TEST_F(ProblemTest, IsHeardOnceLogged) {
    ProblemList list;
    ReportProblem({ProblemKind::UnknownElement, {"Rugg"}, {4, 2}});
    ASSERT_EQ(list.Get().size(), 1U);
    EXPECT_EQ(list.Get().front().kind, ProblemKind::UnknownElement);
    EXPECT_EQ(list.Get().front().place.line, 4U);
    EXPECT_EQ(list.Get().front().place.column, 2U);
    EXPECT_EQ(ErrorLines().size(), 1U);
}

TEST_F(ProblemTest, WhatIsNoErrorIsHeardToo) {
    ProblemList list;
    ReportProblem({ProblemKind::Odd, {"words"}, {1, 2}});
    EXPECT_EQ(list.Get().size(), 1U);
    EXPECT_EQ(LogLines(), Lines({"Info : XML Parser : XML Warning at line 1 col 2:  words"}));
}

TEST_F(ProblemTest, AListAroundAnotherHearsWhatThatHears) {
    ProblemList outer;
    {
        ProblemList inner;
        ReportProblem({ProblemKind::UnknownElement, {"a"}});
        EXPECT_EQ(inner.Get().size(), 1U);
    }
    ReportProblem({ProblemKind::UnknownElement, {"b"}});
    EXPECT_EQ(TextsOf(outer),
              Lines({"XML Parser : Unrecognized tag in XML:  'a'",
                     "XML Parser : Unrecognized tag in XML:  'b'"}));
}

TEST_F(ProblemTest, AStateHasItsOwnListeners) {
    ProblemList list;
    RunState state;
    const UseRunState use(&state);
    Logger::InitWithoutFile();
    ReportProblem({ProblemKind::UnknownElement, {"a"}});
    EXPECT_TRUE(list.Get().empty());
}

TEST_F(ProblemTest, WhatTheLogKeepsNoMoreIsNotHeard) {
    Logger::Close();
    Logger::InitWithoutFile();
    for (std::size_t i = 0; i + 1 < Logger::kMaxErrors; ++i) {
        Logger::WriteError("Test", "%s", "");
    }
    ProblemList list;
    for (const char* name : {"last", "more", "silent"}) {
        ReportProblem({ProblemKind::UnknownElement, {name}});
    }
    EXPECT_EQ(TextsOf(list),
              Lines({"XML Parser : Unrecognized tag in XML:  'last'",
                     "Logger : There are more than 100000 errors; no more are kept."}));
    EXPECT_EQ(ErrorLines().back(), "Error : " + TextsOf(list).back());
}

} // namespace

} // namespace Tarnex::Test
