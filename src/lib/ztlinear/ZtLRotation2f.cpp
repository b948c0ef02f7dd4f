#include <ztlinear/ZtLRotation2f.h>
#include <ztutil/ZtUStream.h>

#include <cmath>

void ZtLRotation2f::SetValue(const ZtLUnitVec2f& from, const ZtLUnitVec2f& to) noexcept {
    const double resop = ZtLVec::GetResop();
    const double d = from.Dot(to);
    if (resop > 1.0 - d) {
        SetValue(1.0, 0.0);
    } else if (resop > 1.0 + d) {
        SetValue(-1.0, 0.0);
    } else {
        double s = std::sqrt(1.0 - d * d);
        if (from[0] * to[1] - to[0] * from[1] < 0.0) s = -s;
        SetValue(d, s);
    }
}

double ZtLRotation2f::GetValue() const noexcept {
    const double angle = std::acos(m_c);
    return m_s < -ZtLVec::GetResop() ? -angle : angle;
}

ZtUWriteStream& operator<<(ZtUWriteStream& stream, const ZtLRotation2f& r) {
    stream.WriteFloat(r.GetCosAngle());
    stream.WriteFloat(r.GetSinAngle());
    return stream;
}

ZtUReadStream& operator>>(ZtUReadStream& stream, ZtLRotation2f& r) {
    double c = 0.0;
    double s = 0.0;
    if (stream.ReadFloat(c) && stream.ReadFloat(s)) r.SetValue(c, s);
    return stream;
}
