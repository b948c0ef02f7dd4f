#include <ztutil/ZtUArena.h>

ZtUFastArena::ZtUFastArena(std::size_t blockSize)
    : m_resource(blockSize > 0 ? blockSize : 1, std::pmr::new_delete_resource()) {}

ZtUFastArena::~ZtUFastArena() = default;

void ZtUFastArena::Release() {
    m_resource.release();
    m_bytes = 0;
}

void* ZtUFastArena::do_allocate(std::size_t size, std::size_t alignment) {
    void* p = m_resource.allocate(size, alignment);
    m_bytes += size;
    return p;
}

ZtUArena::~ZtUArena() = default;

void ZtUArena::Release() {
    std::lock_guard<std::mutex> guard(m_mutex);
    m_arena.Release();
}

std::size_t ZtUArena::GetBytesAllocated() const {
    std::lock_guard<std::mutex> guard(m_mutex);
    return m_arena.GetBytesAllocated();
}

void* ZtUArena::do_allocate(std::size_t size, std::size_t alignment) {
    std::lock_guard<std::mutex> guard(m_mutex);
    return m_arena.Allocate(size, alignment);
}

ZtURawArena::ZtURawArena(void* buffer, std::size_t size)
    : m_resource(buffer, buffer ? size : 0, std::pmr::null_memory_resource()) {}

ZtURawArena::~ZtURawArena() = default;

void ZtURawArena::Release() {
    m_resource.release();
    m_bytes = 0;
}

void* ZtURawArena::do_allocate(std::size_t size, std::size_t alignment) {
    void* p = m_resource.allocate(size, alignment);
    m_bytes += size;
    return p;
}
