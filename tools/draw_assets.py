#!/usr/bin/python3
"""Draws the pictures that stand beside the program, into assets/.

All of them are the project's own. They are drawn large and reduced, so that edges are smooth, and the same
input gives the same files: run it again after a change here and commit what it wrote. Needs python3-pil
and fonts-liberation.
"""

import math
import struct
from pathlib import Path

from PIL import Image, ImageChops, ImageDraw, ImageFont

ASSETS = Path(__file__).resolve().parent.parent / "assets"
FONT = "/usr/share/fonts/truetype/liberation/LiberationSans-{}.ttf"

# The colours of src/forms/look.h.
GROUND = (0xF1, 0xF3, 0xF6)
SURFACE = (0xFF, 0xFF, 0xFF)
LINE = (0xD3, 0xD9, 0xE1)
TEXT = (0x1E, 0x29, 0x36)
MUTED = (0x55, 0x61, 0x70)
ACCENT = (0x1F, 0x62, 0xC4)
RED = (0xD3, 0x30, 0x2F)
PALE = (0xDB, 0xE7, 0xF8)
SOFT = (0x9D, 0xB9, 0xE3)

STAGE = (747, 420)
COUNTDOWN_SIDE = 50
OVERSAMPLING = 8


def font(size, weight="Regular"):
    return ImageFont.truetype(FONT.format(weight), size)


def reduced(image, size):
    return image.resize(size, Image.LANCZOS)


def save_animation(frames, path, frame_ms, loops):
    """One palette for all frames, so that no colour flickers. A GIF has no soft edges: what is pure ground is
    left out, and the edges blend into the ground of the window that the pictures are shown in."""
    colours = 63
    strip = Image.new("RGB", (COUNTDOWN_SIDE, COUNTDOWN_SIDE * len(frames)))
    for row, frame in enumerate(frames):
        strip.paste(frame, (0, row * COUNTDOWN_SIDE))
    palette = strip.quantize(colours, method=Image.MEDIANCUT, dither=Image.NONE)
    indexed = []
    for frame in frames:
        picture = frame.quantize(palette=palette, dither=Image.NONE)
        ground = ImageChops.difference(frame, Image.new("RGB", frame.size, GROUND)).convert("L").point(
            lambda distance: 255 if distance == 0 else 0)
        picture.paste(colours, mask=ground)
        indexed.append(picture)
    options = {} if loops == 1 else {"loop": 0}
    indexed[0].save(path, save_all=True, append_images=indexed[1:], duration=frame_ms, optimize=False,
                    transparency=colours, disposal=2, **options)


def countdown_frame(digit, left):
    """The digit in a ring of which the part `left`, from 1 to 0, still stands."""
    side = COUNTDOWN_SIDE * OVERSAMPLING
    image = Image.new("RGB", (side, side), GROUND)
    draw = ImageDraw.Draw(image)
    margin, width = 3 * OVERSAMPLING, 4 * OVERSAMPLING
    box = (margin, margin, side - margin, side - margin)
    draw.ellipse(box, fill=SURFACE)
    draw.arc(box, 0, 360, fill=LINE, width=width)
    if left > 0:
        draw.arc(box, -90, -90 + 360 * left, fill=ACCENT, width=width)
    draw.text((side / 2, side / 2), str(digit), font=font(25 * OVERSAMPLING, "Bold"), fill=TEXT, anchor="mm")
    return reduced(image, (COUNTDOWN_SIDE, COUNTDOWN_SIDE))


