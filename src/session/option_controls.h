#pragma once

#include "capture/capture_settings.h"

#include <string>
#include <vector>

namespace quillora::session {

/// The size to which a deck could be shown, by the option that chooses it.
enum class ShowSize { s_opt, n_opt, l_opt };

/// The captions that a form stands in.
enum class Language { english, arabic };

/// All controls of the form `CaptureOptions_frm`, with their stored values. Only `settings` is read by
/// anything and within the presenter's reach; the others lie outside the visible part of the form.
struct OptionControls {
    capture::CaptureSettings settings{};
    Language captions = Language::english;

    /// The list of the box and the text in it.
    std::vector<std::string> VideoCodecs_cmb_List{};
    std::string VideoCodecs_cmb = "Microsoft Video 1";
    std::string cmbAudioDevicesX{};
    std::string cmbAudioLinesX{};

    bool anim_chk = false;
    bool narration_chk = false;
    bool timing_chk = false;

    ShowSize size = ShowSize::n_opt;
    std::string SS_txt = "1";

    bool chkcapwindow = true;
    std::string txtwinhandle = "0";
    std::string txtleft = "0";
    std::string txtTop = "0";
    std::string txtwidth = "100";
    std::string txtheight = "100";

    bool Check1 = false;
    std::string txtvolume1 = "1";
    std::string FPath_txt = "FPath_txt";
    std::string h_txt = "h";
    std::string w_txt = "w";

    bool operator==(const OptionControls&) const = default;
};

} // namespace quillora::session
