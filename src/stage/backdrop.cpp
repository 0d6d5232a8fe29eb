#include "stage/backdrop.h"

#include "base/skip_failures.h"

namespace quillora::stage {

namespace {

constexpr std::string_view kAllPictures = "Picture Files|*.bmp;*.gif;*.jpg";

} // namespace

void Backdrop::changeback_btn_Click()
{
    try {
        choose(Layout::side, "Picture Files JPG, GIF|*.gif;*.jpg");
    } catch (const std::exception&) {
        base::skipFailures(
            [&] { m_ports.boxes.show({.text = "Only pictures in JPG, GIF & BMP formats are allowed"}); });
    }
}

void Backdrop::Label19_Click() { choose(Layout::side, kAllPictures); }

void Backdrop::loadpic_lb_Click() { choose(Layout::leftAlone, kAllPictures); }

void Backdrop::choose(Layout layout, std::string_view filter)
{
    const auto sideBySide = [&] {
        if (layout == Layout::side)
            m_ports.layout.side_by_side_mode();
    };
    auto& dialog = m_ports.CommonDialog4;
    sideBySide();
    dialog.DialogTitle = "Select Background Picture";
    dialog.Filter = filter;
    dialog.ShowOpen();
    if (dialog.FileName.empty())
        return;
    m_ports.fields.background_txt = dialog.FileName;
    // The mode may have been changed while the dialog was open.
    sideBySide();
    m_ports.back_img.load(m_ports.fields.background_txt);
}

} // namespace quillora::stage
