#include <ztlinear/ZtLAffine2f.h>
#include <ztlinear/ZtLBox2f.h>
#include <ztlinear/ZtLMatrix2f.h>

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

ZtLBox2f ZtLBox2f::Affine(const ZtLMatrix2f& linear, const ZtLVec2f& t) const noexcept {
    if (GetIsEmpty()) return *this;
    double lo[2] = {t[0], t[1]};
    double hi[2] = {t[0], t[1]};
    for (int j = 0; j < 2; ++j) {
        for (int i = 0; i < 2; ++i) {
            const double a = m_min[i] * linear[i][j];
            const double b = m_max[i] * linear[i][j];
            if (b > a) {
                lo[j] += a;
                hi[j] += b;
            } else {
                lo[j] += b;
                hi[j] += a;
            }
        }
    }
    return ZtLBox2f(ZtLPos2f(lo[0], lo[1]), ZtLPos2f(hi[0], hi[1]));
}

ZtLBox2f ZtLBox2f::TransformedBy(const ZtLMatrix2f& m) const noexcept {
    return Affine(m, ZtLVec2f(0.0, 0.0));
}

ZtLBox2f ZtLBox2f::TransformedBy(const ZtLAffine2f& a) const noexcept {
    return Affine(a.GetLinear(), a.GetTranslation());
}
