#include "forms/main_toolbar.h"

#include "forms/command_button.h"
#include "forms/separator.h"

#include <QHBoxLayout>

namespace quillora::forms {

namespace {

enum class Stored { shown, hidden };

struct Place {
    const char* key;
    const char* caption;
    Stored visibility;
    /// Empty for a separator.
    const char* spokenName;
    const char* toolTip;
};

constexpr Place kPlaces[] = {
    {"open", "Open", Stored::shown, "Open", "Open a slide deck (Ctrl+O)"},
    {"options", "Options", Stored::shown, "Options", "Recording options"},
    {"sep3", "", Stored::shown, "", ""},
    {"record", "Record", Stored::shown, "Record", "Record the stage, after a countdown of five seconds"},
    {"pause", "Pause", Stored::shown, "Pause", "Pause the recording"},
    {"resume", "Resume", Stored::hidden, "Resume", "Go on with the recording"},
    {"stop", "Stop", Stored::shown, "Stop", "End the recording and save it"},
    {"preview", "Review", Stored::shown, "Review", "Watch the last recording"},
    {"sepa1", "", Stored::shown, "", ""},
    {"slides", "Slides", Stored::shown, "Slides", "Show the slides on the stage"},
    {"text", "Write", Stored::hidden, "Write", "Show the text board on the stage"},
    {"draw", "Draw", Stored::hidden, "Draw", "Show the drawing board on the stage"},
    {"web", "Web", Stored::hidden, "Web", "Show a web page on the stage"},
    {"youtube", "YouTube", Stored::hidden, "YouTube", "Show an online video on the stage"},
    {"desktop", "Screen", Stored::hidden, "Screen", "Record the whole screen"},
    {"upload", "Upload ASF", Stored::hidden, "Upload ASF", "Upload a saved presentation"},
    {"more", "More", Stored::shown, "More", "Show all media"},
    {"less", "", Stored::hidden, "Less", "Show fewer media"},
};

} // namespace

MainToolbar::MainToolbar(QWidget* parent) : QWidget(parent)
{
    setObjectName("main_TB");
    setAccessibleName(tr("Main toolbar"));
    setAttribute(Qt::WA_StyledBackground);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 0, 8, 0);
    row->setSpacing(2);
    for (const Place& place : kPlaces) {
        const QString key = place.key;
        QWidget* widget = nullptr;
        if (*place.spokenName == '\0') {
            widget = makeSeparator(22, this);
        } else {
            const auto face =
                *place.caption == '\0' ? CommandButton::Face::iconOnly : CommandButton::Face::iconAndCaption;
            auto* button = new CommandButton(face, key, tr(place.caption), tr(place.spokenName), this);
            button->setToolTip(tr(place.toolTip));
            connect(button, &QToolButton::clicked, this,
                    [this, key] { emit ButtonClick(key.toStdString()); });
            widget = button;
        }
        widget->setObjectName("main_TB_" + key);
        widget->setVisible(place.visibility == Stored::shown);
        row->addWidget(widget);
        m_places.insert(key, widget);
    }
    row->addStretch();
}

void MainToolbar::setButtonVisible(std::string_view key, bool visible)
{
    if (QWidget* place = m_places.value(QString::fromUtf8(key)))
        place->setVisible(visible);
}

} // namespace quillora::forms
