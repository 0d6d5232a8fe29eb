#pragma once

#include "base/clock.h"
#include "base/dialogs.h"
#include "base/timer.h"
#include "forms/full_screen_frm.h"
#include "forms/vantry_frm.h"
#include "forms/window_hints.h"
#include "session/screen_recording.h"

#include <functional>
#include <memory>

namespace quillora::app {

/// Recording the screen instead of the stage: the logic, and its dialog, which is made when it is shown for
/// the first time.
class ScreenRecordingParts : private session::FullScreenForm {
  public:
    struct Ports {
        session::SessionFields& fields;
        forms::Vantry_frm& window;
        forms::WindowHints& hints;
        base::MessageBoxes& boxes;
        session::CaptureEngineField& captureEngine;
        session::RecordingClock& time;
        const base::WallClock& clock;
        base::Timer& Timer2;
        std::function<void()> ActivateHotKey;
    };
    /// What the ports refer to must outlive this object.
    explicit ScreenRecordingParts(const Ports& ports);
    ~ScreenRecordingParts() override;

    /// Throws what its steps throw.
    void toolbar_screen() { m_logic.toolbar_screen(); }
    /// For the hot key. Never throws.
    void ReturnWindow();

  private:
    void show() override;
    void hide() override;
    bool mouse_opt() const override;

    forms::WindowHints& m_hints;
    session::ScreenRecording m_logic;
    std::unique_ptr<forms::FullScreen_frm> m_form{};
};

} // namespace quillora::app
