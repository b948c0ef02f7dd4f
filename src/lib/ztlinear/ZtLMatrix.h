#ifndef ZTLINEAR_ZTLMATRIX_H
#define ZTLINEAR_ZTLMATRIX_H

#include <ztlinear/ZtLExport.h>

class ZtUComponent;

// The matrix component: the record through which matrix inversions report a singular matrix.
//
// The host calls Initialise before use and Terminate as often afterwards; the first Initialise
// and the last Terminate start and stop the error system of ztutil.
class ZTL_EXPORT ZtLMatrix {
public:
    static void Initialise();
    static void Terminate();
    // Non-zero while the component is initialised.
    static int IsInitialised();

    // The component record, for the classes that post errors through it.
    static ZtUComponent* GetComponent();

private:
    ZtLMatrix();
};

#endif
