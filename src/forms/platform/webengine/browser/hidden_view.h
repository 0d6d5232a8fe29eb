#pragma once

#include <QTimer>
#include <QWebEngineView>

namespace quillora::forms::webengine {

/// A page's window that is on no screen: it paints into memory, and tells when there is something new to see.
class HiddenView : public QWebEngineView {
    Q_OBJECT

  public:
    explicit HiddenView(unsigned char* picture);

    /// The page's own widget, which takes the presenter's input.
    QWidget& pageWidget();
    /// What is new may be painted over the picture that was told of last.
    void pictureTaken();

  signals:
    /// The picture was painted anew; it stays as it is until pictureTaken().
    void painted(QSize size);
    void focusPassed(bool forwards);
    void pointerChanged(Qt::CursorShape shape);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    void paintPicture();

    unsigned char* m_picture;
    QTimer m_pace{};
    bool m_taken = true;
    bool m_dirty = false;
    bool m_painting = false;
    Qt::CursorShape m_pointer = Qt::ArrowCursor;
};

} // namespace quillora::forms::webengine
