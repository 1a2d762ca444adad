// SPDX-License-Identifier: MIT
// What an independent reader of the file format makes of the plug-ins of the program.
#if !defined(_WIN32)

#include <nlohmann/json.hpp>

#include <algorithm>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <tests/cli/Program.h>
#include <tests/support/Esmtool.h>
#include <vector>

namespace Tarnex::Test {

namespace {

using Json = nlohmann::json;
using Words = std::vector<std::string>;

// A cell as the reader shows it.
struct ShownCell {
    std::string name;
    Words references;   // their identifiers, in order
    Words destinations; // of the teleporting doors, in order

    std::size_t Count(const std::string& id) const {
        return static_cast<std::size_t>(std::ranges::count(references, id));
    }
};

// A plug-in as the reader shows it.
struct ShownPlugin {
    std::vector<ShownCell> cells;
    std::set<std::string> containers;
    std::size_t items = 0; // in all containers
};

// The rest of a line after its label, without the quotes of an identifier.
bool TakeValue(std::string_view line, std::string_view label, std::string& value) {
    if (!line.starts_with(label)) {
        return false;
    }
    value = line.substr(label.size());
    std::erase(value, '\'');
    return true;
}

ShownPlugin ReadDump(const std::string& text) {
    ShownPlugin plugin;
    ShownCell* cell = nullptr;
    std::istringstream lines(text);
    std::string value;
    for (std::string line; std::getline(lines, line);) {
        if (TakeValue(line, "Record: CELL ", value)) {
            cell = &plugin.cells.emplace_back();
            cell->name = value;
        } else if (TakeValue(line, "Record: CONT ", value)) {
            plugin.containers.insert(value);
        } else if (line.starts_with("  Inventory: Count:")) {
            ++plugin.items;
        } else if (cell != nullptr && TakeValue(line, "    ID: ", value)) {
            cell->references.push_back(value);
        } else if (cell != nullptr && TakeValue(line, "    Destination cell: ", value)) {
            cell->destinations.push_back(value);
        }
    }
    return plugin;
}

std::size_t Total(const Json& counts) {
    std::size_t total = 0;
    for (const Json& count : counts) {
        total += count.get<std::size_t>();
    }
    return total;
}

std::size_t ContainersIn(const ShownCell& cell, const ShownPlugin& plugin) {
    return static_cast<std::size_t>(
        std::ranges::count_if(cell.references, [&plugin](const std::string& id) {
            return plugin.containers.contains(id);
        }));
}

class EsmtoolTest : public ProgramTest {
protected:
    void SetUp() override { ASSERT_TRUE(HaveEsmtool()) << kNoEsmtool; }

    // Generates made.esp and expects that the reader shows what the report tells, and that it
    // writes the same bytes.
    void ExpectAgreement(const Words& arguments) {
        ASSERT_NO_FATAL_FAILURE(MakePlugin(arguments));
        ExpectCells();
        ExpectContainers();
        ExpectSameCopy();
    }

    Json report;
    ShownPlugin shown;

private:
    void MakePlugin(const Words& arguments) {
        Words all = {
            "generate", "-o", "made.esp", "-n", "Crypt", "--stamp", "7", "--json", "--quiet"};
        all.insert(all.end(), arguments.begin(), arguments.end());
        const Outcome outcome = Run(all);
        ASSERT_EQ(outcome.status, 0) << outcome.err;
        report = Json::parse(outcome.out);
        const Answer answer = DumpPlugin(File("made.esp"));
        ASSERT_EQ(answer.status, 0) << answer.text;
        shown = ReadDump(answer.text);
        ASSERT_EQ(shown.cells.size(), report["cells"].size());
        ASSERT_FALSE(shown.cells.empty());
    }

    void ExpectCells() const {
        for (std::size_t i = 0; i < shown.cells.size(); ++i) {
            const ShownCell& cell = shown.cells[i];
            const Json& told = report["cells"][i];
            SCOPED_TRACE(cell.name);
            EXPECT_EQ(cell.name, told["name"]);
            EXPECT_EQ(cell.references.size(), Total(told["references"]));
            EXPECT_EQ(cell.Count("NorthMarker"), told["references"]["marker"]);
            EXPECT_EQ(ContainersIn(cell, shown), told["references"]["container"]);
            EXPECT_EQ(cell.destinations.size(), told["teleports"]);
        }
    }

