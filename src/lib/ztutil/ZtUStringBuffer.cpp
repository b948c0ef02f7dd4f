#include <ztutil/ZtUStringBuffer.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cwchar>
#include <type_traits>
#include <vector>

namespace {

// The type a wint_t argument arrives as through `...`: int where wint_t is narrower (16 bits on
// Windows), wint_t itself otherwise.
using WintArg = std::conditional_t<(sizeof(std::wint_t) < sizeof(int)), int, std::wint_t>;

void AppendCodePoint(std::string& out, std::uint32_t cp) {
    if (cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) cp = 0xFFFD;
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (cp >> 18));
        out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

void AppendCodePoint(std::wstring& out, std::uint32_t cp) {
    if (cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) cp = 0xFFFD;
    if (sizeof(wchar_t) == 2 && cp >= 0x10000) {
        cp -= 0x10000;
        out += static_cast<wchar_t>(0xD800 + (cp >> 10));
        out += static_cast<wchar_t>(0xDC00 + (cp & 0x3FF));
    } else {
        out += static_cast<wchar_t>(cp);
    }
}

// Appends at most maxUnits source code units (all when negative) of a wide text.
template <typename Out>
void AppendWide(Out& out, const wchar_t* text, long maxUnits) {
    for (long i = 0; text[i] != 0 && (maxUnits < 0 || i < maxUnits); ++i) {
        std::uint32_t cp = static_cast<std::uint32_t>(text[i]);
        if (sizeof(wchar_t) == 2) cp &= 0xFFFF;
        if (sizeof(wchar_t) == 2 && cp >= 0xD800 && cp <= 0xDBFF) {
            const std::uint32_t low = static_cast<std::uint32_t>(text[i + 1]) & 0xFFFF;
            if (low >= 0xDC00 && low <= 0xDFFF && (maxUnits < 0 || i + 1 < maxUnits)) {
                cp = 0x10000 + ((cp - 0xD800) << 10) + (low - 0xDC00);
                ++i;
            }
        }
        AppendCodePoint(out, cp);
    }
}

// Appends at most maxUnits bytes (all when negative) of a UTF-8 text.
template <typename Out>
void AppendUtf8(Out& out, const char* text, long maxUnits) {
    const unsigned char* s = reinterpret_cast<const unsigned char*>(text);
    long n = 0;
    while (s[n] != 0 && (maxUnits < 0 || n < maxUnits)) ++n;
    for (long i = 0; i < n;) {
        const unsigned char c = s[i];
        if (c < 0x80) {
            AppendCodePoint(out, c);
            ++i;
            continue;
        }
        const int extra = (c & 0xE0) == 0xC0   ? 1
                          : (c & 0xF0) == 0xE0 ? 2
                          : (c & 0xF8) == 0xF0 ? 3
                                               : -1;
        if (extra < 0 || i + extra >= n) {
            AppendCodePoint(out, 0xFFFD);
            ++i;
            continue;
        }
        std::uint32_t cp = extra == 1 ? (c & 0x1F) : extra == 2 ? (c & 0x0F) : (c & 0x07);
        bool ok = true;
        for (int k = 1; k <= extra; ++k) {
            if ((s[i + k] & 0xC0) != 0x80) {
                ok = false;
                break;
            }
            cp = (cp << 6) | (s[i + k] & 0x3F);
        }
        if (!ok) {
            AppendCodePoint(out, 0xFFFD);
            ++i;
            continue;
        }
        AppendCodePoint(out, cp);
        i += extra + 1;
    }
}

void AppendAscii(std::string& out, const char* text, std::size_t n) { out.append(text, n); }
void AppendAscii(std::wstring& out, const char* text, std::size_t n) {
    for (std::size_t i = 0; i < n; ++i)
        out += static_cast<wchar_t>(static_cast<unsigned char>(text[i]));
}

// Formats one numeric conversion with the C library and appends it.
template <typename Out, typename T>
void AppendNumber(Out& out, const std::string& conversion, T value) {
    char small[128];
    const int n = std::snprintf(small, sizeof small, conversion.c_str(), value);
    if (n < 0) return;
    if (static_cast<std::size_t>(n) < sizeof small) {
        AppendAscii(out, small, static_cast<std::size_t>(n));
        return;
    }
    std::vector<char> big(static_cast<std::size_t>(n) + 1);
    std::snprintf(big.data(), big.size(), conversion.c_str(), value);
    AppendAscii(out, big.data(), static_cast<std::size_t>(n));
}

template <typename Out>
void Pad(Out& out, std::size_t start, long width, bool left) {
    const long have = static_cast<long>(out.size() - start);
    if (width <= have) return;
    const std::size_t fill = static_cast<std::size_t>(width - have);
    if (left)
        out.append(fill, ' ');
    else
        out.insert(start, fill, ' ');
}

// The printf engine shared by both buffers; Ch is the character type of the format.
template <typename Ch, typename Out>
void FormatInto(Out& out, const Ch* f, std::va_list args) {
    while (*f) {
        if (*f != '%') {
            out += static_cast<typename Out::value_type>(*f);
            ++f;
            continue;
        }
        const Ch* const convStart = f++;
        if (*f == '%') {
            out += static_cast<typename Out::value_type>('%');
            ++f;
            continue;
        }
        std::string conversion = "%";
        bool left = false;
        while (*f == '-' || *f == '+' || *f == ' ' || *f == '#' || *f == '0') {
            if (*f == '-') left = true;
            conversion += static_cast<char>(*f++);
        }
        long width = -1;
        if (*f == '*') {
            width = va_arg(args, int);
            if (width < 0) {
                left = true;
                conversion += '-';
                width = -width;
            }
            ++f;
        } else if (*f >= '0' && *f <= '9') {
            width = 0;
            while (*f >= '0' && *f <= '9') width = width * 10 + (*f++ - '0');
        }
        if (width >= 0) conversion += std::to_string(width);
        long precision = -1;
        if (*f == '.') {
            ++f;
            precision = 0;
            if (*f == '*') {
                precision = va_arg(args, int);
                ++f;
            } else {
                while (*f >= '0' && *f <= '9') precision = precision * 10 + (*f++ - '0');
            }
            if (precision >= 0) conversion += "." + std::to_string(precision);
        }
        std::string length;
        while (*f == 'h' || *f == 'l' || *f == 'L' || *f == 'z' || *f == 'j' || *f == 't' ||
               *f == 'q' || *f == 'I') {
            length += static_cast<char>(*f++);
        }
        const char conv = static_cast<char>(*f);
        if (conv == 0) {  // a dangling '%': keep it as text
            for (const Ch* p = convStart; p != f; ++p)
                out += static_cast<typename Out::value_type>(*p);
            break;
        }
        ++f;
        const bool wideArg = length == "l" || length == "w";
        switch (conv) {
            case 'd':
            case 'i':
                if (length == "ll" || length == "q")
                    AppendNumber(out, conversion + "ll" + conv, va_arg(args, long long));
                else if (length == "l")
                    AppendNumber(out, conversion + "l" + conv, va_arg(args, long));
                else if (length == "z" || length == "t")
                    AppendNumber(out, conversion + "lld",
                                 static_cast<long long>(va_arg(args, std::ptrdiff_t)));
                else if (length == "j")
                    AppendNumber(out, conversion + "lld",
                                 static_cast<long long>(va_arg(args, std::intmax_t)));
                else if (length == "hh")
                    AppendNumber(out, conversion + conv,
                                 static_cast<int>(static_cast<signed char>(va_arg(args, int))));
                else if (length == "h")
                    AppendNumber(out, conversion + conv,
                                 static_cast<int>(static_cast<short>(va_arg(args, int))));
                else
                    AppendNumber(out, conversion + conv, va_arg(args, int));
                break;
            case 'u':
            case 'o':
            case 'x':
            case 'X':
                if (length == "ll" || length == "q")
                    AppendNumber(out, conversion + "ll" + conv, va_arg(args, unsigned long long));
                else if (length == "l")
                    AppendNumber(out, conversion + "l" + conv, va_arg(args, unsigned long));
                else if (length == "z" || length == "t")
                    AppendNumber(out, conversion + "ll" + conv,
                                 static_cast<unsigned long long>(va_arg(args, std::size_t)));
                else if (length == "j")
                    AppendNumber(out, conversion + "ll" + conv,
                                 static_cast<unsigned long long>(va_arg(args, std::uintmax_t)));
                else if (length == "hh")
                    AppendNumber(
                        out, conversion + conv,
                        static_cast<unsigned>(static_cast<unsigned char>(va_arg(args, unsigned))));
                else if (length == "h")
                    AppendNumber(
                        out, conversion + conv,
                        static_cast<unsigned>(static_cast<unsigned short>(va_arg(args, unsigned))));
                else
                    AppendNumber(out, conversion + conv, va_arg(args, unsigned));
                break;
            case 'f':
            case 'F':
            case 'e':
            case 'E':
            case 'g':
            case 'G':
            case 'a':
            case 'A':
                if (length == "L")
                    AppendNumber(out, conversion + "L" + conv, va_arg(args, long double));
                else
                    AppendNumber(out, conversion + conv, va_arg(args, double));
                break;
            case 'p':
                AppendNumber(out, conversion + "p", va_arg(args, void*));
                break;
            case 'c': {
                const std::size_t start = out.size();
                if (wideArg)
                    AppendCodePoint(out, static_cast<std::uint32_t>(
                                             static_cast<std::wint_t>(va_arg(args, WintArg))));
                else
                    AppendCodePoint(out, static_cast<unsigned char>(va_arg(args, int)));
                Pad(out, start, width, left);
                break;
            }
            case 's': {
                const std::size_t start = out.size();
                if (wideArg) {
                    const wchar_t* s = va_arg(args, const wchar_t*);
                    AppendWide(out, s ? s : L"(null)", precision);
                } else {
                    const char* s = va_arg(args, const char*);
                    AppendUtf8(out, s ? s : "(null)", precision);
                }
                Pad(out, start, width, left);
                break;
            }
            case 'n':
                (void)va_arg(args, void*);
                break;
            default:  // unknown conversion: keep the text as it stands
                for (const Ch* p = convStart; p != f; ++p)
                    out += static_cast<typename Out::value_type>(*p);
                break;
        }
    }
}

}  // namespace

