// SPDX-License-Identifier: MIT
#include "tools/plugins/PluginIndex.h"

#include <gtest/gtest.h>

namespace Tarnex::Test {

namespace {

TEST(PluginIndexTest, DoorsAreKnownByTheirNames) {
    for (const char* door : {"in_impsmall_door_01", "Ex_Common_Door_01", "DOOR", "trapdoor"}) {
        EXPECT_TRUE(Report::IsDoorId(door)) << door;
    }
    for (const char* other :
         {"", "in_doorway", "in_doorjam_01", "in_hlaalu_doorjamb", "doorframe"}) {
        EXPECT_FALSE(Report::IsDoorId(other)) << other;
    }
}

TEST(PluginIndexTest, NamesAreFoundWithoutRegardToCase) {
    PluginFile file;
    file.cells.emplace_back().name = "Crypt";
    file.containers.emplace_back().id = "Ctr5_1";
    const Report::PluginIndex index(file);
    EXPECT_TRUE(index.HasCell("cRYPT"));
    EXPECT_FALSE(index.HasCell("Ctr5_1"));
    EXPECT_TRUE(index.HasContainer("CTR5_1"));
    EXPECT_FALSE(index.HasContainer("Crypt"));
}

} // namespace

} // namespace Tarnex::Test
