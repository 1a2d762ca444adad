// SPDX-License-Identifier: MIT
#include <vaultry/foundation/CodePage.h>

#include <fstream>
#include <iterator>
#include <random>
#include <tests/support/TempDir.h>

namespace Tarnex::Test {

TempDir::TempDir() {
    std::random_device chance;
    do {
        const std::string name = "vaultry-test-" + std::to_string(chance());
        path = std::filesystem::temp_directory_path() / name;
    } while (!std::filesystem::create_directory(path));
    // Tests that step back to another user must get in whatever the umask is.
    std::filesystem::permissions(path, std::filesystem::perms(0755));
}

TempDir::~TempDir() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
}

std::string TempDir::File(std::string_view name) const {
    const std::u8string file = (path / PathFromUtf8(name)).u8string();
    return {file.begin(), file.end()};
}

std::string TempDir::Write(std::string_view name, std::string_view content) const {
    std::string file = File(name);
    std::ofstream stream(PathFromUtf8(file), std::ios::binary | std::ios::trunc);
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    return file;
}

std::string ReadFile(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

} // namespace Tarnex::Test
