#include "panels/video_panel.h"

#include "base/skip_failures.h"
#include "panels/service_addresses.h"

namespace quillora::panels {

namespace {

constexpr const char* kPrompt = "Video URL";

} // namespace

void VideoPanel::asxToolbar1_ButtonClick(std::string_view key)
{
    if (key == "youtube")
        play();
}

void VideoPanel::Command3_Click() { play(); }

void VideoPanel::yturl_txt_GotFocus()
{
    if (m_ports.controls.yturl_txt() == kPrompt)
        m_ports.controls.setYturl_txt("");
}

void VideoPanel::yturl_txt_LostFocus()
{
    if (m_ports.controls.yturl_txt().empty())
        m_ports.controls.setYturl_txt(kPrompt);
}

void VideoPanel::play()
{
    // Not encoded: a pasted link's own keys are meant to become keys of the player page's query.
    base::skipFailures(
        [&] { m_ports.WebBrowser2.Navigate(PlayerBaseUrl() + "?v=" + m_ports.controls.yturl_txt()); });
}

} // namespace quillora::panels
