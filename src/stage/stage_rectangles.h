#pragma once

#include "base/twip_rectangle.h"

namespace quillora::stage {

/// The places that the stage's surfaces take, in its own coordinates. The stage was designed once, at one
/// size, and nothing on it is computed.
inline constexpr base::TwipRectangle kFullStage{{0}, {0}, base::kStageWidth, base::kStageHeight};
/// 4:3 at the height of the stage.
inline constexpr base::TwipRectangle kSideMedia{{0}, {0}, {8400}, base::kStageHeight};

/// 4:3, this far from the edges of the stage.
inline constexpr base::Twips kCameraWidth{2600};
inline constexpr base::Twips kCameraHeight{1950};
inline constexpr base::Twips kCameraInset{100};
inline constexpr base::Twips kCameraFarLeft{8500};
inline constexpr base::Twips kCameraFarTop{4250};
/// In "side", right of the media.
inline constexpr base::TwipRectangle kSideCamera{kCameraFarLeft, kCameraInset, kCameraWidth, kCameraHeight};

} // namespace quillora::stage
