// SPDX-License-Identifier: MIT
#include <vaultry/output/Cell.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/output/PluginBytes.h>
#include <vector>

namespace Tarnex::Test {

namespace {

// The numbers of the references of a written cell, as hexadecimal bytes.
std::vector<std::string> WrittenIndices(Cell& cell) {
    std::vector<std::string> indices;
    for (const Record& record : WalkRecords(Written(cell))) {
        for (const SubRecord& sub : record.subs) {
            if (sub.tag == "FRMR") {
                indices.push_back(sub.data);
            }
        }
    }
    return indices;
}

TEST(CellTest, ACellWithoutReferencesIsWrittenWithItsDefaults) {
    Cell cell("A");
    EXPECT_EQ(Written(cell),
              "CELL" + Hex("42 00 00 00") + Zeros(8) +                           //
                  "NAME" + Hex("02 00 00 00") + "A" + Zeros(1) +                 //
                  "DATA" + Hex("0C 00 00 00") +                                  //
                  Hex("01 00 00 00") + Hex("00 00 00 00") + Hex("00 00 80 3F") + //
                  "INTV" + Hex("04 00 00 00") + Hex("00 00 00 00") +             //
                  "AMBI" + Hex("10 00 00 00") +                                  //
                  Hex("47 47 47 00") + Hex("F2 D9 D9 00") +                      //
                  Hex("00 00 00 00") + Hex("00 00 80 3F"));
}

TEST(CellTest, ACellWithANameOfOneCharacterHas66BytesOfData) {
    Cell cell("A");
    EXPECT_EQ(Written(cell).size(), 16U + 66U);
    EXPECT_EQ(cell.GetRecordSize(), 66U);
}

TEST(CellTest, WithoutReferencesThereIsNoCount) {
    Cell cell("A");
    const std::vector<Record> records = WalkRecords(Written(cell));
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(Tags(records[0].subs), "NAME DATA INTV AMBI");
}

TEST(CellTest, AnEmptyNameIsOneZeroByte) {
    Cell cell("");
    EXPECT_EQ(Written(cell).substr(0, 25),
              "CELL" + Hex("41 00 00 00") + Zeros(8) + "NAME" + Hex("01 00 00 00") + Zeros(1));
}

TEST(CellTest, ReferencesFollowTheirCountInOrder) {
    Cell cell("A");
    cell.AddRef(Ref("door"));
    Ref crate("crate");
    crate.scale = 0.5F;
    cell.AddRef(crate);
    Ref firstWritten("door");
    firstWritten.SetIndex(1);
    crate.SetIndex(2);
    const std::string bytes = Written(cell);
    // 66 + 12 + (5 + 20 + 32) + (6 + 20 + 32 + 12)
    EXPECT_EQ(bytes.substr(0, 8), "CELL" + Hex("CD 00 00 00"));
    EXPECT_EQ(bytes.size(), 16U + 205U);
    EXPECT_EQ(bytes.substr(16 + 66),
              "NAM0" + Hex("04 00 00 00 02 00 00 00") + Written(firstWritten) + Written(crate));
}

TEST(CellTest, UpdateSizeCountsTheReferences) {
    Cell cell("Crypt");
    cell.UpdateSize();
    EXPECT_EQ(cell.GetRecordSize(), 6U + 64U);
    cell.AddRef(Ref("NorthMarker"));
    cell.UpdateSize();
    EXPECT_EQ(cell.GetRecordSize(), 6U + 64U + 12U + 64U);
}

TEST(CellTest, AddRefKeepsACopy) {
    Cell cell("A");
    Ref ref("before");
    ref.position = Di3Point(1.0F, 2.0F, 3.0F);
    cell.AddRef(ref);
    ref.SetName("after");
    ref.position = Di3Point();
    ASSERT_EQ(cell.GetRefs().size(), 1U);
    EXPECT_EQ(cell.GetRefs()[0].GetName(), "before");
    EXPECT_EQ(cell.GetRefs()[0].position, Di3Point(1.0F, 2.0F, 3.0F));
}

TEST(CellTest, NumbersItsReferencesFrom1WhenWritten) {
    Cell cell("A");
    for (int i = 0; i < 3; ++i) {
        Ref ref("crate");
        ref.SetIndex(77);
        cell.AddRef(ref);
    }
    const std::vector<std::string> expected = {
        Hex("01 00 00 00"), Hex("02 00 00 00"), Hex("03 00 00 00")};
    EXPECT_EQ(WrittenIndices(cell), expected);
    EXPECT_EQ(WrittenIndices(cell), expected);
}

TEST(CellTest, NumbersRestartAt1InEveryCell) {
    Cell first("A");
    first.AddRef(Ref("crate"));
    first.AddRef(Ref("crate"));
    Cell second("B");
    second.AddRef(Ref("crate"));
    WrittenIndices(first);
    EXPECT_EQ(WrittenIndices(second), (std::vector<std::string>{Hex("01 00 00 00")}));
}

TEST(CellTest, MoreThan256ReferencesAreCountedInMoreThanOneByte) {
    Cell cell("A");
    for (int i = 0; i < 300; ++i) {
        cell.AddRef(Ref("crate"));
    }
    EXPECT_EQ(Written(cell).substr(16 + 66, 12), "NAM0" + Hex("04 00 00 00 2C 01 00 00"));
    EXPECT_EQ(WrittenIndices(cell).back(), Hex("2C 01 00 00"));
}

TEST(CellTest, ACopyHasAReferenceListOfItsOwn) {
    Cell original("A");
    original.AddRef(Ref("crate"));
    Cell copy(original);
    original.AddRef(Ref("door"));
    EXPECT_EQ(copy.GetName(), "A");
    EXPECT_EQ(copy.GetRefs().size(), 1U);
    EXPECT_EQ(Written(copy).size(), 16U + 66U + 12U + 58U);
}

TEST(CellTest, AssignmentCopiesEverything) {
    Cell source("Source");
    source.AddRef(Ref("crate"));
    Cell target("T");
    target.AddRef(Ref("door"));
    target.AddRef(Ref("door"));
    target = source;
    EXPECT_EQ(Written(target), Written(source));
}

} // namespace

} // namespace Tarnex::Test
