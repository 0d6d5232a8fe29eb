#!/usr/bin/python3
"""Writes the sample deck, a short lecture on sorting: tools/make_sample_deck.py [OUT.pptx]

The deck is written part by part as the Office Open XML that it is, so that it needs no office program to be made,
comes out the same byte for byte, and can be changed in a diff. Lengths are given in millimetres on a slide of
16:9, 338.67 by 190.5.
"""

import sys
import zipfile
from pathlib import Path
from xml.sax.saxutils import escape

EMU_PER_MM = 36000
SLIDE_WIDTH, SLIDE_HEIGHT = 12192000, 6858000

INK = "22303C"
PAPER = "FBFAF7"
BLUE = "1F4E79"
TEAL = "1E8A84"
ORANGE = "D9772B"
RED = "B8373D"
GREY = "8A949C"
PALE_BLUE = "DCE8F2"
PALE_TEAL = "D5EDEA"
PALE_ORANGE = "FBE6D3"
WHITE = "FFFFFF"

NAMESPACES = (
    'xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main" '
    'xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships" '
    'xmlns:p="http://schemas.openxmlformats.org/presentationml/2006/main"'
)
HEADER = '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
RELATION = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
OOXML = "application/vnd.openxmlformats-officedocument.presentationml"


def emu(millimetres):
    return round(millimetres * EMU_PER_MM)


def fill(colour):
    return f'<a:solidFill><a:srgbClr val="{colour}"/></a:solidFill>' if colour else "<a:noFill/>"


def run(text, size, colour=INK, bold=False, italic=False, font="Calibri", baseline=0):
    """A stretch of text of one look. Size is in points."""
    weight = ' b="1"' if bold else ""
    slant = ' i="1"' if italic else ""
    raised = f' baseline="{baseline}"' if baseline else ""
    return (
        f'<a:r><a:rPr lang="en-GB" sz="{round(size * 100)}"{weight}{slant}{raised} dirty="0">{fill(colour)}'
        f'<a:latin typeface="{font}"/><a:cs typeface="{font}"/></a:rPr><a:t>{escape(text)}</a:t></a:r>'
    )


def code(text, size=16, colour=INK, bold=False):
    return run(text, size, colour, bold, font="Liberation Mono")


def paragraph(*runs, align="l", bullet=None, after=0):
    """Bullet is the colour of the bullet, None for none; after is the room below in points."""
    if bullet:
        properties = (
            f'<a:pPr marL="342900" indent="-342900" algn="{align}"><a:spcAft><a:spcPts val="{after * 100}"/></a:spcAft>'
            f'<a:buClr><a:srgbClr val="{bullet}"/></a:buClr><a:buFont typeface="Arial"/><a:buChar char="•"/></a:pPr>'
        )
    else:
        properties = (
            f'<a:pPr marL="0" indent="0" algn="{align}"><a:spcAft><a:spcPts val="{after * 100}"/></a:spcAft>'
            "<a:buNone/></a:pPr>"
        )
    return f"<a:p>{properties}{''.join(runs)}</a:p>"


