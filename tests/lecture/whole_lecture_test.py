"""One lecture of three minutes with everything the recorder has, from the deck to the review."""
import os

from PIL import Image

from lecture_case import LectureTest, main

from frames import luma_of_picture, psnr
from judge import judge
from presenter import SAVED_BOX
from whole_lecture import LENGTH, hold_whole_lecture, page_server, review


class WholeLecture(LectureTest):
    def test_with_everything_is_recorded_saved_and_reviewed(self):
        desktop = self.desktop()
        with page_server() as page:
            (desktop.folder / "cameras").mkdir()
            # Chromium refuses to run as the superuser with its sandbox, and tests may.
            presenter = self.presenter(desktop, QUILLORA_FAKE_CAMERAS=desktop.folder / "cameras",
                                       LD_PRELOAD=os.environ["QUILLORA_FAKE_CAMERA"], QTWEBENGINE_DISABLE_SANDBOX="1")
            dialog = hold_whole_lecture(presenter, page)
            out = desktop.folder / "lecture.asf"
            presenter.save(dialog, out)
            presenter.acknowledge(SAVED_BOX)
            played = review(presenter)
            self.assertEqual(presenter.leave(), 0)
            verdict = judge(out, presenter.notes, desktop.folder / "judged", speech=desktop.speech)
            print("\n".join(verdict.lines))
            self.assertEqual(verdict.faults, [], "\n".join(verdict.faults))
            self.assertGreater(presenter.notes.recorded()[0], LENGTH)
            self.assert_shows_first_slide(played, presenter.notes)

    def assert_shows_first_slide(self, played, notes):
        """The player shows the lecture's begin, within black borders where its ratio is another."""
        shown = Image.open(played).convert("RGB")
        inside = shown.point(lambda level: 255 if level > 24 else 0).convert("L").getbbox()
        self.assertIsNotNone(inside, "the player is black")
        cut = played.with_suffix(".cut.png")
        shown.crop(inside).save(cut)
        luma = luma_of_picture(cut)
        likeness = {scene.name: psnr(luma, luma_of_picture(scene.picture)) for scene in notes.scenes
                    if scene.name.startswith("slide ")}
        print("The review: " + ", ".join(f"{name} {decibels:.1f} dB" for name, decibels in likeness.items()))
        first = likeness.pop("slide 1")
        self.assertGreater(first, 14.0)
        self.assertGreater(first, max(likeness.values()) + 1.0)


if __name__ == "__main__":
    main()
