#ifndef ZTLINEAR_DETAIL_ZTLRECORDSUPPORT_H
#define ZTLINEAR_DETAIL_ZTLRECORDSUPPORT_H

// Exchange of the XML records of small value types. Private to the library.

#include <ztutil/ZtUXMLDOMStream.h>

namespace ztl_detail {

// The names of the components of the vector records, in storage order.
inline const wchar_t* const kXYZNames[3] = {L"x", L"y", L"z"};

// Exchanges count (at most 4) named doubles with s, inside an element when element is not null.
// A reading stream fills a copy, which is stored into values only when the stream reports no
// error once the record is complete; so bad input leaves values untouched.
inline void SerialiseDoubles(ZtUXMLDOMStream* s, const wchar_t* element,
                             const wchar_t* const* names, double* values, int count) {
    double copy[4];
    for (int i = 0; i < count; ++i) copy[i] = values[i];
    if (element) s->OpenElement(element, 0);
    for (int i = 0; i < count; ++i) s->SerialiseFloat(names[i], &copy[i]);
    if (element) s->CloseElement(element);
    if (s->IsReading() && !s->HasError()) {
        for (int i = 0; i < count; ++i) values[i] = copy[i];
    }
}

}  // namespace ztl_detail

#endif
