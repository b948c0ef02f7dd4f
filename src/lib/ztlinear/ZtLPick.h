#ifndef ZTLINEAR_ZTLPICK_H
#define ZTLINEAR_ZTLPICK_H

#include <ztlinear/ZtLExport.h>

class ZtUComponent;

// The picking component of the library.
//
// The host calls Initialise before use and Terminate as often afterwards; the first Initialise
// and the last Terminate start and stop the error system of ztutil.
class ZTL_EXPORT ZtLPick {
public:
    static void Initialise();
    static void Terminate();
    // Non-zero while the component is initialised.
    static int IsInitialised();

    // The component record, for the classes that post errors through it.
    static ZtUComponent* GetComponent();

private:
    ZtLPick();
};

#endif
