#include "forms/text_panel.h"

#include "base/twips.h"
#include "forms/colour_swatch.h"
#include "forms/command_button.h"
#include "forms/look.h"

#include <QHBoxLayout>

namespace quillora::forms {

namespace {

constexpr base::Twips kWidth{2640};
constexpr base::Twips kHeight{1395};
constexpr base::Twips kToolbarWidth{2355};
constexpr base::Twips kToolbarHeight{495};
constexpr base::Twips kSecondToolbarTop{480};
constexpr base::Twips kSwatchTop{1080};
constexpr base::Twips kSwatchSide{255};

struct Command {
    const char* key;
    const char* toolTip;
};

constexpr Command kToolbar1[] = {
    {"bold", "Bold"},      {"italic", "Italic"},      {"under", "Underline"},
    {"grow", "Grow font"}, {"shrink", "Shrink font"},
};

constexpr Command kToolbar2[] = {
    {"bullets", "Bullets"},
    {"left", "Align text left"},
    {"center", "Center text"},
    {"right", "Align text right"},
    {"cut", "Cut"},
};

struct Swatch {
    const char* control;
    base::Twips left;
    base::Colour colour;
    const char* spokenName;
};

constexpr Swatch kSwatches[] = {
    {"Picture5", {45}, base::rgb(0, 0, 0), "Black"},
    {"Picture6", {360}, base::rgb(0, 0, 192), "Blue"},
    {"Picture7", {675}, base::rgb(0, 192, 0), "Green"},
    {"Picture8", {990}, base::rgb(255, 0, 0), "Red"},
};

using ButtonClick = void (TextPanel::*)(const std::string&);

void makeToolbar(const char* name, const char* spokenName, base::Twips top, const auto& commands,
                 ButtonClick click, TextPanel* panel)
{
    auto* toolbar = new QWidget(panel);
    toolbar->setObjectName(name);
    toolbar->setAccessibleName(QObject::tr(spokenName));
    toolbar->setGeometry(0, pixels(top), pixels(kToolbarWidth), pixels(kToolbarHeight));
    auto* row = new QHBoxLayout(toolbar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(1);
    for (const Command& command : commands) {
        CommandButton* button =
            makeToolbarButton({command.key, command.key, command.toolTip, command.toolTip}, toolbar);
        button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
        QObject::connect(button, &QToolButton::clicked, panel,
                         [panel, click, key = std::string(command.key)] { emit(panel->*click)(key); });
        row->addWidget(button);
    }
}

} // namespace

TextPanel::TextPanel(QWidget* parent) : QWidget(parent)
{
    setObjectName("textBoard_pic");
    setAccessibleName(tr("Write"));
    setFixedSize(pixels(kWidth), pixels(kHeight));

    makeToolbar("text1_TB", "Characters", {0}, kToolbar1, &TextPanel::text1_TB_ButtonClick, this);
    makeToolbar("text2_TB", "Paragraphs", kSecondToolbarTop, kToolbar2, &TextPanel::text2_TB_ButtonClick,
                this);
    for (const Swatch& each : kSwatches) {
        auto* swatch = new ColourSwatch(each.colour, tr(each.spokenName), this);
        swatch->setObjectName(each.control);
        swatch->setGeometry(pixels(each.left), pixels(kSwatchTop), pixels(kSwatchSide), pixels(kSwatchSide));
        connect(swatch, &ColourSwatch::clicked, this,
                [this, swatch] { emit Swatch_Click(swatch->BackColor()); });
    }
}

} // namespace quillora::forms
