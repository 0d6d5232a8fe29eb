#include "forms/notes_panel.h"

#include "forms/command_button.h"
#include "forms/image_surface_widget.h"
#include "forms/navigation_toolbar.h"

#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace quillora::forms {

namespace {

/// The ratio of 16:9 in which the preview is kept, in the width that the panel has.
constexpr QSize kPreviewSize{231, 130};

QLabel* makeLabel(const QString& text, const char* kind, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setProperty("kind", kind);
    label->setAccessibleName(text);
    return label;
}

QWidget* makePreviewFrame(ImageSurfaceWidget*& preview, QWidget* parent)
{
    auto* frame = new QFrame(parent);
    frame->setProperty("kind", "preview");
    frame->setAccessibleName(QObject::tr("Preview"));
    auto* inside = new QVBoxLayout(frame);
    inside->setContentsMargins(0, 0, 0, 0);
    preview = new ImageSurfaceWidget(ImageSurfaceWidget::Display::fitted, frame);
    preview->setObjectName("slide_img_N");
    preview->setAccessibleName(QObject::tr("Next slide preview"));
    preview->setFixedSize(kPreviewSize);
    inside->addWidget(preview);
    return frame;
}

struct KeyHint {
    const char* keys;
    const char* meaning;
};

constexpr KeyHint kKeyHints[] = {
    {"Page Down", "next slide"},
    {"Page Up", "previous slide"},
    {"Home, End", "first, last slide"},
};

QLayout* makeKeyHints(QWidget* parent)
{
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(14);
    grid->setVerticalSpacing(4);
    grid->setColumnStretch(1, 1);
    int row = 0;
    for (const KeyHint& hint : kKeyHints) {
        grid->addWidget(makeLabel(QObject::tr(hint.keys), "key", parent), row, 0);
        grid->addWidget(makeLabel(QObject::tr(hint.meaning), "caption", parent), row, 1);
        ++row;
    }
    return grid;
}

} // namespace

NotesPanel::NotesPanel(QWidget* parent) : QWidget(parent)
{
    setObjectName("Pic_notes");
    setAccessibleName(tr("Slides"));
    setAttribute(Qt::WA_StyledBackground);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(9, 11, 9, 13);
    column->setSpacing(8);
    column->addWidget(makeLabel(tr("Slides"), "heading", this));
    column->addSpacing(2);

    auto* navigation = new NavigationToolbar(this);
    connect(navigation, &NavigationToolbar::ButtonClick, this, &NotesPanel::navigation_TB_ButtonClick);
    column->addWidget(navigation);
    column->addSpacing(6);

    column->addWidget(makeLabel(tr("Up next"), "caption", this));
    column->addWidget(makePreviewFrame(m_preview, this));
    column->addSpacing(6);

    auto* eraseBox = new QWidget(this);
    eraseBox->setObjectName("Picture28");
    eraseBox->setAccessibleName(tr("Pens"));
    auto* eraseRow = new QHBoxLayout(eraseBox);
    eraseRow->setContentsMargins(0, 0, 0, 0);
    auto* erase = new CommandButton(CommandButton::Face::iconAndCaption, "eraser", tr("Erase pen lines"),
                                    tr("Erase pen lines"), eraseBox);
    erase->setObjectName("Command10");
    erase->setToolTip(tr("Wipe the pen lines off this slide"));
    connect(erase, &QToolButton::clicked, this, &NotesPanel::Command10_Click);
    eraseRow->addWidget(erase);
    eraseRow->addStretch();
    column->addWidget(eraseBox);
    column->addStretch();
    column->addLayout(makeKeyHints(this));
}

} // namespace quillora::forms
