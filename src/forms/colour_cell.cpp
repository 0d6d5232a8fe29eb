#include "forms/colour_cell.h"

#include "drawing/pointer_event.h"
#include "forms/form_colour.h"
#include "forms/input_values.h"
#include "forms/look.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace quillora::forms {

ColourCell::ColourCell(Answers answers, QWidget* parent) : QAbstractButton(parent), m_answers(answers)
{
    setFocusPolicy(Qt::TabFocus);
    connect(this, &QAbstractButton::clicked, this, [this] {
        if (m_answers == Answers::press)
            emit MouseDown(drawing::kLeftButton);
        else
            emit DblClick();
    });
}

void ColourCell::setColour(drawing::Colour colour)
{
    if (colour == m_colour)
        return;
    m_colour = colour;
    update();
}

void ColourCell::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), hasFocus() ? colours::kAccent : colours::kMutedText);
    const int rim = hasFocus() ? 2 : 1;
    painter.fillRect(rect().adjusted(rim, rim, -rim, -rim), toQColor(m_colour));
}

void ColourCell::mousePressEvent(QMouseEvent* event)
{
    if (m_answers == Answers::press)
        emit MouseDown(buttonValue(event->button()));
}

void ColourCell::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (m_answers == Answers::press)
        mousePressEvent(event);
    else if (event->button() == Qt::LeftButton)
        emit DblClick();
}

void ColourCell::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat())
        click();
    else
        event->ignore();
}

bool ColourCell::event(QEvent* event)
{
    // Space would turn to the next slide.
    if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space) {
        event->accept();
        return true;
    }
    return QAbstractButton::event(event);
}

} // namespace quillora::forms
