#!/usr/bin/python3
"""Draws the cursors and the sheets of the drawing board, into assets/.

All of them are the project's own, drawn large and reduced; the same input gives the same files. Run it again after
a change here and commit what it wrote. Needs python3-pil and fonts-liberation.
"""

from PIL import Image, ImageDraw, ImageFilter

from draw_assets import ACCENT, ASSETS, OVERSAMPLING, PALE, STAGE, SURFACE, TEXT, draw_cursor, font, reduced

SIDE = 32
CLEAR = (0, 0, 0, 0)

# The canvas's own back colour: over it the band of a shape that is being dragged shows its true colour, so the sheets
# are ruled on it too.
SHEET = (201, 198, 255)
FAINT = (184, 180, 243)
STRONG = (160, 155, 228)
AXIS = (92, 84, 178)


class Pad:
    """A cursor's drawing, in pixels of the cursor."""

    def __init__(self):
        self.image = Image.new("RGBA", (SIDE * OVERSAMPLING, SIDE * OVERSAMPLING), CLEAR)
        self.pen = ImageDraw.Draw(self.image)

    def polygon(self, points, colour):
        self.pen.polygon([(x * OVERSAMPLING, y * OVERSAMPLING) for x, y in points], fill=colour + (255,))

    def line(self, points, colour, width):
        scaled = [(x * OVERSAMPLING, y * OVERSAMPLING) for x, y in points]
        self.pen.line(scaled, fill=colour + (255,), width=round(width * OVERSAMPLING), joint="curve")
        for x, y in points:
            self.disc(x, y, width / 2, colour)

    def disc(self, x, y, radius, colour):
        box = [(value * OVERSAMPLING) for value in (x - radius, y - radius, x + radius, y + radius)]
        self.pen.ellipse(box, fill=colour + (255,))

    def box(self, left, top, right, bottom, radius, colour):
        self.pen.rounded_rectangle([value * OVERSAMPLING for value in (left, top, right, bottom)],
                                   radius * OVERSAMPLING, fill=colour + (255,))

    def save(self, name, hot_spot):
        """With a white rim, so that a dark pointer is seen on dark ink too."""
        rim = self.image.getchannel("A").filter(ImageFilter.MaxFilter(2 * OVERSAMPLING + 1))
        whole = Image.new("RGBA", self.image.size, CLEAR)
        whole.paste(SURFACE + (255,), mask=rim)
        whole.alpha_composite(self.image)
        draw_cursor(reduced(whole, (SIDE, SIDE)), hot_spot, ASSETS / name)


def shaft(pad, tip, end, width, colour):
    """A bar from near the tip to the end, square to its length."""
    (x1, y1), (x2, y2) = tip, end
    length = ((x2 - x1) ** 2 + (y2 - y1) ** 2) ** 0.5
    across, down = -(y2 - y1) / length * width / 2, (x2 - x1) / length * width / 2
    pad.polygon([(x1 + across, y1 + down), (x2 + across, y2 + down), (x2 - across, y2 - down),
                 (x1 - across, y1 - down)], colour)


def pencil():
    pad = Pad()
    pad.polygon([(2, 29), (4.6, 21.8), (9.2, 26.4)], TEXT)
    shaft(pad, (7.1, 23.9), (23, 8), 6.4, ACCENT)
    shaft(pad, (23, 8), (26, 5), 6.4, TEXT)
    pad.save("draw.cur", (2, 29))


def brush():
    pad = Pad()
    pad.polygon([(2, 29), (4, 21), (8, 19), (12, 23), (10, 27)], ACCENT)
    shaft(pad, (10, 21), (14, 17), 5, TEXT)
    pad.line([(15, 16), (27, 4)], TEXT, 3)
    pad.save("brush.cur", (2, 29))


def eraser():
    pad = Pad()
    pad.polygon([(3, 28), (3, 21), (18, 6), (27, 15), (14, 28)], TEXT)
    pad.polygon([(13, 13.5), (18, 8.5), (24.5, 15), (19.5, 20)], PALE)
    pad.save("eraser.cur", (3, 28))


def bucket():
    pad = Pad()
    pad.polygon([(6, 15), (17, 4), (27, 14), (16, 25)], TEXT)
    pad.polygon([(9, 15), (17, 7), (20.5, 10.5), (12.5, 18.5)], PALE)
    pad.polygon([(3, 29), (2, 24), (4, 19), (8, 14), (8, 20), (6, 26)], ACCENT)
    pad.save("fill.cur", (3, 29))


def pipette():
    pad = Pad()
    pad.line([(4, 28), (17, 15)], TEXT, 3.6)
    pad.line([(6, 26), (15, 17)], PALE, 1.6)
    shaft(pad, (14, 10), (22, 18), 4.4, TEXT)
    pad.line([(19.5, 12.5), (25, 7)], TEXT, 7)
    pad.polygon([(2, 30), (3, 26), (6, 29)], ACCENT)
    pad.save("pick.cur", (2, 30))


def cross():
    pad = Pad()
    for ends in ([(15.5, 4), (15.5, 12)], [(15.5, 19), (15.5, 27)], [(4, 15.5), (12, 15.5)], [(19, 15.5), (27, 15.5)]):
        pad.line(ends, TEXT, 1.4)
    pad.disc(15.5, 15.5, 0.9, TEXT)
    pad.save("cross.cur", (15, 15))


