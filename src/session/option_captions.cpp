#include "session/option_captions.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>

namespace quillora::session {

namespace {

constexpr std::array kCaptions{
    OptionCaption{"CaptureOptions_frm", "Recording Options", "إعدادات الفيديو"},
    OptionCaption{"Frame2", " PowerPoint Options ", "خيارات البوربوينت"},
    OptionCaption{
        "Label11",
        "Set these options before opining the PowerPoint presentations or open the presentation file again.",
        "حدد هذه الخيارات قبل فتح العرض أو إعد فتحه مرة أخرى"},
    OptionCaption{"anim_chk", "Show with Animation", "العرض مع الرسوم المتحركة"},
    OptionCaption{"narration_chk", "Show with Narration", "العرض مع التعليق الصوتي"},
    OptionCaption{"timing_chk", "Use Slide Timing", "استخدم مؤقت الشرائح"},
    OptionCaption{"Frame1", " Video Options ", "خيارات الفيديو"},
    OptionCaption{"Label2", "Video Recording Frame Rate (fps)", "عدد الإطارت في الثانية"},
    OptionCaption{"Label1", "WMV Video Bitrate (Kbps)", "معدل بث الفيديو WMV"},
    OptionCaption{"Label6(0)", "AVI Codecs Available", "برنامج ضغط الفيديو AVI المستخدم"},
    OptionCaption{"capturecursor_chk", "Capture Mouse Cursor", "إلتقاط مؤشر الفأرة"},
    OptionCaption{"highlightCursor_chk", "Highlight Mouse Cursor", "تظليل المؤشر"},
    OptionCaption{"Frame4", " Camera Options ", "خيارات الكاميرا"},
    OptionCaption{"Label6(1)", "Brightness", "السطوع"},
    OptionCaption{"Label6(2)", "Contrast", "التباين"},
    OptionCaption{"Label6(3)", "Hue", "درجة اللون"},
    OptionCaption{"Label6(4)", "Zoom", "تكبير"},
    OptionCaption{"Command1", "OK", "موافق"},
    OptionCaption{"Command2", "Cancel", "إلغاء"},
};

} // namespace

std::span<const OptionCaption> optionCaptions() { return kCaptions; }

std::string_view optionCaption(std::string_view control, Language language)
{
    const auto* const found = std::ranges::find(kCaptions, control, &OptionCaption::control);
    if (found == kCaptions.end())
        throw std::out_of_range("no caption of " + std::string(control));
    return found->in(language);
}

} // namespace quillora::session
