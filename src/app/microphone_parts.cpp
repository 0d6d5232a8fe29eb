#include "app/microphone_parts.h"

#include "base/skip_failures.h"

#include <stdexcept>

namespace quillora::app {

MicrophoneParts::MicrophoneParts(const Needs& needs)
    : m_input(m_numbers, needs.messages.queue()),
      m_form(&needs.window),
      m_level({.form = m_form,
               .boxes = needs.boxes,
               .newRecorder =
                   [this, &messages = needs.messages] {
                       return std::make_unique<audio::WaveInRecorder>(
                           audio::WaveInRecorder::Ports{.input = m_input,
                                                        .mixer = m_mixer,
                                                        .windows = messages.windows(),
                                                        .hooks = messages.hooks()});
                   }}),
      m_icon(needs.fields, *this)
{
    connectForms(needs.window);
}

void MicrophoneParts::showModal()
{
    if (m_form.isVisible())
        throw std::runtime_error("the form is shown already");
    m_level.load();
    m_form.exec();
}

void MicrophoneParts::connectForms(forms::Vantry_frm& window)
{
    const auto on = [this](auto* sender, auto signal, auto operation) {
        QObject::connect(sender, signal, &m_form, [operation] { base::skipFailures(operation); });
    };
    using Form = forms::mic_frm;
    on(&m_form, &Form::cboDev_Click, [this] { m_level.cboDev_Click(); });
    on(&m_form, &Form::cboRecLine_Click, [this] { m_level.cboRecLine_Click(); });
    on(&m_form, &Form::sldVol_Scroll, [this] { m_level.sldVol_Scroll(); });
    on(&m_form, &Form::sldVol_Click, [this] { m_level.sldVol_Click(); });
    on(&window, &forms::Vantry_frm::Image3_Click, [this] { m_icon.Image3_Click(); });
}

} // namespace quillora::app
