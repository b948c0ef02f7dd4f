#include <ztlinear/ZtLAffine2f.h>
#include <ztlinear/ZtLBox2f.h>
#include <ztlinear/ZtLMatrix2f.h>
#include <ztlinear/ZtLPlane2f.h>

#include <cmath>

double ZtLPlane2f::MaxDistanceFromPlane(const ZtLBox2f& b) const noexcept {
    const double x = m_normal[0] > 0 ? b.GetMax()[0] : b.GetMin()[0];
    const double y = m_normal[1] > 0 ? b.GetMax()[1] : b.GetMin()[1];
    return m_normal[0] * x + m_normal[1] * y - m_distance;
}

double ZtLPlane2f::MinDistanceFromPlane(const ZtLBox2f& b) const noexcept {
    const double x = m_normal[0] > 0 ? b.GetMin()[0] : b.GetMax()[0];
    const double y = m_normal[1] > 0 ? b.GetMin()[1] : b.GetMax()[1];
    return m_normal[0] * x + m_normal[1] * y - m_distance;
}

ZtLPlane2f ZtLPlane2f::RotatedBy(const ZtLMatrix2f& m) noexcept {
    const ZtLPos2f q = (m_normal.Vec() * m_distance).Pos();
    const ZtLVec2f n = m_normal.Vec() * m;
    ZtLPlane2f r;
    r.m_normal.SetAndNormalize(n[0], n[1]);
    r.m_distance = r.m_normal.Dot((q * m).Vec());
    return r;
}

ZtLPlane2f ZtLPlane2f::TransformedBy(const ZtLMatrix2f& m) const noexcept {
    return TransformedByInverse(m.Inverse());
}

ZtLPlane2f ZtLPlane2f::TransformedByInverse(const ZtLMatrix2f& m) const noexcept {
    const ZtLVec2f n = m * m_normal.Vec();
    const double s = 1 / std::sqrt(n.Dot(n));
    ZtLPlane2f r;
    r.m_normal.SetUnitValue(s * n[0], s * n[1]);
    r.m_distance = s * m_distance;
    return r;
}

ZtLPlane2f ZtLPlane2f::TransformedBy(const ZtLAffine2f& a) const noexcept {
    return TransformedByInverse(a.Inverse());
}

ZtLPlane2f ZtLPlane2f::TransformedByInverse(const ZtLAffine2f& a) const noexcept {
    const ZtLVec2f n = a.GetLinear() * m_normal.Vec();
    const double e = m_normal.Dot(a.GetTranslation()) - m_distance;
    const double s = 1 / n.Length();
    ZtLPlane2f r;
    r.m_normal.SetUnitValue(s * n[0], s * n[1]);
    r.m_distance = -s * e;
    return r;
}
