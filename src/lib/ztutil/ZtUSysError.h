#ifndef ZTUTIL_ZTUSYSERROR_H
#define ZTUTIL_ZTUSYSERROR_H

// Severities of the reports posted through ZtUError. Components of ztlinear always post Error.
class ZtUSysError {
public:
    enum Severity {
        Info = 0,   // informational; the operation succeeded
        Error = 1,  // the operation could not produce its result and returned its fall-back
        Fatal = 2   // the host cannot continue safely
    };

    ZtUSysError() = delete;
};

#endif
