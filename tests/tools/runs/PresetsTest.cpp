// SPDX-License-Identifier: MIT
#include "tools/runs/Presets.h"

#include "tools/text/UsageError.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace Tarnex::Test {

namespace {

using Report::Preset;

std::string Refusal(const std::string& text) {
    try {
        Report::ReadPresets(text, "my.json");
    } catch (const UsageError& e) {
        return e.what();
    }
    return {};
}

TEST(PresetsTest, ReadsNamesDescriptionsAndOptionsOfEveryKind) {
    const auto presets = Report::ReadPresets(R"([
      {"name": "Höhle", "description": "d",
       "options": {"config": "my.xml", "levels": 3, "fixed": true, "size": "LARGE"}},
      {"name": "b"}])",
                                             "my.json");
    ASSERT_EQ(presets.size(), 2U);
    EXPECT_EQ(presets[0].description, "d");
    Report::RunRequest request;
    request.theme = "Stays";
    Report::Apply(Report::FindPreset(presets, "Höhle"), request);
    EXPECT_EQ(request.config, "my.xml");
    EXPECT_EQ(request.numLevels, 3U);
    EXPECT_TRUE(request.fixed);
    EXPECT_EQ(request.levelSize, RandomGenInfo::Large);
    EXPECT_EQ(request.theme, "Stays");
}

TEST(PresetsTest, WhatIsWrongIsNamedWithItsLineAndWhatWouldBeRight) {
    EXPECT_EQ(Refusal("[\n{\"name\": \"a\",\n\"options\": {\n\"tile-set\": \"x\"}}]"),
              "the presets \"my.json\", line 4: there is no option \"tile-set\"; did you mean "
              "\"tileset\"?");
    EXPECT_EQ(
        Refusal("[{\"name\": \"a\", \"options\": {\"levels\": 2.5}}]"),
        "the presets \"my.json\", line 1: \"levels\": \"2.5\" is not a whole number from 1 to "
        "1000");
    EXPECT_EQ(Refusal("[{\"name\": \"a\",\n\"Options\": {}}]"),
              "the presets \"my.json\", line 2: a preset has no part \"Options\"; did you mean "
              "\"options\"?");
    EXPECT_EQ(
        Refusal("[{\"name\": \"a\"},\n{\"name\": \"A\"}]"),
        "the presets \"my.json\", line 2: there are two presets \"A\"; give one another name");
    EXPECT_EQ(Refusal("[{\"description\": \"a\"}]"),
              "the presets \"my.json\", line 1: a preset has no \"name\"");
    EXPECT_EQ(Refusal("[]"), "the presets \"my.json\" hold none");
    const std::string whole = "presets are a list of objects with \"name\", \"description\" and "
                              "\"options\"";
    EXPECT_EQ(Refusal("{}"), "the presets \"my.json\", line 1: " + whole);
    EXPECT_EQ(Refusal("[3]"), "the presets \"my.json\", line 1: " + whole);
    EXPECT_EQ(Refusal("[{\"name\": 3}]"), "the presets \"my.json\", line 1: " + whole);
    EXPECT_EQ(Refusal("[{\"name\": \"a\", \"options\": {\"fixed\": null}}]"),
              "the presets \"my.json\", line 1: null sets nothing; leave the option out");
    for (const char* text : {"", "[\n{\"name\" \"a\"}]", "[{}", "[{\"name\": \"\xFF\"}]"}) {
        EXPECT_TRUE(Refusal(text).starts_with("the presets \"my.json\", line ")) << Refusal(text);
    }
    EXPECT_TRUE(Refusal("[\n{\"name\" \"a\"}]")
                    .starts_with("the presets \"my.json\", line 2: this is no JSON: syntax error"));
}

TEST(PresetsTest, NamesAreFoundInAnyCaseAndOthersAnsweredWithTheNearest) {
    const auto& presets = Report::BuiltinPresetList();
    EXPECT_EQ(Report::FindPreset(presets, "TOMB").name, "tomb");
    try {
        Report::FindPreset(presets, "tumb");
        FAIL();
    } catch (const UsageError& e) {
        EXPECT_STREQ(e.what(), "there is no preset \"tumb\"; did you mean \"tomb\"?");
    }
}

TEST(PresetsTest, EverySeedDrawsOneAndNeighboursDifferentOnes) {
    const auto& presets = Report::BuiltinPresetList();
    const auto drawn = [&presets](std::uint32_t seed) {
        return Report::PresetOfSeed(presets, seed).name;
    };
    std::set<std::string> names;
    for (std::uint32_t seed = 0; seed < 30; ++seed) {
        names.insert(drawn(seed));
        EXPECT_NE(drawn(seed), drawn(seed + 1)) << seed;
    }
    EXPECT_EQ(names.size(), presets.size());
    EXPECT_EQ(drawn(0), presets.front().name);
    EXPECT_FALSE(drawn(4294967295U).empty());
    EXPECT_EQ(Report::PresetOfSeed({presets.back()}, 7).name, presets.back().name);
}

} // namespace

} // namespace Tarnex::Test
