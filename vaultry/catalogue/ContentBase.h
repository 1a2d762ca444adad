// SPDX-License-Identifier: MIT
// The fields of one piece of content.
#pragma once

#include <vaultry/foundation/Di3Point.h>
#include <vaultry/foundation/DiRcObject.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace Tarnex {

/// Whether content may stand on other content, or other content on it. Read and kept; generation
/// takes no notice of it.
enum Stacking : std::int32_t {
    StackNo = 0,     ///< neither
    StackBottom = 1, ///< other content may stand on it
    StackTop = 2,    ///< it may stand on other content
    StackYes = 3,    ///< both
};

/// Everything that is placed into rooms besides the architecture, and everything that fills
/// containers.
///
/// Things of a value up to 1000 are taken whenever they are drawn, dearer ones seldom: 1 in 10
/// draws up to 5000, 1 in 20 up to 10000, 1 in 100 up to 25000, 1 in 1000 above. Large piles are
/// cut until they are worth a plausible sum. Names are Windows-1252 and are written as they are.
class VAULTRY_API ContentBase : public DiRcObject {
public:
    std::string uniqueName;   ///< the game's identifier, and the key of theme items
    std::string friendlyName; ///< display name of a container
    std::string modelFile;    ///< model of a container
    std::string contentKind;  ///< the element's name: "Container", "Creature", ...
    /// For treasure the list it belongs to; creatures that are "Bird" or "Fish" are not placed.
    std::string subtype;
    /// The most that one stack in a container holds; less than 1 counts as 1.
    std::int32_t maxCount = 1;
    std::int32_t level = 1; ///< kept, without effect on generation
    /// Worth of one, which makes it rare; less than 0 counts as worthless [gold pieces].
    std::int32_t value = 0;
    std::int32_t zRotate = 0; ///< clockwise from above [degrees, whole]
    /// Of one; of a container, what it can carry. A negative one makes room in containers instead
    /// of taking it. [weight units of the game]
    float weight = 0.0F;
    /// Extent, by which it is set on the floor and against the wall; a negative one counts as if it
    /// reached the other way [world units].
    Di3Point size;
    Di3Point offset;                 ///< from the centre of its cell [world units]
    std::int32_t stacking = StackNo; ///< a value of Stacking

    /// Takes every field of any other content.
    void CopyFrom(const ContentBase& other) { *this = other; }

    /// True when the content can be placed.
    virtual bool Instantiable() const = 0;

    /// Whether the content is of that kind, without regard to case. The words are those of the
    /// vocabulary (Content_Rug and others).
    bool IsKind(std::string_view kind) const;
    /// Whether the content is of that subtype, without regard to case. An empty word fits content
    /// without a subtype.
    bool IsSubtype(std::string_view word) const;

protected:
    ContentBase() = default;
    /// An object of its own with the same fields.
    ContentBase(const ContentBase&) = default;
    /// Takes every field; see CopyFrom.
    ContentBase& operator=(const ContentBase&) = default;
};

} // namespace Tarnex
