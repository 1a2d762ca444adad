// SPDX-License-Identifier: MIT
#include <vaultry/foundation/Environment.h>
#include <vaultry/game/GameFault.h>
#include <vaultry/game/GameFiles.h>

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <tests/support/TempDir.h>
#include <vector>

namespace Tarnex::Test {

namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

class GameFilesTest : public testing::Test {
protected:
    // The names of the files that are loaded from a folder below the test's.
    Lines In(const std::string& folder) {
        Lines names;
        for (const fs::path& path : FindGameFiles(dir.File(folder))) {
            names.push_back(Utf8(path.filename()));
        }
        return names;
    }

    std::string FaultOf(const std::string& folder) {
        try {
            FindGameFiles(dir.File(folder));
        } catch (const GameFault& e) {
            return e.what();
        }
        return "";
    }

    void Write(const std::string& name, const std::string& text = "") {
        fs::create_directories((dir.Path() / name).parent_path());
        dir.Write(name, text);
    }

    TempDir dir;
};

TEST_F(GameFilesTest, WithoutAListMastersAreLoadedByAge) {
    for (const char* const name : {"Data/a.esm", "Data/b.ESM", "Data/c.esm", "Data/d.esp"}) {
        Write(name);
    }
    Write("Data/readme.txt");
    fs::create_directories(dir.Path() / "Data" / "folder.esm");
    const fs::file_time_type now = fs::last_write_time(dir.Path() / "Data" / "a.esm");
    const auto age = [&](const char* name, int hours) {
        fs::last_write_time(dir.Path() / "Data" / name, now - std::chrono::hours(hours));
    };
    age("a.esm", 1);
    age("b.ESM", 2);
    age("c.esm", 1);
    EXPECT_EQ(In("Data"), (Lines{"b.ESM", "a.esm", "c.esm"}));
    EXPECT_EQ(In("Data/"), (Lines{"b.ESM", "a.esm", "c.esm"}));
}

TEST_F(GameFilesTest, TheGamesOwnListNamesThemMastersFirst) {
    Write("Game/Morrowind.ini",
          "[General]\r\nGameFile9=no.esm\r\n[Game Files]\r\nGameFile2=Late.esm\r\n"
          "GameFile1=mod.ESP\r\nGameFile10=other.esp\r\nGameFile0=morrowind.esm\r\n"
          "GameFile3=lost.esm\r\n[Archives]\r\nGameFile4=no.esm\r\n");
    for (const char* const name :
         {"Morrowind.esm", "Late.esm", "mod.esp", "other.esp", "off.esp", "no.esm"}) {
        Write(std::string("Game/Data Files/") + name);
    }
    const Lines all = {"Morrowind.esm", "Late.esm", "mod.esp", "other.esp"};
    EXPECT_EQ(In("Game"), all);
    EXPECT_EQ(In("Game/Data Files"), all);
    EXPECT_EQ(In("Game/Data Files/"), all);
}

TEST_F(GameFilesTest, TheEnginesListCountsWhereItStands) {
    Write("Stage/Morrowind.esm");
    Write("Stage/old.esp");
    Write("Stage/openmw.cfg",
          "data=\"" + dir.File("Mods") +
              "\"\ncontent=old.esp\ncontent=Morrowind.esm\n"
              "content=builtin.omwscripts\ncontent=own.omwaddon\n"
              "data=Inside\ncontent=late.esp\n");
    Write("Mods/OLD.ESP");
    Write("Mods/own.omwaddon");
    Write("Stage/Inside/late.esp");
    EXPECT_EQ(In("Stage"), (Lines{"OLD.ESP", "Morrowind.esm", "own.omwaddon", "late.esp"}));
}

TEST_F(GameFilesTest, AFolderWithoutFilesOfTheGameSaysWhichIsMeant) {
    Write("Empty/readme.txt");
    EXPECT_EQ(FaultOf("Empty"),
              "--game: \"" + dir.File("Empty") +
                  "\" has no files that the game loads; name its folder \"Data Files\"");
    EXPECT_EQ(FaultOf("none"), "--game: \"" + dir.File("none") + "\" is no folder");
    EXPECT_EQ(FaultOf("Empty/readme.txt"),
              "--game: \"" + dir.File("Empty/readme.txt") + "\" is no folder");
}

} // namespace

} // namespace Tarnex::Test
