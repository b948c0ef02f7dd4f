#ifndef ZTUTIL_ZTUXMLDOMSTREAM_H
#define ZTUTIL_ZTUXMLDOMSTREAM_H

#include <ztutil/ZtUExport.h>

#include <cstddef>
#include <memory>
#include <string>

// XML records of value types, written into and read from a DOM.
//
// A value type describes its record once, through the four operations of ZtUXMLDOMStream, and the
// same code writes or reads depending on the stream it is given. The document shape:
// - every OpenElement/CloseElement pair is one XML element named after it;
// - every named double is an attribute of the innermost open element, e.g.
//   <plane distance="2"><vec3f x="0" y="0" z="1"/></plane>;
// - the top level may hold several elements (the document is then an XML fragment).
// Doubles are written in their shortest round-trip form ("0.1", "-0", "5e-324"); infinities as
// "inf" and "-inf"; the default quiet NaN as "nan" or "-nan" and any other NaN as
// "nan(0x<16 hex digits of its bit pattern>)". Reading gives back every double bit for bit.
// Names are wide strings, stored as UTF-8.
//
// Errors are sticky: the first one is kept with a message saying what and where (the element
// path, and the line for a reader); every later operation does nothing. A reader in error never
// writes to the caller's doubles, so a value type that reads into a copy and assigns it only when
// !HasError() keeps its old value. Nothing here throws.
class ZTU_EXPORT ZtUXMLDOMStream {
public:
    // Opens a child element of the current one (flags: 0; reserved).
    virtual void OpenElement(const wchar_t* name, int flags) = 0;
    // Closes the current element, which must have this name.
    virtual void CloseElement(const wchar_t* name) = 0;
    // Writes *value, or reads into it, as the named value of the current element.
    virtual void SerialiseFloat(const wchar_t* name, double* value) = 0;
    virtual bool IsReading() const = 0;
    virtual ~ZtUXMLDOMStream();

    bool HasError() const { return !m_error.empty(); }
    // The first error's message; "" while there is none.
    const char* GetErrorMessage() const { return m_error.c_str(); }

protected:
    ZtUXMLDOMStream() = default;
    ZtUXMLDOMStream(const ZtUXMLDOMStream&) = delete;
    ZtUXMLDOMStream& operator=(const ZtUXMLDOMStream&) = delete;

    // Enters the error state with this message unless already in it.
    void SetError(const std::string& message);
    void ClearError() { m_error.clear(); }

private:
    std::string m_error;
};

// Builds a document from the records written into it.
//
// Errors (kept like a reader's): a null or invalid name, a null value pointer, a value outside any
// element, the same value twice in one element, a close that does not match the open element.
class ZTU_EXPORT ZtUXMLDOMWriter : public ZtUXMLDOMStream {
public:
    ZtUXMLDOMWriter();
    ~ZtUXMLDOMWriter() override;

    void OpenElement(const wchar_t* name, int flags) override;
    void CloseElement(const wchar_t* name) override;
    void SerialiseFloat(const wchar_t* name, double* value) override;
    bool IsReading() const override { return false; }

    // The document as UTF-8 text, with an XML declaration and two-space indentation.
    std::string GetText() const;
    // Saves the document to a file (UTF-8); false when it cannot be written.
    bool SaveFile(const char* path) const;

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

// Reads records from a parsed document, checking that what is asked for is what is there.
//
// OpenElement takes the next unread child element of the current one, which must carry the name
// asked for; CloseElement requires every value and child element of the element to have been
// read; SerialiseFloat requires the value to be present once and to be a number in the form the
// writer uses (blanks around it are allowed).
// Text content anywhere in the document is refused when it is loaded.
class ZTU_EXPORT ZtUXMLDOMReader : public ZtUXMLDOMStream {
public:
    // An empty document (any read reports a missing element).
    ZtUXMLDOMReader();
    ~ZtUXMLDOMReader() override;

    // Replace the document by one parsed from UTF-8 text or a file and clear any earlier error.
    // On malformed input the reader enters the error state; returns !HasError().
    bool Parse(const char* text, std::size_t length);
    bool Parse(const std::string& text) { return Parse(text.data(), text.size()); }
    bool LoadFile(const char* path);

    void OpenElement(const wchar_t* name, int flags) override;
    void CloseElement(const wchar_t* name) override;
    void SerialiseFloat(const wchar_t* name, double* value) override;
    bool IsReading() const override { return true; }

    // Checks that the whole document has been read (no element left open, no element left at the
    // top level); enters the error state otherwise. Returns !HasError().
    bool Finish();

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

// The text of a double as the XML streams write it, and its parsing back (the whole text must be
// a number, optionally surrounded by blanks). Exposed for the host's own attribute handling.
ZTU_EXPORT std::string ZtUFormatXMLDouble(double value);
ZTU_EXPORT bool ZtUParseXMLDouble(const char* text, double* value);

#endif
