"""What a presenter does with the recorder, one method an act, and the notes that are kept of it."""
import time

from processes import Failure, wait_until
from scenes import Scene
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
    """What was done when. Nobody can tell from outside at what moment the program did something, only between which
    two moments, on the monotonic clock: so each time is a pair, the earliest and the latest that it can have been."""

    def __init__(self):
        self.slides = 0
        self.begin_recording()

    def begin_recording(self):
        self.segments = []   # [begin, end] of each stretch that was recorded
        self.moves = []      # (press, answer, number of the slide then shown)
        self.scenes = []     # what stood on the stage at some moments
        self.slides_until = None  # the moment, as a pair, from which on more than slides was on the stage

    def recorded(self, until=None):
        """The least and the most seconds recorded, so far or until a pair of moments."""
        until = until or (time.monotonic(),) * 2
        least = most = 0.0
        for begin, end in self.segments:
            first, last = min(end or until, until), min(end or until, until)
            least += max(0.0, first[0] - begin[1])
            most += max(0.0, last[1] - begin[0])
        return least, most

    def shown(self):
        """Each move as (least, most, slide), in seconds of the recording."""
        return [(*self.recorded((press, answer)), slide) for press, answer, slide in self.moves]

    def pauses(self):
        """The least and the most seconds of each pause."""
        return [(after[0][0] - before[1][1], after[0][1] - before[1][0])
                for before, after in zip(self.segments, self.segments[1:])]


class Presenter:
    """One person at one recorder."""

    def __init__(self, desktop, program, **environment):
        """`environment` is what the recorder alone finds set."""
        self.desktop = desktop
        self.notes = Notes()
        settings = [f"{name}={value}" for name, value in environment.items() if value]
        self._process = desktop.start(["env", *settings, str(program)], "recorder")
        self.process_id = self._process.pid
        self.window = Window(desktop, self._process)
        self.window.appear()

    def open_deck(self, path, seconds=120):
        """Opens a deck and gives the status text, such as "Slide 1/14"."""
        self.window.press("Open")
        dialog = self.window.expect_file_dialog(OPEN_TITLE)
        self.window.enter_file_name(dialog, str(path))
        self.window.keys("Return")
        wait_until(lambda: not self.window.dialog(), 20, "the open dialog to close")
        # The program answers nothing while it imports. Asked twice, since the first answer may be one that it gave
        # between the end of the dialog and the begin of the import.
        for _ in range(2):
            time.sleep(0.2)
            wait_until(self._is_ready, seconds, f"the deck {path} to be opened")
        status = self.window.status("Slide")
        self.notes.slides = int(status.split("/")[1])
        return status

    def _is_ready(self):
        self._check_alive()
        return self.window.status("Session") == "Ready..."

    def record(self):
        """Presses Record and waits until the countdown is over and the recording runs."""
        self.notes.begin_recording()
        self.window.press("Record")
        def recording():
            self._check_alive()
            box = self.window.dialog()
            if box and LEVEL_BOX in self.window.box_text(box):
                self.window.press("No", within=box)
            elif box:
                raise Failure(f'Record shows a box: "{self.window.box_text(box)}"')
            return self.window.status("Session") == "Recording ..."
        self.notes.segments.append([self._between(recording, 30, "the recording to begin"), None])

    def move(self, key):
        """Presses "first", "pre", "next" or "last" and waits until the status bar tells the slide."""
        count = self.notes.slides
        before = self.slide()
        expected = {"first": 1, "pre": max(before - 1, 1), "next": min(before + 1, count), "last": count}[key]
        takes_effect = key in ("first", "last") or expected != before
        pressed = time.monotonic()
        self.window.press(MOVES[key], roles=BUTTON_ROLES)
        wait_until(lambda: self.slide() == expected, 10, f"slide {expected} after {key}")
        if takes_effect:
            self.notes.moves.append((pressed, time.monotonic(), expected))
        return expected

    def slide(self):
        """The number of the slide that stands on the stage, as the status bar tells it."""
        text = self.window.status("Slide") or ""
        return int(text.split()[1].split("/")[0]) if text.startswith("Slide ") else 0

    def keep_scene(self, name, area=None):
        """Keeps a picture of an area of the display, or of all of it, so that the video can be asked for it."""
        picture = self.desktop.folder / f"scene {len(self.notes.scenes)}.png"
        before = time.monotonic()
        self.desktop.picture(picture, area)
        self.notes.scenes.append(Scene(name, picture, *self.notes.recorded((before, time.monotonic()))))
        # The video is asked for a little later, too.
        self.wait(0.5)

    def pause(self):
        pressed = time.monotonic()
        self.window.press("Pause")
        wait_until(lambda: self.window.status("Session") == "Paused ...", 10, "the pause")
        self.notes.segments[-1][1] = pressed, time.monotonic()

    def resume(self):
        pressed = time.monotonic()
        self.window.press("Resume")
        wait_until(lambda: self.window.status("Session") == "Recording ...", 10, "the end of the pause")
        self.notes.segments.append([(pressed, time.monotonic()), None])

    def stop(self):
        """Presses Stop; gives the save dialog that follows."""
        return self._end_with(lambda: self.window.press("Stop"))

    def stop_without_slides(self):
        """Presses Stop in a recording of a deck that gave no slides: there is nothing to pack, and no dialog."""
        began = time.monotonic()
        self.window.press("Stop")
        wait_until(self._is_ready, 60, "the recording to stop")
        self.notes.segments[-1][1] = began, time.monotonic()

    def close_in_recording(self):
        """Closes the window while it records; gives the save dialog that follows."""
        return self._end_with(self.window.close)

    def _end_with(self, act):
        began = time.monotonic()
        act()
        dialog = self.save_dialog()
        self.notes.segments[-1][1] = began, time.monotonic()
        return dialog

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
        self.lose(self._process.kill)

    def lose(self, disaster, seconds=30):
        """Does what ends the program, and waits for its end."""
        began = time.monotonic()
        disaster()
        self.wait_for_end(seconds)
        self.notes.segments[-1][1] = began, time.monotonic()

    @staticmethod
    def _between(probe, seconds, what):
        """Waits for something; gives the last moment at which it was not yet so, and the first at which it was."""
        last_no = time.monotonic()
        def ask():
            nonlocal last_no
            asked = time.monotonic()
            if probe():
                return True
            last_no = asked
            return False
        wait_until(ask, seconds, what)
        return last_no, time.monotonic()

    def _check_alive(self):
        if not self.window.running():
            raise Failure(f"the recorder ended ({self._process.returncode}): {self.window.output()}")
