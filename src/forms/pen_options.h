#pragma once

#include <QWidget>

#include <array>

namespace quillora::forms {

class OptionButton;

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

    /// Choose a width as a click would. No control leads to them; they are there for whoever calls them.
    void chooseOption10() { choose(0); }
    void chooseOption11() { choose(1); }
    void chooseOption12() { choose(2); }

  signals:
    void Option_Click(int number);

  private:
    void choose(std::size_t width);

    std::array<OptionButton*, 3> m_widths{};
};

} // namespace quillora::forms
