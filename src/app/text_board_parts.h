#pragma once

#include "panels/text_board.h"

namespace quillora::forms {
class TextBoardWidget;
class TextPanel;
} // namespace quillora::forms

namespace quillora::app {

/// The text board of the window: its commands, and what connects panel and keys to them.
class TextBoardParts {
  public:
    /// Both must outlive this object.
    TextBoardParts(forms::TextBoardWidget& textBoard_txt, forms::TextPanel& textBoard_pic);
    TextBoardParts(const TextBoardParts&) = delete;
    TextBoardParts& operator=(const TextBoardParts&) = delete;

    panels::TextBoard& logic() { return m_board; }

  private:
    panels::TextBoard m_board;
};

} // namespace quillora::app
