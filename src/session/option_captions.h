#pragma once

#include "session/option_controls.h"

#include <span>
#include <string_view>

namespace quillora::session {

/// What a control of the form `CaptureOptions_frm` says, in UTF-8.
struct OptionCaption {
    /// Name of the control; members of a control array have their index behind it, as in "Label6(2)". The
    /// form itself is "CaptureOptions_frm".
    std::string_view control{};
    std::string_view english{};
    std::string_view arabic{};

    std::string_view in(Language language) const { return language == Language::arabic ? arabic : english; }
};

/// All controls whose captions have a translation.
std::span<const OptionCaption> optionCaptions();

/// One of them. Throws std::out_of_range for a control without a translated caption.
std::string_view optionCaption(std::string_view control, Language language);

} // namespace quillora::session
