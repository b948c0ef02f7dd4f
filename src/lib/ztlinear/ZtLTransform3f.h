#ifndef ZTLINEAR_ZTLTRANSFORM3F_H
#define ZTLINEAR_ZTLTRANSFORM3F_H

// ZtLTransform3f: the general 3D transform: anything from the identity through rotations, scales
// and affine maps to a full projective 4x4 matrix, with a traits word that says which kinds of
// component it holds, so that products, inversion and application skip the absent parts.
//
// Traits bits: 1 rotation, 2 uniform scale (other than 1), 4 general linear, 16 translation,
// 32 projective; 0 is the identity. A linear part set from an arbitrary matrix carries all three
// linear bits (7) until Evaluate proves it simpler. Products OR the traits of their operands,
// except that a projective transform keeps its word for a non-projective operand (its 4x4 storage
// absorbs it); only Evaluate removes bits.
//
// Storage: sixteen doubles seen either as a ZtLMatrix4f (when bit 32 is set) or as a ZtLAffine3f
// (linear 3x3 block, then translation). Only the parts the traits name are meaningful: without a
// linear bit the linear block may be stale, without bit 16 the translation may be. The Direct
// views expose the storage as it is; AffineLinear, AffineTrans and AffineComplete first write the
// identity or zero into an absent part (traits unchanged).
//
// Conventions (shared by every transform of the library): points and vectors are row vectors on
// the left, the translation sits in the last row, and a * b applies a first, then b;
// MultRight(x) appends x after this transform, MultLeft(x) puts it before. Operands of the
// products may be this transform or views of it.

#include <ztlinear/ZtLAffine3f.h>
#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLMatrix4f.h>
#include <ztlinear/ZtLVec3f.h>
#include <ztutil/ZtUStringBuffer.h>

#include <cstdint>
#include <type_traits>

class ZtLComponentAffine3f;
class ZtLRotation3f;
class ZtUReadStream;
class ZtUWriteStream;

class ZTL_EXPORT ZtLTransform3f {
public:
    static constexpr std::uint32_t TraitRotation = 1;
    static constexpr std::uint32_t TraitUniformScale = 2;
    static constexpr std::uint32_t TraitGeneralLinear = 4;
    static constexpr std::uint32_t TraitTranslation = 16;
    static constexpr std::uint32_t TraitProjective = 32;
    static constexpr std::uint32_t TraitsLinear = 7;   // any linear bit
    static constexpr std::uint32_t TraitsAffine = 23;  // every affine bit

    // The identity, with all sixteen doubles zero.
    ZtLTransform3f() noexcept : m_traits(0) {}
    explicit ZtLTransform3f(const ZtLRotation3f& q) noexcept : m_traits(0) { MakeRotation(q); }
    ZtLTransform3f(const ZtLRotation3f& q, const ZtLVec3f& t) noexcept : m_traits(0) {
        SetValue(q, t);
    }
    explicit ZtLTransform3f(const ZtLMatrix3f& m) noexcept : m_traits(0) { MakeLinear(m); }
    ZtLTransform3f(const ZtLMatrix3f& m, const ZtLVec3f& t) noexcept : m_traits(0) {
        MakeAffine(m, t);
    }
    explicit ZtLTransform3f(const ZtLAffine3f& a) noexcept : m_traits(0) { MakeAffine(a); }
    explicit ZtLTransform3f(const ZtLMatrix4f& m) noexcept : m_traits(0) { SetValue(m); }

    ZtLTransform3f& operator=(const ZtLRotation3f& q) noexcept { return MakeRotation(q); }
    ZtLTransform3f& operator=(const ZtLAffine3f& a) noexcept { return MakeAffine(a); }
    ZtLTransform3f& operator=(const ZtLMatrix4f& m) noexcept { return SetValue(m); }

    static ZtLTransform3f CreateIdentity() noexcept { return ZtLTransform3f(); }
    static ZtLTransform3f CreateTranslation(const ZtLVec3f& t) noexcept {
        ZtLTransform3f x;
        x.MakeTranslation(t);
        return x;
    }

