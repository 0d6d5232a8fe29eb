#pragma once

#include "base/timer.h"
#include "panels/web_browser.h"
#include "session/browser_start.h"

namespace quillora::panels {

/// Where both browsers of the stage begin. On the one thread of forms and logic.
class StartPages : public session::BrowserStart {
  public:
    struct Ports {
        WebBrowser& WebBrowser1;
        WebBrowser& WebBrowser2;
        /// 5 ms, disabled.
        base::Timer& Timer1;
    };
    /// What the ports refer to must outlive this object.
    explicit StartPages(const Ports& ports) : m_ports(ports) {}

    /// Sends each browser to its page of the service. One that fails does not keep the other back.
    /// Never throws.
    void navigate() override;
    /// Ticks once: from then on the pages of `WebBrowser1` can't show boxes.
    void Timer1_Timer();

  private:
    Ports m_ports;
};

} // namespace quillora::panels
