#include "forms/text_tool_box.h"

#include "base/rounding.h"
#include "forms/drawing_fonts.h"
#include "forms/form_colour.h"
#include "forms/input_values.h"
#include "forms/look.h"

#include <QApplication>
#include <QFocusEvent>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QPalette>

#include <algorithm>
#include <utility>

namespace quillora::forms {

namespace {

// The room that the toolkit leaves round the words of a field. Without it they are printed where they were
// typed.
constexpr int kInnerMargin = 2;

} // namespace

TextToolBox::TextToolBox(QWidget* parent) : QLineEdit(parent)
{
    setObjectName("txtText");
    setAccessibleName(tr("Text to print"));
    setFrame(false);
    setTextMargins(-kInnerMargin, 0, -kInnerMargin, 0);
    setFocusPolicy(Qt::ClickFocus);
    hide();
}

void TextToolBox::showState(const drawing::DrawingTextBox& box)
{
    if (const QString words = QString::fromStdString(box.Text); text() != words)
        setText(words);
    if (const QFont wanted = formFont(box.Font); font() != wanted)
        setFont(wanted);
    QPalette look = palette();
    look.setColor(QPalette::Base, toQColor(box.BackColor));
    look.setColor(QPalette::Text, toQColor(box.ForeColor));
    if (look != palette())
        setPalette(look);
}

QRect TextToolBox::placeOf(const drawing::DrawingTextBox& box)
{
    // The height that is told is that of a smaller font; a line of words needs its own.
    const int height = std::max(box.Height, QFontMetrics(formFont(box.Font)).height());
    return {base::roundToInt(double(box.Left)), base::roundToInt(double(box.Top)),
            pixels(drawing::DrawingTextBox::kWidth), height};
}

void TextToolBox::keyPressEvent(QKeyEvent* event)
{
    emit KeyDown(keyValue(*event));
    QLineEdit::keyPressEvent(event);
}

void TextToolBox::keyReleaseEvent(QKeyEvent* event)
{
    QLineEdit::keyReleaseEvent(event);
    if (!event->isAutoRepeat())
        emit KeyUp(keyValue(*event));
}

void TextToolBox::mouseDoubleClickEvent(QMouseEvent*) { emit DblClick(); }

void TextToolBox::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    const bool toCanvas = QApplication::focusWidget() == parentWidget();
    if (event->reason() == Qt::MouseFocusReason && toCanvas)
        m_leftByPressOnCanvas = true;
    else if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason)
        emit LostFocus();
}

void TextToolBox::tellOfPressOnCanvas()
{
    if (std::exchange(m_leftByPressOnCanvas, false))
        emit LostFocus();
}

} // namespace quillora::forms
