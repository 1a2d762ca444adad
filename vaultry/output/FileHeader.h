// SPDX-License-Identifier: MIT
// The TES3 record that opens a plug-in file.
#pragma once

#include <vaultry/output/Element.h>

namespace Tarnex {

/// The plug-in's header: version, author, description and the one master file it depends on.
class VAULTRY_API FileHeader : public Element {
public:
    FileHeader();

    /// Names the master file and its size [bytes]. Without a name the game's own master is named,
    /// with `size`, or with that master's usual size when `size` is 0.
    void SetMasterFile(const char* name, std::uint32_t size);

    const std::string& GetMasterName() const { return masterName; }
    std::uint32_t GetMasterSize() const { return masterSize; }

    /// Computes the record's data size. [bytes]
    void UpdateSize();
    std::uint32_t GetRecordSize() const { return recordSize; }

    void Write(std::ostream& stream) override;

private:
    std::uint32_t recordSize = 0;
    float version = 1.2F;
    std::uint32_t fileType = 0; // a plug-in
    std::string author = "Ostrel";
    std::string description = "Auto-generated mod";
    std::uint32_t masterNameSize = 0;
    std::string masterName;
    std::uint32_t masterSize = 0;
};

} // namespace Tarnex
