#include <ztutil/ZtUData.h>

#include <ztutil/ZtUStringBuffer.h>

const std::string& ZtUData::GetString() const {
    static const std::string empty;
    return m_kind == String ? m_string : empty;
}

const double* ZtUData::GetPoint2D() const { return m_kind == Point2D ? m_values : kOrigin; }

const double* ZtUData::GetPoint3D() const { return m_kind == Point3D ? m_values : kOrigin; }

bool ZtUData::operator==(const ZtUData& other) const {
    if (m_kind != other.m_kind) return false;
    switch (m_kind) {
        case Empty:
            return true;
        case Integer:
            return m_integer == other.m_integer;
        case String:
            return m_string == other.m_string;
        default:
            return m_values[0] == other.m_values[0] && m_values[1] == other.m_values[1] &&
                   m_values[2] == other.m_values[2];
    }
}

std::string ZtUData::Describe() const {
    ZtUStringBuffer text;
    switch (m_kind) {
        case Empty:
            return "empty";
        case Integer:
            text.Format("%ld", static_cast<long>(m_integer));
            break;
        case Float:
            text.Format("%.17g", m_values[0]);
            break;
        case String:
            text.Format("\"%s\"", m_string.c_str());
            break;
        case Point2D:
            text.Format("(%.17g, %.17g)", m_values[0], m_values[1]);
            break;
        case Point3D:
            text.Format("(%.17g, %.17g, %.17g)", m_values[0], m_values[1], m_values[2]);
            break;
    }
    return text.Str();
}
