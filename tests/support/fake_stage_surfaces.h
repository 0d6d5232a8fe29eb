#pragma once

#include "stage/stage_surfaces.h"
#include "tests/support/call_log.h"
#include "tests/support/failing_calls.h"

#include <string>
#include <utility>
#include <vector>

namespace quillora::tests {

/// A surface that keeps what it is told, and writes it down: "picPaint shown", "picPaint 0,0 8400x6300".
class FakeStageSurface : public stage::StageSurface {
  public:
    FakeStageSurface(CallLog& callLog, std::string surfaceName, std::vector<std::string>& stackingOrder)
        : log(callLog), name(std::move(surfaceName)), order(stackingOrder)
    {
        order.push_back(name);
    }

    CallLog& log;
    std::string name;
    /// Of all surfaces with the same parent, from the bottom up.
    std::vector<std::string>& order;
    FailingCalls failing{};
    base::TwipRectangle place{{0}, {0}, base::kStageWidth, base::kStageHeight};
    bool shown = false;

    base::TwipRectangle rectangle() const override { return place; }
    void move(const base::TwipRectangle& to) override
    {
        failing.check("move");
        log.add(name + " " + std::to_string(to.left.value) + "," + std::to_string(to.top.value) + " " +
                std::to_string(to.width.value) + "x" + std::to_string(to.height.value));
        place = to;
    }
    bool visible() const override { return shown; }
    void setVisible(bool nowVisible) override
    {
        failing.check("setVisible");
        log.add(name + (nowVisible ? " shown" : " hidden"));
        shown = nowVisible;
    }
    void bringToFront() override
    {
        failing.check("bringToFront");
        log.add(name + " to the front");
        std::erase(order, name);
        order.push_back(name);
    }
};

/// The surfaces of the stage as the window makes them: at the start only the slide is shown.
struct FakeStageSurfaces {
    explicit FakeStageSurfaces(CallLog& callLog) : log(callLog)
    {
        slide_img_back.shown = true;
        slide_img.shown = true;
        cam_icon_trans.place = {{4680}, {2400}, {1755}, {1350}};
        cam_icon_trans_s.place = {{9425}, {790}, {750}, {570}};
    }

    CallLog& log;
    std::vector<std::string> order{};
    std::vector<std::string> orderInSlidePanel{};
    FakeStageSurface WebBrowser2{log, "WebBrowser2", order};
    FakeStageSurface WebBrowser1{log, "WebBrowser1", order};
    FakeStageSurface picPaint{log, "picPaint", order};
    FakeStageSurface textBoard_txt{log, "textBoard_txt", order};
    FakeStageSurface slide_img_back{log, "slide_img_back", order};
    FakeStageSurface slide_img{log, "slide_img", orderInSlidePanel};
    FakeStageSurface VideoCap1_back{log, "VideoCap1_back", order};
    FakeStageSurface cam_icon_trans{log, "cam_icon_trans", order};
    FakeStageSurface cam_icon_trans_s{log, "cam_icon_trans_s", order};
    stage::StageSurfaces all{WebBrowser2, WebBrowser1,    picPaint,       textBoard_txt,   slide_img_back,
                             slide_img,   VideoCap1_back, cam_icon_trans, cam_icon_trans_s};
};

} // namespace quillora::tests
