#pragma once

#include <QWebEnginePage>

#include <functional>

class QWebEngineProfile;

namespace quillora::forms::webengine {

/// The profile of a browser: off the record, its requests guarded, and all that a page could take from or
/// leave on this computer refused.
void restrict(QWebEngineProfile& profile);

/// A page that stays a picture on a stage: it goes to addresses of the web only, gets no device, no place, no
/// file and no box of the desktop, and opens a window only where that is granted. Full screen means the whole
/// of its surface.
class GuardedPage : public QWebEnginePage {
    Q_OBJECT

  public:
    /// What the page can't decide for itself.
    struct Owner {
        /// Whether its scripts can't show boxes.
        std::function<bool()> isSilent;
        /// A window for a page that asked for one, or none.
        std::function<QWebEnginePage*()> openWindow;
    };
    GuardedPage(QWebEngineProfile& profile, Owner owner, QObject* parent);

  protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
    QWebEnginePage* createWindow(WebWindowType type) override;
    QStringList chooseFiles(FileSelectionMode mode, const QStringList& oldFiles,
                            const QStringList& acceptedMimeTypes) override;
    void javaScriptAlert(const QUrl& securityOrigin, const QString& text) override;
    bool javaScriptConfirm(const QUrl& securityOrigin, const QString& text) override;
    bool javaScriptPrompt(const QUrl& securityOrigin, const QString& text, const QString& proposed,
                          QString* answer) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& text, int line,
                                  const QString& source) override;

  private:
    void refuseRequests();

    Owner m_owner;
};

} // namespace quillora::forms::webengine
