#include "stage/platform/v4l2/camera_nodes.h"

#include "stage/platform/v4l2/device.h"

#include <algorithm>
#include <exception>
#include <linux/videodev2.h>
#include <optional>
#include <thread>
#include <unistd.h>

namespace quillora::stage::v4l2 {
namespace {

/// The kernel gives out no higher number.
constexpr int kNodeCount = 256;

std::optional<std::string> nameOfCamera(const std::string& path)
{
    const Device device(path);
    v4l2_capability capability{};
    device.request(VIDIOC_QUERYCAP, &capability, "the device does not say what it is");
    // Of the whole device and of this node: only the latter tells pictures from other data.
    const auto can =
        capability.capabilities & V4L2_CAP_DEVICE_CAPS ? capability.device_caps : capability.capabilities;
    if (!(can & V4L2_CAP_VIDEO_CAPTURE) || !(can & V4L2_CAP_STREAMING))
        return std::nullopt;
    const auto* card = reinterpret_cast<const char*>(capability.card);
    return std::string(card, std::find(card, card + sizeof capability.card, '\0'));
}

} // namespace

struct CameraNodes::Inquiry {
    std::string path;
    std::mutex mutex{};
    std::condition_variable changed{};
    bool answered = false;
    std::optional<std::string> name{};
};

std::shared_ptr<CameraNodes::Inquiry> CameraNodes::ask(const std::string& path)
{
    auto inquiry = std::make_shared<Inquiry>(path);
    std::thread([inquiry] {
        std::optional<std::string> name;
        try {
            name = nameOfCamera(inquiry->path);
        } catch (const std::exception&) {
            // What can't be asked can't be used either.
        }
        const std::lock_guard lock(inquiry->mutex);
        inquiry->name = name;
        inquiry->answered = true;
        inquiry->changed.notify_all();
    }).detach();
    return inquiry;
}

std::vector<CameraNode> CameraNodes::find(const Patience& patience)
{
    std::erase_if(m_unanswered, [](const auto& inquiry) {
        const std::lock_guard lock(inquiry->mutex);
        return inquiry->answered;
    });
    std::vector<std::shared_ptr<Inquiry>> inquiries;
    for (int number = 0; number < kNodeCount; ++number) {
        const std::string path = "/dev/video" + std::to_string(number);
        const bool hangs =
            std::ranges::any_of(m_unanswered, [&](const auto& inquiry) { return inquiry->path == path; });
        if (!hangs && ::access(path.c_str(), F_OK) == 0)
            inquiries.push_back(ask(path));
    }
    m_unanswered.insert(m_unanswered.end(), inquiries.begin(), inquiries.end());

    std::vector<CameraNode> found;
    Patience left = patience;
    const auto deadline = std::chrono::steady_clock::now() + patience.longest;
    for (const auto& inquiry : inquiries) {
        left.longest =
            std::max(std::chrono::milliseconds(0), std::chrono::duration_cast<std::chrono::milliseconds>(
                                                       deadline - std::chrono::steady_clock::now()));
        std::unique_lock lock(inquiry->mutex);
        if (waitFor(inquiry->changed, lock, left, [&] { return inquiry->answered; }) && inquiry->name)
            found.push_back({inquiry->path, *inquiry->name});
    }
    return found;
}

} // namespace quillora::stage::v4l2
