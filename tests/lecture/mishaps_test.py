"""Lectures in which something goes wrong: what is left afterwards counts, and neither when it
happened nor how it sounds, so that other tests may run beside them."""
import shutil
import subprocess

from lecture_case import DECK, PROGRAM, ROOT, LectureTest, main

from container import Container, Streams
from presenter import FILTER_VIDEO, Presenter
from processes import run_to_end, wait_until


class Quitting(LectureTest):
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


if __name__ == "__main__":
    main()
