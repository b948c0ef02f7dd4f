#include <ztlinear/ZtLColor3f.h>

#include "detail/ZtLRecordSupport.h"

void ZtLColor3f::SerialiseXML(ZtUXMLDOMStream* s) {
    ztl_detail::SerialiseDoubles(s, L"color3f", ztl_detail::kXYZNames, m_v, 3);
}
