#ifndef ZTUTIL_ZTUDATA_H
#define ZTUTIL_ZTUDATA_H

#include <ztutil/ZtUExport.h>

#include <cstdint>
#include <string>

// A small variant value, as held by options: empty, a 32-bit integer, a double, a UTF-8 string,
// a 2D point or a 3D point.
//
// The getters never fail: asked for a kind it does not hold, a datum yields the default of that
// kind (0, "", or a point at the origin), except that GetFloat converts an integer.
class ZTU_EXPORT ZtUData {
public:
    enum Kind { Empty, Integer, Float, String, Point2D, Point3D };

    ZtUData() = default;
    ZtUData(std::int32_t value) : m_kind(Integer), m_integer(value) {}
    ZtUData(double value) : m_kind(Float), m_values{value, 0, 0} {}
    ZtUData(const char* value) : m_kind(String), m_string(value ? value : "") {}
    ZtUData(const std::string& value) : m_kind(String), m_string(value) {}
    // A 2D point (x, y) and a 3D point (x, y, z).
    ZtUData(double x, double y) : m_kind(Point2D), m_values{x, y, 0} {}
    ZtUData(double x, double y, double z) : m_kind(Point3D), m_values{x, y, z} {}

    Kind GetKind() const { return m_kind; }
    bool IsEmpty() const { return m_kind == Empty; }
    bool IsInteger() const { return m_kind == Integer; }
    bool IsFloat() const { return m_kind == Float; }
    bool IsNumber() const { return m_kind == Integer || m_kind == Float; }
    bool IsString() const { return m_kind == String; }
    bool IsPoint2D() const { return m_kind == Point2D; }
    bool IsPoint3D() const { return m_kind == Point3D; }

    std::int32_t GetInteger() const { return m_kind == Integer ? m_integer : 0; }
    double GetFloat() const {
        return m_kind == Float ? m_values[0] : m_kind == Integer ? m_integer : 0.0;
    }
    const std::string& GetString() const;
    // The two (x, y) or three (x, y, z) coordinates; all zero when the datum is not such a point.
    // Defined in the library: kOrigin is not exported from the Windows DLL.
    const double* GetPoint2D() const;
    const double* GetPoint3D() const;

    // Same kind and same contents (doubles compared with ==, so NaN differs from itself).
    bool operator==(const ZtUData& other) const;
    bool operator!=(const ZtUData& other) const { return !(*this == other); }

    // A short text for messages, e.g. "1.5", "(1, 2, 3)", "\"text\"", "empty".
    std::string Describe() const;

private:
    static constexpr double kOrigin[3] = {0, 0, 0};

    Kind m_kind = Empty;
    std::int32_t m_integer = 0;
    double m_values[3] = {0, 0, 0};
    std::string m_string;
};

#endif
