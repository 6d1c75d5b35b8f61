"""The operator's day by role and name alone: what an assistive program can do for one who sees nothing."""

import seen
from keyboard import keys, type_text
from work import BOX, BUS, BUS_TARGET, CHANGED, FAR, FAR_BUS, NEW, PREFIX, Work


class ByName(Work):
    def steps(self):
        return [self.open, self.browse, self.find, self.help, self.add, self.edit, self.remove, self.scan, self.save_all,
                self.compose_direct_target, self.leave]

    def open(self):
        self.check_open()
        seen.act(seen.find(self.main, "radio button", "Connections"), "Toggle")
        self.check_entry(seen.item(self.tree(), "Connections"), 1,
                         {"expandable": True, "expanded": True, "focusable": True, "selectable": True})

    def browse(self):
        bus = self.connection(BUS)
        self.check_entry(bus, 2, {"expandable": False, "selected": False})
        seen.act(bus, "Press")
        self.check_entry(bus, 2, {"selected": True, "focused": True})
        self.wait_target(BUS_TARGET)
        seen.act(bus, "Open")
        self.check_entry(bus, 2, {"expandable": True, "expanded": True})
        self.check_entry(seen.item(bus, "T4 Bus"), 3, {"expandable": False})
        seen.act(bus, "Toggle")
        self.check_entry(bus, 2, {"expanded": False})
        if bus.get_child_count() != 0:
            raise seen.NotSeen("a collapsed entry shows what is below it")

    def find(self):
        seen.check(self.main, "View Nodes", True)
        seen.press(self.main, "Find in tree")
        form = seen.window("Find Element")
        seen.type_into(form, "String to be matched", "RIDGE CLOCK")
        seen.press(form, "Next")
        hits = seen.window("Search result")
        tree = seen.find(hits, "tree", "Entries found")
        seen.act(seen.item(tree, "Not loaded yet", FAR_BUS, FAR), "Press")
        seen.press(hits, "Done")
        seen.gone("Search result")
        seen.gone("Find Element")
        self.check_found()
        seen.check(self.main, "View Nodes", False)

    def help(self):
        seen.press(self.main, "Help about the Database tab")
        window = self.check_help("The Database tab")
        seen.act(seen.find(window, "page tab", "Search"), "Press")
        seen.type_into(window, "Words to search for", "prefix")
        seen.press(window, "Search")
        page = "Saving all found nodes"
        seen.click(seen.find(seen.find(window, "list", "Pages found"), "list item", page))
        seen.window(page + " - Help")
        self.check_help("A prefix and behind it")
        keys("Escape")
        seen.gone(page + " - Help")

    def add(self):
        seen.act(seen.item(self.tree(), "Connections"), "Press")
        seen.press(self.main, "Add ...")
        form = seen.window("Connection Properties")
        seen.type_into(form, "Connection Name", NEW)
        seen.choose(form, "Connection Type", "T4 Bus")
        self.change_number(form, "77")
        seen.press(form, "Save")
        seen.gone("Connection Properties")
        self.wait_listed(NEW)
        self.wait_in_tree(NEW)

    def change_number(self, form, number):
        """Sets the bus number in the parameters of the first part of a connection."""
        parts = seen.find(form, "tree", "Connection Definition")
        seen.click(seen.find(parts, "table cell", "T4 Bus"))
        seen.wait("the part to be selected",
                  lambda: seen.has(seen.find(parts, "table cell", "T4 Bus"), "selected"))
        seen.press(form, "Properties")
        values = seen.window("Properties")
        grid = seen.find(values, "table", "Parameters")
        seen.find(grid, "table column header", "Value")
        row = seen.find(grid, "table cell", "BUS NUMBER")
        if "Mandatory" not in row.get_description():
            raise seen.NotSeen("the grid does not tell that the bus number is mandatory")
        # Typed where the focus is, as one types into a grid.
        seen.wait("the focus on the value", lambda: seen.has(seen.cell_beside(grid, row), "focused"))
        type_text(number)
        keys("Return")
        seen.wait(f"{number} in the grid",
                  lambda: seen.cell_beside(grid, row).get_name() == number)
        seen.press(values, "OK")
        seen.gone("Properties")

    def edit(self):
        seen.act(self.connection(NEW), "Press")
        self.wait_target("WP=BUST4,ID=77")
        seen.press(self.main, "Properties..")
        form = seen.window("Connection Properties")
        seen.type_into(form, "Connection Name", CHANGED)
        self.change_number(form, "78")
        seen.press(form, "Save")
        seen.gone("Connection Properties")
        self.wait_listed(CHANGED)
        self.wait_listed(NEW, False)
        self.wait_in_tree(CHANGED)
        self.wait_target("WP=BUST4,ID=78")

    def remove(self):
        seen.act(self.connection(CHANGED), "Press")
        seen.press(self.main, "Remove")
        box = seen.window(BOX)
        seen.find(box, "label", f"Do you want to remove Connection {CHANGED} and all its nodes from database ?")
        seen.press(box, "OK")
        seen.gone(BOX)
        self.wait_listed(CHANGED, False)
        self.wait_in_tree(CHANGED, False)

    def scan(self):
        seen.act(self.connection(BUS), "Press")
        self.wait_target(BUS_TARGET)
        seen.press(self.main, "Scan...")
        form = seen.window("Scan " + BUS)
        seen.type_into(form, "First Address", "1")
        seen.type_into(form, "Last Address", "6")
        seen.type_into(form, "Time-out in Milliseconds", "1000")
        seen.press(form, "Start")
        self.check_scan_done(form)

    def save_all(self):
        form = seen.window("Scan " + BUS)
        seen.press(form, "Save All")
        naming = seen.window("Scan Results: Save All")
        seen.act(seen.find(naming, "radio button", "Generate node name from prefix and the checked items."),
                 "Toggle")
        seen.type_into(naming, "Prefix", PREFIX)
        seen.check(naming, "Node address.", True)
        seen.check(naming, "Node identification.", False)
        seen.check(naming, "Node type.", False)
        seen.press(naming, "OK")
        choice = seen.window("Scan Results Selection for Database Saving")
        seen.press(choice, "Select All")
        seen.press(choice, "Save")
        self.check_saved()
        seen.press(choice, "Close")
        seen.gone("Scan Results Selection for Database Saving")
        seen.press(form, "Close")
        seen.gone("Scan " + BUS)

    def compose_direct_target(self):
        seen.act(seen.find(self.main, "page tab", "Direct"), "Press")
        seen.choose(self.main, "Connection name", BUS)
        seen.type_into(self.main, "Address", "5")
        self.wait_target(BUS_TARGET + ",WP=NET4,ADDR=5")
        seen.press(self.main, "Read Target")
        self.check_direct(BUS_TARGET + ",WP=NET4,ADDR=5")

    def leave(self):
        seen.act(seen.find(self.main, "menu item", "File"), "ShowMenu")
        seen.press(self.main, "Quit", "menu item")
        self.desk.wait_left()
