#include <ztlinear/ZtLComponentAffine3f.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztlinear/ZtLTransform3f.h>
#include <ztutil/ZtUChecksum.h>
#include <ztutil/ZtUError.h>
#include <ztutil/ZtUStream.h>

#include <cmath>

namespace {

constexpr std::uint32_t kLinear = ZtLTransform3f::TraitsLinear;
constexpr std::uint32_t kTrans = ZtLTransform3f::TraitTranslation;
constexpr std::uint32_t kProj = ZtLTransform3f::TraitProjective;

}  // namespace

ZtLTransform3f& ZtLTransform3f::MakeZero() noexcept {
    m_value.matrix.SetValue(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
    return *this;
}

ZtLTransform3f& ZtLTransform3f::MakeRotation(const ZtLRotation3f& q) noexcept {
    m_traits = TraitRotation;
    m_value.affine.EditLinear().SetValue(q);
    return *this;
}

ZtLTransform3f& ZtLTransform3f::SetValue(const ZtLRotation3f& q, const ZtLVec3f& t) noexcept {
    m_traits = TraitRotation | TraitTranslation;
    m_value.affine.EditLinear().SetValue(q);
    m_value.affine.SetTranslation(t);
    return *this;
}

ZtLMatrix3f ZtLTransform3f::GetLinear() const noexcept {
    if (m_traits & kProj) return m_value.matrix.GetLinear();
    if (m_traits & kLinear) return m_value.affine.GetLinear();
    return ZtLMatrix3f();
}

ZtLVec3f ZtLTransform3f::GetTranslation() const noexcept {
    if (m_traits & kProj) return m_value.matrix.GetTranslation();
    if (m_traits & kTrans) return m_value.affine.GetTranslation();
    return ZtLVec3f(0.0, 0.0, 0.0);
}

ZtLAffine3f ZtLTransform3f::GetAffine() const noexcept {
    if (m_traits & kProj) return ZtLAffine3f(m_value.matrix);
    return ZtLAffine3f(GetLinear(), GetTranslation());
}

ZtLMatrix4f ZtLTransform3f::GetMatrix() const noexcept {
    if (m_traits & kProj) return m_value.matrix;
    if (m_traits == 0) return ZtLMatrix4f();
    return ZtLMatrix4f(GetLinear(), GetTranslation());
}

ZtLRotation3f ZtLTransform3f::ConvertRotation() const noexcept {
    return GetLinear().ConvertRotation();
}

ZtLTransform3f& ZtLTransform3f::MultRight(const ZtLTransform3f& x) noexcept {
    const std::uint32_t u = x.m_traits;
    if (u == 0) return *this;
    if (m_traits == 0) return *this = x;
    if (u & kProj) return MultRight(x.m_value.matrix);
    if (u < 8) return MultRightMat3(x.m_value.affine.GetLinear(), u);
    if (u == kTrans) return TranslateRight(x.m_value.affine.GetTranslation());
    return MultRightAffine(x.m_value.affine, u);
}

ZtLTransform3f& ZtLTransform3f::MultLeft(const ZtLTransform3f& x) noexcept {
    const std::uint32_t u = x.m_traits;
    if (u == 0) return *this;
    if (m_traits == 0) return *this = x;
    if (u & kProj) return MultLeft(x.m_value.matrix);
    if (u < 8) return MultLeftMat3(x.m_value.affine.GetLinear(), u);
    if (u == kTrans) return TranslateLeft(x.m_value.affine.GetTranslation());
    return MultLeftAffine(x.m_value.affine, u);
}

ZtLTransform3f& ZtLTransform3f::MultRight(const ZtLMatrix4f& m) noexcept {
    if (m_traits & kProj) {
        m_value.matrix.MultRight(m);
    } else {
        // The matrix is built first: it overwrites the affine view it is made from.
        m_value.matrix = GetMatrix() * m;
        m_traits |= kProj;
    }
    return *this;
}

ZtLTransform3f& ZtLTransform3f::MultLeft(const ZtLMatrix4f& m) noexcept {
    if (m_traits & kProj) {
        m_value.matrix.MultLeft(m);
    } else {
        m_value.matrix = m * GetMatrix();
        m_traits |= kProj;
    }
    return *this;
}

ZtLTransform3f& ZtLTransform3f::MultRightMat3(const ZtLMatrix3f& m, std::uint32_t u) noexcept {
    const std::uint32_t t = m_traits;
    ZtLAffine3f& a = m_value.affine;
    if (t == 0) {
        m_traits = u;
        a.SetLinear(m);
    } else if (t & kProj) {
        m_value.matrix.MultRight(m);
    } else if (t < 8) {
        m_traits = t | u;
        a.SetLinear(a.GetLinear() * m);
    } else if (t != kTrans) {
        m_traits = t | u;
        a.MultRight(m);
    } else {
        m_traits = u | kTrans;
        const ZtLVec3f translation = a.GetTranslation() * m;
        a.SetLinear(m);
        a.SetTranslation(translation);
    }
    return *this;
}

ZtLTransform3f& ZtLTransform3f::MultLeftMat3(const ZtLMatrix3f& m, std::uint32_t u) noexcept {
    const std::uint32_t t = m_traits;
    ZtLAffine3f& a = m_value.affine;
    if (t == 0) {
        m_traits = u;
        a.SetLinear(m);
    } else if (t & kProj) {
        m_value.matrix.MultLeft(m);
    } else if (t != kTrans) {
        m_traits = t | u;
        a.SetLinear(m * a.GetLinear());
    } else {
        m_traits = u | kTrans;
        a.SetLinear(m);
    }
    return *this;
}

ZtLTransform3f& ZtLTransform3f::MultRightAffine(const ZtLAffine3f& x, std::uint32_t u) noexcept {
    if (u == 0) return *this;
    if ((u & kTrans) == 0) return MultRightMat3(x.GetLinear(), u);
    if ((u & kLinear) == 0) return TranslateRight(x.GetTranslation());
    const std::uint32_t t = m_traits;
    ZtLAffine3f& a = m_value.affine;
    if (t == 0) {
        m_traits = u;
        a = x;
    } else if (t & kProj) {
        m_value.matrix.MultRight(ZtLMatrix4f(x));
    } else if (t < 8) {
        // No translation of our own: the result's is the operand's.
        m_traits = t | u;
        a.SetLinear(a.GetLinear() * x.GetLinear());
        a.SetTranslation(x.GetTranslation());
    } else if (t == kTrans) {
        m_traits = u | kTrans;
        const ZtLVec3f translation = (a.GetTranslation() * x.GetLinear()).Add(x.GetTranslation());
        a.SetLinear(x.GetLinear());
        a.SetTranslation(translation);
    } else {
        m_traits = t | u;
        a.MultRight(x);
    }
    return *this;
}

ZtLTransform3f& ZtLTransform3f::MultLeftAffine(const ZtLAffine3f& x, std::uint32_t u) noexcept {
    if (u == 0) return *this;
    if ((u & kTrans) == 0) return MultLeftMat3(x.GetLinear(), u);
    if ((u & kLinear) == 0) return TranslateLeft(x.GetTranslation());
    const std::uint32_t t = m_traits;
    ZtLAffine3f& a = m_value.affine;
    if (t == 0) {
        m_traits = u;
        a = x;
    } else if (t & kProj) {
        m_value.matrix.MultLeft(ZtLMatrix4f(x));
    } else if (t < 8) {
        m_traits = t | u;
        const ZtLVec3f translation = x.GetTranslation() * a.GetLinear();
        a.SetLinear(x.GetLinear() * a.GetLinear());
        a.SetTranslation(translation);
    } else if (t == kTrans) {
        m_traits = u | kTrans;
        const ZtLVec3f translation = a.GetTranslation().Add(x.GetTranslation());
        a.SetLinear(x.GetLinear());
        a.SetTranslation(translation);
    } else {
        m_traits = t | u;
        a.MultLeft(x);
    }
    return *this;
}

ZtLTransform3f& ZtLTransform3f::RotateRight(const ZtLRotation3f& q) noexcept {
    return MultRightMat3(ZtLMatrix3f(q), TraitRotation);
}

ZtLTransform3f& ZtLTransform3f::RotateLeft(const ZtLRotation3f& q) noexcept {
    return MultLeftMat3(ZtLMatrix3f(q), TraitRotation);
}

ZtLTransform3f& ZtLTransform3f::ScaleRight(const ZtLVec3f& s) noexcept {
    const std::uint32_t t = m_traits;
    ZtLAffine3f& a = m_value.affine;
    if (t & kProj) {
        m_value.matrix.ScaleRight(s);
    } else if (t == 0) {
        m_traits = kLinear;
        a.EditLinear().MakeScale(s);
    } else if (t < 8) {
        m_traits = t | kLinear;
        a.EditLinear().ScaleRight(s);
    } else if (t == kTrans) {
        m_traits = TraitsAffine;
        a.EditLinear().MakeScale(s);
        const ZtLVec3f& v = a.GetTranslation();
        a.SetTranslation(ZtLVec3f(v[0] * s[0], v[1] * s[1], v[2] * s[2]));
    } else {
        m_traits = t | kLinear;
        a.ScaleRight(s);
    }
    return *this;
}

ZtLTransform3f& ZtLTransform3f::ScaleLeft(const ZtLVec3f& s) noexcept {
    const std::uint32_t t = m_traits;
    ZtLAffine3f& a = m_value.affine;
    if (t & kProj) {
        m_value.matrix.ScaleLeft(s);
    } else if (t == 0) {
        m_traits = kLinear;
        a.EditLinear().MakeScale(s);
    } else if (t == kTrans) {
        m_traits = TraitsAffine;
        a.EditLinear().MakeScale(s);
    } else {
        m_traits = t | kLinear;
        a.EditLinear().ScaleLeft(s);
    }
    return *this;
}

ZtLTransform3f& ZtLTransform3f::TranslateRight(const ZtLVec3f& v) noexcept {
    const std::uint32_t t = m_traits;
    if (t & kProj) {
        m_value.matrix.TranslateRight(v);
    } else if (t & kTrans) {
        m_value.affine.EditTranslation() += v;
    } else {
        m_traits = t | kTrans;
        m_value.affine.SetTranslation(v);
    }
    return *this;
}

ZtLTransform3f& ZtLTransform3f::TranslateLeft(const ZtLVec3f& v) noexcept {
    const std::uint32_t t = m_traits;
    ZtLAffine3f& a = m_value.affine;
    if (t & kProj) {
        m_value.matrix.TranslateLeft(v);
    } else if (t == 0) {
        m_traits = kTrans;
        a.SetTranslation(v);
    } else if (t == kTrans) {
        a.EditTranslation() += v;
    } else if (t < 8) {
        m_traits = t | kTrans;
        a.SetTranslation(v * a.GetLinear());
    } else {
        a.TranslateLeft(v);
    }
    return *this;
}

ZtLTransform3f ZtLTransform3f::Inverse() const noexcept {
    const std::uint32_t t = m_traits;
    if (t == 0) return *this;
    ZtLTransform3f r;
    if (t & kProj) {
        r.m_traits = kProj | kLinear;
        r.m_value.matrix = m_value.matrix.Inverse();
        return r;
    }
    r.m_traits = t;
    const ZtLAffine3f& a = m_value.affine;
    ZtLAffine3f& b = r.m_value.affine;
    if (t & kLinear) {
        b.SetLinear((t & kLinear) == TraitRotation ? a.GetLinear().Transpose()
                                                   : a.GetLinear().Inverse());
        if (t & kTrans) b.SetTranslation(a.GetTranslation().Negated() * b.GetLinear());
    } else {
        b.SetTranslation(a.GetTranslation().Negated());
    }
    return r;
}

ZtLTransform3f ZtLTransform3f::Transpose() const noexcept {
    const std::uint32_t t = m_traits;
    if (t == 0) return *this;
    ZtLTransform3f r;
    if (t < 8) {
        r.m_traits = t;
        r.m_value.affine.SetLinear(m_value.affine.GetLinear().Transpose());
    } else {
        r.m_traits = t | kProj;
        r.m_value.matrix = GetMatrix().Transpose();
    }
    return r;
}

double ZtLTransform3f::Determinant() const noexcept {
    if (m_traits & kProj) return m_value.matrix.Determinant();
    if (m_traits & kLinear) return m_value.affine.GetLinear().Determinant();
    return 1.0;
}

void ZtLTransform3f::Evaluate(double tol) noexcept {
    if (m_traits & kProj) {
        const ZtLMatrix4f& m = m_value.matrix;
        const double c0 = m[0][3], c1 = m[1][3], c2 = m[2][3], c3 = m[3][3];
        if (std::isfinite(c0) && std::isfinite(c1) && std::isfinite(c2) && std::isfinite(c3)) {
            if (!(std::fabs(c0) <= tol && std::fabs(c1) <= tol && std::fabs(c2) <= tol &&
                  std::fabs(c3 - 1.0) <= tol))
                return;  // truly projective: nothing more to simplify
        } else {
            ZtUError::Post(ZtUSysError::Error, nullptr,
                           "Fourth column in ZtLTransform3f contained non-finite numbers %f %f %f "
                           "%f. Matrix set to affine.",
                           c0, c1, c2, c3);
        }
        const ZtLAffine3f affine(m);
        m_value.affine = affine;
        m_traits = TraitsAffine;
    }

    if (m_traits & kTrans) {
        ZtLVec3f& v = m_value.affine.EditTranslation();
        if (!v.IsFinite()) {
            ZtUError::Post(ZtUSysError::Error, nullptr,
                           "Translation in ZtLTransform3f contained non-finite numbers %f %f %f. "
                           "Translation component removed.",
                           v[0], v[1], v[2]);
            v = ZtLVec3f(0.0, 0.0, 0.0);
            m_traits &= ~kTrans;
        } else if (ZtLVec3f::Equals(v, ZtLVec3f(0.0, 0.0, 0.0), tol)) {
            v = ZtLVec3f(0.0, 0.0, 0.0);
            m_traits &= ~kTrans;
        }
    }

    if (m_traits & kLinear) {
        ZtLMatrix3f& l = m_value.affine.EditLinear();
        bool finite = true;
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 3; ++j) finite = finite && std::isfinite(l[i][j]);
        if (!finite) {
            ZtUError::Post(ZtUSysError::Error, nullptr,
                           "Linear matrix in ZtLTransform3f contained non-finite numbers. Matrix "
                           "reset to identity");
            l.MakeIdentity();
            m_traits &= ~kLinear;
            return;
        }
        if (l.Equals(ZtLMatrix3f(), tol)) {
            l.MakeIdentity();
            m_traits &= ~kLinear;
            return;
        }
        ZtLVec3f s;
        ZtLRotation3f u, r;
        l.Factor(&s, &u, &r);
        if (std::fabs(s[0] - s[1]) > tol || std::fabs(s[1] - s[2]) > tol) return;
        m_traits &= ~TraitGeneralLinear;
        if (r.EqualsAbs(ZtLRotation3f::CreateIdentity(), tol)) {
            m_traits &= ~TraitRotation;
            r = ZtLRotation3f::CreateIdentity();
        } else {
            m_traits |= TraitRotation;
        }
        ZtLMatrix3f rebuilt(r);
        if (std::fabs(s[0] - 1.0) > tol) {
            m_traits |= TraitUniformScale;
            for (int i = 0; i < 3; ++i)
                for (int j = 0; j < 3; ++j) rebuilt[i][j] *= s[0];
        } else {
            m_traits &= ~TraitUniformScale;
        }
        l = rebuilt;
    }
}

