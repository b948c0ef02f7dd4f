#include <ztlinear/ZtLMatrix.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztlinear/ZtLTransform3f.h>
#include <ztutil/ZtUError.h>
#include <ztutil/ZtUStream.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

std::vector<ZtUErrorReport> g_posts;
std::vector<std::string> g_messages;

struct PostCapture {
    PostCapture() : previous(ZtUError::SetHandler(&Record)) {
        g_posts.clear();
        g_messages.clear();
    }
    ~PostCapture() { ZtUError::SetHandler(previous); }
    static void Record(const ZtUErrorReport& r) {
        g_posts.push_back(r);
        g_messages.push_back(r.message);
    }
    ZtUError::Handler previous;
};

const ZtLRotation3f kRot(ZtLUnitVec3f(1, 2, 3), 0.8);
const ZtLVec3f kMove(1, -2, 3);
const ZtLMatrix3f kLinear(1, 2, 0, -1, 0.5, 3, 2, 1, 1);
const ZtLMatrix4f kPersp(1, 0, 0, 0.1, 0, 2, 0, -0.2, 0, 0, 1, 0.05, 3, 0, 1, 1);

// One factor of each kind, with the 4x4 matrix it stands for.
struct Factor {
    ZtLTransform3f x;
    ZtLMatrix4f m;
    bool diagonal = false;  // a scale, also applied through ScaleRight/ScaleLeft
};

Factor RandomFactor(std::mt19937& rng) {
    std::uniform_real_distribution<double> u(-1, 1);
    auto vec = [&] { return ZtLVec3f(u(rng), u(rng), u(rng)); };
    auto rot = [&] { return ZtLRotation3f(ZtLUnitVec3f(vec().Add(0.01)), 3 * u(rng)); };
    Factor f;
    switch (std::uniform_int_distribution<int>(0, 7)(rng)) {
        case 0:
            break;  // identity
        case 1:
            f.x = ZtLTransform3f::CreateTranslation(vec());
            break;
        case 2:
            f.x.MakeRotation(rot());
            break;
        case 3:
            f.x.MakeUniformScale(1.5 + 0.5 * u(rng));
            break;
        case 4:
            f.x.MakeScale(vec().Multiply(0.5).Add(1.2));
            f.diagonal = true;
            break;
        case 5:
            f.x.MakeLinear(ZtLMatrix3f(rot()) * ZtLMatrix3f(1, 0.3 * u(rng), 0, 0, 1, 0, 0, 0, 1));
            break;
        case 6:
            f.x.MakeAffine(ZtLMatrix3f(rot()), vec());
            break;
        default: {
            ZtLMatrix4f m(rot());
            for (int i = 0; i < 3; ++i) m[i][3] = 0.1 * u(rng), m[3][i] = u(rng);
            f.x.SetValue(m);
        }
    }
    f.m = f.x.GetMatrix();
    return f;
}

// Applies f on the named side through one of the forms the transform offers for its kind.
void Apply(ZtLTransform3f& x, const Factor& f, bool right, int form) {
    const std::uint32_t u = f.x.GetTraits();
    if (form == 0) {
        right ? x.MultRight(f.x) : x.MultLeft(f.x);
    } else if (form == 1 && right) {
        x = x * f.x;
    } else if (u & ZtLTransform3f::TraitProjective) {
        right ? x.MultRight(f.m) : x.MultLeft(f.m);
    } else if (u == ZtLTransform3f::TraitTranslation) {
        right ? x.TranslateRight(f.x.GetTranslation()) : x.TranslateLeft(f.x.GetTranslation());
    } else if (u == ZtLTransform3f::TraitRotation) {
        const ZtLRotation3f q = f.x.ConvertRotation();
        right ? x.RotateRight(q) : x.RotateLeft(q);
    } else if (f.diagonal) {
        const ZtLMatrix3f d = f.x.GetLinear();
        const ZtLVec3f s(d[0][0], d[1][1], d[2][2]);
        right ? x.ScaleRight(s) : x.ScaleLeft(s);
    } else if (u < 8) {
        right ? x.MultRightMat3(f.x.GetLinear(), u) : x.MultLeftMat3(f.x.GetLinear(), u);
    } else {
        right ? x.MultRightAffine(f.x.GetAffine(), u) : x.MultLeftAffine(f.x.GetAffine(), u);
    }
}

