#ifndef ZTLINEAR_ZTLCOMPONENTAFFINE3F_H
#define ZTLINEAR_ZTLCOMPONENTAFFINE3F_H

// ZtLComponentAffine3f: an affine transform kept as the components a user edits: a scale S
// acting in the frame of the scale orientation SO, a rotation R, a centre C about which scale
// and rotation act, and a translation T.
//
// With the library's row-vector convention a point p maps to
//     ((p - C) . SO^-1 . S . SO . R) + C + T,
// which Combine builds as a ZtLTransform3f; ZtLTransform3f::Factor makes the components back
// from a transform. The world-space centre, the image of C, is C + T.
//
// The object can be the target of weak references (ZtUWeakReferenceTarget); copies start
// without references. The default constructor leaves the five components unset: call
// MakeIdentity or set them.

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztlinear/ZtLVec3f.h>
#include <ztutil/ZtUStringBuffer.h>
#include <ztutil/ZtUWeakReference.h>

class ZtLTransform3f;

class ZTL_EXPORT ZtLComponentAffine3f : public ZtUWeakReferenceTarget {
public:
    // Leaves the components unset.
    ZtLComponentAffine3f() noexcept = default;

    const ZtLVec3f& GetScale() const noexcept { return m_scale; }
    void SetScale(const ZtLVec3f& s) noexcept { m_scale = s; }
    ZtLVec3f& EditScale() noexcept { return m_scale; }
    const ZtLRotation3f& GetScaleOrientation() const noexcept { return m_scaleOrientation; }
    void SetScaleOrientation(const ZtLRotation3f& q) noexcept { m_scaleOrientation = q; }
    ZtLRotation3f& EditScaleOrientation() noexcept { return m_scaleOrientation; }
    const ZtLRotation3f& GetRotation() const noexcept { return m_rotation; }
    void SetRotation(const ZtLRotation3f& q) noexcept { m_rotation = q; }
    ZtLRotation3f& EditRotation() noexcept { return m_rotation; }
    const ZtLVec3f& GetCenter() const noexcept { return m_center; }
    void SetCenter(const ZtLVec3f& c) noexcept { m_center = c; }
    ZtLVec3f& EditCenter() noexcept { return m_center; }
    const ZtLVec3f& GetTranslation() const noexcept { return m_translation; }
    void SetTranslation(const ZtLVec3f& t) noexcept { m_translation = t; }
    ZtLVec3f& EditTranslation() noexcept { return m_translation; }

    // Scale (1, 1, 1), identity rotations, zero centre and translation.
    void MakeIdentity() noexcept;

    // Writes the transform of the components into t: starting from the identity, the right
    // products by -C, SO^-1, S, SO, R, C and T in this order. The traits are those the products
    // accumulate (an identity combines to a transform with traits, equal to the identity).
    void Combine(ZtLTransform3f* t) const noexcept;
    ZtLTransform3f Combine() const noexcept;

    // C + T: where the centre ends up.
    ZtLVec3f CalcWorldSpaceCenter() const noexcept { return m_center.Add(m_translation); }

    // Moves the centre to the point that the combined transform maps onto c and re-derives the
    // translation from the combined transform, so that Combine() stays the same (up to rounding)
    // and CalcWorldSpaceCenter() becomes c. A zero scale factor makes the map singular: the
    // centre then moves only along the axes that keep a scale, and the world-space centre comes
    // as close to c as the transform allows, Combine() still unchanged.
    void ApplyWorldSpaceCenter(const ZtLVec3f& c) noexcept;

    // Exact comparison of the five components (a NaN makes them differ).
    bool operator==(const ZtLComponentAffine3f& a) const noexcept;
    bool operator!=(const ZtLComponentAffine3f& a) const noexcept { return !(*this == a); }

    // A checksum of five inner checksums, one per component in declaration order (scale, scale
    // orientation x, y, z, w, rotation, centre, translation).
    unsigned int CalcHashCode() const noexcept;
    // Five lines "Scale: ", "Scale orientation: ", "Rotation: ", "Center: ", "Translation: "
    // with the vector texts and the Euler-degree texts of the rotations.
    ZtUWideStringBuffer ToString() const;
    ZtUWideStringBuffer ToStringImpl() const { return ToString(); }

private:
    ZtLVec3f m_scale;
    ZtLRotation3f m_scaleOrientation;
    ZtLRotation3f m_rotation;
    ZtLVec3f m_center;
    ZtLVec3f m_translation;
};

#endif
