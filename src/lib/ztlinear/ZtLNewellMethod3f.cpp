#include <ztlinear/ZtLNewellMethod3f.h>

int ZtLNewellMethod3f::AddPoints(ZtLPos3f* const pts, int n) noexcept {
    if (n < 1) return 0;
    for (int i = 0; i < n; ++i) AddPoint(pts[i]);
    return m_count;
}

ZtLPlane3f ZtLNewellMethod3f::ComputePlane() const noexcept {
    if (m_count < 3) return ZtLPlane3f(ZtLUnitVec3f(ZtLVec3f::Z()), 0.0);
    ZtLUnitVec3f normal;
    normal.SetAndNormalize(m_sum);
    return ZtLPlane3f(normal, normal.Dot(m_first.Vec()));
}

double ZtLNewellMethod3f::ComputeArea() const noexcept {
    if (m_count <= 2) return 0.0;
    return 0.5 * m_sum.Length();
}
