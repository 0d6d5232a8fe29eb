#pragma once

#include <string>

namespace quillora::stage {

/// The camera's panel `PicDraw1`, as its logic writes and reads it. Nothing that is written here counts as
/// done by the presenter.
class CameraPanelView {
  public:
    virtual ~CameraPanelView() = default;

    /// The drop-down list `Combo1`, a line a device.
    virtual void clearCombo1() = 0;
    virtual void addToCombo1(const std::string& line) = 0;
    /// From 0. Throws std::out_of_range when there is no such line.
    virtual void setCombo1ListIndex(int index) = 0;
    /// -1 when no line is chosen.
    virtual int Combo1ListIndex() const = 0;

    /// `Slider1[i]` and `Check1[i]`, i from 0 to 2: brightness, contrast, hue.
    virtual void setSliderEnabled(int i, bool enabled) = 0;
    virtual void setSliderMinimum(int i, int minimum) = 0;
    virtual void setSliderMaximum(int i, int maximum) = 0;
    virtual void setSliderValue(int i, int value) = 0;
    virtual int sliderValue(int i) const = 0;
    virtual void setChecked(int i, bool checked) = 0;
    virtual bool isChecked(int i) const = 0;

    /// The label "Settings", `Label14`.
    virtual void setLabel14Visible(bool visible) = 0;
};

} // namespace quillora::stage
