"""An operator's desk: a screen, a session with its accessibility bus, a network, a database, the workstation.

Everything is the desk's own and lies in a temporary folder, so that it starts on a machine where nothing runs,
beside others of its kind, and for root as well.
"""

import os
import shutil
import signal
import subprocess
import tempfile
from pathlib import Path

LIMIT = 120
SCREEN = "1400x1050x24"


class Desk:
    """Use as a context: what it started ends with it."""

    def __init__(self, programs):
        self.programs = Path(programs)
        self.folder = Path(tempfile.mkdtemp(prefix="zelka-desk-"))
        self.processes = []
        self.workstation = None

    def __enter__(self):
        try:
            self.make_environment()
            self.start_screen()
            self.start_session()
            self.start_network()
            self.run("zelka", "db", "init", "--demo")
            self.start("workstation", self.programs / "zelka-workstation")
            self.workstation = self.processes[-1]
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            process.terminate()
            try:
                process.wait(LIMIT / 4)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        # The accessibility bus outlives the session that started it, in a group of its own.
        if hasattr(self, "session"):
            try:
                os.killpg(self.session.pid, signal.SIGKILL)
            except ProcessLookupError:
                pass
        shutil.rmtree(self.folder, ignore_errors=True)

    def make_environment(self):
        for name in ("WAYLAND_DISPLAY", "DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "AT_SPI_BUS_ADDRESS",
                     "QT_QPA_PLATFORM", "QT_QPA_PLATFORMTHEME", "QT_STYLE_OVERRIDE", "ZELKA_GATEWAY"):
            os.environ.pop(name, None)
        for name in ("runtime", "home", "screen"):
            (self.folder / name).mkdir(mode=0o700)
        home = str(self.folder / "home")
        os.environ.update(HOME=home, XDG_CONFIG_HOME=home, XDG_DATA_HOME=home, XDG_CACHE_HOME=home,
                          XDG_RUNTIME_DIR=str(self.folder / "runtime"), LC_ALL="C.UTF-8", LANGUAGE="en",
                          QT_QPA_PLATFORM="xcb", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_ACCESSIBILITY="1",
                          ZELKA_DBS32=str(self.folder / "desk.mdb"))

    def start(self, name, *command, **options):
        """Starts a program whose output goes into a file of that name."""
        with open(self.log(name), "wb") as log:
            options = {"stdout": log, "stderr": log, "stdin": subprocess.DEVNULL, **options}
            process = subprocess.Popen([str(part) for part in command], **options)
        self.processes.append(process)
        return process

    def log(self, name):
        return self.folder / (name + ".log")

    def first_line(self, process, what):
        line = process.stdout.readline().decode().strip()
        if not line:
            raise RuntimeError(f"{what} did not start: {process.wait()}")
        return line

    def start_screen(self):
        """An X server on the first display that is free, and a window manager."""
        with open(self.log("screen"), "wb") as log:
            server = self.start("screen", "Xvfb", "-displayfd", "1", "-screen", "0", SCREEN, "-nolisten", "tcp",
                                "-fbdir", self.folder / "screen", stdout=subprocess.PIPE, stderr=log)
        os.environ["DISPLAY"] = ":" + self.first_line(server, "The X server")
        self.start("manager", "openbox", "--sm-disable")

    def start_session(self):
        with open(self.log("session"), "wb") as log:
            self.session = self.start("session", "dbus-daemon", "--session", "--nofork", "--print-address=1",
                                      stdout=subprocess.PIPE, stderr=log, start_new_session=True)
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self.first_line(self.session, "The session bus")

    def start_network(self):
        """The simulated network on a free port, which becomes the workstation's gateway."""
        with open(self.log("network"), "wb") as log:
            network = self.start("network", self.programs / "zelka-netsim", "serve", "--listen", "127.0.0.1:0",
                                 "--quiet", stdout=subprocess.PIPE, stderr=log)
        os.environ["ZELKA_GATEWAY"] = self.first_line(network, "The network").removeprefix("listening on ")

    def run(self, program, *arguments):
        """What a command line program answers on standard output; an error when it fails."""
        done = subprocess.run([str(self.programs / program), *arguments], capture_output=True, text=True,
                              timeout=LIMIT, check=False)
        if done.returncode != 0:
            raise AssertionError(f"{program} {' '.join(arguments)} answers {done.returncode}: {done.stderr}")
        return done.stdout

    def wait_left(self):
        """The workstation has ended by itself, and well."""
        code = self.workstation.wait(LIMIT)
        if code != 0:
            raise AssertionError(f"The workstation ends with {code}")

    def picture(self, file):
        """Writes what the screen shows as a PNG file."""
        import picture
        picture.write_png(self.folder / "screen" / "Xvfb_screen0", file)
