// SPDX-License-Identifier: MIT
// The TES3 record that opens a plug-in file.
#pragma once

#include <vaultry/output/Element.h>

namespace Tarnex {

/// The plug-in's header: version, author, description and the one master file it depends on.
///
/// A Mod has one; by itself it is of use for files that are put together by hand. The game looks
/// the master up by name and compares the size with that of the file it has, to warn of another
/// version.
class VAULTRY_API FileHeader : public Element {
public:
    /// A header that names the game's own master. The version is 1.2, the author and description
    /// are those that all plug-ins of this library carry.
    FileHeader();

    /// Names the master file and its size [bytes]. Without a name the game's own master is named,
    /// with `size`, or with that master's usual size when `size` is 0. A null name counts as an
    /// empty one. A given name is written with the size as it is, 0 too. Sizes beyond 32 bits
    /// cannot be named.
    void SetMasterFile(const char* name, std::uint32_t size);

    /// The most bytes of a description.
    static constexpr std::size_t kLongestDescription = 255;

    /// Sets the description, which launchers show, in Windows-1252; it is cut where it is longer
    /// than that. A null or empty one is the usual description.
    void SetDescription(const char* text);

    /// Computes the record's data size, as Write does first.
    void UpdateSize();
    /// The data size last computed, without the record's header. [bytes] 0 before that.
    std::uint32_t GetRecordSize() const { return recordSize; }

    /// Writes the record. The count of records in it stays 0, which readers take for unknown.
    void Write(std::ostream& stream) override;

private:
    std::uint32_t recordSize = 0;
    float version = 1.2F;
    std::uint32_t fileType = 0; // a plug-in
    std::string author = "Ostrel";
    std::string description;
    std::string masterName;
    std::uint32_t masterSize = 0;
};

} // namespace Tarnex