    // Setters. Each stores only the parts it names; the others keep whatever they held.
    // Traits 0; the storage is left as it is.
    ZtLTransform3f& MakeIdentity() noexcept {
        m_traits = 0;
        return *this;
    }
    // All sixteen doubles zero; the traits are left as they are.
    ZtLTransform3f& MakeZero() noexcept;
    // Traits 16; the linear block is left as it is.
    ZtLTransform3f& MakeTranslation(const ZtLVec3f& t) noexcept {
        m_traits = TraitTranslation;
        m_value.affine.SetTranslation(t);
        return *this;
    }
    // Traits 1.
    ZtLTransform3f& MakeRotation(const ZtLRotation3f& q) noexcept;
    ZtLTransform3f& SetValue(const ZtLRotation3f& q) noexcept { return MakeRotation(q); }
    // Traits 17.
    ZtLTransform3f& SetValue(const ZtLRotation3f& q, const ZtLVec3f& t) noexcept;
    // Traits 2: diag(s, s, s).
    ZtLTransform3f& MakeUniformScale(double s) noexcept {
        m_traits = TraitUniformScale;
        m_value.affine.EditLinear().MakeUniformScale(s);
        return *this;
    }
    // Traits 7: diag(s).
    ZtLTransform3f& MakeScale(const ZtLVec3f& s) noexcept {
        m_traits = TraitsLinear;
        m_value.affine.EditLinear().MakeScale(s);
        return *this;
    }
    // Traits 7.
    ZtLTransform3f& MakeLinear(const ZtLMatrix3f& m) noexcept {
        m_traits = TraitsLinear;
        m_value.affine.SetLinear(m);
        return *this;
    }
    ZtLTransform3f& SetValue(const ZtLMatrix3f& m) noexcept { return MakeLinear(m); }
    // Traits 23.
    ZtLTransform3f& MakeAffine(const ZtLMatrix3f& m, const ZtLVec3f& t) noexcept {
        m_traits = TraitsAffine;
        m_value.affine = ZtLAffine3f(m, t);
        return *this;
    }
    ZtLTransform3f& SetValue(const ZtLMatrix3f& m, const ZtLVec3f& t) noexcept {
        return MakeAffine(m, t);
    }
    ZtLTransform3f& MakeAffine(const ZtLAffine3f& a) noexcept {
        m_traits = TraitsAffine;
        m_value.affine = a;
        return *this;
    }
    ZtLTransform3f& SetValue(const ZtLAffine3f& a) noexcept { return MakeAffine(a); }
    // Traits 32.
    ZtLTransform3f& SetValue(const ZtLMatrix4f& m) noexcept {
        m_traits = TraitProjective;
        m_value.matrix = m;
        return *this;
    }

    // Traits queries.
    std::uint32_t GetTraits() const noexcept { return m_traits; }
    bool IsIdentity() const noexcept { return m_traits == 0; }
    bool IsRotation() const noexcept { return m_traits == TraitRotation; }
    bool IsUniformScale() const noexcept { return m_traits == TraitUniformScale; }
    bool IsTranslation() const noexcept { return m_traits == TraitTranslation; }
    bool HasTrans() const noexcept { return (m_traits & TraitTranslation) != 0; }
    bool HasProj() const noexcept { return (m_traits & TraitProjective) != 0; }
    bool IsMat4() const noexcept { return (m_traits & TraitProjective) != 0; }
    bool HasLinear() const noexcept { return (m_traits & TraitsLinear) != 0; }
    bool IsLinear() const noexcept { return m_traits < 8; }
    bool IsAffine() const noexcept { return (m_traits & ~TraitsAffine) == 0; }
    // Anything but a pure translation changes free vectors.
    bool IsVecTransformed() const noexcept { return (m_traits & ~TraitTranslation) != 0; }

    // Raw views of the storage, whatever the traits.
    ZtLMatrix4f& MatrixDirect() noexcept { return m_value.matrix; }
    const ZtLMatrix4f& MatrixDirect() const noexcept { return m_value.matrix; }
    ZtLAffine3f& AffineDirect() noexcept { return m_value.affine; }
    const ZtLAffine3f& AffineDirect() const noexcept { return m_value.affine; }
    ZtLMatrix3f& AffineLinearDirect() noexcept { return m_value.affine.EditLinear(); }
    const ZtLMatrix3f& AffineLinearDirect() const noexcept { return m_value.affine.GetLinear(); }
    ZtLVec3f& AffineTransDirect() noexcept { return m_value.affine.EditTranslation(); }
    const ZtLVec3f& AffineTransDirect() const noexcept { return m_value.affine.GetTranslation(); }

