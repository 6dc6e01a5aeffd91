"""A sitting at the editor with real X events: look at a map, mark, walk, paint, save, save under a new name, leave.
Usage: journey.py QUORVEL QUORVEL-MAP SAMPLES"""

import pathlib
import shutil
import subprocess
import sys
import tempfile

from hand import MAP, Atspi, Editor, Map, has, until

ROW = [((2, 2), "98(2:2)"), ((3, 2), "99(3:2)"), ((4, 2), "100(4:2)")]  # of a map 48 cells wide


def inverted(colour):
    return colour ^ 0xFFFFFF


def enter_name(editor, title, path):
    """Into the file dialog with this title."""
    name = editor.find("text", "File name:", editor.dialog(title))
    editor.click(name)
    editor.keys("ctrl+a")
    editor.type(str(path))
    editor.keys("Return")
    editor.await_title(f"Quorvel Vastrelum - [{path.name}]")


def open_map(editor, path):
    editor.await_title("Quorvel Vastrelum")
    editor.choose("f", "Open...")
    enter_name(editor, "Open", path)


def zoom_and_point(editor):
    editor.await_keyboard_in_map()
    editor.keys("minus", "minus", "equal", "minus", "minus")
    cells = Map(editor, 70)
    cells.point(5, 3)
    editor.await_position("149(5:3)")
    editor.keys("minus")
    cells = Map(editor, 60)
    cells.point(5, 3)
    editor.await_position("149(5:3)")
    return cells


def mark(editor, cells):
    plain = {cell: cells.colour(*cell) for cell in [(2, 2), (3, 2), (4, 2), (4, 4)]}

    def await_marks(*marked):
        def shown():
            return all(cells.colour(*cell) == (inverted(colour) if cell in marked else colour)
                       for cell, colour in plain.items())

        until(shown, f"marks on {marked}")

    cells.drag(*ROW)
    cells.point(7, 6)
    await_marks((2, 2), (3, 2), (4, 2))
    editor.keys("ctrl+a")
    await_marks(*plain)
    editor.keys("ctrl+d")
    await_marks()


def walk_by_keys(editor, cells):
    """From cell to cell and to one far off, while the pointer rests; a screen reader hears of each."""

    def await_cell(column, row, state):
        def reached():
            return has(Atspi.Table.get_accessible_at(editor.find(*MAP), row, column), state)

        until(reached, f"the state {state} of {column}:{row}")

    cells.point(2, 2)
    editor.await_position("98(2:2)")
    for key, text in [("alt+Right", "99(3:2)"), ("alt+Prior", "100(4:2)"), ("alt+Down", "148(4:3)")]:
        editor.keys(key)
        editor.await_position(text)
    await_cell(4, 3, Atspi.StateType.FOCUSED)
    editor.keys("space")
    await_cell(4, 3, Atspi.StateType.SELECTED)
    editor.keys("space")
    for place, text in [("47:31", "1535(47:31)"), ("0", "0(0:0)")]:
        editor.keys("ctrl+g")
        editor.dialog("Go To Cell")
        editor.type(place)
        editor.keys("Return")
        editor.await_position(text)
    editor.await_keyboard_in_map()
    cells.point(7, 6)  # a pointer that rests leaves the cell to the keys


def paint(editor, cells):
    editor.click(editor.find("push button", "Cell Property"))
    members = editor.find("combo box", "Cell property")
    editor.click(members)
    editor.click(editor.find("list item", "Planets"))
    box = editor.find("text", "Planets")
    editor.click(box)
    editor.keys("ctrl+a")
    editor.type("7")
    cells.drag(*ROW)
    editor.await_title("Quorvel Vastrelum - [galaxy.vrl*]")


def save(editor):
    editor.keys("ctrl+s")
    editor.await_title("Quorvel Vastrelum - [galaxy.vrl]")


def save_as_text(editor, path):
    editor.choose("f", "Save As...")
    editor.click(editor.find("list item", "text", editor.dialog("Version Data")))
    editor.keys("Return")
    enter_name(editor, "Save As", path)


def leave(editor, cells):
    """With a change that is first kept, then thrown away."""
    cells.drag(((6, 4), "198(6:4)"))
    editor.await_title("Quorvel Vastrelum - [mine.vrl*]")
    editor.choose("f", "Exit")
    question = editor.dialog("Quorvel")
    editor.find("label", "Save changes to mine.vrl?", question)
    editor.click(editor.find("push button", "Cancel", question))
    editor.await_keyboard_in_map()
    editor.choose("f", "Exit")
    editor.click(editor.find("push button", "Discard", editor.dialog("Quorvel")))
    assert editor.process.wait(60) == 0, "the editor ended badly"


def lines_of(tool, *arguments):
    return subprocess.run([tool, *map(str, arguments)], stdout=subprocess.PIPE, text=True).stdout.splitlines()


def check_files(tool, sample, saved, mine):
    changed = [line.split(" -> ") for line in lines_of(tool, "diff", sample, saved)]
    where = {old.split(" ")[0] for old, _ in changed}
    assert where <= {text for _, text in ROW} and where, changed
    assert all(old.split(" ")[1] == "Planets:" and new == "7" for old, new in changed), changed
    assert lines_of(tool, "diff", saved, mine) == [], "the copy differs"
    assert lines_of(tool, "check", saved, mine) == []
    assert lines_of(tool, "dump", "map", mine)[0] == "form text"
    assert sorted(path.name for path in saved.parent.iterdir()) == ["galaxy.vrl", "mine.vrl"], "something is left"


def main():
    program, tool, samples = sys.argv[1:]
    with tempfile.TemporaryDirectory() as folder:
        sample = pathlib.Path(samples) / "galaxy.vrl"
        saved, mine = (pathlib.Path(folder) / name for name in ("galaxy.vrl", "mine.vrl"))
        shutil.copy(sample, saved)
        editor = Editor(program)
        try:
            open_map(editor, saved)
            cells = zoom_and_point(editor)
            mark(editor, cells)
            walk_by_keys(editor, cells)
            paint(editor, cells)
            save(editor)
            save_as_text(editor, mine)
            leave(editor, cells)
        finally:
            editor.end()
        check_files(tool, sample, saved, mine)


main()
