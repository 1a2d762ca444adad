// SPDX-License-Identifier: MIT
// A kit of pieces for raised floors.
#pragma once

#include <vaultry/catalogue/PlatformTile.h>
#include <vaultry/foundation/DiPtr.h>

#include <map>
#include <string>
#include <string_view>

namespace Tarnex {

/// The pieces of one kind of platform, one per kind name, looked up without regard to case. The
/// stairs that climb north bring those of the other three sides with them.
///
/// Of the platforms of a configuration a fixed interior of a cave takes one by chance, and raises
/// it along all walls, if it is to have platforms. A kit without a "Floor" raises nothing.
class VAULTRY_API Platform : public DiRcObject {
public:
    Platform() = default;
    Platform(const Platform&) = delete;
    Platform& operator=(const Platform&) = delete;

    /// The name of the kit.
    const std::string& GetName() const { return name; }
    /// Replaces the name; not null.
    void SetName(const char* newName) { name = newName; }

    /// The filed piece itself, or null. Whoever changes it changes it for every later placement.
    DiPtr<PlatformTile> Get(std::string_view kindName) const;
    /// A new piece copied from the filed one, to be adjusted for one placement, or null.
    DiPtr<PlatformTile> GetCopyOf(std::string_view kindName) const;

    /// Files a copy of the piece. A name that is taken already is an error under "Platform": the
    /// filed piece takes the new fields and nothing is derived.
    void Set(const PlatformTile& piece);

private:
    void MirrorNStairs(const PlatformTile& source);

    std::string name;
    std::map<std::string, DiPtr<PlatformTile>> pieces; // by upper-cased name
};

} // namespace Tarnex