int ZtUStringBuffer::Format(const char* format, ...) {
    std::va_list args;
    va_start(args, format);
    const int n = FormatV(format, args);
    va_end(args);
    return n;
}

int ZtUStringBuffer::FormatV(const char* format, std::va_list args) {
    std::string text;
    std::va_list copy;
    va_copy(copy, args);
    FormatInto(text, format ? format : "", copy);
    va_end(copy);
    m_text.swap(text);
    return GetLength();
}

int ZtUStringBuffer::AppendFormat(const char* format, ...) {
    std::va_list args;
    va_start(args, format);
    FormatInto(m_text, format ? format : "", args);
    va_end(args);
    return GetLength();
}

int ZtUWideStringBuffer::Format(const wchar_t* format, ...) {
    std::va_list args;
    va_start(args, format);
    const int n = FormatV(format, args);
    va_end(args);
    return n;
}

int ZtUWideStringBuffer::FormatV(const wchar_t* format, std::va_list args) {
    std::wstring text;
    std::va_list copy;
    va_copy(copy, args);
    FormatInto(text, format ? format : L"", copy);
    va_end(copy);
    m_text.swap(text);
    return GetLength();
}

int ZtUWideStringBuffer::AppendFormat(const wchar_t* format, ...) {
    std::va_list args;
    va_start(args, format);
    FormatInto(m_text, format ? format : L"", args);
    va_end(args);
    return GetLength();
}

std::string ZtUWideStringBuffer::ToUtf8() const { return ZtUWideToUtf8(m_text); }

std::string ZtUWideToUtf8(const wchar_t* text, size_t length) {
    std::string out;
    std::wstring copy(text, length);
    AppendWide(out, copy.c_str(), -1);
    return out;
}

std::wstring ZtUUtf8ToWide(const char* text, size_t length) {
    std::wstring out;
    std::string copy(text, length);
    AppendUtf8(out, copy.c_str(), -1);
    return out;
}
