#include <ztutil/ZtUStringBuffer.h>
#include <ztutil/ZtUXMLDOMStream.h>

#include <pugixml.hpp>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <limits>
#include <vector>

namespace {

constexpr std::uint64_t kSignBit = 0x8000000000000000ull;
constexpr std::uint64_t kQuietNaN = 0x7ff8000000000000ull;

std::string Utf8(const wchar_t* name) {
    return ZtUWideToUtf8(name, std::char_traits<wchar_t>::length(name));
}

// An XML name as far as this stream needs it: a letter, '_', ':' or a non-ASCII character first,
// then also digits, '-' and '.'.
bool IsValidName(const std::string& name) {
    if (name.empty()) return false;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const unsigned char c = static_cast<unsigned char>(name[i]);
        const bool start =
            (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c == ':' || c >= 0x80;
        const bool inner = (c >= '0' && c <= '9') || c == '-' || c == '.';
        if (!start && !(i > 0 && inner)) return false;
    }
    return true;
}

// "/a/b" for an element, "the top level" for the document itself.
std::string PathOf(pugi::xml_node node) {
    std::string path;
    for (; node && node.type() == pugi::node_element; node = node.parent())
        path.insert(0, std::string("/") + node.name());
    return path.empty() ? "the top level" : path;
}

}  // namespace

std::string ZtUFormatXMLDouble(double value) {
    char buffer[40];
    if (std::isnan(value)) {
        std::uint64_t bits;
        std::memcpy(&bits, &value, sizeof bits);
        if ((bits & ~kSignBit) == kQuietNaN) return (bits & kSignBit) ? "-nan" : "nan";
        std::snprintf(buffer, sizeof buffer, "nan(0x%016llx)",
                      static_cast<unsigned long long>(bits));
        return buffer;
    }
    if (std::isinf(value)) return value < 0 ? "-inf" : "inf";
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, result.ptr);
}

bool ZtUParseXMLDouble(const char* text, double* value) {
    if (!text || !value) return false;
    const char* first = text;
    const char* last = text + std::strlen(text);
    auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; };
    while (first != last && blank(*first)) ++first;
    while (last != first && blank(last[-1])) --last;
    const std::string s(first, last);

    double result;
    if (s == "nan" || s == "-nan") {
        const std::uint64_t bits = kQuietNaN | (s[0] == '-' ? kSignBit : 0);
        std::memcpy(&result, &bits, sizeof result);
    } else if (s.size() == 23 && s.compare(0, 6, "nan(0x") == 0 && s.back() == ')') {
        std::uint64_t bits = 0;
        const auto r = std::from_chars(s.data() + 6, s.data() + 22, bits, 16);
        if (r.ec != std::errc() || r.ptr != s.data() + 22) return false;
        std::memcpy(&result, &bits, sizeof result);
        if (!std::isnan(result)) return false;
    } else {
        // The C++ number parser: locale-independent, correctly rounded, no leading '+' or hex.
        // NaN spellings other than the ones above are refused.
        std::string lower = s;
        for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        if (lower.find("nan") != std::string::npos) return false;
        const auto r = std::from_chars(s.data(), s.data() + s.size(), result);
        if (s.empty() || r.ec != std::errc() || r.ptr != s.data() + s.size()) return false;
    }
    *value = result;
    return true;
}

ZtUXMLDOMStream::~ZtUXMLDOMStream() = default;

void ZtUXMLDOMStream::SetError(const std::string& message) {
    if (m_error.empty()) m_error = message.empty() ? "error" : message;
}

// ---------------------------------------------------------------------------------------------
// Writer

struct ZtUXMLDOMWriter::Impl {
    pugi::xml_document doc;
    std::vector<pugi::xml_node> open;  // open[0] is the document
};

ZtUXMLDOMWriter::ZtUXMLDOMWriter() : m_impl(new Impl) { m_impl->open.push_back(m_impl->doc); }

ZtUXMLDOMWriter::~ZtUXMLDOMWriter() = default;

void ZtUXMLDOMWriter::OpenElement(const wchar_t* name, int) {
    if (HasError()) return;
    const std::string n = name ? Utf8(name) : std::string();
    if (!IsValidName(n)) {
        SetError("XML write: invalid element name '" + n + "' in " + PathOf(m_impl->open.back()));
        return;
    }
    m_impl->open.push_back(m_impl->open.back().append_child(n.c_str()));
}

