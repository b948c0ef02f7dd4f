#ifndef ZTUTIL_ZTUPTRVECTOR_H
#define ZTUTIL_ZTUPTRVECTOR_H

#include <ztutil/ZtUExport.h>

#include <cstddef>
#include <new>
#include <utility>

class ZtUArena;
class ZtUFastArena;
class ZtURawArena;

// A growable array of untyped pointers: begin, end and capacity pointers, all null when empty.
// It owns its array of pointers, never what they point to. Growth doubles the capacity.
class ZTU_EXPORT ZtUVoidPtrVector {
public:
    ZtUVoidPtrVector() noexcept = default;
    ZtUVoidPtrVector(const ZtUVoidPtrVector& other);
    ZtUVoidPtrVector(ZtUVoidPtrVector&& other) noexcept;
    ZtUVoidPtrVector& operator=(const ZtUVoidPtrVector& other);
    ZtUVoidPtrVector& operator=(ZtUVoidPtrVector&& other) noexcept;
    ~ZtUVoidPtrVector();

    int GetCount() const noexcept { return static_cast<int>(m_end - m_begin); }
    int Count() const noexcept { return GetCount(); }
    int GetCapacity() const noexcept { return static_cast<int>(m_capacity - m_begin); }
    bool IsEmpty() const noexcept { return m_begin == m_end; }

    void* const* Begin() const noexcept { return m_begin; }
    void* const* End() const noexcept { return m_end; }
    void** Begin() noexcept { return m_begin; }
    void** End() noexcept { return m_end; }

    void* operator[](int i) const noexcept { return m_begin[i]; }
    void*& operator[](int i) noexcept { return m_begin[i]; }

    void PushBack(void* p);
    void PopBack() noexcept { --m_end; }
    // Inserts p before position i (0 <= i <= count).
    void Insert(int i, void* p);
    // Removes the pointers in [first, last) and closes the gap.
    void Erase(int first, int last) noexcept;
    void Clear() noexcept { m_end = m_begin; }
    void Reserve(int capacity);
    // The index of the first pointer equal to p, or -1.
    int Find(const void* p) const noexcept;
    void Swap(ZtUVoidPtrVector& other) noexcept;

private:
    void** m_begin = nullptr;
    void** m_end = nullptr;
    void** m_capacity = nullptr;
};

// A typed view of ZtUVoidPtrVector: a vector of T* that owns none of its elements.
template <class T>
class ZtUPtrVector : public ZtUVoidPtrVector {
public:
    ZtUPtrVector() noexcept = default;

    T* operator[](int i) const noexcept { return static_cast<T*>(ZtUVoidPtrVector::operator[](i)); }
    T* At(int i) const noexcept { return (*this)[i]; }
    void PushBack(T* p) { ZtUVoidPtrVector::PushBack(p); }
    void Insert(int i, T* p) { ZtUVoidPtrVector::Insert(i, p); }

    T* const* begin() const noexcept { return reinterpret_cast<T* const*>(Begin()); }
    T* const* end() const noexcept { return reinterpret_cast<T* const*>(End()); }
};

// A vector of T* that owns its elements: it deletes every element it removes and copies deep.
//
// Copying allocates a copy of every element; assignment deletes the target's elements first
// (self-assignment is a no-op). Elements must be allocated with new (or this class's operator new).
template <class T>
class ZtUOwnPtrVector : private ZtUVoidPtrVector {
public:
    ZtUOwnPtrVector() noexcept = default;
    explicit ZtUOwnPtrVector(const ZtUPtrVector<T>& source) { CopyFrom(source.begin(), source.end()); }
    ZtUOwnPtrVector(T* const* first, T* const* last) { CopyFrom(first, last); }
    ZtUOwnPtrVector(const ZtUOwnPtrVector& other) : ZtUVoidPtrVector() {
        CopyFrom(other.begin(), other.end());
    }
    ~ZtUOwnPtrVector() { EraseAll(); }

    ZtUOwnPtrVector& operator=(const ZtUOwnPtrVector& other) {
        if (this != &other) {
            EraseAll();
            CopyFrom(other.begin(), other.end());
        }
        return *this;
    }
    ZtUOwnPtrVector& operator=(const ZtUPtrVector<T>& other) {
        if (static_cast<const ZtUVoidPtrVector*>(this) != &other) {
            EraseAll();
            CopyFrom(other.begin(), other.end());
        }
        return *this;
    }

    T* operator[](int i) noexcept { return static_cast<T*>(ZtUVoidPtrVector::operator[](i)); }
    const T* operator[](int i) const noexcept {
        return static_cast<const T*>(ZtUVoidPtrVector::operator[](i));
    }

    // The elements as a non-owning vector (the pointers stay owned by this one).
    operator const ZtUPtrVector<T>&() const noexcept {
        return static_cast<const ZtUPtrVector<T>&>(static_cast<const ZtUVoidPtrVector&>(*this));
    }

    using ZtUVoidPtrVector::Count;
    using ZtUVoidPtrVector::GetCapacity;
    using ZtUVoidPtrVector::GetCount;
    using ZtUVoidPtrVector::IsEmpty;
    using ZtUVoidPtrVector::Reserve;

    // Appends p and takes ownership of it.
    void PushBack(T* p) { ZtUVoidPtrVector::PushBack(p); }
    // Takes the element out of the vector without deleting it; the caller owns it then.
    T* Release(int i) noexcept {
        T* p = (*this)[i];
        ZtUVoidPtrVector::Erase(i, i + 1);
        return p;
    }
    // Deletes the elements in [first, last) and removes their pointers.
    void Erase(int first, int last) noexcept {
        for (int i = first; i < last; ++i) delete (*this)[i];
        ZtUVoidPtrVector::Erase(first, last);
    }
    void EraseAll() noexcept { Erase(0, GetCount()); }
    void Clear() noexcept { EraseAll(); }

    T* const* begin() const noexcept { return reinterpret_cast<T* const*>(Begin()); }
    T* const* end() const noexcept { return reinterpret_cast<T* const*>(End()); }

    // Class-level allocation, so that owning vectors can live in the host's arenas.
    static void* operator new(std::size_t size) { return ::operator new(size); }
    static void* operator new(std::size_t, void* where) noexcept { return where; }
    static void operator delete(void* p) noexcept { ::operator delete(p); }
    static void operator delete(void*, void*) noexcept {}
    static void* operator new(std::size_t size, ZtUArena& arena);
    static void* operator new(std::size_t size, ZtUFastArena& arena);
    static void* operator new(std::size_t size, ZtURawArena& arena);
    static void operator delete(void*, ZtUArena&) noexcept {}
    static void operator delete(void*, ZtUFastArena&) noexcept {}
    static void operator delete(void*, ZtURawArena&) noexcept {}

private:
    // Appends a newly allocated copy of each element of [first, last). If an allocation fails,
    // the copies made by this call are deleted before the exception goes on.
    void CopyFrom(T* const* first, T* const* last) {
        const int before = GetCount();
        try {
            Reserve(before + static_cast<int>(last - first));
            for (; first != last; ++first) ZtUVoidPtrVector::PushBack(new T(**first));
        } catch (...) {
            Erase(before, GetCount());
            throw;
        }
    }
};

#endif
