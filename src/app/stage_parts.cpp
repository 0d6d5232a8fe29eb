#include "app/stage_parts.h"

#include "forms/stage_widget.h"
#include "forms/vantry_frm.h"

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
      m_deckShortcut({.surfaces = needs.window.surfaces(), .bars = needs.bars, .deck = needs.deck})
{
    provideOperations(needs.operations);
    connectWindow(needs.window);
}

void StageParts::provideOperations(session::OperationTable& operations)
{
    using session::Operation;
    operations.provide(Operation::toolbar_slides, [this] { m_commands.toolbar_slides(); });
    operations.provide(Operation::toolbar_text, [this] { m_commands.toolbar_text(); });
    operations.provide(Operation::toolbar_draw, [this] { m_commands.toolbar_draw(); });
    operations.provide(Operation::toolbar_web, [this] { m_commands.toolbar_web(); });
    operations.provide(Operation::toolbar_youtube, [this] { m_commands.toolbar_youtube(); });
}

void StageParts::connectWindow(forms::Vantry_frm& window)
{
    auto& stage = window.Picture1();
    QObject::connect(&stage, &forms::StageWidget::Image1_Click, &window,
                     [this] { m_deckShortcut.Image1_Click(); });
}

} // namespace quillora::app
