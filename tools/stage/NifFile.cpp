// SPDX-License-Identifier: MIT
#include "tools/stage/NifFile.h"

#include "tools/stage/Bytes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

namespace Tarnex::Report {

namespace {

constexpr std::uint32_t kNone = 0xFFFFFFFF; // no block
constexpr std::uint32_t kVersion = 0x04000002;
constexpr float kTextureSize = 128.0F; // of a picture on a face [world units]
// Light is computed at the corners of triangles: large faces need some in between.
constexpr float kLargestPart = 64.0F;
constexpr std::size_t kMostParts = 64;         // along one edge, as numbers have 16 bits
constexpr std::size_t kMostTriangles = 57'000; // with those of one more face, likewise

// A block of the file; others call it by its number.
class NifBlocks {
public:
    std::uint32_t Add(const Bytes& block) {
        blocks.push_back(block.Text());
        return static_cast<std::uint32_t>(blocks.size() - 1);
    }

    // A block that calls others comes before them.
    std::uint32_t Reserve() { return Add(Bytes()); }
    void Put(std::uint32_t number, const Bytes& block) { blocks[number] = block.Text(); }

    // The first block is the root.
    std::string File() const {
        Bytes file;
        file.Letters("NetImmerse File Format, Version 4.0.0.2\n");
        file.U32(kVersion).U32(static_cast<std::uint32_t>(blocks.size()));
        for (const std::string& block : blocks) {
            file.Letters(block);
        }
        return file.U32(1).U32(0).Text();
    }

private:
    std::vector<std::string> blocks;
};

Bytes& Sized(Bytes& bytes, std::string_view text) {
    return bytes.U32(static_cast<std::uint32_t>(text.size())).Letters(text);
}

// The beginning that all named blocks have.
Bytes Named(std::string_view type, std::string_view name) {
    Bytes bytes;
    Sized(bytes, type);
    Sized(bytes, name);
    return bytes.U32(kNone).U32(kNone); // no more data, no controller
}

void AddPoint(Bytes& bytes, const Di3Point& point) {
    bytes.F32s({point.x, point.y, point.z});
}

void AddNoTurn(Bytes& bytes) {
    bytes.F32s({1, 0, 0, 0, 1, 0, 0, 0, 1});
}

void AddNumbers(Bytes& bytes, const std::vector<std::uint32_t>& numbers) {
    bytes.U32(static_cast<std::uint32_t>(numbers.size()));
    for (const std::uint32_t number : numbers) {
        bytes.U32(number);
    }
}

constexpr std::uint32_t kHidden = 1;
constexpr std::uint32_t kUsual = 12;

// Up to whether there is a box around it.
Bytes Placed(std::string_view type,
             std::string_view name,
             const Di3Point& place = {},
             const std::vector<std::uint32_t>& properties = {},
             std::uint32_t flags = kUsual) {
    Bytes bytes = Named(type, name);
    bytes.U16(flags);
    AddPoint(bytes, place);
    AddNoTurn(bytes);
    bytes.F32(1.0F);       // scale
    bytes.F32s({0, 0, 0}); // speed
    AddNumbers(bytes, properties);
    return bytes;
}

Bytes Node(std::string_view type,
           std::string_view name,
           const std::vector<std::uint32_t>& children,
           const Di3Point& place = {}) {
    Bytes bytes = Placed(type, name, place);
    bytes.U32(0); // no box
    AddNumbers(bytes, children);
    return bytes.U32(0); // no lights
}

// The engine takes the box of a node of this name for the one of the actor.
Bytes ActorBox(const Di3Point& middle, const Di3Point& halfSize) {
    Bytes bytes = Placed("NiNode", "Bounding Box", {}, {}, kUsual | kHidden);
    bytes.U32s({1, 1});
    AddPoint(bytes, middle);
    AddNoTurn(bytes);
    AddPoint(bytes, halfSize);
    return bytes.U32s({0, 0});
}

struct Vertex {
    Di3Point place;
    Di3Point normal;
    float u = 0.0F;
    float v = 0.0F;
};

struct Mesh {
    std::vector<Vertex> vertices;
    std::vector<std::array<std::uint32_t, 3>> triangles;
};

Di3Point Minus(Di3Point a, const Di3Point& b) {
    a -= b;
    return a;
}

float Length(const Di3Point& p) {
    return std::sqrt(p.x * p.x + p.y * p.y + p.z * p.z);
}

Di3Point NormalOf(const Face& face) {
    const Di3Point a = Minus(face.corners[1], face.corners[0]);
    const Di3Point b = Minus(face.corners[3], face.corners[0]);
    const Di3Point n{a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
    const float length = Length(n);
    return length > 0.0F ? Di3Point(n.x / length, n.y / length, n.z / length) : Di3Point(0, 0, 1);
}

Di3Point Mixed(const Di3Point& a, const Di3Point& b, float part) {
    return {a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part, a.z + (b.z - a.z) * part};
}

std::uint32_t PartsOf(float length) {
    const float parts = std::ceil(length / kLargestPart - 0.01F);
    return static_cast<std::uint32_t>(std::clamp(parts, 1.0F, static_cast<float>(kMostParts)));
}

// A grid of small faces.
void AddFace(Mesh& mesh, const Face& face) {
    const auto& [a, b, c, d] = face.corners;
    const float width = Length(Minus(b, a));
    const float height = Length(Minus(d, a));
    const std::uint32_t columns = PartsOf(width);
    const std::uint32_t rows = PartsOf(height);
    const auto first = static_cast<std::uint32_t>(mesh.vertices.size());
    for (std::uint32_t row = 0; row <= rows; ++row) {
        const float up = static_cast<float>(row) / static_cast<float>(rows);
        for (std::uint32_t column = 0; column <= columns; ++column) {
            const float along = static_cast<float>(column) / static_cast<float>(columns);
            mesh.vertices.push_back({Mixed(Mixed(a, b, along), Mixed(d, c, along), up),
                                     NormalOf(face),
                                     along * width / kTextureSize,
                                     -up * height / kTextureSize});
        }
    }
    for (std::uint32_t row = 0; row < rows; ++row) {
        for (std::uint32_t column = 0; column < columns; ++column) {
            const std::uint32_t low = first + row * (columns + 1) + column;
            const std::uint32_t high = low + columns + 1;
            mesh.triangles.push_back({low, low + 1, high + 1});
            mesh.triangles.push_back({low, high + 1, high});
        }
    }
}

// From both sides.
void AddObstacle(Mesh& mesh, const Face& face) {
    const auto first = static_cast<std::uint32_t>(mesh.vertices.size());
    for (const Di3Point& corner : face.corners) {
        mesh.vertices.push_back({corner, NormalOf(face)});
    }
    for (const auto& [b, c] : {std::pair(1U, 2U), std::pair(2U, 3U)}) {
        mesh.triangles.push_back({first, first + b, first + c});
        mesh.triangles.push_back({first, first + c, first + b});
    }
}

Bytes MeshData(const Mesh& mesh) {
    Di3Point middle;
    for (const Vertex& vertex : mesh.vertices) {
        const float share = 1.0F / static_cast<float>(mesh.vertices.size());
        middle += {vertex.place.x * share, vertex.place.y * share, vertex.place.z * share};
    }
    float radius = 0.0F;
    Bytes bytes;
    Sized(bytes, "NiTriShapeData").U16(static_cast<std::uint32_t>(mesh.vertices.size())).U32(1);
    for (const Vertex& vertex : mesh.vertices) {
        AddPoint(bytes, vertex.place);
        radius = std::max(radius, Length(Minus(vertex.place, middle)));
    }
    bytes.U32(1);
    for (const Vertex& vertex : mesh.vertices) {
        AddPoint(bytes, vertex.normal);
    }
    AddPoint(bytes, middle);
    bytes.F32(radius).U32(0).U16(1).U32(1); // no colours, one set of places in the picture
    for (const Vertex& vertex : mesh.vertices) {
        bytes.F32(vertex.u).F32(vertex.v);
    }
    const auto triangles = static_cast<std::uint32_t>(mesh.triangles.size());
    bytes.U16(triangles).U32(3 * triangles);
    for (const auto& triangle : mesh.triangles) {
        bytes.U16(triangle[0]).U16(triangle[1]).U16(triangle[2]);
    }
    return bytes.U16(0);
}

std::uint32_t
AddMesh(NifBlocks& blocks, const Mesh& mesh, const std::vector<std::uint32_t>& properties) {
    constexpr std::uint32_t kTriangles = 4;
    const std::uint32_t data = blocks.Add(MeshData(mesh));
    Bytes shape = Placed("NiTriShape", "", {}, properties, kTriangles);
    return blocks.Add(shape.U32(0).U32(data).U32(kNone));
}

std::uint32_t AddTexture(NifBlocks& blocks, Surface surface) {
    Bytes source = Named("NiSourceTexture", "").U8(1);
    Sized(source, TextureName(surface)).U32s({5, 2, 3}).U8(1); // as it is, with its smaller forms
    const std::uint32_t picture = blocks.Add(source);
    Bytes property = Named("NiTexturingProperty", "");
    property.U16(0).U32s({2, 7, 1, picture, 3, 2, 0}).U16(0).U16(0xFFB5).U16(0);
    return blocks.Add(property.U32s({0, 0, 0, 0, 0, 0}));
}

std::uint32_t AddMaterial(NifBlocks& blocks) {
    Bytes material = Named("NiMaterialProperty", "").U16(1);
    material.F32s({1, 1, 1, 1, 1, 1}).F32s({0, 0, 0, 0, 0, 0}).F32s({0, 1});
    return blocks.Add(material);
}

// One mesh per surface, or several where there are too many corners for one.
std::vector<std::uint32_t> AddDrawn(NifBlocks& blocks, const Shape& shape) {
    std::map<Surface, Shape> bySurface;
    for (const Face& face : shape) {
        bySurface[face.surface].push_back(face);
    }
    std::vector<std::uint32_t> meshes;
    for (const auto& [surface, faces] : bySurface) {
        const std::vector<std::uint32_t> look = {AddTexture(blocks, surface), AddMaterial(blocks)};
        Mesh mesh;
        for (const Face& face : faces) {
            AddFace(mesh, face);
            if (mesh.triangles.size() > kMostTriangles || &face == &faces.back()) {
                meshes.push_back(AddMesh(blocks, std::exchange(mesh, {}), look));
            }
        }
    }
    return meshes;
}

} // namespace

std::string MeshFile(const Shape& shape) {
    NifBlocks blocks;
    const std::uint32_t root = blocks.Reserve();
    std::vector<std::uint32_t> children = AddDrawn(blocks, shape);
    Mesh obstacle;
    for (const Face& face : shape) {
        AddObstacle(obstacle, face);
    }
    if (!shape.empty()) {
        const std::uint32_t mesh = AddMesh(blocks, obstacle, {});
        children.push_back(blocks.Add(Node("RootCollisionNode", "", {mesh})));
    }
    blocks.Put(root, Node("NiNode", "", children));
    return blocks.File();
}

std::string ActorMeshFile(const Shape& shape, const Di3Point& middle, const Di3Point& halfSize) {
    NifBlocks blocks;
    const std::uint32_t root = blocks.Reserve();
    std::vector<std::uint32_t> children = AddDrawn(blocks, shape);
    children.push_back(blocks.Add(ActorBox(middle, halfSize)));
    blocks.Put(root, Node("NiNode", "", children));
    return blocks.File();
}

std::string SkeletonFile() {
    struct Bone {
        std::string_view name;
        Di3Point place;
    };
    static constexpr std::array<Bone, 11> kBones = {{
        {"Bip01 Neck", {0, 0, 110}},
        {"Bip01 Head", {0, 0, 115}},
        {"Head", {0, 0, 118}},
        {"Camera", {0, 0, 118}},
        {"Bip01 Spine1", {0, 0, 80}},
        {"Bip01 Spine2", {0, 0, 90}},
        {"Bip01 Pelvis", {0, 0, 70}},
        {"Bip01 L Clavicle", {-10, 0, 100}},
        {"Bip01 R Clavicle", {10, 0, 100}},
        {"Shield Bone", {-20, 0, 70}},
        {"Weapon Bone", {20, 0, 70}},
    }};
    NifBlocks blocks;
    const std::uint32_t root = blocks.Reserve();
    const std::uint32_t body = blocks.Reserve();
    std::vector<std::uint32_t> bones;
    bones.reserve(kBones.size());
    for (const Bone& bone : kBones) {
        bones.push_back(blocks.Add(Node("NiNode", bone.name, {}, bone.place)));
    }
    const std::uint32_t box = blocks.Add(ActorBox({0, 0, 66.5F}, {29.28F, 28.48F, 66.5F}));
    blocks.Put(root, Node("NiNode", "", {body, box}));
    blocks.Put(body, Node("NiNode", "Bip01", bones));
    return blocks.File();
}

std::string AnimationFile() {
    static constexpr std::array<std::string_view, 17> kGroups = {"Idle",
                                                                 "Idle2",
                                                                 "WalkForward",
                                                                 "WalkBack",
                                                                 "WalkLeft",
                                                                 "WalkRight",
                                                                 "RunForward",
                                                                 "RunBack",
                                                                 "RunLeft",
                                                                 "RunRight",
                                                                 "TurnLeft",
                                                                 "TurnRight",
                                                                 "Jump",
                                                                 "Hit1",
                                                                 "Death1",
                                                                 "SwimWalkForward",
                                                                 "SwimRunForward"};
    static constexpr std::array<std::pair<std::string_view, float>, 4> kMoments = {
        {{"Start", 0.1F}, {"Loop Start", 0.1F}, {"Loop Stop", 1.0F}, {"Stop", 0.1F}}};
    constexpr std::string_view kBone = "Bip01";
    float time = 0.0F;
    Bytes keys;
    for (const std::string_view group : kGroups) {
        for (const auto& [moment, pause] : kMoments) {
            Sized(keys.F32(time), std::string(group) + ": " + std::string(moment));
            time += pause;
        }
    }
    NifBlocks blocks;
    const std::uint32_t root = blocks.Reserve();
    Bytes bone;
    Sized(bone, "NiStringExtraData").U32(kNone).U32(static_cast<std::uint32_t>(kBone.size()) + 4);
    const std::uint32_t name = blocks.Add(Sized(bone, kBone));
    Bytes text;
    Sized(text, "NiTextKeyExtraData").U32(name).U32(4);
    text.U32(static_cast<std::uint32_t>(kGroups.size() * kMoments.size())).Letters(keys.Text());
    const std::uint32_t texts = blocks.Add(text);
    // No turns, two keys at the same place, no scales.
    Bytes data;
    Sized(data, "NiKeyframeData").U32s({0, 2, 1}).F32s({0, 0, 0, 0, time, 0, 0, 0}).U32(0);
    const std::uint32_t places = blocks.Add(data);
    Bytes control;
    Sized(control, "NiKeyframeController").U32(kNone).U16(kUsual).F32s({1, 0, 0, time});
    const std::uint32_t controller = blocks.Add(control.U32(kNone).U32(places));
    Bytes sequence;
    Sized(sequence, "NiSequenceStreamHelper");
    blocks.Put(root, Sized(sequence, "").U32(texts).U32(controller));
    return blocks.File();
}

std::string TextureName(Surface surface) {
    return "stage_" + std::string(SurfaceLooks().at(static_cast<std::size_t>(surface)).name) +
           ".dds";
}

} // namespace Tarnex::Report
