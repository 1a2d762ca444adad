// SPDX-License-Identifier: MIT
#include "apps/report/PngModule.h"

#include "apps/png/RenderPng.h"

#include <vaultry/foundation/Random.h>

#ifndef _WIN32
#include <dlfcn.h>
#include <filesystem>
#include <system_error>
#endif

namespace Tarnex::Report {

namespace {

#ifdef _WIN32
[[noreturn]] Png::RenderPng LoadRenderer() {
    throw MapError("maps as PNG are not available on this system; use a name that ends in .svg");
}
#else
// The module beside the library, or else wherever the system looks for libraries. The program's own
// search path does not do: a memory checker that stands in for dlopen does not know it.
std::string ModulePath() {
    constexpr const char* kModule = "libvaultry-png.so";
    Dl_info library;
    if (dladdr(reinterpret_cast<const void*>(&RandomUnit), &library) != 0) {
        const std::filesystem::path beside =
            std::filesystem::path(library.dli_fname).replace_filename(kModule);
        std::error_code fault;
        if (std::filesystem::exists(beside, fault)) {
            return beside.string();
        }
    }
    return kModule;
}

// It stays loaded: the libraries behind it do not like to be unloaded.
Png::RenderPng LoadRenderer() {
    void* const module = dlopen(ModulePath().c_str(), RTLD_NOW | RTLD_LOCAL);
    if (module == nullptr) {
        const char* const why = dlerror();
        throw MapError("maps as PNG need the module libvaultry-png.so and librsvg (Debian: install "
                       "librsvg2-dev and build again, or librsvg2-2 to run); maps as SVG do not: " +
                       std::string(why == nullptr ? "not found" : why));
    }
    void* const function = dlsym(module, Png::kRenderPng);
    if (function == nullptr) {
        throw MapError("the module libvaultry-png.so is of another version; install it again");
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
