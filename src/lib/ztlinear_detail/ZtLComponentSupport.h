#ifndef ZTLINEAR_DETAIL_ZTLCOMPONENTSUPPORT_H
#define ZTLINEAR_DETAIL_ZTLCOMPONENTSUPPORT_H

// Start and stop of a component record, each transition paired with one start or stop of the
// error system. Private to the library.

#include <ztutil/ZtUComponent.h>
#include <ztutil/ZtUError.h>

namespace ztl_detail {

// Returns true when the record has just become initialised (the error system was started).
inline bool StartComponent(ZtUComponent& record, const char* name, const char* ident) {
    if (!record.Initialise(name, ident)) return false;
    ZtUError::Initialise();
    return true;
}

// Returns true when the last user of the record has gone (the error system was stopped).
inline bool StopComponent(ZtUComponent& record) {
    if (!record.Terminate()) return false;
    ZtUError::Terminate();
    return true;
}

}  // namespace ztl_detail

#endif
