// SPDX-License-Identifier: MIT
#include <vaultry/output/Container.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/output/PluginBytes.h>
#include <tests/support/LogTest.h>
#include <utility>
#include <vector>

namespace Tarnex::Test {

namespace {

using Lines = std::vector<std::string>;

class ContainerTest : public LogTest {
protected:
    void NameIt() {
        container.SetId("Ctr_1");
        container.SetModelName("o.nif");
        container.SetFriendlyName("Crate");
    }

    // The data of the n-th NPCO sub-record.
    std::string WrittenItem(std::size_t n) {
        const std::vector<Record> records = WalkRecords(Written(container));
        return records.at(0).subs.at(5 + n).data;
    }

    Container container;
};

TEST_F(ContainerTest, StartsEmpty) {
    EXPECT_EQ(container.GetId(), "");
    EXPECT_EQ(container.GetFriendlyName(), "");
    EXPECT_EQ(container.GetWeight(), 0.0F);
    EXPECT_EQ(container.GetEncumbrance(), 0.0F);
    EXPECT_TRUE(container.GetInventory().empty());
}

TEST_F(ContainerTest, NamesThatWereNeverSetHaveNoData) {
    EXPECT_EQ(Written(container),
              "CONT" + Hex("30 00 00 00") + Zeros(8) +               //
                  "NAME" + Hex("00 00 00 00") +                      //
                  "MODL" + Hex("00 00 00 00") +                      //
                  "FNAM" + Hex("00 00 00 00") +                      //
                  "CNDT" + Hex("04 00 00 00") + Hex("00 00 00 00") + //
                  "FLAG" + Hex("04 00 00 00") + Hex("08 00 00 00"));
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(ContainerTest, AnEmptyNameIsOneZeroByte) {
    container.SetId("");
    container.SetModelName("");
    container.SetFriendlyName("");
    EXPECT_EQ(Written(container),
              "CONT" + Hex("33 00 00 00") + Zeros(8) +               //
                  "NAME" + Hex("01 00 00 00") + Zeros(1) +           //
                  "MODL" + Hex("01 00 00 00") + Zeros(1) +           //
                  "FNAM" + Hex("01 00 00 00") + Zeros(1) +           //
                  "CNDT" + Hex("04 00 00 00") + Hex("00 00 00 00") + //
                  "FLAG" + Hex("04 00 00 00") + Hex("08 00 00 00"));
}

TEST_F(ContainerTest, IsWrittenWithTheModelBeforeTheDisplayName) {
    NameIt();
    container.SetWeight(200.0F);
    container.Add("Gold_001", 25);
    EXPECT_EQ(Written(container),
              "CONT" + Hex("6E 00 00 00") + Zeros(8) +               //
                  "NAME" + Hex("06 00 00 00") + "Ctr_1" + Zeros(1) + //
                  "MODL" + Hex("06 00 00 00") + "o.nif" + Zeros(1) + //
                  "FNAM" + Hex("06 00 00 00") + "Crate" + Zeros(1) + //
                  "CNDT" + Hex("04 00 00 00") + Hex("00 00 48 43") + //
                  "FLAG" + Hex("04 00 00 00") + Hex("08 00 00 00") + //
                  "NPCO" + Hex("24 00 00 00") + Hex("19 00 00 00") + "Gold_001" + Zeros(24));
}

TEST_F(ContainerTest, AnEmptyInventoryWritesNoItems) {
    NameIt();
    const std::vector<Record> records = WalkRecords(Written(container));
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(Tags(records[0].subs), "NAME MODL FNAM CNDT FLAG");
    EXPECT_EQ(records[0].size, 6U + 6U + 6U + 48U);
}

TEST_F(ContainerTest, EntriesOfTheSameItemAreNotMerged) {
    NameIt();
    container.Add("Gold_001", 25);
    container.Add("Gold_001", 3);
    const std::vector<Record> records = WalkRecords(Written(container));
    EXPECT_EQ(Tags(records[0].subs), "NAME MODL FNAM CNDT FLAG NPCO NPCO");
    EXPECT_EQ(WrittenItem(0), Hex("19 00 00 00") + "Gold_001" + Zeros(24));
    EXPECT_EQ(WrittenItem(1), Hex("03 00 00 00") + "Gold_001" + Zeros(24));
    EXPECT_EQ(records[0].size, 6U + 6U + 6U + 48U + 88U);
}

TEST_F(ContainerTest, TheInventoryKeepsTheOrderOfInsertion) {
    container.Add("b", 2);
    container.Add("a", 1);
    container.Add("b", 0);
    EXPECT_EQ(container.GetInventory(),
              (std::vector<std::pair<std::string, std::uint32_t>>{{"b", 2}, {"a", 1}, {"b", 0}}));
}

TEST_F(ContainerTest, AnItemIdOf31BytesIsWhole) {
    const std::string id(31, 'i');
    container.Add(id.c_str(), 1);
    EXPECT_EQ(WrittenItem(0), Hex("01 00 00 00") + id + Zeros(1));
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(ContainerTest, AnItemIdOf32BytesIsCutTo31AndLogged) {
    const std::string id = std::string(31, 'i') + "x";
    container.Add(id.c_str(), 1);
    EXPECT_EQ(WrittenItem(0), Hex("01 00 00 00") + std::string(31, 'i') + Zeros(1));
    EXPECT_EQ(ErrorLines(),
              (Lines{"Error : XmlOut : Output string ('" + id +
                     "') exceeded maximum field length of 32."}));
}

TEST_F(ContainerTest, AnItemWithoutAnIdIsWrittenAsZeros) {
    container.Add("", 4294967295U);
    EXPECT_EQ(WrittenItem(0), Hex("FF FF FF FF") + Zeros(32));
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(ContainerTest, TheLoadIsKeptButNotWritten) {
    NameIt();
    const std::string before = Written(container);
    container.SetEncumbrance(12.5F);
    EXPECT_EQ(container.GetEncumbrance(), 12.5F);
    EXPECT_EQ(Written(container), before);
    EXPECT_EQ(container.GetWeight(), 0.0F);
}

TEST_F(ContainerTest, AddingAnItemLeavesTheLoadToTheCaller) {
    container.Add("Gold_001", 25);
    EXPECT_EQ(container.GetEncumbrance(), 0.0F);
}

TEST_F(ContainerTest, TheCapacityIsWritten) {
    container.SetWeight(0.5F);
    EXPECT_EQ(container.GetWeight(), 0.5F);
    EXPECT_EQ(container.GetEncumbrance(), 0.0F);
    const std::vector<Record> records = WalkRecords(Written(container));
    EXPECT_EQ(records.at(0).subs.at(3).tag, "CNDT");
    EXPECT_EQ(records.at(0).subs.at(3).data, Hex("00 00 00 3F"));
}

TEST_F(ContainerTest, UpdateSizeCountsNamesAndItems) {
    container.UpdateSize();
    EXPECT_EQ(container.GetRecordSize(), 48U);
    container.SetId("12345");
    container.UpdateSize();
    EXPECT_EQ(container.GetRecordSize(), 48U + 6U);
    container.SetModelName("123");
    container.SetFriendlyName("1");
    container.Add("a", 1);
    container.UpdateSize();
    EXPECT_EQ(container.GetRecordSize(), 48U + 6U + 4U + 2U + 44U);
}

TEST_F(ContainerTest, SettingANameAgainReplacesIt) {
    container.SetId("long name");
    container.SetId("id");
    EXPECT_EQ(container.GetId(), "id");
    container.UpdateSize();
    EXPECT_EQ(container.GetRecordSize(), 48U + 3U);
}

TEST_F(ContainerTest, LongNamesAreNeverCut) {
    const std::string name(300, 'n');
    container.SetId(name.c_str());
    container.SetModelName(name.c_str());
    container.SetFriendlyName(name.c_str());
    const std::vector<Record> records = WalkRecords(Written(container));
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(records.at(0).subs.at(i).data, name + Zeros(1));
    }
    EXPECT_TRUE(ErrorLines().empty());
}

} // namespace

} // namespace Tarnex::Test
