// SPDX-License-Identifier: MIT
#include "tests/tools/plugins/SamplePlugin.h"
#include "tools/plugins/DiffReport.h"
#include "tools/plugins/RefMatch.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <limits>
#include <sstream>

namespace Tarnex::Test {

namespace {

using Lines = std::vector<std::string>;

class PluginDiffTest : public ::testing::Test {
protected:
    PluginDiffTest() {
        FillSample(mod);
        a = ReadBack(mod);
        b = a;
    }

    // The differences as "KIND | SUBJECT | TEXT".
    Lines Differences() const {
        Lines lines;
        for (const Report::Difference& d : Report::ComparePlugins(a, b)) {
            lines.push_back(d.kind + " | " + d.subject + " | " + d.text);
        }
        return lines;
    }

    PluginCell& Crypt() { return b.cells.at(0); }
    PluginRef& Door() { return Crypt().refs.at(1); }
    PluginRef& Rug() { return Crypt().refs.at(4); }
    PluginContainer& Chest() { return b.containers.at(0); }

    Mod mod;
    PluginFile a;
    PluginFile b;
};

TEST_F(PluginDiffTest, APluginIsTheSameAsItself) {
    EXPECT_EQ(Differences(), Lines{});
}

TEST_F(PluginDiffTest, TellsOfPathGrids) {
    mod.CreatePathGrid("Crypt")->points = {{0, 0, 0, {1}}, {256, 0, 0, {0}}};
    b = ReadBack(mod);
    EXPECT_EQ(Differences(), (Lines{"path-grid-added | path-grid \"Crypt\" | is new"}));
    std::swap(a, b);
    EXPECT_EQ(Differences(), (Lines{"path-grid-removed | path-grid \"Crypt\" | is missing"}));
    b = a;
    EXPECT_EQ(Differences(), Lines{});
    b.pathGrids.at(0).points[1].z = 1;
    EXPECT_EQ(Differences(),
              (Lines{"path-grid-changed | path-grid \"Crypt\" | has as many points and ways, but "
                     "others"}));
    b.pathGrids[0].points.push_back({});
    EXPECT_EQ(Differences(),
              (Lines{"path-grid-changed | path-grid \"Crypt\" | number of points is 3 instead of "
                     "2"}));
}

// The door into the sample from the world outside.
Ref OuterDoor() {
    Ref place("Crypt");
    Ref door("ex_cave_door_01");
    door.Teleport(place);
    return door;
}

TEST_F(PluginDiffTest, TellsOfCellsOutsideByTheirPlace) {
    mod.CreateWorldCell(WildernessHead(-2, 9, "West Gash"))->AddRef(OuterDoor());
    b = ReadBack(mod);
    EXPECT_EQ(Differences(), (Lines{"exterior-added | exterior \"-2, 9\" | is new"}));
    std::swap(a, b);
    EXPECT_EQ(Differences(), (Lines{"exterior-removed | exterior \"-2, 9\" | is missing"}));
    b = a;
    EXPECT_EQ(Differences(), Lines{});
    b.exteriors.at(0).region = "";
    b.exteriors[0].flags = 6;
    b.exteriors[0].refs.at(0).destination->arrival.position.x = 5;
    EXPECT_EQ(Differences(),
              (Lines{"exterior-changed | exterior \"-2, 9\" | flags is 6 instead of 2",
                     "exterior-changed | exterior \"-2, 9\" | region is \"\" instead of \"West "
                     "Gash\"",
                     "reference-retargeted | exterior \"-2, 9\" | \"ex_cave_door_01\" at (0, 0, "
                     "0) leads to \"Crypt\" at (5, 0, 0) facing 0 instead of to \"Crypt\" at (0, "
                     "0, 0) facing 0"}));
}

TEST_F(PluginDiffTest, TellsOfLocksAndTraps) {
    PluginRef& door = b.cells.at(0).refs.at(1);
    const std::string where =
        "reference-locked | cell \"Crypt\" | \"in_door_01\" at (316.25, 0, 0) ";
    door.lock = PluginLock{35, "Key5_1", ""};
    EXPECT_EQ(Differences(),
              Lines{where + "locked at 35, key \"Key5_1\" instead of without a lock"});
    a.cells.at(0).refs.at(1).lock = PluginLock{0, "", "a_trap"};
    EXPECT_EQ(Differences(),
              Lines{where + "locked at 35, key \"Key5_1\" instead of not locked, trap \"a_trap\""});
    door.lock = PluginLock{0, "", "A_TRAP"};
    EXPECT_EQ(Differences(), Lines{});
    door.lock.reset();
    EXPECT_EQ(Differences(),
              Lines{where + "without a lock instead of not locked, trap \"a_trap\""});
}

TEST_F(PluginDiffTest, TellsOfKeys) {
    mod.CreateKey("Key5_1")->name = "Key 1";
    b = ReadBack(mod);
    EXPECT_EQ(Differences(), Lines{"key-added | key \"Key5_1\" | is new"});
    a = b;
    EXPECT_EQ(Differences(), Lines{});
    b.keys.at(0).name = "Key";
    b.keys.at(0).worth = 300;
    EXPECT_EQ(Differences(),
              (Lines{"key-changed | key \"Key5_1\" | name is \"Key\" instead of \"Key 1\"",
                     "key-changed | key \"Key5_1\" | value is 300 instead of 0"}));
}

// As containers are, so that two runs without a stamp can be compared.
TEST_F(PluginDiffTest, KeysOfOtherStampsAreTheSame) {
    mod.CreateKey("Key5_1");
    mod.GetContainers()[0]->Add("Key5_1", 1);
    RefLock lock;
    lock.level = 35;
    lock.key = "Key5_1";
    mod.GetCells()[0]->LockRef(1, lock);
    a = b = ReadBack(mod);
    b.keys.at(0).id = "Key66_1";
    b.cells.at(0).refs.at(1).lock->key = "Key66_1";
    b.cells.at(0).refs.at(3).id = "Ctr66_1";
    b.containers.at(0).id = "Ctr66_1";
    b.containers.at(0).items.back().id = "Key66_1";
    EXPECT_EQ(Differences(),
              Lines{"stamp | containers | their ids begin with Ctr66_ instead of Ctr5_"});
}

TEST_F(PluginDiffTest, NamesWhatIsOtherInTheHeader) {
    b.header.version = 1.3F;
    b.header.type = 1;
    b.header.author = "Somebody";
    b.header.description = "";
    b.header.recordCount = 3;
    EXPECT_EQ(Differences(),
              (Lines{"header-changed | header | version is 1.3 instead of 1.2",
                     "header-changed | header | type is master instead of plug-in",
                     "header-changed | header | author is \"Somebody\" instead of \"Ostrel\"",
                     "header-changed | header | description is \"\" instead of \"Auto-generated "
                     "mod\"",
                     "header-changed | header | number of records in the header is 3 instead of "
                     "0"}));
}

TEST_F(PluginDiffTest, NamesMastersThatAreNewGoneOrOfAnotherSize) {
    a.header.masters.push_back({"Old.esm", 1});
    b.header.masters.push_back({"New.esm", 1});
    b.header.masters[0] = {"MORROWIND.esm", 5};
    EXPECT_EQ(Differences(),
              (Lines{"master-changed | master \"Morrowind.esm\" | has 5 bytes instead of 79821084",
                     "master-removed | master \"Old.esm\" | is missing",
                     "master-added | master \"New.esm\" | is new"}));
}

TEST_F(PluginDiffTest, NamesCellsThatAreNewOrGone) {
    b.cells[1].name = "Cellar";
    EXPECT_EQ(Differences(),
              (Lines{"cell-removed | cell \"Café\" | is missing",
                     "cell-added | cell \"Cellar\" | is new"}));
}

TEST_F(PluginDiffTest, NamesWhatIsOtherInACell) {
    Crypt().name = "CRYPT";
    Crypt().flags = 3;
    Crypt().ambient = 0x00030201;
    Crypt().fogDensity = 0.5F;
    Crypt().waterHeight = -2.0F;
    EXPECT_EQ(Differences(),
              (Lines{"cell-changed | cell \"Crypt\" | name is \"CRYPT\" instead of \"Crypt\"",
                     "cell-changed | cell \"Crypt\" | flags is 3 instead of 1",
                     "cell-changed | cell \"Crypt\" | ambient light is 1 2 3 instead of 71 71 71",
                     "cell-changed | cell \"Crypt\" | fog density is 0.5 instead of 1",
                     "cell-changed | cell \"Crypt\" | water height is -2 instead of 0"}));
}

TEST_F(PluginDiffTest, CellsOfOneNameAreComparedInTheirOrder) {
    a.cells.push_back(a.cells[0]);
    b.cells.push_back(b.cells[0]);
    b.cells.back().refs.pop_back();
    EXPECT_EQ(Differences(),
              (Lines{"reference-removed | cell \"Crypt\" | \"rug\" removed from (64, -64, -128)"}));
}

TEST_F(PluginDiffTest, NamesReferencesThatAreNewOrGone) {
    Rug().id = "mat";
    EXPECT_EQ(Differences(),
              (Lines{"reference-removed | cell \"Crypt\" | \"rug\" removed from (64, -64, -128)",
                     "reference-added | cell \"Crypt\" | \"mat\" added at (64, -64, -128)"}));
}

TEST_F(PluginDiffTest, NamesReferencesThatWereMovedTurnedAndRescaled) {
    Rug().place.position = Di3Point(65.5F, -64.0F, -128.0F);
    Rug().place.rotation = Di3Point(0.5235988F, 0.0F, 1.5707964F);
    Rug().scale = 2.0F;
    EXPECT_EQ(
        Differences(),
        (Lines{"reference-moved | cell \"Crypt\" | \"rug\" moved from (64, -64, -128) to "
               "(65.5, -64, -128)",
               "reference-turned | cell \"Crypt\" | \"rug\" at (65.5, -64, -128) turned about "
               "x from 0 to 30 degrees and about z from 0 to 90 degrees",
               "reference-rescaled | cell \"Crypt\" | \"rug\" at (65.5, -64, -128) scaled "
               "from 0.75 to 2"}));
}

TEST_F(PluginDiffTest, ATurnTooSmallForDegreesIsToldInRadians) {
    Door().place.rotation.z = 1.5707965F;
    EXPECT_EQ(Differences(),
              (Lines{"reference-turned | cell \"Crypt\" | \"in_door_01\" at (316.25, 0, 0) turned "
                     "about z from 1.5707964 to 1.5707965 radians"}));
}

TEST_F(PluginDiffTest, NamesDoorsThatLeadElsewhere) {
    Door().destination->cell = "Crypt";
    EXPECT_EQ(Differences(),
              (Lines{"reference-retargeted | cell \"Crypt\" | \"in_door_01\" at (316.25, 0, 0) "
                     "leads to \"Crypt\" at (512, -256, 0) facing 270 instead of to \"Café\" at "
                     "(512, -256, 0) facing 270"}));
    Door().destination.reset();
    EXPECT_EQ(Differences(),
              (Lines{"reference-retargeted | cell \"Crypt\" | \"in_door_01\" at (316.25, 0, 0) "
                     "leads nowhere instead of to \"Café\" at (512, -256, 0) facing 270"}));
    Door().destination.emplace();
    EXPECT_EQ(Differences(),
              (Lines{"reference-retargeted | cell \"Crypt\" | \"in_door_01\" at (316.25, 0, 0) "
                     "leads to the outside at (0, 0, 0) facing 0 instead of to \"Café\" at (512, "
                     "-256, 0) facing 270"}));
}

TEST_F(PluginDiffTest, ADoorThatFacesAnotherWayOnArrivalIsADifference) {
    Door().destination->arrival.rotation.z = 0.0F;
    EXPECT_EQ(Differences(),
              (Lines{"reference-retargeted | cell \"Crypt\" | \"in_door_01\" at (316.25, 0, 0) "
                     "leads to \"Café\" at (512, -256, 0) facing 0 instead of to \"Café\" at "
                     "(512, -256, 0) facing 270"}));
}

TEST_F(PluginDiffTest, ADoorThatLeadsToAnotherPlaceOfItsCellIsADifference) {
    Door().destination->arrival.position.y = -255.0F;
    EXPECT_EQ(Differences(),
              (Lines{"reference-retargeted | cell \"Crypt\" | \"in_door_01\" at (316.25, 0, 0) "
                     "leads to \"Café\" at (512, -255, 0) facing 270 instead of to \"Café\" at "
                     "(512, -256, 0) facing 270"}));
}

TEST_F(PluginDiffTest, NamesReferencesThatAreDeleted) {
    Rug().deleted = true;
    EXPECT_EQ(Differences(),
              (Lines{"reference-deleted | cell \"Crypt\" | \"rug\" at (64, -64, -128) deleted"}));
}

TEST_F(PluginDiffTest, OfSeveralLikeObjectsTheNearestIsTheOneThatMoved) {
    const auto addRugs = [](PluginFile& file, std::initializer_list<float> places) {
        for (const float x : places) {
            PluginRef rug = file.cells[0].refs[4];
            rug.place.position = Di3Point(x, 0.0F, 0.0F);
            file.cells[0].refs.push_back(rug);
        }
    };
    addRugs(a, {100.0F, 200.0F, 300.0F});
    addRugs(b, {310.0F, 400.0F, 100.0F, 205.0F});
    EXPECT_EQ(
        Differences(),
        (Lines{"reference-moved | cell \"Crypt\" | \"rug\" moved from (200, 0, 0) to (205, 0, "
               "0)",
               "reference-moved | cell \"Crypt\" | \"rug\" moved from (300, 0, 0) to (310, 0, "
               "0)",
               "reference-added | cell \"Crypt\" | \"rug\" added at (400, 0, 0)"}));
}

// The partner of the first stands behind so many that are further away.
TEST_F(PluginDiffTest, ThePartnerIsLookedForAmongAThousand) {
    const auto differences = [this](std::size_t others) {
        PluginRef rug = Rug();
        rug.place.position = Di3Point(0.0F, 0.0F, 0.0F);
        a.cells[0].refs = {rug};
        b.cells[0].refs.clear();
        for (std::size_t i = 0; i <= others; ++i) {
            rug.place.position.x = static_cast<float>(10 + others - i);
            b.cells[0].refs.push_back(rug);
        }
        return Report::ComparePlugins(a, b).at(0).text;
    };
    EXPECT_EQ(differences(Report::kMostCompared - 1), "\"rug\" moved from (0, 0, 0) to (10, 0, 0)");
    EXPECT_EQ(differences(Report::kMostCompared), "\"rug\" moved from (0, 0, 0) to (11, 0, 0)");
}

// The one behind the thousand is looked at as soon as one of them has its partner.
TEST_F(PluginDiffTest, EachPartnerMakesRoomForTheNext) {
    const auto refs = [this](float first) {
        std::vector<PluginRef> rugs(Report::kMostCompared + 1, Rug());
        for (std::size_t i = 0; i < rugs.size(); ++i) {
            rugs[i].place.position = Di3Point(first + static_cast<float>(i) * 8.0F, 0.0F, 0.0F);
        }
        return rugs;
    };
    a.cells[0].refs = refs(0.0F);
    b.cells[0].refs = refs(1.0F);
    const std::vector<Report::Difference> found = Report::ComparePlugins(a, b);
    ASSERT_EQ(found.size(), Report::kMostCompared + 1);
    EXPECT_EQ(found.back().text, "\"rug\" moved from (8000, 0, 0) to (8001, 0, 0)");
}

TEST_F(PluginDiffTest, WhatHasNoPlaceIsNeverTheNearest) {
    PluginRef rug = Rug();
    rug.place.position = Di3Point(0.0F, 0.0F, 0.0F);
    a.cells[0].refs = {rug};
    PluginRef lost = rug;
    lost.place.position.x = std::numeric_limits<float>::quiet_NaN();
    rug.place.position.x = 5.0F;
    b.cells[0].refs = {lost, rug};
    EXPECT_EQ(Report::ComparePlugins(a, b).at(0).text, "\"rug\" moved from (0, 0, 0) to (5, 0, 0)");
}

TEST_F(PluginDiffTest, AnObjectThatOnlyTurnedIsNotTakenForItsNeighbour) {
    PluginRef second = Rug();
    second.place.position.x = 65.0F;
    a.cells[0].refs.push_back(second);
    second.place.rotation.z = 3.1415927F;
    Crypt().refs.push_back(second);
    std::swap(Crypt().refs[4], Crypt().refs[5]);
    EXPECT_EQ(
        Differences(),
        (Lines{"reference-turned | cell \"Crypt\" | \"rug\" at (65, -64, -128) turned about z "
               "from 0 to 180 degrees"}));
}

TEST_F(PluginDiffTest, NamesAnotherOrderWhenNothingElseDiffers) {
    std::swap(Crypt().refs[0], Crypt().refs[2]);
    EXPECT_EQ(Differences(),
              (Lines{"order | cell \"Crypt\" | its references stand in another order"}));
}

TEST_F(PluginDiffTest, PlacesThatAreNoNumbersEqualThemselves) {
    a.cells[0].refs[4].place.position.x = std::numeric_limits<float>::quiet_NaN();
    Rug() = a.cells[0].refs[4];
    EXPECT_EQ(Differences(), Lines{});
}

TEST_F(PluginDiffTest, NamesWhatIsOtherInAContainer) {
    Chest().model = "o\\urn.nif";
    Chest().name = "Urn";
    Chest().capacity = 40.0F;
    Chest().flags = 10;
    EXPECT_EQ(
        Differences(),
        (Lines{"container-changed | container \"Ctr5_1\" | model is \"o\\urn.nif\" instead of "
               "\"o\\chest.nif\"",
               "container-changed | container \"Ctr5_1\" | name is \"Urn\" instead of \"Chest\"",
               "container-changed | container \"Ctr5_1\" | capacity is 40 instead of 40.5",
               "container-changed | container \"Ctr5_1\" | flags is 10 instead of 8"}));
}

TEST_F(PluginDiffTest, NamesWhatContainersHoldMoreOrLessOf) {
    Chest().items = {{"Gold_001", 20}, {"gem", 1}, {"gold_001", 2}};
    EXPECT_EQ(
        Differences(),
        (Lines{"items-changed | container \"Ctr5_1\" | holds 0 \"cup\" instead of 2",
               "items-changed | container \"Ctr5_1\" | holds 1 \"gem\" instead of 0",
               "items-changed | container \"Ctr5_1\" | holds 22 \"gold_001\" instead of 25"}));
}

TEST_F(PluginDiffTest, NamesOtherStacksOfTheSame) {
    Chest().items = {{"gold_001", 20}, {"cup", 2}, {"gold_001", 5}};
    EXPECT_EQ(Differences(),
              (Lines{"items-changed | container \"Ctr5_1\" | holds the same in 3 stacks instead of "
                     "2"}));
}

TEST_F(PluginDiffTest, ContainersOfAnotherRunAreKnownByTheirCounter) {
    Chest().id = "Ctr77_1";
    Crypt().refs[3].id = "Ctr77_1";
    Chest().items[0].count = 3;
    EXPECT_EQ(Differences(),
              (Lines{"stamp | containers | their ids begin with Ctr77_ instead of Ctr5_",
                     "items-changed | container \"Ctr5_1\" | holds 3 \"gold_001\" instead of 25"}));
}

TEST_F(PluginDiffTest, ContainersOfSeveralRunsKeepTheirStamps) {
    b.containers.push_back(Chest());
    b.containers[1].id = "Ctr77_1";
    EXPECT_EQ(Differences(), (Lines{"container-added | container \"Ctr77_1\" | is new"}));
}

TEST_F(PluginDiffTest, NamesWhatIsOnlyCounted) {
    b.exteriorCells = 2;
    a.otherRecords = {{"LIGH", 3}, {"STAT", 1}};
    b.otherRecords = {{"STAT", 2}};
    b.skippedSubRecords = {{"ANAM", 1}};
    EXPECT_EQ(Differences(),
              (Lines{"other | file | 2 exterior cells instead of 0",
                     "other | file | 0 records of LIGH instead of 3",
                     "other | file | 2 records of STAT instead of 1",
                     "other | file | 1 sub-record of ANAM instead of 0"}));
}

TEST_F(PluginDiffTest, BytesThatStandForTheSameAreADifference) {
    std::string bytes = BytesOf(mod);
    bytes[8] = 1; // the header's reserved word
    const Report::LoadedPlugin first{"a", BytesOf(mod), a};
    const Report::LoadedPlugin second{"b", bytes, ReadPlugin(bytes)};
    EXPECT_EQ(Report::Diff(first, first).differences, (std::vector<Report::Difference>{}));
    EXPECT_EQ(Report::Diff(first, second).differences,
              (std::vector<Report::Difference>{
                  {"bytes", "file", "other bytes that stand for the same or are not compared"}}));
}

TEST_F(PluginDiffTest, IsPrintedUnderWhatDiffers) {
    const Report::DiffResult result{
        "a.esp",
        "b.esp",
        {{"header-changed", "header", "version is 2 instead of 1"},
         {"reference-added", "cell \"A\"", "\"b\" added at (0, 0, 0)"},
         {"reference-added", "cell \"A\"", "\"c\" added at (0, 0, 0)"}}};
    std::ostringstream text;
    Report::PrintDiff(result, text);
    EXPECT_EQ(text.str(),
              "Header\n"
              "  version is 2 instead of 1\n"
              "Cell \"A\"\n"
              "  \"b\" added at (0, 0, 0)\n"
              "  \"c\" added at (0, 0, 0)\n"
              "3 differences.\n");
}

TEST_F(PluginDiffTest, IsJsonToo) {
    const Report::DiffResult result{
        "a\xFF.esp", "b.esp", {{"header-changed", "header", "version is 2 instead of 1"}}};
    const auto json = nlohmann::json::parse(Report::ToJson(result));
    EXPECT_EQ(json.at("schema"), 1);
    EXPECT_EQ(json.at("a"), "a\uFFFD.esp");
    EXPECT_EQ(json.at("b"), "b.esp");
    EXPECT_EQ(json.at("same"), false);
    ASSERT_EQ(json.at("differences").size(), 1U);
    EXPECT_EQ(json["differences"][0].at("kind"), "header-changed");
    EXPECT_EQ(json["differences"][0].at("subject"), "header");
    EXPECT_EQ(json["differences"][0].at("text"), "version is 2 instead of 1");
}

} // namespace

} // namespace Tarnex::Test
