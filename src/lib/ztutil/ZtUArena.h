#ifndef ZTUTIL_ZTUARENA_H
#define ZTUTIL_ZTUARENA_H

#include <ztutil/ZtUExport.h>
#include <ztutil/ZtUPtrVector.h>

#include <cstddef>
#include <memory_resource>
#include <mutex>

// Monotonic arenas: memory is handed out from growing blocks and only given back all at once,
// by Release() or when the arena is destroyed. Freeing a single allocation does nothing.
//
// - ZtUArena: for allocations from several threads (a lock around each allocation).
// - ZtUFastArena: the same without the lock, for one thread at a time.
// - ZtURawArena: over a caller's fixed buffer; it never touches the heap.
//
// Each is a std::pmr::memory_resource, so standard containers can live in it
// (std::pmr::vector<int> v(&arena)). Exhaustion throws std::bad_alloc, as operator new does.
// Objects placed in an arena with `new (arena) T` are destroyed by calling their destructor,
// never by delete; their memory goes back with the arena's.

// An arena for one thread at a time.
class ZTU_EXPORT ZtUFastArena : public std::pmr::memory_resource {
public:
    // blockSize: the size of the first block taken from the heap (later ones grow).
    explicit ZtUFastArena(std::size_t blockSize = 4096);
    ~ZtUFastArena() override;
    ZtUFastArena(const ZtUFastArena&) = delete;
    ZtUFastArena& operator=(const ZtUFastArena&) = delete;

    void* Allocate(std::size_t size, std::size_t alignment = alignof(std::max_align_t)) {
        return allocate(size, alignment);
    }
    // Gives back everything allocated so far.
    void Release();
    // The bytes handed out since construction or the last Release (without alignment padding).
    std::size_t GetBytesAllocated() const { return m_bytes; }

protected:
    void* do_allocate(std::size_t size, std::size_t alignment) override;
    void do_deallocate(void*, std::size_t, std::size_t) override {}
    bool do_is_equal(const std::pmr::memory_resource& other) const noexcept override {
        return this == &other;
    }

private:
    std::pmr::monotonic_buffer_resource m_resource;
    std::size_t m_bytes = 0;
};

// An arena that several threads may allocate from at once.
class ZTU_EXPORT ZtUArena : public std::pmr::memory_resource {
public:
    explicit ZtUArena(std::size_t blockSize = 4096) : m_arena(blockSize) {}
    ~ZtUArena() override;

    void* Allocate(std::size_t size, std::size_t alignment = alignof(std::max_align_t)) {
        return allocate(size, alignment);
    }
    // Gives back everything allocated so far; no other thread may use the memory any longer.
    void Release();
    std::size_t GetBytesAllocated() const;

protected:
    void* do_allocate(std::size_t size, std::size_t alignment) override;
    void do_deallocate(void*, std::size_t, std::size_t) override {}
    bool do_is_equal(const std::pmr::memory_resource& other) const noexcept override {
        return this == &other;
    }

private:
    mutable std::mutex m_mutex;
    ZtUFastArena m_arena;
};

// An arena over a fixed buffer owned by the caller (which must outlive the arena).
class ZTU_EXPORT ZtURawArena : public std::pmr::memory_resource {
public:
    ZtURawArena(void* buffer, std::size_t size);
    ~ZtURawArena() override;
    ZtURawArena(const ZtURawArena&) = delete;
    ZtURawArena& operator=(const ZtURawArena&) = delete;

    void* Allocate(std::size_t size, std::size_t alignment = alignof(std::max_align_t)) {
        return allocate(size, alignment);
    }
    // Gives back everything: the next allocation starts at the beginning of the buffer again.
    void Release();
    std::size_t GetBytesAllocated() const { return m_bytes; }

protected:
    void* do_allocate(std::size_t size, std::size_t alignment) override;
    void do_deallocate(void*, std::size_t, std::size_t) override {}
    bool do_is_equal(const std::pmr::memory_resource& other) const noexcept override {
        return this == &other;
    }

private:
    std::pmr::monotonic_buffer_resource m_resource;
    std::size_t m_bytes = 0;
};

// Arena placement of owning pointer vectors (the vector itself; its elements and its array of
// pointers stay on the heap).
template <class T>
void* ZtUOwnPtrVector<T>::operator new(std::size_t size, ZtUArena& arena) {
    return arena.Allocate(size, alignof(ZtUOwnPtrVector<T>));
}
template <class T>
void* ZtUOwnPtrVector<T>::operator new(std::size_t size, ZtUFastArena& arena) {
    return arena.Allocate(size, alignof(ZtUOwnPtrVector<T>));
}
template <class T>
void* ZtUOwnPtrVector<T>::operator new(std::size_t size, ZtURawArena& arena) {
    return arena.Allocate(size, alignof(ZtUOwnPtrVector<T>));
}

#endif
