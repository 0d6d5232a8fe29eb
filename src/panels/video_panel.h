#pragma once

#include "panels/web_browser.h"

#include <string>
#include <string_view>

namespace quillora::panels {

/// The box of `yt_pic` that holds something.
class VideoPanelControls {
  public:
    virtual ~VideoPanelControls() = default;
    /// What stands in the box, in UTF-8.
    virtual std::string yturl_txt() const = 0;
    virtual void setYturl_txt(const std::string& text) = 0;
};

/// The address box of the online video and its two buttons. The service's player page gets the whole text as
/// it was pasted, an id or a full link, and finds the video in it. On the one thread of forms and logic.
class VideoPanel {
  public:
    struct Ports {
        WebBrowser& WebBrowser2;
        VideoPanelControls& controls;
    };
    /// What the ports refer to must outlive this object.
    explicit VideoPanel(const Ports& ports) : m_ports(ports) {}

    /// "youtube" plays; any other key does nothing.
    void asxToolbar1_ButtonClick(std::string_view key);
    void Command3_Click();

    /// The box is its own label: the prompt goes when the presenter comes, and comes back to an empty box.
    void yturl_txt_GotFocus();
    void yturl_txt_LostFocus();

  private:
    void play();

    Ports m_ports;
};

} // namespace quillora::panels
