#pragma once

#include "base/timer.h"

#include <QTimer>

#include <chrono>
#include <functional>

namespace quillora::forms {

/// A timer of the window's event loop.
class QtTimer : public base::Timer {
  public:
    QtTimer(std::chrono::milliseconds interval, std::function<void()> tick);

    void enable() override;
    void disable() override;

  private:
    QTimer m_timer;
};

} // namespace quillora::forms
