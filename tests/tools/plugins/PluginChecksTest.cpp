// SPDX-License-Identifier: MIT
#include "tools/plugins/PluginChecks.h"
#include "tests/tools/plugins/SamplePlugin.h"

#include <gtest/gtest.h>

#include <limits>

namespace Tarnex::Test {

namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNoNumber = std::numeric_limits<float>::quiet_NaN();

using Lines = std::vector<std::string>;

class PluginChecksTest : public ::testing::Test {
protected:
    PluginChecksTest() {
        FillSample(mod);
        file = ReadBack(mod);
    }

    Lines Findings() const {
        Lines lines;
        for (const PluginFinding& finding : Report::FindInconsistencies(file)) {
            lines.push_back(finding.text);
        }
        return lines;
    }

    PluginCell& Crypt() { return file.cells.at(0); }
    PluginRef& Door() { return Crypt().refs.at(1); }
    PluginContainer& Chest() { return file.containers.at(0); }

    Mod mod;
    PluginFile file;
};

TEST_F(PluginChecksTest, AGoodPluginHasNoFindings) {
    EXPECT_EQ(Findings(), Lines{});
}

TEST_F(PluginChecksTest, TheHeaderMaySayNoRecordsOrTheirNumber) {
    file.header.recordCount = 3;
    EXPECT_EQ(Findings(), Lines{});
    file.header.recordCount = 5;
    EXPECT_EQ(Findings(), (Lines{"the header says 5 records, 3 follow"}));
    file.complete = false;
    EXPECT_EQ(Findings(), Lines{});
}

TEST_F(PluginChecksTest, APathGridFollowsItsCellAndIsSpeltAlike) {
    mod.CreatePathGrid("Crypt");
    mod.CreatePathGrid("Somewhere else");
    file = ReadBack(mod);
    EXPECT_EQ(Findings(), Lines{});
    file.pathGrids.at(0).offset = Crypt().offset - 1;
    EXPECT_EQ(Findings(), (Lines{"path grid \"Crypt\" stands before its cell"}));
    file.pathGrids.at(0).cell = "cRYPT";
    EXPECT_EQ(Findings(), (Lines{"path grid \"cRYPT\" is spelt otherwise than its cell"}));
}

TEST_F(PluginChecksTest, WaysLeadToPointsThatAreThere) {
    const DiPtr<PathGrid> grid = mod.CreatePathGrid("Crypt");
    grid->points = {{0, 0, 0, {1}}, {256, 0, 0, {0}}};
    file = ReadBack(mod);
    EXPECT_EQ(Findings(), Lines{});
    grid->points[1].ways.push_back(2);
    file = ReadBack(mod);
    EXPECT_EQ(Findings(),
              (Lines{"path grid \"Crypt\" has a way from point 1 to a point that is not there"}));
}

TEST_F(PluginChecksTest, LevelsOfLocksHaveBounds) {
    for (const std::int32_t level : {0, 1, 100}) {
        Door().lock = PluginLock{level, "", ""};
        EXPECT_EQ(Findings(), Lines{}) << level;
    }
    for (const std::int32_t level : {-1, 101}) {
        Door().lock = PluginLock{level, "", ""};
        EXPECT_EQ(Findings(),
                  (Lines{"cell \"Crypt\", reference 2 \"in_door_01\" has a lock of level " +
                         std::to_string(level) + ", outside 1 to 100"}));
    }
}

TEST_F(PluginChecksTest, AKeyWithoutALevelIsTheOnlyWay) {
    const std::string door = "cell \"Crypt\", reference 2 \"in_door_01\" ";
    Door().lock = PluginLock{1, "some_key", ""};
    EXPECT_EQ(Findings(), Lines{});
    Door().lock = PluginLock{0, "some_key", ""};
    const std::string finding =
        door + "has a key and no level of its lock: nothing but the key opens it";
    EXPECT_EQ(Findings(), Lines{finding});
    Door().lock = PluginLock{std::nullopt, "some_key", "a_trap"};
    EXPECT_EQ(Findings(), Lines{finding + ", and the game forgets its trap"});
}

TEST_F(PluginChecksTest, AKeyLiesSomewhere) {
    mod.CreateKey("Key5_1");
    file = ReadBack(mod);
    EXPECT_EQ(Findings(), Lines{"key \"Key5_1\" lies in no container and in no cell"});
    for (const char* holder : {"NPC_", "CREA", "LEVI", "SCPT"}) {
        file.otherRecords[holder] = 1;
        EXPECT_EQ(Findings(), Lines{}) << holder;
        file.otherRecords.clear();
    }
    file.exteriorCells = 1;
    EXPECT_EQ(Findings(), Lines{});
    file.exteriorCells = 0;
    Chest().items.push_back({"kEY5_1", 1});
    EXPECT_EQ(Findings(), Lines{});
    Chest().items.pop_back();
    Crypt().refs.back().id = "key5_1";
    EXPECT_EQ(Findings(), Lines{});
}

TEST_F(PluginChecksTest, KeysHaveIdsOfTheirOwnThatFit) {
    mod.CreateKey("Key5_1");
    mod.CreateKey("Key5_1");
    mod.CreateKey(std::string(32, 'k').c_str());
    mod.GetContainers()[0]->Add("Key5_1", 1);
    file = ReadBack(mod);
    Chest().items.push_back({std::string(31, 'k'), 1});
    EXPECT_EQ(
        Findings(),
        (Lines{"key \"Key5_1\" has the id of another",
               "key \"" + std::string(32, 'k') + "\" has an id of 32 bytes, the game takes 31",
               "key \"" + std::string(32, 'k') + "\" lies in no container and in no cell"}));
}

TEST_F(PluginChecksTest, AKeyOfVaultrysHasARecord) {
    Door().lock = PluginLock{10, "Key5_1", ""};
    EXPECT_EQ(Findings(),
              Lines{"cell \"Crypt\", reference 2 \"in_door_01\" is opened by \"Key5_1\", which has "
                    "no record"});
    // One of another name may be a master's.
    Door().lock = PluginLock{10, "Key5", ""};
    EXPECT_EQ(Findings(), Lines{});
}

TEST_F(PluginChecksTest, AMasterNeedsAName) {
    file.header.masters.push_back({"", 7});
    EXPECT_EQ(Findings(), (Lines{"the header names a master without a name"}));
}

TEST_F(PluginChecksTest, ACellNeedsAName) {
    mod.CreateCell("");
    file = ReadBack(mod);
    EXPECT_EQ(Findings(), (Lines{"cell \"\" has no name"}));
}

TEST_F(PluginChecksTest, ACellNameHasAtMost63Bytes) {
    mod.CreateCell(std::string(63, 'a').c_str());
    file = ReadBack(mod);
    EXPECT_EQ(Findings(), Lines{});
    const std::string tooLong(64, 'b');
    mod.CreateCell(tooLong.c_str());
    file = ReadBack(mod);
    EXPECT_EQ(Findings(),
              (Lines{"cell \"" + tooLong + "\" has a name of 64 bytes, the game takes 63"}));
}

TEST_F(PluginChecksTest, CellNamesAreUniqueWithoutRegardToCase) {
    mod.CreateCell("cRYPT");
    file = ReadBack(mod);
    EXPECT_EQ(Findings(), (Lines{"cell \"cRYPT\" has the name of another"}));
}

TEST_F(PluginChecksTest, TheNumberOfReferencesIsThatOfAllOrOfThoseBehindIt) {
    Crypt().refCount = 4;
    EXPECT_EQ(Findings(), (Lines{"cell \"Crypt\" says 4 references, 5 are there"}));
    Crypt().refsBeforeCount = 1;
    EXPECT_EQ(Findings(), Lines{});
    Crypt().refCount = 1;
    EXPECT_EQ(Findings(), (Lines{"cell \"Crypt\" says 1 reference, 5 are there"}));
    Crypt().refCount.reset();
    EXPECT_EQ(Findings(), Lines{});
}

TEST_F(PluginChecksTest, ReferenceNumbersAreUniqueInTheirCell) {
    Crypt().refs.at(4).index = 2;
    EXPECT_EQ(Findings(), (Lines{"cell \"Crypt\", reference 2 \"rug\" has the number of another"}));
}

TEST_F(PluginChecksTest, AReferenceNeedsAnIdOfAtMost31Bytes) {
    mod.GetCells()[1]->AddRef(Ref(std::string(31, 'a').c_str()));
    mod.GetCells()[1]->AddRef(Ref(std::string(32, 'b').c_str()));
    mod.GetCells()[1]->AddRef(Ref(""));
    file = ReadBack(mod);
    EXPECT_EQ(
        Findings(),
        (Lines{"cell \"Café\", reference 3 \"bbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbb\" has an id of 32 "
               "bytes, the game takes 31",
               "cell \"Café\", reference 4 \"\" has no id"}));
}

TEST_F(PluginChecksTest, AScaleLiesBetweenHalfAndTwice) {
    for (const float good : {0.5F, 1.0F, 2.0F}) {
        Door().scale = good;
        EXPECT_EQ(Findings(), Lines{}) << good;
    }
    const std::string owner = "cell \"Crypt\", reference 2 \"in_door_01\" has a scale of ";
    Door().scale = 0.49F;
    EXPECT_EQ(Findings(), (Lines{owner + "0.49, outside 0.5 to 2"}));
    Door().scale = 2.5F;
    EXPECT_EQ(Findings(), (Lines{owner + "2.5, outside 0.5 to 2"}));
    Door().scale = kNoNumber;
    EXPECT_EQ(Findings(), (Lines{owner + "nan, outside 0.5 to 2"}));
}

TEST_F(PluginChecksTest, PlacesAreFinite) {
    const Lines stands = {"cell \"Crypt\", reference 2 \"in_door_01\" stands at no finite place"};
    const Lines leads = {"cell \"Crypt\", reference 2 \"in_door_01\" leads to no finite place"};
    const PluginFile good = file;
    Door().place.position.y = kInfinity;
    EXPECT_EQ(Findings(), stands);
    file = good;
    Door().place.rotation.x = kNoNumber;
    EXPECT_EQ(Findings(), stands);
    file = good;
    Door().destination->arrival.position.z = -kInfinity;
    EXPECT_EQ(Findings(), leads);
    file = good;
    Door().destination->arrival.rotation.z = kNoNumber;
    EXPECT_EQ(Findings(), leads);
}

TEST_F(PluginChecksTest, ADoorLeadsToACellOfThePluginOrOutside) {
    Door().destination->cell = "CAF\xE9";
    EXPECT_EQ(Findings(), Lines{});
    Door().destination->cell = "";
    EXPECT_EQ(Findings(), Lines{});
    Door().destination->cell = "Balmora";
    EXPECT_EQ(Findings(),
              (Lines{"cell \"Crypt\", reference 2 \"in_door_01\" leads to \"Balmora\", not in this "
                     "plug-in"}));
}

TEST_F(PluginChecksTest, AReferenceBelongsToAMasterThatIsNamed) {
    Door().index = 0x01000007;
    EXPECT_EQ(Findings(), Lines{});
    Door().index = 0x02000007;
    EXPECT_EQ(Findings(),
              (Lines{"cell \"Crypt\", reference 2:7 \"in_door_01\" belongs to master 2 of 1"}));
}

TEST_F(PluginChecksTest, AContainerThatIsPlacedHasARecord) {
    mod.GetCells()[1]->AddRef(Ref("ctr5_1"));
    mod.GetCells()[1]->AddRef(Ref("Ctr5_2"));
    for (const char* other : {"Ctr", "Ctr5", "Ctr5_", "Ctr_1", "Ctrl5_1", "Ctr5_1a"}) {
        mod.GetCells()[1]->AddRef(Ref(other));
    }
    file = ReadBack(mod);
    EXPECT_EQ(Findings(),
              (Lines{"cell \"Café\", reference 3 \"Ctr5_2\" is a container without a record"}));
}

TEST_F(PluginChecksTest, AContainerIsPlacedSomewhere) {
    mod.CreateContainer()->SetId("Ctr5_2");
    file = ReadBack(mod);
    EXPECT_EQ(Findings(), (Lines{"container \"Ctr5_2\" is placed in no cell"}));
    file.exteriorCells = 1;
    EXPECT_EQ(Findings(), Lines{});
    file.exteriorCells = 0;
    file.complete = false;
    EXPECT_EQ(Findings(), Lines{});
}

TEST_F(PluginChecksTest, DoorsOutsideLeadSomewhereAndEachCellIsThereOnce) {
    Ref place("Crypt");
    Ref door("ex_cave_door_01");
    door.Teleport(place);
    mod.CreateWorldCell(WildernessHead(-2, 9, ""))->AddRef(door);
    file = ReadBack(mod);
    EXPECT_EQ(Findings(), Lines{});
    file.exteriors[0].refs[0].destination->cell = "Nowhere";
    file.exteriors.push_back(file.exteriors[0]);
    file.exteriors[1].row = 8;
    file.exteriors[1].refs[0].destination->cell = "crypt";
    file.exteriors[1].refs.push_back(file.exteriors[1].refs[0]);
    file.exteriors.push_back(file.exteriors[1]);
    file.exteriors[2].refs.resize(1);
    EXPECT_EQ(
        Findings(),
        (Lines{"outside (-2, 8) has the place of another",
               "outside (-2, 9), reference 1 \"ex_cave_door_01\" leads to \"Nowhere\", not in "
               "this plug-in",
               "outside (-2, 8), reference 1 \"ex_cave_door_01\" has the number of another"}));
}

TEST_F(PluginChecksTest, ContainerIdsAreThereUniqueAndNotTooLong) {
    const std::string tooLong(32, 'c');
    for (const char* id : {"cTR5_1", tooLong.c_str(), ""}) {
        mod.CreateContainer()->SetId(id);
        mod.GetCells()[1]->AddRef(PlacedAt(*id == '\0' ? "cup" : id, 0.0F, 0.0F, 0.0F));
    }
    file = ReadBack(mod);
    EXPECT_EQ(Findings(),
              (Lines{"container \"cTR5_1\" has the id of another",
                     "container \"" + tooLong + "\" has an id of 32 bytes, the game takes 31",
                     "container \"\" has no id",
                     "container \"\" is placed in no cell",
                     "cell \"Café\", reference 3 \"" + tooLong +
                         "\" has an id of 32 bytes, the game takes 31"}));
}

TEST_F(PluginChecksTest, AContainerHasItsFlagAndAFiniteCapacity) {
    Chest().flags = 3;
    Chest().capacity = kInfinity;
    EXPECT_EQ(Findings(),
              (Lines{"container \"Ctr5_1\" has no finite capacity",
                     "container \"Ctr5_1\" lacks flag 8, which the game demands"}));
}

TEST_F(PluginChecksTest, ItemsHaveIdsOfAtMost31Bytes) {
    Chest().items.push_back({std::string(31, 'a'), 1});
    Chest().items.push_back({std::string(32, 'b'), 1});
    Chest().items.push_back({"", 1});
    EXPECT_EQ(Findings(),
              (Lines{"container \"Ctr5_1\" holds \"bbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbb\", an id of 32 "
                     "bytes, the game takes 31",
                     "container \"Ctr5_1\" holds an item without an id"}));
}

TEST_F(PluginChecksTest, WhatIsDeletedNeedNotMakeSense) {
    Door().scale = 9.0F;
    Door().id = "";
    Door().deleted = true;
    Chest().flags = 0;
    Chest().deleted = true;
    EXPECT_EQ(Findings(), Lines{});
}

TEST_F(PluginChecksTest, FindingsStandInTheOrderOfTheFile) {
    Door().scale = 9.0F;
    Chest().flags = 0;
    file.findings = {{900, "from the reader"}};
    const std::vector<PluginFinding> findings = Report::FindInconsistencies(file);
    ASSERT_EQ(findings.size(), 3U);
    EXPECT_EQ(findings[0].offset, 362U);
    EXPECT_EQ(findings[1].text,
              "cell \"Crypt\", reference 2 \"in_door_01\" has a scale of 9, "
              "outside 0.5 to 2");
    EXPECT_EQ(findings[2], (PluginFinding{900, "from the reader"}));
}

TEST_F(PluginChecksTest, NamesAreShownWithoutControlCharacters) {
    mod.CreateCell("\x1b[2J");
    mod.CreateCell("\x1b[2J");
    file = ReadBack(mod);
    EXPECT_EQ(Findings(), (Lines{"cell \"?[2J\" has the name of another"}));
}

} // namespace

} // namespace Tarnex::Test
