#!/usr/bin/python3
"""Draws a picture with every tool of the drawing board, in the installed program on a desktop of its own.

    tools/lecture/draw_board.py OUT.png [--program PROGRAM]

The pointer is the display's own: tools in view are clicked, and all drawing is pressing, moving and letting go. The
tools whose buttons lie below the palette's edge, or are hidden, are pressed through the accessibility bus. Each step
has to change what the stage shows, except for the tools that do nothing there; OUT.png is a picture of the window.
"""
import argparse
import math
import pathlib
import sys
import time

import numpy
from PIL import Image

from desktop import Desktop
from processes import Failure, run_to_end, wait_until
from window import Window

INSTALLED_PROGRAM = pathlib.Path(__file__).resolve().parents[2] / "build" / "install" / "bin" / "quillora"
# Longer than two presses of a double click are apart.
APART = 0.5


class Board:
    """A presenter at the drawing board. Places are pixels of the canvas."""

    def __init__(self, desktop, window):
        self._desktop = desktop
        self._window = window
        self._canvas = window.find("Drawing board")
        self._left, self._top, self._width, self._height = window.area(self._canvas)
        self._shown = self._look()

    def tool(self, name):
        """Takes a tool in hand."""
        control = self._window.find_anywhere(name, within="Tools")
        if self._window.in_view(control, within="Tools"):
            self._window.click(control)
        else:
            self._window.do_action(control)

    def pen(self, colour):
        self._window.press(colour)

    def drag(self, *places, button=1, keys=()):
        """Presses at the first place, moves by way of the others, lets go at the last."""
        steps = []
        for key in keys:
            steps += ["keydown", key]
        steps += self._move(places[0]) + ["mousedown", str(button), "sleep", "0.06"]
        for place in places[1:]:
            steps += self._move(place)
        steps += ["sleep", "0.05", "mouseup", str(button)]
        for key in keys:
            steps += ["keyup", key]
        self._xdotool(*steps)
        time.sleep(APART)

    def click(self, place, button=1):
        self.drag(place, button=button)

    def double_click(self, place):
        self._xdotool(*self._move(place), "click", "--repeat", "2", "--delay", "60", "1")
        time.sleep(APART)

    def write(self, place, words):
        self.click(place)
        self._xdotool("type", "--delay", "15", words)
        self._xdotool("key", "Return")

    def require_change(self, what):
        """Fails where the stage shows what it showed at the last question."""
        before = self._shown

        def changed():
            self._shown = self._look()
            return not numpy.array_equal(before, self._shown)
        wait_until(changed, 10, f"the stage to show the work of {what}")

    def require_no_change(self, what):
        before, self._shown = self._shown, self._look()
        if not numpy.array_equal(before, self._shown):
            raise Failure(f"{what} changed the picture")

    def _move(self, place):
        return ["mousemove", str(self._left + round(place[0])), str(self._top + round(place[1]))]

    def _xdotool(self, *arguments):
        run_to_end(["xdotool", *arguments], seconds=60, env=self._desktop.environment)

    def _look(self):
        path = self._desktop.folder / "stage.png"
        self._desktop.picture(path, (self._left, self._top, self._width, self._height))
        return numpy.asarray(Image.open(path).convert("RGB"))


def around(centre, radius, count, turns=1.0, shrink=0.0):
    """Places on a circle, or on a spiral that shrinks."""
    return [(centre[0] + (radius - shrink * i / count) * math.cos(2 * math.pi * turns * i / count),
             centre[1] + (radius - shrink * i / count) * math.sin(2 * math.pi * turns * i / count))
            for i in range(count + 1)]


def wave(left, top, right, height, count):
    return [(left + (right - left) * i / count, top + height * math.sin(i / count * 4 * math.pi))
            for i in range(count + 1)]


def draw_house(board):
    board.tool("Line")
    board.drag((0, 330), (300, 330), (746, 330))
    board.require_change("Line")
    board.tool("Rectangle")
    board.drag((90, 200), (200, 260), (270, 330))
    board.require_change("Rectangle")
    board.pen("Red")
    board.tool("Polygon")
    board.drag((75, 200), (180, 120))
    board.drag((285, 200), (285, 200))
    board.double_click((285, 200))
    board.require_change("Polygon")
    board.tool("Fill")
    board.click((180, 170))
    board.require_change("Fill")
    board.pen("Black")
    board.tool("Rounded Rectangle")
    board.drag((160, 255), (190, 300), (205, 329))
    board.require_change("Rounded Rectangle")


def draw_sky(board):
    board.pen("Red")
    board.tool("Ellipse")
    board.drag((600, 40), (640, 80), (680, 120), keys=("shift",))
    board.require_change("Ellipse")
    board.pen("Blue")
    board.tool("Pencil")
    board.drag(*around((420, 80), 36, 120, turns=3, shrink=30))
    board.require_change("Pencil")
    board.tool("Air Brush")
    board.drag(*wave(330, 60, 560, 18, 60))
    board.require_change("Air Brush")


def draw_garden(board):
    board.pen("Green")
    board.tool("Brush")
    board.drag(*around((400, 262), 20, 30))
    board.drag(*around((400, 262), 10, 16))
    board.require_change("Brush")
    board.pen("Blue")
    board.tool("Curve")
    board.drag((560, 370), (560, 372))
    board.require_change("Curve")
    board.tool("Pick Color")
    board.click((400, 242))
    board.tool("Line")
    board.drag((400, 284), (400, 310), (400, 329))
    board.require_change("Pick Color and Line")
    board.tool("Select Area")
    board.drag((374, 236), (400, 300), (426, 330))
    board.drag((400, 270), (440, 272), (480, 270), keys=("ctrl",))
    board.tool("Pencil")
    board.require_change("Select Area")


def draw_rest(board):
    board.pen("Black")
    board.tool("Arrow")
    board.drag((360, 170), (320, 180), (290, 190))
    board.require_change("Arrow")
    board.tool("Text")
    board.write((364, 152), "every tool")
    board.require_change("Text")
    board.tool("Eraser")
    board.drag((20, 330), (40, 331), (60, 331))
    board.require_change("Eraser")
    board.tool("Filter Brush")
    board.drag(*around((180, 165), 12, 40))
    board.require_change("Filter Brush")
    for tool in ("Zoom", "Hand"):
        board.tool(tool)
        board.drag((500, 200), (520, 210), (540, 220))
        board.require_no_change(tool)
    board.tool("Pencil")


def draw(desktop, program, out):
    window = Window(desktop, desktop.start([str(program)], "recorder"))
    window.appear()
    window.press("More")
    window.press("Draw", roles=("push button", "button"))
    wait_until(lambda: window.find("Drawing board") and window.find("Pencil"), 20, "the drawing board")
    time.sleep(1)
    board = Board(desktop, window)
    for part in (draw_house, draw_sky, draw_garden, draw_rest):
        part(board)
    desktop.picture(out, window.area())
    print(f"{out}: drawn with every tool")
    window.close()


def main():
    parser = argparse.ArgumentParser(description="Draws a picture with every tool of the drawing board.")
    parser.add_argument("out", type=pathlib.Path, metavar="OUT.png")
    parser.add_argument("--program", type=pathlib.Path, default=INSTALLED_PROGRAM, help="the recorder to drive")
    arguments = parser.parse_args()
    try:
        with Desktop(sound=False) as desktop:
            draw(desktop, arguments.program.resolve(), arguments.out.resolve())
    except Failure as failure:
        print(f"FAILED: {failure}")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
