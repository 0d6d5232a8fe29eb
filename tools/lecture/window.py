"""The recorder's window, driven from outside: found by accessible names, pressed by a real pointer and keyboard."""
import os

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402  pylint: disable=wrong-import-position

from processes import Failure, run_to_end, wait_until  # noqa: E402  pylint: disable=wrong-import-position

DIALOG_ROLES = ("dialog", "alert", "file chooser")
BUTTON_ROLES = ("push button", "button")
FILE_NAME_FIELD = "File name:"


class Window:
    """The windows of one recorder. Waits have limits; what does not come is a Failure that names it."""

    def __init__(self, desktop, process):
        self._desktop = desktop
        self._process = process
        self._application = None
        self._known = {}

    def appear(self, seconds=60):
        """Waits for the main window."""
        def main_window():
            if self._process.poll() is not None:
                raise Failure(f"the recorder ended at its start ({self._process.returncode}): {self.output()}")
            return self._find_application() and self._top_windows()
        wait_until(main_window, seconds, "the recorder's window")

    def output(self):
        """The end of what the program printed."""
        return self._desktop.log("recorder").read_text(errors="replace")[-800:]

    def running(self):
        return self._process.poll() is None

    def press(self, name, roles=None, within=None, below=None):
        """Clicks the control of that accessible name with the pointer; `below` names what it is part of."""
        def pressed():
            root = self.find(below) if below else within
            return self.find(name, roles, root) if root or not below else None
        self._click(wait_until(pressed, 20, f'the control "{name}"'))

    def click(self, control):
        """Clicks a control that was found, with the pointer."""
        self._click(control)

    def find_anywhere(self, name, within):
        """The control of that accessible name under another one, in view or not."""
        root = self.find(within)
        return next((control for control in self._walk(root) if _ask(control.get_name) == name), None) if root else None

    def in_view(self, control, within):
        """Whether the whole of a control shows inside the control of that name."""
        left, top, width, height = self.area(control)
        outer = self.area(self.find(within))
        return (_is_showing(control) and left >= outer[0] and top >= outer[1]
                and left + width <= outer[0] + outer[2] and top + height <= outer[1] + outer[3])

    def do_action(self, control):
        """Does what a control does first when it is asked over the accessibility bus."""
        _ask(lambda: Atspi.Action.do_action(control, 0))

    def shows(self, name):
        """Whether a control of that name can be seen."""
        return self.find(name) is not None

    def find(self, name, roles=None, within=None):
        """The control of that accessible name that can be seen, or None."""
        def is_it(control):
            return _ask(control.get_name) == name and (roles is None or _role(control) in roles)
        return self._remembered((name, roles), is_it, within)

    def status(self, subject):
        """What the panel of the status bar about that subject shows; None while the program is too busy to say."""
        def is_it(control):
            return _role(control) == "label" and _ask(control.get_description) == subject
        panel = self._remembered(("status", subject), is_it, None)
        return _ask(panel.get_name) if panel else None

    def _remembered(self, key, is_it, within):
        """The first control that `is_it`; where it was found before, without a look at all the others."""
        known = self._known.get(key)
        if known and within is None and _is_showing(known) and is_it(known):
            return known
        found = next((control for control in self._showing(within) if is_it(control)), None)
        if found and within is None:
            self._known[key] = found
        return found

    def main_window(self):
        """The one top window that is no dialog."""
        for window in self._top_windows():
            if _role(window) not in DIALOG_ROLES:
                return window
        raise Failure("the recorder shows no main window")

    def dialog(self):
        """The dialog on top, or None."""
        for window in self._top_windows():
            if _role(window) in DIALOG_ROLES:
                return window
        return None

    def expect_file_dialog(self, title, seconds=30):
        return wait_until(lambda: self._dialog_with(lambda dialog: _ask(dialog.get_name) == title
                                                    and self._file_name_field(dialog) is not None),
                          seconds, f'the dialog "{title}"')

    def expect_box(self, text, seconds=30):
        """Waits for the message box with that text."""
        return wait_until(lambda: self._dialog_with(lambda dialog: text in self.box_text(dialog)), seconds,
                          f'the box "{text}"')

    def box_text(self, dialog):
        """What a message box says, its lines joined by blanks."""
        words = [_ask(control.get_name) for control in self._showing(dialog) if _role(control) == "label"]
        return " ".join(" ".join(words).split())

    def enter_file_name(self, dialog, path):
        """Writes a path into a file dialog: with the keyboard where its letters are on one, else as a paste."""
        field = self._file_name_field(dialog)
        self._click(field)
        if path.isascii() and len(path) < 120:
            self.keys("ctrl+a")
            self._xdotool("type", "--delay", "4", "--", path)
        else:
            Atspi.EditableText.set_text_contents(field, path)
        wait_until(lambda: self._text(field) == path, 20, f'"{path}" in the file dialog (it shows '
                   f'"{self._text(field)}")')

    def choose_filter(self, dialog, label):
        """Chooses the file type whose label contains `label`."""
        boxes = [control for control in self._showing(dialog) if _role(control) == "combo box"]
        for box in boxes:
            items = [item for item in self._walk(box) if _role(item) in ("list item", "menu item")]
            for index, item in enumerate(items):
                if label in (_ask(item.get_name) or ""):
                    self._click(box)
                    self.keys("Home", *["Down"] * index, "Return")
                    wait_until(lambda box=box: label in (_ask(box.get_name) or ""), 10,
                               f'the file type "{label}"')
                    return
        raise Failure(f'the dialog has no file type "{label}"')

    def keys(self, *names):
        self._xdotool("key", "--delay", "20", *names)

    def value_of(self, name):
        """Where the slider of that name stands; None where there is none."""
        control = self.find(name, roles=("slider",))
        return _ask(lambda: Atspi.Value.get_current_value(control)) if control else None

    def point_at(self, x, y):
        self._xdotool("mousemove", str(x), str(y))

    def type(self, words):
        self._xdotool("type", "--delay", "12", "--", words)

    def click_at(self, x, y):
        """A left click at a place of the display."""
        self._xdotool("mousemove", str(x), str(y), "click", "1")

    def drag(self, places):
        """Through places of the display with the left button held, in steps as a hand makes them."""
        (x, y), *others = places
        steps = ["mousemove", str(x), str(y), "mousedown", "1"]
        for to_x, to_y in others:
            count = max(1, int(max(abs(to_x - x), abs(to_y - y)) / 8))
            for step in range(1, count + 1):
                steps += ["mousemove", str(x + (to_x - x) * step // count), str(y + (to_y - y) * step // count)]
            x, y = to_x, to_y
        self._xdotool(*steps, "mouseup", "1")

    def close(self):
        """Closes the main window as a presenter does who knows the window manager's key."""
        left, top, width, _ = self.area()
        self._xdotool("mousemove", str(left + width // 2), str(top - 8), "click", "1")
        self.keys("alt+F4")

    def area(self, control=None):
        """Left, top, width, height of a control, or of the main window, on the display."""
        extents = _ask(lambda: Atspi.Component.get_extents(control or self.main_window(), Atspi.CoordType.SCREEN))
        if extents is None:
            raise Failure("a control has no place on the display")
        return extents.x, extents.y, extents.width, extents.height

    def _find_application(self):
        if self._application is None:
            # The library asks this process's own environment for the bus.
            os.environ.update(self._desktop.environment)
            Atspi.set_timeout(3000, 15000)
            desktop = Atspi.get_desktop(0)
            desktop.set_cache_mask(Atspi.Cache.NONE)
            for index in range(_ask(desktop.get_child_count) or 0):
                application = _ask(lambda index=index: desktop.get_child_at_index(index))
                if application and _ask(application.get_process_id) == self._process.pid:
                    application.set_cache_mask(Atspi.Cache.NONE)
                    self._application = application
        return self._application

    def _top_windows(self):
        application = self._application
        windows = [_ask(lambda index=index: application.get_child_at_index(index))
                   for index in range(_ask(application.get_child_count) or 0)]
        return [window for window in windows if window and _is_showing(window)]

    def _dialog_with(self, test):
        for window in self._top_windows():
            if _role(window) in DIALOG_ROLES and test(window):
                return window
        return None

    def _file_name_field(self, dialog):
        for control in self._showing(dialog):
            if _role(control) == "text" and _ask(control.get_name) == FILE_NAME_FIELD:
                return control
        return None

    def _showing(self, within=None):
        """All controls that can be seen, in the dialog on top first."""
        roots = [within] if within else sorted(self._top_windows(), key=lambda w: _role(w) not in DIALOG_ROLES)
        for root in roots:
            yield from self._walk(root, only_showing=True)

    def _walk(self, root, only_showing=False):
        waiting = [root]
        while waiting:
            control = waiting.pop(0)
            yield control
            # A file view can have thousands of rows, none of which is ever pressed here.
            if _role(control) in ("list", "tree", "table", "tree table") and only_showing:
                continue
            for index in range(min(_ask(control.get_child_count) or 0, 200)):
                child = _ask(lambda index=index, control=control: control.get_child_at_index(index))
                if child and (not only_showing or _is_showing(child)):
                    waiting.append(child)

    def _text(self, field):
        return _ask(lambda: Atspi.Text.get_text(field, 0, -1))

    def _click(self, control):
        left, top, width, height = self.area(control)
        self._xdotool("mousemove", str(left + width // 2), str(top + height // 2), "click", "1")

    def _xdotool(self, *arguments):
        return run_to_end(["xdotool", *arguments], seconds=30, env=self._desktop.environment)


def _ask(question):
    """Asks the program something; None where it is too busy to answer or the thing is gone."""
    while GLib.MainContext.default().iteration(False):
        pass
    try:
        return question()
    except GLib.Error:
        return None


def _role(control):
    return _ask(control.get_role_name)


def _is_showing(control):
    states = _ask(control.get_state_set)
    return states is not None and states.contains(Atspi.StateType.SHOWING)
