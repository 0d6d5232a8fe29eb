// Random streams of events through the paint engine, in no order that a window would give: releases without a
// press, double clicks anywhere, tools changed amid gestures, places at the ends of the numbers. A failure
// that the engine lets through is in order; what it must never do is crash, hang, or touch memory that is not
// its own.

#include "drawing/paint_engine.h"
#include "tests/support/fake_drawing_ports.h"
#include "tests/support/fake_random_numbers.h"
#include "tests/support/fake_surface_screen.h"
#include "tests/support/fake_text_rasteriser.h"

#include <bit>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <limits>
#include <span>

namespace {

using namespace quillora;
using drawing::PointerEvent;

/// Zeros when the input is over.
class Input {
  public:
    explicit Input(std::span<const std::uint8_t> bytes) : m_bytes(bytes) {}

    bool over() const { return m_bytes.empty(); }
    std::uint8_t byte()
    {
        if (m_bytes.empty())
            return 0;
        const auto first = m_bytes.front();
        m_bytes = m_bytes.subspan(1);
        return first;
    }
    std::uint32_t word()
    {
        std::uint32_t value = 0;
        for (int i = 0; i < 4; ++i)
            value = value << 8 | byte();
        return value;
    }
    /// Mostly near the canvas, sometimes at an end of the numbers, sometimes anything at all.
    float place()
    {
        const auto kind = byte();
        if (kind < 200)
            return static_cast<float>(byte() % 80) - 10 + static_cast<float>(kind % 4) / 4;
        if (kind < 230)
            return kEnds[byte() % std::size(kEnds)];
        if (kind < 250)
            return static_cast<float>(static_cast<std::int16_t>(word()));
        return std::bit_cast<float>(word());
    }
    int index() { return byte() < 250 ? byte() % 30 : static_cast<int>(word()); }

  private:
    static constexpr float kEnds[] = {0,
                                      -1,
                                      32767,
                                      32768,
                                      -32768,
                                      -32769,
                                      2147483648.0F,
                                      -2147483648.0F,
                                      4e9F,
                                      std::numeric_limits<float>::max(),
                                      std::numeric_limits<float>::lowest(),
                                      std::numeric_limits<float>::infinity(),
                                      -std::numeric_limits<float>::infinity(),
                                      std::numeric_limits<float>::quiet_NaN(),
                                      std::numeric_limits<float>::denorm_min()};

    std::span<const std::uint8_t> m_bytes;
};

struct Board {
    tests::FakeTextRasteriser text;
    tests::FakeRandomNumbers random;
    tests::FakeDrawingAssets assets;
    tests::FakeDrawingFocus focus;
    tests::FakeColourDialog cdlColor;
    tests::FakeSurfaceScreen screen;
    drawing::DrawingCanvas canvas;
    drawing::PaintEngine engine{canvas, {text, random, assets, focus, cdlColor}};

    Board(int width, int height) : canvas(width, height, &text, &screen, &screen) {}
};

PointerEvent anyEvent(Input& input)
{
    const auto keys = input.byte();
    return {.button = keys < 220 ? drawing::kLeftButton : keys % 5,
            .shift = input.byte() % 5,
            .x = input.place(),
            .y = input.place()};
}

void onCanvas(Board& board, Input& input)
{
    const auto event = anyEvent(input);
    switch (input.byte() % 8) {
    case 0:
    case 1:
        return board.engine.picPaint_MouseDown(event);
    case 2:
    case 3:
    case 4:
        return board.engine.picPaint_MouseMove(event);
    case 5:
        return board.engine.picPaint_MouseUp(event);
    case 6:
        return board.engine.picPaint_DblClick();
    default:
        return board.engine.picPaint_KeyUp(input.index());
    }
}

void onFloating(Board& board, Input& input)
{
    const auto event = anyEvent(input);
    const int handle = input.byte() < 240 ? input.byte() % 4 : input.index();
    switch (input.byte() % 10) {
    case 0:
        return board.engine.picSelect_MouseDown(event);
    case 1:
        return board.engine.picSelect_MouseMove(event);
    case 2:
        return board.engine.picSelect_MouseUp(event);
    case 3:
        return board.engine.imgBezier_MouseDown(handle, event);
    case 4:
        return board.engine.imgBezier_MouseMove(handle, event);
    case 5:
        return board.engine.imgBezier_MouseUp(handle, event);
    case 6:
        board.canvas.txtText.Text = std::string(input.byte(), 'x');
        return board.engine.txtText_KeyDown();
    case 7:
        return board.engine.txtText_KeyUp(input.index());
    case 8:
        return board.engine.txtText_DblClick();
    default:
        return board.engine.txtText_LostFocus();
    }
}

void onPalette(Board& board, Input& input)
{
    switch (input.byte() % 12) {
    case 0:
        return board.engine.fraOptDot_MouseDown({.button = input.byte() % 3,
                                                 .x = static_cast<float>(input.byte() * 3),
                                                 .y = static_cast<float>(input.byte() * 5)});
    case 1:
        return board.engine.fraOptFill_MouseDown(
            {.button = drawing::kLeftButton, .y = static_cast<float>(input.byte() * 5)});
    case 2:
        return board.engine.lblColor_MouseDown(input.index(), input.byte() % 4);
    case 3:
        board.cdlColor.choice = input.word();
        return board.engine.lblForeColor_DblClick();
    case 4:
        return board.engine.lblFillColor_DblClick();
    case 5:
        return board.engine.Command2_Click();
    case 6:
        return board.engine.chooseBackground(static_cast<drawing::Sheet>(input.byte() % 4));
    case 7:
        return board.engine.ApplyFilterAt(input.index(), input.index() - 1, input.index() - 1);
    case 8:
        board.assets.missing = {input.byte() % 2 == 0 ? "handflat.cur" : "grid.gif"};
        return board.engine.ApplyToolCursor();
    case 9:
        board.canvas.fields.filterId = input.index();
        board.canvas.fields.brushShape = input.index();
        return;
    case 10:
        if (input.byte() % 8 == 0)
            return board.engine.DrawPrepare();
        return;
    default:
        board.canvas.surface().resize(input.byte() % 70, input.byte() % 70);
        return board.engine.picPaint_Resize();
    }
}

/// What no stream of events may break.
void checkState(const Board& board)
{
    const auto& image = board.canvas.surface().Image();
    for (int y = 0; y < image.height(); ++y) {
        for (const auto pixel : image.row(y)) {
            if ((pixel & ~drawing::kColourBits) != 0)
                std::abort();
        }
    }
    const auto& ring = board.canvas.ring;
    for (const int position : {ring.bufferNewest, ring.bufferLast, ring.bufferOldest}) {
        if (position < 0 || position >= drawing::SnapshotRing::kPositions)
            std::abort();
    }
    const auto& selection = board.canvas.picSelect;
    if (selection.Visible && selection.Width > 0 && selection.surface.width() != selection.Width)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input({data, size});
    Board board(input.byte() % 70, input.byte() % 70);
    board.random.numbers = {0.0F, 0.3F, 0.99F, 1.0F, 0.6F};
    while (!input.over()) {
        try {
            const auto kind = input.byte();
            if (kind < 40)
                board.engine.SelectTool(input.byte() < 250 ? input.byte() % drawing::kToolCount
                                                           : input.index(),
                                        kind % 8 == 0 ? drawing::kRightButton : drawing::kLeftButton);
            else if (kind < 180)
                onCanvas(board, input);
            else if (kind < 220)
                onFloating(board, input);
            else
                onPalette(board, input);
        } catch (const std::exception&) {
        }
    }
    checkState(board);
    return 0;
}
