#pragma once

#include "panels/video_panel.h"

#include <QWidget>

#include <string>

class QLineEdit;

namespace quillora::forms {

/// `yt_pic`: the box for the link of an online video, and its button.
class VideoPanelWidget : public QWidget, public panels::VideoPanelControls {
    Q_OBJECT

  public:
    explicit VideoPanelWidget(QWidget* parent);

    QSize sizeHint() const override;

    std::string yturl_txt() const override;
    void setYturl_txt(const std::string& text) override;

  signals:
    void asxToolbar1_ButtonClick(const std::string& key);
    void Command3_Click();
    void yturl_txt_GotFocus();
    void yturl_txt_LostFocus();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget* makeToolbar();
    void makeUnreachable();

    QLineEdit* m_yturl_txt;
};

} // namespace quillora::forms
