#pragma once

#include <QObject>

class QWidget;

namespace quillora::forms {

/// While it lives, a window doesn't answer to the mouse and the keyboard. Unlike a window that is disabled in
/// the toolkit's way it looks as ever, since what stands on it may be being filmed. It can be closed.
class InputBlock : public QObject {
    Q_OBJECT

  public:
    explicit InputBlock(QWidget& window);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget& m_window;
};

} // namespace quillora::forms
