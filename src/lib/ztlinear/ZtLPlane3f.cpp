#include <ztlinear/ZtLAffine3f.h>
#include <ztlinear/ZtLBox3f.h>
#include <ztlinear/ZtLLine3f.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLMatrix4f.h>
#include <ztlinear/ZtLPlane3f.h>
#include <ztlinear/ZtLTransform3f.h>
#include <ztutil/ZtUXMLDOMStream.h>

#include <cmath>

int ZtLPlane3f::SetValue(const ZtLPos3f& p0, const ZtLPos3f& p1, const ZtLPos3f& p2) noexcept {
    const ZtLVec3f c = (p1 - p0).Cross(p2 - p0);
    const double length = c.Length();
    if (length == 0.0) return 0;
    m_normal.SetUnitValue(c.Multiply(1 / length));
    m_distance = m_normal.Dot(p0.Vec());
    return 1;
}

double ZtLPlane3f::MaxDistanceFromPlane(const ZtLBox3f& b) const noexcept {
    double sum = 0.0;
    for (int i = 0; i < 3; ++i) {
        const double coord = m_normal[i] > 0 ? b.GetMax()[i] : b.GetMin()[i];
        sum = i == 0 ? m_normal[i] * coord : sum + m_normal[i] * coord;
    }
    return sum - m_distance;
}

double ZtLPlane3f::MinDistanceFromPlane(const ZtLBox3f& b) const noexcept {
    double sum = 0.0;
    for (int i = 0; i < 3; ++i) {
        const double coord = m_normal[i] > 0 ? b.GetMin()[i] : b.GetMax()[i];
        sum = i == 0 ? m_normal[i] * coord : sum + m_normal[i] * coord;
    }
    return sum - m_distance;
}

ZtLPlane3f ZtLPlane3f::RotatedBy(const ZtLMatrix3f& m) noexcept {
    const ZtLPos3f q = m_normal.Multiply(m_distance).Pos();
    ZtLPlane3f r;
    r.m_normal.SetAndNormalize(m_normal.Vec() * m);
    r.m_distance = r.m_normal.Dot((q * m).Vec());
    return r;
}

ZtLPlane3f ZtLPlane3f::TransformedBy(const ZtLMatrix3f& m) const noexcept {
    return TransformedByInverse(m.Inverse());
}

ZtLPlane3f ZtLPlane3f::TransformedByInverse(const ZtLMatrix3f& m) const noexcept {
    const ZtLVec3f n = m * m_normal.Vec();
    const double s = 1 / std::sqrt(n.Dot(n));
    ZtLPlane3f r;
    r.m_normal.SetUnitValue(s * n);
    r.m_distance = s * m_distance;
    return r;
}

ZtLPlane3f ZtLPlane3f::InverseAffine(const ZtLMatrix3f& linear, const ZtLVec3f& t) const noexcept {
    const ZtLVec3f n = linear * m_normal.Vec();
    const double e = m_normal.Dot(t) - m_distance;
    const double s = 1 / n.Length();
    ZtLPlane3f r;
    r.m_normal.SetUnitValue(s * n);
    r.m_distance = -s * e;
    return r;
}

ZtLPlane3f ZtLPlane3f::TransformedBy(const ZtLAffine3f& a) const noexcept {
    return TransformedByInverse(a.Inverse());
}

ZtLPlane3f ZtLPlane3f::TransformedByInverse(const ZtLAffine3f& a) const noexcept {
    return InverseAffine(a.GetLinear(), a.GetTranslation());
}

ZtLPlane3f ZtLPlane3f::TransformedBy(const ZtLMatrix4f& m) const noexcept {
    return TransformedByInverse(m.Inverse());
}

ZtLPlane3f ZtLPlane3f::TransformedByInverse(const ZtLMatrix4f& m) const noexcept {
    const double h[4] = {m_normal[0], m_normal[1], m_normal[2], -m_distance};
    double g[4];
    for (int i = 0; i < 4; ++i)
        g[i] = m[i][0] * h[0] + m[i][1] * h[1] + m[i][2] * h[2] + m[i][3] * h[3];
    const double s = 1 / std::sqrt(g[0] * g[0] + g[1] * g[1] + g[2] * g[2]);
    ZtLPlane3f r;
    r.m_normal.SetUnitValue(s * g[0], s * g[1], s * g[2]);
    r.m_distance = -s * g[3];
    return r;
}

ZtLPlane3f ZtLPlane3f::TransformedBy(const ZtLTransform3f& x) const noexcept {
    return TransformedByInverse(x.Inverse());
}

