#pragma once

#include "tests/support/child_process.h"
#include "tests/support/temporary_folder.h"

#include <memory>
#include <string>
#include <vector>

namespace quillora::tests {

/// A PulseAudio of the test's own, in a temporary folder, ended with the object. It has no sound card; what
/// it has are the modules that it is started with.
class PrivateSoundServer {
  public:
    /// A sink that plays to nobody in real time; what is played to it comes out of the source "null.monitor".
    /// One that could rewind would sleep through its first two seconds, deaf to what is asked of it.
    static constexpr const char* kNullSink = "module-null-sink sink_name=null norewinds=1";
    /// The source "tone": a sine of 440 Hz at half of full scale, always on. It comes two seconds at a time,
    /// and the first of them at once: not for tests of time.
    static constexpr const char* kToneSource = "module-sine-source source_name=tone frequency=440";

    /// Throws std::runtime_error when no server comes up. The default source and sink are those of the first
    /// module that has one.
    explicit PrivateSoundServer(std::vector<std::string> modules = {kNullSink});
    ~PrivateSoundServer();

    /// For PULSE_SERVER, or for connecting.
    std::string address() const;
    /// What a program is to be started with so that it uses this server and no other.
    ChildProcess::Environment environment() const;

    /// Makes it deaf, as a hanging server is, until thaw().
    void freeze();
    void thaw();
    /// Kills it without notice.
    void kill();
    /// Starts it again, at the same address, with the same modules.
    void restart();
    /// Runs pactl against it, for instance {"unload-module", "module-sine-source"}. True when that succeeded.
    bool control(const std::vector<std::string>& arguments) const;

  private:
    void start();
    bool answers() const;

    /// PulseAudio splits addresses at blanks.
    TemporaryFolder m_folder{TemporaryFolder::Name::plain};
    std::vector<std::string> m_modules;
    std::unique_ptr<ChildProcess> m_server;
};

} // namespace quillora::tests
