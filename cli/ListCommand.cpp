// SPDX-License-Identifier: MIT
#include "cli/Commands.h"

#include "cli/CancelSignals.h"
#include "cli/ConfigSource.h"
#include "cli/LibraryLog.h"
#include "tools/gallery/Gallery.h"
#include "tools/runs/Offer.h"
#include "tools/text/TextTable.h"
#include "tools/text/Words.h"

#include <vaultry/foundation/HarmlessText.h>
#include <vaultry/run/SafeFile.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace Tarnex::Cli {

namespace {

using Entries = std::vector<std::pair<std::string, std::string>>;

// Names by themselves, what is said of them in a column: a name is typed as it stands.
void Print(const std::string& title, const Entries& entries, std::ostream& out) {
    Report::TextTable table({Report::TextTable::Align::Left, Report::TextTable::Align::Left});
    for (const auto& [name, remark] : entries) {
        table.Add({name, remark});
    }
    out << title << ":\n";
    table.Print(out, 2);
    out << (entries.empty() ? "  (none)\n" : "");
}

Entries EntriesOf(const Report::OfferedList& list) {
    Entries entries;
    for (const Report::OfferedName& offered : list.names) {
        const std::int32_t level = offered.level.value_or(0);
        std::string remark = level == 0 ? "" : "level " + std::to_string(level);
        if (offered.isDefault) {
            remark += remark.empty() ? "[default]" : " [default]";
        }
        entries.emplace_back(ForTerminal(offered.name), remark);
    }
    return entries;
}

Entries EntriesOf(const std::vector<Report::Preset>& presets) {
    Entries entries;
    for (const Report::Preset& preset : presets) {
        entries.emplace_back(ForTerminal(preset.name), ForTerminal(preset.description));
    }
    return entries;
}

void Print(const Report::Offer& offer, std::ostream& out) {
    if (!offer.presets.empty()) {
        Print("Presets (--preset)", EntriesOf(offer.presets), out);
    }
    for (const Report::OfferedList& list : offer.lists) {
        Print(std::string(list.title) + " (--" + list.option + ')', EntriesOf(list), out);
    }
}

// Nothing is left half done: all is drawn before the first byte is written.
void WritePage(const Report::Offer& offer,
               GenMgr& manager,
               const std::string& path,
               const Console& console) {
    std::ostringstream text;
    Report::WriteGallery(Report::GalleryOf(offer, manager), offer.config, text);
    SafeFile page(path);
    page.Open() << text.view();
    page.Finish();
    page.Commit();
    console.Say("drew \"" + path + "\": " + Report::Counted(page.Size(), "byte"));
}

// The built-in ones bring a configuration along, and would not say what one that is named has.
std::vector<Report::Preset> PresetsFor(const ListOptions& options) {
    if (options.presets) {
        return Report::ReadPresetFile(*options.presets);
    }
    const bool usual = FindBuiltinConfig(options.config) == FindBuiltinConfig(Report::kBuiltin);
    return usual ? Report::BuiltinPresetList() : std::vector<Report::Preset>();
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
    const Report::Offer offer{
        options.config, PresetsFor(options), Report::OfferedLists(manager), log.Errors()};
    console.Show(offer.errors);
    if (options.json) {
        console.out << Report::ToJson(offer);
    } else if (!options.html) {
        Print(offer, console.out);
    }
    if (options.html) {
        WritePage(offer, manager, *options.html, console);
    }
    const bool nothing = std::ranges::all_of(
        offer.lists, [](const Report::OfferedList& list) { return list.names.empty(); });
    return nothing ? ExitStatus::Failure : ExitStatus::Success;
}

} // namespace Tarnex::Cli
