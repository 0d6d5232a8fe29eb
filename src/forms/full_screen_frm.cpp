#include "forms/full_screen_frm.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace quillora::forms {

FullScreen_frm::FullScreen_frm()
{
    setObjectName("FullScreen_frm");
    // Neither minimised nor maximised: it would be hard to find without the main form.
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    setWindowTitle(tr("Screen Recording"));
    setAccessibleName(windowTitle());
    auto* column = new QVBoxLayout(this);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->setContentsMargins(18, 14, 18, 14);
    column->setSpacing(8);
    column->addWidget(makePicture(), 0, Qt::AlignHCenter);
    column->addWidget(makeHint());
    column->addSpacing(6);
    auto* full_opt = makeOption("full_opt", tr("Fullscreen"));
    full_opt->setChecked(true);
    m_mouse_opt = makeOption("mouse_opt", tr("Around the mouse"));
    column->addWidget(full_opt);
    column->addWidget(m_mouse_opt);
    column->addSpacing(6);
    column->addWidget(makeButtons());
}

bool FullScreen_frm::mouse_opt() const { return m_mouse_opt->isChecked(); }

QWidget* FullScreen_frm::makePicture()
{
    auto* picture = new QLabel(this);
    picture->setObjectName("Picture1");
    picture->setAccessibleName(tr("Control and R bring the stage back"));
    QPixmap drawing(QStringLiteral(":/quillora/screen_return.png"));
    drawing.setDevicePixelRatio(2);
    picture->setPixmap(drawing);
    return picture;
}

QWidget* FullScreen_frm::makeHint()
{
    auto* hint = new QLabel(tr("To stop screen recording and return back click"), this);
    hint->setObjectName("Label3");
    hint->setAccessibleName(hint->text());
    hint->setAlignment(Qt::AlignHCenter);
    hint->setStyleSheet("color: #c11f1e;");
    return hint;
}

QRadioButton* FullScreen_frm::makeOption(const char* name, const QString& caption)
{
    auto* option = new QRadioButton(caption, this);
    option->setObjectName(name);
    option->setAccessibleName(caption);
    return option;
}

QWidget* FullScreen_frm::makeButtons()
{
    auto* row = new QWidget(this);
    auto* inside = new QHBoxLayout(row);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addStretch();
    auto* start = new QPushButton(tr("Start"), row);
    start->setObjectName("Command1");
    start->setDefault(true);
    connect(start, &QPushButton::clicked, this, &FullScreen_frm::Command1_Click);
    auto* cancel = new QPushButton(tr("Cancel"), row);
    cancel->setObjectName("Command2");
    cancel->setAutoDefault(false);
    connect(cancel, &QPushButton::clicked, this, &FullScreen_frm::Command2_Click);
    for (auto* button : {start, cancel}) {
        button->setAccessibleName(button->text());
        button->setMinimumWidth(84);
        inside->addWidget(button);
    }
    return row;
}

} // namespace quillora::forms
