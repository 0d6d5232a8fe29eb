#pragma once

#include "base/timer.h"
#include "session/browser_start.h"
#include "session/camera_switch.h"
#include "session/main_window.h"
#include "session/recording_session.h"
#include "session/session_fields.h"
#include "session/slide_show.h"
#include "session/task_pane_forms.h"
#include "session/workspace.h"

#include <functional>
#include <utility>

namespace quillora::session {

/// The life of the main form: what happens when it comes up, and when it is closed.
class MainForm {
  public:
    struct Ports {
        SessionFields& fields;
        MainWindow& window;
        SlideShow& slides;
        Workspace& workspace;
        RecordingSession& session;
        TaskPaneForms& pane;
        BrowserStart& browsers;
        /// 5 ms, disabled; the browsers have their step at its first tick.
        base::Timer& Timer1;
        /// Makes the hot key of the desktop.
        std::function<void()> ActivateHotKey;
        CameraSwitch& camera;
    };
    /// What the ports refer to must outlive this object.
    explicit MainForm(Ports ports) : m_ports(std::move(ports)) {}

    /// Builds the short task pane, makes the hot key, makes and empties the Workspace and shows the first
    /// picture, and sends the browsers to their pages. Skips what fails. The widgets must exist.
    void Form_Load();
    /// Runs the whole stop, with its save, when a recording is on; what is paused is given up. Then closes
    /// the camera. The caller ends the process afterwards. Never throws.
    void Form_Unload();
    /// The end of the form without a window to close, such as at the end of the desktop's session.
    void Form_Terminate();

  private:
    Ports m_ports;
};

} // namespace quillora::session
