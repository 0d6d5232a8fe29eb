#pragma once

#include "audio/wave_in_recorder.h"
#include "base/dialogs.h"

#include <functional>
#include <memory>
#include <string>

namespace quillora::audio {

/// The controls of the dialog `mic_frm`, whose logic is MicrophoneLevel.
class MicrophoneControls {
  public:
    enum class List { cboDev, cboRecLine };
    enum class Devices { none, some };

    virtual ~MicrophoneControls() = default;

    virtual void clear(List list) = 0;
    virtual void addItem(List list, const std::string& text) = 0;
    virtual int listIndex(List list) const = 0;
    /// Chooses an item, -1 for none, and raises the list's click as a choice by hand does. Throws
    /// std::out_of_range for an item that isn't there.
    virtual void setListIndex(List list, int index) = 0;
    /// Without a device the lists say so in their place, and there is nothing to set.
    virtual void setDevices(Devices devices) = 0;

    /// From 0 to 65535. Setting it raises nothing.
    virtual int sldVol() const = 0;
    virtual void setSldVol(int value) = 0;
    /// At first "100%".
    virtual std::string lblVolPer() const = 0;
    virtual void setLblVolPer(const std::string& text) = 0;
};

/// The Microphone Level dialog: chooses the recording device and its line, and sets the line's volume. Its
/// label `lblVolPer` tells the volume in percent: what is set, not what is heard. The dialog is loaded when
/// it is first asked for, shown or not, and stays loaded. On the one thread of forms and logic.
class MicrophoneLevel {
  public:
    struct Ports {
        MicrophoneControls& form;
        base::MessageBoxes& boxes;
        std::function<std::unique_ptr<WaveInRecorder>()> newRecorder;
    };
    /// What the ports refer to must outlive this object.
    explicit MicrophoneLevel(Ports ports);

    /// Form_Load at the first call. A machine without a device is looked at again at the next one, so that
    /// one that is plugged in meanwhile is found.
    void load();
    /// Loads the dialog.
    std::string lblVolPer();

    void cboDev_Click();
    void cboRecLine_Click();
    void sldVol_Scroll();
    void sldVol_Click() { sldVol_Scroll(); }

  private:
    using List = MicrophoneControls::List;

    void Form_Load();
    int FillDeviceList();
    void FillLineList();
    void warn(const std::string& text);

    Ports m_ports;
    std::unique_ptr<WaveInRecorder> m_clsRecorder{};
    bool m_loaded = false;
};

} // namespace quillora::audio
