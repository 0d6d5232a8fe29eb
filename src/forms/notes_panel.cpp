#include "forms/notes_panel.h"

#include "forms/command_button.h"
#include "forms/image_surface_widget.h"
#include "forms/navigation_toolbar.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace quillora::forms {

namespace {

/// The ratio of 16:9 in which the preview is kept, in the width that the panel has.
constexpr QSize kPreviewSize{230, 129};

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
    inside->setContentsMargins(1, 1, 1, 1);
    preview = new ImageSurfaceWidget(ImageSurfaceWidget::Display::fitted, frame);
    preview->setObjectName("slide_img_N");
    preview->setAccessibleName(QObject::tr("Next slide preview"));
    preview->setFixedSize(kPreviewSize);
    inside->addWidget(preview);
    return frame;
}

} // namespace

NotesPanel::NotesPanel(QWidget* parent) : QWidget(parent)
{
    setObjectName("Pic_notes");
    setAccessibleName(tr("Slides"));
    setAttribute(Qt::WA_StyledBackground);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(8, 10, 8, 12);
    column->setSpacing(8);
    column->addWidget(makeLabel(tr("Slides"), "heading", this));
    column->addSpacing(2);

    auto* navigation = new NavigationToolbar(this);
    connect(navigation, &NavigationToolbar::ButtonClick, this, &NotesPanel::navigation_TB_ButtonClick);
    column->addWidget(navigation);
    column->addSpacing(6);

    column->addWidget(makeLabel(tr("Next slide"), "caption", this));
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
}

} // namespace quillora::forms
