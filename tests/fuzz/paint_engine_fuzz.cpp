// Random streams of events through the paint engine, in no order that a window would give: releases without a
// press, double clicks anywhere, tools changed amid gestures, places at the ends of the numbers. A failure
// that the engine lets through is in order; what it must never do is crash, hang, or touch memory that is not
// its own.

#include "drawing/paint_engine.h"
#include "tests/fuzz/fuzz_input.h"
#include "tests/support/fake_drawing_ports.h"
#include "tests/support/fake_random_numbers.h"
#include "tests/support/fake_surface_screen.h"
#include "tests/support/fake_text_rasteriser.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <limits>
#include <string>

namespace {

using namespace quillora;
using drawing::PointerEvent;
using tests::FuzzInput;

/// Mostly near the canvas.
float place(FuzzInput& input)
{
    constexpr double farthest = std::numeric_limits<float>::max();
    if (input.choice(8) > 0)
        return static_cast<float>(input.choice(80) - 10) + static_cast<float>(input.choice(4)) / 4;
    const double anywhere = input.real();
    return std::isinf(anywhere) ? static_cast<float>(anywhere)
                                : static_cast<float>(std::clamp(anywhere, -farthest, farthest));
}

int index(FuzzInput& input) { return input.choice(16) > 0 ? input.choice(30) : input.number(); }

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

PointerEvent anyEvent(FuzzInput& input)
{
    const auto keys = input.byte();
    return {.button = keys < 220 ? drawing::kLeftButton : keys % 5,
            .shift = input.choice(5),
            .x = place(input),
            .y = place(input)};
}

void onCanvas(Board& board, FuzzInput& input)
{
    const auto event = anyEvent(input);
    switch (input.choice(8)) {
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
        return board.engine.picPaint_KeyUp(index(input));
    }
}

void onFloating(Board& board, FuzzInput& input)
{
    const auto event = anyEvent(input);
    const int handle = input.byte() < 240 ? input.choice(4) : index(input);
    switch (input.choice(10)) {
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
        return board.engine.txtText_KeyUp(index(input));
    case 8:
        return board.engine.txtText_DblClick();
    default:
        return board.engine.txtText_LostFocus();
    }
}

void onPalette(Board& board, FuzzInput& input)
{
    switch (input.choice(12)) {
    case 0:
        return board.engine.fraOptDot_MouseDown({.button = input.choice(3),
                                                 .x = static_cast<float>(input.byte() * 3),
                                                 .y = static_cast<float>(input.byte() * 5)});
    case 1:
        return board.engine.fraOptFill_MouseDown(
            {.button = drawing::kLeftButton, .y = static_cast<float>(input.byte() * 5)});
    case 2:
        return board.engine.lblColor_MouseDown(index(input), input.choice(4));
    case 3:
        board.cdlColor.choice = static_cast<drawing::Colour>(input.number());
        return board.engine.lblForeColor_DblClick();
    case 4:
        return board.engine.lblFillColor_DblClick();
    case 5:
        return board.engine.Command2_Click();
    case 6:
        return board.engine.chooseBackground(static_cast<drawing::Sheet>(input.choice(4)));
    case 7:
        if (input.choice(4) == 0)
            return board.engine.ApplyFilterAt(index(input), -1, -1);
        return board.engine.ApplyFilterAt(index(input), index(input), index(input));
    case 8:
        board.assets.missing = {input.choice(2) == 0 ? "handflat.cur" : "grid.gif"};
        return board.engine.ApplyToolCursor();
    case 9:
        board.canvas.fields.filterId = index(input);
        board.canvas.fields.brushShape = index(input);
        return;
    case 10:
        if (input.choice(8) == 0)
            return board.engine.DrawPrepare();
        return;
    default:
        board.canvas.surface().resize(input.choice(70), input.choice(70));
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
    FuzzInput input(data, size);
    Board board(input.choice(70), input.choice(70));
    board.random.numbers = {0.0F, 0.3F, 0.99F, 1.0F, 0.6F};
    while (!input.atEnd()) {
        try {
            const auto kind = input.byte();
            if (kind < 40)
                board.engine.SelectTool(input.byte() < 250 ? input.choice(drawing::kToolCount) : index(input),
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
