// SPDX-License-Identifier: MIT
// Documents in several encodings; what they say is Windows-1252 in the store.
#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/Text.h>

#include <tests/catalogue/LoaderTest.h>

namespace Tarnex::Test {

namespace {

class LoadEncodingTest : public LoaderTest {
protected:
    // The unique name of the only rug of a document.
    std::string RugIn(const std::string& bytes) {
        LoadDocument(bytes);
        const ContentList& rugs = config.contentMgr->GetRugs();
        EXPECT_EQ(rugs.size(), 1U);
        return rugs.empty() ? "" : rugs.front()->uniqueName;
    }
};

std::string Document(const std::string& encoding, const std::string& name) {
    return "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?><OstrelData><Rug UniqueName=\"" +
           name + "\"/></OstrelData>";
}

} // namespace

TEST_F(LoadEncodingTest, Utf8IsRead) {
    EXPECT_EQ(RugIn(Document("UTF-8", "caf\xC3\xA9 \xE2\x82\xAC")), "caf\xE9 \x80");
    EXPECT_EQ(RugIn(Document("utf-8", "caf\xC3\xA9")), "caf\xE9");
    EXPECT_EQ(RugIn("\xEF\xBB\xBF" + Document("UTF-8", "caf\xC3\xA9")), "caf\xE9");
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadEncodingTest, WithoutADeclarationTheDocumentIsUtf8) {
    EXPECT_EQ(RugIn("<OstrelData><Rug UniqueName='caf\xC3\xA9'/></OstrelData>"), "caf\xE9");
}

TEST_F(LoadEncodingTest, Utf16IsReadInBothByteOrders) {
    EXPECT_EQ(RugIn(ToUtf16(Document("UTF-16", "red"), false)), "red");
    EXPECT_EQ(RugIn(ToUtf16(Document("UTF-16", "red"), true)), "red");
    EXPECT_EQ(RugIn(ToUtf16("<OstrelData><Rug UniqueName='red'/></OstrelData>", true)), "red");
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadEncodingTest, Latin1IsRead) {
    EXPECT_EQ(RugIn(Document("ISO-8859-1", "caf\xE9 \xFF")), "caf\xE9 \xFF");
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadEncodingTest, AsciiIsRead) {
    EXPECT_EQ(RugIn(Document("US-ASCII", "red &#233;")), "red \xE9");
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadEncodingTest, AByteThatAsciiLacksIsFatal) {
    LoadDocument(Document("US-ASCII", "caf\xE9"));
    EXPECT_TRUE(config.contentMgr->GetRugs().empty());
    EXPECT_NE(FatalLine(), "");
}

TEST_F(LoadEncodingTest, Windows1252IsRead) {
    EXPECT_EQ(RugIn(Document("Windows-1252", "\x80\x85\x9F\xE9")), "\x80\x85\x9F\xE9");
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadEncodingTest, AnUnknownEncodingIsFatal) {
    LoadDocument(Document("no-such-encoding", "red"));
    EXPECT_TRUE(config.contentMgr->GetRugs().empty());
    EXPECT_EQ(ErrorLines().size(), 1U);
    EXPECT_NE(FatalLine(), "");
}

// The system's converter knows them, or another one does.
TEST_F(LoadEncodingTest, AnEncodingThatIsNotNamedIsFatalWhateverTheSystemKnows) {
    for (const char* encoding : {"KOI8-R",
                                 "windows-1251",
                                 "cp1252",
                                 "ISO-8859-15",
                                 "UTF-7",
                                 "EUC-JP",
                                 "IBM1140",
                                 "UTF-32",
                                 "utf-8-sig"}) {
        SCOPED_TRACE(encoding);
        Logger::ResetErrors();
        LoadDocument(Document(encoding, "red"));
        EXPECT_TRUE(config.contentMgr->GetRugs().empty());
        EXPECT_EQ(ErrorLines().size(), 1U);
        const std::string fatal = ToUpper(FatalLine());
        EXPECT_NE(fatal.find(ToUpper(encoding)), std::string::npos) << fatal;
    }
}

TEST_F(LoadEncodingTest, FourBytesForEachCharacterAreFatal) {
    std::string bytes;
    for (const char c : Document("UCS-4", "red")) {
        bytes += std::string{c, '\0', '\0', '\0'};
    }
    LoadDocument(bytes);
    EXPECT_TRUE(config.contentMgr->GetRugs().empty());
    EXPECT_NE(FatalLine(), "");
}

TEST_F(LoadEncodingTest, OtherNamesOfTheEncodingsAreRead) {
    for (const char* encoding : {"UTF8", "utf8", "latin1", "L1", "iso_8859-1", "ascii", "CP819"}) {
        SCOPED_TRACE(encoding);
        EXPECT_EQ(RugIn(Document(encoding, "red")), "red");
    }
    EXPECT_EQ(RugIn(ToUtf16(Document("UTF-16LE", "red"), false)), "red");
    EXPECT_EQ(RugIn(ToUtf16(Document("UTF-16BE", "red"), true)), "red");
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadEncodingTest, MalformedUtf8IsFatal) {
    LoadDocument(Document("UTF-8", "caf\xE9"));
    EXPECT_TRUE(config.contentMgr->GetRugs().empty());
    EXPECT_NE(FatalLine(), "");
}

TEST_F(LoadEncodingTest, EveryCharacterOfTheCodePageArrives) {
    EXPECT_EQ(RugIn(Document("UTF-8",
                             "&#x20AC;&#x201A;&#x192;&#x201E;&#x2026;&#x2020;&#x2021;&#x2C6;"
                             "&#x2030;&#x160;&#x2039;&#x152;&#x17D;&#x2018;&#x2019;&#x201C;"
                             "&#x201D;&#x2022;&#x2013;&#x2014;&#x2DC;&#x2122;&#x161;&#x203A;"
                             "&#x153;&#x17E;&#x178;&#xA0;&#xFF;")),
              "\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E\x91\x92\x93\x94\x95\x96\x97"
              "\x98\x99\x9A\x9B\x9C\x9E\x9F\xA0\xFF");
}

TEST_F(LoadEncodingTest, ACharacterThatTheCodePageLacksBecomesAQuestionMark) {
    EXPECT_EQ(RugIn(Document("UTF-8", "a&#x81;&#x8D;&#x8F;&#x90;&#x9D;b")), "a?????b");
    EXPECT_EQ(RugIn(Document("UTF-8", "a&#x80;&#x85;b")), "a??b");
    EXPECT_EQ(RugIn(Document("UTF-8", "\xE4\xB8\xAD\xE6\x96\x87")), "??");
    EXPECT_EQ(RugIn(Document("UTF-8", "e&#x301;")), "e?");
}

TEST_F(LoadEncodingTest, ACharacterBeyondTheFirstPlaneBecomesOneQuestionMark) {
    EXPECT_EQ(RugIn(Document("UTF-8", "a\xF0\x9F\x98\x80z&#x1F600;")), "a?z?");
}

TEST_F(LoadEncodingTest, TagsIdentifiersAndCellsAreConvertedToo) {
    LoadDocument(
        "<OstrelData><TileSet TsType='Room' TsName='\xE2\x82\xAC'>"
        "<Gr\xC3\xBC"
        "ft>gr\xC3\xBC\xE4\xB8\xAD</Gr\xC3\xBC"
        "ft></TileSet><Layout Type='Room' Width='1' Height='1'>"
        "<Col>\xC3\xBC\xF0\x9F\x98\x80,\xC3\x9C</Col></Layout><\xE4\xB8\xAD/></OstrelData>");
    EXPECT_EQ(RoomSet().GetName(), "\x80");
    EXPECT_EQ(TileId("GR\xFC"
                     "FT"),
              "gr\xFC?");
    EXPECT_EQ(GridText(RoomLayout()), "[\xFC?][\xDC]\n");
    EXPECT_EQ(ErrorLines(), Lines({"Error : XML Parser : Unrecognized tag in XML:  '?'"}));
}

TEST_F(LoadEncodingTest, OnlyTheLettersAToZFold) {
    LoadDocument("<OstrelData><TileSet TsType='Room'>"
                 "<\xC3\xBC>lower</\xC3\xBC><\xC3\x9C>upper</\xC3\x9C></TileSet></OstrelData>");
    EXPECT_EQ(TileId("\xFC"), "lower");
    EXPECT_EQ(TileId("\xDC"), "upper");
    EXPECT_TRUE(LogLines().empty());
}

} // namespace Tarnex::Test
