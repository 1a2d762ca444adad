// SPDX-License-Identifier: MIT
// Hostile documents: nothing but the file itself is read, and every limit ends the parse.
#include <vaultry/catalogue/ConfigReader.h>
#include <vaultry/catalogue/LoadBudget.h>
#include <vaultry/foundation/JobStatus.h>
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

// `levels` parameter entities, each `refs` times the one before, then `%aLEVELS;` itself.
std::string ParameterBomb(int levels, int refs, const std::string& innermost) {
    std::string subset = "<!ENTITY % a0 \"" + innermost + "\">";
    for (int i = 1; i <= levels; ++i) {
        subset += "<!ENTITY % a" + std::to_string(i) + " '";
        for (int k = 0; k < refs; ++k) {
            subset += "&#37;a" + std::to_string(i - 1) + ";";
        }
        subset += "'>\n";
    }
    return subset + "%a" + std::to_string(levels) + ";";
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

TEST_F(LoadSafetyTest, EntitiesThatMultiplyInADefaultValueAreFatal) {
    LoadWithSubset(Laughs() + "<!ATTLIST Rug UniqueName CDATA '&e9;'>", "<Rug/>");
    EXPECT_NE(FatalLine().find("more than 1000 references to entities are followed"),
              std::string::npos)
        << FatalLine();
    EXPECT_TRUE(config.contentMgr->GetRugs().empty());
}

TEST_F(LoadSafetyTest, ParameterEntitiesThatMultiplyAreFatal) {
    for (const char* innermost :
         {"<!ENTITY x 'lol'>", "", "<!-- -->", "<?a?>", "<!ATTLIST Rug Max CDATA '1'>"}) {
        SCOPED_TRACE(innermost);
        Logger::ResetErrors();
        LoadWithSubset(ParameterBomb(9, 10, innermost), "<Rug/>");
        EXPECT_TRUE(
            FatalLine().starts_with("Error : XML Parser : Fatal Error parsing XML line 10 col "))
            << FatalLine();
        EXPECT_TRUE(FatalLine().ends_with("more than 1000 references to entities are followed"))
            << FatalLine();
        EXPECT_TRUE(config.contentMgr->GetRugs().empty());
    }
}

TEST_F(LoadSafetyTest, AThousandReferencesAreFollowedOfWhateverKind) {
    const std::string subset = "<!ENTITY a 't'><!ENTITY % p ''><!ATTLIST Rug FName CDATA '&a;'>" +
                               Repeat("%p;", 499) + "\n";
    LoadWithSubset(subset, Repeat("&a;", 250) + "<Rug UniqueName='" + Repeat("&a;", 250) + "'/>");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_TRUE(LogLines().empty());

    LoadWithSubset(subset, Repeat("&a;", 250) + "<Rug UniqueName='" + Repeat("&a;", 251) + "'/>");
    EXPECT_NE(FatalLine(), "");
    EXPECT_TRUE(config.contentMgr->GetRugs().empty());
}

TEST_F(LoadSafetyTest, AnEntityOf64000CharactersIsRead) {
    for (const char* kind : {"", "% "}) {
        const std::string declaration = std::string("<!ENTITY ") + kind + "m '";
        LoadWithSubset(declaration + std::string(64'000, ' ') + "'>", "<Rug/>");
        EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
        EXPECT_TRUE(ErrorLines().empty());

        LoadWithSubset(declaration + std::string(64'001, ' ') + "'>", "<Rug/>");
        EXPECT_TRUE(config.contentMgr->GetRugs().empty());
        EXPECT_NE(FatalLine().find("an entity holds more than 64000 characters"), std::string::npos)
            << FatalLine();
        Logger::ResetErrors();
    }
}

// The parser asks for memory before it tells of an entity: the question is put there.
TEST_F(LoadSafetyTest, ABombOfParameterEntitiesCanBeCancelled) {
    class Impatient : public JobStatus {
    public:
        bool HasBeenCanceled() const override { return ++questions > 20; }
        mutable int questions = 0;
    };
    const Impatient status;
    const std::string path = dir.Write(
        "bomb.xml", "<!DOCTYPE OstrelData [" + ParameterBomb(9, 10, "") + "]><OstrelData/>");
    EXPECT_THROW(ReadConfigFile(path.c_str(), config, &status), LoadCanceled);
    EXPECT_EQ(status.questions, 21);
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadSafetyTest, DefaultValuesAreLimitedInNumber) {
    std::string subset = "<!ATTLIST Rug";
    for (int i = 0; i < 1000; ++i) {
        subset += " a" + std::to_string(i) + " CDATA ''";
    }
    LoadWithSubset(subset + ">", Repeat("<Rug/>", 8001));
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 8000U);
    EXPECT_NE(FatalLine().find("the document has more than 8000000 attributes"), std::string::npos)
        << FatalLine();
}

TEST_F(LoadSafetyTest, NamesOfDefaultValuesCountAsText) {
    LoadWithSubset("<!ATTLIST Rug " + std::string(1'000'000, 'a') + " CDATA ''>",
                   Repeat("<Rug/>", 65));
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 64U);
    EXPECT_NE(FatalLine().find("the attributes hold more than 64000000 characters"),
              std::string::npos)
        << FatalLine();
}

TEST_F(LoadSafetyTest, NamespacesOfDefaultValuesCountAsText) {
    LoadWithSubset("<!ATTLIST Rug xmlns CDATA '" + std::string(1'000'000, 'a') + "'>",
                   Repeat("<Rug/>", 65));
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 64U);
    EXPECT_NE(FatalLine(), "");
}

TEST_F(LoadSafetyTest, NamespacesAreLimitedAtEachPlace) {
    std::string declarations;
    for (int i = 0; i < 256; ++i) {
        declarations += " xmlns:a" + std::to_string(i) + "='u'";
    }
    Load("<Rug" + declarations + "/><Rug" + declarations + "/>");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 2U);
    EXPECT_TRUE(LogLines().empty());

    Load("<OstrelData" + declarations + "><Rug/><Rug xmlns:b='u'/></OstrelData>");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_NE(FatalLine().find("more than 256 namespaces are declared at one place"),
              std::string::npos)
        << FatalLine();
}

// Each prefix is looked for among all.
TEST_F(LoadSafetyTest, ATagOfVeryManyAttributesIsFatal) {
    std::string tag = "<Rug";
    for (int i = 0; i < 100'000; ++i) {
        const std::string number = std::to_string(i);
        tag += " xmlns:a" + number + "='u" + number + "' a" + number + ":b=''";
    }
    Load("<Rug/>" + tag + "/>");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_NE(FatalLine().find("too many different names"), std::string::npos) << FatalLine();
}

// All of them fall into one place of the parser's tables, which then takes the square of their
// number.
TEST_F(LoadSafetyTest, NamesThatAreMadeToCollideAreLimited) {
    std::string names;
    for (int i = 0; i < 1 << 15; ++i) {
        names += "<";
        for (int bit = 0; bit < 15; ++bit) {
            names += (i >> bit) % 2 == 0 ? "az" : "bT";
        }
        names += "/>";
    }
    Load("<Rug/>" + names);
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_NE(FatalLine().find("too many different names"), std::string::npos) << FatalLine();
}

TEST_F(LoadSafetyTest, FewNamesOfManyElementsAreNoLimit) {
    std::string names;
    for (int i = 0; i < 2000; ++i) {
        names += "<a" + std::to_string(i) + " b='" + std::to_string(i) + "'/>";
    }
    Load(Repeat(names, 10) + "<Rug/>");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_EQ(ErrorLines().size(), 20'000U);
}

TEST_F(LoadSafetyTest, DeepContentModelsAreHarmless) {
    for (const auto& [open, close] :
         {std::pair("(", ")"), std::pair("(a|", ")"), std::pair("(", ")*")}) {
        LoadWithSubset(
            "<!ELEMENT Rug " + Repeat(open, 100'000) + "a" + Repeat(close, 100'000) + ">", "");
    }
    EXPECT_FALSE(LogLines().empty());
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
    LoadWithSubset("<!ENTITY m '" + std::string(64'000, 'x') + "'>",
                   Repeat("&m;", 1000) + "<Rug/>");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadSafetyTest, OneCharacterMoreIsFatal) {
    LoadWithSubset("<!ENTITY m '" + std::string(64'000, 'x') + "'>",
                   Repeat("&m;", 1000) + "<Rug/>y<Rug/>");
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
    const std::string subset = "<!ATTLIST Rug Note CDATA '" + std::string(999'996, 'x') + "'>";
    LoadWithSubset(subset, Repeat("<Rug/>", 64));
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 64U);
    EXPECT_TRUE(LogLines().empty());

    LoadWithSubset(subset, Repeat("<Rug/>", 66));
    EXPECT_NE(FatalLine(), "");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 64U);
}

// One run of text more than the parser may hold.
TEST_F(LoadSafetyTest, AValueThatOutgrowsTheMemoryIsFatal) {
    Load("<Rug/><Rug UniqueName='" + std::string(150'000'000, 'x') + "'/>");
    EXPECT_EQ(ErrorLines().size(), 1U);
    EXPECT_NE(FatalLine(), "");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);

    Load("<Rug/>");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_EQ(ErrorLines().size(), 1U);
}

} // namespace Tarnex::Test
