#pragma once

#include "base/dialogs.h"
#include "session/capture_engine_field.h"
#include "session/capture_options_form.h"
#include "session/main_window.h"
#include "session/option_controls.h"
#include "session/session_fields.h"

namespace quillora::session {

/// The recording options: what the form `CaptureOptions_frm` does. Its controls are the settings themselves.
/// They come up with their stored values when the form is loaded, at first use, and live until it is
/// unloaded: OK only hides it and so keeps them, Cancel unloads it and so forgets also what an earlier OK had
/// kept.
///
/// Nothing is validated: whatever stands in a box is what a recording is made with. Where the engine can't be
/// asked for its lists, the form doesn't come up, and its next use tries again.
class CaptureOptions {
  public:
    struct Ports {
        const SessionFields& fields;
        MainWindow& window;
        base::MessageBoxes& boxes;
        CaptureEngineField& captureEngine;
        CaptureOptionsForm& form;
    };
    /// What the ports refer to must outlive this object.
    explicit CaptureOptions(const Ports& ports) : m_ports(ports) {}

    /// Loads the form where it isn't; the stored values where it can't be loaded.
    const OptionControls& controls();
    /// Does nothing while recording. Otherwise returns when the form is closed. Throws what the engine
    /// throws.
    void toolbar_options();
    /// The same form beside a main form that doesn't answer until the form is unloaded: hiding it by OK
    /// leaves the main form as it is.
    void showFromTaskPane();

    /// OK.
    void Command1_Click();
    /// Cancel, and the form's own close box.
    void Command2_Click();

    // The steps of the frame rate end at an exact match only: from below 12 the way down is open. Those of
    // the bitrate end at a bound, which one step may pass.
    void UpDown1_DownClick();
    void UpDown1_UpClick();
    void UpDown2_DownClick();
    void UpDown2_UpClick();

    void txtfps_Change(const std::string& text);
    void bitrate_txt_Change(const std::string& text);
    void capturecursor_chk_Click(bool checked);
    void highlightCursor_chk_Click(bool checked);
    void sizeClick(ShowSize size);

    // The help boxes.
    void Picture6_Click();
    void Picture1_Click();
    void Picture4_Click();
    void Picture2_Click();

    /// Puts the form's captions into Arabic, until it is unloaded.
    void langchng();

  private:
    OptionControls& loaded();
    void Form_Load();
    void Form_Unload();
    void step(std::string capture::CaptureSettings::*box, double by);
    void help(const char* text);

    Ports m_ports;
    OptionControls m_controls{};
    bool m_isLoaded = false;
};

} // namespace quillora::session
