// SPDX-License-Identifier: MIT
#include "tools/plugins/PluginLoad.h"

#include "tools/text/OrdinaryFile.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/output/PluginReader.h>

#include <fstream>
#include <new>
#include <utility>

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

LoadedPlugin ReadLoaded(const std::string& name, std::string bytes) {
    LoadedPlugin plugin{name, std::move(bytes), {}};
    plugin.file = ReadPlugin(plugin.bytes);
    if (!plugin.file.isPlugin) {
        Refuse(name, "is not a plug-in: it does not begin with a TES3 record");
    }
    return plugin;
}

LoadedPlugin LoadPlugin(const std::string& path) try {
    return ReadLoaded(path, LoadBytes(path));
} catch (const std::bad_alloc&) {
    Refuse(path, "holds more than fits into memory");
}

} // namespace Tarnex::Report