    // Repairing views of the affine storage: without a linear bit the linear block is set to the
    // identity first, without bit 16 the translation to zero. The const forms repair the stored
    // value too; the traits are unchanged. The test is on those bits alone: the affine view of a
    // projective transform overlays its 4x4 matrix, which a repair overwrites, so projective
    // transforms are read through MatrixDirect instead.
    ZtLMatrix3f& AffineLinear() noexcept {
        RepairLinear();
        return m_value.affine.EditLinear();
    }
    const ZtLMatrix3f& AffineLinear() const noexcept {
        RepairLinear();
        return m_value.affine.GetLinear();
    }
    ZtLVec3f& AffineTrans() noexcept {
        RepairTranslation();
        return m_value.affine.EditTranslation();
    }
    const ZtLVec3f& AffineTrans() const noexcept {
        RepairTranslation();
        return m_value.affine.GetTranslation();
    }
    ZtLAffine3f& AffineComplete() noexcept {
        RepairLinear();
        RepairTranslation();
        return m_value.affine;
    }
    const ZtLAffine3f& AffineComplete() const noexcept {
        RepairLinear();
        RepairTranslation();
        return m_value.affine;
    }

    // Converting getters; they leave the storage as it is.
    // The linear part: the upper 3x3 block of a projective matrix, the identity when absent.
    ZtLMatrix3f GetLinear() const noexcept;
    void GetLinear(ZtLMatrix3f* m) const noexcept { *m = GetLinear(); }
    // The translation: row 3 of a projective matrix, zero when absent.
    ZtLVec3f GetTranslation() const noexcept;
    ZtLAffine3f GetAffine() const noexcept;
    // The 4x4 equivalent: rows 0-2 are the linear rows with 0 appended, row 3 the translation
    // with 1 appended.
    ZtLMatrix4f GetMatrix() const noexcept;
    // The quaternion of the linear part, taken to be a rotation.
    ZtLRotation3f ConvertRotation() const noexcept;

    // Products. The traits of the operand decide the work: an identity costs nothing, a
    // translation an addition, a linear operand a 3x3 product; the 4x4 storage is used only when
    // one side is projective.
    // this = this . x / this = x . this.
    ZtLTransform3f& MultRight(const ZtLTransform3f& x) noexcept;
    ZtLTransform3f& MultLeft(const ZtLTransform3f& x) noexcept;
    // Traits gain 32.
    ZtLTransform3f& MultRight(const ZtLMatrix4f& m) noexcept;
    ZtLTransform3f& MultLeft(const ZtLMatrix4f& m) noexcept;
    // The operand counts as a general affine map (traits 23).
    ZtLTransform3f& MultRight(const ZtLAffine3f& a) noexcept {
        return MultRightAffine(a, TraitsAffine);
    }
    ZtLTransform3f& MultLeft(const ZtLAffine3f& a) noexcept {
        return MultLeftAffine(a, TraitsAffine);
    }
    // The operand counts as a general linear map (traits 7).
    ZtLTransform3f& MultRight(const ZtLMatrix3f& m) noexcept {
        return MultRightMat3(m, TraitsLinear);
    }
    ZtLTransform3f& MultLeft(const ZtLMatrix3f& m) noexcept {
        return MultLeftMat3(m, TraitsLinear);
    }
    // Products with an operand whose traits the caller states (affine bits only); the parts of
    // the operand that the traits do not name are not read.
    ZtLTransform3f& MultRightAffine(const ZtLAffine3f& a, std::uint32_t traits) noexcept;
    ZtLTransform3f& MultLeftAffine(const ZtLAffine3f& a, std::uint32_t traits) noexcept;
    // On a projective transform the traits are left as they are.
    ZtLTransform3f& MultRightMat3(const ZtLMatrix3f& m, std::uint32_t traits) noexcept;
    ZtLTransform3f& MultLeftMat3(const ZtLMatrix3f& m, std::uint32_t traits) noexcept;
    // this . M(q) / M(q) . this, with the traits of a rotation.
    ZtLTransform3f& RotateRight(const ZtLRotation3f& q) noexcept;
    ZtLTransform3f& RotateLeft(const ZtLRotation3f& q) noexcept;
    // this . diag(s) / diag(s) . this, with the traits of a general linear map.
    ZtLTransform3f& ScaleRight(const ZtLVec3f& s) noexcept;
    ZtLTransform3f& ScaleLeft(const ZtLVec3f& s) noexcept;
    // this followed by a translation by v / a translation by v followed by this.
    ZtLTransform3f& TranslateRight(const ZtLVec3f& v) noexcept;
    ZtLTransform3f& TranslateLeft(const ZtLVec3f& v) noexcept;
    ZtLTransform3f& operator*=(const ZtLTransform3f& x) noexcept { return MultRight(x); }
    ZtLTransform3f& operator*=(const ZtLMatrix4f& m) noexcept { return MultRight(m); }
    ZtLTransform3f& operator*=(const ZtLAffine3f& a) noexcept { return MultRight(a); }
    ZtLTransform3f& operator*=(const ZtLMatrix3f& m) noexcept { return MultRight(m); }
    // a . b: a copy of a, then MultRight(b).
    static ZtLTransform3f Multiply(const ZtLTransform3f& a, const ZtLTransform3f& b) noexcept {
        ZtLTransform3f r(a);
        r.MultRight(b);
        return r;
    }
    // x followed by a translation by v: a copy of x, then TranslateRight(v).
    static ZtLTransform3f TranslateRight(const ZtLVec3f& v, const ZtLTransform3f& x) noexcept {
        ZtLTransform3f r(x);
        r.TranslateRight(v);
        return r;
    }

