// SPDX-License-Identifier: MIT
// What a generator can be asked from C.
#include "tests/support/Contains.h"
#include "tests/support/TempDir.h"

#include <vaultry/vaultry.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace Tarnex::Test {

namespace {

using Json = nlohmann::json;

constexpr const char* kConfig = VAULTRY_SOURCE_DIR "/data/vaultry.xml";

class QuestionsTest : public ::testing::Test {
protected:
    QuestionsTest() { EXPECT_EQ(vaultry_init(own, kConfig), VAULTRY_OK); }
    ~QuestionsTest() override { vaultry_destroy(own); }

    void Set(const char* option, const char* value) {
        ASSERT_EQ(vaultry_set(own, option, value), VAULTRY_OK) << vaultry_error(own, 0);
    }

    void Run() {
        Set("seed", "11");
        Set("stamp", "1");
        Set("size", "tiny");
        Set("levels", "2");
        ASSERT_EQ(vaultry_run(own), VAULTRY_OK) << vaultry_error(own, 0);
    }

    std::string Plugin() {
        std::size_t length = 0;
        const void* const bytes = vaultry_plugin(own, &length);
        return bytes == nullptr ? "" : std::string(static_cast<const char*>(bytes), length);
    }

    // The error of a question that is refused.
    std::string Refusal(const char* answer) {
        EXPECT_EQ(answer, nullptr);
        EXPECT_EQ(vaultry_error_count(own), 1U);
        const char* const error = vaultry_error(own, 0);
        return error == nullptr ? "" : error;
    }

    static Json Parsed(const char* answer) {
        EXPECT_NE(answer, nullptr);
        return Json::parse(answer == nullptr ? "{}" : answer);
    }

