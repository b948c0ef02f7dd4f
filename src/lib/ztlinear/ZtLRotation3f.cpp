#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztlinear/ZtLVec.h>
#include <ztutil/ZtUChecksum.h>
#include <ztutil/ZtUXMLDOMStream.h>

#include <cmath>

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kTwoPi = 6.283185307179586;
constexpr double kHalfPi = 1.5707963267948966;
constexpr double kRadToDeg = 57.29577951308232;

double Dot3(const double a[3], const double b[3]) noexcept {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

void Cross3(const double a[3], const double b[3], double c[3]) noexcept {
    c[0] = a[1] * b[2] - a[2] * b[1];
    c[1] = a[2] * b[0] - a[0] * b[2];
    c[2] = a[0] * b[1] - a[1] * b[0];
}

// Scales v to length one; a zero vector stays zero. Returns the former length.
double Normalize3(double v[3]) noexcept {
    const double length = std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
    if (length == 0.0) {
        v[0] = v[1] = v[2] = 0.0;
    } else {
        v[0] /= length;
        v[1] /= length;
        v[2] /= length;
    }
    return length;
}

// The angle of a rotation about one coordinate axis whose other two components are zero: the
// sign of the remaining component gives the sense, and the result lies in (-pi, pi].
double SingleAxisAngle(double component, double w) noexcept {
    if (component < 0.0) return -2.0 * std::acos(w);
    const double angle = 2.0 * std::acos(w);
    return angle > kPi ? angle - kTwoPi : angle;
}

}  // namespace

void ZtLRotation3f::SetValue(const ZtLUnitVec3f& from, const ZtLUnitVec3f& to) noexcept {
    const double resop = ZtLVec::GetResop();
    const double f[3] = {from[0], from[1], from[2]};
    const double t[3] = {to[0], to[1], to[2]};
    const double d = Dot3(f, t);
    if (resop > 1.0 - d) {
        MakeIdentity();
        return;
    }
    double axis[3];
    if (resop > 1.0 + d) {
        // Opposite directions: any axis normal to from will do for the half turn.
        const double x[3] = {1.0, 0.0, 0.0};
        Cross3(f, x, axis);
        if (std::sqrt(Dot3(axis, axis)) < resop) {
            const double y[3] = {0.0, 1.0, 0.0};
            Cross3(f, y, axis);
        }
        Normalize3(axis);
        SetValue(axis[0], axis[1], axis[2], 0.0);
        return;
    }
    Cross3(f, t, axis);
    Normalize3(axis);
    const double s = std::sqrt((1.0 - d) / 2.0);
    SetValue(axis[0] * s, axis[1] * s, axis[2] * s, std::sqrt((1.0 + d) / 2.0));
}

void ZtLRotation3f::SetValue(const ZtLUnitVec3f& axis, const ZtLUnitVec3f& from,
                             const ZtLUnitVec3f& to) noexcept {
    const double resop = ZtLVec::GetResop();
    const double a[3] = {axis[0], axis[1], axis[2]};
    const double d1 = a[0] * from[0] + a[1] * from[1] + a[2] * from[2];
    const double d2 = a[0] * to[0] + a[1] * to[1] + a[2] * to[2];
    if (resop > 1.0 - d1 || resop > d1 + 1.0 || resop > 1.0 - d2 || resop > d2 + 1.0) {
        MakeIdentity();
        return;
    }
    double f[3] = {from[0] - a[0] * d1, from[1] - a[1] * d1, from[2] - a[2] * d1};
    double g[3] = {to[0] - a[0] * d2, to[1] - a[1] * d2, to[2] - a[2] * d2};
    Normalize3(f);
    Normalize3(g);
    const double d = Dot3(f, g);
    if (resop > 1.0 - d) {
        MakeIdentity();
        return;
    }
    if (resop > d + 1.0) {
        SetValue(a[0], a[1], a[2], 0.0);
        return;
    }
    double s = std::sqrt((1.0 - d) / 2.0);
    double c[3];
    Cross3(f, g, c);
    if (Dot3(a, c) < 0.0) s = -s;
    SetValue(a[0] * s, a[1] * s, a[2] * s, std::sqrt((1.0 + d) / 2.0));
}

void ZtLRotation3f::SetEulerXYZ(double ax, double ay, double az) noexcept {
    const ZtLRotation3f qx(ZtLUnitVec3f::X(), ax);
    const ZtLRotation3f qy(ZtLUnitVec3f::Y(), ay);
    const ZtLRotation3f qz(ZtLUnitVec3f::Z(), az);
    *this = (qz * qy) * qx;
}

