#include "forms/up_down_buttons.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>

namespace quillora::forms {

namespace {

constexpr QSize kButtonSize{22, 14};

} // namespace

UpDownButtons::UpDownButtons(QLineEdit& box, const QString& spokenName, QWidget* parent) : QWidget(parent)
{
    setAccessibleName(spokenName);
    setStyleSheet(
        "QToolButton { background: #ffffff; border: 1px solid #d3d9e1; border-radius: 3px; padding: 0; }"
        "QToolButton:hover { background: #eaf0f9; }"
        "QToolButton:pressed { background: #d5e2f5; }"
        "QToolButton:focus { border-color: #1f62c4; }");
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto* up = makeButton(Qt::UpArrow, "up", tr("Increase %1").arg(spokenName));
    auto* down = makeButton(Qt::DownArrow, "down", tr("Decrease %1").arg(spokenName));
    column->addWidget(up);
    column->addWidget(down);
    connect(up, &QToolButton::clicked, this, &UpDownButtons::UpClick);
    connect(down, &QToolButton::clicked, this, &UpDownButtons::DownClick);
    box.installEventFilter(this);
}

QToolButton* UpDownButtons::makeButton(Qt::ArrowType arrow, const QString& name, const QString& spokenName)
{
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setAccessibleName(spokenName);
    button->setArrowType(arrow);
    button->setAutoRepeat(true);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setFixedSize(kButtonSize);
    return button;
}

bool UpDownButtons::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up) {
            emit UpClick();
            return true;
        }
        if (key == Qt::Key_Down) {
            emit DownClick();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace quillora::forms
