#include "app/web_parts.h"

#include "forms/stage_widget.h"
#include "forms/vantry_frm.h"
#include "forms/video_panel_widget.h"
#include "forms/web_browser_widget.h"
#include "forms/web_panel_widget.h"

#include <QObject>

namespace quillora::app {

using namespace std::chrono_literals;

WebParts::WebParts(forms::Vantry_frm& window, const std::filesystem::path& browser)
    : m_webPages(browser),
      m_videos(browser),
      m_Timer1(5ms, [this] { m_startPages.Timer1_Timer(); }),
      m_startPages({.WebBrowser1 = window.Picture1().WebBrowser1(),
                    .WebBrowser2 = window.Picture1().WebBrowser2(),
                    .Timer1 = m_Timer1}),
      m_webPanel(
          {.WebBrowser1 = window.Picture1().WebBrowser1(), .controls = window.PicWeb(), .keys = m_keys}),
      m_videoPanel({.WebBrowser2 = window.Picture1().WebBrowser2(), .controls = window.yt_pic()})
{
    window.Picture1().WebBrowser1().setPageHost(m_webPages);
    window.Picture1().WebBrowser2().setPageHost(m_videos);
    connectPanels(window);
}

void WebParts::connectPanels(forms::Vantry_frm& window)
{
    using forms::VideoPanelWidget;
    using forms::WebPanelWidget;
    auto& web = window.PicWeb();
    QObject::connect(&web, &WebPanelWidget::http_txt_KeyPress, &m_webPages,
                     [this](int character) { m_webPanel.http_txt_KeyPress(character); });
    QObject::connect(&web, &WebPanelWidget::web_TB_ButtonClick, &m_webPages,
                     [this](const std::string& key) { m_webPanel.web_TB_ButtonClick(key); });
    auto& video = window.yt_pic();
    QObject::connect(&video, &VideoPanelWidget::asxToolbar1_ButtonClick, &m_videos,
                     [this](const std::string& key) { m_videoPanel.asxToolbar1_ButtonClick(key); });
    QObject::connect(&video, &VideoPanelWidget::Command3_Click, &m_videos,
                     [this] { m_videoPanel.Command3_Click(); });
    QObject::connect(&video, &VideoPanelWidget::yturl_txt_GotFocus, &m_videos,
                     [this] { m_videoPanel.yturl_txt_GotFocus(); });
    QObject::connect(&video, &VideoPanelWidget::yturl_txt_LostFocus, &m_videos,
                     [this] { m_videoPanel.yturl_txt_LostFocus(); });
}

} // namespace quillora::app
