"""What a presenter does with the recorder, one method an act, and the notes that are kept of it."""
import time

from processes import Failure, wait_until
from window import BUTTON_ROLES, Window

NOT_SAVED_BOX = "Video presentation is not saved: You must save your video presentation before exit!"
NO_DECK_BOX = "Please click Open button to load your slides before recording!"
SAVED_BOX = "Congratulations! Your video presentation has been saved successfully!"
LEVEL_BOX = "Microphone level is low!"
OPEN_TITLE = "Open PowerPoint File"
SAVE_TITLE = "Save Video Presentation As"

FILTER_VIDEO = "Windows Media Video"

MOVES = {"first": "First slide", "pre": "Previous slide", "next": "Next slide", "last": "Last slide"}


class Notes:
    """What was done when, in seconds of the recording's own time, for the judge to compare with."""

    def __init__(self):
        self.moves = []       # (time of the recording, number of the slide then shown)
        self.segments = []    # [begin, end] of each stretch that was recorded, on the monotonic clock
        self.slides = 0

    def recorded(self):
        """Seconds recorded so far."""
        now = time.monotonic()
        return sum((end or now) - begin for begin, end in self.segments)


class Presenter:
    """One person at one recorder."""

    def __init__(self, desktop, program):
        self.desktop = desktop
        self.notes = Notes()
        self._process = desktop.start([str(program)], "recorder")
        self.window = Window(desktop, self._process)
        self.window.appear()

    def open_deck(self, path, seconds=120):
        """Opens a deck and gives the status text, such as "Slide 1/14"."""
        before = self.window.status("Slide")
        self.window.press("Open")
        dialog = self.window.expect_file_dialog(OPEN_TITLE)
        self.window.enter_file_name(dialog, str(path))
        self.window.keys("Return")
        wait_until(lambda: not self.window.dialog(), 20, "the open dialog to close")
        def imported():
            self._check_alive()
            return (self.window.status("Session") == "Ready..."
                    and self.window.status("Slide") not in (None, "", "Slide", before)) or None
        wait_until(imported, seconds, f"the deck {path} to be opened")
        status = self.window.status("Slide")
        self.notes.slides = int(status.split("/")[1])
        return status

    def record(self):
        """Presses Record and waits until the countdown is over and the recording runs."""
        self.notes.moves, self.notes.segments = [], []
        self.window.press("Record")
        pressed = time.monotonic()
        def recording():
            self._check_alive()
            box = self.window.dialog()
            if box and LEVEL_BOX in self.window.box_text(box):
                self.window.press("No", within=box)
            elif box:
                raise Failure(f'Record shows a box: "{self.window.box_text(box)}"')
            return self.window.status("Session") == "Recording ..."
        wait_until(recording, 30, "the recording to begin")
        self.notes.segments.append([time.monotonic(), None])
        return time.monotonic() - pressed

    def move(self, key):
        """Presses "first", "pre", "next" or "last" and waits until the status bar tells the slide."""
        count = self.notes.slides
        before = self.slide()
        expected = {"first": 1, "pre": max(before - 1, 1), "next": min(before + 1, count), "last": count}[key]
        takes_effect = key in ("first", "last") or expected != before
        at = self.notes.recorded()
        self.window.press(MOVES[key], roles=BUTTON_ROLES)
        wait_until(lambda: self.slide() == expected, 10, f"slide {expected} after {key}")
        if takes_effect and self.notes.segments:
            self.notes.moves.append((at, expected))
        return expected

    def slide(self):
        """The number of the slide that stands on the stage, as the status bar tells it."""
        text = self.window.status("Slide") or ""
        return int(text.split()[1].split("/")[0]) if text.startswith("Slide ") else 0

    def pause(self):
        self.window.press("Pause")
        wait_until(lambda: self.window.status("Session") == "Paused ...", 10, "the pause")
        self.end_segment()

    def resume(self):
        self.window.press("Resume")
        wait_until(lambda: self.window.status("Session") == "Recording ...", 10, "the end of the pause")
        self.notes.segments.append([time.monotonic(), None])

    def stop(self):
        """Presses Stop; gives the save dialog that follows."""
        self.end_segment()
        self.window.press("Stop")
        return self.save_dialog()

    def end_segment(self):
        """Notes that the recording ends now."""
        self.notes.segments[-1][1] = time.monotonic()

    def save_dialog(self, seconds=60):
        return self.window.expect_file_dialog(SAVE_TITLE, seconds)

    def save(self, dialog, path, file_type=None):
        """Writes the name into the save dialog and accepts it."""
        if file_type:
            self.window.choose_filter(dialog, file_type)
        self.window.enter_file_name(dialog, str(path))
        self.window.keys("Return")

    def cancel(self, _dialog):
        self.window.keys("Escape")

    def acknowledge(self, text, seconds=60):
        """Waits for the box with that text and presses its OK."""
        self.window.expect_box(text, seconds)
        self.window.press("OK")

    def wait(self, seconds):
        """Lets the lecture go on."""
        until = time.monotonic() + seconds
        while time.monotonic() < until:
            self._check_alive()
            time.sleep(min(0.2, max(0.0, until - time.monotonic())))

    def leave(self, seconds=30):
        """Closes the window and waits for the program's end; gives its exit code."""
        self.window.close()
        return self.wait_for_end(seconds)

    def wait_for_end(self, seconds=30):
        wait_until(lambda: not self.window.running(), seconds, "the recorder to end")
        return self._process.returncode

    def kill(self):
        """Ends the program as a crash does."""
        self._process.kill()
        self._process.wait()

    def _check_alive(self):
        if not self.window.running():
            raise Failure(f"the recorder ended ({self._process.returncode}): {self.window.output()}")