// Same traits and the same bits in all sixteen doubles, stale ones included.
bool SameBits(const ZtLTransform3f& a, const ZtLTransform3f& b) {
    return a.GetTraits() == b.GetTraits() &&
           std::memcmp(&a.MatrixDirect(), &b.MatrixDirect(), sizeof(ZtLMatrix4f)) == 0;
}

bool Near(double a, double b) { return std::fabs(a - b) <= 1e-9 * (1 + std::fabs(b)); }

}  // namespace

// Random chains composed through the transform agree with plain 4x4 products, and their traits
// are the union of the factors' traits (a projective transform keeps its word as it is for
// further non-projective factors: its 4x4 storage absorbs them).
TEST(ZtLTransform3f, RandomChainsAgreeWithMatrixProductsAndUniteTheTraits) {
    std::mt19937 rng(20261122);
    std::uniform_real_distribution<double> u(-1, 1);
    for (int trial = 0; trial < 3000; ++trial) {
        ZtLTransform3f x;
        ZtLMatrix4f m;
        std::uint32_t traits = 0;
        const int length = 1 + trial % 6;
        std::string trace;
        for (int k = 0; k < length; ++k) {
            const Factor f = RandomFactor(rng);
            const bool right = rng() % 2 == 0;
            const int form = static_cast<int>(rng() % 3);
            Apply(x, f, right, form);
            m = right ? m * f.m : f.m * m;
            traits |= f.x.GetTraits();
            trace +=
                std::to_string(f.x.GetTraits()) + (right ? "R" : "L") + std::to_string(form) + " ";
        }
        SCOPED_TRACE(trace);
        if (traits & ZtLTransform3f::TraitProjective) {
            ASSERT_TRUE(x.HasProj());
            ASSERT_EQ(x.GetTraits() & ~traits, 0u);
        } else {
            ASSERT_EQ(x.GetTraits(), traits);
        }
        const ZtLMatrix4f got = x.GetMatrix();
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j) ASSERT_TRUE(Near(got[i][j], m[i][j])) << i << j;
        const ZtLPos3f p(u(rng), u(rng), u(rng));
        const ZtLPos3f a = p * x, b = p * m;
        const ZtLVec3f va = ZtLVec3f(1, 2, 3) * x, vb = m.multVecAffineMatrix(ZtLVec3f(1, 2, 3));
        for (int j = 0; j < 3; ++j) {
            ASSERT_TRUE(Near(a[j], b[j])) << a[j] << " vs " << b[j];
            ASSERT_TRUE(Near(va[j], vb[j]));
        }
        ASSERT_TRUE(Near(x.Determinant(), m.Determinant()));
    }
}

TEST(ZtLTransform3f, SettersSetTheirTraits) {
    const std::pair<ZtLTransform3f, std::uint32_t> cases[] = {
        {ZtLTransform3f(), 0},
        {ZtLTransform3f::CreateTranslation(kMove), 16},
        {ZtLTransform3f(kRot), 1},
        {ZtLTransform3f(kRot, kMove), 17},
        {ZtLTransform3f().MakeUniformScale(2), 2},
        {ZtLTransform3f().MakeScale(kMove), 7},
        {ZtLTransform3f(kLinear), 7},
        {ZtLTransform3f(kLinear, kMove), 23},
        {ZtLTransform3f(ZtLAffine3f(kLinear, kMove)), 23},
        {ZtLTransform3f(kPersp), 32},
    };
    for (const auto& c : cases) EXPECT_EQ(c.first.GetTraits(), c.second);
    // MakeIdentity only clears the traits; MakeZero only clears the storage.
    ZtLTransform3f y(kLinear);
    EXPECT_EQ(y.MakeIdentity().AffineLinearDirect(), kLinear);
    EXPECT_EQ(y.MakeLinear(kLinear).MakeZero().GetTraits(), 7u);
    EXPECT_TRUE(y.AffineLinearDirect().IsZero());
}

