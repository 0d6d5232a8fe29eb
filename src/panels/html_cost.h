#pragma once

#include <string_view>

namespace quillora::panels {

/// Whether a toolkit reads @p html, which may come from a stranger, in about a second. Toolkits take time by
/// the square of how deep elements lie in each other, and by the product of a style sheet's rules and the
/// elements. Takes time in proportion to the text.
bool isCheapHtml(std::u16string_view html);

} // namespace quillora::panels