class Slide:
    """Collects shapes; the order in which they are added is their order from back to front."""

    def __init__(self, background=PAPER):
        self.background = background
        self.shapes = []

    def _next_id(self):
        return len(self.shapes) + 2

    def shape(self, x, y, width, height, paragraphs=(), geometry="rect", colour=None, line=None, line_mm=0.5, anchor="ctr",
              margin=2.0):
        number = self._next_id()
        outline = f'<a:ln w="{emu(line_mm)}">{fill(line)}</a:ln>' if line else "<a:ln><a:noFill/></a:ln>"
        body = "".join(paragraphs) or "<a:p/>"
        inset = emu(margin)
        self.shapes.append(
            f'<p:sp><p:nvSpPr><p:cNvPr id="{number}" name="Shape {number}"/><p:cNvSpPr/><p:nvPr/></p:nvSpPr>'
            f'<p:spPr><a:xfrm><a:off x="{emu(x)}" y="{emu(y)}"/><a:ext cx="{emu(width)}" cy="{emu(height)}"/></a:xfrm>'
            f'<a:prstGeom prst="{geometry}"><a:avLst/></a:prstGeom>{fill(colour)}{outline}</p:spPr>'
            f'<p:txBody><a:bodyPr wrap="square" lIns="{inset}" rIns="{inset}" tIns="{inset}" bIns="{inset}" '
            f'anchor="{anchor}"><a:noAutofit/></a:bodyPr><a:lstStyle/>{body}</p:txBody></p:sp>'
        )
        return self

    def text(self, x, y, width, height, *paragraphs, anchor="t"):
        return self.shape(x, y, width, height, paragraphs, anchor=anchor, margin=0)

    def line(self, x1, y1, x2, y2, colour=GREY, width_mm=0.6, arrow=False):
        number = self._next_id()
        flip = ' flipH="1"' if x2 < x1 else ""
        flip += ' flipV="1"' if y2 < y1 else ""
        head = '<a:tailEnd type="triangle" w="med" len="med"/>' if arrow else ""
        self.shapes.append(
            f'<p:cxnSp><p:nvCxnSpPr><p:cNvPr id="{number}" name="Line {number}"/><p:cNvCxnSpPr/><p:nvPr/></p:nvCxnSpPr>'
            f'<p:spPr><a:xfrm{flip}><a:off x="{emu(min(x1, x2))}" y="{emu(min(y1, y2))}"/>'
            f'<a:ext cx="{emu(abs(x2 - x1))}" cy="{emu(abs(y2 - y1))}"/></a:xfrm><a:prstGeom prst="line"><a:avLst/>'
            f'</a:prstGeom><a:ln w="{emu(width_mm)}">{fill(colour)}{head}</a:ln></p:spPr></p:cxnSp>'
        )
        return self

    def cells(self, x, y, values, size=15.0, colours=None):
        """A row of numbered boxes, the picture of an array."""
        for i, value in enumerate(values):
            back, front = (colours or {}).get(i, (PALE_BLUE, INK))
            label = [paragraph(run(str(value), 20, front, bold=True), align="ctr")]
            self.shape(x + i * (size + 1.5), y, size, size, label, "roundRect", back, margin=0)
        return self

    def table(self, x, y, widths, row_height, rows, size=17):
        number = self._next_id()
        grid = "".join(f'<a:gridCol w="{emu(width)}"/>' for width in widths)
        body = ""
        for index, row in enumerate(rows):
            head = index == 0
            back = BLUE if head else (WHITE if index % 2 else "EEF2F5")
            cells = "".join(
                f'<a:tc><a:txBody><a:bodyPr/><a:lstStyle/>'
                f'{paragraph(run(cell, size, WHITE if head else INK, bold=head or column == 0), align="l" if column == 0 else "ctr")}'
                f'</a:txBody><a:tcPr anchor="ctr" marL="{emu(4)}">{fill(back)}</a:tcPr></a:tc>'
                for column, cell in enumerate(row)
            )
            body += f'<a:tr h="{emu(row_height)}">{cells}</a:tr>'
        self.shapes.append(
            f'<p:graphicFrame><p:nvGraphicFramePr><p:cNvPr id="{number}" name="Table {number}"/>'
            f'<p:cNvGraphicFramePr/><p:nvPr/></p:nvGraphicFramePr><p:xfrm><a:off x="{emu(x)}" y="{emu(y)}"/>'
            f'<a:ext cx="{emu(sum(widths))}" cy="{emu(row_height * len(rows))}"/></p:xfrm><a:graphic>'
            f'<a:graphicData uri="http://schemas.openxmlformats.org/drawingml/2006/table"><a:tbl>'
            f'<a:tblPr firstRow="1"/><a:tblGrid>{grid}</a:tblGrid>{body}</a:tbl></a:graphicData></a:graphic>'
            f'</p:graphicFrame>'
        )
        return self

    def xml(self):
        return (
            f'{HEADER}<p:sld {NAMESPACES}><p:cSld><p:bg><p:bgPr>{fill(self.background)}<a:effectLst/></p:bgPr></p:bg>'
            f'{tree("".join(self.shapes))}</p:cSld><p:clrMapOvr><a:masterClrMapping/></p:clrMapOvr></p:sld>'
        )


