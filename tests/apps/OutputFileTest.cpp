// SPDX-License-Identifier: MIT
#include "apps/vaultry/OutputFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <tests/support/TempDir.h>

namespace Tarnex::Cli {

namespace {

class OutputFileTest : public ::testing::Test {
protected:
    static void Fill(const OutputFile& file, const std::string& text) {
        std::ofstream(file.TemporaryPath(), std::ios::binary) << text;
    }

    bool Empty() const { return std::filesystem::is_empty(dir.Path()); }
    std::string Read(const char* name) const { return Tarnex::Test::ReadFile(dir.Path() / name); }

    Tarnex::Test::TempDir dir;
};

TEST_F(OutputFileTest, CommittedFileHasItsNameAndSize) {
    OutputFile file(dir.File("a"));
    Fill(file, "four");
    EXPECT_EQ(file.Commit(), 4U);
    EXPECT_EQ(Read("a"), "four");
}

TEST_F(OutputFileTest, UncommittedFileIsRemoved) {
    {
        const OutputFile file(dir.File("a"));
        Fill(file, "four");
        EXPECT_FALSE(Empty());
    }
    EXPECT_TRUE(Empty());
}

TEST_F(OutputFileTest, IsWrittenBesideItsDestination) {
    const OutputFile file(dir.File("a"));
    EXPECT_EQ(std::filesystem::path(file.TemporaryPath()).parent_path(), dir.Path());
}

TEST_F(OutputFileTest, TwoFilesOfOneDestinationAreWrittenApart) {
    const OutputFile first(dir.File("a"));
    Fill(first, "1");
    const OutputFile second(dir.File("a"));
    EXPECT_NE(first.TemporaryPath(), second.TemporaryPath());
}

TEST_F(OutputFileTest, FailedCommitThrowsAndLeavesNothing) {
    {
        OutputFile file(dir.File("a"));
        Fill(file, "four");
        // Somebody makes a folder of that name in the meantime.
        std::filesystem::create_directory(dir.Path() / "a");
        EXPECT_THROW(file.Commit(), std::filesystem::filesystem_error);
        std::filesystem::remove(dir.Path() / "a");
    }
    EXPECT_TRUE(Empty());
}

TEST_F(OutputFileTest, SameFileSeesThroughSpellings) {
    dir.Write("a", "");
    std::filesystem::create_directory(dir.Path() / "sub");
    EXPECT_TRUE(SameFile(dir.File("a"), dir.File("sub/../a")));
    EXPECT_TRUE(SameFile(dir.File("missing"), dir.File("./missing")));
    EXPECT_FALSE(SameFile(dir.File("a"), dir.File("missing")));
    EXPECT_FALSE(SameFile(dir.File("a"), dir.File("sub/a")));
}

} // namespace

} // namespace Tarnex::Cli
