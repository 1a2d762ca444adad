// SPDX-License-Identifier: MIT
// The attributes of each element, by tables: how they are read and where they go. Not installed.
#pragma once

#include <vaultry/catalogue/ConfigMgr.h>

#include <xercesc/sax2/Attributes.hpp>

#include <string>

namespace Tarnex {

/// The attributes of a layout, which must be known before its template can be made.
struct LayoutHead {
    std::string name;
    std::string type;
    std::int32_t width = 5;
    std::int32_t height = 5;
    Di3Point offset;
};

/// Applies the attributes in document order and ignores those that an object of its kind does not
/// have.
template <typename T>
void ApplyAttributes(const xercesc::Attributes& attrs, T& object);

} // namespace Tarnex
