#pragma once

#include "session/slide_show.h"
#include "tests/support/call_log.h"

namespace quillora::tests {

class FakeSlideShow : public session::SlideShow {
  public:
    explicit FakeSlideShow(CallLog& callLog) : log(callLog) {}

    CallLog& log;

    void showStartPicture() override { log.add("showStartPicture"); }
    void LoadSlide() override { log.add("LoadSlide"); }
    void ResizeSlide() override { log.add("ResizeSlide"); }
};

} // namespace quillora::tests
