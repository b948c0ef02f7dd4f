#include <ztlinear/ZtLColor3f.h>

#include <ztlinear_detail/ZtLOptionSupport.h>
#include <ztlinear_detail/ZtLRecordSupport.h>

namespace {
const char* const kColorNames[3] = {"red", "green", "blue"};
const ztl_detail::OptionValue kPlain = ztl_detail::OptionValue::Plain;
}  // namespace

void ZtLColor3f::SerialiseXML(ZtUXMLDOMStream* s) {
    ztl_detail::SerialiseDoubles(s, L"color3f", ztl_detail::kXYZNames, m_v, 3);
}

ZtUOptionSet* ZtLColor3f::DefineColorOption(ZtUExOptionSet* parent, const char* name,
                                            const ZtLColor3f& def, ZtUOptionSet::Profile profile,
                                            unsigned int flags, ZtUOptionValidator* validator) {
    return ztl_detail::DefineStructuredOption(parent, name, "color", kPlain, kColorNames, def.m_v,
                                              3, profile, flags, validator);
}

ZtUOptionSet* ZtLColor3f::DefineColorOption(const char* name, const ZtLColor3f& def,
                                            ZtUOptionSet::Profile profile, unsigned int flags,
                                            ZtUOptionValidator* validator) {
    return DefineColorOption(nullptr, name, def, profile, flags, validator);
}

ZtLColor3f ZtLColor3f::GetColorOption(const char* name) {
    ZtUOptionLock lock;
    ZtLColor3f color;
    ztl_detail::GetStructuredOption(ZtUOption::GetSet(name, lock), kPlain, kColorNames, color.m_v,
                                    3);
    return color;
}

ZtLColor3f ZtLColor3f::GetColorOption(ZtUOptionSet* set, const char* name) {
    ZtLColor3f color;
    ztl_detail::GetStructuredOption(set->GetSubOptions(name), kPlain, kColorNames, color.m_v, 3);
    return color;
}

void ZtLColor3f::SetColorOption(const char* name, const ZtLColor3f& color) {
    ZtUOptionLock lock;
    ztl_detail::SetStructuredOption(ZtUOption::GetSet(name, lock), kPlain, kColorNames, color.m_v,
                                    3);
}

void ZtLColor3f::SetColorOption(ZtUOptionSet* set, const char* name, const ZtLColor3f& color) {
    ztl_detail::SetStructuredOption(set->GetSubOptions(name), kPlain, kColorNames, color.m_v, 3);
}

void ZtLColor3f::ResetColorOption(const char* name) {
    ZtUOptionLock lock;
    ZtUStringBuffer path;
    path.Format("%s.red", name);
    ZtUOption::ResetToDefaults(path.GetString());
    path.Format("%s.green", name);
    ZtUOption::ResetToDefaults(path.GetString());
    path.Format("%s.blue", name);
    ZtUOption::ResetToDefaults(path.GetString());
}