def draw_countdown():
    frames = 20
    for digit in range(1, 6):
        pictures = [countdown_frame(digit, 1 - (i + 1) / frames) for i in range(frames)]
        save_animation(pictures, ASSETS / f"{digit}s.gif", 1000 // frames, loops=1)


def recording_frame(phase):
    side = COUNTDOWN_SIDE * OVERSAMPLING
    glow = (1 - math.cos(2 * math.pi * phase)) / 2
    image = Image.new("RGB", (side, side), GROUND)
    draw = ImageDraw.Draw(image)

    def disc(radius, colour):
        radius *= OVERSAMPLING
        middle = side / 2
        draw.ellipse((middle - radius, middle - radius, middle + radius, middle + radius), fill=colour)

    halo = tuple(round(ground + (red - ground) * (0.08 + 0.22 * glow)) for ground, red in zip(GROUND, RED))
    disc(17 + 5 * glow, halo)
    disc(14, RED)
    return reduced(image, (COUNTDOWN_SIDE, COUNTDOWN_SIDE))


def draw_recording():
    frames = 12
    save_animation([recording_frame(i / frames) for i in range(frames)], ASSETS / "records.gif", 120, loops=0)


def draw_start_picture():
    """The stage before the first deck. The button drawn at (266, 286), 215 by 52, is what the window makes
    a place to click; see src/forms/start_button_area.cpp."""
    scale = 4
    image = Image.new("RGB", (STAGE[0] * scale, STAGE[1] * scale), SURFACE)
    draw = ImageDraw.Draw(image)

    def box(left, top, across, down, radius, **style):
        style["width"] = style.get("width", 0) * scale
        draw.rounded_rectangle(
            (left * scale, top * scale, (left + across) * scale, (top + down) * scale), radius * scale, **style)

    def line(points, colour, width):
        points = [(x * scale, y * scale) for x, y in points]
        draw.line(points, fill=colour, width=width * scale, joint="curve")
        for x, y in points:
            r = width * scale / 2
            draw.ellipse((x - r, y - r, x + r, y + r), fill=colour)

    def text(x, y, words, size, colour, weight="Regular"):
        draw.text((x * scale, y * scale), words, font=font(size * scale, weight), fill=colour, anchor="mm")

    middle = STAGE[0] / 2
    line([(middle - 26, 186), (middle, 168), (middle + 26, 186)], ACCENT, 5)
    line([(middle, 150), (middle, 168)], ACCENT, 5)
    box(middle - 78, 62, 156, 92, 8, fill=PALE, outline=ACCENT, width=4)
    line([(middle - 54, 88), (middle - 4, 88)], ACCENT, 5)
    line([(middle - 54, 108), (middle - 18, 108)], SOFT, 5)
    line([(middle - 54, 126), (middle - 26, 126)], SOFT, 5)
    draw.ellipse(((middle + 18) * scale, 84 * scale, (middle + 58) * scale, 124 * scale), fill=RED)

    text(middle, 222, "Start with a slide deck", 27, TEXT, "Bold")
    text(middle, 256, "Your slides appear here, and what is shown here is what gets recorded.", 15, MUTED)
    box(266, 286, 215, 52, 8, fill=ACCENT)
    text(middle, 312, "Open a slide deck", 17, SURFACE, "Bold")
    text(middle, 362, "PowerPoint presentations: .ppt, .pptx, .pps", 13, MUTED)
    reduced(image, STAGE).save(ASSETS / "PPT.png", optimize=True)


def wait_pointer():
    """An hourglass of 32 by 32."""
    scale = OVERSAMPLING
    image = Image.new("RGBA", (32 * scale, 32 * scale))
    draw = ImageDraw.Draw(image)

    def points(*pairs):
        return [(x * scale, y * scale) for x, y in pairs]

    for grow, colour in ((1.3, (255, 255, 255, 255)), (0, TEXT + (255,))):
        draw.polygon(points((8 - grow, 5), (24 + grow, 5), (17.2 + grow, 16), (24 + grow, 27), (8 - grow, 27),
                            (14.8 - grow, 16)), fill=colour)
        draw.rounded_rectangle(
            ((6 - grow) * scale, (3 - grow) * scale, (26 + grow) * scale, (6 + grow) * scale), scale, fill=colour)
        draw.rounded_rectangle(
            ((6 - grow) * scale, (26 - grow) * scale, (26 + grow) * scale, (29 + grow) * scale), scale, fill=colour)
    glass = (255, 255, 255, 255)
    draw.polygon(points((10.4, 7), (21.6, 7), (16, 15.4)), fill=glass)
    draw.polygon(points((10.4, 25), (21.6, 25), (16, 16.6)), fill=glass)
    sand = ACCENT + (255,)
    draw.polygon(points((12.5, 10.2), (19.5, 10.2), (16, 15.4)), fill=sand)
    draw.polygon(points((11.2, 24.6), (20.8, 24.6), (16, 20.4)), fill=sand)
    return reduced(image, (32, 32))


def draw_cursor(image, hot_spot, path):
    """A Windows cursor file: a directory of one entry, then a bitmap whose height counts its mask too."""
    width, height = image.size
    pixels = image.load()
    colours = b"".join(
        struct.pack("<4B", *(pixels[x, y][channel] for channel in (2, 1, 0, 3)))
        for y in reversed(range(height)) for x in range(width))
    mask = b""
    for y in reversed(range(height)):
        bits = sum((1 << (width - 1 - x)) for x in range(width) if pixels[x, y][3] < 128)
        mask += bits.to_bytes(width // 8, "big")
    header = struct.pack("<IiiHHIIiiII", 40, width, 2 * height, 1, 32, 0, len(colours) + len(mask), 0, 0, 0, 0)
    bitmap = header + colours + mask
    directory = struct.pack("<HHH", 0, 2, 1)
    entry = struct.pack("<BBBBHHII", width, height, 0, 0, hot_spot[0], hot_spot[1], len(bitmap), 6 + 16)
    path.write_bytes(directory + entry + bitmap)


def draw_program_icon():
    """The drawing of assets/quillora.svg, for places that take no SVG."""
    scale = 4
    image = Image.new("RGBA", (256 * scale, 256 * scale))
    draw = ImageDraw.Draw(image)

    def box(left, top, right, bottom, radius, colour):
        draw.rounded_rectangle((left * scale, top * scale, right * scale, bottom * scale), radius * scale, fill=colour)

    def line(points, colour, width):
        points = [(x * scale, y * scale) for x, y in points]
        draw.line(points, fill=colour, width=width * scale, joint="curve")
        for x, y in points:
            r = width * scale / 2
            draw.ellipse((x - r, y - r, x + r, y + r), fill=colour)

    box(8, 8, 248, 248, 52, ACCENT)
    box(48, 62, 208, 166, 12, SURFACE)
    line([(128, 166), (128, 190)], SURFACE, 14)
    line([(92, 208), (128, 188), (164, 208)], SURFACE, 14)
    line([(70, 92), (132, 92)], SOFT, 10)
    line([(70, 116), (114, 116)], SOFT, 10)
    draw.ellipse((150 * scale, 106 * scale, 194 * scale, 150 * scale), fill=RED)
    reduced(image, (256, 256)).save(ASSETS / "quillora.png", optimize=True)


def draw_backdrop():
    """The backdrop of the stage: seen beside the media, where the camera's frame leaves room, so it is calm and
    has nothing in it that a cut could spoil."""
    scale = 2
    width, height = STAGE[0] * scale, STAGE[1] * scale
    top, bottom = (0x2B, 0x4A, 0x78), (0x16, 0x26, 0x40)
    column = Image.new("RGB", (1, height))
    for y in range(height):
        part = y / (height - 1)
        column.putpixel((0, y), tuple(round(a + (b - a) * part) for a, b in zip(top, bottom)))
    image = column.resize((width, height))
    waves = Image.new("L", (width, height))
    for row, (level, swing, shade) in enumerate(((0.62, 26, 13), (0.74, 34, 15), (0.86, 22, 17))):
        crest = [(x, height * level + swing * scale * math.sin(x / width * 5.2 + row * 1.9))
                 for x in range(0, width + 8, 8)]
        layer = Image.new("L", (width, height))
        ImageDraw.Draw(layer).polygon(crest + [(width, height), (0, height)], fill=shade)
        waves = ImageChops.add(waves, layer)
    image = Image.composite(Image.new("RGB", image.size, SOFT), image, waves)
    (ASSETS / "design").mkdir(exist_ok=True)
    reduced(image, STAGE).save(ASSETS / "design" / "backdrop.jpg", quality=92, subsampling=0)
def draw_return_picture():
    """What brings the stage back while the screen is recorded: the keys Ctrl and R, then the program's window over
    another one. Twice the size at which it is shown, so that it stays sharp where a desktop scales."""
    width, height, scale = 300, 96, 8
    image = Image.new("RGB", (width * scale, height * scale), GROUND)
    draw = ImageDraw.Draw(image)

    def box(left, top, across, down, radius, **style):
        style["width"] = round(style.get("width", 0) * scale)
        draw.rounded_rectangle(
            (left * scale, top * scale, (left + across) * scale, (top + down) * scale), radius * scale, **style)

    def line(points, colour, thickness):
        points = [(x * scale, y * scale) for x, y in points]
        draw.line(points, fill=colour, width=round(thickness * scale), joint="curve")
        for x, y in points:
            r = thickness * scale / 2
            draw.ellipse((x - r, y - r, x + r, y + r), fill=colour)

    def key(left, across, words):
        box(left, 29, across, 42, 7, fill=LINE)
        box(left, 26, across, 41, 7, fill=SURFACE, outline=MUTED, width=1.5)
        draw.text(((left + across / 2) * scale, 46 * scale), words, font=font(18 * scale, "Bold"), fill=TEXT,
                  anchor="mm")

    key(10, 66, "Ctrl")
    draw.text((88 * scale, 47 * scale), "+", font=font(20 * scale), fill=MUTED, anchor="mm")
    key(100, 44, "R")
    line([(156, 48), (182, 48)], ACCENT, 3)
    line([(174, 40), (183, 48), (174, 56)], ACCENT, 3)
    box(222, 8, 66, 48, 5, fill=SURFACE, outline=LINE, width=2)
    line([(232, 18), (258, 18)], LINE, 3)
    box(196, 28, 78, 58, 6, fill=SURFACE, outline=ACCENT, width=3)
    box(204, 40, 62, 38, 3, fill=PALE)
    line([(212, 50), (236, 50)], SOFT, 3)
    line([(212, 59), (228, 59)], SOFT, 3)
    draw.ellipse((244 * scale, 52 * scale, 258 * scale, 66 * scale), fill=RED)
    reduced(image, (2 * width, 2 * height)).save(ASSETS / "screen_return.png", optimize=True)


if __name__ == "__main__":
    draw_backdrop()
    draw_countdown()
    draw_recording()
    draw_start_picture()
    draw_cursor(wait_pointer(), (16, 16), ASSETS / "WAIT02.CUR")
    draw_program_icon()
    draw_return_picture()
