// SPDX-License-Identifier: MIT
// Hostile documents: nothing but the file itself is read, and every limit ends the parse.
#include <vaultry/foundation/Logger.h>

#include <tests/catalogue/LoaderTest.h>

namespace Tarnex::Test {

namespace {

constexpr const char* kSecret = "SECRET";

class LoadSafetyTest : public LoaderTest {
protected:
    LoadSafetyTest() {
        dir.Write("secret.txt", kSecret);
        dir.Write("secret.dtd",
                  "<!ENTITY stolen 'SECRET'><!ATTLIST Rug UniqueName CDATA 'SECRET'>");
    }

    // A tile whose text refers to `entity`, between two rugs, in a document with that DOCTYPE.
    void LoadReference(const std::string& doctype, const std::string& entity) {
        LoadDocument(doctype + "<OstrelData><Rug/><TileSet TsType='Room'><Center>&" + entity +
                     ";</Center></TileSet><Rug/></OstrelData>");
    }

    // What was read before the reference stays, and nothing of the file it names arrives.
    void ExpectStoppedAtReference() const {
        EXPECT_NE(FatalLine(), "");
        EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
        EXPECT_TRUE(config.roomTileSets.empty());
        ExpectNoSecret();
    }

    void ExpectNoSecret() const {
        for (const std::string& line : LogLines()) {
            EXPECT_EQ(line.find(kSecret), std::string::npos) << line;
        }
        for (const DiPtr<ContentTemplate>& rug : config.contentMgr->GetRugs()) {
            EXPECT_EQ(rug->uniqueName, "");
        }
        EXPECT_NE(TileId("Center"), kSecret);
    }

    std::string Url(const char* file) const { return "file://" + dir.File(file); }
};

// `count` root elements, one inside the other.
std::string Nested(int count, const std::string& innermost) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += "<OstrelData>";
    }
    text += innermost;
    for (int i = 0; i < count; ++i) {
        text += "</OstrelData>";
    }
    return text;
}

// Ten entities, each ten times the one before.
std::string Laughs() {
    std::string subset = "<!ENTITY e0 'ha'>";
    for (int i = 1; i <= 9; ++i) {
        std::string value;
        for (int k = 0; k < 10; ++k) {
            value += "&e" + std::to_string(i - 1) + ";";
        }
        subset += "<!ENTITY e" + std::to_string(i) + " '" + value + "'>";
    }
    return subset;
}

std::string Repeat(const std::string& text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}

} // namespace

TEST_F(LoadSafetyTest, AnExternalEntityIsNotOpened) {
    for (const std::string& name :
         {std::string("secret.txt"), dir.File("secret.txt"), Url("secret.txt")}) {
        SCOPED_TRACE(name);
        Logger::ResetErrors();
        LoadReference("<!DOCTYPE OstrelData [<!ENTITY x SYSTEM '" + name + "'>]>", "x");
        ExpectStoppedAtReference();
    }
}

TEST_F(LoadSafetyTest, AnExternalEntityWithAPublicNameIsNotOpened) {
    LoadReference("<!DOCTYPE OstrelData [<!ENTITY x PUBLIC 'name' '" + Url("secret.txt") + "'>]>",
                  "x");
    ExpectStoppedAtReference();
}

TEST_F(LoadSafetyTest, AnExternalEntityThatNothingRefersToIsHarmless) {
    LoadWithSubset("<!ENTITY x SYSTEM '" + Url("secret.txt") + "'>", "<Rug/>");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadSafetyTest, AnExternalEntityInAnAttributeIsFatal) {
    LoadWithSubset("<!ENTITY x SYSTEM '" + Url("secret.txt") + "'>", "<Rug UniqueName='&x;'/>");
    EXPECT_NE(FatalLine(), "");
    ExpectNoSecret();
}

TEST_F(LoadSafetyTest, AnExternalEntityInsideAnotherIsFatal) {
    LoadReference("<!DOCTYPE OstrelData [<!ENTITY x SYSTEM '" + Url("secret.txt") +
                      "'><!ENTITY y '&#38;x;'>]>",
                  "y");
    ExpectStoppedAtReference();
}

TEST_F(LoadSafetyTest, AnExternalSubsetIsNotOpened) {
    for (const std::string& name : {std::string("secret.dtd"), Url("secret.dtd")}) {
        SCOPED_TRACE(name);
        Logger::ResetErrors();
        LoadReference("<!DOCTYPE OstrelData SYSTEM '" + name + "'>", "stolen");
        EXPECT_EQ(config.contentMgr->GetRugs().size(), 2U);
        ExpectNoSecret();
    }
}

TEST_F(LoadSafetyTest, AnExternalSubsetGivesNoDefaultValues) {
    LoadDocument("<!DOCTYPE OstrelData PUBLIC 'name' '" + Url("secret.dtd") +
                 "'><OstrelData><Rug/></OstrelData>");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    ExpectNoSecret();
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadSafetyTest, AnExternalParameterEntityIsNotOpened) {
    LoadReference("<!DOCTYPE OstrelData [<!ENTITY % p SYSTEM '" + Url("secret.dtd") + "'> %p;]>",
                  "stolen");
    EXPECT_NE(FatalLine(), "");
    EXPECT_TRUE(config.contentMgr->GetRugs().empty());
    ExpectNoSecret();
}

