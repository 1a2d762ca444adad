// SPDX-License-Identifier: MIT
// The definition of a key.
#pragma once

#include <vaultry/output/Element.h>

#include <string>

namespace Tarnex {

/// An item that opens what names it as its key. Made by Mod::CreateKey. Texts are Windows-1252.
class VAULTRY_API Key : public Element {
public:
    /// A key of that identifier, which is not null and has to be one of its own among all plug-ins;
    /// of more than 31 bytes it could lie in no container.
    explicit Key(const char* id_) : id(id_) {}

    std::string name;  ///< that the player sees; left out when it is empty
    std::string model; ///< file, relative to the game's folder of meshes; left out when it is empty
    std::string icon;  ///< file, relative to the game's folder of icons; left out when it is empty

    /// The identifier.
    const std::string& GetId() const { return id; }

    /// Writes the record: a key without weight and worth, which nobody buys.
    void Write(std::ostream& stream) override;

private:
    std::string id;
};

} // namespace Tarnex
