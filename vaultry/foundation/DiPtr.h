// SPDX-License-Identifier: MIT
// The handle through which shared objects are held.
#pragma once

#include <concepts>
#include <cstddef>
#include <utility>

/// A counted handle to a T derived from DiRcObject, or null. Handles compare by pointer; assigning
/// null releases. A T* handed in is shared, never owned alone: the object must live on the heap.
template <typename T>
class DiPtr {
public:
    DiPtr() noexcept = default;
    /// Null, as without an argument.
    DiPtr(std::nullptr_t) noexcept {}
    /// A further handle to the object, or null.
    DiPtr(T* object) : ptr(object) { Acquire(ptr); }
    /// A further handle to what the other one holds.
    DiPtr(const DiPtr& other) : ptr(other.ptr) { Acquire(ptr); }
    /// Takes over what the other one holds and leaves it null.
    DiPtr(DiPtr&& other) noexcept : ptr(std::exchange(other.ptr, nullptr)) {}
    ~DiPtr() { Release(ptr); }

    /// A handle to the same object by its base.
    template <std::derived_from<T> U>
    DiPtr(const DiPtr<U>& other) : ptr(other.get()) {
        Acquire(ptr);
    }

    /// Lets go of the object held before, which is destroyed when this was its last handle.
    /// @{

    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): the pointer below is compared
    DiPtr& operator=(const DiPtr& other) { return *this = other.ptr; }

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
    friend bool operator==(const DiPtr& a, const DiPtr& b) noexcept { return a.ptr == b.ptr; }
    friend bool operator==(const DiPtr& a, const T* b) noexcept { return a.ptr == b; }
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

/// Makes a new T from the arguments of its constructor, and the first handle to it.
template <typename T, typename... Args>
DiPtr<T> MakeDi(Args&&... args) {
    return DiPtr<T>(new T(std::forward<Args>(args)...));
}
