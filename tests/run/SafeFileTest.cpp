// SPDX-License-Identifier: MIT
#include <vaultry/foundation/CodePage.h>
#include <vaultry/run/SafeFile.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <tests/support/LeftOut.h>
#include <tests/support/TempDir.h>
#include <vector>

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace Tarnex::Test {

namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

class SafeFileTest : public ::testing::Test {
protected:
    std::string Read(const char* name) const { return ReadFile(dir.Path() / name); }

    // The names of all files.
    Lines Files() const {
        Lines names;
        for (const auto& entry : fs::directory_iterator(dir.Path())) {
            names.push_back(entry.path().filename().string());
        }
        std::ranges::sort(names);
        return names;
    }

    void Put(const char* name, const std::string& text) const {
        SafeFile file(dir.File(name));
        file.Open() << text;
        file.Finish();
        file.Commit();
    }

    // What speaks against a file of that name.
    std::string FaultOfPlace(const std::string& name) const {
        try {
            const SafeFile file(name.empty() ? name : dir.File(name));
        } catch (const FilePlaceError& e) {
            std::string words = e.what();
            const std::string folder = dir.File("");
            const std::size_t place = words.find(folder);
            return place == std::string::npos ? words : words.erase(place, folder.size());
        }
        return {};
    }

    TempDir dir;
};

// Says stop after so many questions.
class StopsAfter : public JobStatus {
public:
    explicit StopsAfter(int questions) : left(questions) {}
    bool HasBeenCanceled() const override { return left-- <= 0; }

private:
    mutable int left;
};

TEST_F(SafeFileTest, CommittedFileHasItsNameAndSize) {
    SafeFile file(dir.File("a"));
    file.Open() << "four";
    file.Finish();
    file.Commit();
    EXPECT_EQ(file.Size(), 4U);
    EXPECT_EQ(Read("a"), "four");
    EXPECT_EQ(Files(), Lines{"a"});
}

TEST_F(SafeFileTest, TakesTextOfEveryLengthInPiecesOfEveryLength) {
    std::string text;
    for (int i = 0; text.size() < 300'000; ++i) {
        text += std::to_string(i);
    }
    for (const std::size_t piece : {std::size_t{1},
                                    std::size_t{65'535},
                                    std::size_t{65'536},
                                    std::size_t{65'537},
                                    text.size()}) {
        SCOPED_TRACE(piece);
        SafeFile file(dir.File("a"));
        std::ostream& stream = file.Open();
        for (std::size_t i = 0; i < text.size(); i += piece) {
            piece == 1 ? stream.put(text[i]) : stream << text.substr(i, piece);
        }
        file.Finish();
        file.Commit();
        EXPECT_EQ(file.Size(), text.size());
        EXPECT_TRUE(Read("a") == text);
    }
}

TEST_F(SafeFileTest, OldFileStaysUntilTheCommit) {
    dir.Write("a", "old");
    SafeFile file(dir.File("a"));
    file.Open() << "new";
    EXPECT_EQ(Files().size(), 2U);
    file.Finish();
    EXPECT_EQ(Read("a"), "old");
    file.Commit();
    EXPECT_EQ(Read("a"), "new");
}

TEST_F(SafeFileTest, UncommittedFileIsRemoved) {
    for (const bool finished : {false, true}) {
        {
            SafeFile file(dir.File("a"));
            file.Open() << "four";
            if (finished) {
                file.Finish();
            }
            EXPECT_EQ(Files().size(), 1U);
        }
        EXPECT_EQ(Files(), Lines{});
    }
}

TEST_F(SafeFileTest, TwoFilesOfOneDestinationAreWrittenApart) {
    SafeFile first(dir.File("a"));
    SafeFile second(dir.File("a"));
    first.Open() << "1";
    second.Open() << "2";
    EXPECT_EQ(Files().size(), 2U);
    first.Finish();
    second.Finish();
    second.Commit();
    first.Commit();
    EXPECT_EQ(Read("a"), "1");
}

TEST_F(SafeFileTest, FailedCommitThrowsAndLeavesNothing) {
    {
        SafeFile file(dir.File("a"));
        file.Open() << "four";
        file.Finish();
        // Somebody makes a folder of that name in the meantime.
        fs::create_directory(dir.Path() / "a");
        EXPECT_THROW(file.Commit(), FileError);
    }
    EXPECT_EQ(Files(), Lines{"a"});
}

TEST_F(SafeFileTest, IsAskedBeforeEveryBlockWhetherToStop) {
    dir.Write("a", "old");
    const std::string block(100'000, 'x');
    {
        const StopsAfter status(3);
        SafeFile file(dir.File("a"));
        std::ostream& stream = file.Open(&status);
        int taken = 0;
        while (stream << block) {
            ASSERT_LT(++taken, 10);
        }
        try {
            file.Finish();
            ADD_FAILURE() << "a file that was cancelled is not whole";
        } catch (const FileError& e) {
            EXPECT_EQ(e.what(), '"' + dir.File("a") + "\" could not be written: cancelled");
        }
        EXPECT_GT(taken, 0);
    }
    EXPECT_EQ(Files(), Lines{"a"});
    EXPECT_EQ(Read("a"), "old");
}

TEST_F(SafeFileTest, TellsWhatCannotBeAFile) {
    fs::create_directory(dir.Path() / "sub");
    EXPECT_EQ(FaultOfPlace(""), "the output file needs a name");
    EXPECT_EQ(FaultOfPlace("sub"), "the output file \"sub\" is a folder");
    EXPECT_EQ(FaultOfPlace("none/a"), "the output file \"none/a\": its folder does not exist");
    EXPECT_EQ(FaultOfPlace("sub/a"), "");
}

TEST_F(SafeFileTest, SameFileSeesThroughSpellings) {
    dir.Write("a", "");
    fs::create_directory(dir.Path() / "sub");
    EXPECT_TRUE(SameFile(dir.File("a"), dir.File("sub/../a")));
    EXPECT_TRUE(SameFile(dir.File("missing"), dir.File("./missing")));
    EXPECT_FALSE(SameFile(dir.File("a"), dir.File("missing")));
    EXPECT_FALSE(SameFile(dir.File("a"), dir.File("sub/a")));
}

#ifndef _WIN32

using Mode = mode_t;

constexpr Mode kPermissions = 0777;

struct stat StatOf(const std::string& name) {
    struct stat found {};
    EXPECT_EQ(stat(name.c_str(), &found), 0) << name;
    return found;
}

TEST_F(SafeFileTest, NewFileHasThePermissionsOfTheOldOneBeforeItHoldsAByte) {
    for (const Mode mode : {Mode{0600}, Mode{0640}, Mode{0444}, Mode{0666}}) {
        SCOPED_TRACE(mode);
        dir.Write("a", "old");
        ASSERT_EQ(chmod(dir.File("a").c_str(), mode), 0);
        SafeFile file(dir.File("a"));
        std::ostream& stream = file.Open();
        const Lines names = Files();
        ASSERT_EQ(names.size(), 2U);
        const std::string made = names.front() == "a" ? names.back() : names.front();
        EXPECT_EQ(StatOf(dir.File(made)).st_size, 0);
        EXPECT_EQ(StatOf(dir.File(made)).st_mode & kPermissions, mode);
        stream << "new";
        file.Finish();
        file.Commit();
        EXPECT_EQ(StatOf(dir.File("a")).st_mode & kPermissions, mode);
        fs::remove(dir.Path() / "a");
    }
}

TEST_F(SafeFileTest, FileThatReplacesNoneHasThePermissionsThatAreUsual) {
    const Mode old = umask(027);
    Put("a", "new");
    umask(old);
    EXPECT_EQ(StatOf(dir.File("a")).st_mode & kPermissions, Mode{0640});
}

TEST_F(SafeFileTest, FileOfAnotherUserStaysTheirs) {
    constexpr uid_t kNobody = 65534;
    dir.Write("a", "old");
    if (chown(dir.File("a").c_str(), kNobody, kNobody) != 0) {
        GTEST_SKIP() << "only root gives files away";
    }
    ASSERT_EQ(chmod(dir.File("a").c_str(), 0640), 0);
    Put("a", "new");
    const struct stat made = StatOf(dir.File("a"));
    EXPECT_EQ(made.st_uid, kNobody);
    EXPECT_EQ(made.st_gid, kNobody);
    EXPECT_EQ(made.st_mode & kPermissions, Mode{0640});
}

TEST_F(SafeFileTest, LinksAreWrittenThrough) {
    fs::create_directory(dir.Path() / "sub");
    dir.Write("sub/there", "old");
    fs::create_symlink("sub/there", dir.Path() / "a");
    fs::create_symlink("sub/missing", dir.Path() / "b");
    fs::create_symlink(dir.Path() / "b", dir.Path() / "c");
    Put("a", "1");
    EXPECT_EQ(Read("sub/there"), "1");
    Put("c", "2");
    EXPECT_EQ(Read("sub/missing"), "2");
    for (const char* link : {"a", "b", "c"}) {
        EXPECT_TRUE(fs::is_symlink(dir.Path() / link)) << link;
    }
    EXPECT_EQ(Files(), (Lines{"a", "b", "c", "sub"}));
}

TEST_F(SafeFileTest, LinksThatLeadNowhereAreRefused) {
    fs::create_symlink("b", dir.Path() / "a");
    fs::create_symlink("a", dir.Path() / "b");
    fs::create_symlink("none/c", dir.Path() / "c");
    EXPECT_EQ(FaultOfPlace("a"), "the output file \"a\" is a link that leads back to itself");
    EXPECT_EQ(FaultOfPlace("c"),
              "the output file \"c\" is a link into a folder that does not exist");
}

TEST_F(SafeFileTest, LinkAndItsMissingFileAreOneFile) {
    fs::create_symlink("missing", dir.Path() / "a");
    EXPECT_TRUE(SameFile(dir.File("a"), dir.File("missing")));
    EXPECT_FALSE(SameFile(dir.File("a"), dir.File("other")));
}

TEST_F(SafeFileTest, PipesAndDevicesAreRefusedWithoutWaiting) {
    ASSERT_EQ(mkfifo(dir.File("pipe").c_str(), 0600), 0);
    fs::create_symlink("/dev/null", dir.Path() / "null");
    for (const char* name : {"pipe", "null"}) {
        EXPECT_EQ(FaultOfPlace(name),
                  "the output file \"" + std::string(name) + "\" is no ordinary file");
    }
}

#else
VAULTRY_LEFT_OUT_ON_WINDOWS(SafeFileTest, "needs links, pipes and permissions of POSIX")
#endif

} // namespace

} // namespace Tarnex::Test
