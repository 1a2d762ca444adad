// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/ConfigReader.h>

#include <tests/catalogue/LoaderTest.h>

namespace Tarnex::Test {

LoaderTest::LoaderTest() {
    EXPECT_EQ(StartXmlParser(), "");
}

void LoaderTest::Load(std::string_view body) {
    LoadDocument("<?xml version=\"1.0\"?>\n<OstrelData>" + std::string(body) + "</OstrelData>\n");
}

void LoaderTest::LoadDocument(std::string_view bytes) {
    config.Reset();
    ReadConfigFile(dir.Write("config.xml", bytes).c_str(), config);
}

void LoaderTest::LoadWithSubset(std::string_view subset, std::string_view body) {
    LoadDocument("<!DOCTYPE OstrelData [" + std::string(subset) + "]><OstrelData>" +
                 std::string(body) + "</OstrelData>");
}

std::string LoaderTest::FatalLine() {
    std::string fatal;
    int count = 0;
    for (const std::string& line : ErrorLines()) {
        if (line.starts_with("Error : XML Parser : Fatal Error parsing XML line ")) {
            fatal = line;
            ++count;
        }
    }
    EXPECT_EQ(count, 1);
    return count == 1 ? fatal : "";
}

std::string LoaderTest::TileId(const std::string& kindName) const {
    if (config.roomTileSets.empty()) {
        return "(no tile set)";
    }
    const DiPtr<Tile> tile = config.roomTileSets.front()->Get(kindName);
    return tile ? tile->id : "(none)";
}

const Tile& LoaderTest::TileOf(const std::string& kindName) const {
    static const Tile none;
    const DiPtr<Tile> tile = RoomSet().Get(kindName);
    EXPECT_TRUE(tile) << kindName;
    return tile ? *tile : none;
}

const TileSet& LoaderTest::RoomSet() const {
    static const TileSet none;
    EXPECT_EQ(config.roomTileSets.size(), 1U);
    return config.roomTileSets.empty() ? none : *config.roomTileSets.front();
}

LayoutTemplate& LoaderTest::RoomLayout() const {
    static LayoutTemplate none(DiPos(0, 0, 0));
    EXPECT_EQ(config.roomLayouts.size(), 1U);
    return config.roomLayouts.empty() ? none : *config.roomLayouts.front();
}

std::string CellText(const LayoutTemplate& layout, std::uint32_t row, std::uint32_t col) {
    const DiPtr<TemplateElmt> elmt = layout.GetElmt(row, col);
    std::string text;
    if (!elmt) {
        return "-";
    }
    for (const TileKindName& name : elmt->tileNames) {
        text += "[" + name.Text() + "]";
    }
    return text;
}

std::string GridText(const LayoutTemplate& layout) {
    std::string text;
    for (std::uint32_t row = 0; row < layout.GetHeight(); ++row) {
        for (std::uint32_t col = 0; col < layout.GetWidth(); ++col) {
            text += (col == 0 ? "" : " ") + CellText(layout, row, col);
        }
        text += "\n";
    }
    return text;
}

std::string ToUtf16(std::string_view ascii, bool bigEndian) {
    std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char c : ascii) {
        if (bigEndian) {
            bytes.push_back('\0');
        }
        bytes.push_back(c);
        if (!bigEndian) {
            bytes.push_back('\0');
        }
    }
    return bytes;
}

} // namespace Tarnex::Test
