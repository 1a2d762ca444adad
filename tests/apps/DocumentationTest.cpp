// SPDX-License-Identifier: MIT
// Every command of the documentation that runs the program does so as it stands there.
#ifndef _WIN32

#include "tests/apps/Program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <string>
#include <vector>

namespace Tarnex::Test {

namespace {

namespace fs = std::filesystem;

// A block of code: what its fence says of it, the sentence before it, its lines.
struct Block {
    std::string kind;
    std::string before;
    std::vector<std::string> lines;
};

std::vector<Block> ReadBlocks(const fs::path& page) {
    std::vector<Block> blocks;
    std::ifstream lines(page);
    std::string before;
    bool inside = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("```", 0) == 0) {
            inside = !inside;
            if (inside) {
                blocks.push_back({line.substr(3), before, {}});
                before.clear();
            }
        } else if (inside) {
            blocks.back().lines.push_back(line);
        } else if (!line.empty()) {
            before = line;
        }
    }
    return blocks;
}

// The lines of a block of commands, those continued by a backslash joined.
std::vector<std::string> Commands(const Block& block) {
    std::vector<std::string> commands;
    bool continues = false;
    for (std::string line : block.lines) {
        const bool more = !line.empty() && line.back() == '\\';
        if (more) {
            line.pop_back();
        }
        if (continues) {
            commands.back() += line;
        } else {
            commands.push_back(line);
        }
        continues = more;
    }
    return commands;
}

// The command with the program in place of what readers call it by; empty for other commands. A
// pager shows what it gets; whether it is there is not the program's concern.
std::string ProgramCommand(const std::string& line) {
    const std::string command = line.substr(0, std::min(line.find(" #"), line.find(" | ")));
    for (const std::string start : {"vaultry ", "scripts/run "}) {
        const bool named = command.rfind(start, 0) == 0;
        if (named && command.find_first_not_of(' ', start.size()) != std::string::npos) {
            return "\"" VAULTRY_PROGRAM "\" " + command.substr(start.size());
        }
    }
    return {};
}

// The file that "Save this as `name`:" asks for; empty for other sentences.
std::string SavedName(const std::string& sentence) {
    const std::size_t begin = sentence.find("`");
    const std::size_t end = sentence.rfind("`");
    const bool asks = Contains(sentence, "ave this as `") && end > begin;
    return asks ? sentence.substr(begin + 1, end - begin - 1) : "";
}

struct Page {
    fs::path path;

    friend void PrintTo(const Page& page, std::ostream* out) { *out << page.path.filename(); }
};

std::vector<Page> Pages() {
    const fs::path root = VAULTRY_SOURCE_DIR;
    std::vector<Page> pages = {{root / "README.md"}};
    for (const auto& entry : fs::directory_iterator(root / "docs")) {
        if (entry.path().extension() == ".md") {
            pages.push_back({entry.path()});
        }
    }
    std::ranges::sort(pages, {}, &Page::path);
    return pages;
}

class DocumentationTest : public ProgramTest, public ::testing::WithParamInterface<Page> {
protected:
    // What readers of any page have at hand: plug-ins of their own, and a folder for pictures.
    void Prepare() {
        for (const char* name : {"dungeon.esp", "before.esp", "after.esp"}) {
            ASSERT_EQ(
                Run({"generate", "--out", name, "--seed", "7", "--stamp", "1", "--quiet"}).status,
                0);
        }
        ASSERT_EQ(Run({"search", "--seeds", "1..3", "--csv", "found-1.csv", "--quiet"}).status, 0);
        fs::create_directories(File("docs/pictures"));
    }

    void RunCommand(const std::string& command) {
        const std::string line =
            "cd \"" + fs::path(File("")).string() + "\" && (" + command + ") >printed 2>&1";
        const int status = std::system(line.c_str());
        EXPECT_EQ(status, 0) << command << '\n' << Read("printed");
    }
};

TEST_P(DocumentationTest, CommandsRunAsTheyStand) {
    Prepare();
    for (const Block& block : ReadBlocks(GetParam().path)) {
        if (const std::string name = SavedName(block.before); !name.empty()) {
            std::string text;
            for (const std::string& line : block.lines) {
                text += line + '\n';
            }
            Write(name, text);
        }
        if (block.kind != "sh") {
            continue;
        }
        for (const std::string& command : Commands(block)) {
            const std::string runnable = ProgramCommand(command);
            if (!runnable.empty() && (VAULTRY_HAS_PNG != 0 || !Contains(runnable, ".png"))) {
                RunCommand(runnable);
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Pages,
                         DocumentationTest,
                         ::testing::ValuesIn(Pages()),
                         [](const ::testing::TestParamInfo<Page>& page) {
                             std::string name = page.param.path.stem().string();
                             std::erase(name, '-');
                             return name;
                         });

TEST(DocumentationPagesTest, CommandsAreFound) {
    std::size_t count = 0;
    for (const Page& page : Pages()) {
        for (const Block& block : ReadBlocks(page.path)) {
            for (const std::string& command : Commands(block)) {
                count += ProgramCommand(command).empty() ? 0U : 1U;
            }
        }
    }
    EXPECT_GE(count, 30U);
}

} // namespace

} // namespace Tarnex::Test

#else

#include <tests/support/LeftOut.h>

VAULTRY_LEFT_OUT_ON_WINDOWS(DocumentationTest, "hands commands to a POSIX shell")

#endif