TEST_F(LoadSafetyTest, AnEntityOnTheNetworkIsFatal) {
    LoadReference("<!DOCTYPE OstrelData [<!ENTITY x SYSTEM 'http://127.0.0.1:9/x'>]>", "x");
    ExpectStoppedAtReference();
    Logger::ResetErrors();
    LoadReference("<!DOCTYPE OstrelData [<!ENTITY % p SYSTEM 'http://127.0.0.1:9/x'> %p;]>", "x");
    EXPECT_NE(FatalLine(), "");
    EXPECT_TRUE(config.contentMgr->GetRugs().empty());
}

TEST_F(LoadSafetyTest, AnExternalSubsetOnTheNetworkIsNotAsked) {
    LoadDocument("<!DOCTYPE OstrelData SYSTEM 'http://127.0.0.1:9/x.dtd'>"
                 "<OstrelData><Rug/></OstrelData>");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_TRUE(LogLines().empty());
}

// The schema would give the rug a name and refuse the tag after it.
TEST_F(LoadSafetyTest, ASchemaIsNotOpened) {
    dir.Write("secret.xsd",
              "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'><xs:element "
              "name='OstrelData'><xs:complexType><xs:sequence><xs:element name='Rug'>"
              "<xs:complexType><xs:attribute name='UniqueName' default='SECRET'/>"
              "</xs:complexType></xs:element></xs:sequence></xs:complexType></xs:element>"
              "</xs:schema>");
    for (const std::string& name :
         {std::string("secret.xsd"), Url("secret.xsd"), std::string("http://127.0.0.1:9/x.xsd")}) {
        LoadDocument("<OstrelData xmlns:i='http://www.w3.org/2001/XMLSchema-instance' "
                     "i:noNamespaceSchemaLocation='" +
                     name + "'><Rug/><Tapestry/></OstrelData>");
        EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
        EXPECT_EQ(config.contentMgr->GetTapestries().size(), 1U);
        ExpectNoSecret();
    }
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadSafetyTest, ABrokenSchemaIsNotEvenLookedAt) {
    dir.Write("broken.xsd", "<not-a-schema>");
    LoadDocument("<OstrelData xmlns='urn:a' xmlns:i='http://www.w3.org/2001/XMLSchema-instance' "
                 "i:schemaLocation='urn:a " +
                 Url("broken.xsd") + "'><Rug/></OstrelData>");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadSafetyTest, EntitiesThatMultiplyAreFatal) {
    LoadWithSubset(Laughs(), "<Rug/><TileSet TsType='Room'><Center>&e9;</Center></TileSet><Rug/>");
    EXPECT_NE(FatalLine(), "");
    EXPECT_EQ(ErrorLines().size(), 1U);
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
}

TEST_F(LoadSafetyTest, EntitiesThatMultiplyInAnAttributeAreFatal) {
    LoadWithSubset(Laughs(), "<Rug/><Rug UniqueName='&e9;'/>");
    EXPECT_NE(FatalLine(), "");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
}

TEST_F(LoadSafetyTest, EntitiesThatContainEachOtherAreFatal) {
    LoadWithSubset("<!ENTITY a '&b;'><!ENTITY b '&a;'>", "<Rug/>&a;<Rug/>");
    EXPECT_NE(FatalLine(), "");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
}

TEST_F(LoadSafetyTest, AnHonestNumberOfReferencesIsRead) {
    LoadWithSubset("<!ENTITY a 'text'>",
                   Repeat("&a;", 500) + Repeat("&amp;&#65;", 5000) + "<Rug/>");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadSafetyTest, AnElementAtDepth256IsRead) {
    LoadDocument(Nested(255, "<Rug/>"));
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadSafetyTest, AnElementAtDepth257IsFatal) {
    LoadDocument(Nested(255, "<Tapestry/><OstrelData><Rug/></OstrelData>"));
    EXPECT_NE(FatalLine(), "");
    EXPECT_EQ(ErrorLines().size(), 1U);
    EXPECT_EQ(config.contentMgr->GetTapestries().size(), 1U);
    EXPECT_TRUE(config.contentMgr->GetRugs().empty());
}

TEST_F(LoadSafetyTest, DepthIsNotTheNumberOfElements) {
    Load(Repeat("<OstrelData><OstrelData/></OstrelData>", 1000) + "<Rug/>");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadSafetyTest, SixtyFourMillionCharactersOfTextAreRead) {
    LoadWithSubset("<!ENTITY m '" + std::string(1'000'000, 'x') + "'>",
                   Repeat("&m;", 64) + "<Rug/>");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadSafetyTest, OneCharacterMoreIsFatal) {
    LoadWithSubset("<!ENTITY m '" + std::string(1'000'000, 'x') + "'>",
                   Repeat("&m;", 64) + "<Rug/>y<Rug/>");
    EXPECT_NE(FatalLine(), "");
    EXPECT_EQ(ErrorLines().size(), 1U);
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
}

