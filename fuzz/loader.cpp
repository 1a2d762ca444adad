// SPDX-License-Identifier: MIT
// Reads any bytes as a configuration, checks it and prints what is wrong with it.
#include "fuzz/Require.h"
#include "tools/check/ConfigCheck.h"

#include <vaultry/foundation/Logger.h>

#include <cstdint>
#include <sstream>
#include <string_view>

using namespace Tarnex;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Fuzz::Brief brief;
    Logger::InitWithoutFile();
    Logger::ResetErrors();
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const ConfigRecord record = RecordConfigText(bytes, "fuzz.xml");
    const Report::ConfigCheck check = Report::CheckConfig("fuzz.xml", record);
    Fuzz::Require(check.usable || Report::HasWeight(check));
    for (const ConfigElement& element : record.elements) {
        Fuzz::Require(element.place.line > 0 && element.place.column > 0);
    }
    std::ostringstream text;
    Report::PrintCheck(check, text);
    Fuzz::Require(!Report::ToJson(check).empty());
    return 0;
}
