"""Takes the pictures of the user guide from a running editor. Run by scripts/make-pictures.
Usage: pictures.py QUORVEL SHARE FOLDER"""

import os
import pathlib
import subprocess
import sys

from hand import Editor, Map, until, walk, xdotool


def take(window, path):
    """Keeps what the screen shows of a window, once two looks agree."""
    place = window.get_extents(0)
    area = f"{place.width}x{place.height}+{place.x}+{place.y}"

    def shot():
        return subprocess.run(["import", "-silent", "-window", "root", "-crop", area, "+repage", "png:-"],
                              check=True, stdout=subprocess.PIPE).stdout

    last = [shot()]

    def is_still():
        last.append(shot())
        return last[-1] == last[-2]

    until(is_still, f"a picture for {path.name} that stays")
    path.write_bytes(last[-1])


def cell(column, row):
    """A cell of the cradle and what the status bar says of it."""
    return (column, row), f"{11 * row + column}({column}:{row})"


def editor_at_work(editor, folder):
    editor.await_keyboard_in_map()
    cells = Map(editor, 100)
    editor.type("}")
    place, text = cell(8, 3)
    cells.point(*place)
    editor.await_position(text)
    take(editor.frame, folder / "editor.png")
    return cells


def painting(editor, cells, folder):
    editor.click(editor.find("push button", "Cell Property"))
    value = until(lambda: [box for box in walk(editor.frame) if box.get_description() == "Star"], "the editor")[0]
    editor.click(value)
    editor.click(editor.find("list item", "Neutron"))
    cells.drag(*[cell(column, 1) for column in range(2, 8)])
    editor.click(editor.find("push button", "Pointer"))
    cells.drag(*[cell(column, 3) for column in range(3, 8)])
    cells.point(*cell(9, 3)[0])
    take(editor.frame, folder / "painting.png")


def cells_of(editor, dialog, table):
    return [thing for thing in walk(editor.find("tree", table, dialog)) if thing.get_role_name() == "table cell"]


def add_values(editor, dialog, member, values):
    """To a property of a cell page; each new value is then changed to its name."""
    editor.click(editor.find("table cell", member, dialog))
    add = editor.find("push button", "Add", dialog)
    for place, value in enumerate(values):
        editor.click(add)
        cell = until(lambda: cells_of(editor, dialog, "Property Values")[3 * place:], f"the row of {value}")[0]
        editor.click(cell)
        editor.keys("F2")
        editor.type(value)
        editor.keys("Return")
        until(lambda: cells_of(editor, dialog, "Property Values")[3 * place].get_name() == value, value)


def set_slider(slider, percent):
    place = slider.get_extents(0)
    xdotool("mousemove", place.x + place.width * percent // 100, place.y + place.height // 2, "click", 1)


def place_origin(editor, dialog, across, down):
    """Of the value chosen in the list, in percent of the map."""
    field = editor.find("canvas", "Origin", dialog).get_extents(0)
    xdotool("mousemove", field.x + field.width * across // 100, field.y + field.height * down // 100, "click", 1)


def filtering(editor, folder):
    editor.choose("v", "Filter...")
    dialog = editor.dialog("Cell Properties")
    add_values(editor, dialog, "Star", ["Yellow", "White"])
    take(dialog, folder / "filter-page.png")
    editor.click(editor.find("push button", "Finish", dialog))
    editor.await_keyboard_in_map()
    take(editor.frame, folder / "filter.png")


def preview(editor, folder):
    """Of the larger map, which takes several pages."""
    editor.keys("ctrl+F6")
    editor.await_title("Quorvel Vastrelum - [galaxy.vrl]")
    editor.await_keyboard_in_map()
    editor.choose("f", "Print Preview")
    dialog = editor.dialog("Print Preview")
    take(dialog, folder / "preview.png")
    editor.keys("Escape")


def sliders(editor, dialog, name):
    return [thing for thing in walk(dialog) if thing.get_role_name() == "slider" and thing.get_name() == name]


def wizard(editor, folder):
    editor.keys("ctrl+n")
    editor.dialog("New")
    editor.keys("Down", "Return")
    page = editor.dialog("Map Properties")
    take(page, folder / "wizard-size.png")
    editor.click(editor.find("push button", "Next", page))

    page = editor.dialog("Cell Properties")
    add_values(editor, page, "Star", ["Red", "Yellow", "Blue"])
    set_slider(sliders(editor, page, "Coverage")[0], 60)
    set_slider(sliders(editor, page, "Share")[1], 30)
    take(page, folder / "wizard-global.png")
    editor.click(editor.find("push button", "Next", page))

    page = editor.dialog("Cell Properties")
    add_values(editor, page, "Empire", ["Aurelia", "Borea"])
    place_origin(editor, page, 70, 60)
    editor.click(cells_of(editor, page, "Property Values")[0])
    place_origin(editor, page, 25, 30)
    take(page, folder / "wizard-region.png")
    editor.click(editor.find("push button", "Cancel", page))


def write_settings(share):
    """The definitions for a new map, as an installed copy knows them."""
    file = pathlib.Path(os.environ["HOME"]) / ".config/Kelmsor/Quorvel.conf"
    file.parent.mkdir(parents=True)
    file.write_text(f"[Software\\Kelmsor\\Quorvel\\Definitions]\nDefaultFile={share.resolve()}/Definitions.txt\n")


def main():
    program, share, folder = sys.argv[1], *map(pathlib.Path, sys.argv[2:])
    folder.mkdir(exist_ok=True)
    write_settings(share)
    editor = Editor(program, *(str(share / "samples" / name) for name in ("galaxy.vrl", "cradle.vrl")))
    try:
        editor.await_title("Quorvel Vastrelum - [cradle.vrl]")
        cells = editor_at_work(editor, folder)
        painting(editor, cells, folder)
        filtering(editor, folder)
        preview(editor, folder)
        wizard(editor, folder)
    finally:
        editor.end()


main()