def tree(shapes=""):
    return (
        '<p:spTree><p:nvGrpSpPr><p:cNvPr id="1" name=""/><p:cNvGrpSpPr/><p:nvPr/></p:nvGrpSpPr><p:grpSpPr><a:xfrm>'
        '<a:off x="0" y="0"/><a:ext cx="0" cy="0"/><a:chOff x="0" y="0"/><a:chExt cx="0" cy="0"/></a:xfrm></p:grpSpPr>'
        f"{shapes}</p:spTree>"
    )


def titled(title, accent, number):
    """The look that all slides but the first and the last share."""
    slide = Slide()
    slide.shape(0, 0, 6, 190.5, colour=accent)
    slide.text(22, 13, 290, 20, paragraph(run(title, 36, INK, bold=True)), anchor="ctr")
    slide.line(22, 36, 318, 36, accent, 0.8)
    slide.text(22, 177, 200, 8, paragraph(run("Sorting, from first principles", 12, GREY)), anchor="ctr")
    slide.text(278, 177, 40, 8, paragraph(run(str(number), 12, GREY), align="r"), anchor="ctr")
    return slide


def title_slide():
    slide = Slide(BLUE)
    for i, height in enumerate((18, 44, 27, 71, 35, 58, 88, 12, 64, 50, 80, 97)):
        slide.shape(186 + i * 12, 176 - height, 9, height, colour=ORANGE if i == 6 else "3D6F9E")
    slide.text(26, 42, 250, 26, paragraph(run("Sorting", 66, WHITE, bold=True)), anchor="ctr")
    slide.text(26, 72, 250, 16, paragraph(run("Three ways to put things in order,", 28, PALE_BLUE)), anchor="ctr")
    slide.text(26, 86, 250, 16, paragraph(run("and why none can beat ", 28, PALE_BLUE),
                                          run("n log n", 28, ORANGE, bold=True, italic=True)), anchor="ctr")
    slide.text(26, 160, 150, 12, paragraph(run("Lecture 4 · Algorithms", 18, PALE_BLUE)), anchor="ctr")
    return slide


def problem_slide():
    slide = titled("What is asked", TEAL, 2)
    slide.text(22, 46, 150, 110,
               paragraph(run("Given ", 24), run("n", 24, TEAL, True, True), run(" things that can be compared,", 24), bullet=TEAL, after=10),
               paragraph(run("arrange them so that each is ", 24), run("no greater", 24, TEAL, True), run(" than the next.", 24), bullet=TEAL, after=10),
               paragraph(run("We count ", 24), run("comparisons", 24, RED, True), run(": they are what every method pays for.", 24), bullet=TEAL, after=10),
               paragraph(run("A sort is ", 24), run("stable", 24, TEAL, True), run(" when equal things keep their order.", 24), bullet=TEAL))
    slide.text(196, 52, 120, 10, paragraph(run("before", 18, GREY, italic=True)), anchor="ctr")
    slide.cells(196, 64, (7, 2, 9, 4, 1, 5))
    slide.line(243, 84, 243, 108, TEAL, 1.2, arrow=True)
    slide.text(196, 110, 120, 10, paragraph(run("after", 18, GREY, italic=True)), anchor="ctr")
    slide.cells(196, 122, (1, 2, 4, 5, 7, 9), colours={i: (PALE_TEAL, TEAL) for i in range(6)})
    return slide


def insertion_slide():
    slide = titled("Insertion sort", ORANGE, 3)
    steps = ((7, 2, 9, 4, 1), (2, 7, 9, 4, 1), (2, 7, 9, 4, 1), (2, 4, 7, 9, 1), (1, 2, 4, 7, 9))
    for row, values in enumerate(steps):
        sorted_part = {i: (PALE_ORANGE, INK) for i in range(row + 1)}
        if row + 1 < len(values):
            sorted_part[row + 1] = (ORANGE, WHITE)
        slide.cells(26, 48 + row * 22, values, 17, sorted_part)
        slide.text(124, 48 + row * 22, 50, 17, paragraph(run(f"after step {row}" if row else "at the start", 16, GREY)), anchor="ctr")
    slide.shape(184, 48, 134, 62, [
        paragraph(code("for "), code("i", colour=ORANGE, bold=True), code(" in 1 .. n-1:")),
        paragraph(code("    x = a["), code("i", colour=ORANGE, bold=True), code("]")),
        paragraph(code("    while x < the one before:")),
        paragraph(code("        move that one right")),
        paragraph(code("    put x into the gap"))], colour=WHITE, line=ORANGE, margin=5)
    slide.text(184, 118, 134, 40,
               paragraph(run("The orange card is taken up next, as one sorts a hand of cards.", 20), after=6),
               paragraph(run("Few cards out of place: almost no work.", 20, ORANGE, True)))
    return slide


