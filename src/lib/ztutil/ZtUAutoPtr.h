#ifndef ZTUTIL_ZTUAUTOPTR_H
#define ZTUTIL_ZTUAUTOPTR_H

#include <utility>

// Sole owner of one object allocated with new: deletes it when reset or destroyed.
// Moves pass ownership and leave the source null; copying is not allowed.
template <class T>
class ZtUAutoPtr {
public:
    constexpr ZtUAutoPtr() noexcept = default;
    explicit ZtUAutoPtr(T* p) noexcept : m_p(p) {}
    ZtUAutoPtr(ZtUAutoPtr&& other) noexcept : m_p(other.Release()) {}
    ZtUAutoPtr& operator=(ZtUAutoPtr&& other) noexcept {
        if (this != &other) Reset(other.Release());
        return *this;
    }
    ZtUAutoPtr(const ZtUAutoPtr&) = delete;
    ZtUAutoPtr& operator=(const ZtUAutoPtr&) = delete;
    ~ZtUAutoPtr() { delete m_p; }

    T* Get() const noexcept { return m_p; }
    T* operator->() const noexcept { return m_p; }
    T& operator*() const noexcept { return *m_p; }
    explicit operator bool() const noexcept { return m_p != nullptr; }

    // Gives up ownership without deleting and returns the object.
    T* Release() noexcept { return std::exchange(m_p, nullptr); }
    // Deletes the owned object (if any) and takes ownership of p.
    void Reset(T* p = nullptr) noexcept {
        T* old = std::exchange(m_p, p);
        if (old != p) delete old;
    }

private:
    T* m_p = nullptr;
};

#endif
