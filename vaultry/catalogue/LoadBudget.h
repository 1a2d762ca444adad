// SPDX-License-Identifier: MIT
// What one document may cost. Not installed.
#pragma once

#include <xercesc/sax/Locator.hpp>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace Tarnex {

class JobStatus;

/// Ends a load that was cancelled, through the parser.
struct LoadCanceled {};

/// Everything that a document can make much of is counted here, by whoever meets it: the loader
/// what it hears of, the parser's memory what happens between two events. All limits are far beyond
/// any real configuration.
class LoadBudget {
public:
    enum class Of : std::uint8_t {
        Depth,         ///< elements open at one time
        Namespaces,    ///< declarations of namespaces in force at one time
        Elements,      ///< in all, like everything below but Memory
        Attributes,    ///< the document type's default values among them
        AttributeText, ///< names and values of attributes [UTF-16 units]
        Text,          ///< between tags [UTF-16 units]
        ListedNames,   ///< in the lists of cells and theme items
        LayoutCells,   ///< of all layouts together
        EntityText,    ///< of each entity that is declared [UTF-16 units]
        Expansions,    ///< references to entities of any kind that are followed
        Requests,      ///< of the parser for memory
        Memory,        ///< held by the parser at one time [bytes]
        Kinds
    };

    /// `status` is asked whether the load is still wanted; it may be null and is not owned.
    explicit LoadBudget(const JobStatus* status) : status(status) {}

    /// The most that a document may have.
    static std::uint64_t Most(Of what);

    /// Counts `amount` more, where the parser cannot be left.
    void Count(Of what, std::uint64_t amount = 1);

    /// Counts `amount` less of what is limited at one time.
    void GiveBack(Of what, std::uint64_t amount = 1);

    /// Whether `amount` more would pass no limit.
    bool Affords(Of what, std::uint64_t amount) const;

    /// Where the parser can be left: throws a SAXParseException at the place reached when what was
    /// counted has passed a limit, or, asking now and then, LoadCanceled.
    void Settle();

    /// Count and Settle.
    void Spend(Of what, std::uint64_t amount = 1);

    /// Throws a SAXParseException with that message (ASCII) at the place reached.
    [[noreturn]] void Stop(const std::string& message) const;

    /// Throws LoadCanceled when the load was cancelled.
    void Ask() const;

    /// What is asked; may be null.
    const JobStatus* Status() const { return status; }

    /// Where the parser is; not owned.
    void SetPlace(const xercesc::Locator* locator) { place = locator; }
    const xercesc::Locator* Place() const { return place; }

private:
    static constexpr auto kCount = static_cast<std::size_t>(Of::Kinds);

    const JobStatus* status;
    const xercesc::Locator* place = nullptr;
    bool mustAsk = false;
    std::array<std::uint64_t, kCount> spent = {};
};

} // namespace Tarnex
