#pragma once

#include <QWidget>

namespace quillora::forms {

/// `campos_pic`: a small stage with a button in each corner, which puts the camera into that corner over the
/// media.
class CornerButtons : public QWidget {
    Q_OBJECT

  public:
    explicit CornerButtons(QWidget* parent);

  signals:
    void Picture17_Click();
    void Picture21_Click();
    void Picture22_Click();
    void Picture23_Click();

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quillora::forms
