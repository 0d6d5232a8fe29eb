#pragma once

#include "base/dialogs.h"
#include "forms/capture_options_frm.h"
#include "forms/vantry_frm.h"
#include "forms/window_hints.h"
#include "session/capture_options.h"

#include <memory>

namespace quillora::app {

/// The recording options: their logic, and the form, which is made when it is shown for the first time.
class CaptureOptionsParts : private session::CaptureOptionsForm {
  public:
    struct Ports {
        const session::SessionFields& fields;
        forms::Vantry_frm& window;
        forms::WindowHints& hints;
        base::MessageBoxes& boxes;
        session::CaptureEngineField& captureEngine;
    };
    /// What the ports refer to must outlive this object.
    explicit CaptureOptionsParts(const Ports& ports);
    ~CaptureOptionsParts() override;

    session::CaptureOptions& logic() { return m_logic; }

  private:
    void showModal(const session::OptionControls& controls) override;
    void show(const session::OptionControls& controls) override;
    void SetTopMost(bool flag) override;
    void update(const session::OptionControls& controls) override;
    void hide() override;

    forms::CaptureOptions_frm& form();
    void connectForm();

    Ports m_ports;
    session::CaptureOptions m_logic;
    std::unique_ptr<forms::CaptureOptions_frm> m_form{};
};

} // namespace quillora::app
