"""What an assistive program knows of the workstation: its objects by role and name, over the accessibility bus."""

import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

LIMIT = 60
PAUSE = 0.05
# Below these there may be any number of objects; who wants one looks into them.
ENDLESS = {"tree", "list", "table"}


class NotSeen(AssertionError):
    """Something did not become as it should within the limit."""


class Focus:
    """Remembers which object was last told to have the focus."""

    thing = None

    def __init__(self):
        self.listener = Atspi.EventListener.new(self.moved)

    def moved(self, event):
        if event.detail1 == 1:
            self.thing = event.source


_focus = Focus()


def start():
    Atspi.init()
    _focus.listener.register("object:state-changed:focused")
    Atspi.set_timeout(20000, 60000)
    Atspi.get_desktop(0).set_cache_mask(Atspi.Cache.NONE)


def wait(what, condition, limit=LIMIT):
    """What the condition gives as soon as it is true; objects that go meanwhile are no answer."""
    end = time.monotonic() + limit
    while True:
        while GLib.MainContext.default().iteration(False):
            pass
        try:
            answer = condition()
            if answer:
                return answer
        except GLib.Error:
            pass
        if time.monotonic() > end:
            raise NotSeen(f"in {limit} s: {what}")
        time.sleep(PAUSE)


def has(thing, state):
    return thing.get_state_set().contains(getattr(Atspi.StateType, state.upper()))


def children(thing):
    for index in range(thing.get_child_count()):
        child = thing.get_child_at_index(index)
        if child:
            yield child


def applications():
    return [one for one in children(Atspi.get_desktop(0)) if one.get_name() == "zelka-workstation"]


def windows():
    """The workstation's windows that can be seen."""
    return [window for one in applications() for window in children(one) if has(window, "showing")]


def search(thing, role, name, shown=True):
    """The first object of that role and name at or below `thing`; None when there is none."""
    if thing.get_role_name() == role and (name is None or thing.get_name() == name) \
            and (not shown or has(thing, "showing")):
        return thing
    if thing.get_role_name() in ENDLESS and role not in ("tree item", "table cell", "list item",
                                                        "table column header"):
        return None
    for child in children(thing):
        found = search(child, role, name, shown)
        if found:
            return found
    return None


def search_named(thing, name):
    """The first object of that name at or below `thing`, whatever its role; None when there is none."""
    if thing.get_name() == name:
        return thing
    if thing.get_role_name() in ENDLESS:
        return None
    return next((found for child in children(thing) if (found := search_named(child, name))), None)


def active_window():
    return next((window for window in windows() if has(window, "active")), None)


def window(name, limit=LIMIT):
    """A window, once it can be seen. A "*" before the name stands for anything."""
    def matching():
        for one in windows():
            title = one.get_name()
            if title == name or (name.startswith("*") and title.endswith(name[1:])):
                return one
        return None
    return wait(f"a window \"{name}\"", matching, limit)


def gone(name, limit=LIMIT):
    wait(f"no window \"{name}\" any more", lambda: all(one.get_name() != name for one in windows()), limit)


def find(where, role, name, limit=LIMIT):
    return wait(f"{role} \"{name}\" in \"{where.get_name()}\"", lambda: search(where, role, name), limit)


def item(tree, *path, limit=LIMIT):
    """The entry of a tree at the end of a path of names, each of which is expanded where needed."""
    found = tree
    for name in path:
        above = found
        if above.get_role_name() == "tree item" and not has(above, "expanded"):
            act(above, "Toggle")
            wait(f"\"{above.get_name()}\" to expand", lambda above=above: has(above, "expanded"), limit)
        found = wait(f"an entry \"{name}\"",
                     lambda above=above, name=name: next(
                         (child for child in children(above) if child.get_name() == name), None), limit)
    return found


def act(thing, name):
    """Does an action of an object by its name, once it is enabled."""
    wait(f"{describe(thing)} to be enabled", lambda: has(thing, "enabled"))
    names = [Atspi.Action.get_action_name(thing, index) for index in range(Atspi.Action.get_n_actions(thing))]
    if name not in names:
        raise NotSeen(f"{describe(thing)} has the actions {names}, not {name}")
    Atspi.Action.do_action(thing, names.index(name))


def press(where, name, role="push button"):
    act(find(where, role, name), "Press")


def holds_text(thing):
    return "Text" in thing.get_interfaces()


def text(thing):
    """The text of a text box, or what is chosen in a combo box."""
    return Atspi.Text.get_text(thing, 0, -1) if holds_text(thing) else thing.get_name()


def type_into(where, name, content, role="text"):
    field = find(where, role, name)
    wait(f"{describe(field)} to take a text", lambda: has(field, "enabled") and Atspi.EditableText.set_text_contents(field, content))
    wait(f"{describe(field)} to hold \"{content}\"", lambda: text(field) == content)


def choose(where, name, entry):
    """Opens a combo box by its name and chooses an entry of its list with the pointer."""
    combo = find(where, "combo box", name)
    act(combo, "ShowMenu")
    cell = find(combo, "list item", entry)
    click(cell)
    return combo


def click(thing, button="b1c"):
    def place():
        extents = Atspi.Component.get_extents(thing, Atspi.CoordType.SCREEN)
        return extents if extents.width > 0 and extents.height > 0 else None
    extents = wait(f"{describe(thing)} to have a place", place)
    Atspi.generate_mouse_event(extents.x + min(extents.width // 2, 40), extents.y + extents.height // 2, button)


def check(where, name, wanted):
    box = find(where, "check box", name)
    if has(box, "checked") != wanted:
        act(box, "Toggle")
    wait(f"{describe(box)} checked: {wanted}", lambda: has(box, "checked") == wanted)


def cell_beside(grid, cell):
    """The cell right of another one."""
    cells = list(children(grid))
    return cells[cells.index(cell) + 1]


def describe(thing):
    return f"{thing.get_role_name()} \"{thing.get_name()}\""


def same_role(thing, role):
    # What the bridge calls an entry of a tree depends on the version of Qt.
    return thing.get_role_name() in (("tree item", "table cell") if role == "tree item" else (role,))


def focus_is(role, name):
    """Whether an object of that role, and of that name if one is given, has the focus."""
    thing = focused()
    return thing is not None and same_role(thing, role) and (name is None or thing.get_name() == name)


def wait_focus(role, name):
    wait(f"the focus on {role} \"{name}\"", lambda: focus_is(role, name))


def focused():
    """What was last told to have the focus; in a list, table or row of tabs the entry with it."""
    thing = _focus.thing
    if thing is None or not has(thing, "focused"):
        return None
    if thing.get_role_name() in ("list", "table", "tree", "page tab list"):
        # A tab says of itself that it has the focus whenever it is the current one.
        return next((child for child in children(thing) if has(child, "focused")), thing)
    return thing


def dump(thing=None, depth=0, most=40):
    """Lines that show what is known, for those who read of a failure."""
    lines = []
    things = windows() if thing is None else [thing]
    for one in things:
        try:
            states = [state.value_nick for state in one.get_state_set().get_states()]
            shown = ",".join(sorted(states))
            value = f" = \"{text(one)}\"" if holds_text(one) else ""
            lines.append("  " * depth + f"{describe(one)}{value} ({one.get_description()}) [{shown}]")
            for index, child in enumerate(children(one)):
                if index == most:
                    lines.append("  " * (depth + 1) + "...")
                    break
                lines += dump(child, depth + 1, most)
        except GLib.Error as error:
            lines.append("  " * depth + f"(gone: {error.message})")
    return lines
