// SPDX-License-Identifier: MIT
// How the parser's own complaints are reported.
#include <vaultry/catalogue/ConfigLoader.h>
#include <vaultry/catalogue/ConfigReader.h>
#include <vaultry/foundation/Logger.h>

#include <xercesc/sax/SAXParseException.hpp>

#include <optional>
#include <tests/catalogue/LoaderTest.h>

namespace Tarnex::Test {

namespace {

class LoadErrorTest : public LoaderTest {
protected:
    static xercesc::SAXParseException At(const XMLCh* message, int line, int column) {
        return {message,
                u"",
                u"config.xml",
                static_cast<XMLFileLoc>(line),
                static_cast<XMLFileLoc>(column)};
    }

    ConfigLoader loader{config, "config.xml"};
};

} // namespace

TEST_F(LoadErrorTest, AnErrorTellsItsPlace) {
    loader.error(At(u"wrong \u20AC\u4E2D", 3, 14));
    EXPECT_EQ(ErrorLines(),
              Lines({"Error : XML Parser : Error parsing XML line 3 col 14:  wrong \x80?"}));
}

TEST_F(LoadErrorTest, AFatalErrorTellsItsPlace) {
    loader.fatalError(At(u"broken", 2, 1));
    EXPECT_EQ(ErrorLines(),
              Lines({"Error : XML Parser : Fatal Error parsing XML line 2 col 1:  broken"}));
}

TEST_F(LoadErrorTest, AWarningIsInformation) {
    loader.warning(At(u"odd", 5, 6));
    loader.resetErrors();
    EXPECT_TRUE(ErrorLines().empty());
    EXPECT_EQ(LogLines(), Lines({"Info : XML Parser : XML Warning at line 5 col 6:  odd"}));
}

TEST_F(LoadErrorTest, ADocumentThatIsNotWellFormedIsOneFatalErrorAtItsPlace) {
    LoadDocument("<OstrelData>\n<Rug></Tapestry>\n</OstrelData>");
    EXPECT_EQ(ErrorLines().size(), 1U);
    EXPECT_TRUE(FatalLine().starts_with("Error : XML Parser : Fatal Error parsing XML line 2 col "))
        << FatalLine();
    EXPECT_EQ(LogLines(), ErrorLines());
}

TEST_F(LoadErrorTest, AnElementThatIsCutShortIsNotFiled) {
    LoadDocument("<OstrelData><Rug UniqueName='whole'/><Platform Name='P'/><Theme Name='T'>"
                 "<ThemeItem/><TileSet TsType='Room'><Center>a</Center>");
    EXPECT_NE(FatalLine(), "");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_EQ(config.platformList.size(), 1U);
    EXPECT_TRUE(config.themes.empty());
    EXPECT_TRUE(config.roomTileSets.empty());
}

TEST_F(LoadErrorTest, EmptyDocumentsAreFatal) {
    for (const char* text : {"", " \n", "<?xml version='1.0'?>", "<!-- only -->"}) {
        Logger::ResetErrors();
        LoadDocument(text);
        EXPECT_EQ(ErrorLines().size(), 1U) << text;
        EXPECT_NE(FatalLine(), "");
    }
}

TEST_F(LoadErrorTest, AnUnboundPrefixIsFatal) {
    Load("<Rug/><p:Rug/><Rug/>");
    EXPECT_EQ(ErrorLines().size(), 1U);
    EXPECT_NE(FatalLine(), "");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
}

TEST_F(LoadErrorTest, AnUnboundPrefixOfAnAttributeIsFatal) {
    Load("<Rug p:UniqueName='x'/>");
    EXPECT_NE(FatalLine(), "");
    EXPECT_TRUE(config.contentMgr->GetRugs().empty());
}

TEST_F(LoadErrorTest, AnAttributeGivenTwiceIsFatal) {
    Load("<Rug UniqueName='x' UniqueName='y'/>");
    EXPECT_NE(FatalLine(), "");
    EXPECT_TRUE(config.contentMgr->GetRugs().empty());
}

TEST_F(LoadErrorTest, AnUndeclaredEntityIsFatal) {
    Load("<Rug/>&none;<Rug/>");
    EXPECT_NE(FatalLine(), "");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
}

TEST_F(LoadErrorTest, AFolderInPlaceOfAFileIsFatal) {
    ReadConfigFile(dir.File("").c_str(), config);
    EXPECT_EQ(ErrorLines().size(), 1U);
    EXPECT_NE(FatalLine(), "");
}

TEST_F(LoadErrorTest, APathThatIsNotUtf8IsFatal) {
    ReadConfigFile("no\xFF\xFEsuch.xml", config);
    EXPECT_EQ(ErrorLines().size(), 1U);
    EXPECT_NE(FatalLine(), "");
}

TEST_F(LoadErrorTest, ProblemsCarryFileAndPlace) {
    ProblemList list;
    Load("\n<Rugg/>\n<TileSet TsType='Room'><WallN>a</WallN>\n<WallN>b</WallN></TileSet>");
    ASSERT_EQ(list.Get().size(), 2U);
    const Problem& unknown = list.Get().front();
    EXPECT_EQ(unknown.kind, ProblemKind::UnknownElement);
    EXPECT_EQ(unknown.file, dir.File("config.xml"));
    EXPECT_EQ(unknown.place.line, 3U);
    const Problem& twice = list.Get().back();
    EXPECT_EQ(twice.kind, ProblemKind::TileTwice);
    EXPECT_EQ(twice.names, Names({"WallN", ""}));
    EXPECT_EQ(twice.file, dir.File("config.xml"));
    EXPECT_EQ(twice.place.line, 5U);
}

TEST_F(LoadErrorTest, TheFaultIsTheProblemThatEndsTheLoad) {
    ProblemList list;
    const std::string path = dir.Write("broken.xml", "<OstrelData>\n<Rug></Tapestry>\n");
    const std::optional<Problem> fault = ReadConfigFile(path.c_str(), config);
    ASSERT_TRUE(fault);
    ASSERT_EQ(list.Get().size(), 1U);
    EXPECT_EQ(fault->kind, ProblemKind::Broken);
    EXPECT_EQ(fault->place.line, 2U);
    EXPECT_EQ(fault->file, path);
    EXPECT_EQ(TextOf(*fault), TextOf(list.Get().front()));
    EXPECT_EQ(ErrorLines(), Lines({"Error : " + TextOf(*fault)}));
}

} // namespace Tarnex::Test