    // The inverse with the same traits; a projective inverse has traits 39. A pure rotation is
    // transposed; another linear part goes through ZtLMatrix3f::Inverse, a projective matrix
    // through ZtLMatrix4f::Inverse (both post "Singular Matrix" and give the identity when
    // singular).
    ZtLTransform3f Inverse() const noexcept;
    ZtLTransform3f& Invert() noexcept { return *this = Inverse(); }
    // The transpose of the 4x4 equivalent. A linear transform stays linear with its traits; one
    // with a translation becomes projective.
    ZtLTransform3f Transpose() const noexcept;
    // The determinant of the 4x4 equivalent (of the linear part for an affine transform).
    double Determinant() const noexcept;

    // Simplifies the traits and repairs non-finite parts, in three stages:
    // 1. projective: a last column within tol of (0, 0, 0, 1) makes the transform affine (traits
    //    23); any other finite last column ends the evaluation; a non-finite one is reported and
    //    dropped;
    // 2. translation: one within tol of zero is removed; a non-finite one is reported and
    //    removed;
    // 3. linear: a non-finite block is reported and reset to the identity; one within tol of the
    //    identity is removed; otherwise it is factored and, when its scale is uniform within tol,
    //    rebuilt as a rotation (bit 1, unless the rotation is the identity within tol) times a
    //    uniform scale (bit 2, unless the scale is 1 within tol).
    // Reports are posted with severity 1 and no component.
    void Evaluate(double tol) noexcept;

    // Factorisation of the affine part: linear = U^T.diag(scale).U.R (U the scale orientation,
    // R the rotation) as ZtLMatrix3f::Factor finds it, and the translation. An absent linear part
    // gives scale 1 and identities; a pure rotation is its own R. The forms with a projection
    // output split off the projective part first (the identity for an affine transform).
    void Factor(ZtLVec3f* scale, ZtLMatrix3f* scaleOrientation, ZtLMatrix3f* rotation,
                ZtLVec3f* translation) const noexcept;
    void Factor(ZtLVec3f* scale, ZtLRotation3f* scaleOrientation, ZtLRotation3f* rotation,
                ZtLVec3f* translation) const noexcept;
    void Factor(ZtLVec3f* scale, ZtLMatrix3f* scaleOrientation, ZtLMatrix3f* rotation,
                ZtLVec3f* translation, ZtLMatrix4f* projection) const noexcept;
    void Factor(ZtLVec3f* scale, ZtLRotation3f* scaleOrientation, ZtLRotation3f* rotation,
                ZtLVec3f* translation, ZtLMatrix4f* projection) const noexcept;
    // See ZtLMatrix4f::FactorProjection; the identity for an affine transform.
    void FactorProjection(ZtLMatrix4f* projection) const noexcept;
    // The affine part as editable components (scale, scale orientation, rotation, translation as
    // the Factor above finds them, the centre at the origin), so that their Combine() maps points
    // as this transform does. The forms with a centre then move the centre to the given
    // world-space point (ZtLComponentAffine3f::ApplyWorldSpaceCenter).
    ZtLComponentAffine3f Factor() const noexcept;
    ZtLComponentAffine3f Factor(const ZtLVec3f& center) const noexcept;
    void Factor(ZtLComponentAffine3f* components) const noexcept;
    void Factor(const ZtLVec3f& center, ZtLComponentAffine3f* components) const noexcept;

