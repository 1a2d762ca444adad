// SPDX-License-Identifier: MIT
#include "tools/stage/StageFiles.h"

#include "tests/tools/stage/NifReader.h"
#include "tests/tools/stage/StageTest.h"

#include <vaultry/output/PluginReader.h>

#include <gtest/gtest.h>

namespace Tarnex::Test {

namespace {

TEST(StageFilesTest, TheMasterIsReadBackWithoutAFinding) {
    const Report::StageFiles stage = Report::FilesOf(BuiltinPlan());
    const PluginFile file = ReadPlugin(stage.master);
    EXPECT_TRUE(file.complete);
    EXPECT_TRUE(file.findings.empty());
    EXPECT_EQ(file.header.type, 1U);
    EXPECT_EQ(file.header.author, "vaultry stage");
    EXPECT_EQ(file.header.recordCount, file.records);
    EXPECT_EQ(file.exteriorCells, 9U);
    EXPECT_EQ(file.otherRecords.at("SKIL"), 27U);
    EXPECT_EQ(file.otherRecords.at("LAND"), 9U);
    EXPECT_GT(file.otherRecords.at("GMST"), 1500U);
    EXPECT_GT(file.otherRecords.at("MISC"), 1000U);
    EXPECT_EQ(file.containers.size(), 44U);
}

TEST(StageFilesTest, EveryMeshIsReadBack) {
    for (const auto& [path, bytes] : Report::FilesOf(BuiltinPlan()).files) {
        if (path.ends_with(".nif")) {
            EXPECT_EQ(ReadNif(bytes).fault, "") << path;
        }
    }
}

TEST(StageFilesTest, EveryTextureThatAMeshNamesIsThere) {
    const Report::StageFiles stage = Report::FilesOf(BuiltinPlan());
    for (const auto& [path, bytes] : stage.files) {
        for (const NifContent::Shape& shape : ReadNif(bytes).shapes) {
            EXPECT_TRUE(shape.bars || stage.files.contains("textures/" + shape.texture)) << path;
        }
    }
}

TEST(StageFilesTest, TheSameConfigurationsGiveTheSameBytes) {
    const Report::StageFiles a = Report::FilesOf(BuiltinPlan());
    const Report::StageFiles b = Report::FilesOf(BuiltinPlan());
    EXPECT_EQ(a.master, b.master);
    EXPECT_EQ(a.files, b.files);
}

// A plug-in has records of its own for containers, which name the model.
TEST(StageFilesTest, AContainerHasItsMeshWhereItsModelIs) {
    const Report::StageFiles stage = Report::FilesOf(
        PlanOf("<Container UniqueName=\"c\" ModelFile=\"O\\Chest 1.NIF\" SizeX=\"9\"/>"));
    EXPECT_TRUE(stage.files.contains("meshes/o/chest 1.nif"));
}

TEST(StageFilesTest, NoModelLeadsOutOfTheFolder) {
    for (const char* const model :
         {"..\\..\\x.nif", "\\x.nif", "c:\\x.nif", "o\\x.txt", "o/../x.nif", "o\\.x.nif"}) {
        const Report::StageFiles stage = Report::FilesOf(
            PlanOf("<Container UniqueName=\"c\" ModelFile=\"" + std::string(model) + "\"/>"));
        EXPECT_TRUE(stage.files.contains("meshes/stage/c.nif")) << model;
        ASSERT_EQ(stage.remarks.size(), 1U) << model;
        EXPECT_EQ(stage.remarks[0],
                  "no mesh is written for the model \"" + std::string(model) +
                      "\" of Container (own)");
        for (const auto& [path, bytes] : stage.files) {
            EXPECT_EQ(path.find(".."), std::string::npos);
        }
    }
}

TEST(StageFilesTest, IdentifiersThatDifferInOddCharactersHaveMeshesOfTheirOwn) {
    const Report::StageFiles stage =
        Report::FilesOf(PlanOf("<Furniture UniqueName=\"a.b\"/><Furniture UniqueName=\"a?b\"/>"));
    EXPECT_TRUE(stage.files.contains("meshes/stage/a_b.nif"));
    EXPECT_TRUE(stage.files.contains("meshes/stage/a_b_2.nif"));
}

TEST(StageFilesTest, NothingInAConfigurationIsAStageTooWithoutARemark) {
    const Report::StageFiles stage = Report::FilesOf(PlanOf(""));
    EXPECT_TRUE(ReadPlugin(stage.master).findings.empty());
    EXPECT_TRUE(stage.remarks.empty());
}

} // namespace

} // namespace Tarnex::Test
