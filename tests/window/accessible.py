"""The accessibility interface, as a screen reader uses it."""

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, Gio, GLib  # noqa: E402

from waiting import PATIENCE_S, wait_until  # noqa: E402

# What a user must be able to distinguish by name.
_CONTROLS = {"push button", "radio button", "check box", "combo box", "text", "spin button", "list", "table",
             "tool bar", "menu item", "page tab", "progress bar"}

# Their children are cells, some of them not visible; they are requested one by one.
_TABLES = {"table", "tree", "list"}


def attach():
    """Call once, inside the desktop."""
    Atspi.init()
    # A program under a sanitizer on a busy machine may take a while to answer.
    Atspi.set_timeout(PATIENCE_S * 1000, PATIENCE_S * 1000)
    # Always ask the program itself: cached answers may be out of date.
    Atspi.get_desktop(0).set_cache_mask(Atspi.Cache.NONE)


class Node:
    """One object of a program's accessible tree."""

    def __init__(self, accessible):
        self._accessible = accessible

    def __repr__(self):
        return f"{self.role} '{self.name}'"

    @property
    def role(self):
        return self._accessible.get_role_name()

    @property
    def name(self):
        return self._accessible.get_name()

    @property
    def description(self):
        return self._accessible.get_description()

    @property
    def states(self):
        return {state.value_nick for state in self._accessible.get_state_set().get_states()}

    def has(self, *states):
        return self.states.issuperset(states)

    @property
    def parent(self):
        return Node(self._accessible.get_parent())

    @property
    def children(self):
        found = (self._accessible.get_child_at_index(i) for i in range(self._accessible.get_child_count()))
        return [Node(child) for child in found if child is not None]

    def walk(self):
        """This object and what is in it, from the top; what is in tables only when this object is one."""
        yield self
        for child in self.children:
            if child.role in _TABLES:
                yield child
            else:
                yield from child.walk()

    def find(self, role, name=None):
        """The first object of this role and name, or None."""
        return next((node for node in self.walk() if node.role == role and name in (None, node.name)), None)

    def get(self, role, name=None):
        """The object of this role and name, as soon as it exists."""
        return wait_until(lambda: self.find(role, name), f"there was a {role} {name or ''} in {self!r}")

    def shown(self, role, name=None):
        """The same among the visible objects."""
        def find():
            return next((node for node in self.walk()
                         if node.role == role and name in (None, node.name) and node.has("showing")), None)
        return wait_until(find, f"a {role} {name or ''} was visible in {self!r}")

    def nameless(self):
        """Visible controls without a name, except those that toolkits put into a field."""
        return [f"{node!r} in {node.parent!r}" for node in self.walk() if node.role in _CONTROLS and
                node.has("showing") and not node.name and node.parent.role not in ("text", "combo box")]

    def labeled_by(self, label):
        """The field that the label of this text belongs to."""
        def find():
            return next((node for node in self.walk() if label in node._labels()), None)
        return wait_until(find, f"there was a field with the label {label} in {self!r}")

    def _labels(self):
        return [relation.get_target(i).get_name() for relation in self._accessible.get_relation_set()
                if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY
                for i in range(relation.get_n_targets())]

    @property
    def text(self):
        """The whole text of a field."""
        return Atspi.Text.get_text(self._accessible, 0, Atspi.Text.get_character_count(self._accessible))

    def set_text(self, text):
        wait_until(lambda: self.has("editable", "enabled"), f"{self!r} could be edited")
        assert Atspi.EditableText.set_text_contents(self._accessible, text), f"{self!r} did not take the text"
        wait_until(lambda: self.text == text, f"{self!r} showed {text!r}")

    def act(self, action="Press"):
        """Triggers an action, which must be available, without waiting: an action that opens a dialog ends only when
        the dialog is closed."""
        wait_until(lambda: self.has("enabled"), f"{self!r} was enabled")
        actions = self._message("GetActions")
        reply, _ = _bus().send_message_with_reply_sync(actions, Gio.DBusSendMessageFlags.NONE, PATIENCE_S * 1000, None)
        names = [name for name, _, _ in reply.get_body().unpack()[0]]
        assert action in names, f"{self!r} has only the actions {names}"
        message = self._message("DoAction")
        message.set_body(GLib.Variant("(i)", (names.index(action),)))
        message.set_flags(Gio.DBusMessageFlags.NO_REPLY_EXPECTED)
        _bus().send_message(message, Gio.DBusSendMessageFlags.NONE)
        _bus().flush_sync()

    def _message(self, method):
        return Gio.DBusMessage.new_method_call(self._accessible.app.bus_name, self._accessible.path,
                                               "org.a11y.atspi.Action", method)

    def take_focus(self):
        self.act("SetFocus")
        wait_until(lambda: self.has("focused"), f"{self!r} had the focus")

    def set_checked(self, checked):
        if self.has("checked") != checked:
            self.act("Toggle")
        wait_until(lambda: self.has("checked") == checked, f"{self!r} was " + ("on" if checked else "off"))

    @property
    def center(self):
        """In pixels of the screen."""
        place = Atspi.Component.get_extents(self._accessible, Atspi.CoordType.SCREEN)
        return place.x + place.width // 2, place.y + place.height // 2

    # Of a table.

    @property
    def size(self):
        return Atspi.Table.get_n_rows(self._accessible), Atspi.Table.get_n_columns(self._accessible)

    @property
    def headers(self):
        return [Atspi.Table.get_column_header(self._accessible, column).get_name() for column in range(self.size[1])]

    def cell(self, row, column):
        return Node(Atspi.Table.get_accessible_at(self._accessible, row, column))


def _bus():
    """A separate connection: the library's own waits for answers."""
    if _bus.connection is None:
        session = Gio.bus_get_sync(Gio.BusType.SESSION)
        address = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None,
                                    Gio.DBusCallFlags.NONE, PATIENCE_S * 1000, None).unpack()[0]
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        _bus.connection = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
    return _bus.connection


_bus.connection = None


def find_program(process_id):
    """The accessible tree of a running program, or None."""
    desktop = Atspi.get_desktop(0)
    for i in range(desktop.get_child_count()):
        program = desktop.get_child_at_index(i)
        if program is not None and program.get_process_id() == process_id:
            return Node(program)
    return None


class FocusWatch:
    """What took the focus since the watch began. Context menus are not in the tree; this is how to find them."""

    def __init__(self):
        self._focused = []
        self._listener = Atspi.EventListener.new(self._take)

    def __enter__(self):
        self._listener.register("object:state-changed:focused")
        return self

    def __exit__(self, *_):
        self._listener.deregister("object:state-changed:focused")

    def _take(self, event):
        if event.detail1:
            self._focused.append(Node(event.source))

    def last(self, role):
        """What took the focus last, if it is of this role."""
        return self._focused[-1] if self._focused and self._focused[-1].role == role else None
