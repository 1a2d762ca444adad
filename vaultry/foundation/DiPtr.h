// SPDX-License-Identifier: MIT
// The handle through which shared objects are held.
#pragma once

#include <concepts>
#include <cstddef>
#include <utility>

/// A counted handle to a T derived from DiRcObject, or null. Handles compare by pointer; assigning
/// null releases. A T* handed in is shared, never owned alone: the object must live on the heap.
///
/// @code
/// const DiPtr<Tarnex::TileSet> set = manager.GetDefaultTileSet(); // null when there is none
/// if (set) {
///     std::cout << set->GetName() << '\n';
/// }
/// @endcode
///
/// Each handle that is made and goes costs a count, which is a plain integer: the object and all
/// its handles stay with one thread at a time. Where a function only looks at an object, hand it a
/// reference.
template <typename T>
class DiPtr {
public:
    DiPtr() noexcept = default;
    /// Null, as without an argument.
    DiPtr(std::nullptr_t) noexcept {}
    /// A further handle to the object, or null. Nothing is copied. An object that is not on the
    /// heap would be deleted with its last handle.
    DiPtr(T* object) : ptr(object) { Acquire(ptr); }
    /// A further handle to what the other one holds.
    DiPtr(const DiPtr& other) : ptr(other.ptr) { Acquire(ptr); }
    /// Takes over what the other one holds and leaves it null.
    DiPtr(DiPtr&& other) noexcept : ptr(std::exchange(other.ptr, nullptr)) {}
    ~DiPtr() { Release(ptr); }

    /// A handle to the same object by its base. There is none the other way: whoever knows the
    /// derived class casts the pointer.
    template <std::derived_from<T> U>
    DiPtr(const DiPtr<U>& other) : ptr(other.get()) {
        Acquire(ptr);
    }

    /// Lets go of the object held before, which is destroyed when this was its last handle.
    /// @{

    /// Shares what the other handle holds. Assigning a handle to itself does nothing.
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): the pointer below is compared
    DiPtr& operator=(const DiPtr& other) { return *this = other.ptr; }

    /// Takes over what the other handle holds, without a count, and leaves it null.
    DiPtr& operator=(DiPtr&& other) noexcept {
        DiPtr taken(std::move(other));
        std::swap(ptr, taken.ptr);
        return *this;
    }

    // The new reference is taken first, so that `p = p->GetParent()` is safe.
    DiPtr& operator=(T* object) {
        if (object != ptr) {
            Acquire(object);
            Release(std::exchange(ptr, object));
        }
        return *this;
    }

    /// The handle is null afterwards; one that was null stays so.
    DiPtr& operator=(std::nullptr_t) { return *this = static_cast<T*>(nullptr); }

    /// @}

    /// The object, or null. It lives as long as some handle to it does.
    T* get() const noexcept { return ptr; }
    /// The object; the handle must not be null.
    T& operator*() const noexcept { return *ptr; }
    /// The object's members; the handle must not be null.
    T* operator->() const noexcept { return ptr; }
    /// True unless null.
    explicit operator bool() const noexcept { return ptr != nullptr; }

    /// Whether both hold the very same object, or both none.
    /// @{
    /// Two objects with the same fields are not the same.
    friend bool operator==(const DiPtr& a, const DiPtr& b) noexcept { return a.ptr == b.ptr; }
    /// With a pointer that no handle need hold; it is not looked through.
    friend bool operator==(const DiPtr& a, const T* b) noexcept { return a.ptr == b; }
    /// Whether the handle holds nothing.
    friend bool operator==(const DiPtr& a, std::nullptr_t) noexcept { return a.ptr == nullptr; }
    /// @}

private:
    static void Acquire(T* object) {
        if (object != nullptr) {
            object->addReference();
        }
    }

    static void Release(T* object) {
        if (object != nullptr) {
            object->removeReference();
        }
    }

    T* ptr = nullptr;
};

/// Makes a new T from the arguments of its constructor, and the first handle to it. Throws what the
/// constructor throws, and std::bad_alloc. The usual way to make an object of the library.
template <typename T, typename... Args>
DiPtr<T> MakeDi(Args&&... args) {
    return DiPtr<T>(new T(std::forward<Args>(args)...));
}
