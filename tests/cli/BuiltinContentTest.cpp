// SPDX-License-Identifier: MIT
// What the built-in configurations hold, and that every part of it can be used.
#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/Random.h>
#include <vaultry/foundation/Text.h>
#include <vaultry/gen/GenMgr.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <tests/support/TempDir.h>
#include <vector>

namespace Tarnex::Test {

namespace {

using Names = std::vector<std::string>;

// The fields of the game hold 32 bytes, the last of them the end of the text.
constexpr std::size_t kMaxField = 31;

// The kinds and treasure subtypes by which content is filed.
constexpr std::array kContentLists = {"Container",
                                      "Creature",
                                      "Furniture",
                                      "Rug",
                                      "Tapestry",
                                      "Armor",
                                      "Book",
                                      "Clothing",
                                      "Gem",
                                      "Gold",
                                      "Ingredient",
                                      "Misc",
                                      "Tool",
                                      "Weapon"};

// Tiles that stand for no kind and are there for the layouts of users.
const std::set<std::string> kExtraTiles = {"ExitN", "ExitDoorN"};

std::string DataFile(const char* name) {
    return (std::filesystem::path(VAULTRY_SOURCE_DIR) / "data" / name).string();
}

void ExpectField(const std::string& text) {
    EXPECT_FALSE(text.empty());
    EXPECT_LE(text.size(), kMaxField) << text;
    EXPECT_TRUE(std::ranges::all_of(text, [](char c) { return c >= ' ' && c <= '~'; })) << text;
}

// The names of the tiles in the text of all tile sets.
std::set<std::string> TileTags(const std::string& text) {
    static const std::regex tag("<([A-Za-z][A-Za-z0-9_]*)");
    std::set<std::string> names;
    std::size_t start = text.find("<TileSet ");
    while (start != std::string::npos) {
        const std::size_t end = text.find("</TileSet>", start);
        const std::string part = text.substr(start, end - start);
        for (std::sregex_iterator it(part.begin(), part.end(), tag), last; it != last; ++it) {
            names.insert((*it)[1]);
        }
        start = text.find("<TileSet ", end);
    }
    names.erase("TileSet");
    return names;
}

template <typename T>
Names NamesOf(const std::vector<DiPtr<T>>& list) {
    Names names;
    for (const DiPtr<T>& entry : list) {
        names.push_back(entry->GetName());
    }
    return names;
}

template <typename T>
void ExpectUniqueNames(const std::vector<DiPtr<T>>& list) {
    std::set<std::string> seen;
    for (const std::string& name : NamesOf(list)) {
        EXPECT_FALSE(name.empty());
        EXPECT_TRUE(seen.insert(ToUpper(name)).second) << name;
    }
}

void ExpectTiles(const LayoutTemplate& layout, const TileSet& set) {
    for (std::uint32_t row = 0; row < layout.GetHeight(); ++row) {
        for (std::uint32_t col = 0; col < layout.GetWidth(); ++col) {
            const DiPtr<TemplateElmt> elmt = layout.GetElmt(row, col);
            for (const TileKindName& name : elmt ? elmt->tileNames : std::vector<TileKindName>()) {
                EXPECT_TRUE(set.Get(name))
                    << layout.GetName() << " asks " << set.GetName() << " for " << name.Text();
            }
        }
    }
    for (const DiPtr<LayoutTemplate>& child : layout.GetChildren()) {
        ExpectTiles(*child, set);
    }
}

void ExpectTiles(const std::vector<DiPtr<LayoutTemplate>>& layouts,
                 const std::vector<DiPtr<TileSet>>& sets) {
    for (const DiPtr<LayoutTemplate>& layout : layouts) {
        for (const DiPtr<TileSet>& set : sets) {
            ExpectTiles(*layout, *set);
        }
    }
}

// Keeps the log off the disk and the list of errors its own.
class ContentFixture : public ::testing::Test {
protected:
    ContentFixture() {
        Logger::Close();
        Logger::ResetErrors();
        Logger::InitWithoutFile();
    }
    ~ContentFixture() override {
        Logger::Close();
        Logger::ResetErrors();
    }

    void Load(const char* name) { mgr.Init(DataFile(name).c_str()); }

    static void ExpectNoErrors() { EXPECT_EQ(Logger::GetErrors(), Names()); }

