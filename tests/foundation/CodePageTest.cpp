// SPDX-License-Identifier: MIT
#include <vaultry/foundation/CodePage.h>

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

namespace Tarnex::Test {

namespace {

using namespace std::string_literals;

constexpr std::array kUnassigned = {0x81, 0x8D, 0x8F, 0x90, 0x9D};

struct Pair {
    unsigned char byte;
    char32_t character;
    const char* utf8;
};

constexpr std::array<Pair, 27> kSpecials = {{
    {0x80, 0x20AC, "\xE2\x82\xAC"}, {0x82, 0x201A, "\xE2\x80\x9A"}, {0x83, 0x0192, "\xC6\x92"},
    {0x84, 0x201E, "\xE2\x80\x9E"}, {0x85, 0x2026, "\xE2\x80\xA6"}, {0x86, 0x2020, "\xE2\x80\xA0"},
    {0x87, 0x2021, "\xE2\x80\xA1"}, {0x88, 0x02C6, "\xCB\x86"},     {0x89, 0x2030, "\xE2\x80\xB0"},
    {0x8A, 0x0160, "\xC5\xA0"},     {0x8B, 0x2039, "\xE2\x80\xB9"}, {0x8C, 0x0152, "\xC5\x92"},
    {0x8E, 0x017D, "\xC5\xBD"},     {0x91, 0x2018, "\xE2\x80\x98"}, {0x92, 0x2019, "\xE2\x80\x99"},
    {0x93, 0x201C, "\xE2\x80\x9C"}, {0x94, 0x201D, "\xE2\x80\x9D"}, {0x95, 0x2022, "\xE2\x80\xA2"},
    {0x96, 0x2013, "\xE2\x80\x93"}, {0x97, 0x2014, "\xE2\x80\x94"}, {0x98, 0x02DC, "\xCB\x9C"},
    {0x99, 0x2122, "\xE2\x84\xA2"}, {0x9A, 0x0161, "\xC5\xA1"},     {0x9B, 0x203A, "\xE2\x80\xBA"},
    {0x9C, 0x0153, "\xC5\x93"},     {0x9E, 0x017E, "\xC5\xBE"},     {0x9F, 0x0178, "\xC5\xB8"},
}};

std::string Byte(int value) {
    return std::string(1, static_cast<char>(static_cast<unsigned char>(value)));
}

bool IsUnassigned(int value) {
    for (const int byte : kUnassigned) {
        if (byte == value) {
            return true;
        }
    }
    return false;
}

struct Converted {
    std::string text;
    bool lost;

