"""The installed program as a black box: real deck, real pixels, real sound, real dialogs. One lecture a test.

QUILLORA_PROGRAM names the installed program. Each test has a desktop of its own, so tests may run side by side; each
is run in a process of its own, since an accessibility bus can't be left for another.
"""
import http.server
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import threading
import unittest
import zipfile

from PIL import Image

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools" / "lecture"))

from container import Container, Streams  # noqa: E402
from demo import hold_lecture, keep_pictures  # noqa: E402
from desktop import Desktop  # noqa: E402
from draw_board import draw  # noqa: E402
from judge import judge  # noqa: E402
from presenter import FILTER_VIDEO, NO_DECK_BOX, NOT_SAVED_BOX, SAVED_BOX, Presenter  # noqa: E402
from processes import descendants, run_to_end, wait_until  # noqa: E402

PROGRAM = pathlib.Path(os.environ.get("QUILLORA_PROGRAM", ROOT / "build" / "install" / "bin" / "quillora"))
DECK = ROOT / "assets" / "sample_lecture.pptx"
SKIPPED = 77
SERVICE_PORT = 8480


class LectureTest(unittest.TestCase):
    """Helpers that the lectures share."""

    def desktop(self, **options):
        desktop = self.enterContext(Desktop(**options))
        self.addCleanup(self.tell, desktop)
        return desktop

    def tell(self, desktop):
        """What the program printed, where a test failed."""
        if self._outcome and not self._outcome.success and desktop.log("recorder").exists():
            print(desktop.log("recorder").read_text(errors="replace")[-2000:], file=sys.stderr)

    def presenter(self, desktop, deck=DECK):
        presenter = Presenter(desktop, PROGRAM)
        if deck:
            self.slides = int(presenter.open_deck(deck).split("/")[1])
            self.assertGreaterEqual(self.slides, 3)
        return presenter

    def short_lecture(self, presenter):
        """A few seconds with one move; gives the save dialog."""
        presenter.record()
        presenter.wait(2)
        presenter.move("next")
        presenter.wait(2)
        return presenter.stop()

    def save(self, presenter, dialog, path, file_type=None):
        presenter.save(dialog, path, file_type)
        presenter.acknowledge(SAVED_BOX)

    def assert_lecture(self, path, presenter):
        """The file is a right container of what the presenter did."""
        desktop = presenter.desktop
        verdict = judge(path, presenter.notes, desktop.folder / f"judged {path.name}", speech=desktop.speech)
        self.assertEqual(verdict.faults, [], "\n".join(verdict.lines))

    def assert_length(self, streams, presenter):
        least, most = presenter.notes.recorded()
        self.assertGreater(streams.duration, least - 0.2)
        self.assertLess(streams.duration, most + 0.2)

    def assert_usable(self, presenter):
        """The window answers, and a deck can be opened."""
        self.assertEqual(presenter.open_deck(DECK), f"Slide 1/{self.count_of_sample()}")
        self.assertEqual(presenter.move("next"), 2)

    @staticmethod
    def count_of_sample():
        with zipfile.ZipFile(DECK) as deck:
            return sum(name.startswith("ppt/slides/slide") for name in deck.namelist())


class DrawingBoardTest(LectureTest):
    def test_shows_the_work_of_every_tool(self):
        """Fails where a tool leaves no trace on the stage."""
        desktop = self.desktop(sound=False)
        picture = desktop.folder / "board.png"
        draw(desktop, PROGRAM, picture)
        with Image.open(picture) as shown:
            self.assertEqual(shown.width, 1020)


