// SPDX-License-Identifier: MIT
#include <vaultry/output/Mod.h>
#include <vaultry/output/PluginReader.h>

#include <gtest/gtest.h>

#include <ios>
#include <sstream>
#include <tests/output/PluginBytes.h>

namespace Tarnex::Test {

namespace {

// Where things stand in the sample, in the order of the file. [bytes]
constexpr std::size_t kHedr = 0x010;
constexpr std::size_t kMast = 0x144;
constexpr std::size_t kMasterSize = 0x15A;
constexpr std::size_t kCont = 0x16A;
constexpr std::size_t kContName = 0x17A;
constexpr std::size_t kCndt = 0x1BF;
constexpr std::size_t kNpco = 0x1D7;
constexpr std::size_t kCell = 0x203;
constexpr std::size_t kCellName = 0x213;
constexpr std::size_t kCellData = 0x221;
constexpr std::size_t kAmbi = 0x241;
constexpr std::size_t kNam0 = 0x259;
constexpr std::size_t kFirstRef = 0x265;
constexpr std::size_t kDodt = 0x28D;
constexpr std::size_t kDnam = 0x2AD;
constexpr std::size_t kRefData = 0x2BB;
constexpr std::size_t kSecondRef = 0x2DB;
constexpr std::size_t kSampleSize = 799;

using Lines = std::vector<std::string>;

// A door that leads back into its own cell, and a container with one item.
class PluginReaderTest : public ::testing::Test {
protected:
    PluginReaderTest() {
        const DiPtr<Container> crate = mod.CreateContainer();
        crate->SetId("Ctr1000000001_1");
        crate->SetModelName("o\\contain_crate_01.nif");
        crate->SetFriendlyName("Crate");
        crate->SetWeight(200.0F);
        crate->Add("Gold_001", 25);
        const DiPtr<Cell> cell = mod.CreateCell("Crypt");
        Ref door("in_impsmall_door_01");
        door.position = Di3Point(316.0F, 132.0F, -32.0F);
        door.rotation = Di3Point(0.0F, 0.0F, 1.5F);
        Ref arrival("Crypt");
        arrival.position = Di3Point(512.0F, -256.0F, 0.0F);
        arrival.rotation = Di3Point(0.0F, 0.0F, 4.5F);
        door.Teleport(arrival);
        cell->AddRef(door);
        Ref placed("Ctr1000000001_1");
        placed.position = Di3Point(-80.0F, -256.0F, -96.0F);
        cell->AddRef(placed);
        bytes = Written(mod);
    }

    void SetWord(std::size_t place, std::uint32_t word) {
        for (std::size_t i = 0; i < 4; ++i) {
            bytes[place + i] = static_cast<char>(static_cast<unsigned char>(word >> 8 * i));
        }
    }

    // Puts bytes into the data of a record and makes the record's size word fit.
    void Insert(std::size_t place, std::string_view more, std::size_t record) {
        bytes.insert(place, more);
        SetWord(record + 4, SizeOf(record) + static_cast<std::uint32_t>(more.size()));
    }

    void Erase(std::size_t place, std::size_t count, std::size_t record) {
        bytes.erase(place, count);
        SetWord(record + 4, SizeOf(record) - static_cast<std::uint32_t>(count));
    }

    std::uint32_t SizeOf(std::size_t record) const {
        const auto low = static_cast<unsigned char>(bytes[record + 4]);
        const auto high = static_cast<unsigned char>(bytes[record + 5]);
        return low + 256U * high;
    }

    // The findings as "OFFSET: TEXT", the offset hexadecimal.
    Lines Findings() const {
        Lines lines;
        for (const PluginFinding& finding : ReadPlugin(bytes).findings) {
            std::ostringstream line;
            line << std::hex << std::uppercase << finding.offset << ": " << finding.text;
            lines.push_back(line.str());
        }
        return lines;
    }

