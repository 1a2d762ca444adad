// SPDX-License-Identifier: MIT
// A short list of handles.
#pragma once

#include <vaultry/foundation/DiPtr.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

/// A list of handles with room for N of them in place; only a longer one takes memory of its own.
/// Most cells of a grid hold one tile, and grids are made by the thousand.
///
/// The handles lie one behind the other, null ones among them, so that the list goes wherever a
/// range of handles does:
///
/// @code
/// for (const DiPtr<Tarnex::Tile>& tile : elmt.tiles) {
///     std::cout << tile->kindName.Text() << '\n';
/// }
/// @endcode
///
/// Like the objects in it, a list belongs to one thread at a time.
template <typename T, std::size_t N>
class DiSmallList {
public:
    /// What the list holds, under the name that algorithms ask for.
    using value_type = DiPtr<T>;

    /// How many handles the list holds, null ones too.
    std::size_t size() const { return count; }
    /// True when the list holds none.
    bool empty() const { return count == 0; }

    /// As with a vector: positions must lie in the list, and whatever makes the list longer or
    /// shorter ends iterators and references.
    /// @{

    /// The first handle, or end() of an empty list.
    DiPtr<T>* begin() { return count <= N ? inPlace.data() : many->data(); }
    /// One past the last handle; not to be read.
    DiPtr<T>* end() { return begin() + count; }
    /// The first handle of a list that is only looked at; the objects can be changed all the same.
    const DiPtr<T>* begin() const { return count <= N ? inPlace.data() : many->data(); }
    /// One past the last handle; not to be read.
    const DiPtr<T>* end() const { return begin() + count; }

    /// The handle at a position from 0 to size() - 1, which is not checked.
    DiPtr<T>& operator[](std::size_t i) { return begin()[i]; }
    /// The same of a list that is only looked at.
    const DiPtr<T>& operator[](std::size_t i) const { return begin()[i]; }
    /// The first handle; the list must not be empty.
    DiPtr<T>& front() { return *begin(); }
    /// The same of a list that is only looked at.
    const DiPtr<T>& front() const { return *begin(); }
    /// The last handle; the list must not be empty.
    DiPtr<T>& back() { return *(end() - 1); }
    /// The same of a list that is only looked at.
    const DiPtr<T>& back() const { return *(end() - 1); }

    /// @}

    /// Appends a handle. By value: it may be one of the list's own. The N + 1st one moves all of
    /// them into memory of the list's own. When there is none, std::bad_alloc is thrown and the
    /// list is as it was.
    void push_back(DiPtr<T> handle) {
        if (count < N) {
            inPlace[count] = std::move(handle);
        } else if (count == N) {
            auto moved = std::make_unique<Many>(inPlace.begin(), inPlace.end());
            moved->push_back(std::move(handle));
            many = std::move(moved);
            inPlace = {};
        } else {
            many->push_back(std::move(handle));
        }
        ++count;
    }

    /// Lets go of all handles. Objects that nobody else holds are destroyed, and memory of the
    /// list's own is given back.
    void clear() {
        for (std::size_t i = 0; i < N && i < count; ++i) {
            inPlace[i] = nullptr;
        }
        many.reset();
        count = 0;
    }

    DiSmallList() = default;
    ~DiSmallList() = default;

    /// A copy holds further handles to the same objects; a list that was moved from is empty.
    /// @{

    /// Costs a count for each handle, and memory where there are more than N.
    DiSmallList(const DiSmallList& other)
        : count(other.count), inPlace(other.inPlace), many(CopyOf(other.many)) {}

    /// Lets go of what the list held. When memory does not suffice, std::bad_alloc is thrown and
    /// the list is as it was.
    DiSmallList& operator=(const DiSmallList& other) {
        if (this != &other) {
            many = CopyOf(other.many);
            inPlace = other.inPlace;
            count = other.count;
        }
        return *this;
    }

    /// Neither counts nor takes memory.
    DiSmallList(DiSmallList&& other) noexcept
        : count(std::exchange(other.count, 0U)), inPlace(std::move(other.inPlace)),
          many(std::move(other.many)) {}

    /// Lets go of what the list held, and takes no memory.
    DiSmallList& operator=(DiSmallList&& other) noexcept {
        count = std::exchange(other.count, 0U);
        inPlace = std::move(other.inPlace);
        many = std::move(other.many);
        return *this;
    }

    /// @}

private:
    using Many = std::vector<DiPtr<T>>;

    static std::unique_ptr<Many> CopyOf(const std::unique_ptr<Many>& list) {
        return list ? std::make_unique<Many>(*list) : nullptr;
    }

    std::uint32_t count = 0;
    std::array<DiPtr<T>, N> inPlace;
    std::unique_ptr<Many> many; // all of them, once they are more than N
};
