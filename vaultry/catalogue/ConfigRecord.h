// SPDX-License-Identifier: MIT
// A configuration as it is written: its elements with their places. Not installed.
#pragma once

#include <vaultry/catalogue/ConfigFormat.h>
#include <vaultry/catalogue/EncodingFault.h>
#include <vaultry/foundation/Problem.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Tarnex {

/// One attribute. All text is Windows-1252.
struct ConfigAttribute {
    std::string name;
    std::string value;
    DocumentPlace place; ///< of its name; that of the element when it is given by the document type
};

/// One element. All text is Windows-1252.
struct ConfigElement {
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    std::string name;
    std::vector<ConfigAttribute> attributes; ///< in document order
    std::string text;      ///< of the element itself, without that of its children
    std::string firstText; ///< its first run, of which the id of a tile is made
    ElementClass element = ElementClass::Unknown; ///< what the loader takes it for
    std::size_t parent = kNone;                   ///< index of the element around it
    DocumentPlace place; ///< of the "<" of its start tag; behind the entity that it is from
};

/// What loading the document reported.
struct ConfigProblem {
    Problem problem; ///< at the start tag of the element, if there is one
    std::size_t element = ConfigElement::kNone; ///< index of the one that it is about
};

/// What a document holds, in document order.
struct ConfigRecord {
    std::vector<ConfigElement> elements;
    std::vector<ConfigProblem> problems;
    bool fatal = false;                      ///< reading ended early
    std::size_t open = ConfigElement::kNone; ///< then: the innermost element that was open there
    std::optional<EncodingFault> encoding;   ///< then: why, when it is that
};

/// Loads the configuration at `path` (UTF-8) into a store of its own and records its elements and
/// what the loader reports, with the loader's limits.
VAULTRY_API ConfigRecord RecordConfigFile(const char* path);

/// Likewise from a document held in memory. `name` (UTF-8) stands for the file.
VAULTRY_API ConfigRecord RecordConfigText(std::string_view text, const char* name);

} // namespace Tarnex
