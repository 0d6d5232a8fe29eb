#include "forms/preview_frm.h"

#include "forms/review_player.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace quillora::forms {

preview_frm::preview_frm(const std::filesystem::path& playerProgram, QWidget* owner)
    : QDialog(owner), m_player(new ReviewPlayer(playerProgram, this)), m_buttons(makeButtons())
{
    setObjectName("preview_frm");
    setWindowTitle(tr("Review"));
    setAccessibleName(windowTitle());
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_player, 1);
    column->addWidget(m_buttons);
    connect(m_player, &ReviewPlayer::fullScreenAsked, this, &preview_frm::turnFullScreen);
}

QWidget* preview_frm::makeButtons()
{
    auto* row = new QWidget(this);
    auto* inside = new QHBoxLayout(row);
    inside->setContentsMargins(10, 2, 10, 10);
    auto* saved = new QLabel(row);
    saved->setObjectName("savedVid_lb");
    inside->addWidget(saved, 1);
    const auto add = [&](const char* name, const QString& caption, void (preview_frm::*clicked)()) {
        auto* button = new QPushButton(caption, row);
        button->setObjectName(name);
        button->setAccessibleName(caption);
        button->setMinimumWidth(84);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, clicked);
        inside->addWidget(button);
        return button;
    };
    add("Command2", tr("Review"), &preview_frm::Command2_Click)->hide();
    add("Command3", tr("Browse"), &preview_frm::Command3_Click);
    add("Command1", tr("Close"), &preview_frm::Command1_Click);
    return row;
}

void preview_frm::turnFullScreen()
{
    m_buttons->setVisible(isFullScreen());
    if (isFullScreen())
        showNormal();
    else
        showFullScreen();
}

void preview_frm::reject()
{
    if (isFullScreen())
        turnFullScreen();
    else
        emit Command1_Click();
}

} // namespace quillora::forms
