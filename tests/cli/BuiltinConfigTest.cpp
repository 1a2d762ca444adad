// SPDX-License-Identifier: MIT
// The configurations inside the program.
#include <vaultry/run/BuiltinConfigs.h>

#include <filesystem>
#include <string>
#include <tests/cli/Program.h>

namespace Tarnex::Test {

namespace {

using BuiltinConfigTest = ProgramTest;

std::string DataFile(const char* name) {
    return ReadFile(std::filesystem::path(VAULTRY_SOURCE_DIR) / "data" / name);
}

TEST_F(BuiltinConfigTest, ConfigPrintsTheDefaultByteForByte) {
    const Outcome outcome = Run({"config"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_FALSE(outcome.out.empty());
    EXPECT_TRUE(outcome.out == DataFile("vaultry.xml"));
    EXPECT_TRUE(Run({"config", "default"}).out == outcome.out);
}

TEST_F(BuiltinConfigTest, ConfigPrintsTheOneThatIsNamed) {
    const Outcome outcome = Run({"config", "caves"});
    EXPECT_TRUE(Run({"config", "builtin:caves"}).out == outcome.out);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_FALSE(outcome.out.empty());
    EXPECT_TRUE(outcome.out == DataFile("caves.xml"));
}

TEST_F(BuiltinConfigTest, DefaultIsTheFirst) {
    ASSERT_FALSE(BuiltinConfigs().empty());
    EXPECT_EQ(BuiltinConfigs().front().name, "default");
}

TEST_F(BuiltinConfigTest, IsUsedWhenNoConfigurationIsNamed) {
    const Outcome named = Run({"list", "-c", "builtin"});
    EXPECT_EQ(named.status, 0);
    EXPECT_EQ(named.err, "");
    EXPECT_EQ(Run({"list"}).out, named.out);
    EXPECT_EQ(Run({"list", "-c", "builtin:default"}).out, named.out);
}

TEST_F(BuiltinConfigTest, PrintedAndReadBackItGeneratesTheSame) {
    Write("my.xml", Run({"config"}).out);
    for (const char* config : {"builtin", "my.xml"}) {
        const Outcome outcome = Run({"generate",
                                     "--fixed",
                                     "--strict",
                                     "-c",
                                     config,
                                     "--seed",
                                     "1",
                                     "--stamp",
                                     "1",
                                     "-n",
                                     "Keep",
                                     "-o",
                                     std::string(config) + ".esp"});
        EXPECT_EQ(outcome.status, 0) << outcome.err;
    }
    EXPECT_FALSE(Read("builtin.esp").empty());
    EXPECT_TRUE(Read("builtin.esp") == Read("my.xml.esp"));
}

TEST_F(BuiltinConfigTest, EachIsFreeOfFaults) {
    for (const BuiltinConfig& config : BuiltinConfigs()) {
        const Outcome outcome = Run({"list", "-c", "builtin:" + std::string(config.name)});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, "");
    }
}

} // namespace

} // namespace Tarnex::Test
