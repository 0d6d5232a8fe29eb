"""What a presenter does on the stage besides turning slides: media, modes, camera, pens, boards, pages, the screen."""
import time

from processes import wait_until
from window import BUTTON_ROLES

MEDIA = {"slides": "Slides", "text": "Write", "draw": "Draw", "web": "Web", "youtube": "YouTube"}
BAR_ROLES = (*BUTTON_ROLES, "toggle button", "check box")
CORNERS = ("top left", "top right", "bottom left", "bottom right")


class Stagehand:
    """The same person as the presenter, at the same recorder, with both hands on the stage."""

    def __init__(self, presenter):
        self.presenter = presenter
        self.window = presenter.window
        self.notes = presenter.notes

    def show_all_media(self):
        """The long form of toolbar and task pane."""
        self.window.press("More", roles=BUTTON_ROLES)
        wait_until(lambda: self.window.shows("Less"), 10, "the buttons of all media")

    def show(self, media):
        """Presses the button of a media, such as "draw", and waits until the status bar tells it."""
        if media != "slides":
            self._note_end_of_slides()
        self.window.press(MEDIA[media], roles=BUTTON_ROLES)
        wait_until(lambda: self.window.status("Media") == media, 20, f"the media {media} in the status bar")

    def media_alone(self):
        self._use_mode("Media alone", "full")

    def side_by_side(self):
        self._use_mode("Media and camera side by side", "side")

    def camera_in_corner(self, corner):
        self._use_mode(f"Camera in the {corner} corner", "mix")

    def camera_alone(self):
        self._use_mode("Camera alone", "fullcam")

    def switch_camera_on(self):
        if not self.window.shows("Switch the camera on"):
            self.window.press("Camera", roles=BAR_ROLES, below="Task pane")
        # A bar takes a moment to open, and what is in it moves meanwhile.
        self.presenter.wait(0.6)
        self.window.press("Switch the camera on")
        wait_until(lambda: self.window.shows("Camera settings"), 20, "the camera to be on")

    def take_pen(self, name):
        """A pen of the slides, such as "Red pen"."""
        self.window.press(name, roles=BUTTON_ROLES, below="Slide pens")

    def take_tool(self, name):
        """A tool of the drawing board, such as "Line"."""
        self.window.press(name, below="Drawing tools")

    def drag(self, *points):
        """Draws through points of the stage with the left button held."""
        left, top, _, _ = self.stage_area()
        self.window.drag([(left + x, top + y) for x, y in points])

    def write(self, words):
        """Types on the text board."""
        left, top, width, _ = self.stage_area()
        self.window.click_at(left + width // 4, top + 30)
        self.window.type(words)

    def go_to_page(self, address):
        self.window.press("Web address")
        self.window.keys("ctrl+a")
        self.window.type(address)
        self.window.keys("Return")

    def leave_for_the_screen(self, option):
        """The mode that leaves the stage; `option` is "Fullscreen" or "Around the mouse"."""
        pressed = time.monotonic()
        self.window.press("Screen", roles=BUTTON_ROLES)
        self.window.press(option)
        self.notes.segments[-1][1] = pressed, time.monotonic()
        pressed = time.monotonic()
        self.window.press("Start", roles=BUTTON_ROLES)
        wait_until(lambda: not self.window.shows("Start"), 10, "the screen recording to begin")
        self.notes.segments.append([(pressed, time.monotonic()), None])

    def return_to_the_stage(self):
        pressed = time.monotonic()
        self.window.keys("ctrl+r")
        wait_until(lambda: self.window.shows("Stage"), 20, "the stage to come back")
        # What was recorded stops and goes on with another region, somewhere between these two moments.
        self.notes.segments[-1][1] = pressed, time.monotonic()
        self.notes.segments.append([(pressed, time.monotonic()), None])

    def keep_scene(self, name, settle=0.8):
        """Keeps a picture of what stands on the stage, so that the video can be asked for it."""
        self.presenter.wait(settle)
        self.presenter.keep_scene(name, self.stage_area())

    def keep_screen_scene(self, name, area=None, settle=1.0):
        """The same of the whole display or an area of it."""
        self.presenter.wait(settle)
        self.presenter.keep_scene(name, area)

    def stage_area(self):
        """Left, top, width and height of the stage on the display."""
        return self.window.area(self.window.find("Stage"))

    def _use_mode(self, button, mode):
        self._note_end_of_slides()
        self.window.press(button, roles=BUTTON_ROLES)
        wait_until(lambda: self.window.status("Window mode") == mode, 20, f"the mode {mode} in the status bar")

    def _note_end_of_slides(self):
        if self.notes.slides_until is None:
            self.notes.slides_until = (time.monotonic(),) * 2


def tour(presenter, take_shot=lambda name: None):
    """Each media alone on the stage, then the slides in each mode with the camera; a picture kept of each."""
    hand = Stagehand(presenter)
    hand.show_all_media()
    for media in ("text", "draw", "web", "youtube", "slides"):
        hand.show(media)
        hand.keep_scene(media)
        take_shot(media)
    hand.side_by_side()
    hand.keep_scene("slides, side by side")
    take_shot("side")
    for corner in CORNERS:
        hand.camera_in_corner(corner)
        hand.keep_scene(f"camera {corner}")
    take_shot("mix")
    hand.camera_alone()
    hand.keep_scene("camera alone")
    take_shot("fullcam")
    hand.media_alone()
    hand.keep_scene("slides alone again")
