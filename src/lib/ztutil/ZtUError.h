#ifndef ZTUTIL_ZTUERROR_H
#define ZTUTIL_ZTUERROR_H

#include <ztutil/ZtUExport.h>
#include <ztutil/ZtUSysError.h>

class ZtUComponent;

#if defined(__GNUC__) || defined(__clang__)
#define ZTU_PRINTF_FORMAT(fmtIndex, firstArg) __attribute__((format(printf, fmtIndex, firstArg)))
#else
#define ZTU_PRINTF_FORMAT(fmtIndex, firstArg)
#endif

// One posted error as the host's handler sees it. For the form of Post without a code and a data
// pointer, code is -1 and data is null. The message is formatted and valid during the call only.
struct ZtUErrorReport {
    int severity;
    ZtUComponent* component;
    int code;
    void* data;
    const char* message;
};

// The error system: components post what went wrong; the host decides what to do with it.
//
// Nothing here throws. Posting works whether or not the error system is initialised; the counted
// Initialise/Terminate let the host see whether its components paired their start and stop.
class ZTU_EXPORT ZtUError {
public:
    using Handler = void (*)(const ZtUErrorReport&);

    ZtUError() = delete;

    // Counted start and stop of the error system.
    static void Initialise();
    static void Terminate();
    static int GetInitCount();

    // Posts a printf-formatted message.
    static void Post(ZtUSysError::Severity severity, ZtUComponent* component, const char* format,
                     ...) ZTU_PRINTF_FORMAT(3, 4);

    // Posts a printf-formatted message with a code and a pointer to the data concerned.
    static void Post(ZtUSysError::Severity severity, ZtUComponent* component, int code, void* data,
                     const char* format, ...) ZTU_PRINTF_FORMAT(5, 6);

    // Installs the host's handler (null restores the default) and returns the previous one.
    // The default handler writes one line to stderr.
    static Handler SetHandler(Handler handler);

    // The handler that writes "ztutil: <component>: <message> (severity S, code C)" to stderr.
    static void DefaultHandler(const ZtUErrorReport& report);
};

#endif