TEST(ZtLTransform3f, RepairingViewsFillAbsentPartsAndRawViewsDoNot) {
    ZtLTransform3f x = ZtLTransform3f::CreateTranslation(kMove);  // zero storage elsewhere
    EXPECT_TRUE(x.AffineLinearDirect().IsZero());
    EXPECT_TRUE(x.AffineLinear().IsIdentity());
    EXPECT_TRUE(x.AffineLinearDirect().IsIdentity()) << "the repair is stored";
    EXPECT_EQ(x.GetTraits(), 16u);

    const ZtLTransform3f r(kLinear);
    ZtLTransform3f& stale = const_cast<ZtLTransform3f&>(r);
    stale.AffineTransDirect() = kMove;
    EXPECT_EQ(r.AffineTrans()[0], 0.0) << "a const view repairs too";
    EXPECT_EQ(r.AffineComplete(), ZtLAffine3f(kLinear, {0, 0, 0}));
    EXPECT_EQ(r.GetTraits(), 7u);

    // The repair looks at the linear bits and bit 16 only: traits 32 has neither, so the
    // overlaid 4x4 storage is overwritten (matrix entries 0-8, then 9-11).
    ZtLTransform3f p(kPersp);
    p.AffineLinear();
    EXPECT_EQ(p.MatrixDirect()[0][3], 0.0);
    EXPECT_EQ(p.MatrixDirect()[1][1], 0.0);
    EXPECT_EQ(p.MatrixDirect()[2][0], 1.0);
    p.AffineTrans();
    EXPECT_EQ(p.MatrixDirect()[2][2], 0.0);
    EXPECT_EQ(p.MatrixDirect()[2][3], 0.0);
    EXPECT_EQ(p.GetTraits(), 32u);
}

TEST(ZtLTransform3f, ProductsCopyOrAddWhereTheTraitsAllow) {
    ZtLTransform3f x;
    const ZtLTransform3f a(kLinear, kMove);
    x.MultRight(a);
    EXPECT_EQ(x, a);
    EXPECT_TRUE(SameBits(x, a)) << "an exact copy";

    // A translation times a rotation matrix: traits 17, the translation rotated.
    ZtLTransform3f t = ZtLTransform3f::CreateTranslation(kMove);
    const ZtLMatrix3f r(kRot);
    t.MultRightMat3(r, 1);
    EXPECT_EQ(t.GetTraits(), 17u);
    EXPECT_EQ(t.AffineLinearDirect(), r);
    const ZtLVec3f moved = kMove * r;
    for (int j = 0; j < 3; ++j) EXPECT_EQ(t.AffineTransDirect()[j], moved[j]);

    // Translations add; a projective transform folds a translation into its columns.
    t = ZtLTransform3f::CreateTranslation(kMove);
    t.MultRight(ZtLTransform3f::CreateTranslation(kMove));
    EXPECT_EQ(t.AffineTransDirect()[2], 6.0);
    EXPECT_EQ(ZtLTransform3f::TranslateRight(kMove, ZtLTransform3f(kPersp)).MatrixDirect(),
              ZtLMatrix4f(kPersp).TranslateRight(kMove));
}

TEST(ZtLTransform3f, InverseKeepsTheTraitsAndUndoesTheTransform) {
    PostCapture capture;
    const ZtLTransform3f cases[] = {
        ZtLTransform3f(),
        ZtLTransform3f::CreateTranslation(kMove),
        ZtLTransform3f(kRot),
        ZtLTransform3f(kRot, kMove),
        ZtLTransform3f().MakeUniformScale(4),
        ZtLTransform3f(kLinear, kMove),
        ZtLTransform3f(kPersp),
    };
    for (const ZtLTransform3f& x : cases) {
        const ZtLTransform3f inv = x.Inverse();
        EXPECT_EQ(inv.GetTraits(), x.HasProj() ? 39u : x.GetTraits());
        EXPECT_TRUE((x * inv).GetMatrix().Equals(ZtLMatrix4f(), 1e-14)) << x.GetTraits();
        ZtLTransform3f y(x);
        EXPECT_EQ(y.Invert(), inv);
    }
    // A pure rotation is transposed, not inverted.
    EXPECT_EQ(ZtLTransform3f(kRot).Inverse().AffineLinearDirect(), ZtLMatrix3f(kRot).Transpose());
    EXPECT_EQ(ZtLTransform3f::CreateTranslation(kMove).Inverse().GetTranslation()[1], 2.0);
    EXPECT_TRUE(g_posts.empty());

    // A singular linear part posts through the 3x3 inverse and becomes the identity: T' = -T.
    const ZtLTransform3f singular(ZtLMatrix3f(1, 2, 3, 1, 2, 3, 4, 5, 6), kMove);
    EXPECT_EQ(singular.Inverse(), ZtLTransform3f(ZtLMatrix3f(), kMove.Negated()));
    ASSERT_EQ(g_posts.size(), 1u);
    EXPECT_EQ(g_posts[0].code, 2);
}

