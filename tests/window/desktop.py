"""A desktop of the test's own: a virtual screen, a D-Bus session, a window manager and the folders of a user.

Everything in it is a child of the test, including what D-Bus starts, and ends when the desktop is closed."""

import ctypes
import os
import shutil
import signal
import subprocess
import tempfile
from pathlib import Path

import waiting
from waiting import wait_until

SCREEN = "1600x1000x24"

PR_SET_PDEATHSIG = 1
PR_SET_CHILD_SUBREAPER = 36
_libc = ctypes.CDLL(None)


def die_with_the_test():
    """Runs in a new child, so that it ends with a test that is killed."""
    _libc.prctl(PR_SET_PDEATHSIG, signal.SIGTERM)


def start(arguments, **options):
    """Starts a child that does not outlive the test."""
    options.setdefault("stdin", subprocess.DEVNULL)
    return subprocess.Popen(arguments, preexec_fn=die_with_the_test, **options)


def end(process):
    """Ends a child that was started here, unless it has already ended."""
    if process.poll() is None:
        process.terminate()
        try:
            process.wait(timeout=20)
        except subprocess.TimeoutExpired:
            process.kill()
    return process.wait()


class Desktop:
    """Sets up the desktop, also in this process's own environment, and shuts it down again."""

    def __init__(self):
        self.folder = None
        self._parts = []
        self._log = None

    def __enter__(self):
        _libc.prctl(PR_SET_CHILD_SUBREAPER, 1)  # so that what D-Bus starts can be waited for
        self.folder = Path(tempfile.mkdtemp(prefix="quorvel-"))
        try:
            self._log = open(self.folder / "desktop.log", "wb")
            self._choose_environment()
            os.environ["DISPLAY"] = self._start_screen()
            os.environ["DBUS_SESSION_BUS_ADDRESS"] = self._start_session_bus()
            self._start_window_manager()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        waiting.unwatch_all()  # an interrupted test does not end its program
        for part in reversed(self._parts):
            end(part)
        try:
            wait_until(self._all_children_ended, "the children of D-Bus had ended", 20)
        except AssertionError:
            for child in children():
                os.kill(child, signal.SIGKILL)
            raise
        finally:
            self._log.close()
            shutil.rmtree(self.folder, ignore_errors=True)

    def _choose_environment(self):
        """Nothing of the user's own desktop, settings, or language; accessibility is on from the start."""
        for name in list(os.environ):
            if name.startswith(("QT_", "LC_", "XDG_", "DBUS_", "AT_SPI", "GTK_")):
                del os.environ[name]
        for name in ["WAYLAND_DISPLAY", "XAUTHORITY", "DESKTOP_SESSION", "SESSION_MANAGER", "LANGUAGE", "LOCPATH",
                     "NO_AT_BRIDGE"]:
            os.environ.pop(name, None)
        for name, variable in [("home", "HOME"), ("run", "XDG_RUNTIME_DIR"), ("config", "XDG_CONFIG_HOME"),
                               ("data", "XDG_DATA_HOME"), ("cache", "XDG_CACHE_HOME")]:
            (self.folder / name).mkdir(mode=0o700)
            os.environ[variable] = str(self.folder / name)
        os.environ.update({"LANG": "C.UTF-8", "QT_QPA_PLATFORM": "xcb", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"})

    def _start_screen(self):
        reading, writing = os.pipe()
        self._start(["Xvfb", "-displayfd", str(writing), "-screen", "0", SCREEN, "-nolisten", "tcp", "-noreset"],
                    pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as pipe:
            number = pipe.readline().strip()
        assert number, "Xvfb did not start: " + self._said()
        return ":" + number

    def _start_session_bus(self):
        bus = self._start(["dbus-daemon", "--session", "--nofork", "--print-address=1"], stdout=subprocess.PIPE,
                          text=True)
        address = bus.stdout.readline().strip()
        assert address, "dbus-daemon did not start: " + self._said()
        return address

    def _start_window_manager(self):
        ready = self.folder / "window-manager-ready"
        self._start(["openbox", "--sm-disable", "--startup", f"touch {ready}"])
        wait_until(ready.exists, "the window manager was ready")

    def _start(self, arguments, **options):
        options.setdefault("stdout", self._log)
        self._parts.append(start(arguments, stderr=self._log, **options))
        return self._parts[-1]

    def _said(self):
        return (self.folder / "desktop.log").read_text(errors="replace")

    def _all_children_ended(self):
        for child in children():
            try:
                os.waitpid(child, os.WNOHANG)
            except ChildProcessError:
                pass
        return not children()


def children():
    """Processes that this one started or that were left to it."""
    found = []
    for entry in Path("/proc").iterdir():
        if not entry.name.isdigit():
            continue
        try:
            fields = (entry / "stat").read_text(errors="replace").rpartition(")")[2].split()
        except OSError:
            continue  # has ended since
        if int(fields[1]) == os.getpid():
            found.append(int(entry.name))
    return found
