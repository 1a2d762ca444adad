// SPDX-License-Identifier: MIT
// One generator after the other, inside the other and beside the other.
#include "tests/embed/CProgram.h"
#include "tests/support/TempDir.h"

#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/Random.h>
#include <vaultry/foundation/RunState.h>
#include <vaultry/gen/ContainerIds.h>
#include <vaultry/vaultry.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace Tarnex::Test {

namespace {

constexpr const char* kConfig = VAULTRY_SOURCE_DIR "/data/vaultry.xml";

using Options = std::vector<std::pair<const char*, const char*>>;

const Options kThree = {{"seed", "7"}, {"stamp", "1"}, {"levels", "3"}};
const Options kByChance = {{"random-tileset", "true"},
                           {"random-theme", "true"},
                           {"random-creature-theme", "true"},
                           {"random-treasure-theme", "true"}};
const Options kAsGiven = {{"random-tileset", "false"},
                          {"random-theme", "false"},
                          {"random-creature-theme", "false"},
                          {"random-treasure-theme", "false"}};

struct Destroy {
    void operator()(vaultry_generator* generator) const { vaultry_destroy(generator); }
};
using Generator = std::unique_ptr<vaultry_generator, Destroy>;

Generator Make() {
    Generator generator(vaultry_create());
    EXPECT_EQ(vaultry_init(generator.get(), kConfig), VAULTRY_OK);
    return generator;
}

void Set(const Generator& generator, const Options& options) {
    for (const auto& [option, value] : options) {
        EXPECT_EQ(vaultry_set(generator.get(), option, value), VAULTRY_OK) << option;
    }
}

std::string Plugin(const Generator& generator) {
    const TempDir dir;
    const std::string file = dir.File("made.esp");
    EXPECT_EQ(vaultry_generate(generator.get(), file.c_str()), VAULTRY_OK);
    return ReadFile(file);
}

std::string PluginAlone(const Options& options) {
    const Generator generator = Make();
    Set(generator, options);
    return Plugin(generator);
}

// Calls `act` once, in the middle of a run.
struct Once {
    explicit Once(std::function<void()> action) : act(std::move(action)) {}

    void Watch(const Generator& generator) { vaultry_set_progress(generator.get(), Call, this); }

    static int Call(void* context, const char* text, std::int32_t position, std::int32_t) {
        auto& once = *static_cast<Once*>(context);
        if (position == 1 && *text != '\0' && !once.done) {
            once.done = true;
            once.act();
        }
        return 0;
    }