    Mod mod;
    std::string bytes;
};

std::string SubRecordBytes(const char* tag, std::string_view data) {
    std::string sub = tag;
    sub.push_back(static_cast<char>(data.size()));
    return sub + Zeros(3) + std::string(data);
}

TEST_F(PluginReaderTest, ReadsTheHeader) {
    ASSERT_EQ(bytes.size(), kSampleSize);
    const PluginFile file = ReadPlugin(bytes);
    EXPECT_TRUE(file.isPlugin);
    EXPECT_TRUE(file.complete);
    EXPECT_EQ(file.size, 799U);
    EXPECT_EQ(file.header.version, 1.2F);
    EXPECT_EQ(file.header.type, 0U);
    EXPECT_EQ(file.header.author, "Ostrel");
    EXPECT_EQ(file.header.description, "Auto-generated mod");
    EXPECT_EQ(file.header.recordCount, 0U);
    ASSERT_EQ(file.header.masters.size(), 1U);
    EXPECT_EQ(file.header.masters[0].name, "Morrowind.esm");
    EXPECT_EQ(file.header.masters[0].size, 79821084U);
    EXPECT_EQ(file.records, 2U);
    EXPECT_EQ(Findings(), Lines{});
}

class PathGridReadingTest : public PluginReaderTest {
protected:
    PathGridReadingTest() {
        PathGrid grid("Crypt");
        grid.points = {{0, -256, -96, {1}}, {256, -256, -96, {0, 7}}};
        bytes += Written(grid);
    }

    PluginPathGrid Grid() const { return ReadPlugin(bytes).pathGrids.at(0); }

