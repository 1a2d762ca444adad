// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/ConfigRecord.h>

#include <tests/support/LogTest.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace Tarnex {

namespace {

using ConfigRecordTest = Test::LogTest;

// Each element and attribute with its place, in document order.
std::string Places(const ConfigRecord& record) {
    std::ostringstream places;
    const auto add = [&places](const std::string& name, const DocumentPlace& place) {
        places << (places.tellp() > 0 ? " " : "") << name << '@' << place.line << ':'
               << place.column;
    };
    for (const ConfigElement& element : record.elements) {
        add(element.name, element.place);
        for (const ConfigAttribute& attribute : element.attributes) {
            add(attribute.name, attribute.place);
        }
    }
    return places.str();
}

std::string PlacesIn(const std::string& document) {
    return Places(RecordConfigText(document, "my.xml"));
}

std::string Wide(const std::string& text, bool littleEndian) {
    std::string wide;
    for (const char c : text) {
        wide += littleEndian ? std::string{c, '\0'} : std::string{'\0', c};
    }
    return wide;
}

TEST_F(ConfigRecordTest, ElementsAndAttributesStandWhereTheyBegin) {
    EXPECT_EQ(PlacesIn("<OstrelData>\n"
                       "  <Theme Name=\"a\"  Level = '1' ><ThemeItem Type=\"Rug\"/></Theme>\n"
                       "</OstrelData>\n"),
              "OstrelData@1:1 Theme@2:3 Name@2:10 Level@2:20 ThemeItem@2:33 Type@2:44");
}

// What is open counts at whatever distance: a layout in a tile set is one, its rows are tiles.
TEST_F(ConfigRecordTest, ElementsAreWhatTheLoaderTakesThemFor) {
    const ConfigRecord record =
        RecordConfigText("<OstrelData><Row/><Layout><Row><Col/></Row></Layout>"
                         "<TileSet><Rug><Layout><Row/></Layout></Rug></TileSet></OstrelData>",
                         "my.xml");
    std::vector<ElementClass> classes;
    for (const ConfigElement& element : record.elements) {
        classes.push_back(element.element);
    }
    EXPECT_EQ(classes,
              (std::vector{ElementClass::Root,
                           ElementClass::Unknown,
                           ElementClass::Layout,
                           ElementClass::Row,
                           ElementClass::Col,
                           ElementClass::TileSet,
                           ElementClass::Tile,
                           ElementClass::Layout,
                           ElementClass::Tile}));
}

TEST_F(ConfigRecordTest, ATagMaySpanLines) {
    const std::string tag =
        "<OstrelData><Rug\n\tUniqueName=\"r\"\n  Value='>\"/'\n/><Rug/></OstrelData>";
    const std::string places = "OstrelData@1:1 Rug@1:13 UniqueName@2:2 Value@3:3 Rug@4:3";
    EXPECT_EQ(PlacesIn(tag), places);
    std::string ofWindows;
    std::string ofOldMacs;
    for (const char c : tag) {
        ofWindows += c == '\n' ? "\r\n" : std::string(1, c);
        ofOldMacs += c == '\n' ? '\r' : c;
    }
    EXPECT_EQ(PlacesIn(ofWindows), places);
    EXPECT_EQ(PlacesIn(ofOldMacs), places);
}

TEST_F(ConfigRecordTest, MarkupThatIsNoTagIsPassedOver) {
    EXPECT_EQ(PlacesIn("<?xml version=\"1.0\"?>\n<!-- <Rug> -->\n<OstrelData><!-- <a> -->"
                       "<![CDATA[<b>]]><?c <d> ?><Rug/></OstrelData>"),
              "OstrelData@3:1 Rug@3:50");
}

TEST_F(ConfigRecordTest, CharactersOfSeveralBytesCountOnce) {
    EXPECT_EQ(PlacesIn("<OstrelData><Rug FName=\"\xC3\xA4\xE2\x82\xAC\" Max=\"2\"/></OstrelData>"),
              "OstrelData@1:1 Rug@1:13 FName@1:18 Max@1:29");
    EXPECT_EQ(PlacesIn("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><OstrelData>"
                       "<Rug FName=\"\xE4\xE4\" Max=\"2\"/></OstrelData>"),
              "OstrelData@1:44 Rug@1:56 FName@1:61 Max@1:72");
}

TEST_F(ConfigRecordTest, AByteOrderMarkTakesNoPlace) {
    const std::string document = "<OstrelData><Rug Max=\"2\"/></OstrelData>";
    const std::string places = "OstrelData@1:1 Rug@1:13 Max@1:18";
    EXPECT_EQ(PlacesIn("\xEF\xBB\xBF" + document), places);
    EXPECT_EQ(PlacesIn("\xFF\xFE" + Wide(document, true)), places);
    EXPECT_EQ(PlacesIn("\xFE\xFF" + Wide(document, false)), places);
}

TEST_F(ConfigRecordTest, AnElementOutOfAnEntityStandsBehindIt) {
    EXPECT_EQ(PlacesIn("<!DOCTYPE OstrelData [<!ENTITY r '<Rug Max=\"1\"/>'>]>\n"
                       "<OstrelData>&r;<Rug/></OstrelData>"),
              "OstrelData@2:1 Rug@2:16 Max@2:16 Rug@2:16");
}

TEST_F(ConfigRecordTest, AnAttributeOfTheDocumentTypeStandsAtItsElement) {
    EXPECT_EQ(PlacesIn("<!DOCTYPE OstrelData [<!ATTLIST Rug Max CDATA '2'>]>\n"
                       "<OstrelData><Rug Value=\"1\"/></OstrelData>"),
              "OstrelData@2:1 Rug@2:13 Value@2:18 Max@2:13");
}

TEST_F(ConfigRecordTest, DeclarationsOfNamespacesAreNoAttributes) {
    EXPECT_EQ(PlacesIn("<OstrelData xmlns:x=\"y\" Lang=\"en\"/>"), "OstrelData@1:1 Lang@1:25");
}

TEST_F(ConfigRecordTest, AFileIsReadLikeAText) {
    const std::string file =
        dir.Write("my.xml", "<OstrelData>\n <Rug Max=\"2\"/>\n</OstrelData>\n");
    const ConfigRecord record = RecordConfigFile(file.c_str());
    EXPECT_EQ(Places(record), "OstrelData@1:1 Rug@2:2 Max@2:7");
    EXPECT_FALSE(record.fatal);
}

TEST_F(ConfigRecordTest, TheFirstRunOfTextIsKept) {
    const ConfigRecord record =
        RecordConfigText("<OstrelData><TileSet TsType=\"Room\"><WallN>a<!-- -->b</WallN></TileSet>"
                         "</OstrelData>",
                         "my.xml");
    EXPECT_EQ(record.elements.at(2).firstText, "a");
    EXPECT_EQ(record.elements.at(2).text, "ab");
}

TEST_F(ConfigRecordTest, AProblemBelongsToItsElement) {
    const ConfigRecord record = RecordConfigText(
        "<OstrelData>\n <TileSet TsType=\"Roon\">\n </TileSet></OstrelData>", "my.xml");
    ASSERT_EQ(record.problems.size(), 1U);
    const ConfigProblem& found = record.problems.front();
    EXPECT_EQ(found.element, 1U);
    EXPECT_EQ(found.problem.kind, ProblemKind::UnknownTileSetType);
    EXPECT_EQ(found.problem.names, std::vector<std::string>({"Roon", ""}));
    EXPECT_EQ(found.problem.place.line, 2U);
    EXPECT_EQ(found.problem.place.column, 2U);
}

} // namespace

} // namespace Tarnex
