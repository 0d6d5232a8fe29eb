#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace quillora::capture {

/// The names of a sound server's inputs as its user knows them, the default input first. What plays to a
/// loudspeaker is no input, though the server lists it as one, unless the user has made it the default. Empty
/// when the server hasn't told everything within @p limit.
std::vector<std::string> inputNamesOf(const std::optional<std::string>& server,
                                      std::chrono::milliseconds limit);

} // namespace quillora::capture
