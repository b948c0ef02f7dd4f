// Fuzzes the binary stream readers of ZtLTransform3f and ZtLRotation2f.
//
// Input: one selector byte, then the stream bytes. Records are read one after another until the
// stream fails. Checked for every record:
// - a failed read leaves the target byte for byte as it was;
// - a successful read consumed exactly the bytes that writing the value back produces (the
//   record is self-describing and the reader takes nothing it would not write);
// - whatever was read, including traits words no writer produces and non-finite entries, can be
//   used: evaluated, inverted, composed, factored, applied, hashed and printed.

#include "ZtFuzzInput.h"

#include <ztlinear/ZtLMatrix2f.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLRotation2f.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztlinear/ZtLTransform3f.h>
#include <ztutil/ZtUStream.h>

#include <cstring>
#include <vector>

namespace {

const int kMaxRecords = 16;

// The bytes a value writes.
template <class T>
std::vector<unsigned char> Written(const T& value) {
    ZtUWriteStream w;
    w << value;
    ZT_FUZZ_CHECK(!w.HasError());
    return w.GetBuffer();
}

// Reads one record into a poisoned target; returns false when the stream failed.
template <class T>
bool ReadChecked(ZtUReadStream& s, const std::uint8_t* start, T* out) {
    T target;
    ZtFuzzPoison(&target);
    const T before = target;
    const std::size_t offset = s.GetBytesRead();
    s >> target;
    if (s.HasError()) {
        ZT_FUZZ_CHECK(ZtFuzzSameBits(target, before));
        return false;
    }
    const std::size_t used = s.GetBytesRead() - offset;
    const std::vector<unsigned char> again = Written(target);
    ZT_FUZZ_CHECK(again.size() == used);
    ZT_FUZZ_CHECK(used == 0 || std::memcmp(again.data(), start + offset, used) == 0);
    *out = target;
    return true;
}

void UseTransform(const ZtLTransform3f& x, double tol) {
    ZtLTransform3f e(x);
    e.Evaluate(tol);
    ZtLTransform3f inv = x.Inverse();
    ZtLTransform3f p = x * inv;
    p.MultLeft(e);
    p.MultRight(x.GetMatrix());
    p.MultLeftAffine(x.GetAffine(), x.GetTraits() & ZtLTransform3f::TraitsAffine);
    p.TranslateLeft(x.GetTranslation());
    (void)p.Transpose();
    (void)x.Determinant();
    (void)x.Equals(e, tol);
    (void)(x == e);
    (void)x.CalcHashCode();
    (void)x.ToString();
    (void)x.ConvertRotation();
    (void)(ZtLPos3f(1.0, -2.0, 3.0) * x);
    (void)(ZtLVec3f(-1.0, 0.5, 2.0) * x);
    ZtLVec3f scale, translation;
    ZtLMatrix3f u, r;
    ZtLRotation3f qu, qr;
    ZtLMatrix4f projection;
    x.Factor(&scale, &u, &r, &translation);
    x.Factor(&scale, &qu, &qr, &translation, &projection);
    ZtLTransform3f repaired(x);
    (void)repaired.AffineComplete();
    (void)Written(e);
}

void UseRotation(const ZtLRotation2f& q, const ZtLRotation2f& previous) {
    (void)q.GetValue();
    (void)(q * previous);
    (void)(q.Inverse() * q);
    (void)q.Equals(previous, 1e-10);
    (void)(ZtLVec2f(1.0, 2.0) * q);
    (void)(q * ZtLVec2f(-3.0, 0.25));
    ZtLMatrix3f m(q);
    (void)m.Inverse();
    ZtLMatrix2f m2;
    m2.SetValue(q);
    ZtLVec2f scale;
    ZtLRotation2f u, r;
    m2.Factor(&scale, &u, &r);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ZtFuzzQuietErrors();
    ZtFuzzInput in(data, size);
    const bool rotations = in.Byte() & 1;
    const std::uint8_t* stream = in.Rest();
    ZtUReadStream s(stream, in.Remaining());
    ZtLRotation2f previous(1.0, 0.0);
    for (int i = 0; i < kMaxRecords && !s.IsAtEnd(); ++i) {
        if (rotations) {
            ZtLRotation2f q;
            if (!ReadChecked(s, stream, &q)) break;
            UseRotation(q, previous);
            previous = q;
        } else {
            ZtLTransform3f x;
            if (!ReadChecked(s, stream, &x)) break;
            UseTransform(x, 1e-6);
        }
    }
    return 0;
}