TEST(ZtLTransform3f, TransposeAndFactor) {
    const ZtLTransform3f r(kRot);
    EXPECT_EQ(r.Transpose(), ZtLTransform3f().MultRightMat3(ZtLMatrix3f(kRot).Transpose(), 1));
    const ZtLTransform3f t = ZtLTransform3f::CreateTranslation(kMove).Transpose();
    EXPECT_EQ(t.GetTraits(), 48u);
    EXPECT_EQ(t.MatrixDirect(), ZtLMatrix4f(ZtLMatrix3f(), kMove).Transpose());

    // A pure rotation is its own rotation factor; a projective one splits off its projection.
    ZtLVec3f s, tr;
    ZtLRotation3f so, rot;
    ZtLMatrix4f proj;
    ZtLTransform3f(kRot, kMove).Factor(&s, &so, &rot, &tr, &proj);
    EXPECT_TRUE(proj.IsIdentity() && so.IsIdentity() && rot.EqualsNor(kRot, 1e-12));
    EXPECT_EQ(s[0], 1.0);
    ZtLTransform3f(kPersp).Factor(&s, &so, &rot, &tr, &proj);
    EXPECT_FALSE(proj.IsAffine());
}

TEST(ZtLTransform3f, EvaluateProjectiveStage) {
    PostCapture capture;
    ZtLMatrix4f nearlyAffine(kRot);
    nearlyAffine[0][3] = 1e-9;
    nearlyAffine[3][3] = 1 - 1e-9;
    ZtLTransform3f x(nearlyAffine);
    x.Evaluate(1e-6);
    EXPECT_EQ(x.GetTraits(), 1u) << "affine, then no translation and a rotation";
    EXPECT_TRUE(x.AffineLinearDirect().Equals(ZtLMatrix3f(kRot), 1e-12));

    ZtLMatrix4f projective(kRot);
    projective[2][3] = 0.5;
    projective[3][0] = std::nan("");  // the later stages do not run
    x = projective;
    x.Evaluate(1e-6);
    EXPECT_EQ(x.GetTraits(), 32u);
    EXPECT_TRUE(g_posts.empty());

    projective[3][0] = 4;
    projective[0][3] = INFINITY;
    x = projective;
    x.Evaluate(1e-6);
    ASSERT_EQ(g_messages.size(), 1u);
    EXPECT_EQ(g_messages[0],
              "Fourth column in ZtLTransform3f contained non-finite numbers inf 0.000000 0.500000 "
              "1.000000. Matrix set to affine.");
    EXPECT_EQ(g_posts[0].severity, 1);
    EXPECT_EQ(g_posts[0].component, nullptr);
    EXPECT_EQ(x.GetTraits(), 17u) << "the rotation block and translation row are kept";
    EXPECT_EQ(x.AffineTransDirect()[0], 4.0);
}

TEST(ZtLTransform3f, EvaluateTranslationStage) {
    PostCapture capture;
    ZtLTransform3f x(kRot, ZtLVec3f(1e-7, -1e-7, 0));
    x.Evaluate(1e-6);
    EXPECT_EQ(x.GetTraits(), 1u);
    EXPECT_EQ(x.AffineTransDirect()[0], 0.0);

    x.SetValue(ZtLRotation3f(0, 0, 0, 1), ZtLVec3f(std::nan(""), 0, 2));
    x.Evaluate(1e-6);
    ASSERT_EQ(g_messages.size(), 1u);
    EXPECT_EQ(g_messages[0],
              "Translation in ZtLTransform3f contained non-finite numbers nan 0.000000 2.000000. "
              "Translation component removed.");
    EXPECT_EQ(x.GetTraits(), 0u) << "and the identity rotation is dropped";
    EXPECT_EQ(x.AffineTransDirect()[0], 0.0);
}

