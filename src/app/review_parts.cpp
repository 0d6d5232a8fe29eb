#include "app/review_parts.h"

#include "base/skip_failures.h"
#include "forms/review_player.h"

#include <stdexcept>

namespace quillora::app {

using forms::preview_frm;
using session::Review;

ReviewParts::ReviewParts(const Ports& ports)
    : m_window(ports.window),
      m_playerProgram(ports.playerProgram),
      m_logic({.fields = ports.fields,
               .workspace = ports.workspace,
               .zip = ports.zip,
               .CommonDialog1 = ports.CommonDialog1,
               .preview_frm = *this})
{}

ReviewParts::~ReviewParts() = default;

void ReviewParts::preview()
{
    m_logic.preview();
    m_form.reset();
}

void ReviewParts::load()
{
    m_form = std::make_unique<preview_frm>(m_playerProgram, &m_window);
    const auto forward = [this](auto signal, auto operation) {
        QObject::connect(m_form.get(), signal, m_form.get(),
                         [this, operation] { base::skipFailures([&] { (m_logic.*operation)(); }); });
    };
    forward(&preview_frm::Command1_Click, &Review::Command1_Click);
    forward(&preview_frm::Command2_Click, &Review::Command2_Click);
    forward(&preview_frm::Command3_Click, &Review::Command3_Click);
}

void ReviewParts::showModal() { m_form->exec(); }

void ReviewParts::unload() { m_form->hide(); }

session::VideoPlayer& ReviewParts::WindowsMediaPlayer1()
{
    if (!m_form)
        throw std::runtime_error("there is no player without its form");
    return m_form->WindowsMediaPlayer1();
}

} // namespace quillora::app
