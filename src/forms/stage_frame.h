#pragma once

#include <QWidget>

namespace quillora::forms {

/// The hairline around the stage, outside its pixels, and in its place the focus mark when the presenter came
/// to the stage by the keyboard.
class StageFrame : public QWidget {
    Q_OBJECT

  public:
    /// Room that the frame takes on each side of the stage, in pixels.
    static constexpr int kMargin = 3;

    enum class BackStyle { opaque, transparent };

    StageFrame(QWidget& stage, QWidget* parent);

    /// Whether the ground of the form shows between the line and the stage.
    void setBackStyle(BackStyle style);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    enum class Mark { none, focus };
    Mark m_mark = Mark::none;
    BackStyle m_backStyle = BackStyle::opaque;
};

} // namespace quillora::forms