void ZtUXMLDOMWriter::CloseElement(const wchar_t* name) {
    if (HasError()) return;
    const std::string n = name ? Utf8(name) : std::string();
    const pugi::xml_node current = m_impl->open.back();
    if (m_impl->open.size() == 1 || n != current.name()) {
        SetError("XML write: closing element '" + n + "' but the open element is " +
                 PathOf(current));
        return;
    }
    m_impl->open.pop_back();
}

void ZtUXMLDOMWriter::SerialiseFloat(const wchar_t* name, double* value) {
    if (HasError()) return;
    const std::string n = name ? Utf8(name) : std::string();
    pugi::xml_node current = m_impl->open.back();
    const std::string where = " in " + PathOf(current);
    if (!IsValidName(n)) return SetError("XML write: invalid value name '" + n + "'" + where);
    if (!value) return SetError("XML write: no double given for value '" + n + "'" + where);
    if (m_impl->open.size() == 1)
        return SetError("XML write: value '" + n + "' written outside any element");
    if (current.attribute(n.c_str()))
        return SetError("XML write: value '" + n + "' written twice" + where);
    current.append_attribute(n.c_str()).set_value(ZtUFormatXMLDouble(*value).c_str());
}

std::string ZtUXMLDOMWriter::GetText() const {
    struct StringWriter : pugi::xml_writer {
        std::string text;
        void write(const void* data, std::size_t size) override {
            text.append(static_cast<const char*>(data), size);
        }
    } writer;
    m_impl->doc.save(writer, "  ", pugi::format_default, pugi::encoding_utf8);
    return writer.text;
}

bool ZtUXMLDOMWriter::SaveFile(const char* path) const {
    return path && m_impl->doc.save_file(path, "  ", pugi::format_default, pugi::encoding_utf8);
}

// ---------------------------------------------------------------------------------------------
// Reader

struct ZtUXMLDOMReader::Impl {
    struct Level {
        pugi::xml_node node;
        pugi::xml_node lastRead;                // last child element read, null before the first
        std::vector<pugi::xml_attribute> read;  // values read
    };
    std::string text;  // the parsed text, for line numbers
    pugi::xml_document doc;
    std::vector<Level> open;  // open[0] is the document

    void Reset() {
        doc.reset();
        open.assign(1, Level{doc, pugi::xml_node(), {}});
    }
    int LineOf(std::ptrdiff_t offset) const {
        if (offset < 0 || offset > static_cast<std::ptrdiff_t>(text.size())) return 0;
        return 1 + static_cast<int>(std::count(text.begin(), text.begin() + offset, '\n'));
    }
    // "/a/b (line 3)"
    std::string Where(pugi::xml_node node) const {
        std::string where = PathOf(node);
        if (const int line = LineOf(node.offset_debug()))
            where += " (line " + std::to_string(line) + ")";
        return where;
    }
    pugi::xml_node NextChild() const {
        const Level& level = open.back();
        return level.lastRead ? level.lastRead.next_sibling() : level.node.first_child();
    }
};

ZtUXMLDOMReader::ZtUXMLDOMReader() : m_impl(new Impl) { m_impl->Reset(); }

ZtUXMLDOMReader::~ZtUXMLDOMReader() = default;

bool ZtUXMLDOMReader::Parse(const char* text, std::size_t length) {
    Impl& impl = *m_impl;
    impl.Reset();
    ClearError();
    impl.text.assign(text ? text : "", text ? length : 0);
    const pugi::xml_parse_result result =
        impl.doc.load_buffer(impl.text.data(), impl.text.size(),
                             pugi::parse_default | pugi::parse_fragment, pugi::encoding_utf8);
    if (!result) {
        const std::ptrdiff_t offset =
            std::min<std::ptrdiff_t>(result.offset, static_cast<std::ptrdiff_t>(impl.text.size()));
        const std::size_t lineStart = impl.text.rfind('\n', offset > 0 ? offset - 1 : 0);
        const std::size_t column =
            offset - (lineStart == std::string::npos || offset == 0 ? 0 : lineStart + 1) + 1;
        SetError(std::string("XML read: malformed XML: ") + result.description() + " at line " +
                 std::to_string(impl.LineOf(offset)) + ", column " + std::to_string(column));
        impl.Reset();
        return false;
    }
    // Records hold elements and attributes only: text content anywhere is junk.
    const pugi::xml_node junk = impl.doc.find_node([](pugi::xml_node n) {
        return n.type() == pugi::node_pcdata || n.type() == pugi::node_cdata;
    });
    if (junk) {
        std::string shown = junk.value();
        if (shown.size() > 20) shown = shown.substr(0, 20) + "...";
        SetError("XML read: unexpected text \"" + shown + "\" in " + PathOf(junk.parent()) +
                 " (line " + std::to_string(impl.LineOf(junk.offset_debug())) + ")");
        impl.Reset();
        return false;
    }
    return !HasError();
}

