// SPDX-License-Identifier: MIT
// Plug-ins that are made to cost more than they bring.
#pragma once

#include <cstddef>
#include <ostream>
#include <span>
#include <string>
#include <string_view>

namespace Tarnex::Test {

/// One way to attack whoever reads plug-ins.
struct Hostility {
    std::string_view name; ///< a word
    std::string_view what;
    std::string (*make)(std::size_t size); ///< the plug-in, of about `size` bytes

    friend std::ostream& operator<<(std::ostream& out, const Hostility& hostility) {
        return out << hostility.name;
    }
};

/// All of them. The identifiers of tiles are those of the built-in tile set "Imperial small", whose
/// cells are 256 units long.
std::span<const Hostility> Hostilities();

/// The plug-in of the hostility with that name.
std::string HostilePlugin(std::string_view name, std::size_t size);

/// What a comparison with the hostile plug-in `name` is most costly with.
std::string HostilePartner(std::string_view name, std::size_t size);

} // namespace Tarnex::Test