def cost_slide():
    slide = titled("What insertion sort costs", ORANGE, 4)
    slide.text(22, 46, 296, 12, paragraph(run("In the worst case card ", 24), run("i", 24, ORANGE, True, True),
                                          run(" passes all the cards before it:", 24)), anchor="ctr")
    slide.shape(60, 66, 220, 32, [paragraph(
        run("1 + 2 + 3 + … + (n − 1)  =  ", 32, INK, italic=True, font="Cambria"),
        run("n (n − 1) / 2", 32, RED, True, True, font="Cambria"), align="ctr")], "roundRect", PALE_ORANGE)
    for i in range(12):
        for k in range(i + 1):
            slide.shape(30 + i * 6.2, 164 - k * 5, 5.6, 4.4, colour=ORANGE if i == 11 else "F0B27F")
    slide.text(120, 118, 190, 46,
               paragraph(run("The squares make half of a square of side ", 22), run("n", 22, ORANGE, True, True), run(".", 22), after=8),
               paragraph(run("Twice the cards: ", 22), run("four times", 22, RED, True), run(" the work.", 22)))
    return slide


def merge_slide():
    slide = titled("Merge sort", BLUE, 5)
    levels = (((7, 2, 9, 4),), ((7, 2), (9, 4)), ((2, 7), (4, 9)), ((2, 4, 7, 9),))
    x_of = {1: (61,), 2: (36, 117)}
    for row, groups in enumerate(levels):
        for group, x in zip(groups, x_of[len(groups)]):
            colours = {i: (PALE_TEAL, TEAL) for i in range(len(group))} if row >= 2 else None
            slide.cells(x, 50 + row * 31, group, 16, colours)
    slide.line(88, 67, 56, 80, GREY, 0.7, arrow=True)
    slide.line(104, 67, 136, 80, GREY, 0.7, arrow=True)
    slide.line(56, 129, 88, 142, GREY, 0.7, arrow=True)
    slide.line(136, 129, 104, 142, GREY, 0.7, arrow=True)
    slide.line(54, 98, 54, 111, GREY, 0.7, arrow=True)
    slide.line(136, 98, 136, 111, GREY, 0.7, arrow=True)
    slide.text(196, 50, 122, 110,
               paragraph(run("Split", 26, BLUE, True), run(" in the middle.", 26), bullet=BLUE, after=12),
               paragraph(run("Sort", 26, BLUE, True), run(" each half the same way.", 26), bullet=BLUE, after=12),
               paragraph(run("Merge", 26, TEAL, True), run(": take the smaller of the two first cards, again and again.", 26), bullet=TEAL, after=12),
               paragraph(run("One comparison a card, and stable.", 26, TEAL, True), bullet=TEAL))
    return slide


