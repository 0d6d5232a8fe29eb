#include "forms/task_pane_bar.h"

#include "forms/bar_header.h"
#include "forms/shutter.h"

#include <QStyle>
#include <QVBoxLayout>

namespace quillora::forms {

using session::BarState;

namespace {

constexpr int kMovementMs = 130;

} // namespace

TaskPaneBar::TaskPaneBar(const QString& key, const QString& caption, const QString& iconName, QWidget* parent)
    : QWidget(parent), m_key(key)
{
    setObjectName("ebDemo_" + key);
    setAccessibleName(caption);
    setProperty("kind", "bar");
    setAttribute(Qt::WA_StyledBackground);

    m_header = new BarHeader(iconName, caption, this);
    m_header->setObjectName("ebDemo_" + key + "_header");
    m_header->setChecked(true);
    connect(m_header, &QToolButton::clicked, this,
            [this](bool checked) { setState(checked ? BarState::expanded : BarState::collapsed); });

    auto* body = new QWidget;
    body->setAccessibleName(caption);
    m_bodyColumn = new QVBoxLayout(body);
    m_bodyColumn->setContentsMargins(0, 0, 0, 0);
    m_bodyColumn->setSpacing(0);
    m_shutter = new Shutter(body, this);
    m_shutter->setAccessibleName(caption);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(1, 1, 1, 1);
    column->setSpacing(0);
    column->addWidget(m_header);
    column->addWidget(m_shutter);

    m_movement.setDuration(kMovementMs);
    m_movement.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_movement, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& opening) { m_shutter->setOpening(opening.toDouble()); });
    connect(&m_movement, &QVariantAnimation::finished, this, [this] {
        if (m_state == BarState::expanded)
            emit opened();
    });
}

void TaskPaneBar::addToBody(QWidget* widget)
{
    // A panel of a width of its own stands in the middle.
    const bool fills = widget->maximumWidth() == QWIDGETSIZE_MAX;
    m_bodyColumn->addWidget(widget, 0, fills ? Qt::Alignment() : Qt::AlignHCenter);
    widget->show();
}

void TaskPaneBar::setState(BarState state)
{
    m_header->setChecked(state == BarState::expanded);
    if (state == m_state)
        return;
    m_state = state;
    startMovement();
}

void TaskPaneBar::startMovement()
{
    const double target = m_state == BarState::expanded ? 1 : 0;
    m_movement.stop();
    // Desktops whose users want no movement say so by this hint.
    if (!isVisible() || style()->styleHint(QStyle::SH_Widget_Animate, nullptr, this) == 0) {
        m_shutter->setOpening(target);
        if (m_state == BarState::expanded)
            emit opened();
        return;
    }
    m_movement.setStartValue(m_shutter->opening());
    m_movement.setEndValue(target);
    m_movement.start();
}

} // namespace quillora::forms
