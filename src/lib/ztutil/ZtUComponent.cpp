#include <ztutil/ZtUComponent.h>

int ZtUComponent::Initialise(const char* name, const char* ident) {
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_count++ > 0) return 0;
    m_name.store(name, std::memory_order_release);
    m_ident.store(ident, std::memory_order_release);
    m_initialised.store(1, std::memory_order_release);
    return 1;
}

int ZtUComponent::Terminate() {
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_count == 0) return 0;
    if (--m_count > 0) return 0;
    m_initialised.store(0, std::memory_order_release);
    return 1;
}

int ZtUComponent::GetInitCount() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_count;
}