void ZtLTransform3f::Factor(ZtLVec3f* scale, ZtLMatrix3f* scaleOrientation, ZtLMatrix3f* rotation,
                            ZtLVec3f* translation) const noexcept {
    const std::uint32_t t = m_traits;
    if (t & kProj) {
        m_value.matrix.Factor(scale, scaleOrientation, rotation, translation);
        return;
    }
    if ((t & kLinear) == 0 || (t & kLinear) == TraitRotation) {
        *scale = ZtLVec3f(1.0, 1.0, 1.0);
        scaleOrientation->MakeIdentity();
        *rotation = GetLinear();
    } else {
        m_value.affine.GetLinear().Factor(scale, scaleOrientation, rotation);
    }
    *translation = GetTranslation();
}

void ZtLTransform3f::Factor(ZtLVec3f* scale, ZtLRotation3f* scaleOrientation,
                            ZtLRotation3f* rotation, ZtLVec3f* translation) const noexcept {
    const std::uint32_t t = m_traits;
    if (t & kProj) {
        m_value.matrix.Factor(scale, scaleOrientation, rotation, translation);
        return;
    }
    if ((t & kLinear) == 0) {
        *scale = ZtLVec3f(1.0, 1.0, 1.0);
        scaleOrientation->MakeIdentity();
        rotation->MakeIdentity();
    } else if ((t & kLinear) == TraitRotation) {
        *scale = ZtLVec3f(1.0, 1.0, 1.0);
        scaleOrientation->MakeIdentity();
        *rotation = m_value.affine.GetLinear().ConvertRotation();
    } else {
        m_value.affine.GetLinear().Factor(scale, scaleOrientation, rotation);
    }
    *translation = GetTranslation();
}

