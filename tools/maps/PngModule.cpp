// SPDX-License-Identifier: MIT
#include "tools/maps/PngModule.h"

#include "tools/png/RenderPng.h"

#include <vaultry/foundation/Random.h>

#ifndef _WIN32
#include <dlfcn.h>
#include <filesystem>
#endif

namespace Tarnex::Report {

namespace {

#ifdef _WIN32
[[noreturn]] Png::RenderPng LoadRenderer() {
    throw MapError("maps as PNG are not available on this system; use a name that ends in .svg");
}
#else
// In a folder of the program's own beside the library, wherever that was installed.
std::string ModulePath() {
    std::filesystem::path folder;
    Dl_info library;
    if (dladdr(reinterpret_cast<const void*>(&RandomUnit), &library) != 0) {
        folder = std::filesystem::path(library.dli_fname).parent_path();
    }
    return (folder / "vaultry" / "libvaultry-png.so").string();
}

// It stays loaded: the libraries behind it do not like to be unloaded.
Png::RenderPng LoadRenderer() {
    void* const module = dlopen(ModulePath().c_str(), RTLD_NOW | RTLD_LOCAL);
    if (module == nullptr) {
        const char* const why = dlerror();
        throw MapError(
            "maps as PNG need the package vaultry-png (or, where the program was built from "
            "its sources, librsvg2-dev and another build); maps as SVG need neither: " +
            std::string(why == nullptr ? "not found" : why));
    }
    void* const function = dlsym(module, Png::kRenderPng);
    if (function == nullptr) {
        throw MapError("the package vaultry-png is of another version; install it again");
    }
    return reinterpret_cast<Png::RenderPng>(function);
}
#endif

Png::RenderPng Renderer() {
    static const Png::RenderPng renderer = LoadRenderer();
    return renderer;
}

bool Take(void* context, const unsigned char* bytes, std::size_t size) {
    std::ostream& out = *static_cast<std::ostream*>(context);
    out.write(reinterpret_cast<const char*>(bytes), static_cast<std::streamsize>(size));
    return out.good();
}

} // namespace

void RequirePngModule() {
    Renderer();
}

void WritePng(const std::string& svg, double scale, std::ostream& out) {
    const char* const fault = Renderer()(svg.data(), svg.size(), scale, Take, &out);
    if (fault != nullptr && out.good()) {
        throw MapError("the map as PNG: " + std::string(fault));
    }
}

} // namespace Tarnex::Report
