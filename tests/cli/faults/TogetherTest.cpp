// SPDX-License-Identifier: MIT
// Several runs at the same time.
#include <map>
#include <regex>
#include <set>
#include <string>
#include <sys/wait.h>
#include <tests/cli/faults/FaultTest.h>

namespace Tarnex::Test {

namespace {

constexpr int kRuns = 8;

class TogetherTest : public FaultTest {
protected:
    // Starts them all before it waits for any.
    template <typename ArgumentsOf>
    void RunTogether(ArgumentsOf argumentsOf) const {
        std::vector<pid_t> children;
        for (int run = 0; run < kRuns; ++run) {
            children.push_back(Start(argumentsOf(run)));
        }
        for (const pid_t child : children) {
            int status = 0;
            waitpid(child, &status, 0);
            EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
        }
    }

    static Lines SeededRun(int run, const std::string& out) {
        return {"generate", "--seed", std::to_string(run), "--stamp", "1", "-o", out};
    }

    std::set<std::string> ContainerIds(const std::string& name) const {
        static const std::regex id("Ctr[0-9]+_[0-9]+");
        const std::string bytes = Read(name);
        std::set<std::string> ids;
        for (std::sregex_iterator i(bytes.begin(), bytes.end(), id), end; i != end; ++i) {
            ids.insert(i->str());
        }
        return ids;
    }
};

TEST_F(TogetherTest, RunsToOneFileLeaveOneOfThemWhole) {
    std::set<std::string> results;
    for (int run = 0; run < kRuns; ++run) {
        EXPECT_EQ(Run(SeededRun(run, "dungeon.esp")).status, 0);
        results.insert(Read("dungeon.esp"));
    }
    ASSERT_EQ(results.size(), static_cast<std::size_t>(kRuns));
    RunTogether([](int run) { return SeededRun(run, "dungeon.esp"); });
    EXPECT_EQ(results.count(Read("dungeon.esp")), 1U);
    EXPECT_EQ(Files(), Lines{"dungeon.esp"});
}

TEST_F(TogetherTest, PluginsOfTheSameSecondShareNoContainerId) {
    const auto fileOf = [](int run) { return std::to_string(run) + ".esp"; };
    RunTogether([&](int run) {
        return Lines{"generate", "--seed", "3", "--size", "large", "-o", fileOf(run)};
    });
    std::set<std::string> all;
    std::size_t count = 0;
    for (int run = 0; run < kRuns; ++run) {
        const std::set<std::string> ids = ContainerIds(fileOf(run));
        EXPECT_FALSE(ids.empty());
        count += ids.size();
        all.insert(ids.begin(), ids.end());
    }
    EXPECT_EQ(all.size(), count);
}

} // namespace

} // namespace Tarnex::Test