    const std::size_t record = kSampleSize;
    const std::size_t points = record + 16 + 20 + 14 + 8; // behind DATA, NAME and a header
    const std::size_t ways = points + 32 + 8;
};

TEST_F(PathGridReadingTest, PointsHaveTheirWaysWhereverThoseLead) {
    EXPECT_EQ(Findings(), Lines{});
    EXPECT_EQ(Grid().offset, record);
    EXPECT_EQ(Grid().cell, "Crypt");
    EXPECT_EQ(Grid().points,
              (std::vector<PathPoint>{{0, -256, -96, {1}}, {256, -256, -96, {0, 7}}}));
    EXPECT_EQ(ReadPlugin(bytes).records, 3U);
    EXPECT_TRUE(ReadPlugin(bytes).otherRecords.empty());
}

TEST_F(PathGridReadingTest, MoreWaysThanThereAreAreTold) {
    bytes[points + 13] = 2;
    EXPECT_EQ(Findings(), (Lines{"31F: PGRD says 16 bytes of ways, 12 are there"}));
    EXPECT_EQ(Grid().points.at(0).ways, (std::vector<std::uint32_t>{1, 0}));
    EXPECT_EQ(Grid().points.at(1).ways, (std::vector<std::uint32_t>{7}));
}

TEST_F(PathGridReadingTest, FewerWaysThanThereAreAreTold) {
    bytes[points + 16 + 13] = 0;
    EXPECT_EQ(Findings(), (Lines{"31F: PGRD says 4 bytes of ways, 12 are there"}));
}

TEST_F(PathGridReadingTest, AnotherNumberOfPointsIsTold) {
    bytes[record + 16 + 8 + 10] = 3;
    EXPECT_EQ(Findings(), (Lines{"31F: PGRD says 48 bytes of points, 32 are there"}));
    EXPECT_EQ(Grid().points.size(), 2U);
}

TEST_F(PathGridReadingTest, OneThatTheFileCutsShortIsReadAsFarAsItGoes) {
    bytes.resize(ways + 4);
    EXPECT_EQ(Grid().points.size(), 2U);
    EXPECT_TRUE(Grid().points.at(0).ways.empty());
    bytes.resize(record + 16 + 20 + 4);
    EXPECT_TRUE(ReadPlugin(bytes).pathGrids.empty());
}

TEST_F(PluginReaderTest, ReadsKeys) {
    Key key("Key1_1");
    key.name = "Key 1";
    key.model = "m\\k.nif";
    key.icon = "m\\k.tga";
    bytes += Written(key);
    const PluginFile file = ReadPlugin(bytes);
    ASSERT_EQ(file.keys.size(), 1U);
    EXPECT_EQ(file.keys[0].offset, kSampleSize);
    EXPECT_EQ(file.keys[0].id, "Key1_1");
    EXPECT_EQ(file.keys[0].name, "Key 1");
    EXPECT_EQ(file.keys[0].model, "m\\k.nif");
    EXPECT_EQ(file.keys[0].icon, "m\\k.tga");
    EXPECT_EQ(file.keys[0].weight, 0.0F);
    EXPECT_EQ(file.keys[0].worth, 0);
    EXPECT_FALSE(file.keys[0].deleted);
    EXPECT_TRUE(file.otherRecords.empty());
    EXPECT_EQ(Findings(), Lines{});
}

TEST_F(PluginReaderTest, AnItemThatIsNoKeyIsOneOfTheOtherRecords) {
    Key key("misc_spoon");
    std::string record = Written(key);
    record.at(record.size() - 4) = 0;
    bytes += record;
    const PluginFile file = ReadPlugin(bytes);
    EXPECT_TRUE(file.keys.empty());
    EXPECT_EQ(file.otherRecords.at("MISC"), 1U);
    EXPECT_EQ(Findings(), Lines{});
    // Nor is one known for a key that says nothing of it.
    bytes += "MISC" + Hex("0A 00 00 00") + Zeros(8) + "NAME" + Hex("02 00 00 00") + "A" + Zeros(1);
    EXPECT_EQ(ReadPlugin(bytes).otherRecords.at("MISC"), 2U);
    EXPECT_EQ(Findings(), (Lines{"356: MISC has no MCDT"}));
}

TEST_F(PluginReaderTest, ReadsWhatKeepsThingsShut) {
    RefLock lock;
    lock.level = 35;
    lock.key = "Key1_1";
    lock.trap = "a_trap";
    mod.GetCells()[0]->LockRef(0, lock);
    RefLock open;
    open.level = -20;
    mod.GetCells()[0]->LockRef(1, open);
    bytes = Written(mod);
    const PluginFile file = ReadPlugin(bytes);
    const std::vector<PluginRef>& refs = file.cells.at(0).refs;
    EXPECT_EQ(refs.at(0).lock, (PluginLock{35, "Key1_1", "a_trap"}));
    EXPECT_EQ(refs.at(1).lock, (PluginLock{-20, "", ""}));
    EXPECT_TRUE(file.skippedSubRecords.empty());
    EXPECT_EQ(Findings(), Lines{});
}

TEST_F(PluginReaderTest, WhereNothingIsSaidThereIsNoLock) {
    EXPECT_FALSE(ReadPlugin(bytes).cells.at(0).refs.at(0).lock);
    RefLock trap;
    trap.trap = "a_trap";
    mod.GetCells()[0]->LockRef(0, trap);
    bytes = Written(mod);
    EXPECT_EQ(ReadPlugin(bytes).cells.at(0).refs.at(0).lock,
              (PluginLock{std::nullopt, "", "a_trap"}));
}

TEST_F(PluginReaderTest, ReadsAContainer) {
    const PluginFile file = ReadPlugin(bytes);
    ASSERT_EQ(file.containers.size(), 1U);
    const PluginContainer& crate = file.containers[0];
    EXPECT_EQ(crate.offset, kCont);
    EXPECT_EQ(crate.id, "Ctr1000000001_1");
    EXPECT_EQ(crate.model, "o\\contain_crate_01.nif");
    EXPECT_EQ(crate.name, "Crate");
    EXPECT_EQ(crate.capacity, 200.0F);
    EXPECT_EQ(crate.flags, 8U);
    ASSERT_EQ(crate.items.size(), 1U);
    EXPECT_EQ(crate.items[0].id, "Gold_001");
    EXPECT_EQ(crate.items[0].count, 25);
}

TEST_F(PluginReaderTest, ReadsACell) {
    const PluginFile file = ReadPlugin(bytes);
    ASSERT_EQ(file.cells.size(), 1U);
    const PluginCell& cell = file.cells[0];
    EXPECT_EQ(cell.offset, kCell);
    EXPECT_EQ(cell.name, "Crypt");
    EXPECT_EQ(cell.flags, 1U);
    EXPECT_EQ(cell.ambient, 0x00474747U);
    EXPECT_EQ(cell.sunlight, 0x00D9D9F2U);
    EXPECT_EQ(cell.fog, 0U);
    EXPECT_EQ(cell.fogDensity, 1.0F);
    EXPECT_EQ(cell.waterHeight, 0.0F);
    EXPECT_EQ(cell.refCount, 2U);
    EXPECT_EQ(cell.refsBeforeCount, 0U);
    EXPECT_EQ(cell.refs.size(), 2U);
}

TEST_F(PluginReaderTest, ReadsReferencesAndWhereDoorsLead) {
    const std::vector<PluginRef> refs = ReadPlugin(bytes).cells.at(0).refs;
    ASSERT_EQ(refs.size(), 2U);
    EXPECT_EQ(refs[0].offset, kFirstRef);
    EXPECT_EQ(refs[0].index, 1U);
    EXPECT_EQ(refs[0].id, "in_impsmall_door_01");
    EXPECT_EQ(refs[0].scale, 1.0F);
    EXPECT_EQ(refs[0].place.position, Di3Point(316.0F, 132.0F, -32.0F));
    EXPECT_EQ(refs[0].place.rotation, Di3Point(0.0F, 0.0F, 1.5F));
    ASSERT_TRUE(refs[0].destination);
    EXPECT_EQ(refs[0].destination->cell, "Crypt");
    EXPECT_EQ(refs[0].destination->arrival.position, Di3Point(512.0F, -256.0F, 0.0F));
    EXPECT_EQ(refs[0].destination->arrival.rotation, Di3Point(0.0F, 0.0F, 4.5F));
    EXPECT_EQ(refs[1].offset, kSecondRef);
    EXPECT_EQ(refs[1].index, 2U);
    EXPECT_FALSE(refs[1].destination);
}

TEST_F(PluginReaderTest, ReadsAScale) {
    Insert(kRefData, SubRecordBytes("XSCL", Hex("00 00 00 3F")), kCell);
    EXPECT_EQ(ReadPlugin(bytes).cells.at(0).refs.at(0).scale, 0.5F);
    EXPECT_EQ(Findings(), Lines{});
}

TEST_F(PluginReaderTest, TextEndsAtItsFirstZeroByte) {
    bytes[kCellName + 8 + 2] = '\0';
    bytes[kNpco + 12 + 4] = '\0';
    EXPECT_EQ(ReadPlugin(bytes).cells.at(0).name, "Cr");
    EXPECT_EQ(ReadPlugin(bytes).containers.at(0).items.at(0).id, "Gold");
}

TEST_F(PluginReaderTest, TextWithoutAZeroByteFillsItsField) {
    bytes[kCellName + 8 + 5] = 's';
    bytes.replace(kNpco + 12, 32, std::string(32, 'g'));
    EXPECT_EQ(ReadPlugin(bytes).cells.at(0).name, "Crypts");
    EXPECT_EQ(ReadPlugin(bytes).containers.at(0).items.at(0).id, std::string(32, 'g'));
}

TEST_F(PluginReaderTest, AMasterOf4GigabytesHasASizeOfTwoWords) {
    SetWord(kMasterSize + 8, 5);
    SetWord(kMasterSize + 12, 1);
    EXPECT_EQ(ReadPlugin(bytes).header.masters.at(0).size, 4294967301U);
}

TEST_F(PluginReaderTest, SkipsAndCountsUnknownRecords) {
    const std::string light =
        "LIGH" + Hex("0B 00 00 00") + Zeros(8) + SubRecordBytes("NAME", "ab") + std::string();
    bytes.insert(kCont, "LIGH" + Hex("0A 00 00 00") + Zeros(8) + SubRecordBytes("NAME", "ab"));
    bytes += "STAT" + Zeros(12) + "STAT" + Zeros(12);
    const PluginFile file = ReadPlugin(bytes);
    EXPECT_EQ(file.otherRecords, (PluginTagCounts{{"LIGH", 1}, {"STAT", 2}}));
    EXPECT_EQ(file.records, 5U);
    EXPECT_EQ(file.cells.size(), 1U);
    EXPECT_EQ(Findings(), Lines{});
}

TEST_F(PluginReaderTest, SkipsAndCountsUnknownSubRecords) {
    Insert(kRefData, SubRecordBytes("ANAM", "owner"), kCell);
    Insert(kNam0, SubRecordBytes("NAM5", "blue"), kCell);
    Insert(kNpco, SubRecordBytes("SCRI", "script"), kCont);
    const PluginFile file = ReadPlugin(bytes);
    EXPECT_EQ(file.skippedSubRecords, (PluginTagCounts{{"ANAM", 1}, {"NAM5", 1}, {"SCRI", 1}}));
    EXPECT_EQ(file.cells.at(0).refs.at(0).destination->cell, "Crypt");
    EXPECT_EQ(Findings(), Lines{});
}

TEST_F(PluginReaderTest, KeepsOfExteriorsTheDoorsThatLeadElsewhere) {
    SetWord(kCellData + 8, 6);
    SetWord(kCellData + 12, 0xFFFFFFFE);
    SetWord(kCellData + 16, 9);
    Insert(kNam0, SubRecordBytes("RGNN", "West Gash"), kCell);
    const PluginFile file = ReadPlugin(bytes);
    EXPECT_TRUE(file.cells.empty());
    EXPECT_EQ(file.exteriorCells, 1U);
    ASSERT_EQ(file.exteriors.size(), 1U);
    const PluginCell& cell = file.exteriors[0];
    EXPECT_EQ(cell.name, "Crypt");
    EXPECT_EQ(cell.flags, 6U);
    EXPECT_EQ(cell.column, -2);
    EXPECT_EQ(cell.row, 9);
    EXPECT_EQ(cell.region, "West Gash");
    // Of two references the one that is a door.
    ASSERT_EQ(cell.refs.size(), 1U);
    EXPECT_EQ(cell.refs[0].destination->cell, "Crypt");
    EXPECT_EQ(Findings(), Lines{});
}

TEST_F(PluginReaderTest, ExteriorsWithoutSuchDoorsAreCounted) {
    SetWord(kCellData + 8, 2);
    bytes.replace(bytes.find("DODT"), 4, "AODT");
    bytes.replace(bytes.find("DNAM"), 4, "ANAM");
    const PluginFile file = ReadPlugin(bytes);
    EXPECT_EQ(file.exteriorCells, 1U);
    EXPECT_TRUE(file.exteriors.empty());
    EXPECT_EQ(Findings(), Lines{});
}

TEST_F(PluginReaderTest, TheNumberOfReferencesMayStandBetweenThem) {
    const std::string count = bytes.substr(kNam0, 12);
    Erase(kNam0, 12, kCell);
    Insert(kSecondRef - 12, count, kCell);
    const PluginCell cell = ReadPlugin(bytes).cells.at(0);
    EXPECT_EQ(cell.refs.size(), 2U);
    EXPECT_EQ(cell.refCount, 2U);
    EXPECT_EQ(cell.refsBeforeCount, 1U);
    EXPECT_EQ(Findings(), Lines{});
}

TEST_F(PluginReaderTest, TheWaterHeightMayBeAWholeNumberOrAReal) {
    SetWord(0x23D, 0xFFFFFFFE);
    EXPECT_EQ(ReadPlugin(bytes).cells.at(0).waterHeight, -2.0F);
    bytes.replace(0x235, 4, "WHGT");
    SetWord(0x23D, 0x3F000000);
    EXPECT_EQ(ReadPlugin(bytes).cells.at(0).waterHeight, 0.5F);
}

TEST_F(PluginReaderTest, WhatIsDeletedNeedsNoFurtherFields) {
    bytes.resize(kSecondRef);
    bytes += SubRecordBytes("FRMR", Hex("02 00 00 00")) + SubRecordBytes("NAME", "a") +
             SubRecordBytes("DELE", Zeros(4));
    SetWord(kCell + 4, static_cast<std::uint32_t>(bytes.size() - kCell - 16));
    bytes += "CONT" + Hex("15 00 00 00") + Zeros(8) + SubRecordBytes("NAME", "a") +
             SubRecordBytes("DELE", Zeros(4));
    const PluginFile file = ReadPlugin(bytes);
    EXPECT_FALSE(file.cells.at(0).refs.at(0).deleted);
    EXPECT_TRUE(file.cells.at(0).refs.at(1).deleted);
    EXPECT_TRUE(file.containers.at(1).deleted);
    EXPECT_EQ(Findings(), Lines{});
}

TEST_F(PluginReaderTest, WhatDoesNotBeginWithAHeaderIsNoPlugin) {
    EXPECT_FALSE(ReadPlugin("").isPlugin);
    EXPECT_FALSE(ReadPlugin("TES3").isPlugin);
    EXPECT_FALSE(ReadPlugin("TES4" + Zeros(400)).isPlugin);
    EXPECT_FALSE(ReadPlugin(bytes.substr(1)).isPlugin);
    EXPECT_TRUE(ReadPlugin(bytes.substr(0, 16)).isPlugin);
}

TEST_F(PluginReaderTest, TellsOfARecordLargerThanTheRestOfTheFile) {
    SetWord(kCell + 4, 812);
    EXPECT_EQ(Findings(), (Lines{"203: record CELL says 812 bytes, 268 follow"}));
    const PluginFile file = ReadPlugin(bytes);
    EXPECT_FALSE(file.complete);
    EXPECT_EQ(file.cells.at(0).refs.size(), 2U);
}

TEST_F(PluginReaderTest, TellsOfAHeaderLargerThanTheFile) {
    SetWord(4, 0xFFFFFFFF);
    EXPECT_EQ(Findings().at(0), "0: record TES3 says 4294967295 bytes, 783 follow");
}

TEST_F(PluginReaderTest, TellsOfARecordThatEndsTooEarly) {
    SetWord(kCell + 4, 267);
    EXPECT_EQ(Findings(),
              (Lines{"2FF: sub-record DATA of CELL says 24 bytes, 23 are left in the record",
                     "2DB: reference 2 has no DATA",
                     "31E: 1 byte at the end of the file are no record"}));
    EXPECT_FALSE(ReadPlugin(bytes).complete);
}

TEST_F(PluginReaderTest, TellsOfARecordThatReachesIntoTheNext) {
    SetWord(kCont + 4, 138);
    EXPECT_EQ(Findings(),
              (Lines{"203: 1 byte at the end of CONT are no sub-record",
                     "204: no record begins here; 283 bytes are not read"}));
}

TEST_F(PluginReaderTest, TellsOfBytesBehindTheLastRecord) {
    bytes += "CELL";
    EXPECT_EQ(Findings(), (Lines{"31F: 4 bytes at the end of the file are no record"}));
    bytes += Zeros(12) + Zeros(20);
    EXPECT_EQ(Findings(),
              (Lines{"31F: CELL has no NAME",
                     "31F: CELL has no DATA",
                     "32F: no record begins here; 20 bytes are not read"}));
}

TEST_F(PluginReaderTest, TellsOfASubRecordLargerThanItsRecord) {
    SetWord(kSecondRef + 12 + 4, 17 + 32);
    EXPECT_EQ(Findings(),
              (Lines{"2E7: sub-record NAME of CELL says 49 bytes, 48 are left in the record",
                     "2DB: reference 2 has no NAME",
                     "2DB: reference 2 has no DATA"}));
    EXPECT_TRUE(ReadPlugin(bytes).complete);
}

TEST_F(PluginReaderTest, TellsWhereNoSubRecordBegins) {
    SetWord(kSecondRef + 12 + 4, 15);
    EXPECT_EQ(Findings(),
              (Lines{"2FE: no sub-record of CELL begins here; 33 bytes are not read",
                     "2DB: reference 2 has no DATA"}));
}

struct WrongSize {
    std::size_t place;
    std::string_view more; // bytes put at the end of the sub-record
    std::size_t size;
    std::size_t record;
    const char* line;
};

TEST_F(PluginReaderTest, TellsOfEverySubRecordOfAWrongSize) {
    const std::string good = bytes;
    const WrongSize cases[] = {
        {kHedr, "ab", 300, 0, "10: HEDR of TES3 has 302 bytes instead of 300"},
        {kMasterSize, "abcd", 8, 0, "15A: DATA of TES3 has 12 bytes instead of 8"},
        {kCndt, "a", 4, kCont, "1BF: CNDT of CONT has 5 bytes instead of 4"},
        {kCndt + 12, "a", 4, kCont, "1CB: FLAG of CONT has 5 bytes instead of 4"},
        {kNpco, "a", 36, kCont, "1D7: NPCO of CONT has 37 bytes instead of 36"},
        {kCellData, "a", 12, kCell, "221: DATA of CELL has 13 bytes instead of 12"},
        {0x235, "a", 4, kCell, "235: INTV of CELL has 5 bytes instead of 4"},
        {kAmbi, "a", 16, kCell, "241: AMBI of CELL has 17 bytes instead of 16"},
        {kNam0, "a", 4, kCell, "259: NAM0 of CELL has 5 bytes instead of 4"},
        {kFirstRef, "a", 4, kCell, "265: FRMR of a reference has 5 bytes instead of 4"},
        {kDodt, "a", 24, kCell, "28D: DODT of a reference has 25 bytes instead of 24"},
        {kRefData, "a", 24, kCell, "2BB: DATA of a reference has 25 bytes instead of 24"},
    };
    for (const WrongSize& wrong : cases) {
        SCOPED_TRACE(wrong.line);
        bytes = good;
        Insert(wrong.place + 8 + wrong.size, wrong.more, wrong.record);
        SetWord(wrong.place + 4, static_cast<std::uint32_t>(wrong.size + wrong.more.size()));
        // A reference whose DODT cannot be used has no place of arrival for its DNAM.
        EXPECT_EQ(Findings().at(0), wrong.line);
        EXPECT_TRUE(ReadPlugin(bytes).complete);
    }
}

TEST_F(PluginReaderTest, TellsOfAScaleOfAWrongSize) {
    Insert(kRefData, SubRecordBytes("XSCL", "abcde"), kCell);
    EXPECT_EQ(Findings(), (Lines{"2BB: XSCL of a reference has 5 bytes instead of 4"}));
    EXPECT_EQ(ReadPlugin(bytes).cells.at(0).refs.at(0).scale, 1.0F);
}

struct Missing {
    std::size_t place;
    std::size_t count;
    std::size_t record;
    const char* line;
};

TEST_F(PluginReaderTest, TellsWhatIsMissing) {
    const std::string good = bytes;
    const Missing cases[] = {
        {kHedr, 308, 0, "0: TES3 has no HEDR"},
        {kMasterSize, 16, 0, "144: MAST of TES3 is not followed by its DATA"},
        {kMast, 22, 0, "144: DATA of TES3 does not follow a MAST"},
        {kContName, 24, kCont, "16A: CONT has no NAME"},
        {kCndt, 12, kCont, "16A: CONT has no CNDT"},
        {kCndt + 12, 12, kCont, "16A: CONT has no FLAG"},
        {kCellName, 14, kCell, "203: CELL has no NAME"},
        {kCellData, 20, kCell, "203: CELL has no DATA"},
        {kFirstRef + 12, 28, kCell, "265: reference 1 has no NAME"},
        {kDodt, 32, kCell, "28D: DNAM of a reference does not follow a DODT"},
        {kRefData, 32, kCell, "265: reference 1 has no DATA"},
        {kSecondRef + 36, 32, kCell, "2DB: reference 2 has no DATA"},
    };
    for (const Missing& missing : cases) {
        SCOPED_TRACE(missing.line);
        bytes = good;
        Erase(missing.place, missing.count, missing.record);
        EXPECT_EQ(Findings(), (Lines{missing.line}));
    }
}

TEST_F(PluginReaderTest, TellsOfAMasterWithoutASizeBeforeAnother) {
    Insert(kMast, SubRecordBytes("MAST", "a"), 0);
    EXPECT_EQ(Findings(), (Lines{"144: MAST of TES3 is not followed by its DATA"}));
    EXPECT_EQ(ReadPlugin(bytes).header.masters.size(), 2U);
}

TEST_F(PluginReaderTest, TellsWhatStandsThereTwice) {
    Insert(kDnam, bytes.substr(kDodt, 32), kCell);
    Insert(kCellData, bytes.substr(kCellName, 14), kCell);
    Insert(kCont + 16, SubRecordBytes("NAME", "other"), kCont);
    EXPECT_EQ(Findings(),
              (Lines{"187: NAME of CONT stands there twice",
                     "22E: NAME of CELL stands there twice",
                     "2C8: DODT of a reference stands there twice"}));
}

TEST_F(PluginReaderTest, TellsOfASecondHeader) {
    bytes += bytes.substr(0, kCont);
    EXPECT_EQ(Findings(), (Lines{"31F: a second header stands here"}));
}

TEST_F(PluginReaderTest, AFileCutAnywhereIsReadUpToTheCut) {
    for (std::size_t length = 16; length < kSampleSize; ++length) {
        SCOPED_TRACE(length);
        const PluginFile file = ReadPlugin(std::string_view(bytes).substr(0, length));
        const bool betweenRecords = length == kCont || length == kCell;
        EXPECT_TRUE(file.isPlugin);
        EXPECT_EQ(file.complete, betweenRecords);
        EXPECT_EQ(file.findings.size(), betweenRecords ? 0U : 1U);
        EXPECT_EQ(file.size, length);
    }
}

TEST_F(PluginReaderTest, WhatTheEndOfTheFileCutsShortIsLeftOut) {
    const auto readUpTo = [this](std::size_t length) {
        return ReadPlugin(std::string_view(bytes).substr(0, length));
    };
    EXPECT_EQ(readUpTo(kSampleSize - 1).cells.at(0).refs.size(), 1U);
    EXPECT_EQ(readUpTo(kSecondRef).cells.at(0).refs.size(), 1U);
    EXPECT_EQ(readUpTo(kRefData).cells.at(0).refs.size(), 0U);
    EXPECT_EQ(readUpTo(kAmbi).cells.size(), 1U);
    EXPECT_EQ(readUpTo(kAmbi - 13).cells.size(), 0U);
    EXPECT_EQ(readUpTo(kNpco).containers.size(), 1U);
    EXPECT_EQ(readUpTo(kNpco - 1).containers.size(), 0U);
}

TEST_F(PluginReaderTest, NoByteCanBeWrongEnoughToDoHarm) {
    for (std::size_t place = 0; place < kSampleSize; ++place) {
        const char good = bytes[place];
        for (const int flip : {0x01, 0x80, 0xFF}) {
            bytes[place] = static_cast<char>(good ^ flip);
            const PluginFile file = ReadPlugin(bytes);
            EXPECT_LE(file.cells.size(), 1U) << place;
            EXPECT_LE(file.findings.size(), 8U) << place;
        }
        bytes[place] = good;
    }
}

TEST_F(PluginReaderTest, ARuinedFileGivesAThousandFindingsAndTheirNumber) {
    for (int i = 0; i < 600; ++i) {
        bytes += "CELL" + Zeros(12);
    }
    const PluginFile file = ReadPlugin(bytes);
    EXPECT_EQ(file.findings.size(), 1000U);
    EXPECT_EQ(file.findingsLeftOut, 200U);
    EXPECT_TRUE(file.complete);
}

} // namespace

} // namespace Tarnex::Test
