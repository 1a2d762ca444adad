// SPDX-License-Identifier: MIT
// The TES3 record that opens a plug-in file.
#pragma once

#include <vaultry/output/Element.h>

namespace Tarnex {

/// The plug-in's header: version, author, description and the one master file it depends on.
class VAULTRY_API FileHeader : public Element {
public:
    /// A header that names the game's own master.
    FileHeader();

    /// Names the master file and its size [bytes]. Without a name the game's own master is named,
    /// with `size`, or with that master's usual size when `size` is 0.
    void SetMasterFile(const char* name, std::uint32_t size);

    /// Computes the record's data size, as Write does first.
    void UpdateSize();
    /// The data size last computed, without the record's header. [bytes]
    std::uint32_t GetRecordSize() const { return recordSize; }

    /// Writes the record. The count of records in it stays 0, which readers take for unknown.
    void Write(std::ostream& stream) override;

private:
    std::uint32_t recordSize = 0;
    float version = 1.2F;
    std::uint32_t fileType = 0; // a plug-in
    std::string author = "Ostrel";
    std::string description = "Auto-generated mod";
    std::string masterName;
    std::uint32_t masterSize = 0;
};

} // namespace Tarnex
