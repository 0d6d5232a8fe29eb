#pragma once

#include <QWidget>

namespace quillora::forms {

/// The mode strip `Picture_cont1`: how media and camera share the stage. Its two ways to "side" do the same:
/// `Picture24` is the button, `Picture4` the caption below it.
class ModeStrip : public QWidget {
    Q_OBJECT

  public:
    explicit ModeStrip(QWidget* parent);

  signals:
    void Picture26_Click();
    void Picture19_Click();
    void Picture24_Click();
    void Picture4_Click();
    /// An older place to click, below the visible part of `Picture4`.
    void Picture16_Click();

  private:
    void makeSideBySide();
};

} // namespace quillora::forms
