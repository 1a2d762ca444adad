// SPDX-License-Identifier: MIT
// A document whose bytes are not in the encoding that it names. Not installed.
#pragma once

#include <vaultry/foundation/Problem.h>

#include <optional>
#include <string>
#include <string_view>

namespace Tarnex {

/// Where the bytes of a document contradict its first line.
struct EncodingFault {
    std::string declared;   ///< as the first line names it; "UTF-8" when it names none
    bool wide = false;      ///< the document is UTF-16
    unsigned char byte = 0; ///< otherwise: that UTF-8 cannot have at the place
    DocumentPlace place;    ///< of the byte, or of the name of the encoding
};

/// The encoding that the first line of a document of single bytes names; empty when it names none.
std::string_view DeclaredEncoding(std::string_view document);

/// What is wrong with the encoding of a document; nothing when its bytes tell nothing.
std::optional<EncodingFault> FindEncodingFault(std::string_view document);

} // namespace Tarnex