    void ExpectContainers() const {
        EXPECT_EQ(shown.containers.size(), report["containers"]["count"]);
        EXPECT_EQ(shown.items, report["containers"]["entries"]);
        EXPECT_GT(shown.items, 0U);
    }

    void ExpectSameCopy() const {
        constexpr std::size_t kRecordCount = 320;
        const Answer answer = ClonePlugin(File("made.esp"), File("copy.esp"));
        ASSERT_EQ(answer.status, 0) << answer.text;
        const std::string made = Read("made.esp");
        const std::string copy = Read("copy.esp");
        ASSERT_EQ(made.size(), report["files"][0]["bytes"]);
        ASSERT_EQ(copy.size(), made.size());
        EXPECT_EQ(WordAt(copy, kRecordCount), shown.cells.size() + shown.containers.size());
        EXPECT_TRUE(WithoutWhatACopyChanges(copy) == WithoutWhatACopyChanges(made));
    }
};

TEST_F(EsmtoolTest, ReadsRandomLevelsAndTheDoorsBetweenThem) {
    ExpectAgreement({"--levels", "3", "--creature-theme", "Vermin", "--seed", "7"});
    ASSERT_EQ(shown.cells.size(), 3U);
    EXPECT_EQ(shown.cells[0].name, "Crypt, Level 1");
    EXPECT_EQ(shown.cells[0].destinations, (Words{"Crypt, Level 2"}));
    EXPECT_EQ(shown.cells[1].name, "Crypt, Level 2");
    Words between = shown.cells[1].destinations;
    std::ranges::sort(between);
    EXPECT_EQ(between, (Words{"Crypt, Level 1", "Crypt, Level 3"}));
    EXPECT_EQ(shown.cells[2].name, "Crypt, Level 3");
    EXPECT_EQ(shown.cells[2].destinations, (Words{"Crypt, Level 2"}));
    for (const ShownCell& cell : shown.cells) {
        EXPECT_GT(cell.Count("Rat") + cell.Count("rat_cave_fgrh") + cell.Count("mudcrab") +
                      cell.Count("scrib"),
                  0U)
            << cell.name;
    }
}

TEST_F(EsmtoolTest, ReadsEveryLayoutOfTheDefault) {
    const Json layouts = Json::parse(Run({"list", "--json"}).out)["templates"];
    ASSERT_GE(layouts.size(), 12U);
    for (const Json& layout : layouts) {
        const auto name = layout["name"].get<std::string>();
        SCOPED_TRACE(name);
        ExpectAgreement({"--fixed", "--template", name, "--seed", "7"});
        ASSERT_EQ(shown.cells.size(), 1U);
        EXPECT_EQ(shown.cells[0].name, "Crypt");
        EXPECT_EQ(shown.cells[0].destinations, Words());
    }
}

TEST_F(EsmtoolTest, ReadsARandomLevelOfTunnels) {
    ExpectAgreement({"-c", "builtin:caves", "--cave-tileset", "Mold cave tunnels", "--seed", "7"});
    ASSERT_EQ(shown.cells.size(), 1U);
    EXPECT_EQ(shown.cells[0].name, "Crypt");
    EXPECT_GT(shown.cells[0].Count("in_moldcave_00"), 0U);
}

TEST_F(EsmtoolTest, ReadsAGrottoWithPlatforms) {
    ExpectAgreement({"-c",
                     "builtin:grottoes",
                     "--fixed",
                     "--cave-tileset",
                     "Mold cave rooms",
                     "--cave-template",
                     "Smugglers' Grotto",
                     "--platforms",
                     "--seed",
                     "7"});
    ASSERT_EQ(shown.cells.size(), 1U);
    EXPECT_EQ(shown.cells[0].name, "Crypt");
    EXPECT_GT(report["cells"][0]["references"]["platform"], 0);
    EXPECT_GT(shown.cells[0].Count("ex_de_docks_pilingb"), 0U);
}

} // namespace

} // namespace Tarnex::Test

#else

#include <tests/support/LeftOut.h>

VAULTRY_LEFT_OUT_ON_WINDOWS(PluginEsmtoolTest, "runs esmtool in a shell")

#endif
