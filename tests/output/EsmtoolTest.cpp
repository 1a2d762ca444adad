// SPDX-License-Identifier: MIT
// What an independent reader of the file format makes of a plug-in.
#if !defined(_WIN32)

#include <vaultry/foundation/CodePage.h>
#include <vaultry/output/Mod.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/output/PluginBytes.h>
#include <tests/support/Contains.h>
#include <tests/support/Esmtool.h>
#include <tests/support/LogTest.h>
#include <vector>

namespace Tarnex::Test {

namespace {

// Expects each of `lines` whole in `text`, in this order, with whatever else in between.
void ExpectLines(const std::string& text, const std::vector<std::string>& lines) {
    const std::string all = "\n" + text;
    std::size_t place = 0;
    for (const std::string& line : lines) {
        const std::size_t found = all.find("\n" + line + "\n", place);
        ASSERT_NE(found, std::string::npos) << "Not found: " << line << "\nin:\n" << text;
        place = found + 1;
    }
}

class EsmtoolTest : public LogTest {
protected:
    void SetUp() override { ASSERT_TRUE(HaveEsmtool()) << kNoEsmtool; }

    // Writes two levels, joined by a pair of doors, with one container in the first.
    std::string WritePlugin() {
        FillContainer();
        FillCrypt();
        FillVault();
        return dir.Write("made.esp", Written(mod));
    }

    // A door that leads to a place in a cell.
    static Ref Door(const Di3Point& position, const char* cell, float arrivalX) {
        Ref place(cell);
        place.position = Di3Point(arrivalX, -256.0F, 128.0F);
        place.rotation = Di3Point(0.0F, 0.0F, 3.14159274F);
        Ref door("in_impsmall_door_01");
        door.position = position;
        door.rotation = Di3Point(0.0F, 0.0F, 1.57079637F);
        door.Teleport(place);
        return door;
    }

    Mod mod;

private:
    void FillContainer() {
        const DiPtr<Container> container = mod.CreateContainer();
        container->SetId("Ctr1000000001_1");
        container->SetModelName("o\\contain_crate_01.nif");
        container->SetFriendlyName("Caf\xE9 crate");
        container->SetWeight(200.0F);
        container->Add("Gold_001", 25);
        container->Add("misc_spool_01", 3);
    }

    void FillCrypt() {
        const DiPtr<Cell> cell = mod.CreateCell("Crypt, Level 1");
        Ref marker("NorthMarker");
        marker.position = Di3Point(0.0F, -150.0F, 0.0F);
        cell->AddRef(marker);
        cell->AddRef(Door(Di3Point(316.0F, 132.0F, -32.0F), "Crypt, Level 2", 512.0F));
        Ref crate("Ctr1000000001_1");
        crate.position = Di3Point(-80.0F, -256.0F, -96.0F);
        crate.rotation = Di3Point(0.0F, 0.0F, 4.712389F);
        cell->AddRef(crate);
        Ref chair("furn_chair_03");
        chair.position = Di3Point(10.5F, -0.0F, 0.25F);
        chair.scale = 0.5F;
        cell->AddRef(chair);
    }

