// SPDX-License-Identifier: MIT
#include <vaultry/output/Mod.h>
#include <vaultry/output/PluginReader.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/output/PluginBytes.h>
#include <vector>

namespace Tarnex::Test {

namespace {

class ModTest : public ::testing::Test {
protected:
    // The records of the written file as "TAG name", the header as its tag alone.
    std::vector<std::string> WrittenRecords() {
        std::vector<std::string> names;
        for (const Record& record : WalkRecords(Written(mod))) {
            names.push_back(record.tag);
            if (record.subs.at(0).tag == "NAME") {
                names.back() += " " + std::string(record.subs[0].data.c_str());
            }
        }
        return names;
    }

    DiPtr<Container> CreateContainer(const char* id) {
        DiPtr<Container> container = mod.CreateContainer();
        container->SetId(id);
        return container;
    }

    Mod mod;
};

using Names = std::vector<std::string>;

TEST_F(ModTest, AFreshOneIsTheHeaderAlone) {
    const std::string bytes = Written(mod);
    EXPECT_EQ(bytes.size(), 362U);
    EXPECT_EQ(bytes.substr(0, 16), "TES3" + Hex("5A 01 00 00") + Zeros(8));
    EXPECT_TRUE(mod.GetCells().empty());
    EXPECT_TRUE(mod.GetContainers().empty());
}

TEST_F(ModTest, CellsAreNamedAndKeptInTheOrderOfCreation) {
    const DiPtr<Cell> first = mod.CreateCell("Crypt, Level 1");
    const DiPtr<Cell> second = mod.CreateCell("Crypt, Level 2");
    ASSERT_EQ(mod.GetCells().size(), 2U);
    EXPECT_EQ(mod.GetCells()[0], first);
    EXPECT_EQ(mod.GetCells()[1], second);
    EXPECT_EQ(first->GetName(), "Crypt, Level 1");
    EXPECT_TRUE(first->GetRefs().empty());
    EXPECT_EQ(WrittenRecords(), (Names{"TES3", "CELL Crypt, Level 1", "CELL Crypt, Level 2"}));
}

TEST_F(ModTest, ContainersStartEmptyAndKeepTheOrderOfCreation) {
    const DiPtr<Container> first = mod.CreateContainer();
    const DiPtr<Container> second = mod.CreateContainer();
    ASSERT_EQ(mod.GetContainers().size(), 2U);
    EXPECT_EQ(mod.GetContainers()[0], first);
    EXPECT_EQ(mod.GetContainers()[1], second);
    EXPECT_EQ(first->GetId(), "");
    EXPECT_TRUE(first->GetInventory().empty());
}

TEST_F(ModTest, ContainersComeBeforeCellsWhateverTheOrderOfCreation) {
    mod.CreateCell("A");
    CreateContainer("Ctr_1");
    mod.CreateCell("B");
    CreateContainer("Ctr_2");
    EXPECT_EQ(WrittenRecords(), (Names{"TES3", "CONT Ctr_1", "CONT Ctr_2", "CELL A", "CELL B"}));
}

TEST_F(ModTest, PathGridsComeBehindAllCells) {
    const DiPtr<PathGrid> grid = mod.CreatePathGrid("A");
    grid->points.resize(2);
    mod.CreateCell("A");
    mod.CreatePathGrid("B");
    mod.CreateCell("B");
    ASSERT_EQ(mod.GetPathGrids().size(), 2U);
    EXPECT_EQ(mod.GetPathGrids()[0], grid);
    EXPECT_EQ(WrittenRecords(), (Names{"TES3", "CELL A", "CELL B", "PGRD", "PGRD"}));
    const PluginFile file = ReadPlugin(Written(mod));
    ASSERT_EQ(file.pathGrids.size(), 2U);
    EXPECT_EQ(file.pathGrids[0].cell, "A");
    EXPECT_EQ(file.pathGrids[0].points, grid->points);
    EXPECT_EQ(file.pathGrids[1].cell, "B");
    mod.ResetContent();
    EXPECT_TRUE(mod.GetPathGrids().empty());
    EXPECT_EQ(WrittenRecords(), (Names{"TES3"}));
}

TEST_F(ModTest, KeysComeBeforeAllThatNamesThem) {
    mod.CreateCell("A");
    CreateContainer("Ctr_1");
    const DiPtr<Key> key = mod.CreateKey("Key_1");
    mod.CreateKey("Key_2");
    ASSERT_EQ(mod.GetKeys().size(), 2U);
    EXPECT_EQ(mod.GetKeys()[0], key);
    EXPECT_EQ(WrittenRecords(),
              (Names{"TES3", "MISC Key_1", "MISC Key_2", "CONT Ctr_1", "CELL A"}));
    mod.ResetContent();
    EXPECT_TRUE(mod.GetKeys().empty());
    EXPECT_EQ(WrittenRecords(), (Names{"TES3"}));
}

TEST_F(ModTest, IsTheBytesOfItsParts) {
    const DiPtr<Container> container = CreateContainer("Ctr_1");
    const DiPtr<Cell> cell = mod.CreateCell("A");
    cell->AddRef(Ref("Ctr_1"));
    FileHeader header;
    EXPECT_EQ(Written(mod), Written(header) + Written(*container) + Written(*cell));
}

TEST_F(ModTest, WhatIsAddedThroughAHandleIsWritten) {
    mod.CreateCell("A")->AddRef(Ref("door"));
    const std::vector<Record> records = WalkRecords(Written(mod));
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(Tags(records[1].subs), "NAME DATA INTV AMBI NAM0 FRMR NAME DATA");
}

TEST_F(ModTest, NumbersOfReferencesBeginAgainInEveryCellUnlessTheyAreToGoOn) {
    for (const char* name : {"A", "B", "C"}) {
        const DiPtr<Cell> cell = mod.CreateCell(name);
        cell->AddRef(Ref("door"));
        cell->AddRef(Ref("crate"));
    }
    const auto numbers = [this] {
        std::string all;
        for (const PluginCell& cell : ReadPlugin(Written(mod)).cells) {
            for (const PluginRef& ref : cell.refs) {
                all += std::to_string(ref.index) + ' ';
            }
        }
        return all;
    };
    EXPECT_EQ(numbers(), "1 2 1 2 1 2 ");
    mod.SetUniqueReferences(true);
    EXPECT_EQ(numbers(), "1 2 3 4 5 6 ");
    EXPECT_EQ(numbers(), "1 2 3 4 5 6 ");
    mod.SetUniqueReferences(false);
    EXPECT_EQ(numbers(), "1 2 1 2 1 2 ");
}

TEST_F(ModTest, SharesItsPartsWithTheHandlesOfTheCaller) {
    const DiPtr<Cell> cell = mod.CreateCell("A");
    const DiPtr<Container> container = mod.CreateContainer();
    EXPECT_TRUE(cell->isShared());
    EXPECT_TRUE(container->isShared());
    mod.ResetContent();
    EXPECT_FALSE(cell->isShared());
    EXPECT_FALSE(container->isShared());
    EXPECT_EQ(cell->GetName(), "A");
}

TEST_F(ModTest, ResetContentKeepsTheHeader) {
    mod.SetMasterFile("My.esm", 7);
    mod.CreateCell("A");
    CreateContainer("Ctr_1");
    mod.ResetContent();
    EXPECT_TRUE(mod.GetCells().empty());
    EXPECT_TRUE(mod.GetContainers().empty());
    EXPECT_EQ(MasterOf(Written(mod)), "My.esm 7");
    EXPECT_EQ(WrittenRecords(), (Names{"TES3"}));
    mod.CreateCell("B");
    EXPECT_EQ(WrittenRecords(), (Names{"TES3", "CELL B"}));
}

TEST_F(ModTest, SetMasterFileReachesTheHeader) {
    mod.SetMasterFile("My.esm", 0);
    EXPECT_EQ(MasterOf(Written(mod)), "My.esm 0");
    mod.SetMasterFile(nullptr, 0);
    EXPECT_EQ(MasterOf(Written(mod)), "Morrowind.esm 79821084");
    EXPECT_EQ(Written(mod).size(), 362U);
}

TEST_F(ModTest, TwoCellsOfOneNameAreTwoRecords) {
    mod.CreateCell("");
    mod.CreateCell("");
    EXPECT_EQ(WrittenRecords(), (Names{"TES3", "CELL ", "CELL "}));
}

} // namespace

} // namespace Tarnex::Test
