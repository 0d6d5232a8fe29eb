#include "stage/deck_shortcut.h"

#include "base/skip_failures.h"

namespace quillora::stage {

using session::BarState;

void DeckShortcut::Image1_Click()
{
    const auto& on = m_ports.surfaces;
    base::skipFailures([&] { on.picPaint.setVisible(false); }, [&] { on.VideoCap1_back.setVisible(false); },
                       [&] { on.slide_img.setVisible(true); }, [&] { on.slide_img_back.setVisible(true); });
    showSlidesBar();
    base::skipFailures([&] { m_ports.deck.openSlides(); });
    // The drawing board may have been brought up while the dialog was open.
    base::skipFailures([&] {
        if (on.picPaint.visible()) {
            on.picPaint.setVisible(false);
            session::setBarStates(m_ports.bars, BarState::collapsed, {"draw"});
        }
    });
    session::setBarStates(m_ports.bars, BarState::expanded, {"powerpoint"});
}

void DeckShortcut::showSlidesBar()
{
    session::setBarStates(m_ports.bars, BarState::collapsed, {"draw"});
    session::setBarStates(m_ports.bars, BarState::expanded, {"powerpoint"});
}

} // namespace quillora::stage