ZtLPlane3f ZtLPlane3f::TransformedByInverse(const ZtLTransform3f& x) const noexcept {
    const std::uint32_t traits = x.GetTraits();
    if (traits == 0) return *this;
    if (traits & ZtLTransform3f::TraitProjective) return TransformedByInverse(x.MatrixDirect());
    if (traits < 8) return TransformedByInverse(x.AffineLinearDirect());
    if (traits == ZtLTransform3f::TraitTranslation) return TranslatedBy(-x.AffineTransDirect());
    return TransformedByInverse(x.GetAffine());
}

int ZtLPlane3f::Equals(const ZtLPlane3f& p, double tn, double td) const noexcept {
    return tn >= 1 - m_normal.Dot(p.m_normal.Vec()) && std::fabs(m_distance - p.m_distance) < td;
}

bool ZtLPlane3f::Intersect(const ZtLPlane3f& o, ZtLLine3f* line) const noexcept {
    ZtLUnitVec3f n1;
    ZtLUnitVec3f n2;
    n1.SetAndNormalize(m_normal.Vec());
    n2.SetAndNormalize(o.m_normal.Vec());
    // Only normals pointing the same way are rejected; opposite ones run on into D = 0.
    if (ZtLVec::m_resnor >= 1 - n1.Dot(n2)) return false;
    const ZtLVec3f u = n1.Cross(n2);
    const double c = n1.Dot(n2);
    const double s = n2.Dot(n2);
    const double d = c * c - s * n1.Dot(n1);
    const double d1 = m_distance;
    const double d2 = o.m_distance;
    const ZtLVec3f q = n1.Multiply((c * d2 - s * d1) / d) + n2.Multiply((c * d1 - s * d2) / d);
    ZtLUnitVec3f direction;
    direction.SetAndNormalize(u);
    line->SetNormalizedValue((q - direction.Multiply(direction.Dot(q))).Pos(), direction.Vec());
    return true;
}

void ZtLPlane3f::SerialiseXML(ZtUXMLDOMStream* s) {
    ZtLPlane3f copy(*this);
    s->OpenElement(L"plane", 0);
    s->SerialiseFloat(L"distance", &copy.m_distance);
    s->OpenElement(L"vec3f", 0);
    s->SerialiseFloat(L"x", &copy.m_normal.EditUnitValue()[0]);
    s->SerialiseFloat(L"y", &copy.m_normal.EditUnitValue()[1]);
    s->SerialiseFloat(L"z", &copy.m_normal.EditUnitValue()[2]);
    s->CloseElement(L"vec3f");
    s->CloseElement(L"plane");
    if (s->IsReading() && !s->HasError()) *this = copy;
}

int ZtLPlane3f::IsPointInTriangle(const ZtLPos3f& p, const ZtLPos3f& p0, const ZtLPos3f& p1,
                                  const ZtLPos3f& p2, ZtLVec3f* w) noexcept {
    ZtLUnitVec3f n;
    if (n.SetAndNormalize((p1 - p0).Cross(p2 - p0)) < ZtLVec::m_resop) return 0;
    return IsPointInTriangle(p, n, p0, p1, p2, w);
}

int ZtLPlane3f::IsPointInTriangle(const ZtLPos3f& p, const ZtLUnitVec3f& n, const ZtLPos3f& p0,
                                  const ZtLPos3f& p1, const ZtLPos3f& p2, ZtLVec3f* w) noexcept {
    // Work in the coordinate plane that drops the dominant axis of the normal.
    const double ax = std::fabs(n[0]);
    const double ay = std::fabs(n[1]);
    const double az = std::fabs(n[2]);
    int ia;
    int ib;
    if (ax > ay && ax > az) {
        ia = 2;
        ib = 1;
    } else if (ay > az) {
        ia = 0;
        ib = 2;
    } else {
        ia = 1;
        ib = 0;
    }
    const ZtLVec3f e1 = p1 - p0;
    const ZtLVec3f e2 = p2 - p0;
    const ZtLVec3f d = p - p0;
    const double den = e2[ia] * e1[ib] - e1[ia] * e2[ib];
    if (den == 0.0) return 0;
    const double beta = (e1[ib] * d[ia] - e1[ia] * d[ib]) / den;
    if (!(beta >= 0.0 && beta <= 1.0)) return 0;
    double alpha;
    if (std::fabs(e1[ia]) > ZtLVec::m_resop) {
        alpha = (d[ia] - e2[ia] * beta) / e1[ia];
    } else {
        if (e1[ib] == 0.0) return 0;
        alpha = (d[ib] - e2[ib] * beta) / e1[ib];
    }
    if (!(alpha >= 0.0 && alpha + beta <= 1.0)) return 0;
    if (w) *w = ZtLVec3f(1 - alpha - beta, alpha, beta);
    return 1;
}
