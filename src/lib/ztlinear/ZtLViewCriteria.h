#ifndef ZTLINEAR_ZTLVIEWCRITERIA_H
#define ZTLINEAR_ZTLVIEWCRITERIA_H

// ZtLViewCriteria: where a view looks from and how: an eye position, a viewing direction, an up
// direction and a projection constant whose meaning (field of view, focal length, scale ...)
// belongs to the application.
//
// It moves with a scene like the other geometric values, under the row-vector convention of the
// library's transforms (a point or vector is multiplied on the left). The eye position maps as a
// point; the two directions map as free vectors (no translation) and are renormalised after each
// motion, so a non-orthonormal matrix still leaves them of unit length. Translate and Scale move
// only the position. No motion changes the projection constant, and nothing checks that the two
// directions are perpendicular.
//
// The copying motions (TranslatedBy, ScaledBy, RotatedBy, TransformedBy) write the moved copy
// through an output pointer and leave the receiver as it is.

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLVec3f.h>

class ZtLAffine3f;
class ZtLMatrix3f;
class ZtLMatrix4f;
class ZtLTransform3f;

class ZTL_EXPORT ZtLViewCriteria {
public:
    // The projection constant 0; position and directions unset.
    ZtLViewCriteria() noexcept : m_projectionConstant(0.0) {}

    void SetValue(const ZtLViewCriteria& v) noexcept { *this = v; }

    const ZtLPos3f& GetPosition() const noexcept { return m_position; }
    void SetPosition(const ZtLPos3f& p) noexcept { m_position = p; }
    const ZtLUnitVec3f& GetViewDir() const noexcept { return m_viewDir; }
    // Stored as given, without normalising.
    void SetViewDir(const ZtLUnitVec3f& d) noexcept { m_viewDir = d; }
    const ZtLUnitVec3f& GetUpVector() const noexcept { return m_upVector; }
    // Stored as given, without normalising.
    void SetUpVector(const ZtLUnitVec3f& u) noexcept { m_upVector = u; }
    double GetProjectionConstant() const noexcept { return m_projectionConstant; }
    void SetProjectionConstant(double c) noexcept { m_projectionConstant = c; }

    // position += v.
    void Translate(const ZtLVec3f& v) noexcept { m_position += v; }
    // position *= s (about the origin); the directions stay, even for a negative s.
    void Scale(double s) noexcept {
        m_position = ZtLPos3f(m_position[0] * s, m_position[1] * s, m_position[2] * s);
    }
    // position . m; each direction (direction . m) renormalised.
    void Rotate(const ZtLMatrix3f& m) noexcept;
    void Transform(const ZtLMatrix3f& m) noexcept { Rotate(m); }
    // position . a as a point; the directions through the linear part only.
    void Transform(const ZtLAffine3f& a) noexcept;
    // position . m as a point (divided by w); the directions through the upper 3x3 block, as a
    // ZtLTransform3f holding m maps free vectors.
    void Transform(const ZtLMatrix4f& m) noexcept;
    // position . t as a point; the directions as free vectors.
    void Transform(const ZtLTransform3f& t) noexcept;

    // Copy this value into *out, then apply the motion there.
    void TranslatedBy(const ZtLVec3f& v, ZtLViewCriteria* out) const noexcept {
        *out = *this;
        out->Translate(v);
    }
    void ScaledBy(double s, ZtLViewCriteria* out) const noexcept {
        *out = *this;
        out->Scale(s);
    }
    void RotatedBy(const ZtLMatrix3f& m, ZtLViewCriteria* out) const noexcept {
        *out = *this;
        out->Rotate(m);
    }
    void TransformedBy(const ZtLMatrix3f& m, ZtLViewCriteria* out) const noexcept {
        *out = *this;
        out->Transform(m);
    }
    void TransformedBy(const ZtLAffine3f& a, ZtLViewCriteria* out) const noexcept {
        *out = *this;
        out->Transform(a);
    }
    void TransformedBy(const ZtLMatrix4f& m, ZtLViewCriteria* out) const noexcept {
        *out = *this;
        out->Transform(m);
    }
    void TransformedBy(const ZtLTransform3f& t, ZtLViewCriteria* out) const noexcept {
        *out = *this;
        out->Transform(t);
    }

private:
    ZtLPos3f m_position;
    ZtLUnitVec3f m_viewDir;
    ZtLUnitVec3f m_upVector;
    double m_projectionConstant;
};

#endif
