#pragma once

#include <QWidget>

#include <string>

namespace quillora::forms {

/// The toolbar `pens_TB`: the arrow, the three pens and the eraser for the slide on the stage.
class PensToolbar : public QWidget {
    Q_OBJECT

  public:
    explicit PensToolbar(QWidget* parent);

  signals:
    /// "arrow", "black", "blue", "red" or "eraser".
    void ButtonClick(const std::string& key);
};

} // namespace quillora::forms
