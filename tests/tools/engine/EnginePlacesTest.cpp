// SPDX-License-Identifier: MIT
#include "tools/engine/EnginePlaces.h"

#include <gtest/gtest.h>

#include <map>

namespace Tarnex::Test {

namespace {

Environment Of(std::map<std::string, std::string> values) {
    return [values = std::move(values)](const char* name) {
        const auto found = values.find(name);
        return found == values.end() ? std::string() : found->second;
    };
}

TEST(EnginePlacesTest, TheProgramIsOnThePathOrWhereItIsInstalled) {
    EXPECT_EQ(
        Report::EnginePaths(System::Posix, Of({{"PATH", "/usr/bin::/opt/a b"}})),
        (std::vector<std::string>{"/usr/bin/openmw", "/opt/a b/openmw", "/usr/games/openmw"}));
    EXPECT_EQ(
        Report::EnginePaths(System::Windows,
                            Of({{"PATH", "C:\\a;D:\\b c"}, {"ProgramFiles", "C:\\Programs"}})),
        (std::vector<std::string>{
            "C:\\a\\openmw.exe", "D:\\b c\\openmw.exe", "C:\\Programs\\OpenMW\\openmw.exe"}));
}

} // namespace

} // namespace Tarnex::Test
