// SPDX-License-Identifier: MIT
// A small plug-in to report on.
#pragma once

#include <vaultry/output/Mod.h>
#include <vaultry/output/PluginReader.h>

#include <string>

namespace Tarnex::Test {

/// What the library writes.
std::string BytesOf(Mod& mod);

/// What is read of it.
PluginFile ReadBack(Mod& mod);

/// Fills `mod` with the cells "Crypt" and "Café", joined by a pair of doors, and the container
/// Ctr5_1 in the first.
void FillSample(Mod& mod);

/// A reference at a place, turned about the vertical axis by quarters of a turn.
Ref PlacedAt(const char* id, float x, float y, float z, int quarters = 0);

} // namespace Tarnex::Test
