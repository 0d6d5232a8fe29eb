"""The frames of a saved video and pictures to compare them with, as luma; and how alike two of them are."""
import numpy
from PIL import Image

from processes import run_to_end

OUTPUT_SIZE = (746, 420)
RATE = 24


class Frames:
    """The luma of a video's frames, by time."""

    def __init__(self, path, times):
        width, height = OUTPUT_SIZE
        raw = run_to_end(["ffmpeg", "-v", "error", "-i", str(path), "-an", "-vf", "extractplanes=y", "-fps_mode",
                          "passthrough", "-f", "rawvideo", "-"], seconds=600)
        self._frames = numpy.frombuffer(raw, dtype=numpy.uint8).reshape(-1, height, width)
        self._times = numpy.array(times[:len(self._frames)])
        self.duration = self._times[-1] + 1 / RATE

    def at(self, moment):
        index = numpy.searchsorted(self._times, moment + 1e-3, side="right") - 1
        return self._frames[int(max(index, 0))]


def luma_of_picture(path):
    """A picture as the video would hold it: stretched to its size, luma of ITU-R BT.601 in video range."""
    with Image.open(path) as picture:
        rgb = numpy.asarray(picture.convert("RGB").resize(OUTPUT_SIZE, Image.Resampling.BOX
                            if picture.width > 2 * OUTPUT_SIZE[0] else Image.Resampling.BILINEAR), dtype=numpy.float32)
    return (16 + rgb @ numpy.array([65.481, 128.553, 24.966], dtype=numpy.float32) / 255).astype(numpy.float32)


def psnr(frame, picture):
    error = numpy.mean((frame.astype(numpy.float32) - picture) ** 2)
    return 99.0 if error < 1e-6 else 10 * numpy.log10(255 ** 2 / error)


def similarity(frame, picture):
    """Structural similarity (Wang et al., 2004) over windows of 8 by 8."""
    def windows(image):
        height, width = (size // 8 * 8 for size in image.shape)
        return image[:height, :width].reshape(height // 8, 8, width // 8, 8).swapaxes(1, 2).reshape(-1, 64)
    a, b = windows(frame.astype(numpy.float64)), windows(picture.astype(numpy.float64))
    mean_a, mean_b = a.mean(1), b.mean(1)
    covariance = ((a - mean_a[:, None]) * (b - mean_b[:, None])).mean(1)
    c1, c2 = (0.01 * 255) ** 2, (0.03 * 255) ** 2
    return float((((2 * mean_a * mean_b + c1) * (2 * covariance + c2))
                  / ((mean_a ** 2 + mean_b ** 2 + c1) * (a.var(1) + b.var(1) + c2))).mean())
