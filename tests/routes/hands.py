"""Three ways to work the same controls: by the pointer, by the keys alone, and by what the accessibility bus offers."""

from driver import BUTTONS, ROLE, STATE, Atspi, states


class Hands:
    def __init__(self, program):
        self.program = program

    def cell(self, table, row, column):
        return self.program.until(
            lambda: Atspi.Table.get_accessible_at(self.program.find(table, ROLE.TABLE), row, column),
            f"cell {row}, {column} of {table}")

    def choose(self, table, row, column, place):
        """An entry of a cell's list, counted from 0."""
        before = self.program.windows()
        self.touch(table, row, column)
        self.program.until(lambda: self.program.windows() - before, f"list in {table}")
        self.program.keys("Home", *["Down"] * place, "Return")


class Pointer(Hands):
    def press(self, name):
        self.program.press(name)

    def touch(self, table, row, column):
        """Clicks a cell once it stands still and its window takes clicks; turns the wheel until it is in sight."""
        seen = []

        def ready():
            box = self.extents(self.program.find(table, ROLE.TABLE))
            cell = self.extents(self.cell(table, row, column))
            if cell.y + cell.height > box.y + box.height or cell.y < box.y + cell.height // 2:
                wheel = 5 if cell.y > box.y + box.height // 2 else 4
                self.program.xdotool("mousemove", box.x + box.width // 2, box.y + box.height // 2, "click", wheel)
                return False
            seen.append((cell.x + cell.width // 2, cell.y + cell.height // 2))
            return seen[-2:] == [seen[-1]] * 2 and self.program.has_active_window()
        self.program.until(ready, f"cell {row}, {column} of {table} in place")
        self.program.click_at(*seen[-1])

    def extents(self, node):
        return Atspi.Component.get_extents(node, Atspi.CoordType.SCREEN)


class Keys(Hands):
    """Finds its way with the tab key, as somebody who sees the focus alone."""

    def press(self, name):
        self.program.focus(name, BUTTONS)
        self.program.keys("space")

    def go_to(self, table, row, column):
        self.program.focus(table, [ROLE.TABLE])
        self.program.keys("ctrl+Home", *["Down"] * row, *["Right"] * column)
        self.program.until(lambda: states(self.cell(table, row, column)).contains(STATE.FOCUSED),
                           f"cell {row}, {column} of {table} by the arrows")

    def touch(self, table, row, column):
        self.go_to(table, row, column)
        self.program.keys("space")


class Bus(Hands):
    """As a screen reader acts; it moves no pointer and presses no key but in the lists that it opens."""

    def press(self, name):
        def done():
            for node in self.program.nodes():
                if node.get_name() == name and node.get_role() in BUTTONS and states(node).contains(STATE.ENABLED):
                    return Atspi.Action.do_action(node, 0)
            return False
        self.program.until(done, f"action of {name}")

    def touch(self, table, row, column):
        self.program.until(lambda: Atspi.Action.do_action(self.cell(table, row, column), 0),
                           f"action of cell {row}, {column} of {table}")

    def go_to(self, table, row, column):
        cell = self.cell(table, row, column)
        self.program.until(lambda: Atspi.Action.do_action(cell, cell.get_n_actions() - 1) and
                           states(self.cell(table, row, column)).contains(STATE.FOCUSED),
                           f"focus on cell {row}, {column} of {table}")
