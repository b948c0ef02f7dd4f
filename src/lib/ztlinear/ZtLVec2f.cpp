#include <ztlinear/ZtLVec2f.h>

#include <ztutil/ZtUChecksum.h>

#include <cmath>

unsigned int ZtLBaseVec2f::CalcHashCode() const noexcept {
    ZtUChecksum checksum;
    checksum.AddFloat(m_v[0]);
    checksum.AddFloat(m_v[1]);
    return checksum.End();
}

ZtUWideStringBuffer ZtLBaseVec2f::ToString() const {
    ZtUWideStringBuffer text;
    text.Format(L"(%.16f, %.16f)", m_v[0], m_v[1]);
    return text;
}

bool ZtLVec2f::DirEquals(const ZtLVec2f& v, double tol) const noexcept {
    return ZtLUnitVec2f::Equals(ZtLUnitVec2f(*this), ZtLUnitVec2f(v), tol);
}

bool ZtLVec2f::DirEquals(const ZtLUnitVec2f& u, double tol) const noexcept {
    return ZtLUnitVec2f::Equals(ZtLUnitVec2f(*this), u, tol);
}

double ZtLVec2f::Angle(const ZtLVec2f& v) const noexcept {
    return ZtLUnitVec2f(*this).Angle(ZtLUnitVec2f(v));
}

double ZtLVec2f::AngleWithRef(const ZtLVec2f& v, const ZtLVec2f& ref) const noexcept {
    const double a = ZtLUnitVec2f(*this).Angle(ZtLUnitVec2f(v));
    return ref.Dot(v) < 0.0 ? -a : a;
}

double ZtLUnitVec2f::Angle(const ZtLUnitVec2f& u) const noexcept {
    double d = Dot(u);
    if (d < -1.0) d = -1.0;
    if (d > 1.0) d = 1.0;
    return std::acos(d);
}

double ZtLUnitVec2f::AngleWithRef(const ZtLUnitVec2f& u, const ZtLUnitVec2f& ref) const noexcept {
    const double a = Angle(u);
    return ref.Dot(u) >= 0.0 ? a : -a;
}
