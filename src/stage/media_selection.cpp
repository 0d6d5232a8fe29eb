#include "stage/media_selection.h"

#include "base/skip_failures.h"

namespace quillora::stage {

void MediaSelection::setMediaType()
{
    if (m_ports.fields.myMediaType != "slides")
        return;
    base::skipFailures([&] { m_ports.slide_img_back.setVisible(true); }, [&] { m_ports.slides.LoadSlide(); },
                       [&] { m_ports.window.setStatusPanel(6, m_ports.fields.myMediaType); });
}

} // namespace quillora::stage
