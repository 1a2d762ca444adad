// SPDX-License-Identifier: MIT
#include "tools/plugins/InspectReport.h"
#include "tests/tools/plugins/SamplePlugin.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <limits>
#include <sstream>

namespace Tarnex::Test {

namespace {

class InspectReportTest : public ::testing::Test {
protected:
    InspectReportTest() {
        FillSample(mod);
        file = ReadBack(mod);
    }

    Report::Inspection Inspected() const { return {"sample.esp", file, findings}; }

    std::string Text(bool refs = false) const {
        std::ostringstream text;
        Report::PrintInspection(Inspected(), refs, text);
        return text.str();
    }

    // The lines that begin with `start`, blanks in front of it aside.
    std::string Lines(const std::string& start, bool refs = false) const {
        std::istringstream text(Text(refs));
        std::string lines;
        for (std::string line; std::getline(text, line);) {
            const std::size_t first = line.find_first_not_of(' ');
            if (first != std::string::npos && line.compare(first, start.size(), start) == 0) {
                lines += line + '\n';
            }
        }
        return lines;
    }

    nlohmann::json Json() const { return nlohmann::json::parse(Report::ToJson(Inspected())); }

    Mod mod;
    PluginFile file;
    std::vector<PluginFinding> findings;
};

TEST_F(InspectReportTest, TellsOfLocksKeysAndTraps) {
    mod.CreateKey("Key5_1")->name = "Key 1 of Crypt";
    RefLock lock;
    lock.level = 35;
    lock.key = "Key5_1";
    mod.GetCells()[0]->LockRef(1, lock);
    RefLock trap;
    trap.level = 10;
    trap.trap = "a_trap";
    mod.GetCells()[0]->LockRef(3, trap);
    RefLock open;
    open.level = 0;
    mod.GetCells()[1]->LockRef(0, open);
    file = ReadBack(mod);
    EXPECT_EQ(Lines("Records"),
              "  Records      4 (2 interiors, 1 key, 1 container); the header says 0\n");
    EXPECT_EQ(Lines("Locked"), "  Locked       1 door, 1 container; 1 trap\n");
    EXPECT_EQ(Lines("Leads to"),
              "  Leads to     \"Café\", at (512, -256, 0) facing 270, by reference 2, locked at "
              "35, key \"Key5_1\"\n"
              "  Leads to     \"Crypt\", at (256, -256, 0) facing 270, by reference 1, not "
              "locked\n");
    EXPECT_EQ(Lines("Key "), "Key Key5_1: \"Key 1 of Crypt\", opens 1 reference\n");
    EXPECT_NE(Lines("4  Ctr5_1", true).find("  locked at 10, trap \"a_trap\"\n"),
              std::string::npos);
    const nlohmann::json json = Json();
    const nlohmann::json& crypt = json["cells"][0];
    EXPECT_EQ(crypt["locked-doors"], 1);
    EXPECT_EQ(crypt["locked-containers"], 1);
    EXPECT_EQ(crypt["traps"], 1);
    EXPECT_EQ(crypt["references"][0]["lock"], nullptr);
    EXPECT_EQ(crypt["references"][1]["lock"],
              nlohmann::json({{"level", 35}, {"key", "Key5_1"}, {"trap", nullptr}}));
    EXPECT_EQ(crypt["references"][3]["lock"],
              nlohmann::json({{"level", 10}, {"key", nullptr}, {"trap", "a_trap"}}));
    EXPECT_EQ(json["keys"][0]["id"], "Key5_1");
    EXPECT_EQ(json["keys"][0]["name"], "Key 1 of Crypt");
}

TEST_F(InspectReportTest, TellsEverythingInWords) {
    EXPECT_EQ(Text(),
              "sample.esp: plug-in, 1206 bytes, version 1.2\n"
              "  Author       Ostrel\n"
              "  Description  Auto-generated mod\n"
              "  Master       Morrowind.esm, 79821084 bytes\n"
              "  Records      3 (2 interiors, 1 container); the header says 0\n"
              "\n"
              "Cell \"Crypt\": 5 references, 1 door, 1 teleport, 1 container\n"
              "  Bounds       x -80 to 316.25, y -256 to 0, z -128 to 0\n"
              "  Light        ambient 71 71 71, sun 242 217 217, fog 0 0 0 density 1\n"
              "  Leads to     \"Café\", at (512, -256, 0) facing 270, by reference 2\n"
              "\n"
              "Cell \"Café\": 1 reference, 1 door, 1 teleport, 0 containers\n"
              "  Bounds       x 512 to 512, y 0 to 0, z 0 to 0\n"
              "  Light        ambient 71 71 71, sun 242 217 217, fog 0 0 0 density 1\n"
              "  Leads to     \"Crypt\", at (256, -256, 0) facing 270, by reference 1\n"
              "\n"
              "Container Ctr5_1: \"Chest\", o\\chest.nif, capacity 40.5, in \"Crypt\"\n"
              "    25  gold_001\n"
              "     2  cup\n"
              "\n"
              "Total: 2 interiors, 6 references, 2 doors, 2 teleports, 0 lights, 1 container with "
              "27 items\n"
              "\n"
              "No inconsistencies.\n");
}

TEST_F(InspectReportTest, TellsOfEveryReferenceInColumns) {
    const std::string text = Text(true);
    const std::string table =
        "  No.  Object            x     y     z  about x  y    z  scale\n"
        "    1  NorthMarker       0  -150     0        0  0    0      1\n"
        "    2  in_door_01   316.25     0     0        0  0   90      1  to \"Café\"\n"
        "    3  in_doorjamb  316.25     0   -32        0  0    0      1\n"
        "    4  Ctr5_1          -80  -256   -96        0  0  180      1\n"
        "    5  rug              64   -64  -128        0  0    0   0.75\n";
    EXPECT_NE(text.find(table), std::string::npos) << text;
}

TEST_F(InspectReportTest, TellsWhatIsNotShown) {
    EXPECT_EQ(Lines("Not shown"), "");
    file.exteriorCells = 2;
    file.otherRecords = {{"LIGH", 1}, {"STAT", 3}};
    file.skippedSubRecords = {{"ANAM", 1}};
    EXPECT_EQ(Lines("Not shown"),
              "  Not shown    2 exterior cells, 4 other records (LIGH 1, STAT 3), 1 sub-record "
              "(ANAM 1)\n");
}

TEST_F(InspectReportTest, TellsWhichDoorsLeadInFromOutside) {
    EXPECT_EQ(Lines("Outside"), "");
    EXPECT_EQ(Json().at("exteriors"), nlohmann::json::array());
    PluginCell& outside = file.exteriors.emplace_back();
    file.exteriorCells = 3;
    outside.flags = 2;
    outside.column = -2;
    outside.row = 9;
    outside.refs = {file.cells[0].refs[1]};
    EXPECT_EQ(Lines("Outside"), "Outside (-2, 9): no region, 1 teleport\n");
    EXPECT_EQ(Lines("Not shown"), "  Not shown    2 exterior cells\n");
    outside.name = "Gnisis";
    outside.region = "West Gash";
    outside.deleted = true;
    const std::string text = Text();
    const std::string shown = "\nOutside (-2, 9), \"Gnisis\": region \"West Gash\", 1 teleport, "
                              "deleted\n"
                              "  Leads to     \"Café\", at (512, -256, 0) facing 270, by "
                              "reference 2\n";
    EXPECT_NE(text.find(shown), std::string::npos) << text;
    const nlohmann::json json = Json().at("exteriors").at(0);
    EXPECT_EQ(json.at("grid").dump(), "[-2,9]");
    EXPECT_EQ(json.at("region"), "West Gash");
    EXPECT_EQ(json.at("flags"), 2);
    EXPECT_EQ(json.at("references").at(0).at("destination").at("cell"), "Café");
}

TEST_F(InspectReportTest, TellsOfThePathGridOfACell) {
    EXPECT_EQ(Lines("Path grid"), "");
    file.pathGrids = {{0, "Crypt", {{0, 0, 0, {1}}, {256, 0, 0, {0}}}}, {0, "crypt", {}}};
    EXPECT_EQ(Lines("Path grid"), "  Path grid    2 points, 2 ways\n");
    // Once, or a few cells and a large grid would make a report without end.
    file.cells.push_back(file.cells[0]);
    EXPECT_EQ(Lines("Path grid"), "  Path grid    2 points, 2 ways\n");
}

TEST_F(InspectReportTest, TellsOfWater) {
    file.cells[0].flags = 3;
    file.cells[0].waterHeight = -64.5F;
    EXPECT_EQ(Lines("Water"), "  Water        at height -64.5\n");
}

TEST_F(InspectReportTest, TellsWhereDoorsLeadThatLeaveThePlugin) {
    file.cells[0].refs[1].destination->cell = "Balmora";
    file.cells[1].refs[0].destination->cell = "";
    EXPECT_EQ(Lines("Leads to"),
              "  Leads to     \"Balmora\", not in this plug-in, at (512, -256, 0) facing 270, by "
              "reference 2\n"
              "  Leads to     the outside, at (256, -256, 0) facing 270, by reference 1\n");
}

TEST_F(InspectReportTest, WhatIsDeletedIsMarkedAndNotCounted) {
    file.cells[0].refs[1].deleted = true;
    file.cells[0].refs[1].destination.reset();
    file.cells[0].refs[2].deleted = true;
    file.containers[0].deleted = true;
    EXPECT_EQ(Lines("Cell \"Crypt\""),
              "Cell \"Crypt\": 5 references, 0 doors, 0 teleports, 1 container\n");
    EXPECT_EQ(Lines("Bounds").substr(0, 57),
              "  Bounds       x -80 to 64, y -256 to -64, z -128 to 0\n  ");
    EXPECT_NE(Lines("2  in_door_01", true).find("  deleted\n"), std::string::npos);
    EXPECT_EQ(Lines("Container"),
              "Container Ctr5_1: \"Chest\", o\\chest.nif, capacity 40.5, in \"Crypt\", deleted\n");
}

TEST_F(InspectReportTest, ACellWithoutReferencesHasNoBounds) {
    file.cells.resize(1);
    file.cells[0].refs.clear();
    EXPECT_EQ(Lines("Bounds"), "");
    EXPECT_TRUE(Json().at("cells").at(0).at("bounds").is_null());
}

TEST_F(InspectReportTest, ListsFindingsWithTheirPlaces) {
    findings = {{0x1A4, "this is wrong"}, {0x10000, "that too"}};
    file.findingsLeftOut = 5;
    const std::string text = Text();
    EXPECT_EQ(text.substr(text.find("7 findings")),
              "7 findings:\n"
              "    0x1A4  this is wrong\n"
              "  0x10000  that too\n"
              "  and 5 more\n");
    EXPECT_EQ(text.find("No inconsistencies"), std::string::npos);
}

TEST_F(InspectReportTest, LongNamesAreCutAndControlCharactersReplaced) {
    file.header.author = std::string(81, 'a');
    file.header.description = "a\nb\x1b";
    EXPECT_EQ(Lines("Author"), "  Author       " + std::string(77, 'a') + "...\n");
    EXPECT_EQ(Lines("Description"), "  Description  a?b?\n");
}

TEST_F(InspectReportTest, JsonTellsOfTheFile) {
    file.otherRecords = {{"LIGH", 1}};
    const nlohmann::json json = Json();
    EXPECT_EQ(json.at("schema"), 1);
    EXPECT_EQ(json.at("path"), "sample.esp");
    EXPECT_EQ(json.at("bytes"), 1206);
    EXPECT_EQ(json.at("complete"), true);
    EXPECT_EQ(json.at("records"), 3);
    EXPECT_EQ(json.at("exterior-cells"), 0);
    EXPECT_EQ(json.at("other-records").dump(), R"({"LIGH":1})");
    EXPECT_EQ(json.at("header").dump(),
              R"({"author":"Ostrel","description":"Auto-generated mod",)"
              R"("masters":[{"bytes":79821084,"name":"Morrowind.esm"}],)"
              R"("records":0,"type":0,"version":1.2})");
}

TEST_F(InspectReportTest, JsonTellsOfCells) {
    const nlohmann::json cells = Json().at("cells");
    ASSERT_EQ(cells.size(), 2U);
    EXPECT_EQ(cells[1].at("name"), "Café");
    EXPECT_EQ(cells[0].at("offset"), 539);
    EXPECT_EQ(cells[0].at("ambient").dump(), "[71,71,71]");
    EXPECT_EQ(cells[0].at("sunlight").dump(), "[242,217,217]");
    EXPECT_EQ(cells[0].at("declared-references"), 5);
    EXPECT_EQ(cells[0].at("bounds").dump(),
              R"({"high":[316.25,0.0,0.0],"low":[-80.0,-256.0,-128.0]})");
    EXPECT_EQ(cells[0].at("doors"), 1);
    EXPECT_EQ(cells[0].at("teleports"), 1);
    EXPECT_EQ(cells[0].at("containers"), 1);
    EXPECT_EQ(cells[0].at("references").size(), 5U);
}

TEST_F(InspectReportTest, JsonTellsOfReferences) {
    const nlohmann::json refs = Json().at("cells").at(0).at("references");
    EXPECT_EQ(
        refs.at(4).dump(),
        R"({"degrees":[0.0,0.0,0.0],"deleted":false,"destination":null,"id":"rug",)"
        R"("lock":null,"number":5,"position":[64.0,-64.0,-128.0],"rotation":[0.0,0.0,0.0],"scale":0.75})");
    EXPECT_EQ(refs.at(1).at("rotation").dump(), "[0.0,0.0,1.5707964]");
    EXPECT_EQ(refs.at(1).at("degrees").dump(), "[0.0,0.0,90.0]");
    EXPECT_EQ(refs.at(1).at("destination").dump(),
              R"({"cell":"Café","degrees":[0.0,0.0,270.0],"in-plugin":true,)"
              R"("position":[512.0,-256.0,0.0],"rotation":[0.0,0.0,4.712389]})");
}

TEST_F(InspectReportTest, JsonTellsOfContainers) {
    EXPECT_EQ(Json().at("containers").dump(),
              R"([{"capacity":40.5,"deleted":false,"flags":8,"id":"Ctr5_1",)"
              R"("items":[{"count":25,"id":"gold_001"},{"count":2,"id":"cup"}],)"
              R"("model":"o\\chest.nif","name":"Chest","offset":362}])");
}

TEST_F(InspectReportTest, JsonTellsOfFindings) {
    findings = {{420, "this is wrong"}};
    file.findingsLeftOut = 5;
    EXPECT_EQ(Json().at("findings").dump(), R"([{"offset":420,"text":"this is wrong"}])");
    EXPECT_EQ(Json().at("findings-left-out"), 5);
}

TEST_F(InspectReportTest, JsonHasNullForWhatIsNotFinite) {
    file.cells[0].refs[4].place.position.x = std::numeric_limits<float>::infinity();
    file.cells[0].refs[4].scale = std::numeric_limits<float>::quiet_NaN();
    const nlohmann::json rug = Json().at("cells").at(0).at("references").at(4);
    EXPECT_EQ(rug.at("position").dump(), "[null,-64.0,-128.0]");
    EXPECT_TRUE(rug.at("scale").is_null());
}

} // namespace

} // namespace Tarnex::Test