void ZtLTransform3f::Factor(ZtLVec3f* scale, ZtLMatrix3f* scaleOrientation, ZtLMatrix3f* rotation,
                            ZtLVec3f* translation, ZtLMatrix4f* projection) const noexcept {
    FactorProjection(projection);
    Factor(scale, scaleOrientation, rotation, translation);
}

void ZtLTransform3f::Factor(ZtLVec3f* scale, ZtLRotation3f* scaleOrientation,
                            ZtLRotation3f* rotation, ZtLVec3f* translation,
                            ZtLMatrix4f* projection) const noexcept {
    FactorProjection(projection);
    Factor(scale, scaleOrientation, rotation, translation);
}

void ZtLTransform3f::Factor(ZtLComponentAffine3f* components) const noexcept {
    ZtLVec3f scale;
    ZtLRotation3f scaleOrientation;
    ZtLRotation3f rotation;
    ZtLVec3f translation;
    Factor(&scale, &scaleOrientation, &rotation, &translation);
    components->SetScale(scale);
    components->SetScaleOrientation(scaleOrientation);
    components->SetRotation(rotation);
    components->SetCenter(ZtLVec3f(0.0, 0.0, 0.0));
    components->SetTranslation(translation);
}

void ZtLTransform3f::Factor(const ZtLVec3f& center,
                            ZtLComponentAffine3f* components) const noexcept {
    Factor(components);
    components->ApplyWorldSpaceCenter(center);
}

