#pragma once

#include "capture/capture_engine.h"
#include "capture/capture_ports.h"
#include "capture/recording.h"

#include <vector>

namespace quillora::capture {

/// The engine of this system: keeps the properties, and at Start() makes a Recording of them. Until then it
/// has no threads and no connections, so that making one costs nothing.
///
/// Frame rate, bitrate, size and name belong to the file and are taken up where a recording begins; mode,
/// rectangle, cursor and highlight at each Start(). A number that no file can have becomes the nearest one
/// that it can: a lecture at another frame rate is worth more than none. A recording begins only under a name
/// that was set for it: a Start() that comes at any time, as that of a hot key does, begins none and
/// overwrites none. Used on one thread, that of forms and logic.
class RecordingEngine : public CaptureEngine {
  public:
    static constexpr double kLowestFrameRate = 1;
    static constexpr double kHighestFrameRate = 60;
    static constexpr std::int32_t kLowestBitrate = 50'000;

    explicit RecordingEngine(CapturePorts ports);
    /// Stops.
    ~RecordingEngine() override;

    void setBitrate(std::int32_t bitsPerSecond) override { m_format.bitsPerSecond = bitsPerSecond; }
    void setCaptureMode(CaptureMode mode) override { m_view.mode = mode; }
    void setLeft(std::int32_t pixels) override { m_view.rectangle.left = pixels; }
    void setTop(std::int32_t pixels) override { m_view.rectangle.top = pixels; }
    void setWidth(std::int32_t pixels) override { m_view.rectangle.width = pixels; }
    void setHeight(std::int32_t pixels) override { m_view.rectangle.height = pixels; }
    void setFrameRate(float framesPerSecond) override { m_format.framesPerSecond = framesPerSecond; }
    void setFileName(const std::filesystem::path& path) override
    {
        m_format.path = path;
        m_namedAnew = true;
    }
    void setOutputWidth(std::int32_t pixels) override { m_format.width = pixels; }
    void setOutputHeight(std::int32_t pixels) override { m_format.height = pixels; }
    void setCaptureCursor(bool on) override { m_view.pointer.cursor = on; }
    void setHighlightCursor(bool on) override { m_view.pointer.highlight = on; }
    void setHighlightSize(std::int32_t pixels) override { m_view.pointer.highlightSize = pixels; }

    void Start() override;
    void Pause() override;
    void Stop() override;

    std::int32_t VideoCodecCount() const override;
    std::string VideoCodecName(std::int32_t index) const override;
    /// Asks the sound server anew; AudioDeviceName() names what this call found.
    std::int32_t AudioDeviceCount() const override;
    std::string AudioDeviceName(std::int32_t index) const override;
    std::int32_t AudioLineCount() const override;
    std::string AudioLineName(std::int32_t index) const override;

    /// Of the last recording that was stopped; for measuring.
    Recording::Counts counts() const { return m_counts; }

  private:
    CapturePorts m_ports;
    MediaFormat m_format{};
    CaptureView m_view{};
    /// The name is not that of a recording which has been made.
    bool m_namedAnew = false;
    /// None while idle.
    std::shared_ptr<Recording> m_recording{};
    Recording::Counts m_counts{};
    mutable std::vector<std::string> m_audioDevices{};
};

} // namespace quillora::capture
