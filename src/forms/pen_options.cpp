#include "forms/pen_options.h"

#include "forms/command_button.h"
#include "forms/option_button.h"

#include <QGridLayout>
#include <QHBoxLayout>

namespace quillora::forms {

namespace {

struct Option {
    int number;
    const char* caption;
    const char* spokenName;
};

constexpr Option kPens[] = {
    {13, "Arrow", "Arrow"},
    {7, "Black pen", "Black pen"},
    {8, "Blue pen", "Blue pen"},
    {9, "Red pen", "Red pen"},
};
constexpr int kColumns = 2;

struct Width {
    Option option;
    /// The dash tells the pen's width by its own size.
    int dashPixels;
};

constexpr Width kWidths[] = {
    {{10, "—", "Thin pen"}, 12},
    {{11, "—", "Middle pen"}, 19},
    {{12, "—", "Thick pen"}, 26},
};

template <typename Panel>
OptionButton* makeOption(const Option& option, Panel* panel)
{
    auto* button = new OptionButton(QObject::tr(option.caption), QObject::tr(option.spokenName), panel);
    button->setObjectName(QString("Option%1").arg(option.number));
    QObject::connect(button, &OptionButton::clicked, panel,
                     [panel, number = option.number] { emit panel->Option_Click(number); });
    return button;
}

} // namespace

PenOptions::PenOptions(QWidget* parent) : QWidget(parent)
{
    setObjectName("Picture28");
    setAccessibleName(tr("Pens"));
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(4);
    int place = 0;
    for (const Option& pen : kPens) {
        grid->addWidget(makeOption(pen, this), place / kColumns, place % kColumns);
        ++place;
    }

    auto* erase = new CommandButton(CommandButton::Face::iconAndCaption, "eraser", tr("Erase pen lines"),
                                    tr("Erase pen lines"), this);
    erase->setObjectName("Command10");
    erase->setToolTip(tr("Wipe the pen lines off this slide"));
    connect(erase, &QToolButton::clicked, this, &PenOptions::Command10_Click);
    grid->addWidget(erase, grid->rowCount(), 0, 1, kColumns, Qt::AlignLeft);
}

PenWidths::PenWidths(QWidget* parent) : QWidget(parent)
{
    setObjectName("Picture29");
    setAccessibleName(tr("Pen width"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(12);
    for (std::size_t i = 0; i < m_widths.size(); ++i) {
        const Width& width = kWidths[i];
        OptionButton* button = makeOption(width.option, this);
        m_widths[i] = button;
        button->setToolTip(tr(width.option.spokenName));
        button->setStyleSheet(QString("font-size: %1px;").arg(width.dashPixels));
        row->addWidget(button);
    }
    row->addStretch();
}

void PenWidths::choose(std::size_t width)
{
    if (!m_widths[width]->isChecked())
        m_widths[width]->click();
}

} // namespace quillora::forms