ZtLComponentAffine3f ZtLTransform3f::Factor() const noexcept {
    ZtLComponentAffine3f components;
    Factor(&components);
    return components;
}

ZtLComponentAffine3f ZtLTransform3f::Factor(const ZtLVec3f& center) const noexcept {
    ZtLComponentAffine3f components;
    Factor(center, &components);
    return components;
}

void ZtLTransform3f::FactorProjection(ZtLMatrix4f* projection) const noexcept {
    if (m_traits & kProj)
        m_value.matrix.FactorProjection(projection);
    else
        projection->MakeIdentity();
}

bool operator==(const ZtLTransform3f& a, const ZtLTransform3f& b) noexcept {
    const std::uint32_t t = a.GetTraits();
    if (t != b.GetTraits()) return false;
    if (t & kProj) return a.MatrixDirect() == b.MatrixDirect();
    if ((t & kLinear) && !(a.AffineLinearDirect() == b.AffineLinearDirect())) return false;
    if (t & kTrans) {
        const ZtLVec3f& u = a.AffineTransDirect();
        const ZtLVec3f& v = b.AffineTransDirect();
        return u[0] == v[0] && u[1] == v[1] && u[2] == v[2];
    }
    return true;
}

bool ZtLTransform3f::Equals(const ZtLTransform3f& x, double tol) const noexcept {
    if ((m_traits | x.m_traits) == 0) return true;
    return GetMatrix().Equals(x.GetMatrix(), tol);
}

