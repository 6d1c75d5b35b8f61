"""The operator's day with keys alone; what is looked at is where the focus is and what became of it."""

import seen
from keyboard import keys, type_text
from work import BOX, BUS, BUS_TARGET, CHANGED, FAR, NEW, PREFIX, Work


class ByKeyboard(Work):
    def steps(self):
        return [self.open, self.browse, self.find, self.help, self.add, self.edit, self.remove, self.scan, self.save_all,
                self.compose_direct_target, self.leave]

    def press_until(self, key, what, condition):
        """Presses a key, and after a while again, until it has the effect."""
        for _ in range(10):
            keys(key)
            try:
                return seen.wait(what, condition, 6)
            except seen.NotSeen:
                pass
        raise seen.NotSeen(f"for all pressing of {key}: {what}")

    def tab_to(self, role, name, key="Tab"):
        """Presses Tab until the focus is there; all controls of a window must come round."""
        for _ in range(60):
            if seen.focus_is(role, name):
                return
            before = seen.focused()
            keys(key)
            seen.wait("the focus to move", lambda before=before: seen.focused() != before)
        raise seen.NotSeen(f"Tab does not reach {role} \"{name}\"")

    def opened(self, name):
        """A window that has appeared and has the keyboard."""
        window = seen.window(name)
        seen.wait(f"\"{name}\" to have the keyboard", lambda: seen.has(window, "active") and seen.focused())
        return window

    def closed(self, name):
        """The window has gone and the one below it has the keyboard."""
        seen.gone(name)
        seen.wait("the keyboard to be back", lambda: seen.active_window() and seen.focused())

    def retype(self, content):
        keys("ctrl+a")
        type_text(content)
        seen.wait(f"\"{content}\" in the field", lambda: seen.text(seen.focused()) == content)

    def select(self, name):
        """Selects an entry of the tree, which has the focus: first its letter, then one by one."""
        keys("Home")
        seen.wait_focus("tree item", "Connections")
        key = name[0].lower()
        while not seen.focus_is("tree item", name):
            before = seen.focused()
            keys(key)
            seen.wait("the focus to move", lambda before=before: seen.focused() not in (before, None))
            key = "Down"

    def open(self):
        self.check_open()
        # A key shows where the focus is, also to one who has only now begun to listen; what is pressed before
        # the window has the keyboard is lost.
        self.press_until("Tab", "the focus to be told", seen.focused)
        # Behind the tabs Tab goes straight to the tree; what is between is reached from there.
        self.tab_to("radio button", "Nodes", "shift+Tab")
        keys("Left")
        seen.wait("the connections to be shown",
                  lambda: seen.has(seen.find(self.main, "radio button", "Connections"), "checked"))
        self.tab_to("tree item", None)
        keys("Home")
        seen.wait_focus("tree item", "Connections")

    def browse(self):
        self.select(BUS)
        self.wait_target(BUS_TARGET)
        bus = self.connection(BUS)
        # Enter reads what is below the connection and goes on to its properties.
        keys("Return")
        self.opened("Connection Properties")
        keys("alt+c")
        self.closed("Connection Properties")
        self.check_entry(bus, 2, {"expanded": True, "selected": True})
        keys("Down")
        seen.wait_focus("tree item", "T4 Bus")
        self.check_entry(seen.focused(), 3, {"selected": True})
        keys("Left", "Left")
        self.check_entry(bus, 2, {"expanded": False, "focused": True})

    def change_number(self, number):
        self.tab_to("table cell", None)
        keys("End", "Home")
        seen.wait_focus("table cell", "T4 Bus")
        seen.wait("the part to be selected", lambda: seen.has(seen.focused(), "selected"))
        keys("alt+p")
        self.opened("Properties")
        self.tab_to("table cell", None)
        type_text(number)
        keys("Return")
        seen.wait(f"{number} in the grid",
                  lambda: seen.search(seen.active_window(), "table cell", number) is not None)
        self.tab_to("push button", "OK")
        keys("space")
        self.closed("Properties")

    def view_nodes(self, wanted):
        self.tab_to("check box", "View Nodes")
        box = seen.focused()
        keys("space")
        seen.wait(f"nodes to be viewed: {wanted}", lambda: seen.has(box, "checked") == wanted)
        seen.wait("the keyboard to be back", seen.focused)

    def find(self):
        self.view_nodes(True)
        keys("ctrl+f")
        self.opened("Find Element")
        self.retype("RIDGE CLOCK")
        keys("Return")
        self.opened("Search result")
        # The first hit is selected; here it is the only one.
        seen.wait_focus("tree item", FAR)
        keys("Return")
        self.closed("Search result")
        self.check_found()
        self.view_nodes(False)
        self.tab_to("tree item", None)

    def help(self):
        keys("F1")
        window = self.check_help("The Database tab")
        seen.wait("the help to have the keyboard", lambda: seen.has(window, "active") and seen.focused())
        keys("alt+a")
        seen.wait_focus("text", "Words to search for")
        self.retype("prefix")
        keys("Return")
        page = "Saving all found nodes"
        seen.wait_focus("list item", None)
        for _ in range(30):
            if seen.focused().get_name().startswith(page):
                break
            before = seen.focused()
            keys("Down")
            seen.wait("the focus to move", lambda before=before: seen.focused() != before)
        keys("Return")
        seen.window(page + " - Help")
        self.check_help("A prefix and behind it")
        keys("Escape")
        self.closed(page + " - Help")
        self.tab_to("tree item", None)

    def add(self):
        keys("Home")
        seen.wait_focus("tree item", "Connections")
        keys("alt+a")
        self.opened("Connection Properties")
        self.tab_to("text", "Connection Name")
        self.retype(NEW)
        self.change_number("77")
        keys("alt+s")
        self.closed("Connection Properties")
        self.wait_listed(NEW)
        self.wait_in_tree(NEW)

    def edit(self):
        self.tab_to("tree item", None)
        self.select(NEW)
        self.wait_target("WP=BUST4,ID=77")
        keys("alt+p")
        self.opened("Connection Properties")
        self.tab_to("text", "Connection Name")
        self.retype(CHANGED)
        self.change_number("78")
        keys("alt+s")
        self.closed("Connection Properties")
        self.wait_listed(CHANGED)
        self.wait_listed(NEW, False)
        self.wait_in_tree(CHANGED)

    def remove(self):
        self.tab_to("tree item", None)
        self.select(CHANGED)
        self.wait_target("WP=BUST4,ID=78")
        keys("Delete")
        self.opened(BOX)
        self.tab_to("push button", "OK")
        keys("space")
        self.closed(BOX)
        self.wait_listed(CHANGED, False)
        self.wait_in_tree(CHANGED, False)

    def scan(self):
        self.tab_to("tree item", None)
        self.select(BUS)
        self.wait_target(BUS_TARGET)
        keys("alt+s")
        form = self.opened("Scan " + BUS)
        for field, value in (("First Address", "1"), ("Last Address", "6"),
                             ("Time-out in Milliseconds", "1000")):
            self.tab_to("text", field)
            self.retype(value)
        keys("alt+t")
        self.check_scan_done(form)

    def save_all(self):
        keys("alt+a")
        naming = self.opened("Scan Results: Save All")
        self.tab_to("radio button", None)
        keys("Down")
        seen.wait("names to be made from the prefix", lambda: seen.has(seen.find(
            naming, "radio button", "Generate node name from prefix and the checked items."), "checked"))
        self.tab_to("text", "Prefix")
        self.retype(PREFIX)
        for box, wanted in (("Node address.", True), ("Node identification.", False), ("Node type.", False)):
            if seen.has(seen.find(naming, "check box", box), "checked") != wanted:
                self.tab_to("check box", box)
                keys("space")
        keys("alt+o")
        choice = self.opened("Scan Results Selection for Database Saving")
        seen.wait("the list to be active", lambda: seen.has(choice, "active"))
        self.press_key_of(choice, "Select All")
        self.press_key_of(choice, "Save")
        self.check_saved()
        keys("Escape")
        self.closed("Scan Results Selection for Database Saving")
        keys("Escape")
        self.closed("Scan " + BUS)

    def press_key_of(self, form, name):
        """Goes to a button and presses it."""
        seen.wait(f"\"{name}\" to be enabled", lambda: seen.has(seen.find(form, "push button", name), "enabled"))
        self.tab_to("push button", name)
        keys("space")

    def compose_direct_target(self):
        # A scan leaves the operator on the Direct tab.
        if not seen.search(self.main, "combo box", "Connection name"):
            self.tab_to("tree item", None)
            keys("ctrl+Tab")
            seen.find(self.main, "combo box", "Connection name")
        self.tab_to("combo box", "Connection name")
        combo = seen.focused()
        keys(BUS[0].lower())
        seen.wait(f"{BUS} to be chosen", lambda: combo.get_description().startswith(BUS))
        self.tab_to("text", "Address")
        self.retype("5")
        self.wait_target(BUS_TARGET + ",WP=NET4,ADDR=5")
        # Tab goes round in the Direct tab; Shift+Tab leads out of it.
        self.tab_to("push button", "Read Target", "shift+Tab")
        keys("space")
        self.check_direct(BUS_TARGET + ",WP=NET4,ADDR=5")

    def leave(self):
        # A menu that the window manager keeps from grabbing the keyboard closes at once; who sees that tries again.
        self.press_until("alt+f", "the menu to open", lambda: seen.search(self.main, "menu item", "Quit"))
        keys("q")
        self.desk.wait_left()