class Lecture(LectureTest):
    def test_a_whole_lecture_is_saved_with_every_slide_at_its_time(self):
        desktop = self.desktop()
        presenter = self.presenter(desktop)
        out = desktop.folder / "lecture.asf"
        dialog = hold_lecture(presenter)
        pictures = keep_pictures(desktop)
        self.save(presenter, dialog, out)
        self.assertEqual(presenter.leave(), 0)
        verdict = judge(out, presenter.notes, desktop.folder / "judged", pictures, desktop.speech)
        self.assertEqual(verdict.faults, [], "\n".join(verdict.lines))

    def test_a_second_lecture_holds_its_own_video_only_and_replaces_the_file_without_a_question(self):
        desktop = self.desktop()
        presenter = self.presenter(desktop)
        out = desktop.folder / "lecture.asf"
        self.save(presenter, self.short_lecture(presenter), out)
        first = Container(out, desktop.folder / "first").video.name
        self.save(presenter, self.short_lecture(presenter), out)
        self.assert_lecture(out, presenter)
        self.assertNotIn(first, zipfile.ZipFile(out).namelist())

    def test_a_name_without_extension_loses_its_last_four_letters(self):
        desktop = self.desktop()
        presenter = self.presenter(desktop)
        self.save(presenter, self.short_lecture(presenter), desktop.folder / "lecture7")
        self.assert_lecture(desktop.folder / "lect.asf", presenter)
        self.assertFalse((desktop.folder / "lecture7").exists())

    def test_cancelling_the_save_asks_again_until_a_name_is_given(self):
        desktop = self.desktop()
        presenter = self.presenter(desktop)
        dialog = self.short_lecture(presenter)
        for _ in range(2):
            presenter.cancel(dialog)
            presenter.acknowledge(NOT_SAVED_BOX)
            dialog = presenter.save_dialog()
        self.save(presenter, dialog, desktop.folder / "at last.asf")
        self.assert_lecture(desktop.folder / "at last.asf", presenter)

    def test_the_second_file_type_saves_the_plain_video(self):
        desktop = self.desktop()
        presenter = self.presenter(desktop)
        self.save(presenter, self.short_lecture(presenter), desktop.folder / "lecture.asf", FILTER_VIDEO)
        self.assertFalse((desktop.folder / "lecture.asf").exists())
        streams = Streams(desktop.folder / "lecture.wmv")
        self.assertEqual((streams.format, streams.video["codec_name"], streams.size), ("asf", "wmv2", (746, 420)))
        self.assert_length(streams, presenter)

    def test_recording_without_a_deck_is_refused_with_a_box(self):
        presenter = self.presenter(self.desktop(), deck=None)
        presenter.window.press("Record")
        presenter.acknowledge(NO_DECK_BOX)
        self.assertEqual(presenter.window.status("Session"), "Ready ...")

    def test_stop_in_a_pause_is_ignored(self):
        desktop = self.desktop()
        presenter = self.presenter(desktop)
        presenter.record()
        presenter.wait(2)
        presenter.pause()
        presenter.window.press("Stop")
        presenter.wait(1)
        self.assertIsNone(presenter.window.dialog())
        presenter.resume()
        presenter.wait(2)
        self.save(presenter, presenter.stop(), desktop.folder / "lecture.asf")
        self.assert_lecture(desktop.folder / "lecture.asf", presenter)


class Screen(LectureTest):
    def test_the_screen_is_recorded_between_two_views_of_the_stage_and_the_whole_is_reviewed(self):
        desktop = self.desktop()
        presenter = self.presenter(desktop)
        window = presenter.window
        window.press("More")
        presenter.record()
        presenter.wait(2)
        window.press("Screen")
        wait_until(lambda: window.shows("Around the mouse"), 20, "the dialog of the screen recording")
        self.assertFalse(window.shows("Record"))
        presenter.wait(2)
        window.press("Start")
        wait_until(lambda: not window.shows("Around the mouse"), 20, "the dialog to go")
        presenter.wait(3)
        window.keys("ctrl+r")
        wait_until(lambda: window.shows("Stop"), 20, "the stage to come back")
        presenter.wait(2)
        path = desktop.folder / "screen.asf"
        self.save(presenter, presenter.stop(), path)

        container = Container(path, desktop.folder / "unpacked")
        self.assertEqual(self.brightness(container.video), ["bright", "dark", "bright"])
        window.press("Review")
        wait_until(lambda: window.shows("Full screen"), 20, "the review")
        player = wait_until(lambda: window.find("Pause", within=window.dialog()), 30, "the player to play")
        self.assertIsNotNone(player)
        window.press("Close")
        wait_until(lambda: not window.dialog(), 20, "the review to close")
        self.assertEqual(presenter.leave(), 0)

    @staticmethod
    def brightness(video):
        """What the frames are like, one word for all in a row: the stage is bright, the empty screen is dark."""
        size = 32 * 18
        gray = subprocess.run(["ffmpeg", "-v", "error", "-i", str(video), "-vf", "scale=32:18", "-f", "rawvideo",
                               "-pix_fmt", "gray", "-"], capture_output=True, check=True, timeout=60).stdout
        words = ["bright" if sum(gray[at:at + size]) > 20 * size else "dark" for at in range(0, len(gray), size)]
        return [word for word, before in zip(words, [None] + words) if word != before]


