#pragma once

#include "stage/camera_panel_view.h"
#include "tests/support/call_log.h"

#include <array>
#include <stdexcept>
#include <vector>

namespace quillora::tests {

/// A camera panel made of fields, as it comes up.
class FakeCameraPanel : public stage::CameraPanelView {
  public:
    struct Slider {
        bool enabled = true;
        int minimum = 0;
        int maximum = 10;
        int value = 0;
        bool checked = false;

        bool operator==(const Slider&) const = default;
    };

    explicit FakeCameraPanel(CallLog& callLog) : log(callLog) {}

    CallLog& log;
    std::vector<std::string> lines{};
    int listIndex = -1;
    std::array<Slider, 3> sliders{};
    bool settingsShown = false;

    void clearCombo1() override
    {
        log.add("Combo1 cleared");
        lines.clear();
        listIndex = -1;
    }
    void addToCombo1(const std::string& line) override { lines.push_back(line); }
    void setCombo1ListIndex(int index) override
    {
        if (index < 0 || index >= int(lines.size()))
            throw std::out_of_range("no such line");
        log.add("Combo1 at " + std::to_string(index));
        listIndex = index;
    }
    int Combo1ListIndex() const override { return listIndex; }
    void setSliderEnabled(int i, bool enabled) override { slider(i).enabled = enabled; }
    void setSliderMinimum(int i, int minimum) override { slider(i).minimum = minimum; }
    void setSliderMaximum(int i, int maximum) override { slider(i).maximum = maximum; }
    void setSliderValue(int i, int value) override { slider(i).value = value; }
    int sliderValue(int i) const override { return sliders.at(std::size_t(i)).value; }
    void setChecked(int i, bool checked) override { slider(i).checked = checked; }
    bool isChecked(int i) const override { return sliders.at(std::size_t(i)).checked; }
    void setLabel14Visible(bool visible) override
    {
        log.add(visible ? "Label14 shown" : "Label14 hidden");
        settingsShown = visible;
    }

  private:
    Slider& slider(int i) { return sliders.at(std::size_t(i)); }
};

} // namespace quillora::tests
