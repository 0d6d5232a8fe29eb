#include "base/platform/pulse/pulse_connection.h"

#include <algorithm>
#include <limits>

namespace quillora::base {

PulseConnection::PulseConnection(const std::optional<std::string>& server) : m_loop(pa_mainloop_new())
{
    // There is no loop where the process has no descriptor left for one.
    if (m_loop)
        m_context.reset(pa_context_new(pa_mainloop_get_api(m_loop.get()), "Quillora Recorder"));
    m_connecting = m_context && pa_context_connect(m_context.get(), server ? server->c_str() : nullptr,
                                                   PA_CONTEXT_NOAUTOSPAWN, nullptr) >= 0;
}

void PulseConnection::turn(std::chrono::microseconds limit)
{
    constexpr std::chrono::microseconds longest{std::numeric_limits<int>::max()};
    const auto timeout = static_cast<int>(std::clamp(limit, std::chrono::microseconds(0), longest).count());
    if (m_loop && pa_mainloop_prepare(m_loop.get(), timeout) >= 0 && pa_mainloop_poll(m_loop.get()) >= 0)
        pa_mainloop_dispatch(m_loop.get());
}

bool PulseConnection::turnUntil(Clock::time_point deadline, const std::function<bool()>& condition)
{
    while (!condition()) {
        const Clock::time_point now = Clock::now();
        if (failed() || now >= deadline)
            return false;
        turn(std::chrono::ceil<std::chrono::microseconds>(deadline - now));
    }
    return true;
}

void PulseConnection::wake()
{
    if (m_loop)
        pa_mainloop_wakeup(m_loop.get());
}

} // namespace quillora::base
