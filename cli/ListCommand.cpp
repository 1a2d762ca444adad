// SPDX-License-Identifier: MIT
#include "cli/Commands.h"

#include "cli/CancelSignals.h"
#include "cli/ConfigSource.h"
#include "cli/LibraryLog.h"
#include "tools/runs/Offer.h"

#include <vaultry/foundation/HarmlessText.h>

#include <algorithm>

namespace Tarnex::Cli {

namespace {

void Print(const Report::OfferedList& list, std::ostream& out) {
    out << list.title << " (--" << list.option << "):\n";
    for (const Report::OfferedName& offered : list.names) {
        out << "  " << ForTerminal(offered.name);
        if (offered.level.value_or(0) != 0) {
            out << ", level " << *offered.level;
        }
        out << (offered.isDefault ? " [default]\n" : "\n");
    }
    if (list.names.empty()) {
        out << "  (none)\n";
    }
}

} // namespace

ExitStatus RunVerb(const ListOptions& options, const Console& console) {
    const EndingSignals ending;
    const ConfigSource source(options.config);
    LibraryLog log(std::nullopt);
    GenMgr manager;
    source.Load(manager);
    if (!options.keepGoing && manager.GetConfigFault()) {
        console.Show(log.Errors());
        source.RequireWhole(manager);
    }
    const Report::Offer offer{options.config, Report::OfferedLists(manager), log.Errors()};
    console.Show(offer.errors);
    if (options.json) {
        console.out << Report::ToJson(offer);
    } else {
        for (const Report::OfferedList& list : offer.lists) {
            Print(list, console.out);
        }
    }
    const bool nothing = std::ranges::all_of(
        offer.lists, [](const Report::OfferedList& list) { return list.names.empty(); });
    return nothing ? ExitStatus::Failure : ExitStatus::Success;
}

} // namespace Tarnex::Cli