TEST(ZtLTransform3f, EvaluateLinearStage) {
    PostCapture capture;
    const ZtLMatrix3f r(kRot);
    ZtLMatrix3f twice(r);
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) twice[i][j] *= 2;
    ZtLMatrix3f nearlyIdentity;
    nearlyIdentity[1][1] += 1e-7;
    struct Case {
        ZtLMatrix3f linear;
        std::uint32_t traits;
    };
    const Case cases[] = {
        {twice, 3},
        {r, 1},
        {nearlyIdentity, 0},
        {ZtLMatrix3f(2, 0, 0, 0, 2, 0, 0, 0, 2), 2},
        {ZtLMatrix3f(1, 0, 0, 0, 2, 0, 0, 0, 3), 7},
        {kLinear, 7},
    };
    for (const Case& c : cases) {
        ZtLTransform3f x(c.linear, kMove);
        x.Evaluate(1e-6);
        EXPECT_EQ(x.GetTraits(), c.traits | 16);
        EXPECT_TRUE(x.GetLinear().Equals(c.linear, 1e-6));
    }
    EXPECT_TRUE(g_posts.empty());

    ZtLMatrix3f bad(r);
    bad[2][1] = -INFINITY;
    ZtLTransform3f x(bad, kMove);
    x.Evaluate(1e-6);
    ASSERT_EQ(g_messages.size(), 1u);
    EXPECT_EQ(g_messages[0],
              "Linear matrix in ZtLTransform3f contained non-finite numbers. Matrix reset to "
              "identity");
    EXPECT_EQ(x.GetTraits(), 16u);
    EXPECT_TRUE(x.AffineLinearDirect().IsIdentity());
}

TEST(ZtLTransform3f, StreamRecordsHoldOnlyTheNamedParts) {
    struct Case {
        ZtLTransform3f x;
        std::size_t doubles;
    };
    const Case cases[] = {
        {ZtLTransform3f(), 0},
        {ZtLTransform3f::CreateTranslation(kMove), 3},
        {ZtLTransform3f(kRot), 9},
        {ZtLTransform3f().MakeUniformScale(2), 9},
        {ZtLTransform3f(kRot, kMove), 12},
        {ZtLTransform3f(kLinear, kMove), 12},
        {ZtLTransform3f(kPersp), 16},
    };
    const ZtLTransform3f before(ZtLRotation3f(0.5, 0.5, 0.5, 0.5), ZtLVec3f(7, 8, 9));
    for (const Case& c : cases) {
        ZtUWriteStream out;
        out << c.x;
        const std::vector<unsigned char>& bytes = out.GetBuffer();
        ASSERT_EQ(bytes.size(), 4 + 8 * c.doubles);
        ZtUReadStream in(bytes);
        ZtLTransform3f back(before);
        in >> back;
        EXPECT_FALSE(in.HasError());
        EXPECT_EQ(back, c.x);

        for (std::size_t cut = 0; cut < bytes.size(); ++cut) {
            ZtUReadStream truncated(bytes.data(), cut);
            ZtLTransform3f kept(before);
            truncated >> kept;
            EXPECT_TRUE(truncated.HasError()) << cut;
            EXPECT_TRUE(SameBits(kept, before)) << cut;
        }
    }
}

TEST(ZtLTransform3f, ComparisonsHashAndText) {
    const ZtLTransform3f identity, linearIdentity{ZtLMatrix3f()};
    EXPECT_NE(identity, linearIdentity) << "the traits differ";
    EXPECT_TRUE(identity.Equals(linearIdentity, 0.0));
    EXPECT_NE(identity.CalcHashCode(), linearIdentity.CalcHashCode());

    // Stale parts take no part in comparisons or hashes.
    ZtLTransform3f a = ZtLTransform3f::CreateTranslation(kMove), b(a);
    b.AffineLinearDirect() = kLinear;
    EXPECT_EQ(a, b);
    EXPECT_EQ(a.CalcHashCode(), b.CalcHashCode());
    b.AffineTransDirect()[0] += 1e-3;
    EXPECT_NE(a, b);
    EXPECT_TRUE(a.Equals(b, 1e-3));
    EXPECT_FALSE(a.Equals(b, 1e-4));

    const std::string text = a.ToString().ToUtf8();
    EXPECT_EQ(text, a.GetMatrix().ToString().ToUtf8());
    EXPECT_EQ(text.find("Traits"), std::string::npos);
    EXPECT_EQ(text.substr(text.size() - 34), "(1.0000, -2.0000, 3.0000, 1.0000)\n");
}
