#include "session/slide_time_index.h"

#include "base/text_number.h"
#include "session/text_file.h"

#include <array>
#include <stdexcept>
#include <string_view>

namespace quillora::session {
namespace {

std::string entry(std::string_view slide, std::string_view time, std::string_view seconds)
{
    std::string text;
    text.append("<slide currentS=\"").append(slide).append("\">\r\n");
    text.append("<minutes>").append(time).append("</minutes>\r\n");
    text.append("<seconds>").append(seconds).append("</seconds>\r\n");
    return text.append("</slide>\r\n");
}

/// Counted in a type that the largest of clock readings cannot overflow.
long long secondsOf(std::string_view time)
{
    std::array<long long, 3> parts{};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const auto colon = time.find(':');
        if (colon == std::string_view::npos && i + 1 < parts.size())
            throw std::runtime_error("the clock of the recording has not ticked yet");
        parts[i] = base::leadingInteger(time.substr(0, colon));
        time = colon == std::string_view::npos ? "" : time.substr(colon + 1);
    }
    return parts[0] * 3600 + parts[1] * 60 + parts[2];
}

} // namespace

SlideTimeIndex::SlideTimeIndex(const SessionFields& fields, const Workspace& workspace)
    : m_fields(fields), m_workspace(workspace)
{}

void SlideTimeIndex::updateXMLSlideTime()
{
    if (m_fields.recordState != "pause" && m_fields.recordState != "record")
        return;
    const auto seconds = base::decimalText(secondsOf(m_fields.runningTime));
    m_slideEntries += entry(m_fields.currentSlide, m_fields.runningTime, seconds);
}

void SlideTimeIndex::XMLSlideFinish()
{
    const auto text = "<slides>\r\n" + entry("1", "00:00:00", "0") + m_slideEntries + "</slides>";
    printToFile(m_workspace.root() / "slidetime.xml", text);
}

} // namespace quillora::session
