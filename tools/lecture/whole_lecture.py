"""A lecture of three minutes that uses everything the recorder has."""
import contextlib
import http.server
import threading

from PIL import Image, ImageDraw

from processes import wait_until
from stagehand import CORNERS, Stagehand
from window import BUTTON_ROLES

# Seconds that the recording has at the least.
LENGTH = 180

PAGE = b"""<!doctype html><title>A page</title>
<body style="margin:0;background:linear-gradient(#204a87,#8ae234);font:48px sans-serif;color:white">
<p style="padding:60px">A page of the web, in the lecture.</p>"""


def hold_whole_lecture(presenter, page):
    """From Record to Stop; gives the save dialog. `page` is an address of a web page."""
    hand = Stagehand(presenter)
    hand.show_all_media()
    # The long pane begins with its bars closed; this one has the moves and the pens.
    hand.show("slides")
    presenter.record()
    _turn_slides_and_draw_on_them(presenter, hand)
    _show_the_camera(presenter, hand)
    _use_the_boards(hand)
    hand.show("slides")
    presenter.pause()
    presenter.wait(3)
    presenter.move("next")
    presenter.resume()
    _show_pages(hand, page)
    _every_media_in_every_mode(hand)
    presenter.pause()
    presenter.wait(2)
    presenter.resume()
    _record_the_screen(presenter, hand)
    hand.show("slides")
    presenter.wait(LENGTH - presenter.notes.recorded()[0])
    presenter.move("last")
    hand.keep_scene("the last slide")
    presenter.move("first")
    hand.keep_scene("the first slide")
    return presenter.stop()


def _turn_slides_and_draw_on_them(presenter, hand):
    presenter.wait(4)
    hand.keep_scene("slide 1")
    presenter.move("next")
    presenter.wait(3)
    hand.take_pen("Red pen")
    hand.drag((120, 300), (300, 340), (520, 290), (640, 350))
    hand.keep_scene("slide 2 with red ink")
    hand.take_pen("Arrow")
    presenter.move("next")
    presenter.wait(3)
    hand.keep_scene("slide 3")


def _show_the_camera(presenter, hand):
    hand.side_by_side()
    hand.keep_scene("side by side, the camera off")
    hand.switch_camera_on()
    hand.keep_scene("side by side with the camera")
    for corner in CORNERS:
        hand.camera_in_corner(corner)
        hand.keep_scene(f"the camera {corner}")
    hand.camera_alone()
    hand.keep_scene("the camera alone")
    hand.media_alone()
    presenter.move("pre")
    hand.keep_scene("slide 2 without ink")


def _use_the_boards(hand):
    hand.show("draw")
    hand.keep_scene("an empty drawing board")
    hand.drag((60, 60), (200, 300), (340, 80), (480, 320), (620, 90))
    hand.keep_scene("a freehand stroke")
    hand.take_tool("Ellipse")
    hand.drag((300, 120), (520, 330))
    hand.take_tool("Arrow")
    hand.drag((100, 350), (420, 200))
    hand.keep_scene("an ellipse and an arrow")
    hand.show("text")
    hand.write("What we have seen so far: ")
    hand.keep_scene("words")
    hand.write("sound takes many paths, and each of them counts.")
    hand.keep_scene("more words")


def _show_pages(hand, page):
    hand.show("web")
    hand.go_to_page(page)
    hand.keep_scene("a web page", settle=4)
    hand.show("youtube")
    hand.keep_scene("an online video", settle=4)


def _every_media_in_every_mode(hand):
    for media in ("slides", "text", "draw", "web", "youtube"):
        hand.show(media)
        for mode, use in (("alone", hand.media_alone), ("beside the camera", hand.side_by_side),
                          ("under the camera", lambda: hand.camera_in_corner("bottom right"))):
            use()
            hand.keep_scene(f"{media} {mode}", settle=0.6)
        hand.camera_alone()
        hand.keep_scene(f"{media} behind the camera", settle=0.6)
    hand.media_alone()


def _record_the_screen(presenter, hand):
    with another_program(presenter.desktop):
        hand.leave_for_the_screen("Fullscreen")
        presenter.wait(2)
        hand.keep_screen_scene("the whole screen")
        hand.return_to_the_stage()
        hand.keep_scene("the stage again", settle=1.5)
        hand.leave_for_the_screen("Around the mouse")
        hand.window.point_at(600, 400)
        hand.keep_screen_scene("around the mouse", area=(600 - 373, 400 - 210, 746, 420))
        hand.return_to_the_stage()
        hand.keep_scene("the stage once more", settle=1.5)


@contextlib.contextmanager
def another_program(desktop):
    """A picture that lies behind all windows, as another program on the screen."""
    picture = desktop.folder / "another program.png"
    image = Image.new("RGB", (1280, 800), (40, 60, 90))
    draw = ImageDraw.Draw(image)
    for number in range(24):
        x, y = 40 + (number % 6) * 205, 40 + (number // 6) * 190
        draw.ellipse((x, y, x + 150, y + 150), fill=(200 - 6 * number, 60 + 7 * number, 90 + 5 * (number % 9)))
    image.save(picture)
    shown = desktop.start(["ffplay", "-v", "error", "-an", "-noborder", "-left", "0", "-top", "0", "-loop", "0",
                           "-window_title", "another program", str(picture)], "another program")
    try:
        yield
    finally:
        desktop.end(shown)


@contextlib.contextmanager
def page_server():
    """Serves one page to this machine; gives its address."""
    class Handler(http.server.BaseHTTPRequestHandler):
        def do_GET(self):  # noqa: N802  the library's name
            self.send_response(200)
            self.send_header("Content-Type", "text/html; charset=utf-8")
            self.end_headers()
            self.wfile.write(PAGE)

        def log_message(self, *_):
            pass

    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    try:
        yield f"http://127.0.0.1:{server.server_address[1]}/"
    finally:
        server.shutdown()
        server.server_close()


def review(presenter):
    """Opens the review of what was just saved, sees it play, and closes it. Gives the picture of the player."""
    window = presenter.window
    window.press("Review", roles=BUTTON_ROLES)
    wait_until(lambda: window.shows("Player"), 30, "the review")
    places = set()

    def plays():
        places.add(window.value_of("Position"))
        return len(places) > 4
    wait_until(plays, 30, "the player to play")
    picture = presenter.desktop.folder / "review.png"
    presenter.desktop.picture(picture, window.area(window.find("Video")))
    window.press("Close", roles=BUTTON_ROLES)
    wait_until(lambda: not window.shows("Player"), 20, "the review to close")
    return picture