class Quitting(LectureTest):
    def test_quitting_in_a_recording_stops_and_saves_it_first(self):
        desktop = self.desktop()
        presenter = self.presenter(desktop)
        presenter.record()
        presenter.wait(3)
        presenter.cancel(presenter.close_in_recording())
        presenter.acknowledge(NOT_SAVED_BOX)
        self.save(presenter, presenter.save_dialog(), desktop.folder / "lecture.asf")
        presenter.wait_for_end()
        self.assert_lecture(desktop.folder / "lecture.asf", presenter)

    def test_quitting_in_a_pause_abandons_the_recording_and_the_next_start_clears_it(self):
        desktop = self.desktop()
        presenter = self.presenter(desktop)
        presenter.record()
        presenter.wait(2)
        presenter.pause()
        presenter.leave()
        self.assertEqual(len(list(desktop.workspace.glob("*.wmv"))), 1)
        self.presenter(desktop, deck=None)
        self.assertEqual(list(desktop.workspace.glob("*.*")), [])

    def test_a_killed_recording_can_be_read_and_the_next_start_clears_it(self):
        desktop = self.desktop()
        presenter = self.presenter(desktop)
        presenter.record()
        presenter.wait(6)
        presenter.kill()
        self.assert_readable(desktop, presenter)
        self.presenter(desktop, deck=None)
        self.assertEqual(list(desktop.workspace.glob("*.*")), [])

    def test_a_display_that_dies_ends_the_program_and_leaves_the_recording_readable(self):
        desktop = self.desktop()
        presenter = self.presenter(desktop)
        presenter.record()
        presenter.wait(6)
        presenter.lose(desktop.end_display)
        self.assert_readable(desktop, presenter)

    def assert_readable(self, desktop, presenter):
        """All but the last two seconds of the video that was being recorded."""
        (video,) = desktop.workspace.glob("*.wmv")
        times = run_to_end(["ffprobe", "-v", "error", "-select_streams", "v", "-show_entries", "packet=pts_time",
                            "-of", "csv=p=0", str(video)]).decode().replace(",", " ").split()
        self.assertGreater(float(times[-1]), presenter.notes.recorded()[0] - 2.2)


