#include "app/drawing_parts.h"

#include "base/skip_failures.h"
#include "base/twips.h"
#include "forms/drawing_palette.h"
#include "forms/form_colour.h"
#include "forms/look.h"
#include "forms/paint_canvas_widget.h"
#include "forms/text_tool_box.h"

#include <QGuiApplication>
#include <QPalette>

#include <algorithm>
#include <exception>

namespace quillora::app {

using base::skipFailures;
using drawing::PointerEvent;
using forms::DrawingPalette;
using forms::PaintCanvasWidget;
using forms::PointerArea;
using forms::TextToolBox;

namespace {

const int kCanvasWidth = forms::pixels(base::kStageWidth);
const int kCanvasHeight = forms::pixels(base::kStageHeight);

} // namespace

DrawingParts::DrawingParts(const DrawingForms& forms, const std::filesystem::path& assets)
    : m_forms(forms),
      m_assets(assets, kCanvasWidth, kCanvasHeight),
      m_colourDialog(forms.window),
      m_canvas(kCanvasWidth, kCanvasHeight, &m_text, &forms.picPaint.screen(),
               &forms.picPaint.picSelect().screen()),
      m_engine(m_canvas, {m_text, m_random, m_assets, forms.picPaint, m_colourDialog})
{
    m_canvas.lblColor.at(drawing::kSystemWindowCell) =
        forms::toColour(QGuiApplication::palette().color(QPalette::Base));
    forms.picPaint.setSurface(&m_canvas.surface());
    forms.picPaint.picSelect().setSurface(&m_canvas.picSelect.surface);
    takeCanvasSize();
    connectCanvas();
    connectFloating();
    connectPalette();
    showState();
}

DrawingParts::~DrawingParts()
{
    for (const auto& connection : m_connections)
        QObject::disconnect(connection);
    m_forms.picPaint.picSelect().setSurface(nullptr);
    m_forms.picPaint.setSurface(nullptr);
}

void DrawingParts::DrawPrepare()
{
    try {
        m_engine.DrawPrepare();
    } catch (const std::exception&) {
        showState();
        throw;
    }
    showState();
}

template <typename Sender, typename Signal, typename Handler>
void DrawingParts::on(Sender& sender, Signal signal, Handler handler)
{
    m_connections.push_back(QObject::connect(&sender, signal, &sender, [this, handler](auto... values) {
        skipFailures([&] { handler(values...); });
        showState();
    }));
}

void DrawingParts::connectCanvas()
{
    auto& canvas = m_forms.picPaint;
    on(canvas, &PointerArea::MouseDown,
       [this](const PointerEvent& event) { m_engine.picPaint_MouseDown(event); });
    on(canvas, &PointerArea::MouseMove,
       [this](const PointerEvent& event) { m_engine.picPaint_MouseMove(event); });
    on(canvas, &PointerArea::MouseUp,
       [this](const PointerEvent& event) { m_engine.picPaint_MouseUp(event); });
    on(canvas, &PaintCanvasWidget::DblClick, [this] { m_engine.picPaint_DblClick(); });
    on(canvas, &PaintCanvasWidget::KeyUp, [this](int key) { m_engine.picPaint_KeyUp(key); });
    on(canvas, &PaintCanvasWidget::Resize, [this] {
        takeCanvasSize();
        m_engine.picPaint_Resize();
    });
}

void DrawingParts::connectFloating()
{
    auto& selection = m_forms.picPaint.picSelect();
    on(selection, &PointerArea::MouseDown,
       [this](const PointerEvent& event) { m_engine.picSelect_MouseDown(event); });
    on(selection, &PointerArea::MouseMove,
       [this](const PointerEvent& event) { m_engine.picSelect_MouseMove(event); });
    on(selection, &PointerArea::MouseUp,
       [this](const PointerEvent& event) { m_engine.picSelect_MouseUp(event); });

    for (int i = 0; i < int(m_canvas.imgBezier.size()); ++i) {
        auto& handle = m_forms.picPaint.imgBezier(i);
        on(handle, &PointerArea::MouseDown,
           [this, i](const PointerEvent& event) { m_engine.imgBezier_MouseDown(i, event); });
        on(handle, &PointerArea::MouseMove,
           [this, i](const PointerEvent& event) { m_engine.imgBezier_MouseMove(i, event); });
        on(handle, &PointerArea::MouseUp,
           [this, i](const PointerEvent& event) { m_engine.imgBezier_MouseUp(i, event); });
    }

    auto& box = m_forms.picPaint.txtText();
    on(box, &QLineEdit::textChanged,
       [this](const QString& words) { m_canvas.txtText.Text = words.toStdString(); });
    on(box, &TextToolBox::KeyDown, [this](int) { m_engine.txtText_KeyDown(); });
    on(box, &TextToolBox::KeyUp, [this](int key) { m_engine.txtText_KeyUp(key); });
    on(box, &TextToolBox::DblClick, [this] { m_engine.txtText_DblClick(); });
    on(box, &TextToolBox::LostFocus, [this] { m_engine.txtText_LostFocus(); });
}

void DrawingParts::connectPalette()
{
    auto& palette = m_forms.Picture2;
    on(palette, &DrawingPalette::optTools_MouseDown, [this](int index, int button) {
        m_engine.SelectTool(index, button);
        m_forms.picPaint.setVisible(m_canvas.picPaint.Visible);
    });
    on(palette, &DrawingPalette::Command2_Click, [this] { m_engine.Command2_Click(); });
    on(palette, &DrawingPalette::lblColor_MouseDown,
       [this](int index, int button) { m_engine.lblColor_MouseDown(index, button); });
    on(palette, &DrawingPalette::lblForeColor_DblClick, [this] { m_engine.lblForeColor_DblClick(); });
    on(palette, &DrawingPalette::lblFillColor_DblClick, [this] { m_engine.lblFillColor_DblClick(); });
    on(palette, &DrawingPalette::fraOptDot_MouseDown,
       [this](const PointerEvent& event) { m_engine.fraOptDot_MouseDown(event); });
    on(palette, &DrawingPalette::fraOptFill_MouseDown,
       [this](const PointerEvent& event) { m_engine.fraOptFill_MouseDown(event); });
    on(palette, &DrawingPalette::Option_Click,
       [this](drawing::Sheet sheet) { m_engine.chooseBackground(sheet); });
}

void DrawingParts::takeCanvasSize()
{
    const QRect place = m_forms.picPaint.geometry();
    auto& picPaint = m_canvas.picPaint;
    picPaint.Left = {place.x() * base::kTwipsPerPixel};
    picPaint.Top = {place.y() * base::kTwipsPerPixel};
    picPaint.Width = {place.width() * base::kTwipsPerPixel};
    picPaint.Height = {place.height() * base::kTwipsPerPixel};
    // A canvas that a layout makes narrower keeps what was drawn where it doesn't reach just now.
    auto& surface = m_canvas.surface();
    if (place.width() > surface.width() || place.height() > surface.height())
        surface.resize(std::max(place.width(), surface.width()), std::max(place.height(), surface.height()));
}

void DrawingParts::showState()
{
    showPointer();
    m_forms.picPaint.showState(m_canvas);
    m_forms.Picture2.showState(m_canvas);
}

void DrawingParts::showPointer()
{
    const auto& pointer = m_canvas.picPaint;
    const std::string wanted =
        pointer.MousePointer == drawing::kCustomCursor ? pointer.MouseIcon : std::string();
    if (wanted == m_shownCursor)
        return;
    m_shownCursor = wanted;
    m_forms.picPaint.setCursor(wanted.empty() ? QCursor(Qt::ArrowCursor) : m_assets.cursor(wanted));
}

} // namespace quillora::app
