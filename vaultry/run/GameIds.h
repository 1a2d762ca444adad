// SPDX-License-Identifier: MIT
// Ids of the game that configurations do not name.
#pragma once

#include <vaultry/foundation/Export.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Tarnex {

/// What an id is used for.
enum class IdRole : std::uint8_t {
    Trap,        ///< a spell that strikes whoever opens something
    KeyModel,    ///< the file of a key's model, relative to the game's folder of meshes
    KeyIcon,     ///< the file of its picture, relative to the folder of icons
    OutsideDoor, ///< a door that stands in the world outside
};

/// The number of roles.
inline constexpr std::size_t kIdRoles = 4;

/// The word of a role in tables: "trap", "key-model", "key-icon" or "outside-door".
VAULTRY_API const char* WordOf(IdRole role);

/// A table of ids cannot be used; says in one line of UTF-8 which, why, and what would help.
class VAULTRY_API IdsError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The ids that there are for each role, in the order of their table. A role may have none: the
/// library names only what is known to be in everybody's game.
class VAULTRY_API GameIds {
public:
    /// The ids in Windows-1252; empty for a role that nothing is known for.
    const std::vector<std::string>& Of(IdRole role) const {
        return ids[static_cast<std::size_t>(role)];
    }
    /// Adds one behind the others, as it is.
    void Add(IdRole role, std::string id) {
        ids[static_cast<std::size_t>(role)].push_back(std::move(id));
    }

private:
    std::array<std::vector<std::string>, kIdRoles> ids;
};

/// The table that is part of the library, data/playable.csv, as it is. It lives as long as the
/// program.
VAULTRY_API std::string_view BuiltinIdTable();

/// Reads a table (UTF-8) of comma-separated values: in its first line the names of the columns
/// `role`, `id` and `source`, in any order and beside any others, in each further line a role, an
/// id and, for whoever reads the table, where it is known from. `name` is what the table is called
/// in messages. Throws IdsError when it is no such table, a role is none, an id is missing, longer
/// than its field in the plug-in or has letters that the game lacks.
VAULTRY_API GameIds ReadIds(std::string_view table, const std::string& name);

/// The built-in ids, those of the roles that the table at `path` (UTF-8) names replaced by its own.
/// Throws IdsError when the file cannot be read, is larger than 1 MiB, or as ReadIds does.
VAULTRY_API GameIds LoadIds(const std::string& path);

/// The ids of the built-in table alone.
VAULTRY_API GameIds BuiltinIds();

} // namespace Tarnex