bool ZtLRotation3f::FactorEulerXYZ(double* ax, double* ay, double* az) const noexcept {
    const double x = q[0], y = q[1], z = q[2], w = q[3];
    if (x == 0.0 && y == 0.0) {
        *ax = 0.0;
        *ay = 0.0;
        *az = z == 0.0 ? 0.0 : SingleAxisAngle(z, w);
        return true;
    }
    if (x == 0.0 && z == 0.0) {
        *ax = 0.0;
        *ay = SingleAxisAngle(y, w);
        *az = 0.0;
        return true;
    }
    if (y == 0.0 && z == 0.0) {
        *ax = SingleAxisAngle(x, w);
        *ay = 0.0;
        *az = 0.0;
        return true;
    }
    const double resabs = ZtLVec::GetResabs();
    const double t = y * w + x * z;
    if (t >= 0.5 - resabs) {
        *ax = 0.0;
        *ay = kHalfPi;
        *az = std::atan2(x * w + y * z, y * w - x * z);
    } else if (resabs - 0.5 >= t) {
        *ax = 0.0;
        *ay = -kHalfPi;
        *az = std::atan2(-y * z - x * w, x * z - y * w);
    } else {
        *ax = std::atan2(x * w - y * z, w * w - 0.5 + z * z);
        *ay = std::asin(2.0 * t);
        *az = std::atan2(w * z - x * y, x * x + w * w - 0.5);
    }
    return true;
}

double ZtLRotation3f::GetValue(ZtLUnitVec3f* axis) const noexcept {
    const double length = std::sqrt(q[0] * q[0] + q[1] * q[1] + q[2] * q[2]);
    if (length > ZtLVec::GetResop()) {
        axis->SetUnitValue(q[0] / length, q[1] / length, q[2] / length);
        return 2.0 * std::acos(q[3]);
    }
    axis->SetUnitValue(0.0, 0.0, 1.0);
    return 0.0;
}

ZtLRotation3f ZtLRotation3f::Slerp(const ZtLRotation3f& r, double t) const noexcept {
    double d = Dot(r);
    double other[4] = {r.q[0], r.q[1], r.q[2], r.q[3]};
    if (d < 0.0) {
        d = -d;
        for (double& v : other) v = -v;
    }
    double s0;
    double s1;
    if (1.0 - d > 1e-5) {
        const double theta = std::acos(d);
        const double sinTheta = std::sin(theta);
        s0 = std::sin((1.0 - t) * theta) / sinTheta;
        s1 = std::sin(t * theta) / sinTheta;
    } else {
        s0 = 1.0 - t;
        s1 = t;
    }
    ZtLRotation3f result(s0 * q[0] + s1 * other[0], s0 * q[1] + s1 * other[1],
                         s0 * q[2] + s1 * other[2], s0 * q[3] + s1 * other[3]);
    result.Normalize();
    return result;
}

double ZtLRotation3f::AngleBetween(const ZtLRotation3f& r, ZtLUnitVec3f* axis) const noexcept {
    ZtLUnitVec3f local;
    if (!axis) axis = &local;
    const ZtLRotation3f rel = Inverse() * r;
    const double length =
        std::sqrt(rel.q[0] * rel.q[0] + rel.q[1] * rel.q[1] + rel.q[2] * rel.q[2]);
    if (length > ZtLVec::GetResop()) {
        double angle = 2.0 * std::acos(rel.q[3]);
        double sense = 1.0;
        // The relative rotation the long way round: report the short way about the opposite axis.
        if (kPi < angle && angle <= kTwoPi) {
            angle = kTwoPi - angle;
            sense = -1.0;
        }
        axis->SetUnitValue(sense * (rel.q[0] / length), sense * (rel.q[1] / length),
                           sense * (rel.q[2] / length));
        return angle;
    }
    axis->SetUnitValue(0.0, 0.0, 1.0);
    return 0.0;
}

ZtLVec3f ZtLRotation3f::MultVecRot(const ZtLVec3f& v, const ZtLRotation3f& r) noexcept {
    return v * ZtLMatrix3f(r);
}

ZtLVec3f ZtLRotation3f::MultRotVec(const ZtLRotation3f& r, const ZtLVec3f& v) noexcept {
    return ZtLMatrix3f(r) * v;
}

unsigned int ZtLRotation3f::CalcHashCode() const noexcept {
    ZtUChecksum sum;
    for (double v : q) sum.AddFloat(v);
    return sum.End();
}

ZtUWideStringBuffer ZtLRotation3f::ToString() const {
    double ax;
    double ay;
    double az;
    FactorEulerXYZ(&ax, &ay, &az);
    ZtUWideStringBuffer text;
    text.Format(L"(%.4f, %.4f, %.4f)", ax * kRadToDeg, ay * kRadToDeg, az * kRadToDeg);
    return text;
}

void ZtLRotation3f::SerialiseXML(ZtUXMLDOMStream* s) {
    const bool reading = s->IsReading();
    // A read fills a copy preset to the identity, so a failed read leaves this rotation as it was.
    double v[4] = {0.0, 0.0, 0.0, 1.0};
    if (!reading)
        for (int i = 0; i < 4; ++i) v[i] = q[i];
    s->OpenElement(L"rotation", 0);
    s->OpenElement(L"quaternion", 0);
    s->SerialiseFloat(L"a", &v[0]);
    s->SerialiseFloat(L"b", &v[1]);
    s->SerialiseFloat(L"c", &v[2]);
    s->SerialiseFloat(L"d", &v[3]);
    s->CloseElement(L"quaternion");
    s->CloseElement(L"rotation");
    if (reading && !s->HasError()) SetValue(v);
}
