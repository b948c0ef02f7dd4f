#include <ztlinear/ZtLAffine3f.h>
#include <ztlinear/ZtLMatrix4f.h>
#include <ztlinear/ZtLRotation3f.h>

ZtLAffine3f& ZtLAffine3f::SetValue(const ZtLMatrix4f& m) noexcept {
    m_linear = m.GetLinear();
    m_translation = m.GetTranslation();
    return *this;
}

ZtLAffine3f& ZtLAffine3f::MakeRotation(const ZtLRotation3f& q) noexcept {
    m_linear.SetValue(q);
    m_translation = ZtLVec3f(0.0, 0.0, 0.0);
    return *this;
}

ZtLAffine3f& ZtLAffine3f::RotateRight(const ZtLRotation3f& q) noexcept {
    return MultRight(ZtLMatrix3f(q));
}

ZtLAffine3f& ZtLAffine3f::RotateLeft(const ZtLRotation3f& q) noexcept {
    return MultLeft(ZtLMatrix3f(q));
}

void ZtLAffine3f::Factor(ZtLVec3f* scale, ZtLRotation3f* scaleOrientation, ZtLRotation3f* rotation,
                         ZtLVec3f* translation) const noexcept {
    m_linear.Factor(scale, scaleOrientation, rotation);
    *translation = m_translation;
}
