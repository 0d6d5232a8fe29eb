#pragma once

#include <QWidget>

#include <string>

namespace quillora::forms {

class ImageSurfaceWidget;

/// The notes panel `Pic_notes`: the pens for the slide on the stage, the navigation, and the preview of the
/// next slide.
class NotesPanel : public QWidget {
    Q_OBJECT

  public:
    explicit NotesPanel(QWidget* parent);

    ImageSurfaceWidget& slide_img_N() { return *m_preview; }

  signals:
    void navigation_TB_ButtonClick(const std::string& key);
    /// With a key of `pens_TB`.
    void pens_TB_ButtonClick(const std::string& key);
    /// The older controls `Option7` to `Option13`, by their number.
    void Option_Click(int number);
    void Command10_Click();

  private:
    ImageSurfaceWidget* m_preview;
};

} // namespace quillora::forms
