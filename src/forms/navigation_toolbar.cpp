#include "forms/navigation_toolbar.h"

#include "forms/command_button.h"

#include <QHBoxLayout>

namespace quillora::forms {

namespace {

struct Move {
    const char* key;
    const char* spokenName;
    const char* toolTip;
};

constexpr Move kMoves[] = {
    {"first", "First slide", "First slide (Home)"},
    {"pre", "Previous slide", "Previous slide (Page Up)"},
    {"next", "Next slide", "Next slide (Page Down)"},
    {"last", "Last slide", "Last slide (End)"},
};

} // namespace

NavigationToolbar::NavigationToolbar(QWidget* parent) : QWidget(parent)
{
    setObjectName("navigation_TB");
    setAccessibleName(tr("Slide navigation"));

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(6);
    for (const Move& move : kMoves) {
        CommandButton* button = makeToolbarButton({move.key, move.key, move.spokenName, move.toolTip}, this);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        button->setFixedHeight(38);
        connect(button, &QToolButton::clicked, this,
                [this, key = std::string(move.key)] { emit ButtonClick(key); });
        row->addWidget(button);
    }
}

} // namespace quillora::forms
