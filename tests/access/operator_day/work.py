"""The operator's day, whatever the hands use: what has to be there before and behind each piece of work."""

import json

import seen

BUS = "Harbour Tower bus 254"
BUS_TARGET = "WP=BUST4,ID=254"
CLOCK = "Harbour Tower clock 1"
FAR_BUS = "Kestrel Ridge bus 251"
FAR = "Kestrel Ridge clock 1"
NEW = "Access Road bus 77"
CHANGED = "Access Road bus 78"
PREFIX = "Day"
BOX = "Zelka Connection Browser"


class Work:
    """What a run of the day works with; the runs add how they do it."""

    def __init__(self, desk):
        self.desk = desk
        self.main = None

    def connections(self):
        return self.desk.run("zelka", "list", "connections").splitlines()

    def nodes(self):
        return self.desk.run("zelka", "list", "nodes").splitlines()

    def shown(self, name):
        return json.loads(self.desk.run("zelka", "show", name, "--json"))

    def tree(self):
        """The tree of connections, which must be the one that is shown."""
        return seen.find(self.main, "tree", "Connections")

    def connection(self, name):
        return seen.item(self.tree(), "Connections", name)

    def wait_target(self, target):
        field = seen.find(self.main, "text", "Target string")
        seen.wait(f"the target {target}, not {seen.text(field)}", lambda: seen.text(field) == target)

    def wait_listed(self, name, listed=True):
        seen.wait(f"\"{name}\" in the database: {listed}", lambda: (name in self.connections()) == listed)

    def wait_in_tree(self, name, there=True):
        def names():
            root = seen.item(self.tree(), "Connections")
            return [child.get_name() for child in seen.children(root)]
        seen.wait(f"\"{name}\" in the tree: {there}", lambda: (name in names()) == there)

    def check_open(self):
        self.main = seen.window("*- Zelka Workstation")
        seen.find(self.main, "tree", "Nodes")
        seen.wait("the window to be active", lambda: seen.has(self.main, "active"))
        if self.desk.folder.name not in self.main.get_name():
            raise seen.NotSeen(f"the title {self.main.get_name()} names another database")

    def check_entry(self, entry, level, states):
        """An entry tells its level, and is so and not so."""
        expected = f"level {level}, "
        seen.wait(f"{expected} of {seen.describe(entry)}", lambda: entry.get_description().startswith(expected))
        for state, value in states.items():
            seen.wait(f"{seen.describe(entry)} {state}: {value}", lambda: seen.has(entry, state) == value)

    def check_found(self):
        """What was not loaded stands under its bus and is selected."""
        self.wait_target(self.desk.run("zelka", "target", FAR).strip())
        self.check_entry(seen.item(self.tree(), "Connections", FAR_BUS, FAR), 3,
                         {"selected": True, "focused": True})

    def check_help(self, words):
        """The help shows a page that holds these words."""
        page = seen.wait("a window of the help", lambda: next(
            (one for one in seen.windows() if one.get_name().endswith(" - Help")), None))
        text = seen.wait("the help page", lambda: seen.search_named(page, "Help page"))
        seen.wait(f"\"{words}\" on the help page", lambda: words in seen.text(text))
        return page

    def check_scan_done(self, scan):
        """The scan has found what the simulated bus has at its first addresses."""
        table = seen.find(scan, "table", "Found Nodes")
        wanted = ["1", "Harbour Tower radio 1", "2", "Harbour Tower multiplexer 1", "6", CLOCK]

        def found():
            cells = [child.get_name() for child in seen.children(table)]
            return all(cell in cells for cell in wanted)
        seen.wait(f"the found nodes {wanted}", found)
        seen.wait("the scan to end", lambda: seen.has(seen.find(scan, "push button", "Save All"), "enabled"))

    def check_saved(self):
        expected = {f"{PREFIX},{address}" for address in (1, 2, 3, 5, 6)}
        seen.wait(f"the nodes {sorted(expected)}", lambda: expected <= set(self.nodes()))

    def check_direct(self, target):
        field = seen.find(self.main, "text", "Target for the host")
        seen.wait(f"the host's target {target}", lambda: seen.text(field) == target)
