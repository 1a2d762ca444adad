// SPDX-License-Identifier: MIT
#include <vaultry/output/Element.h>

#include <gtest/gtest.h>

#include <limits>
#include <sstream>
#include <string>
#include <tests/output/PluginBytes.h>
#include <tests/support/LogTest.h>
#include <type_traits>
#include <vector>

namespace Tarnex::Test {

namespace {

using Lines = std::vector<std::string>;

// Opens the writers of the base to the tests.
class Writers : public Element {
public:
    void Write(std::ostream& /*stream*/) override {}

    std::string Int(std::int32_t value) const {
        std::ostringstream stream(std::ios::binary);
        WriteInt(stream, value);
        return stream.str();
    }

    std::string Text(const std::string& text, std::uint32_t length) const {
        std::ostringstream stream(std::ios::binary);
        WriteString(stream, text, length);
        return stream.str();
    }

    std::string RecordHeader(std::string_view tag, std::uint32_t size) const {
        std::ostringstream stream(std::ios::binary);
        WriteRecordHeader(stream, tag, size);
        return stream.str();
    }

    std::string WordSub(std::string_view tag, std::uint32_t word) const {
        std::ostringstream stream(std::ios::binary);
        WriteWord(stream, tag, word);
        return stream.str();
    }

    std::string TextSub(std::string_view tag, const std::string& text) const {
        std::ostringstream stream(std::ios::binary);
        WriteText(stream, tag, text);
        return stream.str();
    }

    std::string Real(float value) const { return Int(static_cast<std::int32_t>(FloatBits(value))); }
};

class ElementTest : public LogTest {
protected:
    Writers writers;
};

TEST_F(ElementTest, IsAnAbstractCountedObject) {
    static_assert(std::is_abstract_v<Element>);
    static_assert(std::is_base_of_v<DiRcObject, Element>);
    static_assert(std::has_virtual_destructor_v<Element>);
    SUCCEED();
}

TEST_F(ElementTest, IntegersAreWrittenLowestByteFirst) {
    EXPECT_EQ(writers.Int(-1), Hex("FF FF FF FF"));
    EXPECT_EQ(writers.Int(300), Hex("2C 01 00 00"));
    EXPECT_EQ(writers.Int(0), Hex("00 00 00 00"));
    EXPECT_EQ(writers.Int(0x12345678), Hex("78 56 34 12"));
    EXPECT_EQ(writers.Int(std::numeric_limits<std::int32_t>::max()), Hex("FF FF FF 7F"));
    EXPECT_EQ(writers.Int(std::numeric_limits<std::int32_t>::min()), Hex("00 00 00 80"));
    EXPECT_EQ(writers.Int(10), Hex("0A 00 00 00"));
}

TEST_F(ElementTest, RealsAreWrittenLowestByteFirst) {
    EXPECT_EQ(writers.Real(1.0F), Hex("00 00 80 3F"));
    EXPECT_EQ(writers.Real(1.2F), Hex("9A 99 99 3F"));
    EXPECT_EQ(writers.Real(-0.0F), Hex("00 00 00 80"));
}

TEST_F(ElementTest, TextThatFitsIsFollowedByZeros) {
    EXPECT_EQ(writers.Text("abc", 4), "abc" + Zeros(1));
    EXPECT_EQ(writers.Text("abc", 10), "abc" + Zeros(7));
    EXPECT_EQ(writers.Text("", 8), Zeros(8));
    EXPECT_EQ(writers.Text("", 1), Zeros(1));
    EXPECT_EQ(writers.Text("Ostrel", 300), "Ostrel" + Zeros(294));
    EXPECT_TRUE(ErrorLines().empty());
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(ElementTest, TextThatIsTooLongIsCutAndLogged) {
    EXPECT_EQ(writers.Text("abcd", 4), "abc" + Zeros(1));
    EXPECT_EQ(
        ErrorLines(),
        (Lines{"Error : XmlOut : Output string ('abcd') exceeded maximum field length of 4."}));
    EXPECT_EQ(LogLines(), ErrorLines());
}

TEST_F(ElementTest, MuchTooLongTextIsCutToo) {
    EXPECT_EQ(writers.Text("abcdefghij", 3), "ab" + Zeros(1));
    EXPECT_EQ(
        ErrorLines(),
        (Lines{
            "Error : XmlOut : Output string ('abcdefghij') exceeded maximum field length of 3."}));
}

TEST_F(ElementTest, AFieldOfOneByteHoldsNoText) {
    EXPECT_EQ(writers.Text("a", 1), Zeros(1));
    EXPECT_EQ(ErrorLines(),
              (Lines{"Error : XmlOut : Output string ('a') exceeded maximum field length of 1."}));
}

TEST_F(ElementTest, AFieldOfNoBytesWritesAndLogsNothing) {
    EXPECT_EQ(writers.Text("abc", 0), "");
    EXPECT_EQ(writers.Text("", 0), "");
    EXPECT_TRUE(ErrorLines().empty());
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(ElementTest, TextIsWrittenByteForByte) {
    EXPECT_EQ(writers.Text("caf\xE9\n\r\x80", 9), "caf\xE9\n\r\x80" + Zeros(2));
}

TEST_F(ElementTest, TheLoggedTextIsTheWholeOne) {
    const std::string text(200, 't');
    writers.Text(text, 32);
    EXPECT_EQ(ErrorLines(),
              (Lines{"Error : XmlOut : Output string ('" + text +
                     "') exceeded maximum field length of 32."}));
}

TEST_F(ElementTest, ARecordHeaderIsTagSizeAndTwoZeroWords) {
    EXPECT_EQ(writers.RecordHeader("CELL", 66), "CELL" + Hex("42 00 00 00") + Zeros(8));
}

TEST_F(ElementTest, ASubRecordIsTagSizeAndData) {
    EXPECT_EQ(writers.WordSub("INTV", 258), "INTV" + Hex("04 00 00 00  02 01 00 00"));
    EXPECT_EQ(writers.TextSub("NAME", "ab"), "NAME" + Hex("03 00 00 00") + "ab" + Zeros(1));
    EXPECT_EQ(writers.TextSub("MODL", ""), "MODL" + Hex("01 00 00 00") + Zeros(1));
}

} // namespace

} // namespace Tarnex::Test
