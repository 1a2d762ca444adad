// SPDX-License-Identifier: MIT
// Meshes, skeletons and animations as the engine reads them: NIF 4.0.0.2.
#pragma once

#include "tools/stage/Shape.h"

#include <string>

namespace Tarnex::Report {

/// The bytes of a mesh: every face drawn from its own side, and bumped into from both, so that a
/// piece that is turned wrongly bars the way too. A shape without faces gives an empty mesh.
std::string MeshFile(const Shape& shape);

/// Likewise with a box by which an actor bumps into things, and nothing else that does.
std::string ActorMeshFile(const Shape& shape, const Di3Point& middle, const Di3Point& halfSize);

/// The skeleton of the player: bones that the engine looks for, and the box of a person.
std::string SkeletonFile();

/// An animation in which nothing moves. With its keys the engine finds all it needs for walking,
/// and lets the speed of the actor move the actor; without such a file nobody walks.
std::string AnimationFile();

/// The name by which meshes call the texture of a surface.
std::string TextureName(Surface surface);

} // namespace Tarnex::Report
