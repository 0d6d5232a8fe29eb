#include "forms/pointer_area.h"

#include "base/twips.h"
#include "forms/input_values.h"

#include <QMouseEvent>

namespace quillora::forms {

PointerArea::PointerArea(drawing::ScaleUnit unit, QWidget* parent)
    : QWidget(parent), m_unitsPerPixel(unit == drawing::ScaleUnit::twips ? float(base::kTwipsPerPixel) : 1.0F)
{}

void PointerArea::mousePressEvent(QMouseEvent* event) { emit MouseDown(changeOf(*event)); }

void PointerArea::mouseMoveEvent(QMouseEvent* event) { emit MouseMove(moveOf(*event)); }

void PointerArea::mouseReleaseEvent(QMouseEvent* event) { emit MouseUp(changeOf(*event)); }

void PointerArea::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }

drawing::PointerEvent PointerArea::changeOf(const QMouseEvent& event) const
{
    return pointer(event, buttonValue(event.button()));
}

drawing::PointerEvent PointerArea::moveOf(const QMouseEvent& event) const
{
    return pointer(event, buttonValue(event.buttons()));
}

drawing::PointerEvent PointerArea::pointer(const QMouseEvent& event, int button) const
{
    return {.button = button,
            .shift = shiftValue(event.modifiers()),
            .x = float(event.position().x()) * m_unitsPerPixel,
            .y = float(event.position().y()) * m_unitsPerPixel};
}

} // namespace quillora::forms
