#include "forms/qt_timer.h"

#include <utility>

namespace quillora::forms {

QtTimer::QtTimer(std::chrono::milliseconds interval, std::function<void()> tick)
{
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(interval);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, std::move(tick));
}

void QtTimer::enable()
{
    // Starting a QTimer that runs would begin its interval anew.
    if (!m_timer.isActive())
        m_timer.start();
}

void QtTimer::disable() { m_timer.stop(); }

} // namespace quillora::forms
