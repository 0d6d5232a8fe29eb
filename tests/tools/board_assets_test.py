#!/usr/bin/python3
"""The cursors and sheets of the drawing board: each is there, is what its name says, and is what its script draws."""

import struct
import subprocess
import shutil
import sys
import tempfile
import unittest
from pathlib import Path

from PIL import Image, ImageChops

ROOT = Path(__file__).resolve().parents[2]
ASSETS = ROOT / "assets"

# Where each cursor points: the tip of what draws, the middle of what is aimed.
HOT_SPOTS = {
    "pick": (2, 30), "eraser": (3, 28), "fill": (3, 29), "draw": (2, 29), "cross": (15, 15), "text": (15, 16),
    "airbrush": (8, 8), "filter": (8, 10), "zoom": (12, 12), "brush": (2, 29), "handflat": (16, 16),
    "handgrab": (16, 16),
}
SHEETS = {"grid.gif": "GIF", "squares.jpg": "JPEG", "xy.gif": "GIF"}


class BoardAssets(unittest.TestCase):
    def test_each_cursor_is_of_one_picture_32_by_32_with_its_hot_spot(self):
        for name, hot_spot in HOT_SPOTS.items():
            content = (ASSETS / f"{name}.cur").read_bytes()
            self.assertEqual(struct.unpack("<HHH", content[:6]), (0, 2, 1), name)
            width, height, _, _, x, y, length, offset = struct.unpack("<BBBBHHII", content[6:22])
            self.assertEqual((width, height), (32, 32), name)
            self.assertEqual((x, y), hot_spot, name)
            self.assertEqual(offset + length, len(content), name)

    def test_each_sheet_has_the_size_of_the_canvas(self):
        for name, kind in SHEETS.items():
            with Image.open(ASSETS / name) as sheet:
                self.assertEqual((sheet.format, sheet.size), (kind, (747, 420)), name)

    def test_each_sheet_is_ruled_on_the_canvas_s_own_back_colour(self):
        for name in SHEETS:
            with Image.open(ASSETS / name) as sheet:
                _, commonest = max(sheet.convert("RGB").getcolors(1 << 20))
                self.assertEqual(commonest, (201, 198, 255), name)

    def test_the_script_draws_what_is_kept(self):
        with tempfile.TemporaryDirectory() as folder:
            copy = Path(folder)
            (copy / "assets").mkdir()
            shutil.copytree(ROOT / "tools", copy / "tools", ignore=shutil.ignore_patterns("__pycache__"))
            subprocess.run([sys.executable, copy / "tools" / "draw_board_assets.py"], check=True)
            for path in (copy / "assets").iterdir():
                if path.suffix == ".cur":
                    self.assertEqual(path.read_bytes(), (ASSETS / path.name).read_bytes(), path.name)
                    continue
                with Image.open(path) as drawn, Image.open(ASSETS / path.name) as kept:
                    difference = ImageChops.difference(drawn.convert("RGB"), kept.convert("RGB"))
                    self.assertIsNone(difference.getbbox(), path.name)
            drawn = {path.name for path in (copy / "assets").iterdir()}
            self.assertEqual(drawn, set(SHEETS) | {f"{name}.cur" for name in HOT_SPOTS})


if __name__ == "__main__":
    unittest.main()
