#pragma once

#include "deck/task_pane.h"
#include "session/operations.h"
#include "stage/media_selection.h"
#include "stage/stage_commands.h"
#include "stage/stage_layout.h"
#include "tests/support/fake_camera_connection.h"
#include "tests/support/fake_main_window.h"
#include "tests/support/fake_slide_show.h"
#include "tests/support/fake_stage_surfaces.h"
#include "tests/support/fake_task_pane_view.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillora::tests {

/// A stage of fakes with its real logic, the long task pane beside it, and no deck.
class StageWorld : public testing::Test {
  protected:
    StageWorld() { pane.AddExpBar(); }

    using Calls = std::vector<std::string>;

    /// Surfaces that are shown, from the bottom up; the slide counts when it and its panel are.
    Calls shown() const
    {
        const FakeStageSurface* const all[] = {&on.WebBrowser2,    &on.WebBrowser1,     &on.picPaint,
                                               &on.textBoard_txt,  &on.slide_img_back,  &on.VideoCap1_back,
                                               &on.cam_icon_trans, &on.cam_icon_trans_s};
        Calls names;
        for (const auto* surface : all)
            if (surface->shown && (surface != &on.slide_img_back || on.slide_img.shown))
                names.push_back(surface->name);
        return names;
    }
    const FakeStageSurface& surfaceOf(const std::string& media) const
    {
        return media == "slides" ? on.slide_img_back
               : media == "text" ? on.textBoard_txt
               : media == "draw" ? on.picPaint
               : media == "web"  ? on.WebBrowser1
                                 : on.WebBrowser2;
    }

    CallLog log{};
    FakeMainWindow window{log};
    FakeSlideShow slides{log};
    FakeStageSurfaces on{log};
    FakeTaskPaneView view{};
    deck::TaskPane pane{view};
    FakeCameraConnection camera{};
    session::SessionFields fields{};
    stage::StageFields stageFields{};
    session::OperationTable operations{};
    stage::StageLayout layout{{fields, stageFields, window, slides, pane, camera, on.all}};
    stage::MediaSelection selection{{fields, window, slides, pane, on.all}};
    stage::StageCommands commands{{fields, stageFields, window, selection, layout, on.all, operations}};
};

inline constexpr base::TwipRectangle kFull{{0}, {0}, {11205}, {6300}};
inline constexpr base::TwipRectangle kSide{{0}, {0}, {8400}, {6300}};
inline constexpr base::TwipRectangle kSideFrame{{8500}, {100}, {2600}, {1950}};

} // namespace quillora::tests
