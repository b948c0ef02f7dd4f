#include <ztutil/ZtUWeakReference.h>

// Shared between a target and its references; freed when the last of them lets go.
struct ZtUWeakReferenceTarget::Link {
    ZtUWeakReferenceTarget* target;
    int users;  // the target (while alive) plus each attached reference
};

ZtUWeakReferenceTarget::~ZtUWeakReferenceTarget() {
    if (!m_link) return;
    m_link->target = nullptr;
    if (--m_link->users == 0) delete m_link;
}

ZtUWeakReferenceBase::ZtUWeakReferenceBase(ZtUWeakReferenceTarget* target) { Attach(target); }

ZtUWeakReferenceBase::ZtUWeakReferenceBase(const ZtUWeakReferenceBase& other) noexcept
    : m_link(other.m_link) {
    if (m_link) ++m_link->users;
}

ZtUWeakReferenceBase& ZtUWeakReferenceBase::operator=(const ZtUWeakReferenceBase& other) noexcept {
    if (m_link != other.m_link) {
        Detach();
        m_link = other.m_link;
        if (m_link) ++m_link->users;
    }
    return *this;
}

ZtUWeakReferenceBase::~ZtUWeakReferenceBase() { Detach(); }

ZtUWeakReferenceTarget* ZtUWeakReferenceBase::GetTarget() const noexcept {
    return m_link ? m_link->target : nullptr;
}

void ZtUWeakReferenceBase::Attach(ZtUWeakReferenceTarget* target) {
    Detach();
    if (!target) return;
    if (!target->m_link) target->m_link = new ZtUWeakReferenceTarget::Link{target, 1};
    m_link = target->m_link;
    ++m_link->users;
}

void ZtUWeakReferenceBase::Detach() noexcept {
    if (m_link && --m_link->users == 0) delete m_link;
    m_link = nullptr;
}