class Camera(LectureTest):
    """With cameras that are not there; see tests/support/fake_camera/fake_camera.cpp."""

    RED, GREEN, BLUE, WHITE, WALL = (255, 0, 0), (0, 255, 0), (0, 0, 255), (255, 255, 255), (38, 120, 128)

    def desktop(self, **options):
        desktop = super().desktop(**options)
        self.script = desktop.folder / "cameras"
        self.script.mkdir()
        desktop.environment.update(QUILLORA_FAKE_CAMERAS=str(self.script), LD_PRELOAD=os.environ["QUILLORA_FAKE_CAMERA"])
        return desktop

    def stage(self, presenter):
        """What the stage shows."""
        window = presenter.window
        path = presenter.desktop.folder / "stage.png"
        presenter.desktop.picture(path, window.area(window.find("Stage")))
        with Image.open(path) as picture:
            return picture.convert("RGB")

    def wait_for_colours(self, presenter, colours):
        """Waits until the stage has these colours at these places."""
        def there():
            picture = self.stage(presenter)
            return all(max(abs(a - b) for a, b in zip(picture.getpixel(place), colour)) < 30
                       for place, colour in colours.items())
        wait_until(there, 20, f"{colours} on the stage")

    def test_the_picture_fills_the_stage_and_a_corner_of_it_and_is_recorded(self):
        desktop = self.desktop()
        presenter = self.presenter(desktop)
        presenter.window.press("Camera alone")
        presenter.window.press("Switch the camera on")
        whole = {(110, 20): self.RED, (640, 20): self.GREEN, (110, 400): self.BLUE, (640, 400): self.WHITE,
                 (373, 20): self.WALL, (40, 210): (0, 0, 0)}
        self.wait_for_colours(presenter, whole)
        presenter.record()
        presenter.wait(2)
        presenter.window.press("Camera in the top left corner")
        corner = {(15, 15): self.RED, (171, 15): self.GREEN, (15, 128): self.BLUE, (171, 128): self.WHITE}
        self.wait_for_colours(presenter, corner)
        presenter.wait(2)
        self.save(presenter, presenter.stop(), desktop.folder / "lecture.wmv", FILTER_VIDEO)
        frames = [desktop.folder / f"recorded {name}.png" for name in ("first", "last")]
        for options, frame in zip((["-ss", "1"], ["-sseof", "-1"]), frames):
            run_to_end(["ffmpeg", "-v", "error", "-y", *options, "-i", str(desktop.folder / "lecture.wmv"), "-frames:v", "1",
                        str(frame)], seconds=60)
        for colours, frame in zip((whole, corner), frames):
            with Image.open(frame) as picture:
                for place, colour in colours.items():
                    got = picture.convert("RGB").getpixel(place)
                    self.assertLess(max(abs(a - b) for a, b in zip(got, colour)), 40, f"{frame.name} at {place}: {got}")

    def test_a_camera_that_is_unplugged_does_not_disturb_the_recording(self):
        desktop = self.desktop()
        presenter = self.presenter(desktop)
        # The camera's bar, which opening a deck has closed, opens with this mode.
        presenter.window.press("Camera alone")
        presenter.window.press("Switch the camera on")
        self.wait_for_colours(presenter, {(373, 20): self.WALL})
        presenter.record()
        presenter.wait(2)
        (self.script / "video0").write_text("unplugged")
        self.wait_for_colours(presenter, {(373, 20): (0, 0, 0)})
        presenter.window.press("Media alone")
        presenter.move("next")
        presenter.wait(2)
        out = desktop.folder / "lecture.asf"
        self.save(presenter, presenter.stop(), out)
        self.assert_length(Streams(Container(out, desktop.folder / "unpacked").video), presenter)
        self.assertEqual(presenter.leave(), 0)

    def test_a_camera_that_hangs_leaves_a_window_that_answers(self):
        desktop = self.desktop()
        (self.script / "video0").write_text("stalled-start")
        presenter = self.presenter(desktop)
        # The camera's bar, which opening a deck has closed, opens with this mode.
        presenter.window.press("Camera alone")
        presenter.window.press("Switch the camera on")
        # Its frame is black, and the presenter goes on; this mode opens the bar of the slides.
        presenter.window.press("Media alone")
        self.assertEqual(presenter.move("next"), 2)
        self.assertEqual(presenter.leave(), 0)


