// SPDX-License-Identifier: MIT
// Maps as PNG, read by another library.
#include <array>
#include <filesystem>
#include <png.h>
#include <string>
#include <tests/cli/Program.h>
#include <vector>

namespace Tarnex::Test {

namespace {

namespace fs = std::filesystem;

// The number behind ` name="` where it first occurs.
unsigned Attribute(const std::string& svg, const std::string& name) {
    return static_cast<unsigned>(
        std::stoul(svg.substr(svg.find(' ' + name + "=\"") + name.size() + 3)));
}

class PngMapTest : public ProgramTest {
protected:
    using Color = std::array<int, 3>;

    void SetUp() override {
        if (!VAULTRY_HAS_PNG) {
            GTEST_SKIP() << "built without librsvg, so that there are no maps as PNG";
        }
    }

    void TearDown() override { png_image_free(&picture); }

    // Decodes a file whole.
    bool Decode(const std::string& name) {
        const std::string bytes = Read(name);
        picture.version = PNG_IMAGE_VERSION;
        if (png_image_begin_read_from_memory(&picture, bytes.data(), bytes.size()) == 0) {
            return false;
        }
        picture.format = PNG_FORMAT_RGB;
        pixels.resize(PNG_IMAGE_SIZE(picture));
        return png_image_finish_read(&picture, nullptr, pixels.data(), 0, nullptr) != 0;
    }

    Color At(unsigned x, unsigned y) const {
        const std::size_t place = (std::size_t{y} * picture.width + x) * 3;
        return {pixels.at(place), pixels.at(place + 1), pixels.at(place + 2)};
    }

    bool Shows(const Color& color) const {
        for (unsigned y = 0; y < picture.height; ++y) {
            for (unsigned x = 0; x < picture.width; ++x) {
                if (At(x, y) == color) {
                    return true;
                }
            }
        }
        return false;
    }

    png_image picture{};
    std::vector<png_byte> pixels;
};

constexpr std::array<int, 3> kWhite = {255, 255, 255};
constexpr std::array<int, 3> kFloor = {0xEF, 0xE6, 0xD2};
constexpr std::array<int, 3> kContainer = {0xE0, 0xA4, 0x00};
constexpr std::array<int, 3> kDark = {0x15, 0x18, 0x1C};
constexpr std::array<int, 3> kDarkFloor = {0x3B, 0x38, 0x2F};

TEST_F(PngMapTest, IsTheSvgInPixels) {
    ASSERT_EQ(Run({"map", "--seed", "7", "--map", "a.svg"}).status, 0);
    ASSERT_EQ(Run({"map", "--seed", "7", "--map", "a.png", "--scale", "2"}).status, 0);
    ASSERT_TRUE(Decode("a.png"));
    EXPECT_EQ(picture.width, 2 * Attribute(Read("a.svg"), "width"));
    EXPECT_EQ(picture.height, 2 * Attribute(Read("a.svg"), "height"));
    EXPECT_EQ(At(0, 0), kWhite);
    EXPECT_EQ(At(picture.width - 1, picture.height - 1), kWhite);
    EXPECT_TRUE(Shows(kFloor));
    EXPECT_TRUE(Shows(kContainer));
    EXPECT_FALSE(Shows(kDark));
}

TEST_F(PngMapTest, CanBeDark) {
    ASSERT_EQ(Generate({"--map", "a.PNG", "--look", "dark", "--scale", "0.5"}).status, 0);
    ASSERT_TRUE(Decode("a.PNG"));
    EXPECT_EQ(At(0, 0), kDark);
    EXPECT_TRUE(Shows(kDarkFloor));
    EXPECT_EQ(Files(), (std::vector<std::string>{"a.PNG", "dungeon.esp"}));
}

TEST_F(PngMapTest, APictureThatIsTooLargeIsRefusedAndLeavesNothing) {
    Write("a.png", "old");
    const Outcome outcome = Run({"map",
                                 "--seed",
                                 "7",
                                 "--levels",
                                 "20",
                                 "--size",
                                 "large",
                                 "--map",
                                 "a.png",
                                 "--scale",
                                 "10"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(Contains(outcome.err, "pixels, which is too large; use --scale ")) << outcome.err;
    EXPECT_EQ(Read("a.png"), "old");
    EXPECT_EQ(Files(), std::vector<std::string>{"a.png"});
}

#ifndef _WIN32
TEST_F(PngMapTest, WithoutTheModuleAMessageNamesItsPackage) {
    // The library from here, with a module beside it that is none.
    const fs::path libraries = fs::path(VAULTRY_PROGRAM).parent_path().parent_path() / "lib";
    for (const auto& entry : fs::directory_iterator(libraries)) {
        const std::string name = entry.path().filename().string();
        if (name.rfind("libvaultry.so", 0) == 0) {
            fs::create_symlink(entry.path(), File(name));
        }
    }
    fs::create_directory(File("vaultry"));
    Write("vaultry/libvaultry-png.so", "");
    const Outcome outcome =
        RunAfter("export LD_LIBRARY_PATH=\"$PWD\"", {"map", "--seed", "7", "--map", "a.png"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(Contains(outcome.err, "maps as PNG need the package vaultry-png (")) << outcome.err;
    EXPECT_TRUE(Contains(outcome.err, "librsvg2-dev")) << outcome.err;
    const Outcome svg =
        RunAfter("export LD_LIBRARY_PATH=\"$PWD\"", {"map", "--seed", "7", "--map", "a.svg"});
    EXPECT_EQ(svg.status, 0);
}
#endif

} // namespace

} // namespace Tarnex::Test
