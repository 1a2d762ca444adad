// SPDX-License-Identifier: MIT
#include "tests/tools/stage/NifReader.h"

#include <cstring>
#include <functional>
#include <map>
#include <stdexcept>

namespace Tarnex::Test {

namespace {

constexpr std::uint32_t kNone = 0xFFFFFFFF;

class Reader {
public:
    explicit Reader(std::string_view text) : bytes(text) {}

    template <typename Value>
    Value Take() {
        Value value;
        std::memcpy(&value, Raw(sizeof value).data(), sizeof value);
        return value;
    }
    std::uint32_t Word() { return Take<std::uint32_t>(); }
    std::string_view Raw(std::size_t count) {
        if (bytes.size() < count) {
            throw std::runtime_error("ends early");
        }
        const std::string_view part = bytes.substr(0, count);
        bytes.remove_prefix(count);
        return part;
    }
    std::string Text() { return std::string(Raw(Word())); }
    Di3Point Point() {
        const auto x = Take<float>();
        const auto y = Take<float>();
        return {x, y, Take<float>()};
    }
    std::vector<std::uint32_t> Numbers() {
        std::vector<std::uint32_t> numbers(Word());
        for (std::uint32_t& number : numbers) {
            number = Word();
        }
        return numbers;
    }
    bool AtEnd() const { return bytes.empty(); }

private:
    std::string_view bytes;
};

struct Block {
    std::vector<std::uint32_t> properties;
    std::vector<std::uint32_t> children;
    std::string text;
    std::uint32_t data = kNone;
    NifContent::Shape shape;
};

void ReadNamed(Reader& in) {
    in.Text();
    in.Word();
    in.Word();
}

void ReadPlaced(Reader& in, Block& block) {
    ReadNamed(in);
    in.Raw(2 + 12 + 36 + 4 + 12);
    block.properties = in.Numbers();
    if (in.Word() != 0) {
        in.Raw(4 + 12 + 36 + 12);
    }
}

void ReadNode(Reader& in, Block& block) {
    ReadPlaced(in, block);
    block.children = in.Numbers();
    in.Numbers();
}

void ReadShape(Reader& in, Block& block) {
    ReadPlaced(in, block);
    block.data = in.Word();
    in.Word();
}

void ReadData(Reader& in, Block& block) {
    const auto count = in.Take<std::uint16_t>();
    if (in.Word() != 1) {
        throw std::runtime_error("has no vertices");
    }
    for (int i = 0; i < count; ++i) {
        block.shape.vertices.push_back(in.Point());
    }
    if (in.Word() != 1) {
        throw std::runtime_error("has no normals");
    }
    for (int i = 0; i < count; ++i) {
        block.shape.normals.push_back(in.Point());
    }
    in.Raw(12 + 4 + 4);
    const auto sets = in.Take<std::uint16_t>();
    in.Word();
    in.Raw(std::size_t{8} * sets * count);
    const auto triangles = in.Take<std::uint16_t>();
    if (in.Word() != 3U * triangles) {
        throw std::runtime_error("miscounts triangles");
    }
    for (int i = 0; i < triangles; ++i) {
        block.shape.triangles.push_back(in.Take<std::array<std::uint16_t, 3>>());
        for (const std::uint16_t corner : block.shape.triangles.back()) {
            if (corner >= count) {
                throw std::runtime_error("names a vertex that is not there");
            }
        }
    }
    in.Take<std::uint16_t>();
}

void ReadTexture(Reader& in, Block& block) {
    ReadNamed(in);
    in.Raw(1);
    block.text = in.Text();
    in.Raw(13);
}

void ReadTexturing(Reader& in, Block& block) {
    ReadNamed(in);
    in.Raw(2 + 4 + 4 + 4);
    block.data = in.Word();
    in.Raw(12 + 6 + 24);
}

void ReadMaterial(Reader& in, Block& /*block*/) {
    ReadNamed(in);
    in.Raw(2 + 48 + 8);
}

using Read = void (*)(Reader& in, Block& block);
const std::map<std::string, Read> kReaders = {{"NiNode", ReadNode},
                                              {"RootCollisionNode", ReadNode},
                                              {"NiTriShape", ReadShape},
                                              {"NiTriShapeData", ReadData},
                                              {"NiSourceTexture", ReadTexture},
                                              {"NiTexturingProperty", ReadTexturing},
                                              {"NiMaterialProperty", ReadMaterial}};

void Collect(const std::vector<Block>& blocks,
             std::uint32_t number,
             bool bars,
             NifContent& content) {
    const Block& block = blocks.at(number);
    if (content.types.at(number) == "NiTriShape") {
        NifContent::Shape shape = blocks.at(block.data).shape;
        shape.bars = bars;
        for (const std::uint32_t property : block.properties) {
            if (content.types.at(property) == "NiTexturingProperty") {
                shape.texture = blocks.at(blocks.at(property).data).text;
            }
        }
        content.shapes.push_back(shape);
    }
    for (const std::uint32_t child : block.children) {
        Collect(blocks, child, bars || content.types.at(number) == "RootCollisionNode", content);
    }
}

} // namespace

NifContent ReadNif(std::string_view bytes) {
    NifContent content;
    try {
        Reader in(bytes);
        constexpr std::string_view kStart = "NetImmerse File Format, Version 4.0.0.2\n";
        if (in.Raw(kStart.size()) != kStart || in.Word() != 0x04000002) {
            throw std::runtime_error("is of another format");
        }
        std::vector<Block> blocks(in.Word());
        for (Block& block : blocks) {
            content.types.push_back(in.Text());
            kReaders.at(content.types.back())(in, block);
        }
        const std::vector<std::uint32_t> roots = in.Numbers();
        if (!in.AtEnd()) {
            throw std::runtime_error("goes on behind its end");
        }
        for (const std::uint32_t root : roots) {
            Collect(blocks, root, false, content);
        }
    } catch (const std::exception& e) {
        content.fault = e.what();
    }
    return content;
}

} // namespace Tarnex::Test
