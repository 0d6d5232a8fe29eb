#include "app/capture_options_parts.h"

#include "base/skip_failures.h"

#include <stdexcept>

namespace quillora::app {

using forms::CaptureOptions_frm;
using session::CaptureOptions;

CaptureOptionsParts::CaptureOptionsParts(const Ports& ports)
    : m_ports(ports),
      m_logic({.fields = ports.fields,
               .window = ports.window,
               .boxes = ports.boxes,
               .captureEngine = ports.captureEngine,
               .form = *this})
{}

CaptureOptionsParts::~CaptureOptionsParts() = default;

void CaptureOptionsParts::showModal(const session::OptionControls& controls)
{
    auto& dialog = form();
    if (dialog.isVisible())
        throw std::runtime_error("the form is shown already");
    dialog.showControls(controls);
    dialog.exec();
}

void CaptureOptionsParts::show(const session::OptionControls& controls)
{
    auto& dialog = form();
    dialog.showControls(controls);
    dialog.setModal(false);
    dialog.show();
    dialog.raise();
}

void CaptureOptionsParts::SetTopMost(bool flag)
{
    if (m_form && m_form->windowHandle() != nullptr)
        m_ports.hints.setStacking(*m_form->windowHandle(),
                                  flag ? forms::Stacking::above : forms::Stacking::ordinary);
}

void CaptureOptionsParts::update(const session::OptionControls& controls)
{
    if (m_form)
        m_form->showControls(controls);
}

void CaptureOptionsParts::hide()
{
    if (m_form)
        m_form->hide();
}

CaptureOptions_frm& CaptureOptionsParts::form()
{
    if (!m_form) {
        m_form = std::make_unique<CaptureOptions_frm>(&m_ports.window);
        connectForm();
    }
    return *m_form;
}

void CaptureOptionsParts::connectForm()
{
    const auto forward = [this](auto signal, auto operation) {
        QObject::connect(m_form.get(), signal, m_form.get(), [this, operation](auto... arguments) {
            base::skipFailures([&] { (m_logic.*operation)(arguments...); });
        });
    };
    using Form = CaptureOptions_frm;
    using Logic = CaptureOptions;
    forward(&Form::Command1_Click, &Logic::Command1_Click);
    forward(&Form::Command2_Click, &Logic::Command2_Click);
    forward(&Form::UpDown1_UpClick, &Logic::UpDown1_UpClick);
    forward(&Form::UpDown1_DownClick, &Logic::UpDown1_DownClick);
    forward(&Form::UpDown2_UpClick, &Logic::UpDown2_UpClick);
    forward(&Form::UpDown2_DownClick, &Logic::UpDown2_DownClick);
    forward(&Form::txtfps_Change, &Logic::txtfps_Change);
    forward(&Form::bitrate_txt_Change, &Logic::bitrate_txt_Change);
    forward(&Form::capturecursor_chk_Click, &Logic::capturecursor_chk_Click);
    forward(&Form::highlightCursor_chk_Click, &Logic::highlightCursor_chk_Click);
    forward(&Form::sizeClick, &Logic::sizeClick);
    forward(&Form::Picture6_Click, &Logic::Picture6_Click);
    forward(&Form::Picture1_Click, &Logic::Picture1_Click);
    forward(&Form::Picture4_Click, &Logic::Picture4_Click);
    forward(&Form::Picture2_Click, &Logic::Picture2_Click);
}

} // namespace quillora::app