class WebPage(LectureTest):
    """Pages of the service, served here in its place."""

    def setUp(self):
        self.asked = []
        test = self

        class Pages(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                test.asked.append(self.path)
                self.send_response(200)
                self.send_header("Content-Type", "text/html")
                self.end_headers()
                self.wfile.write(b"<body style='background:#00ff00'>")

            def log_message(self, *_):
                pass

        server = http.server.ThreadingHTTPServer(("127.0.0.1", SERVICE_PORT), Pages)
        self.addCleanup(server.server_close)
        self.addCleanup(server.shutdown)
        threading.Thread(target=server.serve_forever, daemon=True).start()

    def browsers(self, presenter):
        """Process ids of the browsers that the recorder started."""
        return [pid for pid in descendants(presenter.process_id)
                if "quillora-browse" in pathlib.Path(f"/proc/{pid}/comm").read_text(encoding="utf-8")]

    def test_a_browser_that_crashes_does_not_touch_the_recording(self):
        desktop = self.desktop()
        desktop.environment["QTWEBENGINE_DISABLE_SANDBOX"] = "1"
        presenter = self.presenter(desktop)
        self.assertEqual(self.browsers(presenter), [])
        self.assertEqual(self.asked, [])
        presenter.window.press("More")
        presenter.record()
        presenter.window.press("Web")
        wait_until(lambda: "/recorderweb.php" in self.asked, 30, "the start page to be asked for")
        presenter.wait(3)
        browser, = self.browsers(presenter)
        os.kill(browser, signal.SIGKILL)
        wait_until(lambda: presenter.window.shows("Reload the page"), 10, "the notice")
        presenter.wait(2)
        self.assertEqual(presenter.window.status("Session"), "Recording ...")
        presenter.window.press("Reload the page")
        wait_until(lambda: self.asked.count("/recorderweb.php") == 2, 30, "the page to be asked for again")
        presenter.wait(3)
        out = desktop.folder / "web.asf"
        self.save(presenter, presenter.stop(), out)
        presenter.leave()
        self.assert_length(Streams(Container(out, desktop.folder / "unpacked").video), presenter)
        wait_until(lambda: not pathlib.Path(f"/proc/{browser}").exists(), 10, "the browser to be gone")


class PoorMachine(LectureTest):
    def test_a_workspace_that_cannot_be_made_does_not_keep_the_program_from_starting(self):
        desktop = self.desktop()
        blocked = desktop.folder / "a file, no folder"
        blocked.touch()
        desktop.environment["APPDATA"] = str(blocked)
        presenter = self.presenter(desktop, deck=None)
        self.assertEqual(presenter.window.status("Session"), "Ready ...")
        self.assertEqual(presenter.leave(), 0)

    def test_without_a_sound_server_the_video_is_recorded_with_silence(self):
        desktop = self.desktop(sound=False)
        presenter = self.presenter(desktop)
        self.save(presenter, self.short_lecture(presenter), desktop.folder / "lecture.asf")
        self.assert_lecture(desktop.folder / "lecture.asf", presenter)
        self.assertEqual(Streams(Container(desktop.folder / "lecture.asf", desktop.folder / "x").video).sound[
            "codec_name"], "wmav2")

    def test_without_a_window_manager_the_lecture_is_recorded(self):
        desktop = self.desktop(window_manager=False)
        presenter = self.presenter(desktop)
        self.save(presenter, self.short_lecture(presenter), desktop.folder / "lecture.asf")
        self.assert_lecture(desktop.folder / "lecture.asf", presenter)

    def test_on_a_display_smaller_than_the_window_what_is_there_is_recorded(self):
        desktop = self.desktop(width=800, height=600)
        presenter = Presenter(desktop, PROGRAM)
        presenter.open_deck(DECK)
        presenter.record()
        presenter.wait(3)
        self.save(presenter, presenter.stop(), desktop.folder / "lecture.asf")
        container = Container(desktop.folder / "lecture.asf", desktop.folder / "x")
        streams = Streams(container.video)
        self.assertEqual(streams.size, (746, 420))
        self.assert_length(streams, presenter)


class Decks(LectureTest):
    def test_a_deck_is_opened_whatever_its_path_looks_like(self):
        desktop = self.desktop()
        presenter = Presenter(desktop, PROGRAM)
        expected = f"Slide 1/{self.count_of_sample()}"
        for name in ("two  blanks.pptx", "it's \"quoted\".pptx", "50% #1 %20.pptx", "Vorlesung für Zoë – 講義.pptx",
                     "x" * 245 + ".pptx"):
            with self.subTest(name=name):
                folder = desktop.folder / f"decks of {name[:8]}"
                folder.mkdir()
                shutil.copy(DECK, folder / name)
                self.assertEqual(presenter.open_deck(folder / name), expected)
                self.assertEqual(presenter.move("next"), 2)

    def test_a_deck_that_cannot_be_read_gives_no_slides_and_leaves_the_program_usable(self):
        desktop = self.desktop()
        presenter = Presenter(desktop, PROGRAM)
        sample = DECK.read_bytes()
        for name, content in (("empty.ppt", b""), ("words.pptx", b"no deck at all\n" * 40),
                              ("cut off.pptx", sample[:len(sample) // 2]), ("picture.ppt", a_picture())):
            with self.subTest(name=name):
                (desktop.folder / name).write_bytes(content)
                self.assertEqual(presenter.open_deck(desktop.folder / name), "Slide 1/0")
        self.assert_usable(presenter)

    def test_a_deck_that_gave_no_slides_can_be_recorded_all_the_same(self):
        desktop = self.desktop()
        presenter = Presenter(desktop, PROGRAM)
        (desktop.folder / "broken.ppt").write_bytes(b"no deck")
        presenter.open_deck(desktop.folder / "broken.ppt")
        presenter.record()
        presenter.wait(3)
        presenter.stop_without_slides()
        # Without a first slide there is nothing to pack: the stop ends in silence, and the program goes on.
        self.assertIsNone(presenter.window.dialog())
        (video,) = desktop.workspace.glob("*.wmv")
        self.assert_length(Streams(video), presenter)
        self.assert_usable(presenter)


class Destinations(LectureTest):
    def test_saving_where_nobody_may_write_ends_in_silence(self):
        desktop = self.desktop()
        folder = self.mounted(desktop, "ro")
        presenter = self.presenter(desktop)
        presenter.save(self.short_lecture(presenter), folder / "lecture.asf")
        self.assert_silent_end(presenter)

    def test_saving_over_a_folder_ends_in_silence_and_harms_nothing(self):
        desktop = self.desktop()
        kept = desktop.folder / "lecture.wmv" / "kept"
        kept.parent.mkdir()
        kept.write_text("kept")
        presenter = self.presenter(desktop)
        presenter.save(self.short_lecture(presenter), desktop.folder / "lecture.asf", FILTER_VIDEO)
        self.assert_silent_end(presenter)
        self.assertEqual(kept.read_text(), "kept")

    def test_a_full_disk_ends_in_silence_and_keeps_the_file_that_was_there(self):
        desktop = self.desktop()
        small = self.mounted(desktop, "size=64k")
        (small / "lecture.asf").write_text("the lecture of last week")
        presenter = self.presenter(desktop)
        presenter.save(self.short_lecture(presenter), small / "lecture.asf")
        self.assert_silent_end(presenter)
        self.assertEqual([each.name for each in small.iterdir()], ["lecture.asf"])
        self.assertEqual((small / "lecture.asf").read_text(), "the lecture of last week")

    def mounted(self, desktop, options):
        """A file system of its own, which only the superuser can make; permissions would not stop that one."""
        folder = desktop.folder / "another disk"
        folder.mkdir()
        made = subprocess.run(["mount", "-t", "tmpfs", "-o", options, "tmpfs", str(folder)], check=False,
                              capture_output=True)
        if made.returncode != 0:
            self.skipTest("no file system can be mounted here")
        self.addCleanup(subprocess.run, ["umount", "--lazy", str(folder)], check=False)
        return folder

    def assert_silent_end(self, presenter):
        wait_until(lambda: presenter.window.dialog() is None, 20, "the save dialog to close")
        presenter.wait(2)
        self.assertIsNone(presenter.window.dialog())
        self.assertEqual(presenter.window.status("Session"), "Ready...")
        self.assert_usable(presenter)


def a_picture():
    return (ROOT / "assets" / "PPT.png").read_bytes()


def main():
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    program = unittest.main(exit=False, verbosity=2)
    result = program.result
    if not result.wasSuccessful():
        sys.exit(1)
    sys.exit(SKIPPED if result.skipped and len(result.skipped) == result.testsRun else 0)


if __name__ == "__main__":
    main()
