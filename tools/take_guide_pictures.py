#!/usr/bin/python3
"""take_guide_pictures.py FOLDER [--program PROGRAM]: pictures of the real window, for the quick guide.

Drives an installed recorder on a private desktop, with the sample deck and a page of its own in the place of the
service's, and keeps a picture of each state that the guide shows. Nothing is recorded but ten seconds.
"""
import argparse
import http.server
import pathlib
import sys
import threading

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tools" / "lecture"))
from desktop import Desktop  # noqa: E402
from presenter import Presenter  # noqa: E402
from processes import run_to_end  # noqa: E402

SERVICE_PORT = 8480
# The stage's corner in the window.
STAGE = (264, 43)
PAGE = """<!doctype html><title>Leaves</title>
<body style="font:17px/1.5 'Liberation Sans';color:#1e2936;margin:28px 40px;background:#fff">
<h1 style="color:#2b7a3d;margin:0 0 .3em">Why leaves are green</h1>
<p>Leaves hold chlorophyll, which takes in red and blue light and sends back the green.
<svg width=640 height=200 style="display:block;margin-top:14px">
<rect width=640 height=200 rx=8 fill="#eef6ee"/><path d="M90 150C90 60 200 30 300 30c0 90-70 150-170 140z" fill="#4c9a5b"/>
<path d="M70 180C130 130 190 90 270 50" stroke="#2b7a3d" stroke-width=5 fill=none />
<text x=350 y=80 font-size=22 fill="#1e2936">in: red and blue</text><text x=350 y=125 font-size=22 fill="#2b7a3d">out: green</text>
</svg>"""


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("--program", type=pathlib.Path, default=ROOT / "build" / "install" / "bin" / "quillora")
    arguments = parser.parse_args()
    arguments.folder.mkdir(parents=True, exist_ok=True)
    serve()
    with Desktop() as desktop:
        # These pages are ours, and the administrator may take these pictures too.
        desktop.environment["QTWEBENGINE_DISABLE_SANDBOX"] = "1"
        take_pictures(desktop, arguments)
    return 0


def draw_curve(desktop, left, top):
    """A parabola and its axes by the pencil, with the real pointer."""
    left, top = left + STAGE[0], top + STAGE[1]
    axes = [[(120, 340), (620, 340)], [(370, 40), (370, 390)]]
    curve = [(x, 340 - (x - 370) ** 2 // 110) for x in range(200, 541, 10)]
    for line in (*axes, curve):
        steps = ["mousemove", left + line[0][0], top + line[0][1], "mousedown", 1]
        for x, y in line:
            steps += ["mousemove", left + x, top + y, "sleep", 0.03]
        run_to_end(["xdotool", *map(str, [*steps, "mouseup", 1])], seconds=30, env=desktop.environment)


def serve():
    """The service's pages, until the end of this program."""
    class Pages(http.server.BaseHTTPRequestHandler):
        def do_GET(self):
            self.send_response(200)
            self.send_header("Content-Type", "text/html; charset=utf-8")
            self.end_headers()
            self.wfile.write(PAGE.encode())

        def log_message(self, *_):
            pass

    server = http.server.ThreadingHTTPServer(("127.0.0.1", SERVICE_PORT), Pages)
    threading.Thread(target=server.serve_forever, daemon=True).start()


def take_pictures(desktop, arguments):
    presenter = Presenter(desktop, arguments.program.resolve())
    window = presenter.window

    def take(name):
        desktop.picture(arguments.folder / f"{name}.png", window.area())

    presenter.wait(1)
    presenter.open_deck(ROOT / "assets" / "sample_lecture.pptx")
    presenter.move("next")
    presenter.wait(1)
    take("deck")
    for medium in ("Draw", "Web"):
        if medium == "Draw":
            window.press("More")
            presenter.wait(1)
        window.press(medium)
        presenter.wait(5 if medium == "Web" else 1)
        if medium == "Draw":
            window.press("Grid")
            presenter.wait(1)
            draw_curve(desktop, *window.area()[:2])
        take(medium.lower())
    window.press("Slides")
    presenter.record()
    presenter.wait(4)
    take("recording")
    presenter.kill()


if __name__ == "__main__":
    sys.exit(main())