def recurrence_slide():
    slide = titled("Why merge sort is fast", BLUE, 6)
    slide.shape(60, 46, 220, 26, [paragraph(
        run("T(n)  =  2 · T(n / 2)  +  n", 34, BLUE, True, True, font="Cambria"), align="ctr")], "roundRect", PALE_BLUE)
    for row in range(4):
        count = 2 ** row
        width = 196 / count
        for i in range(count):
            label = [paragraph(run("n" if row == 0 else f"n/{count}", 18, BLUE, True, True, font="Cambria"), align="ctr")]
            slide.shape(24 + i * width, 84 + row * 19, width - 2, 14, label, "roundRect", WHITE, BLUE, 0.5, margin=0)
        slide.text(228, 84 + row * 19, 40, 14, paragraph(run("= n", 22, GREY, italic=True, font="Cambria")), anchor="ctr")
    slide.line(258, 84, 258, 155, ORANGE, 1.2)
    slide.text(264, 100, 56, 40, paragraph(run("log", 26, ORANGE, True, True), run("2", 26, ORANGE, True, baseline=-25000),
                                           run(" n", 26, ORANGE, True, True)),
               paragraph(run("rows of work", 20, ORANGE)), anchor="ctr")
    slide.text(22, 160, 296, 14, paragraph(run("All rows together: ", 26), run("n log n", 26, RED, True, True), run(" comparisons.", 26)), anchor="ctr")
    return slide


def quick_slide():
    slide = titled("Quicksort", RED, 7)
    slide.cells(60, 48, (5, 8, 1, 9, 3, 7, 2), 22, {0: (RED, WHITE)})
    slide.text(240, 48, 80, 22, paragraph(run("choose a ", 22), run("pivot", 22, RED, True)), anchor="ctr")
    slide.line(104, 74, 76, 92, GREY, 0.8, arrow=True)
    slide.line(142, 74, 142, 92, GREY, 0.8, arrow=True)
    slide.line(180, 74, 208, 92, GREY, 0.8, arrow=True)
    slide.cells(42, 95, (1, 3, 2), 22, {i: (PALE_TEAL, TEAL) for i in range(3)})
    slide.cells(131, 95, (5,), 22, {0: (RED, WHITE)})
    slide.cells(176, 95, (8, 9, 7), 22, {i: (PALE_ORANGE, ORANGE) for i in range(3)})
    slide.text(42, 119, 80, 10, paragraph(run("smaller", 18, TEAL, italic=True)), anchor="ctr")
    slide.text(176, 119, 80, 10, paragraph(run("greater", 18, ORANGE, italic=True)), anchor="ctr")
    slide.text(22, 136, 296, 36,
               paragraph(run("Sort both sides the same way; there is nothing to merge.", 22), bullet=RED, after=4),
               paragraph(run("On average ", 22), run("1.39 n log", 22, RED, True, True), run("2", 22, RED, True, baseline=-25000),
                         run(" n", 22, RED, True, True), run("; a bad pivot every time costs ", 22),
                         run("n", 22, RED, True, True), run("2", 22, RED, True, baseline=30000), run(" / 2.", 22, RED, True), bullet=RED))
    return slide


def bound_slide():
    slide = titled("No comparison sort can do better", TEAL, 8)

    def question(x, y, text):
        slide.shape(x - 22, y, 44, 15, [paragraph(run(text, 18, WHITE, True, font="Cambria"), align="ctr")], "roundRect", TEAL, margin=0)

    def answer(x, y, text):
        slide.shape(x - 16, y, 32, 13, [paragraph(run(text, 16, TEAL, True, font="Cambria"), align="ctr")], "roundRect", PALE_TEAL, margin=0)

    for x1, y1, x2, y2 in ((112, 61, 62, 78), (112, 61, 162, 78), (62, 93, 38, 112), (62, 93, 86, 112),
                           (162, 93, 138, 112), (162, 93, 186, 112), (86, 127, 70, 144), (86, 127, 106, 144),
                           (186, 127, 170, 144), (186, 127, 206, 144)):
        slide.line(x1, y1, x2, y2, GREY, 0.6)
    question(112, 46, "a < b ?")
    question(62, 78, "b < c ?")
    question(162, 78, "a < c ?")
    question(86, 112, "a < c ?")
    question(186, 112, "b < c ?")
    answer(38, 112, "a b c")
    answer(138, 112, "b a c")
    answer(70, 144, "a c b")
    answer(106, 144, "c a b")
    answer(170, 144, "b c a")
    answer(206, 144, "c b a")
    slide.text(232, 46, 88, 120,
               paragraph(run("A sort is a tree of questions with a leaf for each of the ", 21), run("n!", 21, TEAL, True, True),
                         run(" orders.", 21), after=12),
               paragraph(run("A tree with that many leaves is at least ", 21), run("log", 21, RED, True, True),
                         run("2", 21, RED, True, baseline=-25000), run(" n!", 21, RED, True, True), run(" deep,", 21), after=12),
               paragraph(run("and that is about ", 21), run("n log", 21, RED, True, True), run("2", 21, RED, True, baseline=-25000),
                         run(" n.", 21, RED, True, True)))
    return slide


