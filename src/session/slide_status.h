#pragma once

#include "session/session_fields.h"

#include <string>

namespace quillora::session {

/// The text of `slideStatus`, such as "Slide 3/12", made of `currentSlide` and `slideCount`.
std::string slideStatusText(const SessionFields& fields);

} // namespace quillora::session
