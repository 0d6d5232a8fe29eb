#pragma once

#include "forms/platform/webengine/browser/hidden_view.h"
#include "forms/platform/webengine/browser/recorder_link.h"
#include "forms/platform/webengine/shared_picture.h"

#include <QPointer>
#include <QTimer>
#include <QWebEngineProfile>

#include <functional>
#include <vector>

namespace quillora::forms::webengine {

class GuardedPage;
class PageWindow;

/// The browser of one surface: does what the recorder orders, and reports what the page shows.
class Browser : public QObject {
    Q_OBJECT

  public:
    Browser(RecorderLink& recorder, SharedPicture& picture);
    ~Browser() override;

  private:
    void handle(const QByteArray& order);
    void navigate(const QString& text);
    void leave(std::function<void()> leave);
    void killHangingPage();
    void pageEnded();
    void zoom(quint32 request, const QString& zoom);
    QWebEnginePage* openWindow();
    void connectView();

    RecorderLink& m_recorder;
    QWebEngineProfile m_profile;
    bool m_silent = false;
    std::vector<QPointer<PageWindow>> m_windows{};
    HiddenView m_view;
    GuardedPage* m_page;
    /// What leads away from the page, until the page is known to be alive; done again when it was not.
    std::function<void()> m_leaving{};
    QTimer m_leavingPatience{};
    bool m_killed = false;
};

} // namespace quillora::forms::webengine
