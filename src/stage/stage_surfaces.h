#pragma once

#include "stage/stage_surface.h"

namespace quillora::stage {

/// What stands on the stage `Picture1`, in its stacking order from the bottom up. Two things rest on this
/// order: WebBrowser2 is never hidden, so that every other media has to cover it; and the camera lies above
/// all media.
struct StageSurfaces {
    StageSurface& WebBrowser2;
    StageSurface& WebBrowser1;
    StageSurface& picPaint;
    StageSurface& textBoard_txt;
    StageSurface& slide_img_back;
    /// Inside slide_img_back, and told in its coordinates.
    StageSurface& slide_img;
    StageSurface& VideoCap1_back;
    StageSurface& cam_icon_trans;
    StageSurface& cam_icon_trans_s;
};

} // namespace quillora::stage
