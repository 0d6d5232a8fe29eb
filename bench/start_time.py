#!/usr/bin/python3
"""bench/start_time.py PROGRAM [ROUNDS]: from process start to a window with something in it, beside two peers.

Each round starts the recorder, vokoscreenNG and SimpleScreenRecorder once, in turn, on one private display with a
window manager, each with a home of its own that it has seen before. A window counts when it is mapped and its
pixels show more than a plain ground. Then the recorder's resident memory three seconds after its start, before any
web page was shown. Prints the medians and the ratios, and exits with 1 when a limit is missed.
"""
import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

PEERS = (("vokoscreenNG", ["vokoscreenNG"]), ("SimpleScreenRecorder", ["simplescreenrecorder"]))
MAXIMUM_SECONDS = 0.8
MAXIMUM_MEGABYTES = 150
PATIENCE_SECONDS = 30


def output_of(command, environment):
    return subprocess.run(command, env=environment, capture_output=True, check=False).stdout


def windows(environment):
    """The windows that the window manager has under its care."""
    text = output_of(["xprop", "-root", "_NET_CLIENT_LIST"], environment).decode()
    return {word.strip(",") for word in text.split() if word.startswith("0x")}


def shows_something(window, environment):
    picture = output_of(["xwd", "-silent", "-id", window], environment)
    return len(set(picture[i:i + 4] for i in range(4096, len(picture) - 4, 404))) > 8


def start(command, environment):
    """Seconds until the window shows something, and the process."""
    before = windows(environment)
    began = time.monotonic()
    process = subprocess.Popen(command, env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    while time.monotonic() - began < PATIENCE_SECONDS:
        for window in windows(environment) - before:
            if shows_something(window, environment):
                return time.monotonic() - began, process
        if process.poll() is not None:
            break
    process.kill()
    raise RuntimeError(f"{command[0]} showed no window")


def resident_megabytes(process):
    for line in pathlib.Path(f"/proc/{process.pid}/status").read_text().splitlines():
        if line.startswith("VmRSS"):
            return int(line.split()[1]) / 1024
    return 0.0


def end(process, environment, before):
    process.terminate()
    process.wait()
    while windows(environment) - before:
        time.sleep(0.05)


def measure(programs, rounds, environment, folder):
    seconds = {name: [] for name, _ in programs}
    megabytes = []
    for turn in range(rounds + 1):
        for name, command in programs:
            home = pathlib.Path(folder) / name
            home.mkdir(exist_ok=True)
            own = dict(environment, HOME=str(home), XDG_RUNTIME_DIR=str(home), APPDATA=str(home),
                       LOCALAPPDATA=str(home))
            before = windows(environment)
            took, process = start(command, own)
            if name == "recorder":
                time.sleep(max(0.0, 3 - took))
                megabytes.append(resident_megabytes(process))
            end(process, environment, before)
            # The first round only warms the caches up.
            if turn > 0:
                seconds[name].append(took)
    return seconds, megabytes


def main():
    program = os.path.abspath(sys.argv[1])
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 10
    read_end, write_end = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(write_end), "-screen", "0", "1366x768x24", "-nolisten", "tcp"],
                              pass_fds=[write_end], stderr=subprocess.DEVNULL)
    os.close(write_end)
    number = os.read(read_end, 16).decode().strip()
    environment = dict(os.environ, DISPLAY=f":{number}", QT_QPA_PLATFORM="xcb")
    manager = subprocess.Popen(["openbox"], env=environment, stderr=subprocess.DEVNULL)
    time.sleep(1)
    try:
        with tempfile.TemporaryDirectory() as folder:
            seconds, megabytes = measure((("recorder", [program]), *PEERS), rounds, environment, folder)
    finally:
        manager.terminate()
        server.terminate()
    own = statistics.median(seconds["recorder"])
    print(f"start: recorder {own:.2f} s (wanted: at most {MAXIMUM_SECONDS})")
    kept = own <= MAXIMUM_SECONDS
    for name, _ in PEERS:
        peer = statistics.median(seconds[name])
        print(f"start: {name} {peer:.2f} s, ratio {own / peer:.2f} (wanted: below 1)")
        kept = kept and own < peer
    most = max(megabytes)
    print(f"memory: {most:.0f} MB resident (wanted: at most {MAXIMUM_MEGABYTES})")
    return 0 if kept and most <= MAXIMUM_MEGABYTES else 1


if __name__ == "__main__":
    sys.exit(main())
