#pragma once

#include <QWidget>

#include <string>

namespace quillora::forms {

class ImageSurfaceWidget;

/// The notes panel `Pic_notes`: the preview of the next slide, the navigation, and the button that wipes the
/// pen lines off the slide.
class NotesPanel : public QWidget {
    Q_OBJECT

  public:
    explicit NotesPanel(QWidget* parent);

    ImageSurfaceWidget& slide_img_N() { return *m_preview; }

  signals:
    void navigation_TB_ButtonClick(const std::string& key);
    void Command10_Click();

  private:
    ImageSurfaceWidget* m_preview;
};

} // namespace quillora::forms
