"""A desktop of its own for one lecture: display, window manager, session bus, sound server, folders."""
import os
import pathlib
import shutil
import socket
import tempfile

from processes import Failure, ProcessFamily, run_to_end, wait_until
from speech import make_speech


class Desktop:
    """Everything that a recorder meets on a presenter's machine, private and ended with the context.

    `width` and `height` are the display's; `window_manager` and `sound` tell whether there is one. Nothing of the
    person's own session is read or written: home, configuration, run-time folder and Workspace lie in a temporary
    folder, the Workspace under a name with a blank in it.
    """

    def __init__(self, width=1280, height=800, window_manager=True, sound=True):
        self._size = (width, height)
        self._window_manager = window_manager
        self._sound = sound
        self._folder = None
        self._family = None
        self._display = None
        self.environment = {}
        self.speech = None

    def __enter__(self):
        self._folder = pathlib.Path(tempfile.mkdtemp(prefix="lecture-hall-"))
        try:
            self._make_environment()
            self._family = ProcessFamily(self.environment).__enter__()
            self._start_display()
            self._start_bus()
            if self._sound:
                self._start_sound()
            if self._window_manager:
                self._start_window_manager()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        if self._family:
            self._family.__exit__()
        shutil.rmtree(self._folder, ignore_errors=True)

    @property
    def folder(self):
        """Scratch folder, gone with the desktop."""
        return self._folder

    @property
    def workspace(self):
        """Where the recorder keeps what it works on."""
        return self._folder / "application data" / "Quillora"

    def start(self, arguments, name):
        """Starts a program on this desktop; what it prints goes to log(name)."""
        return self._family.start(arguments, self.log(name))

    def end(self, process):
        self._family.end(process)

    def end_display(self):
        """The display dies, as in a crash of its server."""
        self.end(self._display)

    def log(self, name):
        return self._folder / f"{name}.log"

    def picture(self, path, area=None):
        """Takes a picture of the display, or of the area (left, top, width, height) of it."""
        left, top, width, height = area or (0, 0, *self._size)
        run_to_end(["ffmpeg", "-v", "error", "-y", "-f", "x11grab", "-draw_mouse", "0",
                    "-video_size", f"{width}x{height}", "-i", f"{self.environment['DISPLAY']}+{left},{top}",
                    "-frames:v", "1", "-update", "1", str(path)], env=self.environment)

    def _make_environment(self):
        kept = ("PATH", "LANG", "LC_ALL", "TZ", "ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS")
        self.environment.update({name: os.environ[name] for name in kept if name in os.environ})
        self.environment.setdefault("LANG", "C.UTF-8")
        for name, folder in (("HOME", "home"), ("APPDATA", "application data"), ("LOCALAPPDATA", "local data"),
                             ("XDG_CONFIG_HOME", "config"), ("XDG_CACHE_HOME", "cache"),
                             ("XDG_DATA_HOME", "data"), ("XDG_RUNTIME_DIR", "run"), ("TMPDIR", "tmp")):
            (self._folder / folder).mkdir(mode=0o700)
            self.environment[name] = str(self._folder / folder)
        # The window is driven through its accessible names, as a screen reader would.
        self.environment.update(QT_ACCESSIBILITY="1", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")

    def _start_display(self):
        # Far from the numbers of real displays; the server's own lock settles who gets one.
        first = 20000 + os.getpid() % 20000
        for number in range(first, first + 10):
            socket_path = pathlib.Path(f"/tmp/.X11-unix/X{number}")
            if socket_path.exists():
                continue
            width, height = self._size
            server = self._family.start(["Xvfb", f":{number}", "-screen", "0", f"{width}x{height}x24",
                                         "-nolisten", "tcp", "-noreset"], self.log("display"))
            wait_until(lambda: server.poll() is not None or _listens(socket_path), 20, "the display")
            if server.poll() is None:
                self.environment["DISPLAY"] = f":{number}"
                self._display = server
                return
        raise Failure("no private display comes up: " + self.log("display").read_text(errors="replace")[-400:])

    def _start_bus(self):
        address = f"unix:path={self._folder}/run/bus"
        self._family.start(["dbus-daemon", "--session", "--nofork", f"--address={address}"], self.log("bus"))
        wait_until(lambda: _listens(self._folder / "run" / "bus"), 20, "the session bus")
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = address
        # Asking for it starts the accessibility bus; a client that came before it was up would abort.
        run_to_end(["dbus-send", "--session", "--print-reply=literal", "--dest=org.a11y.Bus",
                    "/org/a11y/bus", "org.a11y.Bus.GetAddress"], seconds=30, env=self.environment)

    def _start_sound(self):
        self.speech = self._folder / "speech.wav"
        make_speech(self.speech)
        native = self._folder / "run" / "sound"
        self.environment.update(PULSE_SERVER=f"unix:{native}", PULSE_RUNTIME_PATH=str(self._folder / "run"),
                                PULSE_STATE_PATH=str(self._folder / "run"),
                                PULSE_COOKIE=str(self._folder / "run" / "cookie"))
        # The microphone is what a loudspeaker in an empty room would give it.
        self._family.start(
            ["pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1", "--system=no",
             "--high-priority=no", "--realtime=no",
             "-L", "module-null-sink sink_name=lecturer rate=48000",
             "-L", "module-null-sink sink_name=loudspeaker rate=48000",
             "-L", f"module-native-protocol-unix auth-anonymous=1 socket={native}"], self.log("sound"))
        wait_until(lambda: _listens(native), 20, "the sound server")
        self.control_sound("set-default-sink", "loudspeaker")
        self.control_sound("set-default-source", "lecturer.monitor")
        # Over and over without a gap, which playing the file again and again would leave.
        self._family.start(
            ["/bin/sh", "-c", 'sox "$1" -t raw -r 48000 -c 2 -e signed -b 16 - repeat - | '
             'pacat --device=lecturer --rate=48000 --channels=2 --format=s16le --latency-msec=2000', "sh",
             str(self.speech)], self.log("lecturer"))

    def control_sound(self, *arguments):
        return run_to_end(["pactl", *arguments], seconds=20, env=self.environment)

    def _start_window_manager(self):
        self._family.start(["openbox", "--sm-disable"], self.log("window_manager"))
        wait_until(lambda: b"window id #" in run_to_end(
            ["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], seconds=20, env=self.environment), 20,
            "the window manager")


def _listens(path):
    with socket.socket(socket.AF_UNIX) as probe:
        return probe.connect_ex(str(path)) == 0
