#include <ztutil/ZtUComponent.h>
#include <ztutil/ZtUError.h>
#include <ztutil/ZtUStringBuffer.h>

#include <atomic>
#include <cstdarg>
#include <cstdio>

namespace {

std::atomic<int> g_initCount{0};
std::atomic<ZtUError::Handler> g_handler{&ZtUError::DefaultHandler};

void Deliver(ZtUSysError::Severity severity, ZtUComponent* component, int code, void* data,
             const char* format, std::va_list args) {
    ZtUStringBuffer message;
    message.FormatV(format, args);
    const ZtUErrorReport report{static_cast<int>(severity), component, code, data,
                                message.GetString()};
    g_handler.load(std::memory_order_acquire)(report);
}

}  // namespace

void ZtUError::Initialise() { g_initCount.fetch_add(1, std::memory_order_acq_rel); }

void ZtUError::Terminate() {
    int count = g_initCount.load(std::memory_order_acquire);
    while (count > 0 &&
           !g_initCount.compare_exchange_weak(count, count - 1, std::memory_order_acq_rel)) {
    }
}

int ZtUError::GetInitCount() { return g_initCount.load(std::memory_order_acquire); }

void ZtUError::Post(ZtUSysError::Severity severity, ZtUComponent* component, const char* format,
                    ...) {
    std::va_list args;
    va_start(args, format);
    Deliver(severity, component, -1, nullptr, format, args);
    va_end(args);
}

void ZtUError::Post(ZtUSysError::Severity severity, ZtUComponent* component, int code, void* data,
                    const char* format, ...) {
    std::va_list args;
    va_start(args, format);
    Deliver(severity, component, code, data, format, args);
    va_end(args);
}

ZtUError::Handler ZtUError::SetHandler(Handler handler) {
    return g_handler.exchange(handler ? handler : &DefaultHandler, std::memory_order_acq_rel);
}

void ZtUError::DefaultHandler(const ZtUErrorReport& report) {
    const char* name = report.component && report.component->GetName()
                           ? report.component->GetName()
                           : "(no component)";
    std::fprintf(stderr, "ztutil: %s: %s (severity %d, code %d)\n", name,
                 report.message ? report.message : "", report.severity, report.code);
}
