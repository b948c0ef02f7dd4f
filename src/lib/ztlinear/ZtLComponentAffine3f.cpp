#include <ztlinear/ZtLComponentAffine3f.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLTransform3f.h>
#include <ztutil/ZtUChecksum.h>

#include <cstdint>

namespace {

// The checksum of n doubles.
unsigned int Checksum(const double* values, int n) noexcept {
    ZtUChecksum sum;
    for (int i = 0; i < n; ++i) sum.AddFloat(values[i]);
    return sum.End();
}

// 1 / s, or 0 for a zero scale factor: the pseudo-inverse of a diagonal scale.
double InverseScale(double s) noexcept { return s == 0.0 ? 0.0 : 1.0 / s; }

bool Same(const ZtLVec3f& a, const ZtLVec3f& b) noexcept {
    return a[0] == b[0] && a[1] == b[1] && a[2] == b[2];
}

}  // namespace

void ZtLComponentAffine3f::MakeIdentity() noexcept {
    m_scale = ZtLVec3f(1.0, 1.0, 1.0);
    m_scaleOrientation.MakeIdentity();
    m_rotation.MakeIdentity();
    m_center = ZtLVec3f(0.0, 0.0, 0.0);
    m_translation = ZtLVec3f(0.0, 0.0, 0.0);
}

void ZtLComponentAffine3f::Combine(ZtLTransform3f* t) const noexcept {
    ZtLTransform3f x;
    x.TranslateRight(m_center.Negated());
    x.RotateRight(m_scaleOrientation.Inverse());
    x.ScaleRight(m_scale);
    x.RotateRight(m_scaleOrientation);
    x.RotateRight(m_rotation);
    x.TranslateRight(m_center);
    x.TranslateRight(m_translation);
    *t = x;
}

ZtLTransform3f ZtLComponentAffine3f::Combine() const noexcept {
    ZtLTransform3f t;
    Combine(&t);
    return t;
}

void ZtLComponentAffine3f::ApplyWorldSpaceCenter(const ZtLVec3f& c) noexcept {
    const ZtLVec3f shift = c.Subtract(CalcWorldSpaceCenter());
    if (shift.IsZero()) return;
    // The centre moves by shift . L^-1, L = SO^-1 . S . SO . R the linear part (the rotations
    // taken as unit quaternions, a zero scale factor inverted as 0), so that its image moves by
    // shift.
    ZtLVec3f w =
        shift * ZtLMatrix3f(m_rotation.Inverse()) * ZtLMatrix3f(m_scaleOrientation.Inverse());
    w = ZtLVec3f(w[0] * InverseScale(m_scale[0]), w[1] * InverseScale(m_scale[1]),
                 w[2] * InverseScale(m_scale[2]));
    const ZtLVec3f move = w * ZtLMatrix3f(m_scaleOrientation);
    // The translation is what the combined transform needs beyond the part that the new centre
    // contributes.
    const ZtLVec3f combined = Combine().GetTranslation();
    m_center += move;
    m_translation = ZtLVec3f(0.0, 0.0, 0.0);
    m_translation = combined.Subtract(Combine().GetTranslation());
}

bool ZtLComponentAffine3f::operator==(const ZtLComponentAffine3f& a) const noexcept {
    return Same(m_scale, a.m_scale) && m_scaleOrientation == a.m_scaleOrientation &&
           m_rotation == a.m_rotation && Same(m_center, a.m_center) &&
           Same(m_translation, a.m_translation);
}

unsigned int ZtLComponentAffine3f::CalcHashCode() const noexcept {
    ZtUChecksum sum;
    sum.AddInt32(static_cast<std::int32_t>(Checksum(m_scale.GetValue(), 3)));
    sum.AddInt32(static_cast<std::int32_t>(Checksum(m_scaleOrientation.GetValue(), 4)));
    sum.AddInt32(static_cast<std::int32_t>(Checksum(m_rotation.GetValue(), 4)));
    sum.AddInt32(static_cast<std::int32_t>(Checksum(m_center.GetValue(), 3)));
    sum.AddInt32(static_cast<std::int32_t>(Checksum(m_translation.GetValue(), 3)));
    return sum.End();
}

ZtUWideStringBuffer ZtLComponentAffine3f::ToString() const {
    ZtUWideStringBuffer text;
    text.Format(L"Scale: %ls\nScale orientation: %ls\nRotation: %ls\nCenter: %ls\nTranslation: %ls",
                m_scale.ToString().GetString(), m_scaleOrientation.ToString().GetString(),
                m_rotation.ToString().GetString(), m_center.ToString().GetString(),
                m_translation.ToString().GetString());
    return text;
}
