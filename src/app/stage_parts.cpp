#include "app/stage_parts.h"

#include "base/skip_failures.h"
#include "forms/backdrop_widget.h"
#include "forms/camera_panel.h"
#include "forms/corner_buttons.h"
#include "forms/mode_strip.h"
#include "forms/stage_widget.h"
#include "forms/vantry_frm.h"

#include <exception>

namespace quillora::app {

StageParts::StageParts(const Needs& needs)
    : m_layout({.fields = needs.fields,
                .stageFields = m_fields,
                .window = needs.window,
                .slides = needs.slides,
                .bars = needs.bars,
                .camera = needs.camera,
                .surfaces = needs.window.surfaces()}),
      m_media({.fields = needs.fields,
               .window = needs.window,
               .slides = needs.slides,
               .bars = needs.bars,
               .surfaces = needs.window.surfaces()}),
      m_commands({.fields = needs.fields,
                  .stageFields = m_fields,
                  .window = needs.window,
                  .media = m_media,
                  .layout = m_layout,
                  .surfaces = needs.window.surfaces(),
                  .operations = needs.operations}),
      m_deckShortcut({.surfaces = needs.window.surfaces(), .bars = needs.bars, .deck = needs.deck}),
      m_rotation({.fields = m_fields, .surfaces = needs.window.surfaces()}),
      m_backdrop({.fields = m_fields,
                  .layout = m_layout,
                  .CommonDialog4 = needs.CommonDialog4,
                  .boxes = needs.boxes,
                  .back_img = needs.window.Picture1().back_img()})
{
    provideOperations(needs.operations);
    connectWindow(needs.window);
    connectBackdrop(needs.window, needs.boxes);
}

void StageParts::provideOperations(session::OperationTable& operations)
{
    using session::Operation;
    operations.provide(Operation::toolbar_slides, [this] { m_commands.toolbar_slides(); });
    operations.provide(Operation::toolbar_text, [this] { m_commands.toolbar_text(); });
    operations.provide(Operation::toolbar_draw, [this] { m_commands.toolbar_draw(); });
    operations.provide(Operation::toolbar_web, [this] { m_commands.toolbar_web(); });
    operations.provide(Operation::toolbar_youtube, [this] { m_commands.toolbar_youtube(); });
    operations.provide(Operation::RotatePPT, [this] { m_rotation.RotatePPT(); });
    operations.provide(Operation::RotatePPTCAM, [this] { m_rotation.RotatePPTCAM(); });
    operations.provide(Operation::RotatePPTDRAW, [this] { m_rotation.RotatePPTDRAW(); });
    operations.provide(Operation::RotatePPTWHITEBOARD, [this] { m_rotation.RotatePPTWHITEBOARD(); });
}

void StageParts::connectWindow(forms::Vantry_frm& window)
{
    auto& commands = m_commands;
    const auto on = [&](auto& sender, auto signal, auto& logic, auto operation) {
        QObject::connect(&sender, signal, &window, [&logic, operation] { (logic.*operation)(); });
    };
    using stage::StageCommands;
    on(window.Picture1(), &forms::StageWidget::Image1_Click, m_deckShortcut,
       &stage::DeckShortcut::Image1_Click);
    using forms::ModeStrip;
    auto& strip = window.Picture_cont1();
    on(strip, &ModeStrip::Picture26_Click, commands, &StageCommands::Picture26_Click);
    on(strip, &ModeStrip::Picture19_Click, commands, &StageCommands::Picture19_Click);
    on(strip, &ModeStrip::Picture24_Click, commands, &StageCommands::Picture24_Click);
    on(strip, &ModeStrip::Picture4_Click, commands, &StageCommands::Picture4_Click);
    on(strip, &ModeStrip::Picture16_Click, commands, &StageCommands::Picture16_Click);
    using forms::CornerButtons;
    auto& corners = window.campos_pic();
    on(corners, &CornerButtons::Picture17_Click, commands, &StageCommands::Picture17_Click);
    on(corners, &CornerButtons::Picture21_Click, commands, &StageCommands::Picture21_Click);
    on(corners, &CornerButtons::Picture22_Click, commands, &StageCommands::Picture22_Click);
    on(corners, &CornerButtons::Picture23_Click, commands, &StageCommands::Picture23_Click);
}

void StageParts::connectBackdrop(forms::Vantry_frm& window, base::MessageBoxes& boxes)
{
    using forms::CameraPanel;
    QObject::connect(&window.Picture1(), &forms::StageWidget::changeback_btn_Click, &window,
                     [this] { m_backdrop.changeback_btn_Click(); });
    // The captions have no words of their own for a file that is no picture.
    const auto onCaption = [&](auto signal, auto operation) {
        QObject::connect(&window.PicDraw1(), signal, &window, [this, &boxes, operation] {
            try {
                (m_backdrop.*operation)();
            } catch (const std::exception& failure) {
                base::skipFailures([&] {
                    boxes.show(
                        {.text = failure.what(), .title = "Quillora", .icon = base::BoxIcon::critical});
                });
            }
        });
    };
    onCaption(&CameraPanel::Label19_Click, &stage::Backdrop::Label19_Click);
    onCaption(&CameraPanel::loadpic_lb_Click, &stage::Backdrop::loadpic_lb_Click);
}

} // namespace quillora::app