    // Generates once; a complaint is reported once, under the run that it comes from.
    void ExpectRun(bool fixedLayout, std::uint32_t seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        SeedRandom(seed);
        EXPECT_TRUE(mgr.Generate("Crypt", fixedLayout) == ModResult::Written);
        ExpectNoErrors();
        Logger::ResetErrors();
    }

    void ExpectRuns(bool fixedLayout, std::uint32_t seeds) {
        for (std::uint32_t seed = 1; seed <= seeds; ++seed) {
            ExpectRun(fixedLayout, seed);
        }
    }

    // Generates every layout of a type with every tile set of that type.
    void ExpectFixedRuns(bool cave, std::uint32_t seeds) {
        const Names layouts = NamesOf(cave ? mgr.GetCaveLayouts() : mgr.GetRoomLayouts());
        const Names sets = NamesOf(cave ? mgr.GetCaveTileSets() : mgr.GetRoomTileSets());
        for (const std::string& set : sets) {
            for (const std::string& layout : layouts) {
                SCOPED_TRACE(set + ", " + layout);
                mgr.SetDefaultTileSet(set.c_str(), cave);
                mgr.SetDefaultTemplate(layout.c_str(), cave);
                ExpectRuns(true, seeds);
            }
        }
    }

    // Lets a run choose among all tile sets and themes.
    void LeaveEverythingToChance() {
        RandomGenInfo parameters;
        parameters.numLevels = 2;
        parameters.maxLevel = 25;
        parameters.randomTileSet = true;
        parameters.randomTheme = true;
        parameters.randomCreatureTheme = true;
        parameters.randomTreasureTheme = true;
        mgr.SetRandomInfo(parameters);
    }

    const ContentList& Content(const std::string& type) const {
        return mgr.config.contentMgr->GetList(type.c_str());
    }

    void ExpectThemes(const std::vector<DiPtr<Theme>>& themes, const Names& types) const {
        EXPECT_FALSE(themes.empty());
        for (const DiPtr<Theme>& theme : themes) {
            SCOPED_TRACE(theme->GetName());
            EXPECT_FALSE(theme->items.empty());
            for (const DiPtr<ThemeItem>& item : theme->items) {
                const bool known = std::ranges::find(types, item->type) != types.end();
                EXPECT_TRUE(known) << item->type;
                if (known) {
                    ExpectContent(*item);
                }
            }
        }
    }

