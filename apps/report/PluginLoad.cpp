// SPDX-License-Identifier: MIT
#include "apps/report/PluginLoad.h"

#include "apps/report/UsageError.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/output/PluginReader.h>

#include <filesystem>
#include <fstream>
#include <new>

namespace Tarnex::Report {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void Refuse(const std::string& path, const char* why) {
    throw UsageError('"' + path + "\" " + why);
}

std::string LoadBytes(const std::string& path) {
    const fs::path file = PathFromUtf8(path);
    std::error_code fault;
    const fs::file_status status = fs::status(file, fault);
    if (!fs::exists(status)) {
        Refuse(path, "does not exist");
    }
    if (!fs::is_regular_file(status)) {
        Refuse(path, fs::is_directory(status) ? "is a folder" : "is no ordinary file");
    }
    const std::uintmax_t size = fs::file_size(file, fault);
    if (!fault && size > kLargestPlugin) {
        Refuse(path, "is larger than 1 GiB and is not read");
    }
    std::ifstream stream(file, std::ios::binary);
    std::string bytes(fault ? 0 : static_cast<std::size_t>(size), '\0');
    if (!stream || !stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) {
        Refuse(path, "cannot be read");
    }
    return bytes;
}

} // namespace

LoadedPlugin LoadPlugin(const std::string& path) {
    LoadedPlugin plugin;
    plugin.path = path;
    try {
        plugin.bytes = LoadBytes(path);
        plugin.file = ReadPlugin(plugin.bytes);
    } catch (const std::bad_alloc&) {
        Refuse(path, "holds more than fits into memory");
    }
    if (!plugin.file.isPlugin) {
        Refuse(path, "is not a plug-in: it does not begin with a TES3 record");
    }
    return plugin;
}

} // namespace Tarnex::Report
