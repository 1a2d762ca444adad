// SPDX-License-Identifier: MIT
#include "tests/support/TempDir.h"

#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/Random.h>
#include <vaultry/foundation/Utf8.h>
#include <vaultry/gen/ContainerIds.h>
#include <vaultry/gen/GenMgr.h>
#include <vaultry/vaultry.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <csignal>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#ifndef _WIN32
#include <sys/resource.h>
#include <sys/stat.h>
#endif

namespace Tarnex::Test {

namespace {

constexpr const char* kConfig = VAULTRY_SOURCE_DIR "/data/vaultry.xml";
constexpr const char* kCaves = VAULTRY_SOURCE_DIR "/data/caves.xml";

class CInterfaceTest : public ::testing::Test {
protected:
    CInterfaceTest() { Logger::InitWithoutFile(); } // of managers beside the generator
    ~CInterfaceTest() override {
        vaultry_destroy(generator);
        Logger::Close();
        Logger::ResetErrors();
    }

    void Set(const char* option, const char* value) {
        ASSERT_EQ(vaultry_set(generator, option, value), VAULTRY_OK) << vaultry_error(generator, 0);
    }

    // What is said of a wrong value.
    std::string FaultOf(const char* option, const char* value) {
        EXPECT_EQ(vaultry_set(generator, option, value), VAULTRY_BAD_ARGUMENT);
        EXPECT_EQ(vaultry_error_count(generator), 1U);
        const char* fault = vaultry_error(generator, 0);
        return fault == nullptr ? "" : fault;
    }

    // Narrow tunnels, some of whose levels are given up with an error.
    void AskForLevelsThatCannotBeJoined() {
        ASSERT_EQ(vaultry_init(generator, VAULTRY_SOURCE_DIR "/data/caves.xml"), VAULTRY_OK);
        Set("cave-tileset", "Mold cave tunnels");
        Set("size", "large");
        Set("spacing", "tight");
        Set("levels", "3");
        Set("seed", "128");
    }

    std::string Generate() {
        const std::string file = dir.File("made.esp");
        EXPECT_EQ(vaultry_generate(generator, file.c_str()), VAULTRY_OK);
        return ReadFile(file);
    }

    nlohmann::json RunJson() { return nlohmann::json::parse(vaultry_run_json(generator)); }

