// SPDX-License-Identifier: MIT
#include "tools/plugins/PluginLoad.h"
#include "tests/support/TempDir.h"
#include "tests/tools/plugins/SamplePlugin.h"
#include "tools/text/UsageError.h"

#include <gtest/gtest.h>

#include <fstream>

namespace Tarnex::Test {

namespace {

class PluginLoadTest : public ::testing::Test {
protected:
    // The line with which a file in the folder is refused, after its name; empty when it is not.
    std::string Refusal(const std::string& name) const {
        const std::string path = folder.File(name);
        try {
            Report::LoadPlugin(path);
        } catch (const UsageError& e) {
            const std::string line = e.what();
            const std::string start = '"' + path + "\" ";
            EXPECT_EQ(line.substr(0, start.size()), start);
            return line.substr(std::min(start.size(), line.size()));
        }
        return {};
    }

    TempDir folder;
};

TEST_F(PluginLoadTest, ReadsAFileWhole) {
    Mod mod;
    FillSample(mod);
    const std::string path = folder.Write("Höhle.esp", BytesOf(mod));
    const Report::LoadedPlugin plugin = Report::LoadPlugin(path);
    EXPECT_EQ(plugin.path, path);
    EXPECT_EQ(plugin.bytes, BytesOf(mod));
    EXPECT_EQ(plugin.file.cells.size(), 2U);
}

TEST_F(PluginLoadTest, RefusesWhatIsNoPlugin) {
    folder.Write("empty.esp", "");
    folder.Write("text.esp", "This is not a plug-in at all.");
    const std::string why = "is not a plug-in: it does not begin with a TES3 record";
    EXPECT_EQ(Refusal("empty.esp"), why);
    EXPECT_EQ(Refusal("text.esp"), why);
}

TEST_F(PluginLoadTest, RefusesWhatIsNoFile) {
    std::filesystem::create_directory(folder.Path() / "folder");
    EXPECT_EQ(Refusal("none.esp"), "does not exist");
    EXPECT_EQ(Refusal("folder"), "is a folder");
}

TEST_F(PluginLoadTest, RefusesFilesLargerThanAGigabyte) {
    folder.Write("large.esp", "TES3");
    std::filesystem::resize_file(folder.Path() / "large.esp", (1ULL << 30) + 1);
    EXPECT_EQ(Refusal("large.esp"), "is larger than 1 GiB and is not read");
}

} // namespace

} // namespace Tarnex::Test