TEST_F(LoadSafetyTest, AHundredThousandNestedLayoutsAreFatal) {
    Load("<Rug/>" + Repeat("<Layout Width='1' Height='1'>", 100'000) +
         Repeat("</Layout>", 100'000));
    EXPECT_EQ(ErrorLines().size(), 1U);
    EXPECT_NE(FatalLine().find("elements are nested more than 256 deep"), std::string::npos)
        << FatalLine();
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_TRUE(config.roomLayouts.empty());
}

TEST_F(LoadSafetyTest, LayoutsAreLimitedTogether) {
    Load(Repeat("<Layout LayoutName='L' Type='Room' Width='1024' Height='1024'/>", 16) +
         "<Layout Type='Room' Width='0'/>");
    EXPECT_EQ(config.roomLayouts.size(), 17U);
    EXPECT_TRUE(LogLines().empty());

    Load(Repeat("<Layout LayoutName='L' Type='Room' Width='1024' Height='1024'/>", 300));
    EXPECT_EQ(config.roomLayouts.size(), 16U);
    EXPECT_EQ(ErrorLines().size(), 284U);
    EXPECT_EQ(ErrorLines().front(),
              "Error : XML Parser : Layouts too large together (H=1024, W=1024) for Layout set "
              "'L'.  Max = 16777216 cells in all.");
}

TEST_F(LoadSafetyTest, TwoMillionElementsAreRead) {
    Load("<Rug/>" + Repeat("<OstrelData/>", 1'999'997) + "<Rug/>");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 2U);
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadSafetyTest, OneElementMoreIsFatal) {
    Load("<Rug/>" + Repeat("<OstrelData/>", 1'999'998) + "<Rug/>");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_NE(FatalLine().find("the document has more than 2000000 elements"), std::string::npos)
        << FatalLine();
}

TEST_F(LoadSafetyTest, NamesInListsAreLimited) {
    const std::string million = Repeat("a,", 1'000'000);
    const std::string layout = "<Layout Type='Room'><Row><Col>";
    Load(layout + million + "</Col><Col>" + million + "</Col></Row></Layout><Rug/>");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_TRUE(LogLines().empty());

    Load(layout + million + "</Col></Row></Layout><Theme><ThemeItem UniqueName='" + million +
         "'/><ThemeItem UniqueName='b'/></Theme><Rug/>");
    EXPECT_TRUE(config.contentMgr->GetRugs().empty());
    EXPECT_NE(FatalLine().find("the lists hold more than 2000000 names"), std::string::npos)
        << FatalLine();
}

TEST_F(LoadSafetyTest, NamesOfAMegabyteAreRead) {
    const std::string name(1'000'000, 'n');
    Load("<TileSet TsType='Room' TsName='" + name + "'><Center>" + name +
         "</Center></TileSet><Rug UniqueName='" + name + "'/><" + name + "/>");
    EXPECT_EQ(TileId("Center"), name);
    EXPECT_EQ(config.contentMgr->GetRugs().front()->uniqueName, name);
    ASSERT_EQ(ErrorLines().size(), 1U);
    EXPECT_LT(ErrorLines().front().size(), 5000U);
}

TEST_F(LoadSafetyTest, ErrorsBeyondCountAreLeftOut) {
    Load(Repeat("<a/>", 100'100));
    ASSERT_EQ(ErrorLines().size(), 100'001U);
    EXPECT_EQ(ErrorLines()[99'999], "Error : XML Parser : Unrecognized tag in XML:  'a'");
    EXPECT_EQ(ErrorLines().back(),
              "Error : Logger : There are more than 100000 errors; no more are kept.");
}

// Each element is given the value by the document type, for the length of its tag.
TEST_F(LoadSafetyTest, AttributesHoldAsMuchAsTextDoes) {
    const std::string subset = "<!ATTLIST Rug Note CDATA '" + std::string(1'000'000, 'x') + "'>";
    LoadWithSubset(subset, Repeat("<Rug/>", 64));
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 64U);
    EXPECT_TRUE(LogLines().empty());

    LoadWithSubset(subset, Repeat("<Rug/>", 66));
    EXPECT_NE(FatalLine(), "");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 64U);
}

// Few enough references, but more text than the parser may hold.
TEST_F(LoadSafetyTest, AValueThatOutgrowsTheMemoryIsFatal) {
    LoadWithSubset("<!ENTITY m '" + std::string(2'000'000, 'x') + "'>",
                   "<Rug/><Rug UniqueName='" + Repeat("&m;", 900) + "'/>");
    EXPECT_EQ(ErrorLines().size(), 1U);
    EXPECT_NE(FatalLine(), "");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);

    Load("<Rug/>");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_EQ(ErrorLines().size(), 1U);
}

} // namespace Tarnex::Test