    TempDir dir;
    vaultry_generator* generator = vaultry_create();
};

TEST_F(CInterfaceTest, WritesWhatTheLibraryWrites) {
    ASSERT_EQ(vaultry_init(generator, kConfig), VAULTRY_OK);
    Set("seed", "7");
    Set("stamp", "1000");
    Set("levels", "2");
    Set("size", "Medium");
    Set("spacing", "tight");
    Set("random-tileset", "true");
    Set("cell", "Keep");
    const std::string made = Generate();

    GenMgr manager;
    manager.Init(kConfig);
    RandomGenInfo random;
    random.numLevels = 2;
    random.levelSize = RandomGenInfo::Medium;
    random.roomSpacing = RandomGenInfo::Tight;
    random.randomTileSet = true;
    manager.SetRandomInfo(random);
    manager.SetNameSingleLevel(true);
    SetContainerStamp(1000);
    SeedRandom(7);
    const std::string file = dir.File("expected.esp");
    ASSERT_EQ(manager.CreateMod(file.c_str(), "Keep", false), ModResult::Written);
    EXPECT_EQ(made, ReadFile(file));
}

TEST_F(CInterfaceTest, SeedAndStampOfARunRepeatIt) {
    ASSERT_EQ(vaultry_init(generator, kConfig), VAULTRY_OK);
    const std::string first = Generate();
    Set("seed", std::to_string(vaultry_last_seed(generator)).c_str());
    Set("stamp", std::to_string(vaultry_last_stamp(generator)).c_str());
    EXPECT_EQ(Generate(), first);
}

TEST_F(CInterfaceTest, RunsWithoutASeedDiffer) {
    ASSERT_EQ(vaultry_init(generator, kConfig), VAULTRY_OK);
    std::set<std::uint32_t> seeds;
    for (int i = 0; i < 4; ++i) {
        Generate();
        seeds.insert(vaultry_last_seed(generator));
    }
    EXPECT_GT(seeds.size(), 1U);
}

TEST_F(CInterfaceTest, ReadsAConfigurationHeldInMemory) {
    const std::string text = ReadFile(kConfig);
    ASSERT_EQ(vaultry_init_from_memory(generator, text.data(), text.size(), "memory"), VAULTRY_OK);
    Set("seed", "7");
    Set("stamp", "1000");
    const std::string made = Generate();
    ASSERT_EQ(vaultry_init(generator, kConfig), VAULTRY_OK);
    EXPECT_EQ(Generate(), made);
}

TEST_F(CInterfaceTest, AnotherConfigurationForgetsTheNames) {
    ASSERT_EQ(vaultry_init(generator, kConfig), VAULTRY_OK);
    Set("seed", "7");
    Set("stamp", "1000");
    const std::string without = Generate();
    Set("creature-theme", "Undead");
    EXPECT_NE(Generate(), without);
    ASSERT_EQ(vaultry_init(generator, kConfig), VAULTRY_OK);
    EXPECT_EQ(Generate(), without);
}

TEST_F(CInterfaceTest, AFileThatIsNotThereIsRefused) {
    const std::string file = dir.File("none.xml");
    EXPECT_EQ(vaultry_init(generator, file.c_str()), VAULTRY_REFUSED);
    ASSERT_EQ(vaultry_error_count(generator), 1U);
    EXPECT_NE(std::string(vaultry_error(generator, 0)).find("none.xml"), std::string::npos);
    EXPECT_EQ(vaultry_error(generator, 1), nullptr);
}

TEST_F(CInterfaceTest, AGeneratorWithoutAConfigurationWritesNothing) {
    const std::string file = dir.File("made.esp");
    EXPECT_EQ(vaultry_generate(generator, file.c_str()), VAULTRY_REFUSED);
    EXPECT_GT(vaultry_error_count(generator), 0U);
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(CInterfaceTest, AWalkableDungeonIsLookedForAmongFurtherSeeds) {
    AskForLevelsThatCannotBeJoined();
    Generate();
    EXPECT_EQ(vaultry_last_seed(generator), 128U);
    Set("ensure-walkable", "true");
    Generate();
    EXPECT_NE(vaultry_last_seed(generator), 128U);
    EXPECT_EQ(RunJson().at("walkable"), true);
}

TEST_F(CInterfaceTest, ErrorsOfARunStandBeforeWhyItWasNotWritten) {
    AskForLevelsThatCannotBeJoined();
    Generate();
    const std::size_t errors = vaultry_error_count(generator);
    ASSERT_GT(errors, 0U);
    const std::string file = dir.File("none/made.esp");
    EXPECT_EQ(vaultry_generate(generator, file.c_str()), VAULTRY_NOT_WRITTEN);
    ASSERT_EQ(vaultry_error_count(generator), errors + 1);
    EXPECT_EQ(vaultry_error(generator, errors),
              "the output file \"" + file + "\": its folder does not exist");
}

TEST_F(CInterfaceTest, StrictCountsTheErrorsOfTheConfiguration) {
    const std::string config = "<OstrelData><TileSet TsName=\"A\" TsType=\"Room\">"
                               "<WallN>w</WallN></TileSet>"
                               "<Layout LayoutName=\"L\" Type=\"Room\" Width=\"1\" Height=\"1\">"
                               "<Row><Col>WallN</Col></Row></Layout>"
                               "<Layout LayoutName=\"M\" Type=\"Romo\"/></OstrelData>";
    ASSERT_EQ(vaultry_init_from_memory(generator, config.data(), config.size(), "odd"), VAULTRY_OK);
    ASSERT_EQ(vaultry_error_count(generator), 1U);
    Set("fixed", "true");
    Generate();
    Set("strict", "true");
    const std::string file = dir.File("strict.esp");
    EXPECT_EQ(vaultry_generate(generator, file.c_str()), VAULTRY_REFUSED);
    EXPECT_EQ(vaultry_error_count(generator), 1U);
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(CInterfaceTest, StrictWritesNothingWhenThereWasAnErrorEvenWhileWriting) {
    const std::string config =
        "<OstrelData><TileSet TsName=\"A\" TsType=\"Room\"><WallN>w</WallN></TileSet>"
        "<Layout LayoutName=\"L\" Type=\"Room\" Width=\"1\" Height=\"1\">"
        "<Row><Col>WallN</Col></Row></Layout>"
        "<Container UniqueName=\"chest\" Weight=\"100\"/>"
        "<Treasure UniqueName=\"an_identifier_longer_than_31_bytes\" Type=\"Gold\"/>"
        "<Theme Name=\"T\"><ThemeItem Type=\"Container\" UniqueName=\"chest\"/></Theme>"
        "<TreasureTheme Name=\"G\"><ThemeItem Type=\"Gold\"/></TreasureTheme></OstrelData>";
    ASSERT_EQ(vaultry_init_from_memory(generator, config.data(), config.size(), "long"),
              VAULTRY_OK);
    Set("fixed", "true");
    Set("strict", "true");
    const std::string file = dir.File("made.esp");
    EXPECT_EQ(vaultry_generate(generator, file.c_str()), VAULTRY_REFUSED);
    EXPECT_GT(vaultry_error_count(generator), 0U);
    EXPECT_FALSE(std::filesystem::exists(file));
    Set("strict", "false");
    Generate();
}

TEST_F(CInterfaceTest, AFolderThatIsNotThereIsNotWrittenTo) {
    ASSERT_EQ(vaultry_init(generator, kConfig), VAULTRY_OK);
    const std::string file = dir.File("none/made.esp");
    EXPECT_EQ(vaultry_generate(generator, file.c_str()), VAULTRY_NOT_WRITTEN);
    ASSERT_EQ(vaultry_error_count(generator), 1U);
    EXPECT_EQ(vaultry_error(generator, 0),
              "the output file \"" + file + "\": its folder does not exist");
}

// The limit on the size of files stands for a full disk.
#ifndef _WIN32
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &old);
        const rlimit less{bytes, old.rlim_max};
        setrlimit(RLIMIT_FSIZE, &less);
        std::signal(SIGXFSZ, SIG_IGN);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &old);
        std::signal(SIGXFSZ, SIG_DFL);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit old{};
};

TEST_F(CInterfaceTest, ADiskThatIsFullKeepsTheFileThatIsThere) {
    ASSERT_EQ(vaultry_init(generator, kConfig), VAULTRY_OK);
    Set("seed", "3");
    Set("size", "large"); // and so larger than the disk
    const std::string old = Generate();
    const std::string file = dir.File("made.esp");
    {
        const FullDisk disk(8192);
        EXPECT_EQ(vaultry_generate(generator, file.c_str()), VAULTRY_NOT_WRITTEN);
    }
    ASSERT_EQ(vaultry_error_count(generator), 1U);
    EXPECT_EQ(vaultry_error(generator, 0),
              '"' + file + "\" could not be written: it would be larger than a file may be");
    EXPECT_TRUE(ReadFile(file) == old);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.Path()), {}), 1);
    EXPECT_EQ(Generate().substr(0, 4), "TES3");
}

