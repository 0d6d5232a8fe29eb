#pragma once

#include "forms/platform/webengine/browser_process.h"
#include "forms/qt_key_state.h"
#include "forms/qt_timer.h"
#include "panels/start_pages.h"
#include "panels/video_panel.h"
#include "panels/web_panel.h"

#include <filesystem>

namespace quillora::forms {
class Vantry_frm;
} // namespace quillora::forms

namespace quillora::app {

/// The web page and the online video of the stage: gives both surfaces their browser, which comes up when it
/// is needed, makes the logic of the two panels, and connects what the presenter does in them to it.
class WebParts {
  public:
    /// @p browser is the browser's executable. @p window must outlive this object.
    WebParts(forms::Vantry_frm& window, const std::filesystem::path& browser);

    session::BrowserStart& startPages() { return m_startPages; }
    base::Timer& Timer1() { return m_Timer1; }

  private:
    void connectPanels(forms::Vantry_frm& window);

    forms::webengine::BrowserProcess m_webPages;
    forms::webengine::BrowserProcess m_videos;
    forms::QtKeyState m_keys{};
    forms::QtTimer m_Timer1;
    panels::StartPages m_startPages;
    panels::WebPanel m_webPanel;
    panels::VideoPanel m_videoPanel;
};

} // namespace quillora::app
