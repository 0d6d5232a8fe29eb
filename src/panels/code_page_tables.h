#pragma once

namespace quillora::panels {

/// What the bytes 0x80 to 0xFF mean in a single-byte code page, or null for a page that is not there. U+FFFD
/// for a byte without a meaning.
const char16_t* upperHalfOfPage(int page);

} // namespace quillora::panels
