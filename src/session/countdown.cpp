#include "session/countdown.h"

#include "base/skip_failures.h"
#include "base/text_number.h"

namespace quillora::session {
namespace {

using namespace std::chrono_literals;

constexpr int kSeconds = 5;
constexpr int kBeepHz = 900;
constexpr auto kBeepDuration = 200ms;

} // namespace

void Countdown::countDown()
{
    m_countDownLeft = kSeconds;
    m_ports.window.setCountdownVisible(true);
    m_ports.countDown_tmr2.enable();
    m_ports.announcement.recordingIsNear();
}

void Countdown::countDown_tmr2_Timer()
{
    --m_countDownLeft;
    m_countDownFrame = base::decimalText(m_countDownLeft) + "s.gif";
    if (m_countDownLeft < 1)
        base::skipFailures([&] { m_ports.window.setCountdownPicture(m_ports.assets / "records.gif"); },
                           [&] { m_ports.beeper.Beep(kBeepHz, kBeepDuration); });
    else
        base::skipFailures([&] { m_ports.window.setCountdownPicture(m_ports.assets / m_countDownFrame); });
    if (m_countDownLeft == 0)
        base::skipFailures(
            [&] { m_ports.countDown_tmr2.disable(); }, [&] { m_ports.window.setChangeBackVisible(false); },
            [&] { m_countDownEnd = m_ports.clock.now(); }, [&] { m_ports.recorder.StartRec(); });
}

} // namespace quillora::session
