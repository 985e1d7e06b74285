"""The desktop program as its user meets it: windows, menus, file dialogs, the table and the chart pages."""

import os
import subprocess

import desktop
import waiting
from accessible import find_program
from waiting import wait_until

WINDOW = os.environ["QUORVEL_WINDOW"]
SUMMARY = "Summary"
TABLE = "Summary of the comparison"
FIXED_COLUMNS = 16  # of the table, in front; the columns that the command line's results hold, too


class Program:
    """A running program with its own settings and home folder."""

    def __init__(self, folder, *arguments, environment=None):
        """Starts in `folder`; `environment` changes this process's own."""
        home = folder / "home"
        home.mkdir(exist_ok=True)
        self.settings_folder = folder / "settings"
        self._complaints = folder / "complaints.txt"
        settings = {**os.environ, "HOME": str(home), "XDG_CONFIG_HOME": str(self.settings_folder),
                    **(environment or {})}
        with open(self._complaints, "wb") as complaints:
            self._process = desktop.start([WINDOW, *arguments], cwd=folder, env=settings, stdout=complaints,
                                          stderr=complaints)
        waiting.watch(self._process)
        self._tree = wait_until(lambda: find_program(self._process.pid), "the program could be reached")
        self.window = self._window("Quorvel")

    def end(self):
        """For the end of a test: ends a program that still runs and reports its output."""
        waiting.unwatch(self._process)
        status = desktop.end(self._process)
        said = self._complaints.read_text(errors="replace")
        if status != 0 and said:
            print(f"The program ended with status {status} and said:\n{said}")

    def end_status(self):
        """Waits for the end of the program."""
        waiting.unwatch(self._process)
        wait_until(lambda: self._process.poll() is not None, "the program had ended")
        return self._process.returncode

    # Windows and keys.

    def window_names(self):
        return [node.name for node in self._tree.children if node.has("showing")]

    def _window(self, name):
        def find():
            return next((node for node in self._tree.children if node.name == name and node.has("showing")), None)
        return wait_until(find, f"the window {name} was open")

    def dialog(self, title):
        return self._window(title)

    def wait_closed(self, title):
        wait_until(lambda: title not in self.window_names(), f"the window {title} was closed")

    def close(self, title, button):
        """Closes a dialog by one of its buttons."""
        self.dialog(title).get("push button", button).act()
        self.wait_closed(title)

    def answer_message(self, text):
        """Checks that a message box says exactly this, and presses OK."""
        box = self.dialog("Error")
        said = [label.name for label in box.walk() if label.role == "label" and label.name]
        assert said == [text], said
        self.close("Error", "OK")

    def keys(self, window, *keys):
        """Presses keys in a window, one after another."""
        wait_until(lambda: window.has("active"), f"{window!r} was the active window")
        press_keys(*keys)

    # Menus.

    def entry(self, *path):
        """A menu entry, by the texts from the menu bar down."""
        node = self.window.get("menu bar")
        for text in path:
            if node.role != "menu bar":
                node = node.children[0]
            node = next((child for child in node.children if child.name == text), None)
            assert node is not None, f"There is no menu entry {' > '.join(path)}"
        return node

    def choose(self, *path):
        self.entry(*path).act()

    def is_enabled(self, *path):
        return self.entry(*path).has("enabled")

    def recent_files(self):
        return [entry.name for entry in self.entry("File", "Recent File").children[0].children]

    # File dialogs.

    def pick(self, title, *paths, button="Open"):
        """Types paths into the file dialog of this title and closes it."""
        name = self.dialog(title).get("text", "File name:")
        # Until it has the focus, the toolkit strips the folder from a path to an existing file.
        name.take_focus()
        name.set_text(" ".join(f'"{path}"' for path in paths) if len(paths) > 1 else str(paths[0]))
        self.close(title, button)

    def save(self, title, path):
        self.pick(title, path, button="Save")

    # What the main window shows.

    @property
    def status(self):
        return next(node.name for node in self.window.get("status bar").children if node.role == "label")

    def wait_status(self, text):
        wait_until(lambda: self.status == text, f"the status bar said: {text}")

    def table(self):
        return self.window.shown("table", TABLE)

    def cells(self):
        """The accessible texts of the table's fixed columns, row by row."""
        table = self.table()
        return [[table.cell(row, column).name for column in range(FIXED_COLUMNS)] for row in range(table.size[0])]

    def chart(self):
        return self.window.shown("filler", "Chart")

    def is_table_shown(self):
        return self.window.get("table", TABLE).has("showing")

    def is_chart_shown(self):
        chart = self.window.find("filler", "Chart")
        return chart is not None and chart.has("showing")

    def point_at_chart(self):
        """Moves the pointer over the chart and returns what the status bar says about the point."""
        x, y = self.chart().center
        move_pointer((x, y))
        move_pointer((x + 5, y + 5))
        wait_until(lambda: self.readout().startswith("X: "), "the status bar told the place of the pointer")
        return self.readout()

    def readout(self):
        return next(node.name for node in self.window.get("status bar").children
                    if node.description == "Point under the pointer")

    # Pages.

    def page_selector(self):
        """On this platform a drop-down has the name of its entry; it is found by its label."""
        return self.window.labeled_by("Plot Type:")

    def pages(self):
        return [item.name for item in self.page_selector().get("list").children]

    def page(self):
        return self.page_selector().name

    def choose_page(self, name):
        """Moves from page to page, as with the arrow keys, until the page of this name is shown."""
        selector = self.page_selector()
        if not selector.has("focused"):
            self.keys(self.window, "alt+y")
            wait_until(lambda: selector.has("focused"), "the page selector had the focus")
        pages = self.pages()
        here, there = pages.index(selector.name), pages.index(name)
        step = 1 if there > here else -1
        for place in range(here + step, there + step, step):
            self.keys(self.window, "Down" if step > 0 else "Up")
            wait_until(lambda: selector.name == pages[place], f"the page {pages[place]} was selected")
        wait_until(lambda: self.is_table_shown() == (name == SUMMARY) and self.is_chart_shown() == (name != SUMMARY),
                   f"the page {name} was shown")


def press_keys(*keys):
    subprocess.run(["xdotool", "key", *keys], check=True, timeout=waiting.PATIENCE_S)


def move_pointer(place):
    subprocess.run(["xdotool", "mousemove", *map(str, place)], check=True, timeout=waiting.PATIENCE_S)


def click(place, button):
    """1 is the left button, 3 the right one."""
    subprocess.run(["xdotool", "mousemove", *map(str, place), "click", str(button)], check=True,
                   timeout=waiting.PATIENCE_S)


def clipboard(target):
    """What a program that pastes gets: the bytes of this form."""
    run = subprocess.run(["xclip", "-selection", "clipboard", "-t", target, "-o"], capture_output=True, check=False,
                         timeout=waiting.PATIENCE_S)
    assert run.returncode == 0, f"xclip cannot paste {target}: {run.stderr.decode(errors='replace')}"
    return run.stdout
