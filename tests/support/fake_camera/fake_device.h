#pragma once

#include "tests/support/fake_camera/fake_picture.h"

#include <cstdint>
#include <deque>
#include <linux/videodev2.h>
#include <mutex>
#include <string>
#include <vector>

namespace quillora::tests::fake_camera {

/// What a device is at the moment; see fake_camera.cpp for the words.
enum class State {
    present,
    absent,
    unplugged,
    busy,
    stalledOpen,
    stalledStart,
    stalledFrames,
    stalledSettings,
    damaged
};

struct FakeControl {
    std::uint32_t id;
    std::uint32_t type;
    std::string name;
    int minimum;
    int maximum;
    int step;
    int standard;
    std::vector<std::string> entries{};
    /// The switch that has this one in its hands while it is not 0 (or, of a menu, not 1).
    std::uint32_t heldBy = 0;
    int value = standard;
};

/// One device node of the instrument: answers the requests of the V4L2 interface as a driver would.
class FakeDevice {
  public:
    enum class Sends { jpeg, yuyv, otherData };
    FakeDevice(std::string name, std::string card, Sends sends, Colour wall,
               std::vector<FakeControl> controls);

    const std::string& name() const { return m_name; }
    State state() const;

    /// A descriptor, or -1 with errno. @p flags as the system call has them.
    int open(int flags);
    bool owns(int descriptor);
    /// @p descriptor is a second one of the same opening.
    void adopt(int descriptor);
    void close(int descriptor);
    int request(int descriptor, unsigned long code, void* argument);
    /// Memory of buffer pictures, to be mapped at the offset that the device named.
    int memory() const { return m_memory; }

  private:
    int requestFormat(unsigned long code, void* argument);
    int requestControl(unsigned long code, void* argument);
    int requestStream(int descriptor, unsigned long code, void* argument);
    int dequeue(int descriptor, v4l2_buffer& buffer);
    void makeBuffers(std::uint32_t count);
    void describe(v4l2_buffer& buffer) const;
    void fill(v4l2_pix_format& format) const;
    FakeControl* control(std::uint32_t id);
    void write(const std::string& line) const;
    void stallWhile(State state) const;

    std::string m_name;
    std::string m_card;
    Sends m_sends;
    Colour m_wall;
    std::vector<FakeControl> m_controls;
    std::recursive_mutex m_mutex{};
    std::vector<int> m_descriptors{};
    int m_streaming = -1;
    int m_memory = -1;
    std::vector<std::vector<std::uint8_t>> m_pictures{};
    std::vector<std::uint32_t> m_lengths{};
    std::deque<std::uint32_t> m_queue{};
    std::uint32_t m_sequence = 0;
};

/// As it comes from the file of that name in the folder QUILLORA_FAKE_CAMERAS.
State stateOf(const std::string& name);
/// Whether the program was given fake cameras.
bool inUse();

} // namespace quillora::tests::fake_camera
