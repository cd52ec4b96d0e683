// SPDX-License-Identifier: MIT
#include <curveeditor/model/NodeMemory.h>

#include <new>

// Sanitizers see each use of freed memory only where it is not given again.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define CURVEEDITOR_KEEPS_NODES 0
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || __has_feature(memory_sanitizer)
#define CURVEEDITOR_KEEPS_NODES 0
#endif
#endif
#ifndef CURVEEDITOR_KEEPS_NODES
#define CURVEEDITOR_KEEPS_NODES 1
#endif

namespace {

constexpr std::size_t granularity = 16;
constexpr std::size_t sizeCount = CURVEEDITOR_KEEPS_NODES ? 8 : 0;
constexpr std::size_t largestCount = 256; // of each size

struct Kept
{
    Kept* next;
};

struct List
{
    Kept* first = nullptr;
    std::size_t count = 0;
};

List lists[sizeCount + 1];

std::size_t listIndex(std::size_t size)
{
    return (size - 1) / granularity;
}

} // namespace

void* NodeMemory::take(std::size_t size)
{
    const std::size_t index = listIndex(size);
    if (index >= sizeCount || !lists[index].first)
        return ::operator new((index + 1) * granularity);
    List& list = lists[index];
    --list.count;
    Kept* const kept = list.first;
    list.first = kept->next;
    return kept;
}

void NodeMemory::give(void* memory, std::size_t size)
{
    const std::size_t index = listIndex(size);
    if (index >= sizeCount || lists[index].count == largestCount) {
        ::operator delete(memory);
        return;
    }
    List& list = lists[index];
    ++list.count;
    list.first = new (memory) Kept{list.first};
}
