// SPDX-License-Identifier: MIT
#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Logger.h>
#include <vaultry/gen/ContainerIds.h>
#include <vaultry/gen/GenMgr.h>
#include <vaultry/gen/LevelObserver.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <tests/gen/GenTest.h>

namespace Tarnex::Test {

namespace {

// Two of everything that has a default, and one of each that has none.
constexpr const char* kFull = R"(<?xml version="1.0"?>
<OstrelData>
  <TileSet TsName="Deep" TsType="Cave"><WallN>cave_wall</WallN></TileSet>
  <TileSet TsName="Stone" TsType="Room"><WallN>stone_wall</WallN></TileSet>
  <TileSet TsName="Wood" TsType="Room"><WallN>wood_wall</WallN></TileSet>
  <Layout LayoutName="Cavern" Type="Cave" Width="1" Height="1"><Row><Col>WallS</Col></Row></Layout>
  <Layout LayoutName="Hut" Type="Room" Width="1" Height="1"><Row><Col>WallN</Col></Row></Layout>
  <Layout LayoutName="Hall" Type="Room" Width="2" Height="1">
    <Row><Col>WallN</Col><Col>WallN</Col></Row>
  </Layout>
  <Theme Name="Poor"/><Theme Name="Rich"/>
  <CreatureTheme Name="Rats"/>
  <TreasureTheme Name="Coins"/><TreasureTheme Name="Gems"/>
</OstrelData>)";

constexpr const char* kCavesOnly = R"(<?xml version="1.0"?>
<OstrelData>
  <TileSet TsName="Deep" TsType="Cave"><WallN>cave_wall</WallN></TileSet>
  <Layout LayoutName="Cavern" Type="Cave" Width="1" Height="1"><Row><Col>WallN</Col></Row></Layout>
</OstrelData>)";

constexpr const char* kNoLayouts = R"(<?xml version="1.0"?>
<OstrelData>
  <TileSet TsName="Stone" TsType="Room"><WallN>stone_wall</WallN></TileSet>
</OstrelData>)";

constexpr const char* kNoTileSets = R"(<?xml version="1.0"?>
<OstrelData>
  <Layout LayoutName="Hut" Type="Room" Width="1" Height="1"><Row><Col>WallN</Col></Row></Layout>
</OstrelData>)";

template <typename T>
std::string NameOf(const DiPtr<T>& object) {
    return object ? object->GetName() : "(none)";
}

class GenMgrTest : public LogTest {
protected:
    GenMgr mgr;

    void Load(const char* document) { mgr.Init(dir.Write("config.xml", document).c_str()); }

    // The five defaults: tile set, template, theme, creature theme, treasure theme.
    Lines Defaults() const {
        return {NameOf(mgr.GetDefaultTileSet()),
                NameOf(mgr.GetDefaultTemplate()),
                NameOf(mgr.GetDefaultTheme()),
                NameOf(mgr.GetDefaultCreatureTheme()),
                NameOf(mgr.GetDefaultTreasureTheme())};
    }

    ModResult Create(const char* file, bool fixedLayout = true, const char* cellName = "Vault") {
        return mgr.CreateMod(dir.File(file).c_str(), cellName, fixedLayout);
    }

    std::string Bytes(const char* file) const { return ReadFile(PathFromUtf8(dir.File(file))); }
    bool Exists(const char* file) const {
        return std::filesystem::exists(PathFromUtf8(dir.File(file)));
    }
};

// Defaults.

TEST_F(GenMgrTest, NewManagerHasNoDefaults) {
    EXPECT_EQ(Defaults(), (Lines{"(none)", "(none)", "(none)", "(none)", "(none)"}));
    EXPECT_TRUE(mgr.GetRoomTileSets().empty());
    EXPECT_EQ(mgr.jobStatus, nullptr);
    EXPECT_FALSE(mgr.addPlatforms);
}

