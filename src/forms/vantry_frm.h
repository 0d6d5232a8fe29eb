#pragma once

#include "session/main_window.h"

#include <QWidget>

#include <filesystem>
#include <memory>
#include <string>

namespace quillora::deck {
class ImageSurface;
} // namespace quillora::deck

namespace quillora::stage {
struct StageSurfaces;
} // namespace quillora::stage

namespace quillora::forms {

class CameraPanel;
class CommandButton;
class CornerButtons;
class CountdownPicture;
class DrawingPalette;
class InputBlock;
class MainToolbar;
class ModeStrip;
class NotesPanel;
class StageFrame;
class StageWidget;
class StatusBar;
class TaskPaneWidget;
class TextPanel;
class VideoPanelWidget;
class WebPanelWidget;
class WindowHints;

/// The main form. It owns the window's parts, puts them in their places, forwards what the presenter does as
/// one signal each, and shows what it is told to. It decides nothing. Signals carry the names of the events
/// that they stand for; all run on the one thread of forms and logic.
class Vantry_frm : public QWidget, public session::MainWindow {
    Q_OBJECT

  public:
    /// @p hints must outlive the form.
    explicit Vantry_frm(WindowHints& hints);
    ~Vantry_frm() override;

    /// The slide on the stage.
    deck::ImageSurface& slide_img();
    /// The preview of the next slide.
    deck::ImageSurface& slide_img_N();
    /// The panel of the slides, for the signals of its own controls.
    NotesPanel& Pic_notes() { return *m_notesPanel; }
    /// The panel of the drawing board, likewise.
    DrawingPalette& Picture2() { return *m_drawingPalette; }
    TextPanel& textBoard_pic() { return *m_textPanel; }

    /// The stage, and what the layouts move on it.
    StageWidget& Picture1() { return *m_stage; }
    stage::StageSurfaces& surfaces();
    /// The strip of window modes, and the corners for the camera.
    ModeStrip& Picture_cont1() { return *m_modeStrip; }
    CornerButtons& campos_pic() { return *m_corners; }
    /// The task pane. It keeps the panels, each under its control name.
    TaskPaneWidget& ebDemo() { return *m_taskPane; }
    WebPanelWidget& PicWeb() { return *m_webPanel; }
    VideoPanelWidget& yt_pic() { return *m_videoPanel; }
    /// The camera's panel in it.
    CameraPanel& PicDraw1() { return *m_cameraPanel; }

    void center_form() override;
    void setCaption(const std::string& text) override;
    void setStatusPanel(int panel, const std::string& text) override;
    std::string statusPanel(int panel) const override;
    void setButtonVisible(std::string_view key, bool visible) override;
    void setCountdownVisible(bool visible) override;
    void setCountdownPicture(const std::filesystem::path& picture) override;
    void setChangeBackVisible(bool visible) override;
    void setMousePointer(const std::filesystem::path& cursor) override;
    void setStagePointer(const std::filesystem::path& cursor) override;
    void SetTopMost(bool flag) override;
    bool hasMinimizeBox() const override;
    void setHasMinimizeBox(bool present) override;
    void setMoveLocked(bool locked) override;
    void setFormVisible(bool visible) override;
    void setFormEnabled(bool enabled) override;
    void makeShapeTransparent() override;
    capture::PixelRectangle stageRectangle() const override;
    void processPendingEvents() override;

  signals:
    /// With the button's key, such as "record". Ctrl+O comes as "open".
    void main_TB_ButtonClick(const std::string& key);
    /// Of the menu `popup`.
    void record_Click();
    /// "first", "pre", "next" or "last", from the buttons and from the presenter's keys.
    void navigation_TB_ButtonClick(const std::string& key);
    /// @p button: 1 left, 2 right; @p shift: 1 Shift, 2 Ctrl; position in pixels of the slide.
    void slide_img_MouseDown(int button, int shift, float x, float y);
    void slide_img_MouseMove(int button, int shift, float x, float y);
    void slide_img_MouseUp(int button, int shift, float x, float y);
    /// The microphone, beside the stage.
    void Image3_Click();
    /// The presenter closes the window: sent once, and the window is closed when all receivers have returned.
    void Form_Unload();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    enum class Closing { no, running, done };

    void placeParts();
    void makePanels();
    void placeStageControls();
    void makeVolumeLabel();
    void forwardEvents();
    void applyWindowFunctions();

    WindowHints& m_hints;
    MainToolbar* m_toolbar;
    NotesPanel* m_notesPanel;
    TextPanel* m_textPanel;
    WebPanelWidget* m_webPanel;
    VideoPanelWidget* m_videoPanel;
    DrawingPalette* m_drawingPalette;
    CameraPanel* m_cameraPanel;
    StageWidget* m_stage;
    StageFrame* m_shape;
    TaskPaneWidget* m_taskPane;
    ModeStrip* m_modeStrip;
    CornerButtons* m_corners;
    CountdownPicture* m_countdown;
    CommandButton* m_image3;
    StatusBar* m_statusBar;
    bool m_topMost = false;
    std::unique_ptr<InputBlock> m_inputBlock{};
    bool m_hasMinimizeBox = true;
    bool m_moveLocked = false;
    Closing m_closing = Closing::no;
};

} // namespace quillora::forms
