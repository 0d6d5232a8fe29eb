#pragma once

#include <QWidget>

class QLineEdit;
class QToolButton;

namespace quillora::forms {

/// The two small buttons that step the number in the box beside them. The arrow keys step it from inside the
/// box.
class UpDownButtons : public QWidget {
    Q_OBJECT

  public:
    /// @p spokenName is what is stepped, such as "frame rate".
    UpDownButtons(QLineEdit& box, const QString& spokenName, QWidget* parent);

  signals:
    void UpClick();
    void DownClick();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QToolButton* makeButton(Qt::ArrowType arrow, const QString& name, const QString& spokenName);
};

} // namespace quillora::forms
