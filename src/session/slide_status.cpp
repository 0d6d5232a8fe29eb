#include "session/slide_status.h"

namespace quillora::session {

std::string slideStatusText(const SessionFields& fields)
{
    return "Slide " + fields.currentSlide + "/" + fields.slideCount;
}

} // namespace quillora::session
