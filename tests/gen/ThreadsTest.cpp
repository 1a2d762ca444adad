// SPDX-License-Identifier: MIT
// Runs and threads: a manager by itself belongs to the process, one with a state to its thread.
#include "tests/support/TempDir.h"

#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/Random.h>
#include <vaultry/foundation/RunState.h>
#include <vaultry/gen/ContainerIds.h>
#include <vaultry/gen/GenMgr.h>

#include <gtest/gtest.h>

#include <optional>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace Tarnex::Test {

namespace {

void Configure(GenMgr& manager, const char* file) {
    manager.Init((std::string(VAULTRY_SOURCE_DIR "/data/") + file).c_str());
    RandomGenInfo random;
    random.numLevels = 3;
    random.levelSize = RandomGenInfo::Large;
    random.roomSpacing = RandomGenInfo::Loose;
    random.randomTheme = true;
    manager.SetRandomInfo(random);
}

std::string BytesOf(GenMgr& manager) {
    std::ostringstream stream;
    manager.mod.Write(stream);
    return stream.str();
}

class ThreadsTest : public ::testing::Test {
protected:
    ThreadsTest() {
        Logger::Close();
        Logger::InitWithoutFile();
    }
    ~ThreadsTest() override {
        Logger::Close();
        Logger::ResetErrors();
    }
};

TEST_F(ThreadsTest, AManagerByItselfRunsOnAnyThread) {
    GenMgr manager;
    Configure(manager, "vaultry.xml");
    SetContainerStamp(1);
    SeedRandom(7);
    manager.Generate("Keep", false);
    const std::string expected = BytesOf(manager);

    std::optional<GenMgr> other;
    std::thread([&other] {
        other.emplace();
        Configure(*other, "vaultry.xml");
    }).join();
    SetContainerStamp(1);
    SeedRandom(7);
    std::thread([&other] { other->Generate("Keep", false); }).join();
    EXPECT_EQ(BytesOf(*other), expected);
    std::thread([&other] { other.reset(); }).join();
}

// What a thread with a state of its own makes, run after run, with its log.
struct Worker {
    const char* config;
    std::string log;
    std::vector<std::string> made;

    void Work() {
        RunState state;
        const UseRunState use(&state);
        Logger::Init(log.c_str());
        GenMgr manager;
        Configure(manager, config);
        SetContainerStamp(5);
        for (std::uint32_t seed = 1; seed <= 5; ++seed) {
            SeedRandom(seed);
            manager.Generate("Keep", false);
            made.push_back(BytesOf(manager));
        }
    }
};

TEST_F(ThreadsTest, ThreadsWithAStateEachGiveWhatTheyGiveAlone) {
    const TempDir dir;
    Worker rooms{"vaultry.xml", dir.File("rooms.txt"), {}};
    Worker caves{"caves.xml", dir.File("caves.txt"), {}};
    rooms.Work();
    caves.Work();

    Worker roomsBeside{rooms.config, dir.File("rooms-beside.txt"), {}};
    Worker cavesBeside{caves.config, dir.File("caves-beside.txt"), {}};
    std::thread first(&Worker::Work, &roomsBeside);
    std::thread second(&Worker::Work, &cavesBeside);
    first.join();
    second.join();
    EXPECT_EQ(roomsBeside.made, rooms.made);
    EXPECT_EQ(cavesBeside.made, caves.made);
    EXPECT_EQ(ReadFile(roomsBeside.log), ReadFile(rooms.log));
    EXPECT_EQ(ReadFile(cavesBeside.log), ReadFile(caves.log));
    EXPECT_FALSE(ReadFile(rooms.log).empty());
}

TEST_F(ThreadsTest, ARunWithAStateLeavesTheOneOfTheProcess) {
    GenMgr manager;
    Configure(manager, "vaultry.xml");
    SetContainerStamp(1);
    SeedRandom(7);
    Worker{"vaultry.xml", TempDir().File("log.txt"), {}}.Work();
    EXPECT_EQ(NextContainerId(), "Ctr1_1");
    const std::int32_t drawn = RandomInt(32768);
    SeedRandom(7);
    EXPECT_EQ(RandomInt(32768), drawn);
    EXPECT_TRUE(Logger::GetErrors().empty());
}

} // namespace

} // namespace Tarnex::Test
