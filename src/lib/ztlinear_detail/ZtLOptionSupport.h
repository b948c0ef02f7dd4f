#ifndef ZTLINEAR_DETAIL_ZTLOPTIONSUPPORT_H
#define ZTLINEAR_DETAIL_ZTLOPTIONSUPPORT_H

// The structured options of points and colours: a named sub-set holding one float option per
// component. Private to the library.

#include <ztutil/ZtUOption.h>
#include <ztutil/ZtUStringBuffer.h>

namespace ztl_detail {

// The names of the component options of points, in storage order.
inline const char* const kXYZOptionNames[3] = {"x", "y", "z"};

// The set the Define operations allocate: an extensible set whose state word is 1 from the start.
class StructuredOptionSet : public ZtUExOptionSet {
public:
    StructuredOptionSet() { SetState(1); }
};

// How the components of a structured option are stored: as lengths (subject to the host's
// units) or as plain numbers.
enum class OptionValue { Linear, Plain };

// Defines a sub-option per component with the component of the default, then registers the set
// under name, on parent when there is one and in the registry otherwise. The flags of the set
// always carry ZtUOptionStructured. Ownership of the set passes to the registry.
inline ZtUOptionSet* DefineStructuredOption(ZtUExOptionSet* parent, const char* name,
                                            const char* className, OptionValue kind,
                                            const char* const* names, const double* defaults,
                                            int count, ZtUOptionSet::Profile profile,
                                            unsigned int flags, ZtUOptionValidator* validator) {
    ZtUExOptionSet* set = new StructuredOptionSet;
    for (int i = 0; i < count; ++i) {
        if (kind == OptionValue::Linear) {
            set->DefineLinearFloat(names[i], defaults[i], profile, 0, nullptr, validator);
        } else {
            set->DefineFloat(names[i], defaults[i], profile, 0, nullptr, validator);
        }
    }
    if (parent) {
        parent->DefineSet(name, set, profile, flags | ZtUOptionStructured, className);
    } else {
        ZtUOption::DefineSet(name, set, profile, flags | ZtUOptionStructured, className);
    }
    return set;
}

// Reads the components of the structured option set (the caller holds the lock if needed).
inline void GetStructuredOption(ZtUOptionSet* set, OptionValue kind, const char* const* names,
                                double* values, int count) {
    for (int i = 0; i < count; ++i) {
        values[i] =
            kind == OptionValue::Linear ? set->GetLinearFloat(names[i]) : set->GetFloat(names[i]);
    }
}

inline void SetStructuredOption(ZtUOptionSet* set, OptionValue kind, const char* const* names,
                                const double* values, int count) {
    for (int i = 0; i < count; ++i) {
        if (kind == OptionValue::Linear) {
            set->SetLinearFloat(names[i], values[i]);
        } else {
            set->SetFloat(names[i], values[i]);
        }
    }
}

}  // namespace ztl_detail

#endif
