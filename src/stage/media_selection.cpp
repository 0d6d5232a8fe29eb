#include "stage/media_selection.h"

#include "base/skip_failures.h"

#include <initializer_list>
#include <string_view>

namespace quillora::stage {

using base::skipFailures;
using session::BarState;

struct MediaSelection::Branch {
    std::string_view media;
    StageSurface& shown;
    std::initializer_list<StageSurface*> hidden;
    std::string_view expanded;
    std::initializer_list<std::string_view> collapsed;
};

void MediaSelection::setMediaType()
{
    auto& on = m_ports.surfaces;
    auto* const slides = &on.slide_img_back;
    auto* const text = &on.textBoard_txt;
    auto* const draw = &on.picPaint;
    auto* const web = &on.WebBrowser1;
    // The rows are not quite alike: "slides" leaves the bar of the video as it is, and a video that was
    // chosen once is never hidden.
    // clang-format off
    const Branch branches[] = {
        {"slides", on.slide_img_back, {text, draw, web}, "powerpoint",
            {"camera", "text", "draw", "web", "help"}},
        {"text", on.textBoard_txt, {slides, draw, web}, "text",
            {"camera", "powerpoint", "draw", "youtube", "web", "help"}},
        {"draw", on.picPaint, {slides, text, web}, "draw",
            {"camera", "powerpoint", "text", "youtube", "web", "help"}},
        {"web", on.WebBrowser1, {draw, slides, text}, "web",
            {"camera", "powerpoint", "text", "draw", "youtube", "help"}},
        {"youtube", on.WebBrowser2, {draw, slides, text, web}, "youtube",
            {"camera", "powerpoint", "text", "draw", "web", "help"}},
    };
    // clang-format on
    for (const Branch& branch : branches)
        if (branch.media == m_ports.fields.myMediaType)
            bringUp(branch);
}

void MediaSelection::bringUp(const Branch& branch)
{
    const bool areSlides = branch.media == "slides";
    skipFailures([&] { branch.shown.setVisible(true); });
    for (auto* surface : branch.hidden)
        skipFailures([&] { surface->setVisible(false); });
    if (areSlides)
        skipFailures([&] { m_ports.slides.LoadSlide(); });
    session::setBarStates(m_ports.bars, BarState::expanded, {branch.expanded});
    session::setBarStates(m_ports.bars, BarState::collapsed, branch.collapsed);
    if (areSlides)
        skipFailures([&] { m_ports.window.setStatusPanel(6, m_ports.fields.myMediaType); });
}

} // namespace quillora::stage