unsigned int ZtLTransform3f::CalcHashCode() const noexcept {
    const ZtLMatrix4f m = GetMatrix();
    ZtUChecksum sum;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) sum.AddFloat(m[i][j]);
    sum.AddNat32(m_traits);
    return sum.End();
}

ZtUWideStringBuffer ZtLTransform3f::ToString() const { return GetMatrix().ToString(); }

ZtUWriteStream& operator<<(ZtUWriteStream& s, const ZtLTransform3f& x) {
    const std::uint32_t t = x.GetTraits();
    s.WriteBitfield(t);
    if (t == 0) return s;
    if (t & kProj) {
        s.WriteFloatArray(&x.MatrixDirect()[0][0], 16);
    } else if ((t & ~kLinear) == 0) {
        s.WriteFloatArray(&x.AffineLinearDirect()[0][0], 9);
    } else if (t == kTrans) {
        s.WriteFloatArray(x.AffineTransDirect().GetValue(), 3);
    } else {
        s.WriteFloatArray(&x.AffineLinearDirect()[0][0], 9);
        s.WriteFloatArray(x.AffineTransDirect().GetValue(), 3);
    }
    return s;
}

ZtUReadStream& operator>>(ZtUReadStream& s, ZtLTransform3f& x) {
    // Read into a copy: a truncated record leaves x as it was, and the error with the stream.
    ZtLTransform3f r(x);
    std::uint32_t t = 0;
    if (!s.ReadBitfield(t)) return s;
    r.m_traits = t;
    if (t & kProj) {
        s.ReadFloatArray(&r.m_value.matrix[0][0], 16);
    } else if ((t & ~kLinear) == 0) {
        if (t != 0) s.ReadFloatArray(&r.m_value.affine.EditLinear()[0][0], 9);
    } else if (t == kTrans) {
        s.ReadFloatArray(r.m_value.affine.EditTranslation().EditValue(), 3);
    } else {
        s.ReadFloatArray(&r.m_value.affine.EditLinear()[0][0], 9);
        s.ReadFloatArray(r.m_value.affine.EditTranslation().EditValue(), 3);
    }
    if (!s.HasError()) x = r;
    return s;
}
