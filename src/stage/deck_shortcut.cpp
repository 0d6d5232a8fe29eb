#include "stage/deck_shortcut.h"

#include "base/skip_failures.h"

namespace quillora::stage {

void DeckShortcut::Image1_Click()
{
    base::skipFailures([&] { m_ports.slide_img_back.setVisible(true); }, [&] { m_ports.deck.openSlides(); });
}

} // namespace quillora::stage
