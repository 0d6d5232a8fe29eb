#pragma once

#include "panels/rich_text.h"

#include <string>

namespace quillora::panels {

/// @p text as RTF of plain ASCII, which office programs read and from which readRtf() makes the same text
/// again.
std::string writeRtf(const RichText& text);

} // namespace quillora::panels
