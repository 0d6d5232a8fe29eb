"""A deck written part by part as the Office Open XML that it is. Lengths are given in millimetres on a slide of 16:9,
338.67 by 190.5."""

import zipfile
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


def parts(slides):
    """Every part of the package, by name; `slides` are their texts."""
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


def write(path, slides):
    """Writes the package of these slides."""
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as package:
        for name, text in parts([slide.xml() for slide in slides]):
            # A fixed date: the same script gives the same bytes.
            entry = zipfile.ZipInfo(name, (2020, 1, 1, 0, 0, 0))
            entry.compress_type = zipfile.ZIP_DEFLATED
            package.writestr(entry, text)
