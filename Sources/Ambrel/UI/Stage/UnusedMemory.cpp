#include "UI/Stage/UnusedMemory.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <span>
#include <vector>

#include <QFont>
#include <QPixmapCache>
#include <QQuickWindow>

#include <link.h>
#include <malloc.h>
#include <pthread.h>
#include <sys/mman.h>
#include <unistd.h>

namespace ambrel {

namespace {

void dropCaches() {
    // Otherwise it takes the toolkit minutes of timers, and the heap is not trimmed after them.
    QQuickWindow().releaseResources();
    QPixmapCache::clear();
    QFont::cleanup();
}

using Blocks = std::vector<std::unique_ptr<std::byte[]>>;

void* freeBlocks(void* blocks) {
    static_cast<Blocks*>(blocks)->clear();
    return nullptr;
}

/// glibc sets that many freed blocks of each small size aside for every thread, and each of them holds its page. A
/// thread that frees them instead gives them to the heap when it ends.
void emptyBlockCache() {
    constexpr std::size_t smallest = 24, largest = 1032, step = 16, ofEachSize = 7;
    Blocks blocks;
    for (std::size_t size = smallest; size <= largest; size += step) {
        std::generate_n(std::back_inserter(blocks), ofEachSize,
                        [size] { return std::make_unique_for_overwrite<std::byte[]>(size); });
    }
    // Not a thread of Qt's: those are done before they have ended.
    pthread_t thread;
    if (pthread_create(&thread, nullptr, freeBlocks, &blocks) == 0) {
        pthread_join(thread, nullptr);
    }
}

/// Such an object has written to its code.
bool hasRelocatedCode(const dl_phdr_info& object, const ElfW(Phdr) & dynamic) {
    const auto* entry = std::bit_cast<const ElfW(Dyn)*>(object.dlpi_addr + dynamic.p_vaddr);
    while (entry->d_tag != DT_NULL && entry->d_tag != DT_TEXTREL &&
           !(entry->d_tag == DT_FLAGS && (entry->d_un.d_val & DF_TEXTREL) != 0)) {
        ++entry;
    }
    return entry->d_tag != DT_NULL;
}

/// Pages that nothing may write to are those of the file, and are read from there, or its cache, when they are needed.
void dropPages(const dl_phdr_info& object, const ElfW(Phdr) & segment) {
    static const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const auto begin = object.dlpi_addr + segment.p_vaddr;
    const auto first = begin & ~(page - 1);
    madvise(std::bit_cast<void*>(first), begin + segment.p_memsz - first, MADV_DONTNEED);
}

int dropCode(dl_phdr_info* object, size_t /*size*/, void* /*data*/) {
    const std::span segments(object->dlpi_phdr, object->dlpi_phnum);
    const auto dynamic = std::ranges::find(segments, ElfW(Word){PT_DYNAMIC}, &ElfW(Phdr)::p_type);
    if (dynamic == segments.end() || hasRelocatedCode(*object, *dynamic)) {
        return 0;
    }
    for (const auto& segment : segments) {
        if (segment.p_type == PT_LOAD && (segment.p_flags & PF_W) == 0) {
            dropPages(*object, segment);
        }
    }
    return 0;
}

} // namespace

void giveBackUnusedMemory() {
    dropCaches();
    emptyBlockCache();
    malloc_trim(0);
    dl_iterate_phdr(dropCode, nullptr);
}

} // namespace ambrel
