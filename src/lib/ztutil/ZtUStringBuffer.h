#ifndef ZTUTIL_ZTUSTRINGBUFFER_H
#define ZTUTIL_ZTUSTRINGBUFFER_H

#include <ztutil/ZtUExport.h>

#include <cstdarg>
#include <string>

#if defined(__GNUC__) || defined(__clang__)
#define ZTU_STRING_PRINTF(fmtIndex, firstArg) __attribute__((format(printf, fmtIndex, firstArg)))
#else
#define ZTU_STRING_PRINTF(fmtIndex, firstArg)
#endif

// Growable narrow (UTF-8) and wide texts filled with printf-style formats.
//
// Format follows C's printf conversions (flags, width, precision, length modifiers, `*`),
// of any length, and gives the same text on every platform: numbers are converted by the C
// library's snprintf in the "C" conventions, and strings are converted by the buffer itself:
// `%s` takes a narrow UTF-8 string and `%ls` a wide one in both buffers (as in C's wide printf),
// converted between UTF-8 and the platform's wide encoding (UTF-16 or UTF-32). `%n` is not
// supported and writes nothing.
class ZTU_EXPORT ZtUStringBuffer {
public:
    ZtUStringBuffer() = default;
    explicit ZtUStringBuffer(const char* text) : m_text(text ? text : "") {}

    // Replaces the contents with the formatted text; returns its length in bytes.
    int Format(const char* format, ...) ZTU_STRING_PRINTF(2, 3);
    int FormatV(const char* format, std::va_list args);

    // Appends the formatted text; returns the new length in bytes.
    int AppendFormat(const char* format, ...) ZTU_STRING_PRINTF(2, 3);

    const char* GetString() const noexcept { return m_text.c_str(); }
    int GetLength() const noexcept { return static_cast<int>(m_text.size()); }
    const std::string& Str() const noexcept { return m_text; }

private:
    std::string m_text;
};

class ZTU_EXPORT ZtUWideStringBuffer {
public:
    ZtUWideStringBuffer() = default;
    explicit ZtUWideStringBuffer(const wchar_t* text) : m_text(text ? text : L"") {}

    // Replaces the contents with the formatted text; returns its length in wide characters.
    int Format(const wchar_t* format, ...);
    int FormatV(const wchar_t* format, std::va_list args);

    // Appends the formatted text; returns the new length in wide characters.
    int AppendFormat(const wchar_t* format, ...);

    const wchar_t* GetString() const noexcept { return m_text.c_str(); }
    int GetLength() const noexcept { return static_cast<int>(m_text.size()); }
    const std::wstring& Str() const noexcept { return m_text; }

    // The text in UTF-8.
    std::string ToUtf8() const;

private:
    std::wstring m_text;
};

// Conversions between UTF-8 and the platform's wide encoding (UTF-16 where wchar_t has 16 bits,
// UTF-32 otherwise). Ill-formed input becomes U+FFFD.
ZTU_EXPORT std::string ZtUWideToUtf8(const wchar_t* text, size_t length);
ZTU_EXPORT std::wstring ZtUUtf8ToWide(const char* text, size_t length);
inline std::string ZtUWideToUtf8(const std::wstring& text) {
    return ZtUWideToUtf8(text.data(), text.size());
}
inline std::wstring ZtUUtf8ToWide(const std::string& text) {
    return ZtUUtf8ToWide(text.data(), text.size());
}

#endif