    // The 4x4 equivalents agree within tol entry by entry, whatever the traits (as
    // ZtLMatrix4f::Equals).
    bool Equals(const ZtLTransform3f& x, double tol) const noexcept;

    // The sixteen entries of the 4x4 equivalent row by row, then the traits.
    unsigned int CalcHashCode() const noexcept;
    // The text of the 4x4 equivalent (ZtLMatrix4f::ToString); the traits are not shown.
    ZtUWideStringBuffer ToString() const;
    ZtUWideStringBuffer ToStringImpl() const { return ToString(); }

private:
    friend ZTL_EXPORT ZtUReadStream& operator>>(ZtUReadStream& s, ZtLTransform3f& x);

    void RepairLinear() const noexcept {
        if ((m_traits & TraitsLinear) == 0) m_value.affine.EditLinear().MakeIdentity();
    }
    void RepairTranslation() const noexcept {
        if ((m_traits & TraitTranslation) == 0)
            m_value.affine.SetTranslation(ZtLVec3f(0.0, 0.0, 0.0));
    }

    // The two views of the sixteen doubles.
    union Storage {
        Storage() noexcept : matrix(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0) {}
        ZtLMatrix4f matrix;
        ZtLAffine3f affine;
    };

    std::uint32_t m_traits;
    mutable Storage m_value;
};

// Equal traits and exactly equal parts (those the traits name).
ZTL_EXPORT bool operator==(const ZtLTransform3f& a, const ZtLTransform3f& b) noexcept;
inline bool operator!=(const ZtLTransform3f& a, const ZtLTransform3f& b) noexcept {
    return !(a == b);
}

// a . b: a first, then b.
inline ZtLTransform3f operator*(const ZtLTransform3f& a, const ZtLTransform3f& b) noexcept {
    return ZtLTransform3f::Multiply(a, b);
}

// A point takes the whole transform (a projective one with the division by w).
inline ZtLPos3f operator*(const ZtLPos3f& p, const ZtLTransform3f& x) noexcept {
    const std::uint32_t t = x.GetTraits();
    if (t == 0) return p;
    if (t & ZtLTransform3f::TraitProjective) return p * x.MatrixDirect();
    if (t == ZtLTransform3f::TraitTranslation) return p.Add(x.AffineTransDirect());
    if (t < 8) return p * x.AffineLinearDirect();
    return p * x.AffineDirect();
}

// A free vector takes the linear part only (the upper 3x3 block of a projective matrix).
inline ZtLVec3f operator*(const ZtLVec3f& v, const ZtLTransform3f& x) noexcept {
    const std::uint32_t t = x.GetTraits();
    if ((t & ~ZtLTransform3f::TraitTranslation) == 0) return v;
    if (t & ZtLTransform3f::TraitProjective) return x.MatrixDirect().multVecAffineMatrix(v);
    return v * x.AffineLinearDirect();
}

// The binary record: the traits as a bit field, then only the parts they name (sixteen doubles
// for a projective matrix, nine for a linear block, three for a translation, nine and three for
// an affine map).
ZTL_EXPORT ZtUWriteStream& operator<<(ZtUWriteStream& s, const ZtLTransform3f& x);
// Reads a record written by operator<<. On a stream error (a truncated or corrupt record) the
// transform keeps its value and the error stays with the stream.
ZTL_EXPORT ZtUReadStream& operator>>(ZtUReadStream& s, ZtLTransform3f& x);

static_assert(std::is_trivially_copyable<ZtLTransform3f>::value,
              "a transform is a plain value, copied as its bytes");

#endif
