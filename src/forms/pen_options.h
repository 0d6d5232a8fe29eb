#pragma once

#include <QWidget>

namespace quillora::forms {

/// `Picture28`: the older controls for the pens of the slide, and the button that wipes the ink.
class PenOptions : public QWidget {
    Q_OBJECT

  public:
    explicit PenOptions(QWidget* parent);

  signals:
    /// The number in the option's control name, such as 7 for `Option7`.
    void Option_Click(int number);
    void Command10_Click();
};

/// `Picture29`: how wide the pen is.
class PenWidths : public QWidget {
    Q_OBJECT

  public:
    explicit PenWidths(QWidget* parent);

  signals:
    void Option_Click(int number);
};

} // namespace quillora::forms
