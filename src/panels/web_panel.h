#pragma once

#include "panels/key_state.h"
#include "panels/web_browser.h"

#include <deque>
#include <string>
#include <string_view>

namespace quillora::panels {

/// The controls of `PicWeb` that hold something.
class WebPanelControls {
  public:
    virtual ~WebPanelControls() = default;
    /// What stands in the address box, in UTF-8.
    virtual std::string http_txt() const = 0;
    virtual std::string Label24() const = 0;
    virtual void setLabel24(const std::string& text) = 0;
};

/// The controls that drive `WebBrowser1`. The zoom read-out `Label24` is the only state: navigation does not
/// reset it, so the next step counts on from what the presenter reads there, whatever zoom the new page has.
/// No failure of the browser reaches the presenter. On the one thread of forms and logic.
class WebPanel {
  public:
    struct Ports {
        WebBrowser& WebBrowser1;
        WebPanelControls& controls;
        KeyState& keys;
    };
    /// What the ports refer to must outlive this object. Takes the browser's `NewWindow2`.
    explicit WebPanel(const Ports& ports);

    /// @p character as the keyboard gives it; 13 is Enter.
    void http_txt_KeyPress(int character);
    /// "go", "back", "stop", "forward", "zoomin" or "zoomout"; any other key does nothing.
    void web_TB_ButtonClick(std::string_view key);

    void WebBrowser1_NewWindow2(bool& Cancel);

  private:
    enum class Step { in, out };

    void go();
    void zoom(Step step);
    void takeNextStep();
    void stepDone();

    Ports m_ports;
    /// Steps asked for and not done, the first one being with the page: each counts from the read-out that
    /// the one before it leaves.
    std::deque<Step> m_steps{};
};

} // namespace quillora::panels
