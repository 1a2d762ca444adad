// SPDX-License-Identifier: MIT
// Pictures in pixels that are never done: what draws them cannot be asked to stop.
#include <csignal>
#include <tests/cli/faults/FaultTest.h>

namespace Tarnex::Test {

namespace {

class EndlessDrawingTest : public FaultTest {
protected:
    void SetUp() override {
        if (!VAULTRY_HAS_PNG) {
            GTEST_SKIP() << "built without librsvg, so that there are no maps as PNG";
        }
    }

    Outcome RunSignalled(int number, const Lines& arguments) const {
        return RunWithFaults("VAULTRY_DRAWS_TILL=" + std::to_string(number), arguments);
    }
};

TEST_F(EndlessDrawingTest, OneInterruptEndsIt) {
    const Outcome outcome = RunSignalled(SIGINT, {"generate", "--seed", "3", "--map", "map.png"});
    EXPECT_EQ(outcome.status, 130) << outcome.err;
    ExpectOldFileAlone();
}

TEST_F(EndlessDrawingTest, OneTerminationEndsIt) {
    const Outcome outcome = RunSignalled(SIGTERM, {"map", "--fixed", "--map", "map.png"});
    EXPECT_EQ(outcome.status, 130) << outcome.err;
    ExpectOldFileAlone();
}

TEST_F(EndlessDrawingTest, ThatOfAPluginEndsToo) {
    ASSERT_EQ(Run({"generate", "--fixed", "-o", "new.esp"}).status, 0);
    const Outcome outcome = RunSignalled(SIGINT, {"map", "new.esp", "--map", "map.png"});
    EXPECT_EQ(outcome.status, 130) << outcome.err;
    EXPECT_EQ(outcome.err, "vaultry: cancelled, the map was not written\n");
    ExpectOldFileAlone({"new.esp"});
}

} // namespace

} // namespace Tarnex::Test
