#pragma once

#include "app/message_parts.h"
#include "audio/input_numbers.h"
#include "audio/microphone_level.h"
#include "audio/platform/pulse/pulse_server.h"
#include "audio/platform/pulse/pulse_wave_input.h"
#include "audio/source_mixer.h"
#include "forms/mic_frm.h"
#include "forms/vantry_frm.h"
#include "session/microphone_icon.h"
#include "session/microphone_setting.h"

namespace quillora::app {

/// The Microphone Level dialog with the sound inputs that it sets, and the icon that leads to it.
class MicrophoneParts : public session::MicrophoneSetting {
  public:
    struct Needs {
        const session::SessionFields& fields;
        forms::Vantry_frm& window;
        base::MessageBoxes& boxes;
        MessageParts& messages;
    };
    /// What @p needs refers to must outlive this object.
    explicit MicrophoneParts(const Needs& needs);

    std::string lblVolPer() override { return m_level.lblVolPer(); }
    void showModal() override;

  private:
    void connectForms(forms::Vantry_frm& window);

    audio::PulseServer m_server{};
    audio::InputNumbers m_numbers{m_server};
    audio::PulseWaveInput m_input;
    audio::SourceMixer m_mixer{m_server, m_numbers};
    forms::mic_frm m_form;
    audio::MicrophoneLevel m_level;
    session::MicrophoneIcon m_icon;
};

} // namespace quillora::app
