#pragma once

#include "base/colour.h"

#include <QWidget>

#include <string>

namespace quillora::forms {

/// The panel `textBoard_pic` with what formats the text board: two toolbars and four colours.
class TextPanel : public QWidget {
    Q_OBJECT

  public:
    explicit TextPanel(QWidget* parent);

  signals:
    /// "bold", "italic", "under", "grow" or "shrink".
    void text1_TB_ButtonClick(const std::string& key);
    /// "bullets", "left", "center", "right" or "cut".
    void text2_TB_ButtonClick(const std::string& key);
    /// One of `Picture5` to `Picture8`, with the colour that it shows.
    void Swatch_Click(quillora::base::Colour BackColor);
};

} // namespace quillora::forms
