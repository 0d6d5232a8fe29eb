#include "session/recording_session.h"

#include "base/skip_failures.h"
#include "base/text_number.h"
#include "session/slide_status.h"
#include "session/window_style.h"

namespace quillora::session {

using base::skipFailures;

namespace {

/// Percent of the input line's range below which the presenter is warned.
constexpr double kLowestLevel = 90;

} // namespace

void RecordingSession::toolbar_record()
{
    if (m_ports.fields.recordState == "stop")
        GoRecord();
}

void RecordingSession::GoRecord()
{
    skipFailures([&] { m_ports.fields.asf_name_lb = "no_video"; }, [&] { m_ports.window.center_form(); },
                 [&] { m_ports.workspace.pointToLocal(); }, [&] { m_spareEngine.reset(); },
                 [&] { m_spareEngine = m_ports.engines.create(); });
    if (!readyToRecord())
        return;
    prepare();
    skipFailures([&] { m_ports.countdown.countDown(); }, [&] { m_ports.window.setCountdownVisible(true); },
                 [&] { m_ports.window.setCountdownPicture(m_ports.assets / "5s.gif"); });
}

bool RecordingSession::readyToRecord()
{
    if (m_ports.fields.ppt_txt == "no") {
        skipFailures([&] {
            m_ports.boxes.show({.text = "Please click Open button to load your slides before recording!",
                                .title = "Quillora",
                                .icon = base::BoxIcon::critical});
        });
        return false;
    }
    // A level that can't be read counts as a text without a number does: as too low, so that the presenter is
    // asked rather than left with a silent recording.
    double level = 0;
    skipFailures([&] { level = base::leadingNumber(m_ports.mic_frm.lblVolPer()); });
    if (level >= kLowestLevel)
        return true;
    auto adjust = base::BoxAnswer::no;
    skipFailures([&] {
        adjust = m_ports.boxes.show({.text = "Microphone level is low!\rWould you like to adjust the audio "
                                             "level before recording?",
                                     .title = "Quillora",
                                     .icon = base::BoxIcon::warning,
                                     .buttons = base::BoxButtons::yesNoDefaultNo});
    });
    if (adjust != base::BoxAnswer::yes)
        return true;
    skipFailures([&] { m_ports.mic_frm.showModal(); });
    return false;
}

void RecordingSession::prepare()
{
    auto& fields = m_ports.fields;
    fields.currentSlide = "1";
    fields.slideStatus = slideStatusText(fields);
    skipFailures([&] { m_ports.window.setStatusPanel(2, fields.slideStatus); },
                 [&] { m_ports.slides.LoadSlide(); }, [&] { SetMinimizeBox(m_ports.window, false); },
                 [&] { m_ports.index.clear(); }, [&] { m_ports.workspace.deleteWMV(); });
}

void RecordingSession::toolbar_pause()
{
    if (m_ports.fields.recordState != "record")
        return;
    m_ports.recorder.PauseRec();
    m_ports.window.setButtonVisible("pause", false);
    m_ports.window.setButtonVisible("resume", true);
    m_ports.fields.recordState = "pause";
    m_ports.window.setCountdownVisible(false);
}

void RecordingSession::toolbar_resume()
{
    if (m_ports.fields.recordState != "pause")
        return;
    m_ports.recorder.ResumeRec();
    m_ports.window.setButtonVisible("pause", true);
    m_ports.window.setButtonVisible("resume", false);
    m_ports.fields.recordState = "record";
    m_ports.window.setCountdownVisible(true);
}

void RecordingSession::toolbar_stop()
{
    if (m_ports.fields.recordState != "record")
        return;
    m_ports.window.setCountdownVisible(false);
    m_ports.window.setStatusPanel(1, "Wait...");
    m_ports.window.processPendingEvents();
    m_ports.window.processPendingEvents();
    m_ports.index.XMLSlideFinish();
    m_ports.workspace.addVersion();
    m_ports.recorder.StopRec();
    m_ports.window.processPendingEvents();
    m_ports.window.setChangeBackVisible(true);
    SetMinimizeBox(m_ports.window, true);
}

} // namespace quillora::session
