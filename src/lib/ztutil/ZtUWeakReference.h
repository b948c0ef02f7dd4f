#ifndef ZTUTIL_ZTUWEAKREFERENCE_H
#define ZTUTIL_ZTUWEAKREFERENCE_H

#include <ztutil/ZtUExport.h>

// Base of objects that weak references may point to.
//
// It holds one pointer-sized field, null after construction: the shared link to the object's weak
// references, made by the first ZtUWeakReference that attaches. Destroying the object cuts the
// link so those references read null from then on. Copies start without references: a copy is
// another object.
class ZTU_EXPORT ZtUWeakReferenceTarget {
public:
    ZtUWeakReferenceTarget() noexcept = default;
    ZtUWeakReferenceTarget(const ZtUWeakReferenceTarget&) noexcept {}
    ZtUWeakReferenceTarget& operator=(const ZtUWeakReferenceTarget&) noexcept { return *this; }
    ~ZtUWeakReferenceTarget();

    // True while at least one weak reference has attached to this object.
    bool HasWeakReferences() const noexcept { return m_link != nullptr; }

private:
    friend class ZtUWeakReferenceBase;
    struct Link;
    Link* m_link = nullptr;
};

// The untyped part of ZtUWeakReference: a counted share of a target's link.
class ZTU_EXPORT ZtUWeakReferenceBase {
public:
    ZtUWeakReferenceBase() noexcept = default;
    ZtUWeakReferenceBase(const ZtUWeakReferenceBase& other) noexcept;
    ZtUWeakReferenceBase& operator=(const ZtUWeakReferenceBase& other) noexcept;
    ~ZtUWeakReferenceBase();

protected:
    explicit ZtUWeakReferenceBase(ZtUWeakReferenceTarget* target);
    ZtUWeakReferenceTarget* GetTarget() const noexcept;
    void Attach(ZtUWeakReferenceTarget* target);

private:
    void Detach() noexcept;
    ZtUWeakReferenceTarget::Link* m_link = nullptr;
};

// A reference to a T (derived from ZtUWeakReferenceTarget) that reads null once the T is gone.
// Not thread-safe: a target and its references are used by one thread at a time.
template <class T>
class ZtUWeakReference : public ZtUWeakReferenceBase {
public:
    ZtUWeakReference() noexcept = default;
    explicit ZtUWeakReference(T* target) : ZtUWeakReferenceBase(target) {}
    ZtUWeakReference& operator=(T* target) {
        Attach(target);
        return *this;
    }
    T* Get() const noexcept { return static_cast<T*>(GetTarget()); }
    T* operator->() const noexcept { return Get(); }
    explicit operator bool() const noexcept { return Get() != nullptr; }
};

#endif
