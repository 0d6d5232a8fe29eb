#pragma once

#include <QCursor>
#include <QImage>
#include <QObject>
#include <QSize>
#include <QString>

class QEvent;

namespace quillora::forms {

/// Where the pages of one browser surface live: outside this process, so that no page can hold up or end a
/// recording. Nothing here waits for a page. Orders given before start(), or after ended(), are lost.
class PageHost : public QObject {
    Q_OBJECT

  public:
    /// Whether starting it anew could help.
    enum class Return { possible, impossible };

    using QObject::QObject;

    /// Brings the host up, or up again. A host that can't come up says so by ended().
    virtual void start() = 0;

    /// An address that is longer than panels::kLongestAddress changes nothing.
    virtual void navigate(const QString& address) = 0;
    virtual void goBack() = 0;
    virtual void goForward() = 0;
    virtual void stop() = 0;
    virtual void reload() = 0;
    virtual void setSilent(bool silent) = 0;
    /// Answered by zoomed() with the same @p request, unless the page never answers.
    virtual void zoom(quint32 request, const QString& zoom) = 0;
    /// In pixels of the form.
    virtual void resize(QSize size) = 0;
    /// A page that isn't shown needs no pictures; it lives on.
    virtual void setShown(bool shown) = 0;
    /// A key, pointer, focus or input method event of the surface; others are ignored.
    virtual void forward(const QEvent& event) = 0;
    /// The answer to newWindowAsked() with the same @p question; the page stands still until it comes.
    virtual void answerNewWindow(quint32 question, bool cancel) = 0;
    /// The newest picture, in pixels of the screen. The next pictureReady() comes after it only.
    virtual QImage takePicture() = 0;

  signals:
    void pictureReady();
    void pointerChanged(Qt::CursorShape shape);
    void newWindowAsked(quint32 question);
    void zoomed(quint32 request, bool applied);
    /// The keyboard's focus went past the page's last element, or before its first.
    void focusPassed(bool forwards);
    /// A page begins to load, for whatever reason.
    void pageStarted();
    /// The process of the page ended by itself; reload() or navigate() bring a new one.
    void pageStopped();
    /// The host is gone; @p why is a sentence for the presenter.
    void ended(const QString& why, Return back);
};

} // namespace quillora::forms
