#ifndef ZTLINEAR_ZTLCOLOR3F_H
#define ZTLINEAR_ZTLCOLOR3F_H

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLVec3f.h>
#include <ztutil/ZtUOption.h>

class ZtUXMLDOMStream;

// A colour of three doubles red, green, blue in that order, each nominally in [0, 1].
//
// The range is not enforced: construction, the setters and the arithmetic store what they are
// given (IsValid() tells whether a colour is in range, GetClampedByteValue() clamps when a byte
// is needed). The storage is that of the 3D vectors, so Vec() and ZtLVec3f::Color() view one as
// the other. The default constructor leaves the components unset.
class ZTL_EXPORT ZtLColor3f : public ZtLBaseVec3f {
public:
    ZtLColor3f() = default;
    constexpr ZtLColor3f(double r, double g, double b) noexcept : ZtLBaseVec3f(r, g, b) {}
    explicit constexpr ZtLColor3f(const double* v) noexcept : ZtLBaseVec3f(v) {}

    using ZtLBaseVec3f::GetValue;
    using ZtLBaseVec3f::Set;
    using ZtLBaseVec3f::SetValue;
    using ZtLBaseVec3f::operator[];
    constexpr double* EditValue() noexcept { return m_v; }

    constexpr double GetR() const noexcept { return m_v[0]; }
    constexpr double GetG() const noexcept { return m_v[1]; }
    constexpr double GetB() const noexcept { return m_v[2]; }

    // The same storage seen as a free vector (r, g, b as x, y, z).
    const ZtLVec3f& Vec() const noexcept { return reinterpret_cast<const ZtLVec3f&>(*this); }
    ZtLVec3f& Vec() noexcept { return reinterpret_cast<ZtLVec3f&>(*this); }

    // Each byte divided by 255.
    static constexpr ZtLColor3f FromByteRGB(unsigned char r, unsigned char g,
                                            unsigned char b) noexcept {
        return ZtLColor3f(r / 255.0, g / 255.0, b / 255.0);
    }

    static constexpr ZtLColor3f CreateBlack() noexcept { return ZtLColor3f(0.0, 0.0, 0.0); }
    static constexpr ZtLColor3f CreateWhite() noexcept { return ZtLColor3f(1.0, 1.0, 1.0); }
    static constexpr ZtLColor3f CreateRed() noexcept { return ZtLColor3f(1.0, 0.0, 0.0); }
    static constexpr ZtLColor3f CreateGreen() noexcept { return ZtLColor3f(0.0, 1.0, 0.0); }
    static constexpr ZtLColor3f CreateBlue() noexcept { return ZtLColor3f(0.0, 0.0, 1.0); }
    static constexpr ZtLColor3f Black() noexcept { return CreateBlack(); }
    static constexpr ZtLColor3f White() noexcept { return CreateWhite(); }
    static constexpr ZtLColor3f Red() noexcept { return CreateRed(); }
    static constexpr ZtLColor3f Green() noexcept { return CreateGreen(); }
    static constexpr ZtLColor3f Blue() noexcept { return CreateBlue(); }

    constexpr void MakeBlack() noexcept { SetValue(0.0, 0.0, 0.0); }
    // Exact: all three components compare equal to 0.0 (-0.0 counts, NaN does not).
    constexpr bool GetIsBlack() const noexcept {
        return m_v[0] == 0.0 && m_v[1] == 0.0 && m_v[2] == 0.0;
    }
    constexpr bool IsBlack() const noexcept { return GetIsBlack(); }

    // True when every component lies in [0, 1], ends included (NaN is out of range).
    constexpr bool IsValid() const noexcept {
        return m_v[0] >= 0.0 && m_v[0] <= 1.0 && m_v[1] >= 0.0 && m_v[1] <= 1.0 && m_v[2] >= 0.0 &&
               m_v[2] <= 1.0;
    }