    GenMgr mgr;

private:
    void ExpectContent(const ThemeItem& item) const {
        const ContentList& list = Content(item.type);
        EXPECT_FALSE(list.empty()) << item.type;
        for (const std::string& name : item.uniqueNames) {
            const DiPtr<ContentTemplate> content = ContentMgr::FindWithUniqueName(name, list);
            EXPECT_TRUE(content) << item.type << " " << name;
            // Birds and fishes are never placed, so a theme that names one would be in error.
            EXPECT_FALSE(content && (content->IsSubtype("Bird") || content->IsSubtype("Fish")))
                << name;
        }
    }
};

class BuiltinContentTest : public ContentFixture,
                           public ::testing::WithParamInterface<const char*> {
protected:
    BuiltinContentTest() { Load(GetParam()); }

    std::string FileText() const { return ReadFile(DataFile(GetParam())); }
};

INSTANTIATE_TEST_SUITE_P(Files,
                         BuiltinContentTest,
                         ::testing::Values("vaultry.xml", "caves.xml", "grottoes.xml"),
                         [](const auto& file) {
                             const std::string name = file.param;
                             return name.substr(0, name.find('.'));
                         });

TEST_P(BuiltinContentTest, LoadsWithoutError) {
    ExpectNoErrors();
    EXPECT_TRUE(mgr.GetDefaultTileSet());
    EXPECT_TRUE(mgr.GetDefaultTemplate());
    EXPECT_TRUE(mgr.GetDefaultTheme());
    EXPECT_TRUE(mgr.GetDefaultTreasureTheme());
}

TEST_P(BuiltinContentTest, EveryLayoutFindsItsTilesInEveryTileSetOfItsType) {
    ExpectTiles(mgr.GetRoomLayouts(), mgr.GetRoomTileSets());
    ExpectTiles(mgr.GetCaveLayouts(), mgr.GetCaveTileSets());
}

TEST_P(BuiltinContentTest, EveryTileIsOfAKnownKindOrAnExtra) {
    const std::set<std::string> tags = TileTags(FileText());
    EXPECT_TRUE(tags.contains("WallN"));
    for (const std::string& tag : tags) {
        EXPECT_TRUE(TileKind::Of(tag).IsKnown() || kExtraTiles.contains(tag)) << tag;
    }
}

TEST_P(BuiltinContentTest, TileIdentifiersFitTheirField) {
    const std::set<std::string> tags = TileTags(FileText());
    for (const auto* sets : {&mgr.GetRoomTileSets(), &mgr.GetCaveTileSets()}) {
        for (const DiPtr<TileSet>& set : *sets) {
            SCOPED_TRACE(set->GetName());
            std::size_t found = 0;
            for (const std::string& tag : tags) {
                if (const DiPtr<Tile>& tile = set->Get(tag)) {
                    ++found;
                    ExpectField(tile->id);
                    EXPECT_TRUE(tile->requiredName.empty() || set->Get(tile->requiredName)) << tag;
                }
            }
            EXPECT_GE(found, 10U);
        }
    }
}

TEST_P(BuiltinContentTest, PlatformIdentifiersFitTheirField) {
    for (const DiPtr<Platform>& platform : mgr.config.platformList) {
        SCOPED_TRACE(platform->GetName());
        for (const char* piece : {"Floor", "Beam"}) {
            ASSERT_TRUE(platform->Get(piece)) << piece;
            ExpectField(platform->Get(piece)->id);
        }
        if (const DiPtr<PlatformTile> stairs = platform->Get("StairsUpN")) {
            ExpectField(stairs->id);
        }
    }
}

TEST_P(BuiltinContentTest, ContentIdentifiersFitTheirField) {
    for (const char* type : kContentLists) {
        for (const DiPtr<ContentTemplate>& content : Content(type)) {
            ExpectField(content->uniqueName);
        }
    }
}

// A plug-in has the identifier alone: what it is of, a map has to find by that.
TEST_P(BuiltinContentTest, WhatStandsInARoomIsOfOneKind) {
    std::set<std::string> seen;
    for (const char* type : {"Creature", "Furniture", "Rug", "Tapestry"}) {
        for (const DiPtr<ContentTemplate>& content : Content(type)) {
            EXPECT_TRUE(seen.insert(ToUpper(content->uniqueName)).second) << content->uniqueName;
        }
    }
}

TEST_P(BuiltinContentTest, ContainersAreNamedAndHaveAModelAndRoom) {
    EXPECT_FALSE(Content("Container").empty());
    for (const DiPtr<ContentTemplate>& container : Content("Container")) {
        SCOPED_TRACE(container->uniqueName);
        ExpectField(container->friendlyName);
        ExpectField(container->modelFile);
        EXPECT_GT(container->weight, 0.0F);
    }
}

// Treasure of an unknown subtype vanishes without a word.
TEST_P(BuiltinContentTest, EveryPieceOfContentIsFiled) {
    static const std::regex piece(
        "<(Container|Creature|Furniture|Rug|Tapestry|Treasure|Armor|Clothing|Weapon)\\s");
    const std::string text = FileText();
    const auto written = std::distance(std::sregex_iterator(text.begin(), text.end(), piece), {});
    std::size_t filed = 0;
    for (const char* type : kContentLists) {
        filed += Content(type).size();
    }
    EXPECT_GT(written, 100);
    EXPECT_EQ(filed, static_cast<std::size_t>(written));
}

TEST_P(BuiltinContentTest, EveryThemeItemFindsItsContent) {
    {
        SCOPED_TRACE("furniture");
        ExpectThemes(mgr.GetThemes(), {"Container", "Furniture", "Rug", "Tapestry"});
    }
    {
        SCOPED_TRACE("creatures");
        ExpectThemes(mgr.GetCreatureThemes(), {"Creature"});
    }
    SCOPED_TRACE("treasure");
    ExpectThemes(
        mgr.GetTreasureThemes(),
        {"Armor", "Book", "Clothing", "Gem", "Gold", "Ingredient", "Misc", "Tool", "Weapon"});
}

// A theme without a level is never chosen by chance.
TEST_P(BuiltinContentTest, EveryThemeHasALevel) {
    for (const auto* themes :
         {&mgr.GetThemes(), &mgr.GetCreatureThemes(), &mgr.GetTreasureThemes()}) {
        for (const DiPtr<Theme>& theme : *themes) {
            EXPECT_GE(theme->level, 1) << theme->GetName();
        }
    }
}

TEST_P(BuiltinContentTest, NamesAreUniqueWithinTheirList) {
    ExpectUniqueNames(mgr.GetRoomTileSets());
    ExpectUniqueNames(mgr.GetCaveTileSets());
    ExpectUniqueNames(mgr.GetRoomLayouts());
    ExpectUniqueNames(mgr.GetCaveLayouts());
    ExpectUniqueNames(mgr.GetThemes());
    ExpectUniqueNames(mgr.GetCreatureThemes());
    ExpectUniqueNames(mgr.GetTreasureThemes());
    ExpectUniqueNames(mgr.config.platformList);
}

// A random choice asks for a range of levels; five of them are what it asks for by itself.
TEST_P(BuiltinContentTest, CreaturesSuitEveryFiveLevelsFrom1To25) {
    const auto hasLevel = [this](std::int32_t lowest, std::int32_t highest) {
        return std::ranges::any_of(mgr.GetCreatureThemes(), [=](const DiPtr<Theme>& theme) {
            return theme->level >= lowest && theme->level <= highest;
        });
    };
    EXPECT_TRUE(hasLevel(1, 1));
    EXPECT_TRUE(hasLevel(25, 25));
    for (std::int32_t lowest = 1; lowest <= 21; ++lowest) {
        EXPECT_TRUE(hasLevel(lowest, lowest + 4)) << "from level " << lowest;
    }
}

TEST_P(BuiltinContentTest, DefaultRandomRunIsFreeOfErrors) {
    ExpectRuns(false, 20);
}

TEST_P(BuiltinContentTest, DefaultFixedRunIsFreeOfErrors) {
    ExpectRuns(true, 20);
}

using DefaultContentTest = ContentFixture;

TEST_F(DefaultContentTest, OffersSixRoomSetsAndTwelveLayouts) {
    Load("vaultry.xml");
    EXPECT_EQ(
        NamesOf(mgr.GetRoomTileSets()),
        (Names{
            "Imperial small", "Velothi", "Common stone", "Common plain", "Hlaalu", "Common rich"}));
    EXPECT_GE(mgr.GetRoomLayouts().size(), 12U);
}

TEST_F(DefaultContentTest, EveryLayoutCanBeBuiltWithEveryTileSet) {
    Load("vaultry.xml");
    ExpectFixedRuns(false, 1);
}

TEST_F(DefaultContentTest, RunsLeftToChanceAreFreeOfErrors) {
    Load("vaultry.xml");
    LeaveEverythingToChance();
    ExpectRuns(false, 20);
}

using CaveContentTest = ContentFixture;

TEST_F(CaveContentTest, OfferFiveKindsOfRockAndSixLayouts) {
    Load("caves.xml");
    EXPECT_EQ(NamesOf(mgr.GetCaveTileSets()),
              (Names{"Mold cave tunnels",
                     "Mud cave tunnels",
                     "Pyroclastic cave tunnels",
                     "Lava cave tunnels",
                     "Bone cave tunnels"}));
    EXPECT_GE(mgr.GetCaveLayouts().size(), 6U);
    Load("grottoes.xml");
    EXPECT_EQ(NamesOf(mgr.GetCaveTileSets()),
              (Names{"Mold cave rooms",
                     "Mud cave rooms",
                     "Pyroclastic cave rooms",
                     "Lava cave rooms",
                     "Bone cave rooms"}));
    EXPECT_GE(mgr.GetCaveLayouts().size(), 6U);
    ExpectNoErrors();
}

TEST_F(CaveContentTest, RandomTunnelsAreFreeOfErrors) {
    Load("caves.xml");
    for (const std::string& set : NamesOf(mgr.GetCaveTileSets())) {
        SCOPED_TRACE(set);
        mgr.SetDefaultTileSet(set.c_str(), true);
        ExpectRuns(false, 10);
    }
}

TEST_F(CaveContentTest, RunsThroughTunnelsLeftToChanceAreFreeOfErrors) {
    Load("caves.xml");
    LeaveEverythingToChance();
    ExpectRuns(false, 20);
}

TEST_F(CaveContentTest, EveryTunnelLayoutCanBeBuiltWithEveryTunnelSet) {
    Load("caves.xml");
    ExpectFixedRuns(true, 1);
}

// Which of the platforms a run raises is left to chance, hence several seeds.
TEST_F(CaveContentTest, EveryGrottoWithPlatformsCanBeBuiltWithEverySet) {
    Load("grottoes.xml");
    EXPECT_FALSE(mgr.config.platformList.empty());
    mgr.SetAddPlatforms(true);
    ExpectFixedRuns(true, 4);
}

} // namespace

} // namespace Tarnex::Test
