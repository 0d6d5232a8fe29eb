"""The judge of saved lectures: lets a right one pass, and finds each fault that was put into one on purpose."""
import pathlib
import sys
import tempfile
import unittest
import zipfile

from PIL import Image, ImageDraw

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools" / "lecture"))

from container import parse_index  # noqa: E402
from judge import judge  # noqa: E402
from presenter import Notes  # noqa: E402
from processes import Failure, run_to_end  # noqa: E402
from scenes import Scene  # noqa: E402
from speech import make_speech  # noqa: E402

FIRST = '<slides>\r\n<slide currentS="1">\r\n<minutes>00:00:00</minutes>\r\n<seconds>0</seconds>\r\n</slide>\r\n'


def entry(slide, clock, seconds):
    return (f'<slide currentS="{slide}">\r\n<minutes>{clock}</minutes>\r\n<seconds>{seconds}</seconds>\r\n'
            '</slide>\r\n')


class IndexTest(unittest.TestCase):
    def assert_broken(self, text, words):
        with self.assertRaisesRegex(Failure, words):
            parse_index(text.encode())

    def test_entries_are_read_in_their_order(self):
        text = FIRST + entry(2, "00:01:05", 65) + entry(1, "01:01:01", 3661) + "</slides>\r\n"
        self.assertEqual(parse_index(text.encode()), [(1, 0), (2, 65), (1, 3661)])

    def test_an_index_without_a_move_has_one_entry(self):
        self.assertEqual(parse_index((FIRST + "</slides>\r\n").encode()), [(1, 0)])

    def test_line_feeds_alone_are_found(self):
        self.assert_broken((FIRST + "</slides>\r\n").replace("\r\n", "\n"), "carriage return")

    def test_a_missing_last_line_end_is_found(self):
        self.assert_broken(FIRST + "</slides>", "carriage return")

    def test_a_missing_first_entry_is_found(self):
        self.assert_broken("<slides>\r\n" + entry(2, "00:00:01", 1) + "</slides>\r\n", "begins")

    def test_a_clock_that_is_not_the_seconds_is_found(self):
        self.assert_broken(FIRST + entry(2, "00:01:05", 5) + "</slides>\r\n", "line 7")

    def test_leading_zeros_are_found(self):
        self.assert_broken(FIRST + entry(2, "00:00:05", "05") + "</slides>\r\n", "line 6")

    def test_indentation_is_found(self):
        self.assert_broken(FIRST + entry(2, "00:00:05", 5).replace("<min", " <min") + "</slides>\r\n", "line 6")

    def test_time_that_goes_backwards_is_found(self):
        self.assert_broken(FIRST + entry(2, "00:00:05", 5) + entry(3, "00:00:04", 4) + "</slides>\r\n", "backwards")


