// SPDX-License-Identifier: MIT
#include "tools/stage/NifFile.h"

#include "tests/tools/stage/NifReader.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace Tarnex::Test {

namespace {

using Report::Shape;
using Report::Surface;

Di3Point Minus(Di3Point a, const Di3Point& b) {
    a -= b;
    return a;
}

Di3Point Cross(const Di3Point& a, const Di3Point& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

float Dot(const Di3Point& a, const Di3Point& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

Shape Crate() {
    Shape shape;
    AddBox(shape, Surface::Chest, {-10, -20, 0}, {10, 200, 30});
    return shape;
}

TEST(NifFileTest, AMeshIsReadBackToItsLastByte) {
    const NifContent mesh = ReadNif(Report::MeshFile(Crate()));
    EXPECT_EQ(mesh.fault, "");
    ASSERT_EQ(mesh.shapes.size(), 2U);
    EXPECT_EQ(mesh.shapes[0].texture, "stage_chest.dds");
    EXPECT_FALSE(mesh.shapes[0].bars);
    EXPECT_TRUE(mesh.shapes[1].bars);
}

TEST(NifFileTest, DrawnTrianglesRunAroundTheirNormalsAndLookOutOfABox) {
    const NifContent mesh = ReadNif(Report::MeshFile(Crate()));
    ASSERT_FALSE(mesh.shapes.empty());
    const Di3Point middle{0, 90, 15};
    for (const auto& triangle : mesh.shapes[0].triangles) {
        const Di3Point& a = mesh.shapes[0].vertices[triangle[0]];
        const Di3Point& b = mesh.shapes[0].vertices[triangle[1]];
        const Di3Point& c = mesh.shapes[0].vertices[triangle[2]];
        const Di3Point turn = Cross(Minus(b, a), Minus(c, a));
        EXPECT_GT(Dot(turn, mesh.shapes[0].normals[triangle[0]]), 0.0F);
        EXPECT_GT(Dot(turn, Minus(a, middle)), 0.0F);
    }
}

TEST(NifFileTest, AFaceIsBumpedIntoFromBothSides) {
    Shape wall;
    AddWall(wall, Surface::Wall, {0, 0, 0}, {100, 0, 0}, 50);
    const NifContent mesh = ReadNif(Report::MeshFile(wall));
    ASSERT_EQ(mesh.shapes.size(), 2U);
    float north = 0;
    float south = 0;
    for (const auto& triangle : mesh.shapes[1].triangles) {
        const auto& v = mesh.shapes[1].vertices;
        const float y =
            Cross(Minus(v[triangle[1]], v[triangle[0]]), Minus(v[triangle[2]], v[triangle[0]])).y;
        (y > 0 ? north : south) += std::abs(y) / 2;
    }
    EXPECT_FLOAT_EQ(north, 5000);
    EXPECT_FLOAT_EQ(south, 5000);
}

TEST(NifFileTest, ALargeFaceIsDrawnInParts) {
    Shape floor;
    AddFloor(floor, Surface::Floor, {0, 0, 0}, {256, 128, 0});
    const NifContent mesh = ReadNif(Report::MeshFile(floor));
    ASSERT_EQ(mesh.shapes.size(), 2U);
    EXPECT_EQ(mesh.shapes[0].triangles.size(), 2U * 4 * 2);
    EXPECT_EQ(mesh.shapes[1].triangles.size(), 4U);
}

// Numbers of corners have 16 bits.
TEST(NifFileTest, AShapeOfAnySizeIsWritten) {
    Shape floors;
    for (int i = 0; i < 20; ++i) {
        AddFloor(floors, Surface::Floor, {0, 0, 0}, {1e9F, 1e9F, 0});
    }
    const NifContent mesh = ReadNif(Report::MeshFile(floors));
    EXPECT_EQ(mesh.fault, "");
    EXPECT_GT(mesh.shapes.size(), 2U);
}

TEST(NifFileTest, NoShapeIsAnEmptyMesh) {
    const NifContent mesh = ReadNif(Report::MeshFile({}));
    EXPECT_EQ(mesh.fault, "");
    EXPECT_EQ(mesh.types, (std::vector<std::string>{"NiNode"}));
}

TEST(NifFileTest, AnActorHasABoxInPlaceOfFacesToBumpInto) {
    const NifContent mesh = ReadNif(Report::ActorMeshFile(Crate(), {0, 0, 45}, {24, 24, 45}));
    EXPECT_EQ(mesh.fault, "");
    EXPECT_EQ(mesh.shapes.size(), 1U);
    EXPECT_EQ(std::ranges::count(mesh.types, "NiNode"), 2);
}

TEST(NifFileTest, TheSkeletonIsWhole) {
    EXPECT_EQ(ReadNif(Report::SkeletonFile()).fault, "");
}

// Without the keys of a kind of movement nobody moves so.
TEST(NifFileTest, TheAnimationHasTheKeysOfWalking) {
    const std::string file = Report::AnimationFile();
    for (const char* const key : {"WalkForward: Loop Start", "RunBack: Stop", "Idle: Start"}) {
        EXPECT_NE(file.find(key), std::string::npos) << key;
    }
}

} // namespace

} // namespace Tarnex::Test
