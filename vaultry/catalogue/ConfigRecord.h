// SPDX-License-Identifier: MIT
// A configuration as it is written: its elements with their places. Not installed.
#pragma once

#include <vaultry/catalogue/ConfigMgr.h>
#include <vaultry/foundation/Export.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Tarnex {

/// A place in the document, both counted from 1; 0 where it is not known.
struct ConfigPlace {
    std::uint64_t line = 0;
    std::uint64_t column = 0;
};

/// One attribute. All text is Windows-1252.
struct ConfigAttribute {
    std::string name;
    std::string value;
    ConfigPlace place; ///< of its name; that of the element when it is given by the document type
};

/// One element. All text is Windows-1252.
struct ConfigElement {
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    std::string name;
    std::vector<ConfigAttribute> attributes; ///< in document order
    std::string text;           ///< of the element itself, without that of its children
    std::string firstText;      ///< its first run, of which the id of a tile is made
    std::size_t parent = kNone; ///< index of the element around it
    ConfigPlace place;          ///< of the "<" of its start tag; behind the entity that it is from
};

/// A line that loading the document logged as an error.
struct ConfigLogLine {
    ConfigPlace place;
    std::string text;
    std::size_t element = ConfigElement::kNone; ///< index of the one that it is about
};

/// What a document holds, in document order.
struct ConfigRecord {
    std::vector<ConfigElement> elements;
    std::vector<ConfigLogLine> errors;
    bool fatal = false; ///< reading ended early
};

/// Loads the configuration at `path` (UTF-8) into a store of its own and records its elements and
/// what the loader logs, with the loader's limits.
VAULTRY_API ConfigRecord RecordConfigFile(const char* path);

/// Likewise from a document held in memory. `name` (UTF-8) stands for the file.
VAULTRY_API ConfigRecord RecordConfigText(std::string_view text, const char* name);

} // namespace Tarnex
