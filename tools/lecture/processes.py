"""Programs that a lecture needs, started so that none outlives it."""
import ctypes
import os
import signal
import subprocess
import time

PR_SET_PDEATHSIG = 1
PR_SET_CHILD_SUBREAPER = 36

_libc = ctypes.CDLL(None, use_errno=True)


class Failure(Exception):
    """Something is not as it has to be; the text says what, for the person who reads the verdict."""


def wait_until(probe, seconds, what):
    """Asks `probe` until it gives something true, and gives that. Fails after `seconds`."""
    deadline = time.monotonic() + seconds
    while True:
        answer = probe()
        if answer:
            return answer
        if time.monotonic() > deadline:
            raise Failure(f"waited {seconds:g} s in vain for {what}")
        time.sleep(0.05)


def run_to_end(arguments, seconds=120, **options):
    """Runs a program, gives what it printed; fails when it fails or takes too long."""
    try:
        done = subprocess.run(arguments, stdin=subprocess.DEVNULL, capture_output=True, timeout=seconds,
                              check=False, **options)
    except subprocess.TimeoutExpired:
        raise Failure(f"{arguments[0]} did not end within {seconds} s") from None
    if done.returncode != 0:
        raise Failure(f"{arguments[0]} failed: {done.stderr.decode(errors='replace').strip()[-600:]}")
    return done.stdout


class ProcessFamily:
    """All programs of one lecture. Leaving the context ends them and whatever they started.

    Orphans (the accessibility bus is one, an office program's worker may be another) come back to this process as
    their reaper, so that they are found even when their parent is gone. If this process itself is killed, the
    kernel ends the direct children.
    """

    def __init__(self, environment):
        self.environment = environment
        self._started = []

    def __enter__(self):
        _libc.prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)
        return self

    def __exit__(self, *_):
        # The last started first: the program before its display and its sound server.
        for process in reversed(self._started):
            self.end(process)
        for pid in descendants(os.getpid()):
            _signal(pid, signal.SIGKILL)
        while _reap_one():
            pass

    def start(self, arguments, log, pass_fds=()):
        """Starts a program with its output in the file `log`."""
        def in_child():
            _libc.prctl(PR_SET_PDEATHSIG, signal.SIGKILL, 0, 0, 0)
        with open(log, "ab") as output:
            try:
                process = subprocess.Popen(  # pylint: disable=consider-using-with
                    arguments, env=self.environment, stdin=subprocess.DEVNULL, stdout=output, stderr=output,
                    start_new_session=True, preexec_fn=in_child, pass_fds=pass_fds)
            except OSError as error:
                raise Failure(f"{arguments[0]} cannot be started: {error.strerror}") from None
        self._started.append(process)
        return process

    def end(self, process, seconds=5):
        """Ends a program, kindly at first."""
        if process.poll() is None:
            process.terminate()
            try:
                process.wait(seconds)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()


def descendants(pid):
    """Process ids of all that `pid` started, directly or not, and that have not ended."""
    children = {}
    for entry in os.listdir("/proc"):
        if entry.isdigit():
            try:
                with open(f"/proc/{entry}/stat", encoding="utf-8", errors="replace") as stat:
                    state, parent = stat.read().rsplit(")", 1)[1].split()[:2]
            except OSError:
                continue  # ended meanwhile
            if state != "Z":
                children.setdefault(int(parent), []).append(int(entry))
    found, waiting = [], [pid]
    while waiting:
        for child in children.get(waiting.pop(), []):
            found.append(child)
            waiting.append(child)
    return found


def _signal(pid, number):
    try:
        os.kill(pid, number)
    except ProcessLookupError:
        pass


def _reap_one():
    try:
        os.waitpid(-1, 0)
        return True
    except ChildProcessError:
        return False