TEST_F(GenMgrTest, FirstOfEachListBecomesTheDefaultButNoCreatureTheme) {
    Load(kFull);
    EXPECT_EQ(Defaults(), (Lines{"Stone", "Hut", "Poor", "(none)", "Coins"}));
    EXPECT_EQ(LogLines(), Lines{"Info : GenMgr : Finished parsing XML config file."});
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(GenMgrTest, DocumentInMemoryServesAsWell) {
    mgr.InitFromMemory(kFull, "built in");
    EXPECT_EQ(Defaults(), (Lines{"Stone", "Hut", "Poor", "(none)", "Coins"}));
}

TEST_F(GenMgrTest, WhatIsReadOfAFileServesFurtherManagers) {
    // An encoding of its own and more than one block.
    const std::string document =
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><OstrelData><Theme Name=\"Gr\xFC"
        "fte\"/><!--" +
        std::string(200'000, 'x') + "--></OstrelData>";
    std::string copy;
    mgr.Init(dir.Write("config.xml", document).c_str(), JobStatus(), &copy);
    EXPECT_EQ(copy, document);
    GenMgr other;
    other.InitFromMemory(copy, "config.xml");
    EXPECT_EQ(NameOf(other.GetDefaultTheme()),
              "Gr\xFC"
              "fte");
}

// Says yes at a wanted question.
class CancelingStatus : public JobStatus {
public:
    explicit CancelingStatus(int cancelAt_) : cancelAt(cancelAt_) {}
    bool HasBeenCanceled() const override { return ++asked >= cancelAt; }
    mutable int asked = 0;

private:
    int cancelAt;
};

std::string LongDocument(const std::string& filler) {
    std::string document = kFull;
    document.insert(document.find("</OstrelData>"), filler);
    return document;
}

std::string Repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

TEST_F(GenMgrTest, ReadingAsksWhateverTheDocumentIsLongOf) {
    // Half a megabyte each; and one that is short to read and long to work through.
    const std::string entity =
        "<!DOCTYPE OstrelData [<!ENTITY many \"" + Repeated("<Theme/>", 1000) + "\">]>";
    const std::string comment = LongDocument("<!--" + std::string(500'000, 'x') + "-->");
    const std::string elements = LongDocument(Repeated("<Theme Name=\"T\"/>", 28'000));
    std::string expanded = LongDocument(Repeated("&many;", 30));
    expanded.insert(expanded.find("<OstrelData>"), entity);
    for (const std::string& document : {comment, elements, expanded}) {
        const CancelingStatus never(1 << 30);
        mgr.Init(dir.Write("config.xml", document).c_str(), never);
        EXPECT_GT(never.asked, 9);
        EXPECT_EQ(Defaults(), (Lines{"Stone", "Hut", "Poor", "(none)", "Coins"}));
        const CancelingStatus later(8);
        mgr.Init(dir.Write("config.xml", document).c_str(), later);
        EXPECT_EQ(later.asked, 8);
        EXPECT_EQ(Defaults(), (Lines{"(none)", "(none)", "(none)", "(none)", "(none)"}));
        mgr.InitFromMemory(document, "built in", never);
        EXPECT_EQ(Defaults(), (Lines{"Stone", "Hut", "Poor", "(none)", "Coins"}));
        const CancelingStatus inMemory(8);
        mgr.InitFromMemory(document, "built in", inMemory);
        EXPECT_EQ(inMemory.asked, 8);
        EXPECT_EQ(Defaults(), (Lines{"(none)", "(none)", "(none)", "(none)", "(none)"}));
    }
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(GenMgrTest, ReadingThatIsCancelledAtOnceLeavesNoConfiguration) {
    Load(kFull);
    const CancelingStatus now(1);
    mgr.Init(dir.Write("config.xml", kFull).c_str(), now);
    EXPECT_EQ(now.asked, 1);
    EXPECT_TRUE(mgr.GetRoomTileSets().empty());
    EXPECT_TRUE(mgr.GetThemes().empty());
    EXPECT_FALSE(mgr.GetDefaultTileSet());
    EXPECT_TRUE(ErrorLines().empty());
    Load(kFull);
    EXPECT_EQ(NameOf(mgr.GetDefaultTileSet()), "Stone");
}

TEST_F(GenMgrTest, CavesNeverBecomeDefaults) {
    Load(kCavesOnly);
    EXPECT_EQ(Defaults(), (Lines{"(none)", "(none)", "(none)", "(none)", "(none)"}));
    EXPECT_EQ(mgr.GetCaveTileSets().size(), 1U);
    EXPECT_EQ(mgr.GetCaveLayouts().size(), 1U);
}

TEST_F(GenMgrTest, LoadingAgainChoosesAgainAndKeepsTheCreatureTheme) {
    Load(kFull);
    mgr.SetDefaultCreatureTheme("Rats");
    mgr.SetDefaultTileSet("Wood", false);
    Load(kFull);
    EXPECT_EQ(Defaults(), (Lines{"Stone", "Hut", "Poor", "Rats", "Coins"}));
    EXPECT_EQ(mgr.GetRoomTileSets().size(), 2U);
    Load(kNoLayouts);
    EXPECT_EQ(Defaults(), (Lines{"Stone", "(none)", "(none)", "Rats", "(none)"}));
    EXPECT_TRUE(mgr.GetCreatureThemes().empty());
}

TEST_F(GenMgrTest, MissingFileLeavesNoDefaultsAndTheFinishingLine) {
    Load(kFull);
    mgr.Init(dir.File("nowhere.xml").c_str());
    EXPECT_EQ(Defaults(), (Lines{"(none)", "(none)", "(none)", "(none)", "(none)"}));
    EXPECT_EQ(ErrorLines().size(), 1U);
    EXPECT_EQ(LogLines().back(), "Info : GenMgr : Finished parsing XML config file.");
}

TEST_F(GenMgrTest, NullCountsAsAnEmptyText) {
    Load(kFull);
    mgr.Init(nullptr);
    EXPECT_EQ(Defaults(), (Lines{"(none)", "(none)", "(none)", "(none)", "(none)"}));
    EXPECT_EQ(ErrorLines().size(), 1U);
    mgr.InitFromMemory(kFull, nullptr);
    EXPECT_EQ(Defaults(), (Lines{"Stone", "Hut", "Poor", "(none)", "Coins"}));
    mgr.SetDefaultTileSet(nullptr, false);
    mgr.SetDefaultTemplate(nullptr, true);
    mgr.SetDefaultTheme(nullptr);
    mgr.SetDefaultCreatureTheme(nullptr);
    mgr.SetDefaultTreasureTheme(nullptr);
    EXPECT_EQ(Defaults(), (Lines{"Stone", "Hut", "(none)", "(none)", "(none)"}));
    EXPECT_EQ(mgr.CreateMod(nullptr, nullptr, true), ModResult::NotWritten);
    ASSERT_EQ(mgr.mod.GetCells().size(), 1U);
    EXPECT_EQ(mgr.mod.GetCells()[0]->GetName(), "");
}

TEST_F(GenMgrTest, ListsAreThoseOfTheConfiguration) {
    Load(kFull);
    EXPECT_EQ(mgr.GetCaveTileSets().size(), 1U);
    EXPECT_EQ(mgr.GetRoomTileSets().size(), 2U);
    EXPECT_EQ(mgr.GetCaveLayouts().size(), 1U);
    EXPECT_EQ(mgr.GetRoomLayouts().size(), 2U);
    EXPECT_EQ(mgr.GetThemes().size(), 2U);
    EXPECT_EQ(mgr.GetCreatureThemes().size(), 1U);
    EXPECT_EQ(mgr.GetTreasureThemes().size(), 2U);
    EXPECT_EQ(&mgr.GetThemes(), &mgr.config.themes);
}

// Setters.

TEST_F(GenMgrTest, TileSetAndTemplateAreChosenByNameAndSort) {
    Load(kFull);
    mgr.SetDefaultTileSet("Wood", false);
    mgr.SetDefaultTemplate("Hall", false);
    EXPECT_EQ(NameOf(mgr.GetDefaultTileSet()), "Wood");
    EXPECT_EQ(NameOf(mgr.GetDefaultTemplate()), "Hall");
    mgr.SetDefaultTileSet("Deep", true);
    mgr.SetDefaultTemplate("Cavern", true);
    EXPECT_EQ(NameOf(mgr.GetDefaultTileSet()), "Deep");
    EXPECT_EQ(NameOf(mgr.GetDefaultTemplate()), "Cavern");
}

TEST_F(GenMgrTest, UnknownTileSetOrTemplateKeepsTheDefault) {
    Load(kFull);
    for (const char* name : {"Glass", "stone", "Stone ", "", "Wood"}) {
        mgr.SetDefaultTileSet(name, true);
        EXPECT_EQ(NameOf(mgr.GetDefaultTileSet()), "Stone") << name;
    }
    for (const char* name : {"Deep", "wood", ""}) {
        mgr.SetDefaultTileSet(name, false);
        EXPECT_EQ(NameOf(mgr.GetDefaultTileSet()), "Stone") << name;
    }
    mgr.SetDefaultTemplate("Hall", true);
    mgr.SetDefaultTemplate("HALL", false);
    mgr.SetDefaultTemplate("Cavern", false);
    EXPECT_EQ(NameOf(mgr.GetDefaultTemplate()), "Hut");
}

TEST_F(GenMgrTest, UnknownThemeClearsTheDefault) {
    Load(kFull);
    mgr.SetDefaultTheme("Rich");
    mgr.SetDefaultCreatureTheme("Rats");
    mgr.SetDefaultTreasureTheme("Gems");
    EXPECT_EQ(Defaults(), (Lines{"Stone", "Hut", "Rich", "Rats", "Gems"}));
    mgr.SetDefaultTheme("rich");
    mgr.SetDefaultCreatureTheme("Gems");
    mgr.SetDefaultTreasureTheme("");
    EXPECT_EQ(Defaults(), (Lines{"Stone", "Hut", "(none)", "(none)", "(none)"}));
}

TEST_F(GenMgrTest, FirstOfSeveralOfOneNameIsChosen) {
    Load(kFull);
    const auto twin = MakeDi<Theme>();
    twin->SetName("Poor");
    mgr.GetThemes().push_back(twin);
    mgr.SetDefaultTheme("Poor");
    EXPECT_EQ(mgr.GetDefaultTheme(), mgr.GetThemes()[0]);
}

TEST_F(GenMgrTest, ParametersAreCopiedAndSwitchesKept) {
    RandomGenInfo wanted;
    wanted.numLevels = 7;
    mgr.SetRandomInfo(wanted);
    wanted.numLevels = 8;
    EXPECT_EQ(mgr.randomInfo.numLevels, 7U);
    JobStatus status;
    mgr.SetJobStatus(&status);
    mgr.SetAddPlatforms(true);
    mgr.SetNameSingleLevel(true);
    EXPECT_EQ(mgr.jobStatus, &status);
    EXPECT_TRUE(mgr.addPlatforms);
    EXPECT_TRUE(mgr.nameSingleLevel);
    mgr.SetJobStatus(nullptr);
    EXPECT_EQ(mgr.jobStatus, nullptr);
}

// Refusals.

TEST_F(GenMgrTest, WithoutATileSetNothingIsGenerated) {
    for (const bool fixedLayout : {true, false}) {
        Logger::ResetErrors();
        EXPECT_EQ(Create("a.esp", fixedLayout), ModResult::Refused);
        EXPECT_EQ(ErrorLines(),
                  Lines{"Error : GenMgr : Unable to generate:  No default tile set."});
    }
    Logger::ResetErrors();
    Load(kNoTileSets);
    EXPECT_EQ(Create("a.esp"), ModResult::Refused);
    EXPECT_EQ(ErrorLines(), Lines{"Error : GenMgr : Unable to generate:  No default tile set."});
    EXPECT_FALSE(Exists("a.esp"));
}

TEST_F(GenMgrTest, WithoutATemplateNothingIsGeneratedNotEvenAtRandom) {
    Load(kNoLayouts);
    for (const bool fixedLayout : {true, false}) {
        Logger::ResetErrors();
        const DrawLog draws;
        EXPECT_EQ(Create("a.esp", fixedLayout), ModResult::Refused);
        EXPECT_EQ(ErrorLines(),
                  Lines{"Error : GenMgr : Unable to generate:  No default layout template."});
        EXPECT_EQ(draws.Bounds(), Draws{});
        EXPECT_FALSE(Exists("a.esp"));
    }
}

TEST_F(GenMgrTest, RefusedRunLeavesThePlugInAndItsFileAsTheyWere) {
    Load(kFull);
    Create("a.esp");
    const std::string before = Bytes("a.esp");
    Load(kNoLayouts);
    EXPECT_EQ(Create("a.esp", true, "Other"), ModResult::Refused);
    EXPECT_EQ(Bytes("a.esp"), before);
    ASSERT_EQ(mgr.mod.GetCells().size(), 1U);
    EXPECT_EQ(mgr.mod.GetCells()[0]->GetName(), "Vault");
    EXPECT_EQ(mgr.cellName, "Vault");
}

// Runs.

TEST_F(GenMgrTest, FixedRunWritesTheDefaultTemplateAsOneCell) {
    Load(kFull);
    EXPECT_EQ(Create("a.esp"), ModResult::Written);
    ASSERT_EQ(mgr.mod.GetCells().size(), 1U);
    EXPECT_EQ(mgr.mod.GetCells()[0]->GetName(), "Vault");
    EXPECT_EQ(RefLines(*mgr.mod.GetCells()[0]),
              (Lines{"NorthMarker 0 -150 0", "stone_wall 0 0 0"}));
    const std::string bytes = Bytes("a.esp");
    EXPECT_EQ(bytes.substr(0, 4), "TES3");
    EXPECT_NE(bytes.find("stone_wall"), std::string::npos);
    EXPECT_EQ(mgr.cellName, "Vault");
}

TEST_F(GenMgrTest, EachRunStartsWithAnEmptyPlugInAndTheSameMaster) {
    Load(kFull);
    mgr.SetMasterFile("Base.esm", 1234);
    EXPECT_EQ(Create("a.esp", true, "First"), ModResult::Written);
    mgr.SetDefaultTemplate("Hall", false);
    EXPECT_EQ(Create("b.esp", true, "Second"), ModResult::Written);
    ASSERT_EQ(mgr.mod.GetCells().size(), 1U);
    EXPECT_EQ(mgr.mod.GetCells()[0]->GetName(), "Second");
    EXPECT_EQ(mgr.mod.GetCells()[0]->GetRefs().size(), 3U);
    EXPECT_NE(Bytes("a.esp").find("First"), std::string::npos);
    EXPECT_EQ(Bytes("b.esp").find("First"), std::string::npos);
    EXPECT_NE(Bytes("a.esp").find("Base.esm"), std::string::npos);
    EXPECT_NE(Bytes("b.esp").find("Base.esm"), std::string::npos);
}

TEST_F(GenMgrTest, LongerFileThatWasThereIsReplacedWhole) {
    Load(kFull);
    Create("a.esp");
    dir.Write("b.esp", std::string(100000, 'x'));
    EXPECT_EQ(Create("b.esp"), ModResult::Written);
    EXPECT_EQ(Bytes("b.esp"), Bytes("a.esp"));
}

TEST_F(GenMgrTest, FirstHalfAloneFillsThePlugInAndWritesNothing) {
    Load(kFull);
    EXPECT_EQ(mgr.Generate("Vault", true), ModResult::Written);
    EXPECT_EQ(mgr.mod.GetCells().size(), 1U);
    EXPECT_FALSE(Exists("a.esp"));
}

TEST_F(GenMgrTest, FileThatCannotBeOpenedIsNotLogged) {
    Load(kFull);
    EXPECT_EQ(Create("no/such/folder/a.esp"), ModResult::NotWritten);
    EXPECT_TRUE(ErrorLines().empty());
    EXPECT_EQ(LogLines().size(), 1U);
}

#ifndef _WIN32
// The plug-in is small enough to wait in memory until the file is closed.
TEST_F(GenMgrTest, FileThatTheDiskDoesNotTakeIsNotWritten) {
    Load(kFull);
    EXPECT_EQ(mgr.Generate("Hall", true), ModResult::Written);
    EXPECT_EQ(mgr.WriteMod("/dev/full"), ModResult::NotWritten);
    EXPECT_EQ(mgr.WriteMod(dir.File("a.esp").c_str()), ModResult::Written);
    EXPECT_EQ(mgr.CreateMod("/dev/full", "Hall", true), ModResult::NotWritten);
}
#endif

TEST_F(GenMgrTest, PathThatIsNotUtf8IsOneThatCannotBeOpened) {
    Load(kFull);
    EXPECT_EQ(mgr.CreateMod("no\xFF\xFEsuch/a.esp", "Hall", true), ModResult::NotWritten);
    EXPECT_TRUE(ErrorLines().empty());
}

class Canceled : public JobStatus {
public:
    bool HasBeenCanceled() const override {
        ++polls;
        return canceled;
    }

    bool canceled = true;
    mutable int polls = 0;
};

TEST_F(GenMgrTest, CanceledRunLeavesNoFile) {
    Load(kFull);
    Canceled status;
    mgr.SetJobStatus(&status);
    for (const bool fixedLayout : {true, false}) {
        EXPECT_EQ(Create("a.esp", fixedLayout), ModResult::Canceled);
        EXPECT_FALSE(Exists("a.esp"));
    }
    dir.Write("b.esp", "old");
    EXPECT_EQ(Create("b.esp"), ModResult::Canceled);
    EXPECT_EQ(Bytes("b.esp"), "old");
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(GenMgrTest, OnlyWhatWasGeneratedWholeIsWritten) {
    const std::string file = dir.File("a.esp");
    EXPECT_EQ(mgr.WriteMod(file.c_str()), ModResult::Refused); // nothing at all
    Load(kFull);
    EXPECT_EQ(mgr.Generate("Vault", true), ModResult::Written);
    EXPECT_EQ(mgr.WriteMod(file.c_str()), ModResult::Written);
    const std::string whole = Bytes("a.esp");
    EXPECT_EQ(mgr.WriteMod(file.c_str()), ModResult::Written);
    Canceled status;
    mgr.SetJobStatus(&status);
    EXPECT_EQ(mgr.Generate("Other", true), ModResult::Canceled);
    EXPECT_EQ(mgr.WriteMod(file.c_str()), ModResult::Refused);
    mgr.SetJobStatus(nullptr);
    Load(kNoLayouts);
    EXPECT_EQ(mgr.Generate("Other", true), ModResult::Refused);
    EXPECT_EQ(mgr.WriteMod(file.c_str()), ModResult::Refused);
    EXPECT_EQ(ErrorLines().back(),
              "Error : GenMgr : Unable to write the plug-in:  Nothing was generated.");
    EXPECT_EQ(Bytes("a.esp"), whole);
    Load(kFull);
    EXPECT_EQ(mgr.Generate("Vault", true), ModResult::Written);
    EXPECT_EQ(mgr.WriteMod(file.c_str()), ModResult::Written);
}

// A caller's object that fails in its own way at one of its calls.
class Failing : public JobStatus, public LevelObserver {
public:
    enum Call { Question, Text, Step, Level };

    explicit Failing(Call failing) : call(failing) {}

    bool HasBeenCanceled() const override { return Fail(Question); }
    void SetText(const std::string& /*text*/) override { Fail(Text); }
    void StepIt() override { Fail(Step); }
    void LevelFinished(const FinishedLevel& /*level*/) override { Fail(Level); }

private:
    bool Fail(Call now) const {
        if (now == call) {
            throw 42;
        }
        return false;
    }

    Call call;
};

TEST_F(GenMgrTest, WhateverACallersObjectThrowsTheRunIsRefused) {
    mgr.Init(VAULTRY_SOURCE_DIR "/data/vaultry.xml");
    for (const Failing::Call call :
         {Failing::Question, Failing::Text, Failing::Step, Failing::Level}) {
        SCOPED_TRACE(call);
        Logger::ResetErrors();
        Failing object(call);
        mgr.SetJobStatus(&object);
        mgr.SetLevelObserver(&object);
        EXPECT_EQ(Create("a.esp", false), ModResult::Refused);
        EXPECT_EQ(ErrorLines(),
                  Lines{"Error : GenMgr : Internal:  Generation failed: unknown exception"});
        EXPECT_EQ(mgr.WriteMod(dir.File("a.esp").c_str()), ModResult::Refused);
        EXPECT_FALSE(Exists("a.esp"));
    }
    // A fixed run asks nobody but at its end.
    Failing object(Failing::Question);
    mgr.SetJobStatus(&object);
    mgr.SetLevelObserver(nullptr);
    EXPECT_EQ(Create("a.esp", true), ModResult::Refused);
    mgr.SetJobStatus(nullptr);
    EXPECT_EQ(Create("a.esp", false), ModResult::Written);
}

TEST_F(GenMgrTest, StatusThatThrowsWhileAConfigurationIsReadLeavesNone) {
    const Failing status(Failing::Question);
    mgr.Init(dir.Write("config.xml", kFull).c_str(), status);
    EXPECT_EQ(Defaults(), (Lines{"(none)", "(none)", "(none)", "(none)", "(none)"}));
}

TEST_F(GenMgrTest, FixedRunAsksOnceWhetherItWasCanceled) {
    Load(kFull);
    Canceled status;
    status.canceled = false;
    mgr.SetJobStatus(&status);
    EXPECT_EQ(Create("a.esp"), ModResult::Written);
    EXPECT_EQ(status.polls, 1);
    EXPECT_TRUE(Exists("a.esp"));
}

TEST_F(GenMgrTest, ThemesOutliveTheConfigurationTheyCameFrom) {
    Load(kFull);
    mgr.SetDefaultCreatureTheme("Rats");
    Load(kNoLayouts);
    EXPECT_EQ(NameOf(mgr.GetDefaultCreatureTheme()), "Rats");
}

// Chance.

TEST_F(GenMgrTest, SameSeedAndStampRepeatARunToTheByte) {
    Load(R"(<?xml version="1.0"?>
<OstrelData>
  <TileSet TsName="Stone" TsType="Room"><WallN>wall</WallN></TileSet>
  <Layout LayoutName="Hall" Type="Room" Width="4" Height="1">
    <Row><Col>WallN</Col><Col>WallN</Col><Col>WallN</Col><Col>WallN</Col></Row>
  </Layout>
  <Container UniqueName="chest" FName="Chest" ModelFile="c.nif" Weight="50"/>
  <Furniture UniqueName="bed"/>
  <Treasure UniqueName="ruby" Type="Gem" Max="9"/>
  <Theme Name="Plain">
    <ThemeItem Type="Container" Ratio="0.5" Chance="0.5"/>
    <ThemeItem Type="Furniture" Ratio="0.5" Chance="0.5" Min="1"/>
  </Theme>
  <TreasureTheme Name="Gems"><ThemeItem Type="Gem" Ratio="2" Chance="0.7"/></TreasureTheme>
</OstrelData>)");
    const auto run = [this](std::uint32_t seed, const char* file) {
        SeedRandom(seed);
        SetContainerStamp(1000);
        EXPECT_EQ(Create(file), ModResult::Written);
        return Bytes(file);
    };
    const std::string first = run(42, "a.esp");
    EXPECT_EQ(run(42, "b.esp"), first);
    bool varied = false;
    for (std::uint32_t seed = 0; seed < 10; ++seed) {
        varied = varied || run(seed, "c.esp") != first;
    }
    EXPECT_TRUE(varied);
}

#if GTEST_HAS_DEATH_TEST

// In a process of its own: the draw of a new manager is that of the current time as seed.
[[noreturn]] void CheckSeeding() {
    const auto before = static_cast<std::uint32_t>(std::time(nullptr));
    const GenMgr mgr;
    const std::int32_t draw = RandomInt(32768);
    const auto after = static_cast<std::uint32_t>(std::time(nullptr));
    for (std::uint32_t seed = before; seed <= after; ++seed) {
        SeedRandom(seed);
        if (RandomInt(32768) == draw) {
            std::exit(0);
        }
    }
    std::exit(1);
}

TEST(GenMgrSeedTest, ConstructorSeedsWithTheCurrentTime) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(CheckSeeding(), ::testing::ExitedWithCode(0), "");
}

#endif

} // namespace

} // namespace Tarnex::Test
