// SPDX-License-Identifier: MIT
// A container definition with treasure of its own.
#pragma once

#include <vaultry/output/Element.h>

#include <optional>
#include <utility>
#include <vector>

namespace Tarnex {

/// A container record with a fresh identifier, so that each placed container carries its own
/// treasure. The reference in the cell names that identifier.
///
/// Made by Mod::CreateContainer, which keeps it in the plug-in. Texts are Windows-1252 and are kept
/// as copies:
///
/// @code
/// const DiPtr<Tarnex::Container> chest = mod.CreateContainer();
/// chest->SetId(Tarnex::NextContainerId().c_str());
/// chest->SetFriendlyName("Old Chest");
/// chest->SetModelName("o\\contain_chest10.nif");
/// chest->SetWeight(100.0F);
/// chest->Add("gold_001", 25);
/// @endcode
class VAULTRY_API Container : public Element {
public:
    /// An item identifier and how many of it.
    using Entry = std::pair<std::string, std::uint32_t>;

    /// Empty, without identifier, name and model, with a capacity of 0.
    Container() = default;

    /// Sets the identifier that references name; not null. See NextContainerId.
    void SetId(const char* newId) { id = newId; }
    /// Sets the name that the player sees; not null.
    void SetFriendlyName(const char* newName) { friendlyName = newName; }
    /// Sets the model's file, relative to the game's folder of meshes; not null.
    void SetModelName(const char* newName) { modelName = newName; }
    /// The identifier, empty until it is set.
    const std::string& GetId() const { return TextOf(id); }
    /// The name that the player sees, empty until it is set.
    const std::string& GetFriendlyName() const { return TextOf(friendlyName); }

    /// The carrying capacity. [weight units of the game]
    float GetWeight() const { return weight; }
    /// Sets the carrying capacity; what is in the container is not looked at. [weight units] Any
    /// number is taken and written.
    void SetWeight(float capacity) { weight = capacity; }

    /// The weight of the inventory so far; not written. [weight units of the game] 0 at first.
    float GetEncumbrance() const { return encumbrance; }
    /// Whoever adds entries keeps this in step: Add does not know what an item weighs.
    void SetEncumbrance(float load) { encumbrance = load; }

    /// Appends an inventory entry; entries of the same item are not merged. An identifier of 32
    /// bytes or more is cut to 31 when written, and logged. `itemId` is not null. The count is
    /// written as it is; readers take 2^31 and more for negative, which means "refilled by the
    /// game" to them.
    void Add(const char* itemId, std::uint32_t count);
    /// The entries, in the order added.
    const std::vector<Entry>& GetInventory() const { return inventory; }

    /// Computes the record's data size, as Write does first.
    void UpdateSize();
    /// The data size last computed, without the record's header. [bytes] 0 before that.
    std::uint32_t GetRecordSize() const { return recordSize; }

    /// Writes the record; the flags are those of a container that stays as it was filled.
    void Write(std::ostream& stream) override;

private:
    // A name that was never set has a field without a byte, an empty one its closing zero.
    using Name = std::optional<std::string>;

    static const std::string& TextOf(const Name& name);
    void WriteName(std::ostream& stream, std::string_view tag, const Name& name) const;

    float encumbrance = 0.0F;
    std::uint32_t recordSize = 0;
    float weight = 0.0F;
    Name id;
    Name friendlyName;
    Name modelName;
    std::vector<Entry> inventory;
};

} // namespace Tarnex
