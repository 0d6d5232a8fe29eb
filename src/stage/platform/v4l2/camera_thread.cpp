#include "stage/platform/v4l2/camera_thread.h"

#include "stage/platform/v4l2/device.h"
#include "stage/platform/v4l2/device_controls.h"
#include "stage/platform/v4l2/frame_stream.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <exception>
#include <linux/videodev2.h>
#include <poll.h>
#include <stdexcept>
#include <sys/eventfd.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

namespace quillora::stage::v4l2 {
namespace {

/// Ends a wait for pictures when there are orders.
class WakeUpEvent {
  public:
    WakeUpEvent() : m_descriptor(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC))
    {
        if (m_descriptor < 0)
            throw std::system_error(errno, std::generic_category(), "no event descriptor");
    }
    ~WakeUpEvent() { ::close(m_descriptor); }
    WakeUpEvent(const WakeUpEvent&) = delete;
    WakeUpEvent& operator=(const WakeUpEvent&) = delete;

    int descriptor() const { return m_descriptor; }
    void set() const { ::eventfd_write(m_descriptor, 1); }
    void reset() const
    {
        eventfd_t times = 0;
        ::eventfd_read(m_descriptor, &times);
    }

  private:
    int m_descriptor;
};

void selectSource(const Device& device, const CameraTarget& target)
{
    int input = target.videoInput;
    device.tryRequest(VIDIOC_S_INPUT, &input);
    v4l2_standard standard{};
    standard.index = std::uint32_t(target.videoStandard);
    // Only analogue devices have standards; all others refuse.
    if (device.tryRequest(VIDIOC_ENUMSTD, &standard))
        device.tryRequest(VIDIOC_S_STD, &standard.id);
}

/// A setting that is no number may well take others into its hands or free them.
bool mayChangeOthers(const std::vector<CameraSetting>& settings, std::uint32_t id)
{
    const auto found = std::ranges::find(settings, id, &CameraSetting::id);
    return found != settings.end() && found->kind != CameraSetting::Kind::number;
}

void obey(const Device& device, CameraMailbox& mailbox, const CameraMailbox::Orders& orders)
{
    bool readAgain = orders.readSettings;
    for (const auto& [id, value] : orders.changes) {
        try {
            writeSetting(device, id, value);
            readAgain = readAgain || mayChangeOthers(mailbox.settings(), id);
        } catch (const std::exception&) {
            readAgain = true;
        }
    }
    if (readAgain)
        mailbox.reportSettings(readSettings(device));
}

void waitForPicturesOrOrders(const Device& device, const WakeUpEvent& wakeUp)
{
    std::array<pollfd, 2> sources{{{device.descriptor(), POLLIN, 0}, {wakeUp.descriptor(), POLLIN, 0}}};
    ::poll(sources.data(), sources.size(), -1);
    if (sources[0].revents & (POLLERR | POLLHUP | POLLNVAL))
        throw std::runtime_error("the camera is gone");
    // Before the orders are taken: what is ordered after that sets it again.
    wakeUp.reset();
}

void captureLoop(const CameraTarget& target, const WakeUpEvent& wakeUp, CameraMailbox& mailbox)
{
    const Device device(target.node);
    selectSource(device, target);
    FrameStream stream(device);
    mailbox.reportSettings(readSettings(device));
    mailbox.reportOpen();
    CameraFrame frame;
    for (;;) {
        waitForPicturesOrOrders(device, wakeUp);
        const auto orders = mailbox.takeOrders();
        if (!orders)
            return;
        obey(device, mailbox, *orders);
        if (stream.take(mailbox.room(), frame))
            mailbox.put(frame);
    }
}

} // namespace

std::shared_ptr<CameraMailbox> startCameraThread(CameraTarget target, NewestFrame& frames)
{
    const auto wakeUp = std::make_shared<WakeUpEvent>();
    const auto mailbox = std::make_shared<CameraMailbox>(frames, [wakeUp] { wakeUp->set(); });
    std::thread([target = std::move(target), wakeUp, mailbox] {
        try {
            captureLoop(target, *wakeUp, *mailbox);
        } catch (const std::exception&) {
            // Whatever it was, the camera can't be used any more, which is all that can be told.
        }
        mailbox->reportClosed();
    }).detach();
    return mailbox;
}

} // namespace quillora::stage::v4l2
