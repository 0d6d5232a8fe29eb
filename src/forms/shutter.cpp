#include "forms/shutter.h"

#include <QEvent>
#include <QLayout>

namespace quillora::forms {

Shutter::Shutter(QWidget* body, QWidget* parent) : QWidget(parent), m_body(body)
{
    body->setParent(this);
    body->installEventFilter(this);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void Shutter::setOpening(double part)
{
    m_opening = part;
    // What can't be seen must not be reached by Tab.
    m_body->setVisible(part > 0);
    updateGeometry();
}

int Shutter::bodyHeight() const
{
    const QLayout* layout = m_body->layout();
    return layout != nullptr && layout->hasHeightForWidth() ? layout->totalHeightForWidth(width())
                                                            : m_body->sizeHint().height();
}

QSize Shutter::sizeHint() const { return {0, int(bodyHeight() * m_opening)}; }

bool Shutter::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest) {
        placeBody();
        updateGeometry();
    }
    return QWidget::eventFilter(watched, event);
}

void Shutter::resizeEvent(QResizeEvent*) { placeBody(); }

void Shutter::placeBody() { m_body->setGeometry(0, 0, width(), bodyHeight()); }

} // namespace quillora::forms