TEST_F(CInterfaceTest, APipeIsNotWrittenTo) {
    ASSERT_EQ(vaultry_init(generator, kConfig), VAULTRY_OK);
    const std::string pipe = dir.File("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(vaultry_generate(generator, pipe.c_str()), VAULTRY_NOT_WRITTEN);
    EXPECT_EQ(vaultry_error(generator, 0), "the output file \"" + pipe + "\" is no ordinary file");
}
#endif

TEST_F(CInterfaceTest, WritingCanBeCancelledToo) {
    ASSERT_EQ(vaultry_init(generator, kConfig), VAULTRY_OK);
    const std::string old = Generate();
    // Nothing is asked any more when the last step is under way, but before the file is written.
    Set("seed", "7");
    Set("size", "Large");
    int asked = 0;
    const auto count = [](void* context, const char*, std::int32_t, std::int32_t) {
        ++*static_cast<int*>(context);
        return 0;
    };
    vaultry_set_progress(generator, count, &asked);
    const std::string whole = Generate();
    int left = asked;
    const auto stopLast = [](void* context, const char*, std::int32_t, std::int32_t) {
        return --*static_cast<int*>(context) == 0 ? 1 : 0;
    };
    vaultry_set_progress(generator, stopLast, &left);
    dir.Write("made.esp", old);
    EXPECT_EQ(vaultry_generate(generator, dir.File("made.esp").c_str()), VAULTRY_CANCELED);
    EXPECT_TRUE(ReadFile(dir.File("made.esp")) == old);
}

TEST_F(CInterfaceTest, WrongValuesAreExplained) {
    ASSERT_EQ(vaultry_init(generator, kConfig), VAULTRY_OK);
    EXPECT_EQ(FaultOf("depth", "1"), "there is no option \"depth\"");
    EXPECT_EQ(FaultOf("levels", "0"), "levels: \"0\" is not a whole number from 1 to 1000");
    EXPECT_EQ(FaultOf("seed", "-1"), "seed: \"-1\" is not a whole number from 0 to 4294967295");
    EXPECT_EQ(FaultOf("seed", "7 "), "seed: \"7 \" is not a whole number from 0 to 4294967295");
    EXPECT_EQ(FaultOf("stamp", "x"),
              "stamp: \"x\" is not a whole number from 0 to 9223372036854775807");
    EXPECT_EQ(FaultOf("fixed", "yes"), "fixed: \"yes\" is not \"true\" or \"false\"");
    EXPECT_EQ(FaultOf("size", "Huge"),
              "size: \"Huge\" is none of Random, Tiny, Small, Medium, Large");
    EXPECT_EQ(FaultOf("theme", "Nobody's"),
              "theme: \"Nobody's\" is not a name of the configuration");
    EXPECT_EQ(FaultOf("cell", ""), "cell: \"\" is not a text");
}

TEST_F(CInterfaceTest, NullTextsCountAsEmpty) {
    EXPECT_EQ(vaultry_init(generator, nullptr), VAULTRY_REFUSED);
    EXPECT_EQ(vaultry_init_from_memory(generator, nullptr, 9, nullptr), VAULTRY_REFUSED);
    EXPECT_EQ(FaultOf(nullptr, nullptr), "there is no option \"\"");
    ASSERT_EQ(vaultry_init(generator, kConfig), VAULTRY_OK);
    EXPECT_EQ(vaultry_generate(generator, nullptr), VAULTRY_NOT_WRITTEN);
    vaultry_destroy(nullptr);
}

// Every option, with a value that it takes; a name belongs to the configuration read last.
TEST_F(CInterfaceTest, TakesEveryOptionThatItLists) {
    const std::map<std::string, std::vector<const char*>> values = {
        {"cell", {"The Old Keep"}},
        {"fixed", {"true", "false"}},
        {"platforms", {"true", "false"}},
        {"levels", {"1", "1000"}},
        {"min-level", {"0", "4294967295"}},
        {"max-level", {"0", "4294967295"}},
        {"size", {"Random", "tiny", "SMALL", "Medium", "Large"}},
        {"spacing", {"Random", "Tight", "Semi-tight", "Semi-loose", "Loose"}},
        {"random-tileset", {"true", "false"}},
        {"random-theme", {"true", "false"}},
        {"random-creature-theme", {"true", "false"}},
        {"random-treasure-theme", {"true", "false"}},
        {"master", {"Other.esm"}},
        {"master-size", {"0", "4294967295"}},
        {"seed", {"0", "4294967295"}},
        {"stamp", {"0", "9223372036854775807"}},
        {"lock", {"0", "100"}},
        {"lock-levels", {"1..100", "7..7"}},
        {"ids", {"any file.csv"}},
        {"entrance", {"1000,-500", "1,2,3,4"}},
        {"entrance-cell", {"Some Cellar"}},
        {"entrance-region", {"West Gash"}},
        {"game", {"some folder"}},
    };
    ASSERT_EQ(vaultry_init(generator, kConfig), VAULTRY_OK);
    for (std::size_t i = 0; vaultry_option(i) != nullptr; ++i) {
        const auto row = values.find(vaultry_option(i));
        if (row == values.end()) {
            FaultOf(vaultry_option(i), "Nobody's");
            continue;
        }
        for (const char* value : row->second) {
            Set(vaultry_option(i), value);
        }
    }
}

TEST_F(CInterfaceTest, NamesChooseWhatTheyName) {
    ASSERT_EQ(vaultry_init(generator, kCaves), VAULTRY_OK);
    Set("cave-tileset", "Mold cave tunnels");
    Set("seed", "7");
    Generate();
    GenMgr manager;
    manager.Init(kConfig);
    ASSERT_EQ(vaultry_init(generator, kConfig), VAULTRY_OK);
    Set("tileset", manager.GetRoomTileSets().back()->GetName().c_str());
    Set("template", manager.GetRoomLayouts().back()->GetName().c_str());
    Set("theme", manager.GetThemes().back()->GetName().c_str());
    Set("treasure-theme", manager.GetTreasureThemes().back()->GetName().c_str());
    Set("fixed", "true");
    Generate();
    EXPECT_TRUE(RunJson().at("walkable").is_null());
    EXPECT_TRUE(RunJson().at("levels").empty());
}

TEST_F(CInterfaceTest, TellsHowFarOneCanWalk) {
    ASSERT_EQ(vaultry_init(generator, kConfig), VAULTRY_OK);
    Set("levels", "2");
    Set("seed", "7");
    Generate();
    const auto json = RunJson();
    EXPECT_TRUE(json.at("walkable").is_boolean());
    ASSERT_EQ(json.at("levels").size(), 2U);
    EXPECT_GT(json["levels"][0].at("rooms"), 0);
    EXPECT_EQ(json["levels"][1].at("level"), 2);
}

struct Heard {
    std::set<std::string> texts;
    std::int32_t last = 0;
    std::int32_t steps = 0;
    int answers = 0;
    int stopAfter = -1;
};

int Hear(void* context, const char* text, std::int32_t position, std::int32_t steps) {
    auto& heard = *static_cast<Heard*>(context);
    heard.texts.insert(text);
    heard.last = position;
    heard.steps = steps;
    return ++heard.answers == heard.stopAfter ? 1 : 0;
}

TEST_F(CInterfaceTest, ShowsItsProgress) {
    Heard heard;
    ASSERT_EQ(vaultry_init(generator, kConfig), VAULTRY_OK);
    vaultry_set_progress(generator, Hear, &heard);
    Set("levels", "3");
    Generate();
    EXPECT_TRUE(heard.texts.count("Generating Layouts"));
    EXPECT_TRUE(heard.texts.count("Adding Content"));
    EXPECT_EQ(heard.last, 3);
    EXPECT_EQ(heard.steps, 3);
    const int answers = heard.answers;
    vaultry_set_progress(generator, nullptr, nullptr);
    Generate();
    EXPECT_EQ(heard.answers, answers);
}

TEST_F(CInterfaceTest, StopsWhenAskedAndGoesOnTheNextTime) {
    Heard heard;
    heard.stopAfter = 2;
    ASSERT_EQ(vaultry_init(generator, kConfig), VAULTRY_OK);
    vaultry_set_progress(generator, Hear, &heard);
    const std::string file = dir.File("made.esp");
    EXPECT_EQ(vaultry_generate(generator, file.c_str()), VAULTRY_CANCELED);
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_EQ(vaultry_generate(generator, file.c_str()), VAULTRY_OK);
}

TEST_F(CInterfaceTest, TextsAreUtf8) {
    ASSERT_EQ(vaultry_init(generator, kConfig), VAULTRY_OK);
    Set("cell",
        "Gr\xC3\xBC"
        "ft");
    EXPECT_NE(Generate().find("Gr\xFC"
                              "ft"),
              std::string::npos);
    EXPECT_EQ(FaultOf("theme", "\xC3\xBC"),
              "theme: \"\xC3\xBC\" is not a name of the configuration");
}

TEST_F(CInterfaceTest, NamesAreFoundInUtf8WhateverTheEncodingOfTheConfiguration) {
    const std::string config = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>"
                               "<OstrelData><Theme Name=\"Gr\xFC"
                               "ft\"/></OstrelData>";
    EXPECT_EQ(vaultry_init_from_memory(generator, config.data(), config.size(), "odd"),
              VAULTRY_REFUSED); // it holds no tile set
    Set("theme",
        "Gr\xC3\xBC"
        "ft");
    EXPECT_NE(FaultOf("theme",
                      "Gr\xFC"
                      "ft"),
              "");
}

TEST_F(CInterfaceTest, ANumberOneBeyondItsBoundsIsRefusedAndChangesNothing) {
    const std::map<std::string, const char*> beyond = {
        {"levels", "1001"},
        {"min-level", "4294967296"},
        {"max-level", "4294967296"},
        {"master-size", "4294967296"},
        {"seed", "4294967296"},
        {"stamp", "9223372036854775808"},
    };
    ASSERT_EQ(vaultry_init(generator, kConfig), VAULTRY_OK);
    Set("seed", "7");
    Set("stamp", "9223372036854775807");
    const std::string made = Generate();
    EXPECT_EQ(vaultry_last_stamp(generator), INT64_MAX);
    for (const auto& [option, value] : beyond) {
        EXPECT_NE(FaultOf(option.c_str(), value).find("is not a whole number from "),
                  std::string::npos);
        FaultOf(option.c_str(), "-1");
    }
    EXPECT_EQ(Generate(), made);
}

TEST_F(CInterfaceTest, LettersThatTheGameLacksAreNamed) {
    ASSERT_EQ(vaultry_init(generator, kConfig), VAULTRY_OK);
    Set("cell", "Keep");
    EXPECT_EQ(FaultOf("cell", "\xCE\xA9 or \xE6\xB0\xB4 or \xCE\xA9?"),
              "cell: \"\xCE\xA9 or \xE6\xB0\xB4 or \xCE\xA9?\" has letters that the game lacks: "
              "\xCE\xA9, \xE6\xB0\xB4");
    EXPECT_NE(FaultOf("master", "\xCE\xA9.esm").find("lacks: \xCE\xA9"), std::string::npos);
    EXPECT_NE(Generate().find("Keep"), std::string::npos);
}

// A letter that the game lacks is none of its question marks.
TEST_F(CInterfaceTest, ANameWithALetterThatTheGameLacksIsNoName) {
    const std::string config = "<OstrelData><Theme Name=\"Why?\"/></OstrelData>";
    vaultry_init_from_memory(generator, config.data(), config.size(), "why");
    Set("theme", "Why?");
    EXPECT_NE(FaultOf("theme", "Why\xCE\xA9"), "");
}

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        if (TakeUtf8(text) == kMalformed) {
            return false;
        }
    }
    return true;
}

