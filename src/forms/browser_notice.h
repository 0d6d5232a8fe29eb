#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace quillora::forms {

/// What a browser surface shows in the place of a page that it can't show: a sentence, and perhaps a button.
/// It may well be recorded, so it is as quiet as a blank page.
class BrowserNotice : public QWidget {
    Q_OBJECT

  public:
    enum class Offer { nothing, reload };

    explicit BrowserNotice(QWidget* parent);

    void tell(const QString& heading, const QString& text, Offer offer);

  signals:
    void reloadClicked();

  private:
    QLabel* m_heading;
    QLabel* m_text;
    QPushButton* m_reload;
};

} // namespace quillora::forms