    // Component i as a byte: 0 at or below 0 (and for NaN), 255 at or above 1, otherwise
    // value * 255 truncated toward zero (0.999 gives 254, not 255).
    constexpr unsigned char GetClampedByteValue(int i) const noexcept {
        const double value = m_v[i];
        if (!(value > 0.0)) return 0;
        if (value >= 1.0) return 255;
        return static_cast<unsigned char>(value * 255.0);
    }

    // Luminance with the Rec. 709 weights: 0.2126 r + 0.7152 g + 0.0722 b.
    constexpr double LuminanceStandard() const noexcept {
        return 0.2126 * m_v[0] + 0.7152 * m_v[1] + 0.0722 * m_v[2];
    }
    // Luminance with the Rec. 601 weights: 0.299 r + 0.587 g + 0.114 b.
    constexpr double LuminancePerceived() const noexcept {
        return 0.299 * m_v[0] + 0.587 * m_v[1] + 0.114 * m_v[2];
    }
    // The background on which c reads best: black when c's perceived luminance is at least 0.5,
    // white otherwise.
    static constexpr ZtLColor3f BestBackgroundColor(const ZtLColor3f& c) noexcept {
        return c.LuminancePerceived() >= 0.5 ? CreateBlack() : CreateWhite();
    }

    // Componentwise sums, differences and scaling, not clamped.
    constexpr ZtLColor3f Add(const ZtLColor3f& c) const noexcept {
        return ZtLColor3f(m_v[0] + c.m_v[0], m_v[1] + c.m_v[1], m_v[2] + c.m_v[2]);
    }
    constexpr ZtLColor3f Subtract(const ZtLColor3f& c) const noexcept {
        return ZtLColor3f(m_v[0] - c.m_v[0], m_v[1] - c.m_v[1], m_v[2] - c.m_v[2]);
    }
    constexpr ZtLColor3f Multiply(double s) const noexcept {
        return ZtLColor3f(m_v[0] * s, m_v[1] * s, m_v[2] * s);
    }
    constexpr ZtLColor3f& operator+=(const ZtLColor3f& c) noexcept { return *this = Add(c); }
    constexpr ZtLColor3f& operator-=(const ZtLColor3f& c) noexcept { return *this = Subtract(c); }
    constexpr ZtLColor3f& operator*=(double s) noexcept { return *this = Multiply(s); }

    // The record "color3f" with the components under the names "x", "y", "z" (not red, green,
    // blue: existing readers expect them so). Reading keeps the old value on bad input.
    void SerialiseXML(ZtUXMLDOMStream* s);

    // The colour option: a set of class "color" named name, holding the plain float options
    // "red", "green" and "blue" with the components of def as defaults, the given profile and
    // validator. The set is registered on parent, or in the registry at the dotted path name,
    // with flags | ZtUOptionStructured; the registry owns it.
    static ZtUOptionSet* DefineColorOption(ZtUExOptionSet* parent, const char* name,
                                           const ZtLColor3f& def, ZtUOptionSet::Profile profile,
                                           unsigned int flags, ZtUOptionValidator* validator);
    static ZtUOptionSet* DefineColorOption(const char* name, const ZtLColor3f& def,
                                           ZtUOptionSet::Profile profile, unsigned int flags,
                                           ZtUOptionValidator* validator);
    // The colour option at name: in the registry under the option lock, or in set under the
    // caller's lock.
    static ZtLColor3f GetColorOption(const char* name);
    static ZtLColor3f GetColorOption(ZtUOptionSet* set, const char* name);
    static void SetColorOption(const char* name, const ZtLColor3f& color);
    static void SetColorOption(ZtUOptionSet* set, const char* name, const ZtLColor3f& color);
    // Resets "name.red", "name.green" and "name.blue" to their defaults, under the option lock.
    static void ResetColorOption(const char* name);
};

static_assert(sizeof(ZtLColor3f) == 3 * sizeof(double), "a colour holds exactly its three doubles");

#endif
