#include "deck/slide_viewer.h"

#include "base/rounding.h"
#include "base/skip_failures.h"
#include "base/text_number.h"
#include "base/twips.h"
#include "session/file_lookup.h"
#include "session/slide_status.h"

namespace fs = std::filesystem;

namespace quillora::deck {

using base::leadingInteger;
using base::roundToInt;
using base::skipFailures;

namespace {

constexpr int kStageWidthPixels = base::kStageWidth.value / base::kTwipsPerPixel;
constexpr int kStageHeightPixels = base::kStageHeight.value / base::kTwipsPerPixel;

/// Width over height of the preview, whatever ratio the slide itself has at the moment.
constexpr double kPreviewRatio = 1.777;

} // namespace

void SlideViewer::showStartPicture()
{
    auto& slide_img = m_ports.slide_img;
    skipFailures([&] { slide_img.NewImage(kStageWidthPixels, kStageHeightPixels); },
                 [&] { slide_img.LoadFile(m_ports.assets / "PPT.png"); },
                 [&] { slide_img.ResizeImage(kStageWidthPixels, kStageHeightPixels); });
}

void SlideViewer::LoadSlide()
{
    auto& fields = m_ports.fields;
    fields.slideStatus = session::slideStatusText(fields);
    const auto next = base::decimalText(leadingInteger(fields.currentSlide) + 1LL);
    const auto picture = [&](const std::string& number, const std::string& extension) {
        return session::findIgnoringCase(m_ports.workspace.root() / ("Slide" + number + extension));
    };
    std::error_code unreadable;
    // One test settles the format of both, so the preview of a slide whose own picture is missing stays as it
    // is.
    const bool hasPng = fs::is_regular_file(picture(fields.currentSlide, ".png"), unreadable);
    const std::string extension = hasPng ? ".png" : ".jpg";
    skipFailures([&] { m_ports.slide_img.LoadFile(picture(fields.currentSlide, extension)); },
                 [&] { m_ports.slide_img_N.LoadFile(picture(next, extension)); }, [&] { ResizeSlide(); });
}

void SlideViewer::ResizeSlide()
{
    const float w = base::toPixels(m_ports.slide_img_back.Width());
    const float h = base::toPixels(m_ports.slide_img_back.Height());
    const double p = h * kPreviewRatio;
    m_ports.slide_img.ResizeImage(roundToInt(w), roundToInt(h));
    m_ports.slide_img_N.ResizeImage(roundToInt(p), roundToInt(h));
}

void SlideViewer::navigation_TB_ButtonClick(std::string_view key)
{
    const auto& fields = m_ports.fields;
    const int current = leadingInteger(fields.currentSlide);
    const bool deckWasOpened = !fields.slideStatus.empty();
    if (key == "first" && deckWasOpened)
        goTo("1");
    else if (key == "pre" && current >= 2)
        goTo(base::decimalText(current - 1));
    else if (key == "next" && leadingInteger(fields.slideCount) > current)
        goTo(base::decimalText(current + 1));
    else if (key == "last" && deckWasOpened)
        goTo(fields.slideCount);
}

void SlideViewer::goTo(const std::string& slide)
{
    auto& fields = m_ports.fields;
    fields.currentSlide = slide;
    fields.slideStatus = session::slideStatusText(fields);
    skipFailures([&] { LoadSlide(); }, [&] { m_ports.index.updateXMLSlideTime(); },
                 [&] { m_ports.window.setStatusPanel(2, session::slideStatusText(fields)); });
}

void SlideViewer::Command10_Click()
{
    auto& fields = m_ports.fields;
    skipFailures([&] { m_ports.slide_img.NewImage(kStageWidthPixels, kStageHeightPixels); },
                 [&] { fields.slideStatus = session::slideStatusText(fields); }, [&] { LoadSlide(); });
}

} // namespace quillora::deck