class LectureTest(unittest.TestCase):
    """Lectures of five seconds, two slides, the second from second 3 on, put together by ffmpeg."""

    @classmethod
    def setUpClass(cls):
        scratch = tempfile.TemporaryDirectory(prefix="judge-")
        cls.addClassCleanup(scratch.cleanup)
        cls.folder = pathlib.Path(scratch.name)
        cls.speech = cls.folder / "speech.wav"
        make_speech(cls.speech)
        for number in (1, 2, 3):
            picture = Image.new("RGB", (1280, 720), "white")
            pen = ImageDraw.Draw(picture)
            for line in range(12):
                pen.rectangle((80, 60 + 50 * line, 200 + 700 * ((line * number) % 5) / 5, 80 + 50 * line), "navy")
            picture.save(cls.folder / f"Slide{number}.PNG")
            picture.resize((746, 420)).save(cls.folder / f"frame{number}.png")
            picture.resize((560, 420)).save(cls.folder / f"slide{number}.jpg", quality=90)
        with Image.open(cls.folder / "frame1.png") as picture:
            ImageDraw.Draw(picture).rectangle((650, 200, 688, 238), "navy")
            picture.save(cls.folder / "frame4.png")

    def setUp(self):
        self.notes = Notes()
        self.notes.slides = 2
        self.notes.segments = [[(100.0, 100.1), (105.0, 105.1)]]
        self.notes.moves = [(103.2, 103.4, 2)]
        self.index = FIRST + entry(2, "00:00:03", 3) + "</slides>\r\n"

    def video(self, pictures=((1, 3.3), (2, 1.7)), sound="anull", frames="null"):
        path = self.folder / "AbCd1234.wmv"
        inputs = []
        for number, seconds in pictures:
            inputs += ["-loop", "1", "-framerate", "24", "-t", str(seconds), "-i",
                       str(self.folder / f"frame{number}.png")]
        count = len(pictures)
        joined = "".join(f"[{n}:v]" for n in range(count)) + f"concat=n={count}:v=1,{frames}[v]"
        run_to_end(["ffmpeg", "-v", "error", "-y", *inputs, "-i", str(self.speech), "-filter_complex",
                    f"{joined};[{count}:a]{sound}[a]", "-map", "[v]", "-map", "[a]", "-fps_mode", "passthrough", "-c:v", "wmv2", "-b:v", "1M",
                    "-c:a", "wmav2", "-b:a", "96k", "-t", "5", "-f", "asf", str(path)])
        return path

    def pack(self, video, names=None):
        (self.folder / "version.txt").write_bytes(b"Version 3.13.0\r\n")
        (self.folder / "slidetime.xml").write_bytes(self.index.encode())
        path = self.folder / "lecture.asf"
        with zipfile.ZipFile(path, "w") as archive:
            for name in names or ("version.txt", "Slide1.PNG", "slide1.jpg", "slide2.jpg", "slidetime.xml",
                                  video.name):
                archive.write(self.folder / name, name)
        return path

    def faults(self, video, names=None):
        return judge(self.pack(video, names), self.notes, self.folder / "judged", speech=self.speech).faults

    def assert_found(self, faults, words):
        self.assertTrue(any(words in fault for fault in faults), faults)

    def scene(self, name, number, second):
        """The stage as frame `number` has it, between `second` and a little later."""
        return Scene(name, self.folder / f"frame{number}.png", second, second + 0.1)

    def test_a_right_lecture_passes(self):
        self.assertEqual(self.faults(self.video()), [])

    def test_scenes_at_their_moments_pass(self):
        self.notes.scenes = [self.scene("before", 1, 1.5), self.scene("after", 2, 4.2)]
        self.assertEqual(self.faults(self.video()), [])

    def test_a_scene_that_never_stands_in_the_video_is_found(self):
        self.notes.scenes = [self.scene("before", 1, 1.5), self.scene("elsewhere", 3, 4.2)]
        faults = self.faults(self.video())
        self.assertEqual(len(faults), 1)
        self.assert_found(faults, "does not show elsewhere")

    def test_a_scene_that_differs_from_what_is_shown_by_a_spot_is_found(self):
        self.notes.scenes = [self.scene("before", 1, 1.5), self.scene("with a spot", 4, 1.5)]
        faults = self.faults(self.video())
        self.assertEqual(len(faults), 1)
        self.assert_found(faults, "does not show with a spot")

    def test_a_scene_at_the_moment_of_another_is_found(self):
        self.notes.scenes = [self.scene("before", 1, 1.5), self.scene("after", 2, 1.5)]
        faults = self.faults(self.video())
        self.assertEqual(len(faults), 1)
        self.assert_found(faults, "does not show after")

    def test_a_slide_that_comes_late_is_found(self):
        self.assert_found(self.faults(self.video(((1, 4.75), (2, 0.25)))), "slide 2 does not show about")

    def test_a_slide_that_flashes_up_in_between_is_found(self):
        self.assert_found(self.faults(self.video(((1, 0.5), (2, 0.6), (1, 2.2), (2, 1.7)))), "shows slide 2")

    def test_lost_frames_are_found(self):
        self.assert_found(self.faults(self.video(frames="select='not(between(n,30,39))'")), "apart")

    def test_a_hole_in_the_sound_is_found(self):
        self.assert_found(self.faults(self.video(sound="volume=0:enable='between(t,2.5,3.6)'")), "holes at [2.5")

    def test_sound_that_skips_is_found(self):
        self.assert_found(self.faults(self.video(sound="aselect='not(between(t,2,2.5))',asetpts=N/SR/TB")),
                          "sound jumps")

    def test_a_pause_that_was_not_cut_out_is_found(self):
        self.notes.segments = [[(100.0, 100.1), (101.0, 101.1)], [(103.0, 103.1), (105.0, 105.1)]]
        self.assert_found(self.faults(self.video()), "without pauses")

    def test_an_index_that_lacks_a_move_is_found(self):
        self.index = FIRST + "</slides>\r\n"
        self.assert_found(self.faults(self.video()), "the index names")

    def test_entries_in_another_order_are_found(self):
        video = self.video()
        with self.assertRaisesRegex(Failure, "in their order"):
            self.faults(video, ("Slide1.PNG", "version.txt", "slide1.jpg", "slide2.jpg", "slidetime.xml", video.name))

    def test_a_missing_slide_picture_is_found(self):
        video = self.video()
        with self.assertRaisesRegex(Failure, "gaps"):
            self.faults(video, ("version.txt", "Slide1.PNG", "slide2.jpg", "slidetime.xml", video.name))

    def test_a_file_that_is_no_archive_is_found(self):
        (self.folder / "none.asf").write_bytes(b"nothing")
        with self.assertRaisesRegex(Failure, "no archive"):
            judge(self.folder / "none.asf", self.notes, self.folder / "judged")


if __name__ == "__main__":
    unittest.main()
