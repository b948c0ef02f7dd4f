#include <ztlinear/ZtLAffine3f.h>
#include <ztlinear/ZtLBox3f.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLMatrix4f.h>
#include <ztlinear/ZtLTransform3f.h>
#include <ztutil/ZtUXMLDOMStream.h>

void ZtLBox3f::GetCorners(ZtLPos3f corners[8]) const noexcept {
    const double z[2] = {m_min[2], m_max[2]};
    for (int k = 0; k < 2; ++k) {
        corners[4 * k + 0] = ZtLPos3f(m_min[0], m_min[1], z[k]);
        corners[4 * k + 1] = ZtLPos3f(m_min[0], m_max[1], z[k]);
        corners[4 * k + 2] = ZtLPos3f(m_max[0], m_max[1], z[k]);
        corners[4 * k + 3] = ZtLPos3f(m_max[0], m_min[1], z[k]);
    }
}

ZtLBox3f ZtLBox3f::Intersection(const ZtLBox3f& b) const noexcept {
    ZtLBox3f r;
    if (Intersects(b)) {
        for (int i = 0; i < 3; ++i) {
            r.m_min[i] = m_min[i] > b.m_min[i] ? m_min[i] : b.m_min[i];
            r.m_max[i] = m_max[i] < b.m_max[i] ? m_max[i] : b.m_max[i];
        }
    }
    // Emptiness looks at x only; a box reversed on y or z yields nothing.
    if (m_min[1] <= m_max[1] && m_min[2] <= m_max[2]) return r;
    return ZtLBox3f();
}

void ZtLBox3f::ExtendBy(const ZtLBox3f& b) noexcept {
    if (b.GetIsEmpty()) return;
    if (GetIsEmpty()) {
        *this = b;
        return;
    }
    for (int i = 0; i < 3; ++i) {
        if (b.m_min[i] < m_min[i]) m_min[i] = b.m_min[i];
        if (b.m_max[i] > m_max[i]) m_max[i] = b.m_max[i];
    }
}

void ZtLBox3f::ExtendBy(const ZtLPos3f& p) noexcept {
    if (GetIsEmpty()) {
        SetValue(p);
        return;
    }
    for (int i = 0; i < 3; ++i) {
        // Negated tests: a NaN coordinate fails ">=" and so replaces min.
        if (!(p[i] >= m_min[i])) {
            m_min[i] = p[i];
        } else if (!(p[i] <= m_max[i])) {
            m_max[i] = p[i];
        }
    }
}

ZtLBox3f ZtLBox3f::Affine(const ZtLMatrix3f& linear, const ZtLVec3f& t) const noexcept {
    if (GetIsEmpty()) return *this;
    // Row i of the matrix scaled by min_i and by max_i gives the terms a and b of every output
    // axis; the new min gains b > a ? a : b, the new max b > a ? b : a, input axes in order. Taken
    // a row at a time the choices compile to min/max instructions instead of a branch on the sign
    // of each entry, which no predictor can follow.
    double lo[3] = {t[0], t[1], t[2]};
    double hi[3] = {t[0], t[1], t[2]};
    for (int i = 0; i < 3; ++i) {
        double a[3], b[3];
        for (int j = 0; j < 3; ++j) {
            a[j] = m_min[i] * linear[i][j];
            b[j] = m_max[i] * linear[i][j];
        }
        for (int j = 0; j < 3; ++j) lo[j] += a[j] < b[j] ? a[j] : b[j];
        for (int j = 0; j < 3; ++j) hi[j] += b[j] > a[j] ? b[j] : a[j];
    }
    return ZtLBox3f(ZtLPos3f(lo[0], lo[1], lo[2]), ZtLPos3f(hi[0], hi[1], hi[2]));
}

ZtLBox3f ZtLBox3f::TransformedBy(const ZtLMatrix3f& m) const noexcept {
    return Affine(m, ZtLVec3f(0.0, 0.0, 0.0));
}

ZtLBox3f ZtLBox3f::TransformedBy(const ZtLAffine3f& a) const noexcept {
    return Affine(a.GetLinear(), a.GetTranslation());
}

ZtLBox3f ZtLBox3f::TransformedBy(const ZtLMatrix4f& m) const noexcept {
    if (GetIsEmpty()) return *this;
    if (m.IsAffine()) return Affine(m.GetLinear(), m.GetTranslation());
    ZtLPos3f corners[8];
    GetCorners(corners);
    ZtLBox3f r;
    r.SetValue(corners[0] * m);
    for (int k = 1; k < 8; ++k) r.ExtendBy(corners[k] * m);
    return r;
}

ZtLBox3f ZtLBox3f::TransformedBy(const ZtLTransform3f& x) const noexcept {
    const std::uint32_t traits = x.GetTraits();
    if (GetIsEmpty() || traits == 0) return *this;
    if (traits & ZtLTransform3f::TraitProjective) return TransformedBy(x.MatrixDirect());
    if (traits == ZtLTransform3f::TraitTranslation) return TranslatedBy(x.AffineTransDirect());
    if (traits > 7) return TransformedBy(x.GetAffine());
    return TransformedBy(x.AffineLinearDirect());
}

void ZtLBox3f::SerialiseXML(ZtUXMLDOMStream* s) {
    static const wchar_t* const kNames[3] = {L"x", L"y", L"z"};
    static const wchar_t* const kCorners[2] = {L"min", L"max"};
    ZtLBox3f copy(*this);
    ZtLPos3f* corners[2] = {&copy.m_min, &copy.m_max};
    s->OpenElement(L"box3f", 0);
    for (int k = 0; k < 2; ++k) {
        s->OpenElement(kCorners[k], 0);
        s->OpenElement(L"pos3f", 0);
        for (int i = 0; i < 3; ++i) s->SerialiseFloat(kNames[i], &corners[k]->EditValue()[i]);
        s->CloseElement(L"pos3f");
        s->CloseElement(kCorners[k]);
    }
    s->CloseElement(L"box3f");
    if (s->IsReading() && !s->HasError()) *this = copy;
}
