#include <ztutil/ZtUPtrVector.h>

#include <algorithm>
#include <cstring>
#include <new>

ZtUVoidPtrVector::ZtUVoidPtrVector(const ZtUVoidPtrVector& other) {
    if (other.IsEmpty()) return;
    Reserve(other.GetCount());
    std::memcpy(m_begin, other.m_begin, sizeof(void*) * other.GetCount());
    m_end = m_begin + other.GetCount();
}

ZtUVoidPtrVector::ZtUVoidPtrVector(ZtUVoidPtrVector&& other) noexcept { Swap(other); }

ZtUVoidPtrVector& ZtUVoidPtrVector::operator=(const ZtUVoidPtrVector& other) {
    if (this != &other) {
        ZtUVoidPtrVector copy(other);
        Swap(copy);
    }
    return *this;
}

ZtUVoidPtrVector& ZtUVoidPtrVector::operator=(ZtUVoidPtrVector&& other) noexcept {
    if (this != &other) {
        ZtUVoidPtrVector empty;
        Swap(empty);
        Swap(other);
    }
    return *this;
}

ZtUVoidPtrVector::~ZtUVoidPtrVector() { ::operator delete(m_begin); }

void ZtUVoidPtrVector::Reserve(int capacity) {
    if (capacity <= GetCapacity()) return;
    const int count = GetCount();
    void** block = static_cast<void**>(::operator new(sizeof(void*) * capacity));
    if (count > 0) std::memcpy(block, m_begin, sizeof(void*) * count);
    ::operator delete(m_begin);
    m_begin = block;
    m_end = block + count;
    m_capacity = block + capacity;
}

void ZtUVoidPtrVector::PushBack(void* p) {
    if (m_end == m_capacity) Reserve(std::max(4, 2 * GetCapacity()));
    *m_end++ = p;
}

void ZtUVoidPtrVector::Insert(int i, void* p) {
    if (m_end == m_capacity) Reserve(std::max(4, 2 * GetCapacity()));
    std::memmove(m_begin + i + 1, m_begin + i, sizeof(void*) * (GetCount() - i));
    m_begin[i] = p;
    ++m_end;
}

void ZtUVoidPtrVector::Erase(int first, int last) noexcept {
    if (first >= last) return;
    std::memmove(m_begin + first, m_begin + last, sizeof(void*) * (GetCount() - last));
    m_end -= last - first;
}

int ZtUVoidPtrVector::Find(const void* p) const noexcept {
    for (int i = 0; i < GetCount(); ++i)
        if (m_begin[i] == p) return i;
    return -1;
}

void ZtUVoidPtrVector::Swap(ZtUVoidPtrVector& other) noexcept {
    std::swap(m_begin, other.m_begin);
    std::swap(m_end, other.m_end);
    std::swap(m_capacity, other.m_capacity);
}
