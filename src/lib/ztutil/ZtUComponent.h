#ifndef ZTUTIL_ZTUCOMPONENT_H
#define ZTUTIL_ZTUCOMPONENT_H

#include <ztutil/ZtUExport.h>

#include <atomic>
#include <mutex>

// The record through which a module announces itself and posts its errors.
//
// Initialisation is counted: Initialise and Terminate nest, and only the transitions between
// "not initialised" and "initialised" report non-zero, so a caller can pair exactly one start-up
// and one shut-down action with them. A record is meant to be a static object that lives for the
// whole life of its module; it is safe to initialise and terminate it from several threads.
class ZTU_EXPORT ZtUComponent {
public:
    ZtUComponent() noexcept = default;
    ZtUComponent(const ZtUComponent&) = delete;
    ZtUComponent& operator=(const ZtUComponent&) = delete;

    // Counts one more user. Returns non-zero only when the record goes from not initialised to
    // initialised; name and ident are kept (they must outlive the record, e.g. string literals).
    int Initialise(const char* name, const char* ident);

    // Counts one user less. Returns non-zero only when the last user has gone. A Terminate without
    // a matching Initialise is ignored and returns 0.
    int Terminate();

    // Non-zero while at least one user holds the record initialised.
    int IsInitialised() const noexcept { return m_initialised.load(std::memory_order_acquire); }

    // The number of outstanding Initialise calls.
    int GetInitCount() const;

    // The name and identification text of the first Initialise; null before it.
    const char* GetName() const noexcept { return m_name.load(std::memory_order_acquire); }
    const char* GetIdent() const noexcept { return m_ident.load(std::memory_order_acquire); }

private:
    mutable std::mutex m_mutex;
    int m_count = 0;
    std::atomic<int> m_initialised{0};
    std::atomic<const char*> m_name{nullptr};
    std::atomic<const char*> m_ident{nullptr};
};

#endif
