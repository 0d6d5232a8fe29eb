#include "app/text_board_parts.h"

#include "forms/text_board_widget.h"
#include "forms/text_panel.h"

#include <QObject>

namespace quillora::app {

TextBoardParts::TextBoardParts(forms::TextBoardWidget& textBoard_txt, forms::TextPanel& textBoard_pic)
    : m_board(textBoard_txt)
{
    using forms::TextPanel;
    QObject::connect(&textBoard_pic, &TextPanel::text1_TB_ButtonClick, &textBoard_txt,
                     [this](const std::string& key) { m_board.text1_TB_ButtonClick(key); });
    QObject::connect(&textBoard_pic, &TextPanel::text2_TB_ButtonClick, &textBoard_txt,
                     [this](const std::string& key) { m_board.text2_TB_ButtonClick(key); });
    QObject::connect(&textBoard_pic, &TextPanel::Swatch_Click, &textBoard_txt,
                     [this](base::Colour BackColor) { m_board.Swatch_Click(BackColor); });
    QObject::connect(&textBoard_txt, &forms::TextBoardWidget::KeyDown, &textBoard_txt,
                     [this](int keyCode, int shift) { m_board.textBoard_txt_KeyDown(keyCode, shift); });
}

} // namespace quillora::app
