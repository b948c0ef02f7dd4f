#include <ztlinear/ZtLBox2f.h>

ZtLBox2f ZtLBox2f::Intersection(const ZtLBox2f& b) const noexcept {
    ZtLBox2f r;
    if (Intersects(b)) {
        for (int i = 0; i < 2; ++i) {
            r.m_min.Set(i, m_min[i] > b.m_min[i] ? m_min[i] : b.m_min[i]);
            r.m_max.Set(i, m_max[i] < b.m_max[i] ? m_max[i] : b.m_max[i]);
        }
    }
    // Emptiness looks at x only; a box reversed on y yields nothing.
    if (m_min[1] <= m_max[1]) return r;
    return ZtLBox2f();
}

void ZtLBox2f::ExtendBy(const ZtLBox2f& b) noexcept {
    if (b.GetIsEmpty()) return;
    if (GetIsEmpty()) {
        *this = b;
        return;
    }
    for (int i = 0; i < 2; ++i) {
        if (b.m_min[i] < m_min[i]) m_min.Set(i, b.m_min[i]);
        if (b.m_max[i] > m_max[i]) m_max.Set(i, b.m_max[i]);
    }
}

void ZtLBox2f::ExtendBy(const ZtLPos2f& p) noexcept {
    if (GetIsEmpty()) {
        SetValue(p);
        return;
    }
    for (int i = 0; i < 2; ++i) {
        // Negated tests: a NaN coordinate fails ">=" and so replaces min.
        if (!(p[i] >= m_min[i])) {
            m_min.Set(i, p[i]);
        } else if (!(p[i] <= m_max[i])) {
            m_max.Set(i, p[i]);
        }
    }
}
