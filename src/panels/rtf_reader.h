#pragma once

#include "panels/rich_text.h"

#include <cstddef>
#include <string_view>

namespace quillora::panels {

/// Bounds of what readRtf() takes from a stranger.
struct RtfLimits {
    /// Characters and paragraphs together; what comes after them is left out.
    std::size_t characters = 4'000'000;
    /// Groups in each other; what stands deeper is left out.
    std::size_t depth = 200;
    /// Fonts and colours of the tables; later ones are as if they weren't there.
    std::size_t tableEntries = 4'000;
};

/// Whether @p stream begins as RTF does.
bool isRtf(std::string_view stream);

/// Reads RTF, version 1, as far as the board can show it: what it can't hold is left out, and a stream that
/// is damaged gives what could be read. Lists with bullets become bullets; the numbers of a numbered list
/// become part of its text. Throws std::runtime_error for what is no RTF at all.
///
/// Takes time and memory in proportion to the stream. Follows "Rich Text Format (RTF) Specification",
/// version 1.9.1, and what office programs make of it.
RichText readRtf(std::string_view stream, const RtfLimits& limits = {});

} // namespace quillora::panels
