// SPDX-License-Identifier: MIT
// The base of all shared objects.
#pragma once

#include <vaultry/foundation/Export.h>

#include <cstdint>

/// An object that counts its handles and deletes itself when the last one goes.
///
/// Counts are plain integers: an object belongs to one thread at a time, with all its handles.
/// Copying an object never copies its count. Counting cannot free cycles; the one cycle of this
/// library (a layout and its children, or two levels joined by a teleporting door) is broken by
/// Layout::Dissolve.
class VAULTRY_API DiRcObject {
public:
    virtual ~DiRcObject() = default;

    /// Adds one reference; DiPtr does it for whoever holds a handle.
    void addReference() const { ++count; }

    /// Drops one reference; at 0 the object is destroyed.
    void removeReference() const {
        if (--count == 0) {
            const_cast<DiRcObject*>(this)->RcObjectDestroy();
        }
    }

    /// True when more than one handle holds the object.
    bool isShared() const { return count > 1; }

protected:
    DiRcObject() = default;
    /// An object of its own, which nobody refers to yet.
    DiRcObject(const DiRcObject& /*other*/) {}
    /// Leaves the count of either object as it is.
    DiRcObject& operator=(const DiRcObject& /*other*/) { return *this; }

    /// Called when the last reference goes; deletes the object.
    virtual void RcObjectDestroy();

private:
    mutable std::int32_t count = 0;
};
