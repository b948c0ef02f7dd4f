#include <ztlinear/ZtLVec2f.h>

#include <ztutil/ZtUChecksum.h>

#include <ztlinear_detail/ZtLOptionSupport.h>
#include <ztlinear_detail/ZtLRecordSupport.h>

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

namespace {
const ztl_detail::OptionValue kLinear = ztl_detail::OptionValue::Linear;
}  // namespace

void ZtLBaseVec2f::SerialiseXMLInner(ZtUXMLDOMStream* s) {
    ztl_detail::SerialiseDoubles(s, nullptr, ztl_detail::kXYZNames, m_v, 2);
}

void ZtLVec2f::SerialiseXML(ZtUXMLDOMStream* s) {
    ztl_detail::SerialiseDoubles(s, L"vec2f", ztl_detail::kXYZNames, m_v, 2);
}

void ZtLPos2f::SerialiseXML(ZtUXMLDOMStream* s) {
    ztl_detail::SerialiseDoubles(s, L"pos2f", ztl_detail::kXYZNames, m_v, 2);
}

ZtLPos2f::ZtLPos2f(const ZtUData& d) noexcept {
    if (d.IsPoint2D()) SetValue(d.GetPoint2D());
}

ZtUData ZtLPos2f::ToData() const { return ZtUData(m_v[0], m_v[1]); }

ZtUOptionSet* ZtLPos2f::DefinePoint2DOption(ZtUExOptionSet* parent, const char* name,
                                            const ZtLPos2f& def, ZtUOptionSet::Profile profile,
                                            unsigned int flags, ZtUOptionValidator* validator) {
    return ztl_detail::DefineStructuredOption(parent, name, "point2d", kLinear,
                                              ztl_detail::kXYZOptionNames, def.m_v, 2, profile,
                                              flags, validator);
}

ZtUOptionSet* ZtLPos2f::DefinePoint2DOption(const char* name, const ZtLPos2f& def,
                                            ZtUOptionSet::Profile profile, unsigned int flags,
                                            ZtUOptionValidator* validator) {
    return DefinePoint2DOption(nullptr, name, def, profile, flags, validator);
}

ZtLPos2f ZtLPos2f::GetPoint2DOption(ZtUOptionSet* set, const char* name) {
    ZtLPos2f p;
    ztl_detail::GetStructuredOption(set->GetSubOptions(name), kLinear, ztl_detail::kXYZOptionNames,
                                    p.m_v, 2);
    return p;
}

ZtLPos2f ZtLPos2f::GetPoint2DOption(const char* name) {
    ZtUOptionLock lock;
    ZtLPos2f p;
    ztl_detail::GetStructuredOption(ZtUOption::GetSet(name, lock), kLinear,
                                    ztl_detail::kXYZOptionNames, p.m_v, 2);
    return p;
}

void ZtLPos2f::SetPoint2DOption(ZtUOptionSet* set, const char* name, const ZtLPos2f& p) {
    ztl_detail::SetStructuredOption(set->GetSubOptions(name), kLinear, ztl_detail::kXYZOptionNames,
                                    p.m_v, 2);
}

void ZtLPos2f::SetPoint2DOption(const char* name, const ZtLPos2f& p) {
    ZtUOptionLock lock;
    ztl_detail::SetStructuredOption(ZtUOption::GetSet(name, lock), kLinear,
                                    ztl_detail::kXYZOptionNames, p.m_v, 2);
}