def text_bar():
    pad = Pad()
    pad.line([(15.5, 7), (15.5, 25)], TEXT, 1.8)
    for y, bend in ((5, 2), (27, -2)):
        pad.line([(11, y), (13.5, y), (15.5, y + bend)], TEXT, 1.8)
        pad.line([(20, y), (17.5, y), (15.5, y + bend)], TEXT, 1.8)
    pad.save("text.cur", (15, 16))


def spray_can():
    pad = Pad()
    pad.box(15, 11, 27, 30, 2.5, TEXT)
    pad.box(17.5, 16, 24.5, 24, 1, ACCENT)
    pad.box(18, 6, 24, 10, 1.5, TEXT)
    for x, y in ((12, 7), (8, 4), (8, 8), (8, 12), (4, 3), (4, 8), (4, 13)):
        pad.disc(x, y, 1.1, ACCENT)
    pad.save("airbrush.cur", (8, 8))


def wand():
    pad = Pad()
    pad.line([(11, 13), (26, 28)], TEXT, 3.4)
    for x, y, size in ((8, 10, 7), (20, 6, 3.5), (5, 21, 3.5)):
        waist = size * 0.26
        pad.polygon([(x, y - size), (x + waist, y - waist), (x + size, y), (x + waist, y + waist), (x, y + size),
                     (x - waist, y + waist), (x - size, y), (x - waist, y - waist)], ACCENT)
    pad.save("filter.cur", (8, 10))


def lens():
    pad = Pad()
    pad.line([(18, 18), (27, 27)], TEXT, 4)
    pad.disc(12, 12, 9.5, TEXT)
    pad.disc(12, 12, 6.8, PALE)
    pad.line([(8.5, 12), (15.5, 12)], ACCENT, 1.8)
    pad.line([(12, 8.5), (12, 15.5)], ACCENT, 1.8)
    pad.save("zoom.cur", (12, 12))


def hand(name, fingers):
    """Four fingers, each from its root to its top, a thumb and a palm: dark, then light within."""
    pad = Pad()
    for width, colour in ((5.2, TEXT), (2.8, SURFACE)):
        grow = (width - 2.8) / 2
        for x, top in fingers:
            pad.line([(x, 19), (x, top)], colour, width)
        pad.line([(11, 22), (5.5, 16.5)], colour, width)
        pad.box(9.6 - grow, 15 - grow, 24.4 + grow, 27 + grow, 4, colour)
    pad.save(name, (16, 16))


def draw_cursors():
    pencil()
    brush()
    eraser()
    bucket()
    pipette()
    cross()
    text_bar()
    spray_can()
    wand()
    lens()
    hand("handflat.cur", ((11, 8), (15, 5), (19, 6), (23, 9)))
    hand("handgrab.cur", ((11, 14), (15, 13), (19, 13), (23, 14)))


def sheet():
    image = Image.new("RGB", STAGE, SHEET)
    return image, ImageDraw.Draw(image)


def rule(draw, step, colour, width=1):
    """Lines outward from the middle, which is where an axis stands."""
    across, down = STAGE
    for x in range(across // 2 % step, across, step):
        draw.line([(x, 0), (x, down)], fill=colour, width=width)
    for y in range(down // 2 % step, down, step):
        draw.line([(0, y), (across, y)], fill=colour, width=width)


def draw_grid():
    image, draw = sheet()
    rule(draw, 15, FAINT)
    rule(draw, 75, STRONG)
    image.quantize(8, dither=Image.NONE).save(ASSETS / "grid.gif", optimize=False)


def draw_squares():
    image, draw = sheet()
    step = 30
    across, down = STAGE
    for row, y in enumerate(range(down // 2 % step - step, down, step)):
        for column, x in enumerate(range(across // 2 % step - step, across, step)):
            if (row + column) % 2:
                draw.rectangle((x, y, x + step - 1, y + step - 1), fill=(190, 186, 248))
    rule(draw, step, FAINT)
    image.save(ASSETS / "squares.jpg", quality=95, subsampling=0)


def draw_axes():
    image, draw = sheet()
    across, down = STAGE
    x, y = across // 2, down // 2
    rule(draw, 30, FAINT)
    draw.line([(12, y), (across - 13, y)], fill=AXIS, width=2)
    draw.line([(x, 12), (x, down - 13)], fill=AXIS, width=2)
    draw.polygon([(across - 6, y), (across - 18, y - 6), (across - 18, y + 6)], fill=AXIS)
    draw.polygon([(x, 5), (x - 6, 17), (x + 6, 17)], fill=AXIS)
    for distance in range(30, across // 2 - 20, 30):
        for side in (-distance, distance):
            draw.line([(x + side, y - 4), (x + side, y + 4)], fill=AXIS)
            if distance < down // 2 - 20:
                draw.line([(x - 4, y + side), (x + 4, y + side)], fill=AXIS)
    draw.text((across - 12, y + 20), "x", font=font(18), fill=AXIS, anchor="mm")
    draw.text((x + 18, 12), "y", font=font(18), fill=AXIS, anchor="mm")
    image.quantize(32, dither=Image.NONE).save(ASSETS / "xy.gif", optimize=False)


if __name__ == "__main__":
    draw_cursors()
    draw_grid()
    draw_squares()
    draw_axes()