def table_slide():
    slide = titled("Side by side", BLUE, 9)
    slide.table(30, 48, (72, 52, 52, 52, 50), 19, (
        ("", "best", "average", "worst", "stable"),
        ("Insertion sort", "n", "n² / 4", "n² / 2", "yes"),
        ("Merge sort", "½ n log n", "n log n", "n log n", "yes"),
        ("Quicksort", "n log n", "1.39 n log n", "n² / 2", "no"),
        ("Lower bound", "n − 1", "n log n", "n log n", "")), 20)
    slide.text(30, 152, 280, 18, paragraph(run("Small or nearly sorted: ", 22), run("insertion", 22, ORANGE, True),
                                           run(".   Must be stable: ", 22), run("merge", 22, BLUE, True),
                                           run(".   In memory, in place: ", 22), run("quick", 22, RED, True), run(".", 22)), anchor="ctr")
    return slide


def end_slide():
    slide = Slide(TEAL)
    for i in range(12):
        slide.shape(186 + i * 12, 176 - 8 * (i + 1), 9, 8 * (i + 1), colour=ORANGE if i == 11 else "4BA6A1")
    slide.text(26, 40, 250, 22, paragraph(run("To try at home", 48, WHITE, bold=True)), anchor="ctr")
    slide.text(26, 72, 176, 90,
               paragraph(run("Sort a pack of cards by each method. Count.", 24, WHITE), bullet=WHITE, after=10),
               paragraph(run("Find an order that is worst for quicksort.", 24, WHITE), bullet=WHITE, after=10),
               paragraph(run("Sort five numbers with seven comparisons.", 24, WHITE), bullet=WHITE))
    return slide


SLIDES = (title_slide, problem_slide, insertion_slide, cost_slide, merge_slide, recurrence_slide, quick_slide, bound_slide,
          table_slide, end_slide)


def relations(*targets):
    items = "".join(f'<Relationship Id="rId{i}" Type="{RELATION}/{kind}" Target="{target}"/>'
                    for i, (kind, target) in enumerate(targets, 1))
    return f'{HEADER}<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">{items}</Relationships>'


def theme():
    colours = "".join(f'<a:{name}><a:srgbClr val="{value}"/></a:{name}>' for name, value in (
        ("dk1", INK), ("lt1", WHITE), ("dk2", BLUE), ("lt2", PAPER), ("accent1", BLUE), ("accent2", TEAL), ("accent3", ORANGE),
        ("accent4", RED), ("accent5", GREY), ("accent6", PALE_BLUE), ("hlink", BLUE), ("folHlink", GREY)))
    face = '<a:latin typeface="Calibri"/><a:ea typeface=""/><a:cs typeface=""/>'
    plain = '<a:solidFill><a:schemeClr val="phClr"/></a:solidFill>'
    return (
        f'{HEADER}<a:theme {NAMESPACES} name="Plain"><a:themeElements><a:clrScheme name="Plain">{colours}</a:clrScheme>'
        f'<a:fontScheme name="Plain"><a:majorFont>{face}</a:majorFont><a:minorFont>{face}</a:minorFont></a:fontScheme>'
        f'<a:fmtScheme name="Plain"><a:fillStyleLst>{plain * 3}</a:fillStyleLst><a:lnStyleLst>'
        f'{f"<a:ln>{plain}</a:ln>" * 3}</a:lnStyleLst><a:effectStyleLst>'
        f'{"<a:effectStyle><a:effectLst/></a:effectStyle>" * 3}</a:effectStyleLst><a:bgFillStyleLst>{plain * 3}</a:bgFillStyleLst>'
        f'</a:fmtScheme></a:themeElements></a:theme>'
    )


