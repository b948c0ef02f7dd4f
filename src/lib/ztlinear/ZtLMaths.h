#ifndef ZTLINEAR_ZTLMATHS_H
#define ZTLINEAR_ZTLMATHS_H

#include <ztlinear/ZtLExport.h>

class ZtUComponent;

// Scalar maths of the library, and the ZtLMaths component.
//
// A class with no instances: every operation is static, none posts an error or reads the
// tolerances of ZtLVec (tolerances are passed in).
class ZTL_EXPORT ZtLMaths {
public:
    // Component start and stop (counted; the first and last pair with the error system).
    static void Initialise();
    static void Terminate();
    static int IsInitialised();
    static ZtUComponent* GetComponent();

private:
    ZtLMaths();
};

#endif