bool ZtUXMLDOMReader::LoadFile(const char* path) {
    std::ifstream file(path ? path : "", std::ios::binary);
    std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    if (!file.is_open() || file.bad()) {
        m_impl->Reset();
        ClearError();
        SetError(std::string("XML read: cannot read file '") + (path ? path : "") + "'");
        return false;
    }
    return Parse(text);
}

void ZtUXMLDOMReader::OpenElement(const wchar_t* name, int) {
    if (HasError()) return;
    Impl& impl = *m_impl;
    const std::string n = name ? Utf8(name) : std::string();
    const pugi::xml_node next = impl.NextChild();
    if (!next)
        return SetError("XML read: missing element '" + n + "' in " +
                        impl.Where(impl.open.back().node));
    if (n != next.name())
        return SetError("XML read: expected element '" + n + "' but found " + impl.Where(next));
    impl.open.back().lastRead = next;
    impl.open.push_back(Impl::Level{next, pugi::xml_node(), {}});
}

void ZtUXMLDOMReader::CloseElement(const wchar_t* name) {
    if (HasError()) return;
    Impl& impl = *m_impl;
    const std::string n = name ? Utf8(name) : std::string();
    const Impl::Level& level = impl.open.back();
    if (impl.open.size() == 1 || n != level.node.name())
        return SetError("XML read: closing element '" + n + "' but the open element is " +
                        PathOf(level.node));
    if (const pugi::xml_node extra = impl.NextChild())
        return SetError("XML read: unexpected element " + impl.Where(extra));
    for (const pugi::xml_attribute a : level.node.attributes()) {
        if (std::find(level.read.begin(), level.read.end(), a) == level.read.end())
            return SetError(std::string("XML read: unexpected value '") + a.name() + "' in " +
                            impl.Where(level.node));
    }
    impl.open.pop_back();
}

void ZtUXMLDOMReader::SerialiseFloat(const wchar_t* name, double* value) {
    if (HasError()) return;
    Impl& impl = *m_impl;
    const std::string n = name ? Utf8(name) : std::string();
    Impl::Level& level = impl.open.back();
    if (impl.open.size() == 1)
        return SetError("XML read: value '" + n + "' asked for outside any element");
    const std::string where = " in " + impl.Where(level.node);
    if (!value) return SetError("XML read: no double given for value '" + n + "'" + where);
    pugi::xml_attribute found;
    for (const pugi::xml_attribute a : level.node.attributes()) {
        if (n != a.name()) continue;
        if (found) return SetError("XML read: value '" + n + "' given twice" + where);
        found = a;
    }
    if (!found) return SetError("XML read: missing value '" + n + "'" + where);
    double parsed;
    if (!ZtUParseXMLDouble(found.value(), &parsed))
        return SetError("XML read: value '" + n + "'" + where + " is not a number: \"" +
                        found.value() + "\"");
    if (std::find(level.read.begin(), level.read.end(), found) == level.read.end())
        level.read.push_back(found);
    *value = parsed;
}

bool ZtUXMLDOMReader::Finish() {
    if (HasError()) return false;
    Impl& impl = *m_impl;
    if (impl.open.size() > 1)
        SetError("XML read: element " + PathOf(impl.open.back().node) + " is still open");
    else if (const pugi::xml_node extra = impl.NextChild())
        SetError("XML read: unexpected element " + impl.Where(extra));
    return !HasError();
}