def parts():
    """Every part of the package, by name."""
    slides = [make().xml() for make in SLIDES]
    numbers = range(1, len(slides) + 1)
    overrides = [("presentation.xml", "presentation.main"), ("slideMasters/slideMaster1.xml", "slideMaster"),
                 ("slideLayouts/slideLayout1.xml", "slideLayout")]
    overrides += [(f"slides/slide{n}.xml", "slide") for n in numbers]
    types = "".join(f'<Override PartName="/ppt/{name}" ContentType="{OOXML}.{kind}+xml"/>' for name, kind in overrides)
    yield "[Content_Types].xml", (
        f'{HEADER}<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">'
        '<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
        '<Default Extension="xml" ContentType="application/xml"/>'
        f'{types}<Override PartName="/ppt/theme/theme1.xml" ContentType="application/vnd.openxmlformats-officedocument.theme+xml"/>'
        "</Types>")
    yield "_rels/.rels", relations(("officeDocument", "ppt/presentation.xml"))
    listed = "".join(f'<p:sldId id="{255 + n}" r:id="rId{n + 2}"/>' for n in numbers)
    yield "ppt/presentation.xml", (
        f'{HEADER}<p:presentation {NAMESPACES}><p:sldMasterIdLst><p:sldMasterId id="2147483648" r:id="rId1"/></p:sldMasterIdLst>'
        f'<p:sldIdLst>{listed}</p:sldIdLst><p:sldSz cx="{SLIDE_WIDTH}" cy="{SLIDE_HEIGHT}"/>'
        f'<p:notesSz cx="{SLIDE_HEIGHT}" cy="{SLIDE_WIDTH}"/></p:presentation>')
    yield "ppt/_rels/presentation.xml.rels", relations(
        ("slideMaster", "slideMasters/slideMaster1.xml"), ("theme", "theme/theme1.xml"),
        *(("slide", f"slides/slide{n}.xml") for n in numbers))
    yield "ppt/theme/theme1.xml", theme()
    yield "ppt/slideMasters/slideMaster1.xml", (
        f'{HEADER}<p:sldMaster {NAMESPACES}><p:cSld><p:bg><p:bgPr>{fill(PAPER)}<a:effectLst/></p:bgPr></p:bg>{tree()}</p:cSld>'
        '<p:clrMap bg1="lt1" tx1="dk1" bg2="lt2" tx2="dk2" accent1="accent1" accent2="accent2" accent3="accent3" '
        'accent4="accent4" accent5="accent5" accent6="accent6" hlink="hlink" folHlink="folHlink"/>'
        '<p:sldLayoutIdLst><p:sldLayoutId id="2147483649" r:id="rId1"/></p:sldLayoutIdLst></p:sldMaster>')
    yield "ppt/slideMasters/_rels/slideMaster1.xml.rels", relations(
        ("slideLayout", "../slideLayouts/slideLayout1.xml"), ("theme", "../theme/theme1.xml"))
    yield "ppt/slideLayouts/slideLayout1.xml", (
        f'{HEADER}<p:sldLayout {NAMESPACES} type="blank"><p:cSld name="Blank">{tree()}</p:cSld>'
        '<p:clrMapOvr><a:masterClrMapping/></p:clrMapOvr></p:sldLayout>')
    yield "ppt/slideLayouts/_rels/slideLayout1.xml.rels", relations(("slideMaster", "../slideMasters/slideMaster1.xml"))
    for n, slide in zip(numbers, slides):
        yield f"ppt/slides/slide{n}.xml", slide
        yield f"ppt/slides/_rels/slide{n}.xml.rels", relations(("slideLayout", "../slideLayouts/slideLayout1.xml"))


def main():
    default = Path(__file__).resolve().parent.parent / "assets" / "sample_lecture.pptx"
    out = Path(sys.argv[1]) if len(sys.argv) > 1 else default
    with zipfile.ZipFile(out, "w", zipfile.ZIP_DEFLATED) as package:
        for name, text in parts():
            # A fixed date: the same script gives the same bytes.
            entry = zipfile.ZipInfo(name, (2020, 1, 1, 0, 0, 0))
            entry.compress_type = zipfile.ZIP_DEFLATED
            package.writestr(entry, text)


if __name__ == "__main__":
    main()