    vaultry_generator* own = vaultry_create();
};

TEST_F(QuestionsTest, ARunToMemoryHasTheBytesOfTheFile) {
    Run();
    const std::string bytes = Plugin();
    ASSERT_EQ(bytes.substr(0, 4), "TES3");
    const TempDir dir;
    const std::string file = dir.File("dungeon.esp");
    ASSERT_EQ(vaultry_generate(own, file.c_str()), VAULTRY_OK);
    EXPECT_EQ(ReadFile(file), bytes);
    EXPECT_EQ(Plugin(), bytes);
}

TEST_F(QuestionsTest, PresetsAreListedAndUsed) {
    const Json presets = Parsed(vaultry_presets_json(own)).at("presets");
    for (const Json& preset : presets) {
        const std::string name = preset.at("name");
        ASSERT_EQ(vaultry_use_preset(own, name.c_str()), VAULTRY_OK) << name;
        EXPECT_EQ(vaultry_error_count(own), 0U);
        ASSERT_EQ(vaultry_run(own), VAULTRY_OK) << name;
        const Json options = Parsed(vaultry_run_json(own)).at("options");
        EXPECT_EQ(options.at("creature-theme"), preset.at("options").at("creature-theme"));
        // What an earlier preset set is gone.
        EXPECT_EQ(options.at("fixed"), preset.at("options").contains("fixed")) << name;
    }
    ASSERT_EQ(vaultry_use_preset(own, "GROTTO"), VAULTRY_OK);
    ASSERT_EQ(vaultry_run(own), VAULTRY_OK);
    const std::string line = vaultry_command_line(own);
    EXPECT_NE(line.find("--config builtin:grottoes"), std::string::npos) << line;
    EXPECT_EQ(vaultry_use_preset(own, "grotta"), VAULTRY_BAD_ARGUMENT);
    EXPECT_STREQ(vaultry_error(own, 0), "there is no preset \"grotta\"; did you mean \"grotto\"?");
    EXPECT_EQ(vaultry_use_preset(own, nullptr), VAULTRY_BAD_ARGUMENT);
}

TEST_F(QuestionsTest, WithoutARunThereIsNothingToTell) {
    std::size_t length = 7;
    EXPECT_EQ(Refusal(static_cast<const char*>(vaultry_plugin(own, &length))),
              "there is no plug-in: the last run made none");
    EXPECT_EQ(length, 0U);
    const std::string nothing = "nothing was generated from the configuration yet";
    EXPECT_EQ(Refusal(vaultry_run_json(own)), nothing);
    EXPECT_EQ(Refusal(vaultry_map(own, "svg")), nothing);
    EXPECT_EQ(Refusal(vaultry_command_line(own)), nothing);
    EXPECT_EQ(Refusal(vaultry_facts_json(own)), "there are no facts: the last run made no dungeon");
    // Nor of one from an earlier configuration.
    Run();
    ASSERT_EQ(vaultry_init(own, kConfig), VAULTRY_OK);
    EXPECT_EQ(Refusal(vaultry_run_json(own)), nothing);
    EXPECT_EQ(Plugin(), "");
}

TEST_F(QuestionsTest, APluginThatIsDescribedTellsTheLineThatMakesIt) {
    Set("describe", "true");
    Run();
    const std::string bytes = Plugin();
    const Json told = Parsed(vaultry_inspect_json(own, bytes.data(), bytes.size(), "a"));
    const std::string line = vaultry_command_line(own);
    EXPECT_EQ(told.at("command"), line);
    EXPECT_TRUE(Contains(line, "--describe"));
    // What the plug-in cannot hold stands beside it.
    const TempDir dir;
    const std::string file = dir.File("keep.esp");
    Set("cell", std::string(250, 'n').c_str());
    ASSERT_EQ(vaultry_generate(own, file.c_str()), VAULTRY_OK);
    EXPECT_TRUE(Contains(ReadFile(file + ".txt"), vaultry_command_line(own)));
    // But not in place of somebody's notes.
    std::filesystem::remove(file);
    std::ofstream(file + ".txt") << "notes";
    EXPECT_EQ(vaultry_generate(own, file.c_str()), VAULTRY_NOT_WRITTEN);
    EXPECT_EQ(ReadFile(file + ".txt"), "notes");
    EXPECT_FALSE(std::filesystem::exists(file));
    // Nor does the next plug-in of the generator tell of this one.
    Set("describe", "false");
    Run();
    const std::string other = Plugin();
    EXPECT_TRUE(Contains(other, "Auto-generated mod"));
}

TEST_F(QuestionsTest, ARunTellsWhatChanceChose) {
    Set("random-tileset", "true");
    Set("random-creature-theme", "true");
    Run();
    const Json json = Parsed(vaultry_run_json(own));
    EXPECT_EQ(json.at("schema"), vaultry_schema());
    EXPECT_EQ(json.at("result"), "made");
    EXPECT_EQ(json.at("seed"), 11);
    EXPECT_EQ(json.at("stamp"), 1);
    EXPECT_EQ(json.at("options").at("size"), "Tiny");
    EXPECT_EQ(json.at("levels").size(), 2U);
    EXPECT_TRUE(json.at("walkable").is_boolean());
    ASSERT_EQ(json.at("chosen").size(), 2U);
    const Json& chosen = json.at("chosen").at(1);
    EXPECT_EQ(chosen.at("level"), 2);
    EXPECT_EQ(chosen.at("cell"), json.at("levels").at(1).at("name"));
    EXPECT_TRUE(chosen.at("tileset").is_string());
    EXPECT_TRUE(chosen.at("creature-theme").is_string());
    EXPECT_EQ(chosen.at("layout"), nullptr);
    EXPECT_EQ(chosen.at("room-grid"), Json({2, 2}));
    EXPECT_EQ(chosen.at("spacing").size(), 2U);
    EXPECT_TRUE(Contains(std::string(vaultry_map(own, "html")), "level 2 by chance: tile set"));
}

int Stop(void* /*context*/, const char* /*text*/, std::int32_t /*pos*/, std::int32_t /*steps*/) {
    return 1;
}

TEST_F(QuestionsTest, ACancelledRunSaysSo) {
    Run();
    ASSERT_EQ(vaultry_set_progress(own, Stop, nullptr), VAULTRY_OK);
    EXPECT_EQ(vaultry_run(own), VAULTRY_CANCELED);
    EXPECT_EQ(Parsed(vaultry_run_json(own)).at("result"), "cancelled");
    EXPECT_EQ(Plugin(), "");
}

TEST_F(QuestionsTest, MapsAreDrawnInEveryKind) {
    Run();
    EXPECT_TRUE(Contains(vaultry_map(own, "svg"), "<svg"));
    EXPECT_TRUE(Contains(vaultry_map(own, "html"), "<!DOCTYPE html>"));
    EXPECT_TRUE(Contains(vaultry_map(own, "text"), "north is up"));
    EXPECT_EQ(Refusal(vaultry_map(own, "png")), "a map is \"svg\", \"html\", \"text\" or \"json\"");
    EXPECT_EQ(Refusal(vaultry_map(own, nullptr)),
              "a map is \"svg\", \"html\", \"text\" or \"json\"");
}

TEST_F(QuestionsTest, TheMapAsJsonHasEverythingInItsPlace) {
    Run();
    const Json levels = Parsed(vaultry_map(own, "json")).at("levels");
    const Json plugin = Parsed(vaultry_inspect_json(own, Plugin().data(), Plugin().size(), "x"));
    ASSERT_EQ(levels.size(), 2U);
    for (std::size_t i = 0; i < levels.size(); ++i) {
        const Json& level = levels[i];
        const Json& cell = plugin.at("cells").at(i);
        EXPECT_EQ(level.at("name"), cell.at("name"));
        EXPECT_GT(level.at("rooms").size(), 1U);
        ASSERT_EQ(level.at("things").size(), cell.at("references").size());
        for (std::size_t n = 0; n < level["things"].size(); ++n) {
            EXPECT_EQ(level["things"][n].at("id"), cell["references"][n].at("id"));
            EXPECT_EQ(level["things"][n].at("position"), cell["references"][n].at("position"));
            EXPECT_EQ(level["things"][n].at("degrees"), cell["references"][n].at("degrees"));
        }
    }
}

// Tiles without an offset of their own stand in the middle of their cells.
TEST_F(QuestionsTest, TheCornerTellsWhereTheCellsOfAMapAre) {
    Run();
    const Json levels = Parsed(vaultry_map(own, "json")).at("levels");
    for (const Json& level : levels) {
        const double size = level.at("cell-size");
        std::set<std::pair<double, double>> middles;
        for (const Json& cell : level.at("cells")) {
            middles.emplace(level["corner"][0].get<double>() + cell["x"].get<double>() * size,
                            level["corner"][1].get<double>() - cell["y"].get<double>() * size);
        }
        std::size_t inTheMiddle = 0;
        std::size_t tiles = 0;
        for (const Json& thing : level.at("things")) {
            if (thing.at("sort") == "tile") {
                ++tiles;
                inTheMiddle += middles.count({thing["position"][0], thing["position"][1]});
            }
        }
        EXPECT_GT(inTheMiddle * 2, tiles);
    }
}

TEST_F(QuestionsTest, FactsAreThoseOfASearch) {
    Run();
    const Json facts = Parsed(vaultry_facts_json(own)).at("facts");
    EXPECT_EQ(facts.at("seed"), 11);
    EXPECT_EQ(facts.at("levels"), 2);
    EXPECT_EQ(facts.at("bytes"), Plugin().size());
    const Json list = Parsed(vaultry_fact_list_json(own)).at("facts");
    EXPECT_EQ(list.size(), facts.size());
    for (const Json& fact : list) {
        const Json& value = facts.at(fact.at("name").get<std::string>());
        EXPECT_TRUE(fact.at("least").is_null() || value >= fact.at("least")) << fact;
        EXPECT_TRUE(fact.at("most").is_null() || value <= fact.at("most")) << fact;
    }
}

TEST_F(QuestionsTest, ConditionsAreJudged) {
    const Json before = Parsed(vaultry_judge_json(own, "rooms>=2 and walkable"));
    EXPECT_TRUE(before.at("holds").is_null());
    EXPECT_EQ(before.at("facts").at(1).at("most"), 1);
    Run();
    EXPECT_EQ(Parsed(vaultry_judge_json(own, "rooms>=2")).at("holds"), true);
    const Json judged = Parsed(vaultry_judge_json(own, "levels=3 or rooms<0"));
    EXPECT_EQ(judged.at("holds"), false);
    EXPECT_EQ(judged.at("facts").at(0).at("value"), 2);
    EXPECT_TRUE(Contains(Refusal(vaultry_judge_json(own, "romms>1")), "\"romms\" is no fact"));
    EXPECT_EQ(Refusal(vaultry_judge_json(own, "rooms>")),
              "the condition, position 7: a fact or a number is expected, not the end");
}

TEST_F(QuestionsTest, ChoicesHaveTheirProperties) {
    const Json json = Parsed(vaultry_choices_json(own));
    EXPECT_EQ(json.at("config"), kConfig);
    EXPECT_EQ(json.at("tilesets").at(0).at("default"), true);
    EXPECT_GT(json.at("templates").at(0).at("width"), 0);
    EXPECT_GT(json.at("templates").at(0).at("height"), 0);
    EXPECT_TRUE(json.at("creature-themes").at(0).at("level").is_number());
    EXPECT_EQ(json.at("errors").size(), 0U);
}

TEST_F(QuestionsTest, ProblemsHavePlacesAndNames) {
    const std::string text = "<OstrelData>\n  <Nonsense/>\n  <Tileset Name='a' TsType='Room'/>\n";
    EXPECT_EQ(vaultry_init_from_memory(own, text.data(), text.size(), "mine.xml"), VAULTRY_OK);
    const Json problems = Parsed(vaultry_problems_json(own)).at("problems");
    ASSERT_GE(problems.size(), 2U);
    EXPECT_EQ(problems[0].at("kind"), "unknown-element");
    EXPECT_EQ(problems[0].at("file"), "mine.xml");
    EXPECT_EQ(problems[0].at("line"), 2);
    EXPECT_EQ(problems[0].at("names").at(0), "Nonsense");
    EXPECT_EQ(problems.back().at("kind"), "broken");
    EXPECT_EQ(Parsed(vaultry_choices_json(own)).at("errors").size(), problems.size());
}

TEST_F(QuestionsTest, EveryOptionIsTold) {
    const Json options = Parsed(vaultry_options_json(own)).at("options");
    std::size_t count = 0;
    while (vaultry_option(count) != nullptr) {
        EXPECT_EQ(options.at(count).at("name"), vaultry_option(count));
        ++count;
    }
    EXPECT_EQ(options.size(), count);
    EXPECT_EQ(options.at(0).at("letter"), "n");
    EXPECT_TRUE(options.at(0).at("default").is_null());
}

TEST_F(QuestionsTest, TheGrammarNamesElementsAndAttributes) {
    const Json json = Parsed(vaultry_grammar_json(own));
    EXPECT_EQ(json.at("elements").size(), 19U);
    const Json& set = json["elements"][0];
    EXPECT_EQ(set.at("types"), Json::parse(R"(["Room","Cave"])"));
    EXPECT_GT(set.at("attributes").size(), 3U);
    EXPECT_GT(json.at("tile").at("attributes").size(), 3U);
    EXPECT_GT(json.at("platform-piece").at("attributes").size(), 3U);
}

TEST_F(QuestionsTest, TheCommandLineIsPrintedAndRead) {
    Set("cell", "It's");
    Set("ensure-walkable", "true");
    Run();
    const std::string line = vaultry_command_line(own);
    EXPECT_EQ(line.substr(0, line.find(" --config")),
              "vaultry generate --seed " + std::to_string(vaultry_last_seed(own)));
    EXPECT_TRUE(Contains(line, " --cell \"It's\" --levels 2 --size Tiny --stamp 1")) << line;
    const std::string bytes = Plugin();
    const Json read = Parsed(vaultry_command_line_json(own, line.c_str()));
    EXPECT_EQ(read.at("config"), kConfig);
    EXPECT_EQ(read.at("keep-going"), false);
    vaultry_generator* const other = vaultry_create();
    ASSERT_EQ(vaultry_init(other, read["config"].get<std::string>().c_str()), VAULTRY_OK);
    for (const auto& [name, value] : read.at("options").items()) {
        EXPECT_EQ(vaultry_set(other, name.c_str(), value.get<std::string>().c_str()), VAULTRY_OK);
    }
    ASSERT_EQ(vaultry_run(other), VAULTRY_OK);
    std::size_t length = 0;
    const char* const again = static_cast<const char*>(vaultry_plugin(other, &length));
    EXPECT_EQ(std::string(again, length), bytes);
    vaultry_destroy(other);
    EXPECT_EQ(Refusal(vaultry_command_line_json(own, "vaultry generate --nonsense")),
              "\"--nonsense\" is no option of a run");
}

TEST_F(QuestionsTest, AConfigurationIsCheckedAndNotTakenOver) {
    Run();
    const std::string text = "<OstrelData><Tileset Name='a'/></OstrelData>";
    const Json json = Parsed(vaultry_check_json(own, text.data(), text.size(), "mine.xml"));
    EXPECT_EQ(json.at("config"), "mine.xml");
    EXPECT_EQ(json.at("clean"), false);
    EXPECT_GT(json.at("findings").size(), 0U);
    EXPECT_EQ(Parsed(vaultry_check_json(own, nullptr, 9, nullptr)).at("usable"), false);
    EXPECT_EQ(vaultry_run(own), VAULTRY_OK);
}

TEST_F(QuestionsTest, EveryPieceOfADungeonHasAShape) {
    Run();
    const Json map = Parsed(vaultry_map(own, "json"));
    const Json json = Parsed(vaultry_shapes_json(own, nullptr, 0, "builtin"));
    std::set<std::string> ids;
    for (const Json& shape : json.at("shapes")) {
        ids.insert(shape.at("id"));
        const std::size_t vertices = shape.at("vertices").size() / 3;
        const std::size_t triangles = shape.at("surfaces").size();
        ASSERT_EQ(shape.at("vertices").size() % 3, 0U);
        ASSERT_EQ(shape.at("triangles").size(), triangles * 3);
        for (const Json& vertex : shape.at("triangles")) {
            ASSERT_LT(vertex.get<std::size_t>(), vertices);
        }
        for (const Json& surface : shape.at("surfaces")) {
            ASSERT_LT(surface.get<std::size_t>(), json.at("surfaces").size());
        }
    }
    std::size_t pieces = 0;
    for (const Json& level : map.at("levels")) {
        for (const Json& thing : level.at("things")) {
            if (thing.at("sort") == "tile" || thing.at("sort") == "door") {
                ++pieces;
                EXPECT_EQ(ids.count(thing.at("id")), 1U) << thing.at("id");
            }
        }
    }
    EXPECT_GT(pieces, 20U);
}

TEST_F(QuestionsTest, ShapesAreThoseOfAConfigurationThatIsHandedIn) {
    const std::string text = "<OstrelData><TileSet TsName='Mine' TsType='Room' TsSize='256'>"
                             "<Center>my_floor</Center></TileSet></OstrelData>";
    const Json json = Parsed(vaultry_shapes_json(own, text.data(), text.size(), "mine.xml"));
    // What every stage has is there too.
    const auto found = std::ranges::find(json.at("shapes"), "my_floor", [](const Json& shape) {
        return shape.at("id").get<std::string>();
    });
    ASSERT_NE(found, json.at("shapes").end());
    const Json& shape = *found;
    EXPECT_EQ(shape.at("sort"), "static");
    EXPECT_EQ(shape.at("known"), "shaped");
    EXPECT_EQ(Refusal(vaultry_shapes_json(own, nullptr, 0, "builtin:none")),
              "there is no built-in configuration \"builtin:none\"");
    EXPECT_EQ(
        Refusal(vaultry_shapes_json(own, "<OstrelData>", 12, "cut.xml")),
        "the configuration \"cut.xml\" cannot be read to its end; vaultry_check_json tells why");
}

// What was handed out may be handed back in.
TEST_F(QuestionsTest, PluginsAreInspectedAndCompared) {
    Run();
    std::size_t length = 0;
    const void* const bytes = vaultry_plugin(own, &length);
    EXPECT_EQ(Parsed(vaultry_inspect_json(own, bytes, length, "keep.esp")).at("path"), "keep.esp");
    const std::string first = Plugin();
    EXPECT_EQ(
        Parsed(vaultry_compare_json(own, first.data(), first.size(), first.data(), first.size()))
            .at("same"),
        true);
    Set("seed", "12");
    ASSERT_EQ(vaultry_run(own), VAULTRY_OK);
    const void* const second = vaultry_plugin(own, &length);
    const Json other =
        Parsed(vaultry_compare_json(own, first.data(), first.size(), second, length));
    EXPECT_EQ(other.at("same"), false);
    EXPECT_EQ(Refusal(vaultry_inspect_json(own, "abc", 3, "abc")),
              "\"abc\" is not a plug-in: it does not begin with a TES3 record");
    EXPECT_EQ(Refusal(vaultry_inspect_json(own, nullptr, 3, nullptr)),
              "\"\" is not a plug-in: it does not begin with a TES3 record");
}

TEST_F(QuestionsTest, AnotherThreadCancels) {
    vaultry_cancel(own); // nothing is under way: nobody hears it
    Run();
    Set("levels", "1000");
    Set("size", "large");
    std::atomic<bool> begun = false;
    ASSERT_EQ(vaultry_set_progress(
                  own,
                  [](void* context, const char*, std::int32_t, std::int32_t) {
                      *static_cast<std::atomic<bool>*>(context) = true;
                      return 0;
                  },
                  &begun),
              VAULTRY_OK);
    std::thread other([&] {
        while (!begun) {
            std::this_thread::yield();
        }
        vaultry_cancel(own);
    });
    EXPECT_EQ(vaultry_run(own), VAULTRY_CANCELED);
    other.join();
    Set("levels", "1");
    Set("size", "tiny");
    EXPECT_EQ(vaultry_run(own), VAULTRY_OK);
}

int AskItself(void* context, const char* /*text*/, std::int32_t /*pos*/, std::int32_t /*steps*/) {
    auto* const own = static_cast<vaultry_generator*>(context);
    std::size_t length = 1;
    const bool refused = vaultry_plugin(own, &length) == nullptr && length == 0 &&
                         vaultry_facts_json(own) == nullptr && vaultry_map(own, "svg") == nullptr &&
                         vaultry_run(own) == VAULTRY_BUSY;
    vaultry_cancel(own);
    return refused ? 0 : 1;
}

TEST_F(QuestionsTest, AGeneratorAtWorkAnswersNothingButMayCancelItself) {
    ASSERT_EQ(vaultry_set_progress(own, AskItself, own), VAULTRY_OK);
    EXPECT_EQ(vaultry_run(own), VAULTRY_CANCELED);
    EXPECT_EQ(Parsed(vaultry_run_json(own)).at("result"), "cancelled");
}

} // namespace

} // namespace Tarnex::Test
