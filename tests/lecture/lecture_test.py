"""Real deck, real pixels, real sound, real dialogs, in real time: nothing else is to run beside these lectures."""
import http.server
import os
import pathlib
import signal
import subprocess
import threading
import time
import zipfile

from PIL import Image

from lecture_case import PROGRAM, LectureTest, main

from container import Container, Streams
from demo import hold_lecture, keep_pictures
from draw_board import draw
from judge import judge
from presenter import FILTER_VIDEO, NO_DECK_BOX, NOT_SAVED_BOX
from processes import descendants, run_to_end, wait_until

SERVICE_PORT = 8480



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

    def test_without_a_window_manager_the_lecture_is_recorded(self):
        desktop = self.desktop(window_manager=False)
        presenter = self.presenter(desktop)
        self.save(presenter, self.short_lecture(presenter), desktop.folder / "lecture.asf")
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

    def assert_that_the_window_answers_with(self, camera):
        desktop = self.desktop()
        (self.script / "video0").write_text(camera)
        presenter = self.presenter(desktop)
        window = presenter.window
        # The camera's bar, which opening a deck has closed, opens with this mode.
        window.press("Camera alone")
        wait_until(lambda: window.status("Window mode") == "fullcam", 10, "the camera alone")
        media_alone = window.find("Media alone")
        window.press("Switch the camera on")
        # Its frame is black, and the presenter goes on; this mode opens the bar of the slides.
        pressed = time.monotonic()
        window.click(media_alone)
        wait_until(lambda: window.status("Window mode") == "full", 20, "the media alone")
        self.assertLess(time.monotonic() - pressed, 3, "the window stood still")
        self.assertEqual(presenter.move("next"), 2)
        self.assertEqual(presenter.leave(), 0)

    def test_a_camera_that_hangs_when_it_is_started_leaves_a_window_that_answers(self):
        self.assert_that_the_window_answers_with("stalled-start")

    def test_a_camera_that_hangs_when_it_is_looked_for_leaves_a_window_that_answers(self):
        self.assert_that_the_window_answers_with("stalled-open")


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


if __name__ == "__main__":
    main()
