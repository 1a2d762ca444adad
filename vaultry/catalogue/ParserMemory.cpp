// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/ParserMemory.h>

#include <vaultry/catalogue/LoadBudget.h>

#include <xercesc/internal/XMLReader.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <utility>

namespace Tarnex {

namespace {

using Of = LoadBudget::Of;

// The parser reads the text of each entity, whatever its kind and wherever it is referred to,
// through a new reader: the one thing of this size, with a head of the parser's own. It tells
// nobody of the expansion of parameter entities, and limits that of general ones only. It can be
// left there as at any error in the reference.
constexpr bool IsReader(XMLSize_t size) {
    constexpr XMLSize_t kReader = sizeof(xercesc::XMLReader);
    return size >= kReader && size <= kReader + 2 * alignof(std::max_align_t);
}

} // namespace

// An exception outlives the parse and must not hold what is taken back with it.
xercesc::MemoryManager* ParserMemory::getExceptionMemoryManager() {
    return xercesc::XMLPlatformUtils::fgMemoryManager;
}

void* ParserMemory::allocate(XMLSize_t size) {
    // What the parser needs before it has a place in the document, such as a reader of the document
    // itself, is no doing of the document's.
    if (budget.Place() != nullptr) {
        budget.Count(Of::Requests);
        if (IsReader(size)) {
            budget.Spend(Of::Expansions);
        }
    }
    try {
        return Allocate(size);
    } catch (...) {
        refused = true;
        throw;
    }
}

void* ParserMemory::Allocate(XMLSize_t size) {
    const std::size_t whole = size + sizeof(Block);
    if (size > LoadBudget::Most(Of::Memory) || !budget.Affords(Of::Memory, whole)) {
        throw xercesc::OutOfMemoryException();
    }
    Block block{std::unique_ptr<std::byte[]>(new std::byte[size]), whole};
    void* const start = block.bytes.get();
    blocks.emplace(start, std::move(block));
    budget.Count(Of::Memory, whole);
    return start;
}

// The parser frees some blocks before it asks for others in their place: when these are refused it
// frees the old ones again.
void ParserMemory::deallocate(void* block) {
    if (block != nullptr && !refused) {
        const auto found = blocks.find(block);
        budget.GiveBack(Of::Memory, found->second.whole);
        blocks.erase(found);
    }
}

} // namespace Tarnex
