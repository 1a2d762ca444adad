// SPDX-License-Identifier: MIT
#include "tools/stage/StageFolder.h"

#include "tests/support/TempDir.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/CodePage.h>

#include <gtest/gtest.h>

#include <filesystem>

namespace Tarnex::Test {

namespace {

namespace fs = std::filesystem;

class StageFolderTest : public ::testing::Test {
protected:
    StageFolderTest() : stage(Report::FilesOf(Report::PlanStage({}))) {}

    void WriteTo(const std::string& name, const std::string& master = "Morrowind.esm") const {
        Report::WriteStage(stage, folder.File(name), master, taken);
    }

    std::string Refusal(const std::string& name,
                        const std::string& master = "Morrowind.esm") const {
        try {
            WriteTo(name, master);
        } catch (const UsageError& e) {
            return e.what();
        }
        return "";
    }

    TempDir folder;
    Report::StageFiles stage;
    std::vector<fs::path> taken;
};

TEST_F(StageFolderTest, MakesTheFolderAndWritesAllFiles) {
    WriteTo("a/b");
    EXPECT_EQ(ReadFile(folder.Path() / "a/b/Morrowind.esm"), stage.master);
    for (const auto& [path, bytes] : stage.files) {
        EXPECT_EQ(ReadFile(folder.Path() / "a/b" / path), bytes) << path;
    }
    EXPECT_NE(ReadFile(folder.Path() / "a/b/openmw.cfg").find("\ncontent=Morrowind.esm\n"),
              std::string::npos);
}

TEST_F(StageFolderTest, AStageIsReplacedAndPluginsBesideItStay) {
    WriteTo("s");
    folder.Write("s/own.esp", "mine");
    fs::remove(folder.Path() / "s/meshes/marker_error.nif");
    WriteTo("s");
    EXPECT_EQ(ReadFile(folder.Path() / "s/own.esp"), "mine");
    EXPECT_TRUE(fs::exists(folder.Path() / "s/meshes/marker_error.nif"));
}

TEST_F(StageFolderTest, AFolderWithOtherFilesIsRefusedUntouched) {
    fs::create_directory(folder.Path() / "s");
    folder.Write("s/letter.txt", "dear");
    EXPECT_EQ(Refusal("s"),
              "\"" + folder.File("s") + "\" holds other files; a stage needs a folder of its own");
    EXPECT_FALSE(fs::exists(folder.Path() / "s/meshes"));
}

TEST_F(StageFolderTest, AMasterThatIsNoStageIsNeverReplaced) {
    WriteTo("s", "Other.esm");
    folder.Write("s/Morrowind.esm", "TES3 of the game");
    EXPECT_EQ(Refusal("s"), "\"" + folder.File("s") + "\" holds a Morrowind.esm that is no stage");
    EXPECT_EQ(ReadFile(folder.Path() / "s/Morrowind.esm"), "TES3 of the game");
}

TEST_F(StageFolderTest, AFolderOfTheGameIsRefusedEvenEmpty) {
    fs::create_directory(folder.Path() / "s");
    taken = {folder.Path() / "elsewhere", folder.Path() / "s" / "."};
    EXPECT_EQ(Refusal("s"),
              "\"" + folder.File("s") +
                  "\" holds the game's data; a stage needs a folder of its own");
    EXPECT_TRUE(fs::is_empty(folder.Path() / "s"));
}

TEST_F(StageFolderTest, AStageThatTheGameIsToldOfIsReplaced) {
    WriteTo("s");
    taken = {folder.Path() / "s"};
    EXPECT_EQ(Refusal("s"), "");
}

TEST_F(StageFolderTest, WhatIsNoFolderIsRefused) {
    folder.Write("s", "");
    EXPECT_EQ(Refusal("s"), "\"" + folder.File("s") + "\" is no folder");
}

TEST_F(StageFolderTest, ANameThatIsNoneOfAMasterIsRefused) {
    for (const char* const name : {"", ".esm", "Game", "../a.esm", "a\\b.esm", "c:a.esm"}) {
        EXPECT_NE(Refusal("s", name), "") << name;
    }
    EXPECT_FALSE(fs::exists(folder.Path() / "s"));
}

} // namespace

} // namespace Tarnex::Test