    std::function<void()> act;
    bool done = false;
};

TEST(GeneratorsTest, WhatARunChoseByChanceIsForgotten) {
    const Generator generator = Make();
    const Options undead = {{"creature-theme", "Undead"}};
    Set(generator, undead);
    Set(generator, kThree);
    const std::string expected = Plugin(generator);
    for (const char* seed : {"1", "2", "3"}) {
        Set(generator, kByChance);
        Set(generator, {{"seed", seed}});
        Plugin(generator);
        Set(generator, kAsGiven);
        Set(generator, kThree);
        EXPECT_TRUE(Plugin(generator) == expected) << seed;
    }
}

TEST(GeneratorsTest, ASecondRunByChanceIsThatOfANewGenerator) {
    Options options = kByChance;
    options.insert(options.end(), kThree.begin(), kThree.end());
    const Generator generator = Make();
    Set(generator, options);
    const std::string first = Plugin(generator);
    EXPECT_TRUE(Plugin(generator) == first);
    EXPECT_TRUE(PluginAlone(options) == first);
}

TEST(GeneratorsTest, ARunThatWasCancelledIsForgottenToo) {
    const Generator generator = Make();
    Set(generator, kThree);
    const std::string expected = Plugin(generator);
    Set(generator, kByChance);
    const auto stop = [](void*, const char*, std::int32_t position, std::int32_t) {
        return position == 1 ? 1 : 0;
    };
    vaultry_set_progress(generator.get(), stop, nullptr);
    EXPECT_EQ(vaultry_generate(generator.get(), "none.esp"), VAULTRY_CANCELED);
    vaultry_set_progress(generator.get(), nullptr, nullptr);
    Set(generator, kAsGiven);
    EXPECT_TRUE(Plugin(generator) == expected);
}

TEST(GeneratorsTest, AnotherGeneratorInAProgressFunctionChangesNothing) {
    const std::string expected = PluginAlone(kThree);
    std::string inner;
    Once once([&inner] { inner = PluginAlone(kThree); });
    const Generator generator = Make();
    Set(generator, kThree);
    once.Watch(generator);
    EXPECT_TRUE(Plugin(generator) == expected);
    EXPECT_TRUE(once.done);
    EXPECT_TRUE(inner == expected);
}

// The library's other door, used where the progress is shown, has the state of the process.
TEST(GeneratorsTest, TheProcessAndARunLeaveEachOtherAlone) {
    const std::string expected = PluginAlone(kThree);
    RunState* const process = &CurrentRunState();
    RunState* inside = nullptr;
    Once once([&inside] {
        inside = &CurrentRunState();
        SeedRandom(99);
        SetContainerStamp(5);
        Logger::ResetErrors();
    });
    const Generator generator = Make();
    Set(generator, kThree);
    once.Watch(generator);
    EXPECT_TRUE(Plugin(generator) == expected);
    EXPECT_EQ(inside, process);
    const std::int32_t drawn = RandomInt(32768);
    SeedRandom(99);
    EXPECT_EQ(RandomInt(32768), drawn);
    EXPECT_EQ(NextContainerId(), "Ctr5_1");
}

TEST(GeneratorsTest, KeepNoLogFile) {
    const TempDir dir;
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(dir.Path());
    PluginAlone(kThree);
    const bool logged = std::filesystem::exists("Log.txt");
    std::filesystem::current_path(before);
    EXPECT_FALSE(logged);
}

TEST(GeneratorsTest, AGeneratorAtWorkCanBeUsedForNothingElse) {
    const std::string expected = PluginAlone(kThree);
    const Generator generator = Make();
    vaultry_generator* const own = generator.get();
    Once once([own] {
        EXPECT_EQ(vaultry_init(own, kConfig), VAULTRY_BUSY);
        EXPECT_EQ(vaultry_init_from_memory(own, "", 0, ""), VAULTRY_BUSY);
        EXPECT_EQ(vaultry_set(own, "seed", "8"), VAULTRY_BUSY);
        EXPECT_EQ(vaultry_set_progress(own, nullptr, nullptr), VAULTRY_BUSY);
        EXPECT_EQ(vaultry_generate(own, "none.esp"), VAULTRY_BUSY);
        EXPECT_EQ(vaultry_destroy(own), VAULTRY_BUSY);
        EXPECT_EQ(vaultry_run_json(own), nullptr);
        EXPECT_EQ(vaultry_last_seed(own), 7U);
        EXPECT_EQ(vaultry_last_stamp(own), 1);
        ASSERT_EQ(vaultry_error_count(own), 1U);
        EXPECT_STREQ(vaultry_error(own, 0),
                     "the generator is at work: until that call has ended it can be used for "
                     "nothing else");
        EXPECT_EQ(vaultry_error(own, 1), nullptr);
    });
    Set(generator, kThree);
    once.Watch(generator);
    EXPECT_TRUE(Plugin(generator) == expected);
    EXPECT_TRUE(once.done);
    EXPECT_EQ(vaultry_error_count(own), 0U);
    EXPECT_TRUE(Plugin(generator) == expected);
}

TEST(GeneratorsTest, ThreadsWithAGeneratorEachGiveWhatOneGives) {
    Options large = kByChance;
    large.insert(large.end(), {{"seed", "11"}, {"stamp", "2"}, {"size", "Large"}});
    const std::vector<std::string> expected = {PluginAlone(kThree), PluginAlone(large)};
    const auto work = [](const Options& options, std::vector<std::string>& made) {
        for (int i = 0; i < 5; ++i) {
            made.push_back(PluginAlone(options));
        }
    };
    std::vector<std::string> three;
    std::vector<std::string> largest;
    std::thread other(work, std::cref(kThree), std::ref(three));
    work(large, largest);
    other.join();
    EXPECT_TRUE(three == std::vector<std::string>(5, expected[0]));
    EXPECT_TRUE(largest == std::vector<std::string>(5, expected[1]));
}

TEST(GeneratorsTest, AGeneratorMayMoveFromThreadToThread) {
    const std::string expected = PluginAlone(kThree);
    Generator generator;
    std::string made;
    std::thread([&generator] { generator = Make(); }).join();
    std::thread([&generator] { Set(generator, kThree); }).join();
    std::thread([&] { made = Plugin(generator); }).join();
    EXPECT_TRUE(made == expected);
    std::thread([&generator] { generator.reset(); }).join();
}

TEST(GeneratorsTest, ServeACProgram) {
    const TempDir dir;
    EXPECT_STREQ(RunCProgram(kConfig, dir.File("made.esp").c_str()), nullptr);
}

} // namespace

} // namespace Tarnex::Test
