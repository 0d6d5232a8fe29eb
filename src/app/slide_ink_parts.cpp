#include "app/slide_ink_parts.h"

#include "forms/notes_panel.h"
#include "forms/vantry_frm.h"

#include <QObject>

namespace quillora::app {

SlideInkParts::SlideInkParts(const Ports& ports)
    : m_ink({.window = ports.window,
             .slide_img = ports.window.slide_img(),
             .pen = ports.pen,
             .viewer = ports.viewer,
             .assets = ports.assets})
{
    using forms::NotesPanel;
    NotesPanel* panel = &ports.window.Pic_notes();
    QObject::connect(panel, &NotesPanel::pens_TB_ButtonClick, panel,
                     [this](const std::string& key) { m_ink.pens_TB_ButtonClick(key); });
    QObject::connect(panel, &NotesPanel::Option_Click, panel,
                     [this](int number) { m_ink.Option_Click(number); });
    QObject::connect(panel, &NotesPanel::Command10_Click, panel, [this] { m_ink.Command10_Click(); });
}

} // namespace quillora::app
