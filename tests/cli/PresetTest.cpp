// SPDX-License-Identifier: MIT
// Dungeons of a kind.
#include "tools/runs/Presets.h"

#include <nlohmann/json.hpp>

#include <string>
#include <tests/cli/Program.h>
#include <vector>

namespace Tarnex::Test {

namespace {

using Json = nlohmann::json;
using Lines = std::vector<std::string>;

class PresetTest : public ProgramTest {
protected:
    Json Made(Lines arguments) const {
        arguments.insert(arguments.begin(), {"generate", "--json", "--stamp", "1"});
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return Json::parse(outcome.out);
    }
};

TEST_F(PresetTest, EachIsMadeWithCreaturesAndWithoutAFault) {
    for (const Report::Preset& preset : Report::BuiltinPresetList()) {
        std::uint64_t creatures = 0;
        for (const char* seed : {"1", "2"}) {
            const Json report = Made({"--preset", preset.name, "--seed", seed});
            EXPECT_EQ(report["preset"], preset.name);
            EXPECT_EQ(report["errors"], Json::array()) << preset.name;
            for (const Json& cell : report["cells"]) {
                creatures += cell["references"]["creature"].get<std::uint64_t>();
            }
        }
        EXPECT_GT(creatures, 0U) << preset.name;
    }
}

TEST_F(PresetTest, WhatIsTypedGoesBeforeWherever) {
    const Json report = Made({"--levels", "1", "--preset", "Tomb", "--theme", "noble hall"});
    EXPECT_EQ(report["options"]["levels"], 1);
    EXPECT_EQ(report["options"]["theme"], "Noble hall");
    EXPECT_EQ(report["options"]["creature-theme"], "Undead");
    EXPECT_EQ(report["config"], "builtin");
    const Json cave = Made({"--preset", "cave", "--tileset", "Velothi"});
    EXPECT_EQ(cave["config"], "builtin:caves");
    EXPECT_TRUE(cave["options"]["cave-tileset"].is_null());
}

TEST_F(PresetTest, ChanceIsTheSeedAndThePartsMakeTheSame) {
    const Outcome drawn = Run(
        {"generate", "--random-preset", "--seed", "4", "--stamp", "1", "-n", "A", "-o", "a.esp"});
    const std::string name = Report::PresetOfSeed(Report::BuiltinPresetList(), 4).name;
    EXPECT_TRUE(Contains(drawn.err, "vaultry: preset " + name + ": ")) << drawn.err;
    Made({"--preset", name, "--seed", "4", "-n", "A", "-o", "b.esp"});
    EXPECT_TRUE(Read("a.esp") == Read("b.esp"));
    EXPECT_EQ(Made({"--random-preset"})["result"], "written");
}

TEST_F(PresetTest, PresetsOfOnesOwn) {
    Write("my.json",
          R"([{"name": "den", "options": {"config": )" + Json(smallConfig).dump() +
              R"(, "fixed": true, "theme": "bare", "random-theme": true}}])");
    const Json report = Made({"--presets", "my.json", "--preset", "den"});
    EXPECT_EQ(report["config"], smallConfig);
    EXPECT_EQ(report["options"]["theme"], "Bare");
    EXPECT_EQ(report["options"]["random-theme"], true);
    EXPECT_EQ(Made({"--presets", "my.json", "--random-preset"})["preset"], "den");
    const Json named = Made({"--presets", "my.json", "--preset", "den", "--theme", "Bare"});
    EXPECT_EQ(named["options"]["random-theme"], false);
}

TEST_F(PresetTest, PresetsOfOnesOwnAreListedAndTheirMistakesPlaced) {
    Write("my.json", "[{\"name\": \"den\", \"options\": {\n\n\"theme\": \"Bear\"}}]");
    const Outcome list = Run({"list", "--presets", "my.json", "-c", smallConfig});
    EXPECT_TRUE(list.out.starts_with("Presets (--preset):\n  den\n")) << list.out;
    const Outcome made = Run({"generate", "--presets", "my.json", "--preset", "den"});
    EXPECT_EQ(made.status, 2);
    EXPECT_TRUE(made.err.ends_with("; the preset \"den\" asks for it, \"my.json\", line 3\n"))
        << made.err;
}

TEST_F(PresetTest, MapsAndSearchesTakeThemAndLinesNameTheirParts) {
    const Outcome map = Run({"map", "--preset", "barrow", "--seed", "1"});
    EXPECT_EQ(map.status, 0);
    EXPECT_TRUE(Contains(map.out, "(Velothi, "));
    const Outcome search = Run({"search", "--preset", "barrow", "--seeds", "7"});
    EXPECT_TRUE(Contains(search.out,
                         "  vaultry generate --seed 7 --cell dungeon --tileset Velothi --theme "
                         "\"Poor tomb\" --creature-theme \"Undead (easy)\" --treasure-theme "
                         "\"Grave goods\" --size Small\n"))
        << search.out;
}

TEST_F(PresetTest, MistakesAreAnswered) {
    const auto fault = [this](const Lines& arguments) {
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.status, 2);
        return outcome.err;
    };
    EXPECT_EQ(fault({"generate", "--preset", "tumb"}),
              "vaultry: there is no preset \"tumb\"; did you mean \"tomb\"?\n");
    EXPECT_EQ(fault({"generate", "--presets", "my.json"}),
              "vaultry: --presets needs --preset or --random-preset to choose one of them\n");
    EXPECT_EQ(fault({"generate", "tomb"}),
              "vaultry: \"tomb\" is a preset: did you mean \"vaultry generate --preset tomb\"?\n");
    EXPECT_TRUE(Contains(fault({"generate", "--preset", "tomb", "-c", "builtin:caves"}),
                         "; the preset \"tomb\" asks for it\n"));
    EXPECT_FALSE(
        Contains(fault({"generate", "--preset", "tomb", "--theme", "Tomp"}), "asks for it"));
    EXPECT_TRUE(Contains(fault({"map", "--presets", "my.json", "--preset", "a"}), "my.json"));
    EXPECT_TRUE(Contains(fault({"map", "a.esp", "--preset", "tomb"}),
                         "--preset shapes what is generated and does not go with a plug-in"));
    EXPECT_EQ(Files(), Lines{});
}

} // namespace

} // namespace Tarnex::Test
