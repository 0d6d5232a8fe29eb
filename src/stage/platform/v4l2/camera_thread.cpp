#include "stage/platform/v4l2/camera_thread.h"

#include "stage/platform/v4l2/device.h"
#include "stage/platform/v4l2/device_controls.h"
#include "stage/platform/v4l2/frame_stream.h"

#include <algorithm>
#include <array>
#include <exception>
#include <linux/videodev2.h>
#include <poll.h>
#include <stdexcept>
#include <sys/eventfd.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace quillora::stage::v4l2 {
namespace {

/// Ends a wait for pictures when there is a note to read.
class Bell {
  public:
    Bell() : m_descriptor(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC))
    {
        if (m_descriptor < 0)
            throw std::runtime_error("no event descriptor");
    }
    ~Bell() { ::close(m_descriptor); }
    Bell(const Bell&) = delete;
    Bell& operator=(const Bell&) = delete;

    int descriptor() const { return m_descriptor; }
    void ring() const { ::eventfd_write(m_descriptor, 1); }
    void silence() const
    {
        eventfd_t rings = 0;
        ::eventfd_read(m_descriptor, &rings);
    }

  private:
    int m_descriptor;
};

void selectSource(const Device& device, const CameraThread::Target& target)
{
    int input = target.videoInput;
    device.tryRequest(VIDIOC_S_INPUT, &input);
    v4l2_standard standard{};
    standard.index = std::uint32_t(target.videoStandard);
    // Only analogue devices have standards; all others refuse.
    if (device.tryRequest(VIDIOC_ENUMSTD, &standard))
        device.tryRequest(VIDIOC_S_STD, &standard.id);
}

} // namespace

class CameraThread::Line {
  public:
    enum class State { opening, open, over };
    struct Orders {
        bool stop = false;
        bool refresh = false;
        /// One a setting, in the order in which they were given last: a value that is set after an automatic
        /// mode was switched off would be refused before it.
        std::vector<std::pair<std::uint32_t, int>> changes{};
    };

    explicit Line(NewestFrame& frames) : m_frames(&frames) {}

    // For the thread of forms and logic.

    bool opening() const
    {
        const std::lock_guard lock(m_mutex);
        return m_state == State::opening && !m_orders.stop;
    }
    bool open() const
    {
        const std::lock_guard lock(m_mutex);
        return m_state == State::open && !m_orders.stop;
    }
    std::vector<CameraSetting> settings() const
    {
        const std::lock_guard lock(m_mutex);
        return m_settings;
    }
    bool waitUntilOpen(const Patience& patience)
    {
        std::unique_lock lock(m_mutex);
        waitFor(m_changed, lock, patience, [&] { return m_state != State::opening || m_orders.stop; });
        return m_state == State::open && !m_orders.stop;
    }
    bool waitUntilClosed(const Patience& patience)
    {
        std::unique_lock lock(m_mutex);
        return waitFor(m_changed, lock, patience, [&] { return m_closed; });
    }
    void setPreview(bool running)
    {
        const std::lock_guard lock(m_mutex);
        m_preview = running;
    }
    void refresh()
    {
        const std::lock_guard lock(m_mutex);
        m_orders.refresh = true;
        m_bell.ring();
    }
    void change(std::uint32_t id, int value)
    {
        const std::lock_guard lock(m_mutex);
        std::erase_if(m_orders.changes, [&](const auto& earlier) { return earlier.first == id; });
        m_orders.changes.emplace_back(id, value);
        assume(id, value);
        m_bell.ring();
    }
    void letGo()
    {
        const std::lock_guard lock(m_mutex);
        m_orders.stop = true;
        m_frames = nullptr;
        m_settings.clear();
        m_bell.ring();
        m_changed.notify_all();
    }

    // For the camera's thread.

