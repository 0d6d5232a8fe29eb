#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

namespace quillora::capture {

/// Which part of the screen a segment of a recording takes. The values are those of the interface.
enum class CaptureMode : std::int32_t {
    rectangle = 0,
    aroundMouse = 2,
    wholeScreen = 3,
};

/// Turns a region of the screen and the default sound input into a Windows Media Video file.
///
/// It is idle, running or paused. Properties may be set at any time; Start() takes them up. All operations
/// are called on the thread of forms and logic; capture itself goes on elsewhere. Failures are reported by
/// exception (std::runtime_error), but nothing may depend on hearing of one: the callers skip it.
class CaptureEngine {
  public:
    virtual ~CaptureEngine() = default;

    /// Bits per second of the video.
    virtual void setBitrate(std::int32_t bitsPerSecond) = 0;
    virtual void setCaptureMode(CaptureMode mode) = 0;
    /// The rectangle of CaptureMode::rectangle in screen pixels. Any part of it off the screen is black.
    virtual void setLeft(std::int32_t pixels) = 0;
    virtual void setTop(std::int32_t pixels) = 0;
    virtual void setWidth(std::int32_t pixels) = 0;
    virtual void setHeight(std::int32_t pixels) = 0;
    /// Frames per second.
    virtual void setFrameRate(float framesPerSecond) = 0;
    virtual void setFileName(const std::filesystem::path& path) = 0;
    /// Size of the video frame; whatever region is taken is scaled to it.
    virtual void setOutputWidth(std::int32_t pixels) = 0;
    virtual void setOutputHeight(std::int32_t pixels) = 0;
    virtual void setCaptureCursor(bool on) = 0;
    virtual void setHighlightCursor(bool on) = 0;
    /// Diameter of the highlight in pixels.
    virtual void setHighlightSize(std::int32_t pixels) = 0;

    /// Begins a recording into the file; when paused, continues the same file with the property values of
    /// now. When running, takes up mode, rectangle and pointer of now and goes on: who brings the stage back
    /// starts an engine whatever its state, and what is chosen after that must not be lost.
    virtual void Start() = 0;
    /// Suspends writing; the file stays open. Harmless when paused or idle.
    virtual void Pause() = 0;
    /// Ends the recording and closes the file. Harmless when idle.
    virtual void Stop() = 0;

    virtual std::int32_t VideoCodecCount() const = 0;
    virtual std::string VideoCodecName(std::int32_t index) const = 0;
    virtual std::int32_t AudioDeviceCount() const = 0;
    virtual std::string AudioDeviceName(std::int32_t index) const = 0;
    virtual std::int32_t AudioLineCount() const = 0;
    virtual std::string AudioLineName(std::int32_t index) const = 0;
};

/// Creates engines. The session makes one at each press of Record besides the one that it records with.
class CaptureEngineFactory {
  public:
    virtual ~CaptureEngineFactory() = default;
    virtual std::unique_ptr<CaptureEngine> create() = 0;
};

} // namespace quillora::capture
