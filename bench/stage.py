"""What the measuring scripts share: a private display and sound server with something to record on them, the
recorder of this project and the peer, and what each costs.

The peer is ffmpeg's own screen grabber with the same codecs, region, rate and bitrate.
"""
import ctypes
import glob
import os
import re
import shutil
import signal
import subprocess
import tempfile
import time

import numpy
from PIL import Image

WIDTH, HEIGHT = 746, 420
ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
TICKS = os.sysconf("SC_CLK_TCK")
PR_SET_PDEATHSIG = 1
_libc = ctypes.CDLL(None)


def program(name):
    path = os.environ.get("QUILLORA_BENCH", os.path.join(ROOT, "build", "release", "bench"))
    return os.path.join(path, name)


def cpu_seconds(process_id):
    """User and system time of a process that runs, with those of its threads."""
    with open(f"/proc/{process_id}/stat", encoding="ascii") as stat:
        fields = stat.read().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / TICKS


class Stage:
    """The display and the sound server. Everything that was started ends with the block."""

    def __init__(self, display=os.environ.get("QUILLORA_BENCH_DISPLAY", 220), source="module-null-sink sink_name=stage"):
        self.source = source
        self.folder = tempfile.mkdtemp(prefix="quillora-bench-")
        self.display = f":{display}"
        self.processes = []
        self.environment = dict(os.environ, DISPLAY=self.display, XDG_RUNTIME_DIR=self.folder,
                                PULSE_RUNTIME_PATH=os.path.join(self.folder, "pulse"),
                                PULSE_STATE_PATH=os.path.join(self.folder, "state"),
                                PULSE_SERVER="unix:" + os.path.join(self.folder, "socket"))
        for name in ("XAUTHORITY", "WAYLAND_DISPLAY"):
            self.environment.pop(name, None)

    def __enter__(self):
        self.server = self.start(["Xvfb", self.display, "-screen", "0", "1024x768x24", "-nolisten", "tcp"])
        self.sound_server = self.start(
            ["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
             "-L", "module-native-protocol-unix auth-anonymous=1 socket=" + os.path.join(self.folder, "socket"),
             "-L", self.source.format(folder=self.folder)])
        for command in (["xdpyinfo"], ["pactl", "info"]):
            self.wait_for(command)
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            process.kill()
            process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def path(self, name):
        return os.path.join(self.folder, name)

    def start(self, command, **options):
        options.setdefault("stdout", subprocess.DEVNULL)
        # A measurement that is killed leaves nothing behind that would disturb the next one.
        process = subprocess.Popen(command, env=self.environment, stderr=subprocess.DEVNULL,
                                   preexec_fn=lambda: _libc.prctl(PR_SET_PDEATHSIG, signal.SIGKILL, 0, 0, 0), **options)
        self.processes.append(process)
        return process

    def end(self, process):
        process.kill()
        process.wait()
        self.processes.remove(process)

    def wait_for(self, command):
        for _ in range(200):
            if subprocess.run(command, env=self.environment, capture_output=True, check=False).returncode == 0:
                return
            time.sleep(0.05)
        raise RuntimeError(" ".join(command) + " gives no answer")

    def speak(self):
        """Plays speech to the default input for as long as the block lasts."""
        text = ("Good morning. Today we look at the angles of a triangle, and at the lines that meet in its corners. "
                "Please open your books on page twelve. The first figure shows what we found last week.")
        speech = self.path("speech.wav")
        subprocess.run(["espeak-ng", "-w", speech, text], check=True)
        return self.start(["sh", "-c", f"while true; do paplay --device=stage '{speech}'; done"], start_new_session=True)

    # What can be seen.

    def render(self, deck):
        """The slides of a deck as pictures of the size that is recorded, raw. Returns their paths."""
        profile = self.path("profile")
        subprocess.run(["soffice", f"-env:UserInstallation=file://{profile}", "--headless", "--convert-to", "pdf",
                        "--outdir", self.folder, deck], check=True, capture_output=True)
        document = self.path(os.path.splitext(os.path.basename(deck))[0] + ".pdf")
        subprocess.run(["pdftoppm", "-png", "-scale-to-x", str(WIDTH), "-scale-to-y", str(HEIGHT), document,
                        self.path("slide")], check=True)
        return [self.raw(Image.open(path), path) for path in sorted(glob.glob(self.path("slide*.png")))]

    def moving_picture(self):
        """Four times the recorded area of something without a flat place in it, coarse and fine at once."""
        random = numpy.random.default_rng(7)
        picture = numpy.zeros((2 * HEIGHT, 2 * WIDTH, 3))
        for cell, weight in ((4, 30), (12, 50), (48, 80), (160, 90)):
            coarse = random.random((2 * HEIGHT // cell + 2, 2 * WIDTH // cell + 2, 3)) * 255
            layer = Image.fromarray(coarse.astype("uint8")).resize((2 * WIDTH, 2 * HEIGHT), Image.BICUBIC)
            picture += numpy.asarray(layer) * (weight / 250)
        return self.raw(Image.fromarray(picture.clip(0, 255).astype("uint8")), self.path("moving"))

    @staticmethod
    def raw(picture, path):
        red, green, blue = picture.convert("RGB").split()
        with open(path + ".raw", "wb") as file:
            file.write(Image.merge("RGBA", (blue, green, red, blue)).tobytes())
        return path + ".raw"

    def show_slides(self, pictures, seconds_each, **options):
        return self.show([str(WIDTH), str(HEIGHT), "slides", str(seconds_each), *pictures], **options)

    def show_motion(self, picture, frames_per_second):
        return self.show([str(WIDTH), str(HEIGHT), "motion", str(frames_per_second), picture])

    def show(self, arguments, **options):
        process = self.start([program("show_pictures"), *arguments], **options)
        time.sleep(1)
        return process

    # Who records it.

    def ours(self, out, seconds, rate=24, options=()):
        return [program("record_screen"), out, "0", "0", str(WIDTH), str(HEIGHT), str(seconds), str(rate), *options]

    def peer(self, out, seconds, rate=24, bitrate=700):
        return ["ffmpeg", "-nostdin", "-loglevel", "error", "-y", "-f", "x11grab", "-framerate", str(rate),
                "-draw_mouse", "1", "-video_size", f"{WIDTH}x{HEIGHT}", "-i", self.display + "+0,0",
                "-f", "pulse", "-i", "default", "-c:v", "wmv2", "-b:v", f"{bitrate}k", "-c:a", "wmav2", "-b:a", "96k",
                # Without it a busy machine makes ffmpeg guess a higher rate and encode frames twice.
                "-r", str(rate), "-t", str(seconds), out]

    def cost(self, command):
        """Runs a recorder to its end. Returns its CPU time and the X server's meanwhile, in seconds, and what it
        printed."""
        display_before = cpu_seconds(self.server.pid)
        process = subprocess.Popen(command, env=self.environment, stdout=subprocess.PIPE, text=True)
        output = process.stdout.read()
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        if process.returncode != 0:
            raise RuntimeError(f"{command[0]} failed")
        return usage.ru_utime + usage.ru_stime, cpu_seconds(self.server.pid) - display_before, output

    def display_cost(self, seconds):
        """The X server's CPU time while nobody records."""
        before = cpu_seconds(self.server.pid)
        time.sleep(seconds)
        return cpu_seconds(self.server.pid) - before


def video_kilobits_per_second(path, seconds):
    sizes = subprocess.run(["ffprobe", "-v", "error", "-select_streams", "v", "-show_entries", "packet=size", "-of",
                            "csv=p=0", path], check=True, capture_output=True, text=True).stdout.split()
    return sum(int(re.sub(r"\D", "", size)) for size in sizes) * 8 / 1000 / seconds


def frame_times(path):
    times = subprocess.run(["ffprobe", "-v", "error", "-select_streams", "v", "-show_entries", "packet=pts_time",
                            "-of", "csv=p=0", path], check=True, capture_output=True, text=True).stdout.split()
    return [float(time_text.strip(",")) for time_text in times]


def luma_frames(path):
    """Each decoded frame's luma, one after the other."""
    decoder = subprocess.Popen(["ffmpeg", "-nostdin", "-loglevel", "error", "-i", path, "-map", "0:v", "-vsync",
                                "passthrough", "-f", "rawvideo", "-pix_fmt", "yuv420p", "-"], stdout=subprocess.PIPE)
    size = WIDTH * HEIGHT
    chroma = 2 * ((WIDTH + 1) // 2) * ((HEIGHT + 1) // 2)
    while len(data := decoder.stdout.read(size + chroma)) == size + chroma:
        yield numpy.frombuffer(data[:size], "uint8").reshape(HEIGHT, WIDTH)
    decoder.wait()


def luma_of_raw(path, width=WIDTH, height=HEIGHT):
    """Luma of a raw picture as ffmpeg converts it."""
    data = subprocess.run(["ffmpeg", "-nostdin", "-loglevel", "error", "-f", "rawvideo", "-pix_fmt", "bgr0",
                           "-video_size", f"{width}x{height}", "-i", path, "-f", "rawvideo", "-pix_fmt", "yuv420p",
                           "-"], check=True, capture_output=True).stdout
    return numpy.frombuffer(data[:width * height], "uint8").reshape(height, width)


def psnr(one, other):
    error = numpy.mean((one.astype(float) - other.astype(float)) ** 2)
    return 100.0 if error == 0 else 10 * numpy.log10(255 ** 2 / error)