TEST_F(CInterfaceTest, ErrorsAreUtf8WhateverTheyQuote) {
    const std::string config = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><OstrelData>"
                               "<Layout LayoutName=\"Gr\xFC"
                               "ft\" Type=\"Romo\"/></OstrelData>";
    vaultry_init_from_memory(generator, config.data(), config.size(), "odd");
    ASSERT_EQ(vaultry_error_count(generator), 1U);
    EXPECT_NE(std::string(vaultry_error(generator, 0))
                  .find("Gr\xC3\xBC"
                        "ft"),
              std::string::npos);
    const std::string fault = FaultOf("theme", "a\xFC\xC3");
    EXPECT_TRUE(IsUtf8(fault)) << fault;
    const std::string file = dir.File("none") + "/\xFC.esp";
    ASSERT_EQ(vaultry_init(generator, kConfig), VAULTRY_OK);
    EXPECT_EQ(vaultry_generate(generator, file.c_str()), VAULTRY_NOT_WRITTEN);
    EXPECT_TRUE(IsUtf8(vaultry_error(generator, 0))) << vaultry_error(generator, 0);
}

TEST_F(CInterfaceTest, AnErrorIsOneLine) {
    EXPECT_EQ(FaultOf("de\npth", "1"), "there is no option \"de?pth\"");
}

TEST_F(CInterfaceTest, TellsItsVersion) {
    EXPECT_NE(std::string(vaultry_version()).find('.'), std::string::npos);
}

} // namespace

} // namespace Tarnex::Test