    bool operator==(const Converted&) const = default;
};

void PrintTo(const Converted& converted, std::ostream* stream) {
    *stream << ::testing::PrintToString(converted.text) << (converted.lost ? " with" : " without")
            << " losses";
}

Converted Convert(std::string_view utf8) {
    Converted converted{"", false};
    converted.text = FromUtf8(utf8, &converted.lost);
    return converted;
}

TEST(CodePageTest, EveryAssignedByteSurvivesTheRoundTrip) {
    for (int value = 0; value < 256; ++value) {
        if (!IsUnassigned(value)) {
            EXPECT_EQ(Convert(ToUtf8(Byte(value))), (Converted{Byte(value), false})) << value;
        }
    }
}

TEST(CodePageTest, UnassignedBytesBecomeTheReplacementCharacter) {
    for (const int value : kUnassigned) {
        EXPECT_EQ(ToUtf8(Byte(value)), "\xEF\xBF\xBD") << value;
    }
    EXPECT_EQ(Convert("\xEF\xBF\xBD"), (Converted{"?", true}));
}

TEST(CodePageTest, BytesFrom80To9FStandForTheirSpecialCharacters) {
    for (const Pair& pair : kSpecials) {
        EXPECT_EQ(CodePageByte(pair.character), Byte(pair.byte)[0]) << int{pair.byte};
        EXPECT_EQ(ToUtf8(Byte(pair.byte)), pair.utf8);
        EXPECT_EQ(Convert(pair.utf8), (Converted{Byte(pair.byte), false}));
    }
}

TEST(CodePageTest, TheEuroSignIsByte80) {
    EXPECT_EQ(FromUtf8("5 \xE2\x82\xAC"), "5 \x80");
    EXPECT_EQ(ToUtf8("5 \x80"), "5 \xE2\x82\xAC");
}

TEST(CodePageTest, OtherBytesAreTheCharactersOfTheSameNumber) {
    EXPECT_EQ(FromUtf8("caf\xC3\xA9"), "caf\xE9");
    EXPECT_EQ(ToUtf8("caf\xE9"), "caf\xC3\xA9");
    EXPECT_EQ(FromUtf8("\xC2\xA0\xC3\xBF"), "\xA0\xFF");
    EXPECT_EQ(CodePageByte(0xA0), '\xA0');
    EXPECT_EQ(CodePageByte(0xFF), '\xFF');
    EXPECT_EQ(CodePageByte(0x7F), '\x7F');
}

TEST(CodePageTest, ControlCharactersFrom80To9FAreMissing) {
    for (char32_t character = 0x80; character <= 0x9F; ++character) {
        EXPECT_EQ(CodePageByte(character), '?') << static_cast<unsigned>(character);
    }
    EXPECT_EQ(Convert("\xC2\x80"), (Converted{"?", true}));
    EXPECT_EQ(Convert("\xC2\x81"), (Converted{"?", true}));
    EXPECT_EQ(Convert("\xC2\x9F"), (Converted{"?", true}));
}

TEST(CodePageTest, AMissingCharacterBecomesOneQuestionMark) {
    EXPECT_EQ(Convert("\xC5\x82"), (Converted{"?", true}));                      // U+0142
    EXPECT_EQ(Convert("a\xE4\xB8\xAD\xE6\x96\x87z"), (Converted{"a??z", true})); // two characters
    EXPECT_EQ(CodePageByte(0x0100), '?');
    EXPECT_EQ(CodePageByte(0xFFFF), '?');
}

TEST(CodePageTest, ACharacterBeyondFFFFBecomesOneQuestionMark) {
    EXPECT_EQ(Convert("a\xF0\x9F\x98\x80z"), (Converted{"a?z", true})); // U+1F600
    EXPECT_EQ(Convert("\xF0\x90\x80\x80"), (Converted{"?", true}));     // U+10000
    EXPECT_EQ(Convert("\xF4\x8F\xBF\xBF"), (Converted{"?", true}));     // U+10FFFF
    EXPECT_EQ(CodePageByte(0x10000), '?');
    EXPECT_EQ(CodePageByte(0x100E9), '?');
    EXPECT_EQ(CodePageByte(0xFFFFFFFF), '?');
}

TEST(CodePageTest, AQuestionMarkInTheTextIsNoLoss) {
    EXPECT_EQ(Convert("who?"), (Converted{"who?", false}));
    EXPECT_EQ(Convert(""), (Converted{"", false}));
}

TEST(CodePageTest, TheReportOfLossesMayBeLeftOut) {
    EXPECT_EQ(FromUtf8("\xC5\x82"), "?");
    EXPECT_EQ(FromUtf8("plain", nullptr), "plain");
}

TEST(CodePageTest, ZeroBytesAreKept) {
    EXPECT_EQ(FromUtf8("a\0b"s), "a\0b"s);
    EXPECT_EQ(ToUtf8("a\0b"s), "a\0b"s);
}

TEST(CodePageTest, EachMalformedByteBecomesOneQuestionMark) {
    EXPECT_EQ(Convert("a\x80z"), (Converted{"a?z", true}));                 // stray continuation
    EXPECT_EQ(Convert("\xFF\xFE"), (Converted{"??", true}));                // never in UTF-8
    EXPECT_EQ(Convert("\xF8\x88\x80\x80\x80"), (Converted{"?????", true})); // five bytes long
}

TEST(CodePageTest, ACutSequenceDoesNotSwallowWhatFollows) {
    EXPECT_EQ(Convert("\xC3"), (Converted{"?", true}));
    EXPECT_EQ(Convert("\xE2\x82"), (Converted{"??", true}));
    EXPECT_EQ(Convert("\xE2\x82 x"), (Converted{"?? x", true}));
    EXPECT_EQ(Convert("\xC3y"), (Converted{"?y", true}));
    EXPECT_EQ(Convert("\xF0\x9F\x98"), (Converted{"???", true}));
    EXPECT_EQ(Convert("\xE2\xC3\xA9"), (Converted{"?\xE9", true}));
}

TEST(CodePageTest, OverlongFormsAreMalformed) {
    EXPECT_EQ(Convert("\xC1\x81"), (Converted{"??", true}));           // "A" in two bytes
    EXPECT_EQ(Convert("\xC0\x80"), (Converted{"??", true}));           // NUL in two bytes
    EXPECT_EQ(Convert("\xE0\x83\xA9"), (Converted{"???", true}));      // U+00E9 in three bytes
    EXPECT_EQ(Convert("\xF0\x82\x82\xAC"), (Converted{"????", true})); // U+20AC in four bytes
}

TEST(CodePageTest, SurrogatesAndNumbersBeyondUnicodeAreMalformed) {
    EXPECT_EQ(Convert("\xED\xA0\x80"), (Converted{"???", true}));
    EXPECT_EQ(Convert("\xED\xBF\xBF"), (Converted{"???", true}));
    EXPECT_EQ(Convert("\xF4\x90\x80\x80"), (Converted{"????", true}));
}

TEST(CodePageTest, APathInUtf8NamesTheFile) {
    EXPECT_EQ(PathFromUtf8("gr\xC3\xBC\xC3\x9F"
                           "e.xml"),
              std::filesystem::path(u8"gr\u00FC\u00DFe.xml"));
    EXPECT_EQ(PathFromUtf8("plain.xml"), std::filesystem::path("plain.xml"));
}

} // namespace

} // namespace Tarnex::Test
