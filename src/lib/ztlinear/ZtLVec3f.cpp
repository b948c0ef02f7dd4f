#include <ztlinear/ZtLVec3f.h>

#include <ztutil/ZtUChecksum.h>

#include <ztlinear_detail/ZtLOptionSupport.h>
#include <ztlinear_detail/ZtLRecordSupport.h>

#include <cmath>

namespace {
// Beyond this cosine (45 degrees) acos loses precision and the angle is taken from the sine.
constexpr double kCos45 = 0.70710678118655;
constexpr double kPi = 3.141592653589793;

const ztl_detail::OptionValue kLinear = ztl_detail::OptionValue::Linear;
}  // namespace

unsigned int ZtLBaseVec3f::CalcHashCode() const noexcept {
    ZtUChecksum checksum;
    checksum.AddFloat(m_v[0]);
    checksum.AddFloat(m_v[1]);
    checksum.AddFloat(m_v[2]);
    return checksum.End();
}

ZtUWideStringBuffer ZtLBaseVec3f::ToString() const {
    ZtUWideStringBuffer text;
    text.Format(L"(%.16f, %.16f, %.16f)", m_v[0], m_v[1], m_v[2]);
    return text;
}

bool ZtLVec3f::DirEquals(const ZtLVec3f& v, double tol) const noexcept {
    return ZtLUnitVec3f::Equals(ZtLUnitVec3f(*this), ZtLUnitVec3f(v), tol);
}

bool ZtLVec3f::DirEquals(const ZtLUnitVec3f& u, double tol) const noexcept {
    return ZtLUnitVec3f::Equals(ZtLUnitVec3f(*this), u, tol);
}

double ZtLVec3f::Angle(const ZtLVec3f& v) const noexcept {
    return ZtLUnitVec3f(*this).Angle(ZtLUnitVec3f(v));
}

double ZtLVec3f::AngleWithRef(const ZtLVec3f& v, const ZtLVec3f& ref) const noexcept {
    return ZtLUnitVec3f(*this).AngleWithRef(ZtLUnitVec3f(v), ZtLUnitVec3f(ref));
}

double ZtLUnitVec3f::Angle(const ZtLUnitVec3f& u) const noexcept {
    double d = Dot(u);
    if (d < -1.0) d = -1.0;
    if (d > 1.0) d = 1.0;
    return std::acos(d);
}

double ZtLUnitVec3f::AngleWithRef(const ZtLUnitVec3f& u, const ZtLUnitVec3f& ref) const noexcept {
    const ZtLVec3f c = Cross(u);
    const double d = Dot(u);
    double a;
    if (d <= -kCos45 || d >= kCos45) {
        a = std::asin(c.Length());
        if (d < 0.0) a = kPi - a;
    } else {
        a = std::acos(d);
    }
    if (ref.Dot(c) < 0.0) a = -a;
    return a;
}

void ZtLBaseVec3f::SerialiseXMLInner(ZtUXMLDOMStream* s) {
    ztl_detail::SerialiseDoubles(s, nullptr, ztl_detail::kXYZNames, m_v, 3);
}

void ZtLVec3f::SerialiseXML(ZtUXMLDOMStream* s) {
    ztl_detail::SerialiseDoubles(s, L"vec3f", ztl_detail::kXYZNames, m_v, 3);
}

void ZtLUnitVec3f::SerialiseXML(ZtUXMLDOMStream* s) {
    ztl_detail::SerialiseDoubles(s, L"vec3f", ztl_detail::kXYZNames, m_v, 3);
}

void ZtLPos3f::SerialiseXML(ZtUXMLDOMStream* s) {
    ztl_detail::SerialiseDoubles(s, L"pos3f", ztl_detail::kXYZNames, m_v, 3);
}

ZtLPos3f::ZtLPos3f(const ZtUData& d) noexcept {
    if (d.IsPoint3D()) SetValue(d.GetPoint3D());
}

ZtUData ZtLPos3f::ToData() const { return ZtUData(m_v[0], m_v[1], m_v[2]); }

ZtUOptionSet* ZtLPos3f::DefinePoint3DOption(ZtUExOptionSet* parent, const char* name,
                                            const ZtLPos3f& def, ZtUOptionSet::Profile profile,
                                            unsigned int flags, ZtUOptionValidator* validator) {
    return ztl_detail::DefineStructuredOption(parent, name, "point3d", kLinear,
                                              ztl_detail::kXYZOptionNames, def.m_v, 3, profile,
                                              flags, validator);
}

ZtUOptionSet* ZtLPos3f::DefinePoint3DOption(const char* name, const ZtLPos3f& def,
                                            ZtUOptionSet::Profile profile, unsigned int flags,
                                            ZtUOptionValidator* validator) {
    return DefinePoint3DOption(nullptr, name, def, profile, flags, validator);
}

ZtLPos3f ZtLPos3f::GetPoint3DOption(ZtUOptionSet* set, const char* name) {
    ZtLPos3f p;
    ztl_detail::GetStructuredOption(set->GetSubOptions(name), kLinear, ztl_detail::kXYZOptionNames,
                                    p.m_v, 3);
    return p;
}

ZtLPos3f ZtLPos3f::GetPoint3DOption(const char* name) {
    ZtUOptionLock lock;
    ZtLPos3f p;
    ztl_detail::GetStructuredOption(ZtUOption::GetSet(name, lock), kLinear,
                                    ztl_detail::kXYZOptionNames, p.m_v, 3);
    return p;
}

void ZtLPos3f::SetPoint3DOption(ZtUOptionSet* set, const char* name, const ZtLPos3f& p) {
    ztl_detail::SetStructuredOption(set->GetSubOptions(name), kLinear, ztl_detail::kXYZOptionNames,
                                    p.m_v, 3);
}

void ZtLPos3f::SetPoint3DOption(const char* name, const ZtLPos3f& p) {
    ZtUOptionLock lock;
    ztl_detail::SetStructuredOption(ZtUOption::GetSet(name, lock), kLinear,
                                    ztl_detail::kXYZOptionNames, p.m_v, 3);
}
