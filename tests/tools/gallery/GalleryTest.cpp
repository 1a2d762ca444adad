// SPDX-License-Identifier: MIT
#include "tools/gallery/Gallery.h"

#include <vaultry/run/BuiltinConfigs.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <string_view>
#include <tests/support/Contains.h>
#include <vector>

namespace Tarnex::Test {

namespace {

using Report::GalleryCard;
using Report::GallerySection;

class GalleryTest : public testing::Test {
protected:
    std::vector<GallerySection> Of(std::string_view name, std::vector<Report::Preset> presets) {
        LoadBuiltin(manager, *FindBuiltinConfig(name), "builtin");
        return Report::GalleryOf(
            {std::string(name), std::move(presets), Report::OfferedLists(manager), {}}, manager);
    }

    static const GallerySection& Titled(const std::vector<GallerySection>& sections,
                                        const std::string& title) {
        return *std::ranges::find(sections, title, &GallerySection::title);
    }

    static const GalleryCard& Named(const GallerySection& section, const std::string& name) {
        return *std::ranges::find(section.cards, name, &GalleryCard::name);
    }

    GenMgr manager;
};

bool HasPicture(const GalleryCard& card) {
    return card.map.has_value();
}

bool Places(const GalleryCard& card) {
    return !card.places.empty();
}

TEST_F(GalleryTest, EverythingThatShowsInADungeonHasAPicture) {
    const auto sections = Of("builtin", Report::BuiltinPresetList());
    ASSERT_EQ(sections.size(), 6U) << "a list without names has no section";
    for (const char* title : {"Presets", "Room tile sets", "Room layouts", "Furniture themes"}) {
        const GallerySection& section = Titled(sections, title);
        EXPECT_FALSE(section.cards.empty());
        EXPECT_TRUE(std::ranges::all_of(section.cards, HasPicture)) << title;
    }
    for (const char* title : {"Furniture themes", "Creature themes", "Treasure themes"}) {
        EXPECT_TRUE(std::ranges::all_of(Titled(sections, title).cards, Places)) << title;
    }
    EXPECT_EQ(Named(Titled(sections, "Room tile sets"), "Velothi").map->tileSet, "Velothi");
    const GalleryCard& layout = Named(Titled(sections, "Room layouts"), "Cloister");
    EXPECT_EQ(layout.option, "--fixed --template Cloister");
    EXPECT_EQ(layout.words, "11 x 11 cells");
    std::ostringstream page;
    Report::WriteGallery(sections, "builtin", page);
    EXPECT_TRUE(Contains(page.str(), "</svg> container</li>"));
    EXPECT_TRUE(Contains(page.str(), "aria-label=\"Map of Cloister\""));
}

// The sets for fixed layouts cannot join the rooms of random levels.
TEST_F(GalleryTest, ATileSetWithoutRandomLevelsShowsALayout) {
    const auto sections = Of("builtin:grottoes", {});
    for (const char* title : {"Cave tile sets", "Cave layouts"}) {
        const GallerySection& section = Titled(sections, title);
        EXPECT_TRUE(std::ranges::all_of(section.cards, HasPicture)) << title;
    }
    EXPECT_EQ(Named(Titled(sections, "Cave tile sets"), "Lava cave rooms").map->tileSet,
              "Lava cave rooms");
}

TEST_F(GalleryTest, AThemeTellsWhatItPlacesAndHowOften) {
    Theme& theme = *manager.config.themes.emplace_back(MakeDi<Theme>());
    theme.SetName("Caf\xE9");
    for (const char* type : {"Furniture", "Rug"}) {
        ThemeItem& item = *theme.items.emplace_back(MakeDi<ThemeItem>());
        item.type = type;
        item.ratio = 0.25F;
    }
    theme.items.front()->uniqueNames = {"table", "chair"};
    theme.items.back()->chance = 0.5F;
    theme.items.back()->minimum = 1;
    theme.items.back()->maximum = 3;
    const auto sections =
        Report::GalleryOf({"mine", {}, Report::OfferedLists(manager), {}}, manager);
    ASSERT_EQ(sections.size(), 1U);
    const GalleryCard& card = sections.front().cards.front();
    EXPECT_EQ(card.name, "Café");
    EXPECT_EQ(card.places,
              (std::vector<std::string>{"Furniture: table, chair; 0.25 for each place",
                                        "Rug: any; 0.25 for each place, by a chance of 50 %, at "
                                        "least 1, at most 3"}));
    EXPECT_FALSE(card.map) << "without a tile set nothing can be made";
}

TEST_F(GalleryTest, ThePageLoadsNothingAndEscapesNames) {
    std::ostringstream out;
    Report::WriteGallery(
        {{"Themes", {{"<script>", "a & b", "--theme '<script>'", std::nullopt, {"Rug: \"x\""}}}}},
        "my<b>.xml",
        out);
    const std::string page = out.str();
    EXPECT_TRUE(Contains(page, "default-src 'none'"));
    EXPECT_TRUE(Contains(page, "&lt;script&gt;"));
    EXPECT_FALSE(Contains(page, "<script"));
    EXPECT_FALSE(Contains(page, "my<b>"));
    EXPECT_TRUE(Contains(page, "<a href=\"#section-0\">Themes</a>"));
    EXPECT_TRUE(Contains(page, "<section id=\"section-0\">"));
    EXPECT_TRUE(Contains(page, "1 kind of things"));
}

} // namespace

} // namespace Tarnex::Test
