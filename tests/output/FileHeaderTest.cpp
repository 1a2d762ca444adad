// SPDX-License-Identifier: MIT
#include <vaultry/output/FileHeader.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/output/PluginBytes.h>
#include <tests/support/LogTest.h>

namespace Tarnex::Test {

namespace {

class FileHeaderTest : public LogTest {
protected:
    void ExpectMaster(const std::string& name, std::uint32_t size) {
        EXPECT_EQ(MasterOf(Written(header)), name + ' ' + std::to_string(size));
    }

    FileHeader header;
};

TEST_F(FileHeaderTest, IsWrittenWithItsDefaults) {
    EXPECT_EQ(Written(header),
              "TES3" + Hex("5A 01 00 00") + Zeros(8) +      //
                  "HEDR" + Hex("2C 01 00 00") +             //
                  Hex("9A 99 99 3F") + Hex("00 00 00 00") + //
                  "Ostrel" + Zeros(26) +                    //
                  "Auto-generated mod" + Zeros(242) +       //
                  "MAST" + Hex("0E 00 00 00") +             //
                  "Morrowind.esm" + Zeros(1) +              //
                  "DATA" + Hex("08 00 00 00") +             //
                  Hex("1C F9 C1 04") + Hex("00 00 00 00"));
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(FileHeaderTest, IsWrittenToBytes362) {
    EXPECT_EQ(Written(header).size(), 362U);
    EXPECT_EQ(header.GetRecordSize(), 346U);
}

TEST_F(FileHeaderTest, NamesTheGamesMasterByDefault) {
    ExpectMaster("Morrowind.esm", 79821084);
}

TEST_F(FileHeaderTest, TheRecordCountIsAlwaysZero) {
    EXPECT_EQ(Written(header).substr(320, 4), Zeros(4));
}

TEST_F(FileHeaderTest, ADescriptionTakesAllButTheLastByteOfItsField) {
    header.SetDescription(std::string(255, 'd').c_str());
    const std::string longest = Written(header);
    EXPECT_EQ(longest.substr(64, 260), std::string(255, 'd') + Zeros(5));
    header.SetDescription((std::string(255, 'd') + "more").c_str());
    EXPECT_EQ(Written(header), longest);
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(FileHeaderTest, WithoutADescriptionThereIsTheUsualOne) {
    const std::string usual = Written(header);
    for (const char* none : {static_cast<const char*>(nullptr), ""}) {
        header.SetDescription("A keep");
        EXPECT_EQ(Written(header).substr(64, 10), "A keep" + Zeros(4));
        header.SetDescription(none);
        EXPECT_EQ(Written(header), usual);
    }
}

TEST_F(FileHeaderTest, ANullNameAndNoSizeRestoreTheGamesMaster) {
    header.SetMasterFile("Other.esm", 5);
    header.SetMasterFile(nullptr, 0);
    ExpectMaster("Morrowind.esm", 79821084);
    EXPECT_EQ(Written(header).size(), 362U);
}

TEST_F(FileHeaderTest, AnEmptyNameAndNoSizeRestoreTheGamesMaster) {
    header.SetMasterFile("Other.esm", 5);
    header.SetMasterFile("", 0);
    ExpectMaster("Morrowind.esm", 79821084);
}

TEST_F(FileHeaderTest, AnEmptyNameKeepsTheSizeThatIsGiven) {
    header.SetMasterFile("", 5);
    ExpectMaster("Morrowind.esm", 5);
    header.SetMasterFile(nullptr, 6);
    ExpectMaster("Morrowind.esm", 6);
}

TEST_F(FileHeaderTest, AnotherMasterKeepsTheSizeZero) {
    header.SetMasterFile("Other.esm", 0);
    ExpectMaster("Other.esm", 0);
}

TEST_F(FileHeaderTest, AnotherMasterIsWrittenWithItsNameAndSize) {
    header.SetMasterFile("My.esm", 0x89ABCDEFU);
    ExpectMaster("My.esm", 0x89ABCDEFU);
    const std::string bytes = Written(header);
    EXPECT_EQ(bytes.substr(0, 8), "TES3" + Hex("53 01 00 00"));
    EXPECT_EQ(bytes.substr(324),
              "MAST" + Hex("07 00 00 00") + "My.esm" + Zeros(1) + //
                  "DATA" + Hex("08 00 00 00") + Hex("EF CD AB 89 00 00 00 00"));
    EXPECT_EQ(bytes.size(), 355U);
}

TEST_F(FileHeaderTest, AMasterOfTheSameNameStillTakesTheSizeZero) {
    header.SetMasterFile("Morrowind.esm", 0);
    ExpectMaster("Morrowind.esm", 0);
}

TEST_F(FileHeaderTest, UpdateSizeFollowsTheMaster) {
    header.UpdateSize();
    EXPECT_EQ(header.GetRecordSize(), 346U);
    header.SetMasterFile("M", 1);
    header.UpdateSize();
    EXPECT_EQ(header.GetRecordSize(), 334U);
}

TEST_F(FileHeaderTest, WritingTwiceGivesTheSameBytes) {
    const std::string first = Written(header);
    EXPECT_EQ(Written(header), first);
}

} // namespace

} // namespace Tarnex::Test
