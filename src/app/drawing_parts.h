#pragma once

#include "drawing/clocked_random_numbers.h"
#include "drawing/paint_engine.h"
#include "forms/drawing_asset_files.h"
#include "forms/qt_colour_dialog.h"
#include "forms/qt_text_rasteriser.h"

#include <QMetaObject>

#include <filesystem>
#include <string>
#include <vector>

class QWidget;

namespace quillora::forms {
class DrawingPalette;
class PaintCanvasWidget;
} // namespace quillora::forms

namespace quillora::app {

/// Where the drawing board of a window is.
struct DrawingForms {
    forms::PaintCanvasWidget& picPaint;
    forms::DrawingPalette& Picture2;
    /// Whose dialogs the colour dialog is one of.
    QWidget& window;
};

/// The drawing board of the window: the paint engine with all that it asks for, and the events of canvas and
/// palette that go to it. When an event has been handled, the window shows the board's state. What fails in
/// an event ends there; the board can be drawn on as before.
class DrawingParts {
  public:
    /// @p forms must outlive this object. Cursors and sheets are read from @p assets.
    DrawingParts(const DrawingForms& forms, const std::filesystem::path& assets);
    ~DrawingParts();
    DrawingParts(const DrawingParts&) = delete;
    DrawingParts& operator=(const DrawingParts&) = delete;

    /// Each time that drawing is chosen. Throws as PaintEngine::DrawPrepare does; the window shows the state
    /// also then.
    void DrawPrepare();

    const drawing::DrawingCanvas& canvas() const { return m_canvas; }
    drawing::PaintEngine& engine() { return m_engine; }

  private:
    void connectCanvas();
    void connectFloating();
    void connectPalette();
    template <typename Sender, typename Signal, typename Handler>
    void on(Sender& sender, Signal signal, Handler handler);
    void takeCanvasSize();
    void showState();
    void showPointer();

    DrawingForms m_forms;
    forms::QtTextRasteriser m_text;
    drawing::ClockedRandomNumbers m_random;
    forms::DrawingAssetFiles m_assets;
    forms::QtColourDialog m_colourDialog;
    drawing::DrawingCanvas m_canvas;
    drawing::PaintEngine m_engine;
    std::vector<QMetaObject::Connection> m_connections;
    /// The cursor file that the pointer shows now.
    std::string m_shownCursor;
};

} // namespace quillora::app
