// SPDX-License-Identifier: MIT
// Making halls of knots.
#pragma once

#include <vaultry/gen/HallPlan.h>
#include <vaultry/gen/RunMeter.h>

#include <cstdint>

namespace Tarnex {

/// Takes out the pieces of the halls between the rooms that no shortest way needs, and closes those
/// beside them. For every two doorways (or other ends of these halls) that halls join, one of the
/// shortest ways between them stays, and as many pieces as can be are shared: no way from room to
/// room becomes longer. Of what else there is, ways that make a round of more than `steps` pieces
/// stay, the shortest first. As no set has a piece with three openings, a junction of three ways
/// keeps an end on its fourth side, or the piece that stands there. No opening comes about.
///
/// Nothing is done with a set that lacks a piece. Draws nothing.
void TidyHalls(HallPlan& plan, std::uint32_t steps, RunMeter& meter);

} // namespace Tarnex
