#!/usr/bin/python3
"""take_stage_pictures.py OUT.png [--program PROGRAM]: the stage with each media in each mode, on one sheet.

Drives an installed recorder on a private desktop, with the sample deck and a page of its own in the place of the
service's, presses the buttons as a presenter would, and keeps what the stage shows.
"""
import argparse
import pathlib
import sys
import tempfile

from PIL import Image, ImageDraw, ImageFont

import take_guide_pictures as guide  # noqa: E402, brings the way to the next one
from window import BUTTON_ROLES  # noqa: E402

ROOT = pathlib.Path(__file__).resolve().parent.parent
FONT = "/usr/share/fonts/truetype/liberation/LiberationSans-Regular.ttf"

MEDIA = {"Slides": "slides", "Write": "text", "Draw": "draw", "Web": "web", "YouTube": "youtube"}
MODES = {"Media alone": "full", "Media and camera side by side": "side",
         "Camera in the bottom right corner": "mix", "Camera alone": "fullcam"}
CELL = (299, 168)
GAP = 10
LEFT, TOP = 84, 34


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("out", type=pathlib.Path)
    parser.add_argument("--program", type=pathlib.Path, default=ROOT / "build" / "install" / "bin" / "quillora")
    arguments = parser.parse_args()
    guide.serve()
    with guide.Desktop() as desktop, tempfile.TemporaryDirectory() as folder:
        # These pages are ours, and the administrator may take these pictures too.
        desktop.environment["QTWEBENGINE_DISABLE_SANDBOX"] = "1"
        pictures = take(desktop, arguments.program.resolve(), pathlib.Path(folder))
    sheet(pictures).save(arguments.out, optimize=True)
    return 0


def take(desktop, program, folder):
    """A picture of the stage for each pair of media and mode."""
    presenter = guide.Presenter(desktop, program)
    window = presenter.window
    presenter.open_deck(ROOT / "assets" / "sample_lecture.pptx")
    presenter.move("next")
    window.press("More")
    presenter.wait(1)
    stage = window.area(window.find("Stage"))
    pictures = {}
    for medium, media_type in MEDIA.items():
        window.press(medium, roles=BUTTON_ROLES, within=window.find("Main toolbar"))
        presenter.wait(4 if medium in ("Web", "YouTube") else 1)
        for button, mode in MODES.items():
            window.press(button)
            presenter.wait(1.5)
            path = folder / f"{media_type}-{mode}.png"
            desktop.picture(path, stage)
            pictures[media_type, mode] = Image.open(path).convert("RGB")
        window.press("Media alone")
    presenter.leave()
    return pictures


def sheet(pictures):
    columns, rows = list(MODES.values()), list(MEDIA.values())
    image = Image.new("RGB", (LEFT + len(columns) * (CELL[0] + GAP), TOP + len(rows) * (CELL[1] + GAP)), "white")
    draw = ImageDraw.Draw(image)
    font = ImageFont.truetype(FONT, 17)
    for column, mode in enumerate(columns):
        left = LEFT + column * (CELL[0] + GAP)
        draw.text((left + CELL[0] / 2, TOP / 2), mode, font=font, fill=(0x1E, 0x29, 0x36), anchor="mm")
        for row, media_type in enumerate(rows):
            top = TOP + row * (CELL[1] + GAP)
            image.paste(pictures[media_type, mode].resize(CELL, Image.LANCZOS), (left, top))
            draw.rectangle((left - 1, top - 1, left + CELL[0], top + CELL[1]), outline=(0xD3, 0xD9, 0xE1))
    for row, media_type in enumerate(rows):
        draw.text((LEFT - 10, TOP + row * (CELL[1] + GAP) + CELL[1] / 2), media_type, font=font,
                  fill=(0x1E, 0x29, 0x36), anchor="rm")
    return image


if __name__ == "__main__":
    sys.exit(main())
