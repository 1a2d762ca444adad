// SPDX-License-Identifier: MIT
// Reads any bytes as a plug-in and makes every report of it.
#include "apps/report/DiffReport.h"
#include "apps/report/InspectReport.h"
#include "apps/report/PluginChecks.h"
#include "fuzz/Require.h"

#include <vaultry/output/PluginReader.h>

#include <cstdint>
#include <sstream>

namespace {

using namespace Tarnex;

using Fuzz::Require;

Report::LoadedPlugin Load(std::string_view bytes) {
    return {"fuzz.esp", std::string(bytes), ReadPlugin(bytes)};
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Fuzz::Brief brief;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const Report::LoadedPlugin whole = Load(bytes);
    const std::vector<PluginFinding> findings = Report::FindInconsistencies(whole.file);
    Require(whole.file.complete || !whole.file.isPlugin || !findings.empty());
    const Report::Inspection inspection{whole.path, whole.file, findings};
    std::ostringstream text;
    Report::PrintInspection(inspection, true, text);
    Require(!Report::ToJson(inspection).empty());
    Require(Report::Diff(whole, whole).differences.empty());
    // Without its last quarter it is another plug-in with much in common.
    const Report::DiffResult diff = Report::Diff(whole, Load(bytes.substr(0, size / 4 * 3)));
    Report::PrintDiff(diff, text);
    Require(!Report::ToJson(diff).empty());
    return 0;
}
