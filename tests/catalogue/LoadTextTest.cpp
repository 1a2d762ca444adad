// SPDX-License-Identifier: MIT
// The identifier of a tile is the first run of its text, and where a run ends.
#include <tests/catalogue/LoaderTest.h>

namespace Tarnex::Test {

namespace {

class LoadTextTest : public LoaderTest {
protected:
    // The identifier of a tile with that content, in a document with these entities.
    std::string IdOf(const std::string& content) {
        LoadWithSubset("<!ENTITY empty ''><!ENTITY word 'word'><!ENTITY two 'x&word;y'>"
                       "<!ENTITY late '&#38;word;y'><!ENTITY letter '&#38;#65;y'>"
                       "<!ENTITY nothing '&empty;y'><!ENTITY noted 'x<!-- n -->y'>",
                       "<TileSet TsType='Room'><Center>" + content + "</Center></TileSet>");
        EXPECT_TRUE(LogLines().empty());
        return TileId("Center");
    }
};

} // namespace

TEST_F(LoadTextTest, ARunEndsAtTheEndTag) {
    EXPECT_EQ(IdOf("model"), "model");
    EXPECT_EQ(IdOf(""), "");
}

TEST_F(LoadTextTest, WhiteSpaceIsKept) {
    EXPECT_EQ(IdOf(" model \t"), " model \t");
    EXPECT_EQ(IdOf("  "), "  ");
}

TEST_F(LoadTextTest, LineBreaksEndNothing) {
    EXPECT_EQ(IdOf("a\nb"), "a\nb");
    EXPECT_EQ(IdOf("a\r\nb\rc"), "a\nb\nc");
}

TEST_F(LoadTextTest, ACommentEndsARun) {
    EXPECT_EQ(IdOf("ab<!-- c -->de"), "ab");
    EXPECT_EQ(IdOf("<!-- c -->de"), "de");
    EXPECT_EQ(IdOf("\n<!-- c -->de"), "\n");
}

TEST_F(LoadTextTest, AProcessingInstructionEndsARun) {
    EXPECT_EQ(IdOf("ab<?c d?>ef"), "ab");
    EXPECT_EQ(IdOf("<?c d?>ef"), "ef");
}

TEST_F(LoadTextTest, TheBordersOfACharacterDataSectionEndARun) {
    EXPECT_EQ(IdOf("ab<![CDATA[cd]]>ef"), "ab");
    EXPECT_EQ(IdOf("<![CDATA[cd]]>ef"), "cd");
    EXPECT_EQ(IdOf("<![CDATA[cd]]><![CDATA[ef]]>"), "cd");
    EXPECT_EQ(IdOf("<![CDATA[]]>ef"), "ef");
    EXPECT_EQ(IdOf("<![CDATA[a&amp;<b>\n]]>"), "a&amp;<b>\n");
}

TEST_F(LoadTextTest, ATagEndsARun) {
    EXPECT_EQ(IdOf("ab<Theme/>cd"), "ab");
    EXPECT_EQ(IdOf("<Theme/>cd"), "cd");
}

TEST_F(LoadTextTest, ARunEndsBeforeAReference) {
    EXPECT_EQ(IdOf("ab&amp;cd"), "ab");
    EXPECT_EQ(IdOf("ab&#67;d"), "ab");
    EXPECT_EQ(IdOf("ab&#x43;d"), "ab");
    EXPECT_EQ(IdOf("ab&word;cd"), "ab");
    EXPECT_EQ(IdOf("ab&empty;cd"), "ab");
}

TEST_F(LoadTextTest, TheCharacterOfAReferenceBeginsTheNextRun) {
    EXPECT_EQ(IdOf("&amp;cd"), "&cd");
    EXPECT_EQ(IdOf("&lt;cd"), "<cd");
    EXPECT_EQ(IdOf("&#67;d"), "Cd");
    EXPECT_EQ(IdOf("&#x43;d&#69;"), "Cd");
    EXPECT_EQ(IdOf("&amp;&amp;"), "&");
}

TEST_F(LoadTextTest, ARunEndsWithTheTextOfAnEntity) {
    EXPECT_EQ(IdOf("&word;cd"), "word");
    EXPECT_EQ(IdOf("&word;&word;"), "word");
}

TEST_F(LoadTextTest, AnEmptyEntityIsNoRunOfItsOwn) {
    EXPECT_EQ(IdOf("&empty;cd"), "cd");
    EXPECT_EQ(IdOf("&empty;&word;"), "word");
}

TEST_F(LoadTextTest, AReferenceInsideTheTextOfAnEntityEndsARun) {
    EXPECT_EQ(IdOf("&two;"), "x");
    EXPECT_EQ(IdOf("&late;"), "word");
    EXPECT_EQ(IdOf("&letter;"), "Ay");
    EXPECT_EQ(IdOf("&nothing;"), "y");
    EXPECT_EQ(IdOf("&noted;"), "x");
}

TEST_F(LoadTextTest, OnlyTheFirstRunIsKept) {
    EXPECT_EQ(IdOf("a<!-- -->b<!-- -->c&amp;d"), "a");
}

TEST_F(LoadTextTest, LengthEndsNothing) {
    const std::string text(3'000'000, 'x');
    EXPECT_TRUE(IdOf(text) == text);
    EXPECT_TRUE(IdOf("<![CDATA[" + text + "]]>") == text);
}

TEST_F(LoadTextTest, ALongNameInACellStaysWhole) {
    const std::string name(3'000'000, 'x');
    Load("<Layout Type='Room' Width='1' Height='1'><Col>" + name + "</Col></Layout>");
    ASSERT_TRUE(RoomLayout().GetElmt(0, 0));
    ASSERT_EQ(RoomLayout().GetElmt(0, 0)->tileNames.size(), 1U);
    EXPECT_EQ(RoomLayout().GetElmt(0, 0)->tileNames.front().Text().size(), 3'000'000U);
}

} // namespace Tarnex::Test
