#include "stage/platform/v4l2/v4l2_video_cap.h"

#include <algorithm>
#include <array>
#include <linux/videodev2.h>
#include <stdexcept>
#include <utility>

namespace quillora::stage {
namespace {

using namespace std::chrono_literals;

/// What this interface calls the picture controls, and the switch of a control's automatic mode. There is
/// none for the contrast, and none can be asked for by a negated index for control 0, the brightness: its own
/// (V4L2_CID_AUTOBRIGHTNESS) is reached by the settings dialog only.
struct ControlIds {
    std::uint32_t value;
    std::optional<std::uint32_t> automatic;
};

constexpr std::array<ControlIds, kVideoControlCount> kControls = {{
    {V4L2_CID_BRIGHTNESS, V4L2_CID_AUTOBRIGHTNESS},
    {V4L2_CID_CONTRAST, std::nullopt},
    {V4L2_CID_HUE, V4L2_CID_HUE_AUTO},
}};

const ControlIds& controlAt(int index)
{
    if (index < 0 || index >= kVideoControlCount)
        throw std::out_of_range("no such picture control");
    return kControls[std::size_t(index)];
}

} // namespace

V4l2VideoCap::V4l2VideoCap(Ports ports) : m_ports(std::move(ports)) {}

V4l2VideoCap::~V4l2VideoCap()
{
    disconnect();
    // A device that is well is closed in order; one that hangs is left to the end of the process.
    for (const auto& each : m_leaving)
        each.mailbox->waitUntilClosed({.longest = 300ms});
}

bool V4l2VideoCap::connected() const { return m_mailbox && m_mailbox->open(); }

void V4l2VideoCap::setConnected(bool connected)
{
    disconnect();
    if (connected)
        connect();
}

void V4l2VideoCap::connect()
{
    if (m_deviceIndex < 0 || m_deviceIndex >= int(m_found.size()))
        throw std::runtime_error("no such camera");
    m_target.node = m_found[std::size_t(m_deviceIndex)].path;
    // Until it is closed the device is in use, by this program itself.
    std::erase_if(m_leaving,
                  [](const Leaving& each) { return each.mailbox->waitUntilClosed({.longest = 0ms}); });
    const auto before = std::ranges::find(m_leaving, m_target.node, &Leaving::node);
    if (before != m_leaving.end()) {
        const auto mailbox = before->mailbox;
        if (!mailbox->waitUntilClosed(m_ports.patience))
            throw std::runtime_error("the camera does not answer");
    }
    // An event that was let through meanwhile may have connected.
    disconnect();
    // Held here too: an event that is let through may take the connection away.
    const auto mailbox = v4l2::startCameraThread(m_target, m_ports.frames);
    m_mailbox = mailbox;
    if (!mailbox->waitUntilOpen(m_ports.patience)) {
        // One that is merely slow is kept, and shows its pictures when it has them.
        if (m_mailbox == mailbox && !mailbox->opening())
            disconnect();
        throw std::runtime_error("the camera can't be opened");
    }
}

void V4l2VideoCap::disconnect()
{
    if (!m_mailbox)
        return;
    m_mailbox->abandon();
    m_leaving.push_back({m_target.node, std::exchange(m_mailbox, nullptr)});
    m_ports.frames.clear();
}

void V4l2VideoCap::setPreview(bool running)
{
    if (!m_mailbox)
        return;
    m_mailbox->setPreview(running);
    if (!running)
        m_ports.frames.clear();
}

int V4l2VideoCap::deviceCount()
{
    auto found = m_nodes.find(m_ports.patience);
    m_found = std::move(found);
    return int(m_found.size());
}

std::string V4l2VideoCap::deviceName(int index) { return m_found.at(std::size_t(index)).name; }

void V4l2VideoCap::setDeviceIndex(int index) { m_deviceIndex = index; }

void V4l2VideoCap::setVideoInput(std::int32_t index) { m_target.videoInput = index; }

void V4l2VideoCap::setVideoStandard(std::int16_t index) { m_target.videoStandard = index; }

std::optional<CameraSetting> V4l2VideoCap::setting(std::uint32_t id) const
{
    const auto all = settings();
    const auto found = std::ranges::find(all, id, &CameraSetting::id);
    return found == all.end() ? std::nullopt : std::optional(*found);
}

std::optional<VideoControlRange> V4l2VideoCap::videoControlRange(int index)
{
    const auto found = setting(controlAt(index).value);
    if (!found)
        return std::nullopt;
    return VideoControlRange{found->minimum, found->maximum, found->step, found->value};
}

void V4l2VideoCap::setVideoControlValue(int index, int value)
{
    const auto& control = controlAt(index < 0 ? -index : index);
    if (!connected())
        throw std::runtime_error("no camera to set");
    const auto automatic = control.automatic ? setting(*control.automatic) : std::nullopt;
    if (index < 0) {
        if (!automatic)
            throw std::runtime_error("the camera has no automatic mode for this");
        changeSetting(automatic->id, 1);
        return;
    }
    const auto found = setting(control.value);
    if (!found)
        throw std::runtime_error("the camera lacks this control");
    // A device refuses a value for what it sets by itself.
    if (automatic && automatic->value != 0)
        changeSetting(automatic->id, 0);
    changeSetting(control.value, std::clamp(value, found->minimum, found->maximum));
}

void V4l2VideoCap::showSettings()
{
    if (!connected())
        throw std::runtime_error("no camera to set");
    refreshSettings();
    m_ports.dialog.showModal(*this);
}

std::vector<CameraSetting> V4l2VideoCap::settings() const
{
    return m_mailbox ? m_mailbox->settings() : std::vector<CameraSetting>{};
}

void V4l2VideoCap::refreshSettings()
{
    if (m_mailbox)
        m_mailbox->refreshSettings();
}

void V4l2VideoCap::changeSetting(std::uint32_t id, int value)
{
    if (m_mailbox)
        m_mailbox->changeSetting(id, value);
}

} // namespace quillora::stage
