#pragma once

#include "stage/camera_panel_view.h"

#include <QWidget>

#include <array>

class QCheckBox;
class QComboBox;
class QSlider;
class QToolButton;

namespace quillora::forms {

/// The camera's panel `PicDraw1`: the switch, the choice of device, its picture controls. Signals carry what
/// the presenter does, never what the program writes.
class CameraPanel : public QWidget, public stage::CameraPanelView {
    Q_OBJECT

  public:
    explicit CameraPanel(QWidget* parent);

    void clearCombo1() override;
    void addToCombo1(const std::string& line) override;
    void setCombo1ListIndex(int index) override;
    int Combo1ListIndex() const override;
    void setSliderEnabled(int i, bool enabled) override;
    void setSliderMinimum(int i, int minimum) override;
    void setSliderMaximum(int i, int maximum) override;
    void setSliderValue(int i, int value) override;
    int sliderValue(int i) const override;
    void setChecked(int i, bool checked) override;
    bool isChecked(int i) const override;
    void setLabel14Visible(bool visible) override;

  signals:
    /// The switch has been turned to off, or to on.
    void Option5_Click();
    void Option6_Click();
    void Combo1_Click();
    void Slider1_Change(int i);
    void Check1_Click(int i);
    /// Captions of the sliders for contrast and hue.
    void Label12_Click();
    void Label13_Click();
    void Label14_Click();
    /// The older commands for the backdrop.
    void Label19_Click();
    void loadpic_lb_Click();

  private:
    struct Control {
        QSlider* slider;
        QCheckBox* automatic;
    };

    QWidget* makeSwitch();
    QWidget* makeControls();
    void makeBackdropCommands();
    Control makeControl(int i);
    const Control& control(int i) const { return m_controls.at(std::size_t(i)); }

    QComboBox* m_devices;
    std::array<Control, 3> m_controls{};
    QToolButton* m_settings;
};

} // namespace quillora::forms
