// SPDX-License-Identifier: MIT
#include <vaultry/foundation/CsvRows.h>
#include <vaultry/run/GameIds.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <tests/support/TempDir.h>
#include <vector>

namespace Tarnex::Test {

namespace {

using Ids = std::vector<std::string>;

std::string FaultOf(std::string_view table) {
    try {
        ReadIds(table, "my.csv");
    } catch (const IdsError& e) {
        return e.what();
    }
    return {};
}

std::string FaultOfFile(const std::string& path) {
    try {
        LoadIds(path);
    } catch (const IdsError& e) {
        return e.what();
    }
    return {};
}

TEST(GameIdsTest, IdsStandUnderTheirRolesInTheirOrder) {
    const GameIds ids = ReadIds("role,id,source\n"
                                "trap,spell_a,a friend\n"
                                "TRAP, spell_b ,\n"
                                "key-model,m\\key.nif,\"mine, too\"\n"
                                "key-icon,m\\key.tga,\n"
                                "outside-door,ex_door,\n",
                                "my.csv");
    EXPECT_EQ(ids.Of(IdRole::Trap), (Ids{"spell_a", "spell_b"}));
    EXPECT_EQ(ids.Of(IdRole::KeyModel), Ids{"m\\key.nif"});
    EXPECT_EQ(ids.Of(IdRole::KeyIcon), Ids{"m\\key.tga"});
    EXPECT_EQ(ids.Of(IdRole::OutsideDoor), Ids{"ex_door"});
}

TEST(GameIdsTest, ColumnsMayStandInAnyOrder) {
    const GameIds ids = ReadIds("source,remark,id,role\nme,none,caf\xC3\xA9,trap\n", "my.csv");
    EXPECT_EQ(ids.Of(IdRole::Trap), Ids{"caf\xE9"});
}

TEST(GameIdsTest, EveryRoleHasAWordThatTablesKnow) {
    for (std::size_t i = 0; i < kIdRoles; ++i) {
        const auto role = static_cast<IdRole>(i);
        const std::string table = std::string("role,id,source\n") + WordOf(role) + ",x,\n";
        EXPECT_EQ(ReadIds(table, "").Of(role), Ids{"x"}) << WordOf(role);
    }
}

TEST(GameIdsTest, WhatIsWrongIsSaidWithItsLine) {
    EXPECT_EQ(FaultOf(""), R"(the ids "my.csv": it is empty; its first line is "role,id,source")");
    EXPECT_EQ(FaultOf("role,id\n"),
              R"(the ids "my.csv", line 1: there is no column "source"; the first line is )"
              R"("role,id,source")");
    const std::string head = "role,id,source\n\n";
    EXPECT_EQ(FaultOf(head + "tarp,spell,\n"),
              R"(the ids "my.csv", line 3: "tarp" is no role; there are )"
              R"(trap, key-model, key-icon, outside-door)");
    EXPECT_EQ(FaultOf(head + "trap\n"),
              R"(the ids "my.csv", line 3: the trap has no id; give it one, or take the line out)");
    EXPECT_EQ(FaultOf(head + "trap,\"spell,\n"),
              R"(the ids "my.csv", line 3: a quotation mark is not closed; inside of a cell it )"
              R"(is written twice)");
    EXPECT_EQ(FaultOf(head + "trap,\xC5\x82,\n"),
              "the ids \"my.csv\", line 3: \"\xC5\x82\" has letters that the game lacks: "
              "\xC5\x82");
}

TEST(GameIdsTest, AnIdIsAsLongAsItsField) {
    const std::string head = "role,id,source\ntrap,";
    EXPECT_EQ(FaultOf(head + std::string(31, 'a')), "");
    const std::string longer(32, 'a');
    EXPECT_EQ(FaultOf(head + longer),
              "the ids \"my.csv\", line 2: \"" + longer + "\" has 32 bytes; the game takes 31");
    // Letters beyond ASCII have one byte in the game.
    std::string accents;
    for (int i = 0; i < 31; ++i) {
        accents += "\xC3\xA9";
    }
    EXPECT_EQ(FaultOf(head + accents), "");
    EXPECT_EQ(FaultOf("role,id,source\nkey-icon," + std::string(255, 'a')), "");
    EXPECT_NE(FaultOf("role,id,source\nkey-icon," + std::string(256, 'a')), "");
}

TEST(GameIdsTest, ATableOfOnesOwnReplacesTheRolesThatItNames) {
    const TempDir dir;
    const GameIds builtin = BuiltinIds();
    ASSERT_FALSE(builtin.Of(IdRole::OutsideDoor).empty());
    const GameIds traps = LoadIds(dir.Write("traps.csv", "role,id,source\ntrap,mine,\n"));
    EXPECT_EQ(traps.Of(IdRole::Trap), Ids{"mine"});
    EXPECT_EQ(traps.Of(IdRole::OutsideDoor), builtin.Of(IdRole::OutsideDoor));
    const GameIds doors = LoadIds(dir.Write("doors.csv", "role,id,source\noutside-door,gate,\n"));
    EXPECT_EQ(doors.Of(IdRole::Trap), builtin.Of(IdRole::Trap));
    EXPECT_EQ(doors.Of(IdRole::OutsideDoor), Ids{"gate"});
}

TEST(GameIdsTest, AFileThatCannotBeReadIsNamed) {
    const TempDir dir;
    const std::string missing = dir.File("none.csv");
    EXPECT_EQ(FaultOfFile(missing), "the ids \"" + missing + "\" do not exist; --ids names a file");
    const std::string folder = dir.File("folder");
    std::filesystem::create_directory(folder);
    EXPECT_EQ(FaultOfFile(folder),
              "the ids \"" + folder + "\" are a folder; --ids names a file in it");
    const std::string most(std::size_t{1} << 20, '\n');
    EXPECT_EQ(FaultOfFile(dir.Write("most.csv", most)),
              "the ids \"" + dir.File("most.csv") +
                  "\": it is empty; its first line is \"role,id,source\"");
    EXPECT_EQ(FaultOfFile(dir.Write("large.csv", most + '\n')),
              "the ids \"" + dir.File("large.csv") + "\" are larger than 1 MiB and are not read");
}

// Nobody could look up where an id is from otherwise.
TEST(GameIdsTest, EveryBuiltInIdHasItsSource) {
    const std::vector<CsvRow> rows = CsvRows(BuiltinIdTable());
    ASSERT_GT(rows.size(), 1U);
    EXPECT_EQ(rows.front().cells, (Ids{"role", "id", "source"}));
    for (const CsvRow& row : rows) {
        ASSERT_EQ(row.cells.size(), 3U) << "line " << row.line;
        EXPECT_FALSE(row.cells[2].empty()) << "line " << row.line;
    }
}

} // namespace

} // namespace Tarnex::Test
