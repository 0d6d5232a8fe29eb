#include "forms/notes_panel.h"

#include "forms/image_surface_widget.h"
#include "forms/navigation_toolbar.h"
#include "forms/pen_options.h"
#include "forms/pens_toolbar.h"

#include <QFrame>
#include <QLabel>
#include <QVBoxLayout>

namespace quillora::forms {

namespace {

/// The ratio of 16:9 in which the preview is kept, in the width that the panel has.
constexpr QSize kPreviewSize{213, 120};

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

} // namespace

NotesPanel::NotesPanel(QWidget* parent) : QWidget(parent)
{
    setObjectName("Pic_notes");
    setAccessibleName(tr("Slides"));
    setAttribute(Qt::WA_StyledBackground);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(9, 9, 9, 9);
    column->setSpacing(8);
    auto* pens = new PensToolbar(this);
    connect(pens, &PensToolbar::ButtonClick, this, &NotesPanel::pens_TB_ButtonClick);
    column->addWidget(pens);

    auto* navigation = new NavigationToolbar(this);
    connect(navigation, &NavigationToolbar::ButtonClick, this, &NotesPanel::navigation_TB_ButtonClick);
    column->addWidget(navigation);
    column->addSpacing(6);

    column->addWidget(makeLabel(tr("Up next"), "caption", this));
    column->addWidget(makePreviewFrame(m_preview, this), 0, Qt::AlignLeft);
    column->addSpacing(6);

    auto* options = new PenOptions(this);
    connect(options, &PenOptions::Option_Click, this, &NotesPanel::Option_Click);
    connect(options, &PenOptions::Command10_Click, this, &NotesPanel::Command10_Click);
    column->addWidget(options);

    auto* widths = new PenWidths(this);
    connect(widths, &PenWidths::Option_Click, this, &NotesPanel::Option_Click);
    column->addWidget(widths);
    column->addStretch();
}

} // namespace quillora::forms
