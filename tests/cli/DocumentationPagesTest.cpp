// SPDX-License-Identifier: MIT
// What the pages of the documentation say of each other, and of the options of the program.
#ifndef _WIN32

#include "cli/CommandHelp.h"
#include "tests/cli/Markdown.h"
#include "tests/cli/Program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace Tarnex::Test {

namespace {

namespace fs = std::filesystem;

TEST(DocumentationPagesTest, CommandsAreFound) {
    std::size_t count = 0;
    for (const Page& page : Pages()) {
        for (const CodeBlock& block : page.Blocks()) {
            for (const std::string& command : block.Commands()) {
                count += ProgramCommand(command).empty() ? 0U : 1U;
            }
        }
    }
    EXPECT_GE(count, 30U);
}

TEST(DocumentationPagesTest, DotsStandForAnyNumberOfLines) {
    const Session session = {"", {"a", "...", "b", "...", "b", "c"}};
    EXPECT_TRUE(session.Shows({"a", "b", "b", "c"}));
    EXPECT_TRUE(session.Shows({"a", "x", "b", "y", "b", "z", "b", "c"}));
    EXPECT_TRUE(session.Shows({"a", "...", "b", "b", "c", "b", "c"}));
    EXPECT_FALSE(session.Shows({"a", "b", "c"}));
    EXPECT_FALSE(session.Shows({"x", "b", "b", "c"}));
    EXPECT_FALSE(session.Shows({"a", "b", "b", "c", "x"}));
    EXPECT_FALSE(session.Shows({}));
    EXPECT_TRUE((Session{"", {"a", "..."}}.Shows({"a"})));
    EXPECT_TRUE((Session{"", {"..."}}.Shows({})));
    EXPECT_FALSE((Session{"", {}}.Shows({"a"})));
}

// Trying every way to share the lines out would take longer than anybody has.
TEST(DocumentationPagesTest, ManyDotsAreComparedSoon) {
    Session session;
    for (int i = 0; i < 40; ++i) {
        session.printed.insert(session.printed.end(), {"...", "a"});
    }
    session.printed.emplace_back("b");
    EXPECT_FALSE(session.Shows(std::vector<std::string>(400, "a")));
}

TEST(DocumentationPagesTest, LinksLeadSomewhere) {
    for (const Page& page : Pages()) {
        for (const std::string& link : page.Links()) {
            if (Contains(link, "://")) {
                continue;
            }
            const std::size_t sharp = std::min(link.find('#'), link.size());
            const std::string file = link.substr(0, sharp);
            const Page target = {file.empty() ? page.path : page.path.parent_path() / file};
            ASSERT_TRUE(fs::exists(target.path)) << page.path << " links to " << link;
            if (sharp < link.size()) {
                const std::vector<std::string> anchors = target.Anchors();
                EXPECT_NE(std::ranges::find(anchors, link.substr(sharp + 1)), anchors.end())
                    << page.path << " links to " << link;
            }
        }
    }
}

// Files of the project, as pages name them; not those that are built.
std::set<std::string> FilesNamedIn(const Page& page) {
    static const std::regex path(
        "`((?:bench|cli|cmake|data|docs|embed|examples|fuzz|python|scripts|tests|tools|vaultry)"
        "/[A-Za-z0-9_./-]+)`");
    std::set<std::string> files;
    for (const std::string& line : page.Prose()) {
        for (std::sregex_iterator found(line.begin(), line.end(), path), end; found != end;
             ++found) {
            const std::string file = (*found)[1];
            if (!file.ends_with(".so")) {
                files.insert(file);
            }
        }
    }
    return files;
}

TEST(DocumentationPagesTest, FilesThatAreNamedExist) {
    std::size_t count = 0;
    for (const Page& page : Pages()) {
        for (const std::string& file : FilesNamedIn(page)) {
            EXPECT_TRUE(fs::exists(fs::path(VAULTRY_SOURCE_DIR) / file))
                << page.path << " names " << file;
            ++count;
        }
    }
    EXPECT_GE(count, 80U);
}

TEST(DocumentationPagesTest, EveryPictureIsShown) {
    std::set<std::string> shown;
    for (const Page& page : Pages()) {
        for (const std::string& link : page.Links()) {
            shown.insert(fs::path(link).filename().string());
        }
    }
    for (const auto& entry : fs::directory_iterator(VAULTRY_SOURCE_DIR "/docs/pictures")) {
        const std::string name = entry.path().filename().string();
        EXPECT_TRUE(shown.contains(name)) << name;
    }
}

// A verb and one of its switches.
using Switch = std::pair<std::string, std::string>;

std::set<Switch> SwitchesOf(const std::string& verb, const std::string& text) {
    static const std::regex word("-[-a-z]*[a-z]");
    std::set<Switch> switches;
    for (std::sregex_iterator match(text.begin(), text.end(), word), end; match != end; ++match) {
        switches.emplace(verb, match->str());
    }
    return switches;
}

std::set<Switch> KnownSwitches() {
    std::set<Switch> switches;
    for (const Cli::VerbHelp& verb : Cli::DescribeCommandLine().verbs) {
        for (const Cli::OptionHelp& option : verb.options) {
            for (const std::string& name : option.names) {
                switches.emplace(verb.name, name);
            }
        }
    }
    return switches;
}

std::vector<std::string> Fields(const std::string& row) {
    std::vector<std::string> fields;
    std::istringstream text(row.substr(1));
    for (std::string field; std::getline(text, field, '|');) {
        const std::size_t begin = std::min(field.find_first_not_of(" `"), field.size());
        const std::size_t end = field.find_last_not_of(" `") + 1;
        fields.push_back(field.substr(begin, std::max(end, begin) - begin));
    }
    return fields;
}

// Those of the table of options and verbs.
std::set<Switch> DescribedSwitches(const Page& page) {
    std::set<Switch> switches;
    std::vector<std::string> verbs;
    for (const std::string& line : page.Prose()) {
        if (line.rfind('|', 0) != 0) {
            verbs.clear();
            continue;
        }
        const std::vector<std::string> fields = Fields(line);
        if (fields.front() == "option") {
            verbs = fields;
        }
        for (std::size_t i = 1; i < std::min(verbs.size(), fields.size()); ++i) {
            if (fields[i] == "●") {
                const std::string names = fields.front().substr(0, fields.front().find("]("));
                switches.merge(SwitchesOf(verbs[i], names));
            }
        }
    }
    return switches;
}

class OptionsPageTest : public ::testing::Test {
protected:
    Page page = {fs::path(VAULTRY_SOURCE_DIR) / "docs" / "options.md"};
    std::set<Switch> known = KnownSwitches();
};

TEST_F(OptionsPageTest, TellsWhichVerbTakesWhat) {
    ASSERT_GE(known.size(), 80U);
    EXPECT_EQ(DescribedSwitches(page), known);
}

TEST_F(OptionsPageTest, HasAHeadingForEveryOption) {
    std::set<std::string> headings;
    for (const std::string& line : page.Prose()) {
        if (line.rfind("### ", 0) == 0) {
            for (const Switch& described : SwitchesOf("", line.substr(4))) {
                headings.insert(described.second);
            }
        }
    }
    for (const auto& [verb, name] : known) {
        if (name.rfind("--", 0) == 0) {
            EXPECT_TRUE(headings.contains(name)) << verb << ' ' << name;
        }
    }
}

} // namespace

} // namespace Tarnex::Test

#else

#include <tests/support/LeftOut.h>

VAULTRY_LEFT_OUT_ON_WINDOWS(DocumentationPagesTest, "hands commands to a POSIX shell")

#endif
