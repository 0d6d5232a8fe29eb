#pragma once

#include "base/twips.h"

namespace quillora::base {

/// A place on a form or on the stage, in the coordinates of what holds it.
struct TwipRectangle {
    Twips left{};
    Twips top{};
    Twips width{};
    Twips height{};

    constexpr bool operator==(const TwipRectangle&) const = default;
};

} // namespace quillora::base
