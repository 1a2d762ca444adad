// SPDX-License-Identifier: MIT
#include "tools/plugins/PluginLoad.h"

#include "tools/text/OrdinaryFile.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/output/PluginReader.h>

#include <fstream>
#include <new>

namespace Tarnex::Report {

namespace {

[[noreturn]] void Refuse(const std::string& path, const char* why) {
    throw UsageError('"' + path + "\" " + why);
}

std::string LoadBytes(const std::string& path) {
    std::string bytes(static_cast<std::size_t>(RequireOrdinaryFile(path)), '\0');
    std::ifstream stream(PathFromUtf8(path), std::ios::binary);
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