    const Bell& bell() const { return m_bell; }
    void say(State state)
    {
        const std::lock_guard lock(m_mutex);
        m_state = state;
        if (state == State::over) {
            m_settings.clear();
            if (m_frames)
                m_frames->clear();
        }
        m_changed.notify_all();
    }
    void sayClosed()
    {
        const std::lock_guard lock(m_mutex);
        m_closed = true;
        m_changed.notify_all();
    }
    void offer(std::vector<CameraSetting> settings)
    {
        const std::lock_guard lock(m_mutex);
        if (m_orders.stop)
            return;
        m_settings = std::move(settings);
        for (const auto& [id, value] : m_orders.changes)
            assume(id, value);
    }
    Orders takeOrders()
    {
        m_bell.silence();
        const std::lock_guard lock(m_mutex);
        const bool stop = m_orders.stop;
        return std::exchange(m_orders, Orders{.stop = stop});
    }
    /// Empty where no picture is wanted.
    FrameSize room() const
    {
        const std::lock_guard lock(m_mutex);
        return m_frames && m_preview ? m_frames->room() : FrameSize{};
    }
    void offer(CameraFrame& frame)
    {
        const std::lock_guard lock(m_mutex);
        if (m_frames && m_preview)
            m_frames->put(frame);
    }

  private:
    /// What is ordered counts as done until the device says otherwise: the next order may depend on it.
    void assume(std::uint32_t id, int value)
    {
        const auto found = std::ranges::find(m_settings, id, &CameraSetting::id);
        if (found != m_settings.end())
            found->value = value;
    }

    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    Bell m_bell;
    State m_state = State::opening;
    bool m_closed = false;
    bool m_preview = false;
    Orders m_orders;
    std::vector<CameraSetting> m_settings;
    /// Null once the connection was let go.
    NewestFrame* m_frames;
};

namespace {

using Line = CameraThread::Line;

/// A setting that is no number may well take others into its hands or free them.
bool mayChangeOthers(const std::vector<CameraSetting>& settings, std::uint32_t id)
{
    const auto found = std::ranges::find(settings, id, &CameraSetting::id);
    return found != settings.end() && found->kind != CameraSetting::Kind::number;
}

void obey(const Device& device, Line& line, const Line::Orders& orders)
{
    bool readAgain = orders.refresh;
    for (const auto& [id, value] : orders.changes) {
        try {
            writeSetting(device, id, value);
            readAgain = readAgain || mayChangeOthers(line.settings(), id);
        } catch (const std::exception&) {
            readAgain = true;
        }
    }
    if (readAgain)
        line.offer(readSettings(device));
}

/// Until there are pictures, or a note.
void waitForNews(const Device& device, const Line& line)
{
    std::array<pollfd, 2> sources{{{device.descriptor(), POLLIN, 0}, {line.bell().descriptor(), POLLIN, 0}}};
    ::poll(sources.data(), sources.size(), -1);
    if (sources[0].revents & (POLLERR | POLLHUP | POLLNVAL))
        throw std::runtime_error("the camera is gone");
}

void film(const CameraThread::Target& target, Line& line)
{
    const Device device(target.node);
    selectSource(device, target);
    FrameStream stream(device);
    line.offer(readSettings(device));
    line.say(Line::State::open);
    CameraFrame frame;
    for (;;) {
        waitForNews(device, line);
        const auto orders = line.takeOrders();
        if (orders.stop)
            return;
        if (orders.refresh || !orders.changes.empty())
            obey(device, line, orders);
        if (stream.take(line.room(), frame))
            line.offer(frame);
    }
}

} // namespace

CameraThread::CameraThread(Target target, NewestFrame& frames)
    : m_line(std::make_shared<Line>(frames))
{
    std::thread([line = m_line, target = std::move(target)] {
        try {
            film(target, *line);
        } catch (const std::exception&) {
            // Whatever it was, the camera can't be used any more, which is all that can be told.
        }
        line->say(Line::State::over);
        line->sayClosed();
    }).detach();
}

CameraThread::~CameraThread() { letGo(); }

bool CameraThread::waitUntilOpen(const Patience& patience)
{
    return std::shared_ptr(m_line)->waitUntilOpen(patience);
}

bool CameraThread::opening() const { return m_line->opening(); }

bool CameraThread::open() const { return m_line->open(); }

void CameraThread::setPreview(bool running) { m_line->setPreview(running); }

std::vector<CameraSetting> CameraThread::settings() const { return m_line->settings(); }

void CameraThread::refreshSettings() { m_line->refresh(); }

void CameraThread::changeSetting(std::uint32_t id, int value) { m_line->change(id, value); }

void CameraThread::letGo() { m_line->letGo(); }

bool waitUntilClosed(CameraThread::Line& line, const Patience& patience)
{
    return line.waitUntilClosed(patience);
}

} // namespace quillora::stage::v4l2
