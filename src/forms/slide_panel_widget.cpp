#include "forms/slide_panel_widget.h"

#include "forms/look.h"

namespace quillora::forms {

SlidePanelWidget::SlidePanelWidget(QWidget* parent) : QWidget(parent)
{
    setObjectName("slide_img_back");
    setAccessibleName(tr("Slide panel"));
    setGeometry(0, 0, pixels(m_width), pixels(m_height));
}

void SlidePanelWidget::setVisible(bool visible) { QWidget::setVisible(visible); }

} // namespace quillora::forms
