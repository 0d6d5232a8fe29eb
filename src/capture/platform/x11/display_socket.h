#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quillora::capture {

/// Which X server, and which of its screens, a display name stands for.
struct DisplayName {
    /// Empty for a server on this machine.
    std::string host{};
    int display = 0;
    int screen = 0;
};

/// Takes a name apart, or the environment's DISPLAY. Throws std::runtime_error when it names no display.
DisplayName parseDisplayName(const std::optional<std::string>& name);

/// What the server asks of its clients, from the user's file of such things; both empty when there is
/// nothing.
struct DisplayAuthorisation {
    std::string protocol{};
    std::vector<char> data{};
};

DisplayAuthorisation displayAuthorisation(const DisplayName& name, int socket);

/// A stream socket connected to the server. Owned by the caller. Doesn't wait for a server on this machine,
/// and at most half a second for another one. Throws std::runtime_error.
///
/// XCB can open it too, but the descriptor must be known before it first waits for an answer: see
/// ConnectionWatchdog.
int openDisplaySocket(const DisplayName& name);

/// Whether the other end of the socket is on this machine and can be handed memory.
bool isLocalSocket(int socket);

} // namespace quillora::capture
