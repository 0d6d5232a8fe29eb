#include "forms/vantry_frm.h"

#include "base/rounding.h"
#include "forms/camera_panel.h"
#include "forms/command_button.h"
#include "forms/corner_buttons.h"
#include "forms/countdown_picture.h"
#include "forms/cursor_file.h"
#include "forms/drawing_palette.h"
#include "forms/image_surface_widget.h"
#include "forms/input_block.h"
#include "forms/look.h"
#include "forms/main_toolbar.h"
#include "forms/mode_strip.h"
#include "forms/notes_panel.h"
#include "forms/popup_menu.h"
#include "forms/presenter_keys.h"
#include "forms/screen_presence.h"
#include "forms/stage_frame.h"
#include "forms/stage_widget.h"
#include "forms/status_bar.h"
#include "forms/task_pane_widget.h"
#include "forms/text_panel.h"
#include "forms/video_panel_widget.h"
#include "forms/web_panel_widget.h"
#include "forms/window_hints.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QFile>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QWindow>

namespace quillora::forms {

namespace {

constexpr QSize kFormSize{1020, 650};
constexpr int kStatusBarHeight = 30;
constexpr int kToolbarHeight = 38;
constexpr int kGap = 8;
constexpr int kStripCaptionTop = 41;
constexpr base::Twips kStageLeft{3960};
constexpr base::Twips kStageTop{650};
constexpr base::Twips kTaskPaneWidth{3885};
constexpr base::Twips kImage3Left{14640};
constexpr base::Twips kImage3Top{7080};
constexpr base::Twips kImage3Size{480};
constexpr base::Twips kVolPerLeft{11640};
constexpr base::Twips kVolPerTop{8160};
constexpr base::Twips kVolPerWidth{555};
constexpr base::Twips kVolPerHeight{285};

void setPointer(QWidget& widget, const std::filesystem::path& cursor)
{
    if (cursor.empty())
        widget.unsetCursor();
    else
        widget.setCursor(readCursor(cursor));
}

QString partsStyle()
{
    QFile file(QStringLiteral(":/quillora/vantry_frm.qss"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

Vantry_frm::Vantry_frm(WindowHints& hints) : m_hints(hints)
{
    setObjectName("Vantry_frm");
    setAccessibleName(tr("Quillora Recorder"));
    setStyleSheet(partsStyle());
    placeParts();
    forwardEvents();
    m_stage->setFocus();
}

Vantry_frm::~Vantry_frm() = default;

void Vantry_frm::placeParts()
{
    setFixedSize(kFormSize);
    m_toolbar = new MainToolbar(this);
    m_toolbar->setGeometry(0, 0, kFormSize.width(), kToolbarHeight);

    m_taskPane = new TaskPaneWidget(this);
    m_taskPane->comeAfter(m_toolbar->lastButton());
    makePanels();
    m_countdown = new CountdownPicture(this);
    m_stage = new StageWidget(this);
    m_stage->move(pixels(kStageLeft), pixels(kStageTop));
    m_shape = new StageFrame(*m_stage, this);
    // The countdown's place reaches a pixel into the stage; the stage's pixels are the lecture's own.
    m_stage->raise();

    placeStageControls();

    m_image3 = new CommandButton(CommandButton::Face::iconOnly, "microphone", tr("Microphone level"),
                                 tr("Microphone level"), this);
    m_image3->setObjectName("Image3");
    m_image3->setToolTip(tr("Choose the microphone and set its level"));
    m_image3->setGeometry(pixels(kImage3Left), pixels(kImage3Top), pixels(kImage3Size), pixels(kImage3Size));

    makeVolumeLabel();

    // The stage comes last, where one step back from the toolbar reaches it.
    setTabOrder(m_image3, m_stage);

    m_statusBar = new StatusBar(this);
    m_statusBar->setGeometry(0, kFormSize.height() - kStatusBarHeight, kFormSize.width(), kStatusBarHeight);
    m_taskPane->setGeometry(0, m_stage->y(), pixels(kTaskPaneWidth), m_statusBar->y() - m_stage->y());
}

/// Below the stage: what changes it, and the word that none of this is recorded.
void Vantry_frm::placeStageControls()
{
    const int top = m_stage->geometry().bottom() + 1 + kGap;
    m_modeStrip = new ModeStrip(this);
    m_modeStrip->move(m_stage->x(), top);
    m_corners = new CornerButtons(this);
    m_corners->move(m_modeStrip->geometry().right() + 1 + 3 * kGap, top);
    auto* caption = new QLabel(tr("In a corner"), this);
    caption->setObjectName("campos_caption");
    caption->setAccessibleName(caption->text());
    caption->adjustSize();
    caption->move(m_corners->geometry().center().x() - caption->width() / 2, top + kStripCaptionTop);

    auto* hint = new QLabel(tr("Only the stage above is recorded."), this);
    hint->setObjectName("stage_hint");
    hint->setAccessibleName(hint->text());
    hint->move(m_stage->x(), m_modeStrip->geometry().bottom() + 1 + 2 * kGap);
}

/// The level that counts stands in the label of the same name in the Microphone Level dialog. Nothing writes
/// this one, so it isn't shown: presenters would take it for the level of their microphone, whatever that is.
void Vantry_frm::makeVolumeLabel()
{
    auto* lblVolPer = new QLabel(QStringLiteral("100%"), this);
    lblVolPer->setObjectName("lblVolPer");
    lblVolPer->setAccessibleName(lblVolPer->text());
    lblVolPer->setGeometry(pixels(kVolPerLeft), pixels(kVolPerTop), pixels(kVolPerWidth),
                           pixels(kVolPerHeight));
    lblVolPer->hide();
}

void Vantry_frm::makePanels()
{
    m_notesPanel = new NotesPanel(this);
    m_taskPane->keep(m_notesPanel);
    m_drawingPalette = new DrawingPalette(this);
    m_taskPane->keep(m_drawingPalette);
    m_textPanel = new TextPanel(this);
    m_taskPane->keep(m_textPanel);
    m_webPanel = new WebPanelWidget(this);
    m_taskPane->keep(m_webPanel);
    m_videoPanel = new VideoPanelWidget(this);
    m_taskPane->keep(m_videoPanel);
    m_cameraPanel = new CameraPanel(this);
    m_taskPane->keep(m_cameraPanel);
}

void Vantry_frm::forwardEvents()
{
    connect(m_toolbar, &MainToolbar::ButtonClick, this, &Vantry_frm::main_TB_ButtonClick);
    connect(m_notesPanel, &NotesPanel::navigation_TB_ButtonClick, this,
            &Vantry_frm::navigation_TB_ButtonClick);

    connect(m_image3, &CommandButton::clicked, this, &Vantry_frm::Image3_Click);

    auto* popup = new PopupMenu(this);
    connect(popup, &PopupMenu::record_Click, this, &Vantry_frm::record_Click);

    auto* keys = new PresenterKeys(this);
    connect(keys, &PresenterKeys::navigate, this, &Vantry_frm::navigation_TB_ButtonClick);
    connect(keys, &PresenterKeys::open, this, [this] { emit main_TB_ButtonClick("open"); });

    auto& slide = m_stage->slide_img();
    connect(&slide, &ImageSurfaceWidget::MouseDown, this, &Vantry_frm::slide_img_MouseDown);
    connect(&slide, &ImageSurfaceWidget::MouseMove, this, &Vantry_frm::slide_img_MouseMove);
    connect(&slide, &ImageSurfaceWidget::MouseUp, this, &Vantry_frm::slide_img_MouseUp);
}

deck::ImageSurface& Vantry_frm::slide_img() { return m_stage->slide_img(); }

stage::StageSurfaces& Vantry_frm::surfaces() { return m_stage->surfaces(); }

deck::ImageSurface& Vantry_frm::slide_img_N() { return m_notesPanel->slide_img_N(); }

void Vantry_frm::center_form()
{
    const QRect screenArea = screen()->geometry();
    const QSize whole = frameGeometry().size();
    move(screenArea.x() + (screenArea.width() - whole.width()) / 2,
         screenArea.y() + (screenArea.height() - whole.height()) / 2);
}

void Vantry_frm::setCaption(const std::string& text) { setWindowTitle(QString::fromStdString(text)); }

void Vantry_frm::setStatusPanel(int panel, const std::string& text) { m_statusBar->setPanel(panel, text); }

std::string Vantry_frm::statusPanel(int panel) const { return m_statusBar->panel(panel); }

void Vantry_frm::setButtonVisible(std::string_view key, bool visible)
{
    m_toolbar->setButtonVisible(key, visible);
}

void Vantry_frm::setCountdownVisible(bool visible) { m_countdown->setVisible(visible); }

void Vantry_frm::setCountdownPicture(const std::filesystem::path& picture)
{
    m_countdown->setPicture(picture);
}

void Vantry_frm::setChangeBackVisible(bool visible) { m_stage->setChangeBackVisible(visible); }

void Vantry_frm::setMousePointer(const std::filesystem::path& cursor) { setPointer(*this, cursor); }

void Vantry_frm::setStagePointer(const std::filesystem::path& cursor) { setPointer(*m_stage, cursor); }

void Vantry_frm::SetTopMost(bool flag)
{
    m_topMost = flag;
    if (windowHandle() != nullptr)
        m_hints.setStacking(*windowHandle(), flag ? Stacking::above : Stacking::ordinary);
}

bool Vantry_frm::hasMinimizeBox() const { return m_hasMinimizeBox; }

void Vantry_frm::setHasMinimizeBox(bool present)
{
    m_hasMinimizeBox = present;
    applyWindowFunctions();
}

void Vantry_frm::setMoveLocked(bool locked)
{
    m_moveLocked = locked;
    applyWindowFunctions();
}

void Vantry_frm::applyWindowFunctions()
{
    if (windowHandle() != nullptr)
        m_hints.setFunctions(*windowHandle(), m_hasMinimizeBox ? MinimizeBox::present : MinimizeBox::absent,
                             m_moveLocked ? Move::locked : Move::allowed);
}

void Vantry_frm::setFormVisible(bool visible)
{
    if (!visible) {
        takeOffScreen(*this, m_hints);
        return;
    }
    bringOntoScreen(*this, m_hints);
    // Window managers forget what they were asked for about a window that was away.
    SetTopMost(m_topMost);
    applyWindowFunctions();
}

void Vantry_frm::setFormEnabled(bool enabled)
{
    m_inputBlock = enabled ? nullptr : std::make_unique<InputBlock>(*this);
}

void Vantry_frm::makeShapeTransparent() { m_shape->setBackStyle(StageFrame::BackStyle::transparent); }

capture::PixelRectangle Vantry_frm::stageRectangle() const
{
    const double ratio = devicePixelRatioF();
    const auto physical = [ratio](int length) { return base::roundToInt(length * ratio); };
    const auto origin = windowHandle() != nullptr ? m_hints.originOnScreen(*windowHandle()) : std::nullopt;
    const QPoint corner = origin.value_or(mapToGlobal(QPoint()) * ratio);
    return {corner.x() + physical(m_stage->x()), corner.y() + physical(m_stage->y()),
            physical(m_stage->width()), physical(m_stage->height())};
}

void Vantry_frm::processPendingEvents()
{
    // A second press of Stop that waits behind the first must not run the stop inside itself.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void Vantry_frm::closeEvent(QCloseEvent* event)
{
    // The stop that closing may begin shows a dialog; closing again meanwhile must not begin it anew.
    if (m_closing == Closing::running) {
        event->ignore();
        return;
    }
    if (m_closing == Closing::no) {
        m_closing = Closing::running;
        emit Form_Unload();
        m_closing = Closing::done;
    }
    event->accept();
}

void Vantry_frm::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), colours::kGround);
}

} // namespace quillora::forms
