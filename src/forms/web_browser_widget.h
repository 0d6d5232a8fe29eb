#pragma once

#include "forms/browser_notice.h"
#include "panels/web_browser.h"

#include <QImage>
#include <QPointer>
#include <QWidget>

#include <map>

namespace quillora::forms {

class PageHost;

/// A browser surface of the stage, `WebBrowser1` or `WebBrowser2`: shows the pictures that its page host
/// makes, and hands it what the presenter does. The host is started when it is needed for the first time:
/// when the surface is shown, or when a page is asked for after the start page. Until then nothing of a
/// browser is in memory. A host or page that ends leaves a notice with a way to reload. Never waits for a
/// page.
class WebBrowserWidget : public QWidget, public panels::WebBrowser {
    Q_OBJECT

  public:
    /// @p controlName is the surface's name, @p spokenName what a person would call it.
    WebBrowserWidget(const char* controlName, const QString& spokenName, QWidget* parent);
    ~WebBrowserWidget() override;

    /// Gives the surface its host, which must outlive it or be its only one. Without one it stays blank.
    void setPageHost(PageHost& host);

    void Navigate(const std::string& address) override;
    void GoBack() override;
    void GoForward() override;
    void Stop() override;
    void setDocumentZoom(const std::string& zoom, std::function<void(panels::ZoomOutcome)> done) override;
    void setSilent(bool silent) override;
    void setNewWindow2(NewWindow2 handler) override;

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

  private:
    enum class Life { notStarted, running, ended };

    void connectHost();
    void begin();
    void reload();
    void takePicture();
    bool passesFocusOn(const QFocusEvent& event);
    void finishZoom(quint32 request, panels::ZoomOutcome outcome);
    void failZooms();
    void askForNewWindow(quint32 question);
    void pageStopped();
    void hostEnded(const QString& why, BrowserNotice::Offer offer);

    QPointer<PageHost> m_host;
    BrowserNotice* m_notice;
    Life m_life = Life::notStarted;
    /// The last one asked for; a null text before the first.
    QString m_address{};
    bool m_silent = false;
    NewWindow2 m_newWindow2{};
    std::map<quint32, std::function<void(panels::ZoomOutcome)>> m_zooms{};
    quint32 m_lastZoom = 0;
    QImage m_picture{};
    /// A picture that nobody would see has not been fetched.
    bool m_pictureWaits = false;
};

} // namespace quillora::forms
