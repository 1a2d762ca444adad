// SPDX-License-Identifier: MIT
// Every command of the documentation that runs the program does so as it stands there, prints what
// stands there, and draws the pictures that are shown there.
#ifndef _WIN32

#include "tests/cli/Markdown.h"
#include "tests/cli/Program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace Tarnex::Test {

namespace {

namespace fs = std::filesystem;

// Set by scripts/draw-docs: the pictures take the place of those that are shown.
bool DrawsAnew() {
    return std::getenv("VAULTRY_DRAW_DOCS") != nullptr;
}

// The browser that pictures of pages are taken with; nobody else's pages are opened in it here.
std::string BrowserCommand(const std::string& command) {
    const std::string browser = "chromium ";
    return command.rfind(browser, 0) == 0
               ? browser + "--no-sandbox " + command.substr(browser.size())
               : "";
}

using Lines = std::vector<std::string>;

Lines LinesOf(const std::string& text) {
    Lines lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

class DocumentationTest : public ProgramTest, public ::testing::WithParamInterface<Page> {
protected:
    // What readers of any page have at hand: plug-ins of their own, and tables of searches.
    void Prepare() {
        for (const char* name : {"dungeon.esp", "before.esp", "after.esp"}) {
            ASSERT_EQ(Run({"generate",
                           "-o",
                           name,
                           "-n",
                           "dungeon",
                           "--seed",
                           "7",
                           "--stamp",
                           "1",
                           "--quiet"})
                          .status,
                      0);
        }
        ASSERT_EQ(Run({"search", "--seeds", "1..3", "--csv", "found-1.csv", "--quiet"}).status, 0);
    }

    // Runs a command in the folder; what it prints is in the file "printed" then.
    int Execute(const std::string& command) {
        const std::string line =
            "cd \"" + fs::path(File("")).string() + "\" && (" + command + ") >printed 2>&1";
        return std::system(line.c_str());
    }

    void RunCommands(const CodeBlock& block) {
        for (const std::string& command : block.Commands()) {
            std::string runnable = ProgramCommand(command);
            if (runnable.empty() && DrawsAnew()) {
                runnable = BrowserCommand(command);
            }
            if (!runnable.empty() && (VAULTRY_HAS_PNG != 0 || !Contains(runnable, ".png"))) {
                EXPECT_EQ(Execute(runnable), 0) << command << '\n' << Read("printed");
            }
        }
    }

    void RunSessions(const CodeBlock& block) {
        for (const Session& session : Sessions(block)) {
            const std::string runnable = ProgramCommand(session.command);
            ASSERT_FALSE(runnable.empty()) << session.command;
            Execute(runnable);
            EXPECT_TRUE(session.Shows(LinesOf(Read("printed")))) << session.command << '\n'
                                                                 << Read("printed");
        }
    }

    std::map<std::string, fs::path> Drawn() {
        std::map<std::string, fs::path> drawn;
        for (const auto& entry : fs::recursive_directory_iterator(File(""))) {
            drawn[entry.path().filename().string()] = entry.path();
        }
        return drawn;
    }

    // Pictures in pixels depend on the fonts of the machine, so only the others are compared. Those
    // of the first page are drawn by commands of the others.
    void ComparePictures() {
        const std::map<std::string, fs::path> drawn = Drawn();
        for (const std::string& link : GetParam().Links()) {
            const fs::path shown = GetParam().path.parent_path() / link;
            const bool vectors = shown.extension() == ".svg";
            const auto made = drawn.find(shown.filename().string());
            if (shown.parent_path().filename() != "pictures") {
                continue;
            }
            if (made == drawn.end()) {
                EXPECT_TRUE(!vectors || link.rfind("docs/", 0) == 0) << "no command draws " << link;
                continue;
            }
            if (DrawsAnew()) {
                fs::copy_file(made->second, shown, fs::copy_options::overwrite_existing);
            }
            EXPECT_TRUE(!vectors || ReadFile(made->second) == ReadFile(shown))
                << link << " is not what its command draws; scripts/draw-docs draws it anew";
        }
    }
};

TEST_P(DocumentationTest, CommandsDoWhatThePageShows) {
    Prepare();
    for (const CodeBlock& block : GetParam().Blocks()) {
        if (const std::string name = block.SavedName(); !name.empty()) {
            Write(name, block.Text());
        }
        if (const std::string name = block.ExtendedName(); !name.empty()) {
            std::string text = Read(name);
            text.insert(text.rfind("</"), block.Text());
            Write(name, text);
        }
        if (block.kind == "sh") {
            RunCommands(block);
        }
        if (block.kind == "console") {
            RunSessions(block);
        }
    }
    ComparePictures();
}

INSTANTIATE_TEST_SUITE_P(Pages,
                         DocumentationTest,
                         ::testing::ValuesIn(Pages()),
                         [](const ::testing::TestParamInfo<Page>& page) {
                             const fs::path& path = page.param.path;
                             const bool ofDocs = path.parent_path().filename() == "docs";
                             std::string name = (ofDocs ? "docs" : "") + path.stem().string();
                             std::erase(name, '-');
                             return name;
                         });

} // namespace

} // namespace Tarnex::Test

#else

#include <tests/support/LeftOut.h>

VAULTRY_LEFT_OUT_ON_WINDOWS(DocumentationTest, "hands commands to a POSIX shell")

#endif
