#include "session/recorder.h"

#include "base/rounding.h"
#include "base/skip_failures.h"
#include "base/text_number.h"

namespace quillora::session {

using base::skipFailures;

namespace {

constexpr std::int16_t kNameLength = 8;

} // namespace

void Recorder::StartRec()
{
    auto& fields = m_ports.fields;
    skipFailures([&] { m_ports.window.SetTopMost(true); },
                 // The same toggle as at the stop, so a start and a stop give the window back as it was.
                 [&] { StopMoveForm(); }, [&] { configureEngine(); }, [&] { configureRegion(); },
                 [&] { nameTheVideo(); }, [&] { m_ports.time.start(m_ports.clock.now()); },
                 [&] { captureEngine().Start(); }, [&] { m_ports.Timer2.enable(); },
                 [&] { fields.recordState = "record"; },
                 [&] { m_ports.window.setStatusPanel(1, "Recording ..."); }, [&] { fields.Text2 = "R"; });
}

void Recorder::PauseRec()
{
    m_ports.window.SetTopMost(false);
    m_ports.fields.Text2 = "P";
    m_ports.time.pause(m_ports.clock.now());
    m_ports.window.setStatusPanel(1, "Paused ...");
    captureEngine().Pause();
    m_ports.Timer2.disable();
}

void Recorder::ResumeRec()
{
    captureEngine().Start();
    m_ports.time.resume(m_ports.clock.now());
    m_ports.window.setStatusPanel(1, "Recording ...");
    m_ports.Timer2.enable();
}

void Recorder::StopRec()
{
    skipFailures([&] { captureEngine().Stop(); }, [&] { m_ports.fields.recordState = "stop"; },
                 [&] { m_ports.window.setStatusPanel(1, "Ready..."); }, [&] { m_ports.Timer2.disable(); },
                 [&] { m_ports.window.SetTopMost(false); }, [&] { StopMoveForm(); },
                 [&] { m_ports.packaging.ZipAsf(); });
}

void Recorder::Timer2_Timer()
{
    const auto now = m_ports.clock.now();
    const auto plain = m_ports.time.plain(now);
    const auto corrected = m_ports.time.corrected(now);
    auto& fields = m_ports.fields;
    fields.runningTime = fields.Text2 == "R" ? plain : corrected;
    skipFailures([&] { m_ports.window.setStatusPanel(4, fields.runningTime); });
}

void Recorder::configureEngine()
{
    const auto& settings = m_ports.options.controls().settings;
    skipFailures([&] { captureEngine().setCaptureCursor(settings.capturecursor_chk); },
                 [&] { captureEngine().setHighlightCursor(settings.highlightCursor_chk); },
                 [&] { captureEngine().setHighlightSize(capture::kHighlightSize); },
                 [&] {
                     const double kilobits = base::leadingNumber(settings.bitrate_txt);
                     captureEngine().setBitrate(base::roundToInt(kilobits * 1000));
                 },
                 [&] {
                     const double framesPerSecond = base::leadingNumber(settings.txtfps);
                     captureEngine().setFrameRate(static_cast<float>(framesPerSecond));
                 });
}

void Recorder::configureRegion()
{
    capture::PixelRectangle stage;
    skipFailures(
        [&] {
            // Not assigned in one step: g++ 12 then drops the empty rectangle that a failure leaves.
            const auto found = m_ports.window.stageRectangle();
            stage = found;
        },
        [&] { captureEngine().setCaptureMode(capture::CaptureMode::rectangle); },
        [&] { captureEngine().setTop(stage.top); }, [&] { captureEngine().setLeft(stage.left); },
        [&] { captureEngine().setWidth(stage.width); }, [&] { captureEngine().setHeight(stage.height); },
        [&] { captureEngine().setOutputWidth(capture::kOutputWidth); },
        [&] { captureEngine().setOutputHeight(capture::kOutputHeight); });
}

void Recorder::nameTheVideo()
{
    auto& fields = m_ports.fields;
    const auto title = m_ports.names.RandomString(kNameLength);
    fields.VidTempTitle_txt = title + ".wmv";
    fields.TempVidFile_txt = m_ports.folders.appData.string() + "/Quillora/" + title + ".wmv";
    skipFailures([&] { captureEngine().setFileName(fields.TempVidFile_txt); });
    fields.Text5 = fields.TempVidFile_txt;
    fields.Text7 = m_ports.names.RandomString(kNameLength) + ".wmv";
}

void Recorder::StopMoveForm()
{
    m_moveLocked = !m_moveLocked;
    m_ports.window.setMoveLocked(m_moveLocked);
}

} // namespace quillora::session
