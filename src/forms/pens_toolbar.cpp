#include "forms/pens_toolbar.h"

#include "base/twips.h"
#include "forms/command_button.h"
#include "forms/look.h"

#include <QHBoxLayout>

namespace quillora::forms {

namespace {

constexpr base::Twips kWidth{2535};
constexpr base::Twips kHeight{495};

constexpr ToolbarButton kTools[] = {
    {"arrow", "arrow", "Arrow", "Arrow: put the pen down"},
    {"black", "pen_black", "Black pen", "Draw on the slide in black"},
    {"blue", "pen_blue", "Blue pen", "Draw on the slide in blue"},
    {"red", "pen_red", "Red pen", "Draw on the slide in red"},
    {"eraser", "eraser", "Erase all pen lines", "Wipe all pen lines off this slide"},
};

} // namespace

PensToolbar::PensToolbar(QWidget* parent) : QWidget(parent)
{
    setObjectName("pens_TB");
    setAccessibleName(tr("Slide pens"));
    setFixedSize(pixels(kWidth), pixels(kHeight));

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    for (const ToolbarButton& tool : kTools) {
        CommandButton* button = makeToolbarButton(tool, this);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        connect(button, &QToolButton::clicked, this,
                [this, key = std::string(tool.key)] { emit ButtonClick(key); });
        row->addWidget(button);
    }
}

} // namespace quillora::forms
