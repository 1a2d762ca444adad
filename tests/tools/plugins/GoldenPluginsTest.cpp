// SPDX-License-Identifier: MIT
// The plug-ins of an independent writer, read.
#include "tools/plugins/PluginChecks.h"
#include "tools/plugins/PluginDiff.h"
#include "tools/plugins/PluginLoad.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

namespace Tarnex::Test {

namespace {

// Their configurations are odd on purpose: a cell name of 449 bytes, scales of 0, an empty tile.
const std::map<std::string, std::size_t> kFindings = {
    {"cell_long.esp", 2},
    {"read_attr_errors_fixed.esp", 4},
    {"read_attr_errors_random.esp", 24},
    {"read_chunks_fixed.esp", 1},
    {"read_chunks_random.esp", 1},
};

TEST(GoldenPluginsTest, OnlyThoseOfOddConfigurationsHaveFindings) {
    std::map<std::string, std::size_t> found;
    std::size_t files = 0;
    for (const auto& entry :
         std::filesystem::directory_iterator(VAULTRY_SOURCE_DIR "/tests/golden/plugins")) {
        ++files;
        const Report::LoadedPlugin plugin = Report::LoadPlugin(entry.path().string());
        const std::size_t count = Report::FindInconsistencies(plugin.file).size();
        if (count > 0) {
            found[entry.path().filename().string()] = count;
        }
        EXPECT_TRUE(plugin.file.complete) << entry.path();
        EXPECT_TRUE(plugin.file.skippedSubRecords.empty()) << entry.path();
        EXPECT_TRUE(Report::ComparePlugins(plugin.file, plugin.file).empty()) << entry.path();
    }
    EXPECT_EQ(files, 164U);
    EXPECT_EQ(found, kFindings);
}

} // namespace

} // namespace Tarnex::Test
