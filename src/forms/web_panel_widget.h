#pragma once

#include "panels/web_panel.h"

#include <QWidget>

#include <string>

class QLabel;
class QLineEdit;

namespace quillora::forms {

/// `PicWeb`: the address box, the toolbar and the zoom read-out of the web page on the stage. Where the pane
/// is narrower, the box and the toolbar are, too.
class WebPanelWidget : public QWidget, public panels::WebPanelControls {
    Q_OBJECT

  public:
    explicit WebPanelWidget(QWidget* parent);

    QSize sizeHint() const override;

    std::string http_txt() const override;
    std::string Label24() const override;
    void setLabel24(const std::string& text) override;

  signals:
    /// Enter, as 13. All other keys are the box's own.
    void http_txt_KeyPress(int character);
    void web_TB_ButtonClick(const std::string& key);

  private:
    QWidget* makeToolbar();
    void makeUnreachable();

    QLineEdit* m_http_txt;
    QLabel* m_Label24;
};

} // namespace quillora::forms