    void FillVault() {
        const DiPtr<Cell> cell = mod.CreateCell("Crypt, Level 2");
        cell->AddRef(Door(Di3Point(64.0F, -64.0F, 0.0F), "Crypt, Level 1", 768.0F));
    }
};

TEST_F(EsmtoolTest, ShowsTheHeader) {
    const Answer answer = DumpPlugin(WritePlugin());
    EXPECT_EQ(answer.status, 0) << answer.text;
    ExpectLines(answer.text,
                {"Author: Ostrel",
                 "Description: Auto-generated mod",
                 "File format version: 1.2",
                 "Masters:",
                 "  Morrowind.esm, 79821084 bytes"});
}

TEST_F(EsmtoolTest, ShowsAnotherMaster) {
    mod.SetMasterFile("Other.esm", 4294967295U);
    const Answer answer = DumpPlugin(WritePlugin());
    EXPECT_EQ(answer.status, 0) << answer.text;
    ExpectLines(answer.text, {"Masters:", "  Other.esm, 4294967295 bytes"});
}

TEST_F(EsmtoolTest, ShowsTheContainerAndItsItems) {
    const Answer answer = DumpPlugin(WritePlugin());
    EXPECT_EQ(answer.status, 0) << answer.text;
    ExpectLines(answer.text,
                {"Record: CONT 'Ctr1000000001_1'",
                 "  Name: Caf\xC3\xA9 crate",
                 "  Model: o\\contain_crate_01.nif",
                 "  Flags: Unknown (0x00000008)",
                 "  Weight: 200",
                 "  Inventory: Count:   25 Item: Gold_001",
                 "  Inventory: Count:    3 Item: misc_spool_01"});
}

TEST_F(EsmtoolTest, ShowsTheLightOfACell) {
    const Answer answer = DumpPlugin(WritePlugin());
    // The colours are one number each, red lowest; the tail of DATA is taken for coordinates.
    ExpectLines(answer.text,
                {"Record: CELL 'Crypt, Level 1'",
                 "  Name: Crypt, Level 1",
                 "  Flags: Interior (0x00000001)",
                 "  Coordinates:  (0,1065353216)",
                 "  Ambient Light Color: 4671303",
                 "  Sunlight Color: 14277106",
                 "  Fog Color: 0",
                 "  Fog Density: 1",
                 "  Water Level: 0",
                 "  Water Level Int: 1",
                 "  RefId counter: 4"});
}

TEST_F(EsmtoolTest, ShowsEveryReferenceOfEveryCell) {
    const Answer answer = DumpPlugin(WritePlugin());
    ExpectLines(answer.text,
                {"Record: CELL 'Crypt, Level 1'",
                 "    Refnum: 1",
                 "    ID: NorthMarker",
                 "    Position: (0, -150, 0)",
                 "    Refnum: 2",
                 "    ID: in_impsmall_door_01",
                 "    Position: (316, 132, -32)",
                 "    Destination position: (512, -256, 128)",
                 "    Destination cell: Crypt, Level 2",
                 "    Refnum: 3",
                 "    ID: Ctr1000000001_1",
                 "    Position: (-80, -256, -96)",
                 "    Refnum: 4",
                 "    ID: furn_chair_03",
                 "    Position: (10.5, -0, 0.25)",
                 "    Scale: 0.5",
                 "Record: CELL 'Crypt, Level 2'",
                 "  RefId counter: 1",
                 "    Refnum: 1",
                 "    ID: in_impsmall_door_01",
                 "    Position: (64, -64, 0)",
                 "    Destination position: (768, -256, 128)",
                 "    Destination cell: Crypt, Level 1"});
}

TEST_F(EsmtoolTest, ShowsAScaleOnlyWhereThereIsOne) {
    const std::string text = DumpPlugin(WritePlugin()).text;
    const std::size_t first = text.find("Scale:");
    ASSERT_NE(first, std::string::npos);
    EXPECT_EQ(text.find("Scale:", first + 1), std::string::npos);
}

TEST_F(EsmtoolTest, ShowsACellOutsideAndWhereItsDoorLeads) {
    Ref door = Door(Di3Point(1000.0F, -9000.0F, 380.0F), "Crypt, Level 1", 256.0F);
    door.SetName("ex_cave_door_01");
    mod.CreateWorldCell(WildernessHead(0, -2, "West Gash"))->AddRef(door);
    const Answer answer = DumpPlugin(WritePlugin());
    EXPECT_EQ(answer.status, 0) << answer.text;
    ExpectLines(answer.text,
                {"Record: CELL 'Crypt, Level 2'",
                 "Record: CELL ''",
                 "  Region: West Gash",
                 "  Flags: HasWater (0x00000002)",
                 "  Coordinates:  (0,-2)",
                 "    Refnum: 1",
                 "    ID: ex_cave_door_01",
                 "    Position: (1000, -9000, 380)",
                 "    Destination position: (256, -256, 128)",
                 "    Destination cell: Crypt, Level 1"});
}

TEST_F(EsmtoolTest, ShowsEveryPointAndWayOfAPathGrid) {
    mod.CreatePathGrid("Crypt, Level 2")->points = {
        {0, -256, -96, {1}}, {256, -256, -96, {0, 2}}, {512, -300, 32, {1}}};
    const Answer answer = DumpPlugin(WritePlugin());
    EXPECT_EQ(answer.status, 0) << answer.text;
    ExpectLines(answer.text,
                {"Record: CELL 'Crypt, Level 2'",
                 "  Cell: Crypt, Level 2",
                 "  Coordinates: (0,0)",
                 "  Point Count: 3",
                 "  Edge Count: 4",
                 "    Coordinates: (0,-256,-96)",
                 "    Connections: 1",
                 "    Coordinates: (256,-256,-96)",
                 "    Connections: 2",
                 "    Coordinates: (512,-300,32)",
                 "    Connections: 1",
                 "  Edge[0]: 0 -> 1",
                 "  Edge[1]: 1 -> 0",
                 "  Edge[2]: 1 -> 2",
                 "  Edge[3]: 2 -> 1"});
}

TEST_F(EsmtoolTest, ShowsKeysLocksAndTraps) {
    mod.CreateKey("Key1_1")->name = "Key 1 of Crypt";
    WritePlugin();
    mod.GetContainers().front()->Add("Key1_1", 1);
    RefLock lock;
    lock.level = 35;
    lock.key = "Key1_1";
    lock.trap = "a_trap";
    mod.GetCells()[0]->LockRef(1, lock);
    RefLock open;
    open.level = 0;
    mod.GetCells()[1]->LockRef(0, open);
    const std::string file = dir.Write("locked.esp", Written(mod));
    const Answer answer = DumpPlugin(file);
    EXPECT_EQ(answer.status, 0) << answer.text;
    ExpectLines(answer.text,
                {"Record: MISC 'Key1_1'",
                 "  Name: Key 1 of Crypt",
                 "  Is Key: 1",
                 "Record: CONT 'Ctr1000000001_1'",
                 "  Inventory: Count:    1 Item: Key1_1",
                 "Record: CELL 'Crypt, Level 1'",
                 "    ID: in_impsmall_door_01",
                 "    Key: Key1_1",
                 "    Lock level: 35",
                 "    Trap: a_trap",
                 "Record: CELL 'Crypt, Level 2'",
                 "    ID: in_impsmall_door_01",
                 "    Lock level: 0"});
    // Nothing is lost on the way through its own writer.
    const std::string copy = dir.File("copy.esp");
    EXPECT_EQ(ClonePlugin(file, copy).status, 0);
    EXPECT_TRUE(Contains(ReadFile(PathFromUtf8(copy)), std::string("KNAM\x07\0\0\0Key1_1", 14)));
}

// Everything but version, record count and the tops of reference numbers, rotations too, must come
// back as it was.
TEST_F(EsmtoolTest, ItsCopyHasTheSameBytesButWhatItLeavesUndefined) {
    const std::string file = WritePlugin();
    const std::string copy = dir.File("copy.esp");
    const Answer answer = ClonePlugin(file, copy);
    EXPECT_EQ(answer.status, 0) << answer.text;
    const std::string made = ReadFile(PathFromUtf8(file));
    const std::string copied = ReadFile(PathFromUtf8(copy));
    ASSERT_EQ(made.size(), 1242U);
    ASSERT_EQ(copied.size(), 1242U);
    EXPECT_EQ(copied.substr(320, 4), Hex("03 00 00 00"));
    EXPECT_EQ(WithoutWhatACopyChanges(made), WithoutWhatACopyChanges(copied));
}

TEST_F(EsmtoolTest, OnlyTheTopByteOfAReferenceNumberIsLeftOutOfTheComparison) {
    const std::string made = ReadFile(PathFromUtf8(WritePlugin()));
    const std::size_t number = made.find(std::string("FRMR\x04\0\0\0", 8)) + 8;
    std::string other = made;
    other.at(number + 3) = '\x78';
    EXPECT_EQ(WithoutWhatACopyChanges(made), WithoutWhatACopyChanges(other));
    other.at(number + 2) = '\x78';
    EXPECT_NE(WithoutWhatACopyChanges(made), WithoutWhatACopyChanges(other));
}

TEST_F(EsmtoolTest, NoticesAWrongSizeWord) {
    const std::string file = WritePlugin();
    std::string bytes = ReadFile(PathFromUtf8(file));
    ASSERT_EQ(bytes.substr(362, 4), "CONT");
    ++bytes[366];
    EXPECT_NE(DumpPlugin(dir.Write("broken.esp", bytes)).status, 0);
}

} // namespace

} // namespace Tarnex::Test

#else

#include <tests/support/LeftOut.h>

VAULTRY_LEFT_OUT_ON_WINDOWS(EsmtoolTest, "runs esmtool in a shell")

#endif
