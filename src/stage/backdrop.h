#pragma once

#include "base/dialogs.h"
#include "stage/stage_fields.h"
#include "stage/stage_layout.h"

#include <filesystem>
#include <string_view>

namespace quillora::stage {

/// The picture `back_img`, the lowest layer of the stage.
class BackdropPicture {
  public:
    virtual ~BackdropPicture() = default;
    /// Shows the JPG, GIF or BMP picture in a file. Throws std::runtime_error for anything else, and for a
    /// picture that is too large to be held; the picture that was there stays.
    virtual void load(const std::filesystem::path& picture) = 0;
};

/// The choice of what lies behind the media, and is seen beside them in the mode "side". It lasts until the
/// program ends. A dialog that is cancelled at the first choice has still brought up the layout of "side".
class Backdrop {
  public:
    struct Ports {
        StageFields& fields;
        StageLayout& layout;
        base::CommonDialog& CommonDialog4;
        base::MessageBoxes& boxes;
        BackdropPicture& back_img;
    };
    /// What the ports refer to must outlive this object.
    explicit Backdrop(const Ports& ports) : m_ports(ports) {}

    /// Tells the presenter when the file is no picture.
    void changeback_btn_Click();
    /// These throw when the file is no picture.
    void Label19_Click();
    void loadpic_lb_Click();

  private:
    enum class Layout { side, leftAlone };
    void choose(Layout layout, std::string_view filter);

    Ports m_ports;
};

} // namespace quillora::stage
