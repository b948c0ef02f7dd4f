#ifndef ZTLINEAR_ZTLPICKSWEEP_H
#define ZTLINEAR_ZTLPICKSWEEP_H

#include <ztlinear/ZtLExport.h>

class ZtUComponent;

// The sweep-picking component. It depends on ZtLMaths: its first Initialise also initialises
// ZtLMaths and its last Terminate terminates it, each transition paired with one start or stop of
// the error system of ztutil.
class ZTL_EXPORT ZtLPickSweep {
public:
    static void Initialise();
    static void Terminate();
    // Non-zero while the component is initialised.
    static int IsInitialised();

    // The component record.
    static ZtUComponent* GetComponent();

private:
    ZtLPickSweep();
};

#endif
