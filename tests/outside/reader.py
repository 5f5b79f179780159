"""Reads the program's windows like assistive technology. Import it only when there is a display: it connects at once.

Nothing is *done* through it: an action that opens a modal dialog would not return before the dialog closes.
"""

import re
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from wait import PATIENCE, until, until_equal  # noqa: E402

_PROGRAM = "quillon"
_DIALOG_ROLES = {Atspi.Role.ALERT, Atspi.Role.DIALOG, Atspi.Role.FILE_CHOOSER}
_CHECK_CELL = 0
_NAME_CELL = 2
_CELLS = 8
COLUMNS = ("リネーム名", "タイトル", "著作権/アーティスト", "種類", "サイズ", "場所")


def _children(node):
    return [child for child in (node.get_child_at_index(i) for i in range(node.get_child_count())) if child]


def _walk(node):
    yield node
    for child in _children(node):
        if child.get_role() != Atspi.Role.TABLE_CELL:
            yield from _walk(child)


def _reading(read):
    """Retries, because an object that disappears while it is read raises an error."""

    def reading(*arguments):
        deadline = time.monotonic() + PATIENCE
        while True:
            try:
                return read(*arguments)
            except GLib.Error:
                if time.monotonic() > deadline:
                    raise

    return reading


def _windows():
    desktop = Atspi.get_desktop(0)
    desktop.clear_cache()
    for program in _children(desktop):
        if program.get_name() != _PROGRAM:
            continue
        program.clear_cache()
        for window in _children(program):
            window.clear_cache()
            yield window


def _is(node, state):
    return node.get_state_set().contains(state)


def _find(role, name):
    for window in _windows():
        if window.get_role() in _DIALOG_ROLES:
            continue
        for node in _walk(window):
            if node.get_role() == role and node.get_name() == name:
                return node
    return None


@_reading
def names_of(role):
    """The names of the main window's controls with this role, in their order."""
    return [
        node.get_name()
        for window in _windows()
        if window.get_role() not in _DIALOG_ROLES
        for node in _walk(window)
        if node.get_role() == role
    ]


def _text_of(node):
    return Atspi.Text.get_text(node, 0, Atspi.Text.get_character_count(node))


class Row(tuple):
    """checked, then the columns' texts."""

    checked = property(lambda self: self[0])
    name = property(lambda self: self[1])
    title = property(lambda self: self[2])
    location = property(lambda self: self[6])


@_reading
def rows():
    """Every row of the list; None while there is no list."""
    table = _find(Atspi.Role.TABLE, "ファイルリスト")
    if table is None:
        return None
    found = []
    for number in range(Atspi.Table.get_n_rows(table)):
        cells = [Atspi.Table.get_accessible_at(table, number, column) for column in range(_CELLS)]
        for cell in cells:
            cell.clear_cache()
        texts = [cell.get_name() for cell in cells[_NAME_CELL:]]
        found.append(Row([_is(cells[_CHECK_CELL], Atspi.StateType.CHECKED), *texts]))
    return found


@_reading
def selected():
    """The numbers of the selected rows, from 0."""
    table = _find(Atspi.Role.TABLE, "ファイルリスト")
    return None if table is None else list(Atspi.Table.get_selected_rows(table))


@_reading
def box(name):
    """The text of the box with this accessible name."""
    node = _find(Atspi.Role.TEXT, name)
    return None if node is None else _text_of(node)


@_reading
def playing_time():
    """The text of the player's label, "00:01 / 00:04"."""
    for window in _windows():
        for node in _walk(window):
            if node.get_role() == Atspi.Role.LABEL and re.fullmatch(r"\d\d+:\d\d / \d\d+:\d\d", node.get_name()):
                return node.get_name()
    return None


@_reading
def has_focus(role, name):
    node = _find(role, name)
    return node is not None and _is(node, Atspi.StateType.FOCUSED)


def rename_box_has_focus():
    return has_focus(Atspi.Role.TEXT, "リネーム名")


def list_has_focus():
    return has_focus(Atspi.Role.TABLE, "ファイルリスト")


def _centre(node):
    place = Atspi.Component.get_extents(node, Atspi.CoordType.SCREEN)
    return place.x + place.width // 2, place.y + place.height // 2


@_reading
def cell_centre(row, column):
    """A cell's position on the screen; the columns are those of COLUMNS."""
    table = _find(Atspi.Role.TABLE, "ファイルリスト")
    cell = Atspi.Table.get_accessible_at(table, row, _NAME_CELL + COLUMNS.index(column))
    cell.clear_cache()
    return _centre(cell)


@_reading
def list_centre():
    return _centre(_find(Atspi.Role.TABLE, "ファイルリスト"))


@_reading
def header_extents(column):
    """Left, top, width, height of a column's header."""
    table = _find(Atspi.Role.TABLE, "ファイルリスト")
    header = Atspi.Table.get_column_header(table, _NAME_CELL + COLUMNS.index(column))
    place = Atspi.Component.get_extents(header, Atspi.CoordType.SCREEN)
    return place.x, place.y, place.width, place.height


def header_centre(column):
    left, top, width, height = header_extents(column)
    return left + width // 2, top + height // 2


@_reading
def dialog():
    """The texts and the buttons of the open dialog, as two lists; None when there is none."""
    for window in _windows():
        if window.get_role() not in _DIALOG_ROLES or not _is(window, Atspi.StateType.SHOWING):
            continue
        nodes = list(_walk(window))
        texts = [node.get_name() for node in nodes if node.get_role() == Atspi.Role.LABEL and node.get_name()]
        buttons = [node.get_name() for node in nodes if node.get_role() == Atspi.Role.PUSH_BUTTON]
        return texts, buttons
    return None


@_reading
def dialog_entry():
    """The text of the focused entry in the open dialog."""
    for window in _windows():
        if window.get_role() not in _DIALOG_ROLES:
            continue
        for node in _walk(window):
            if node.get_role() == Atspi.Role.TEXT and _is(node, Atspi.StateType.FOCUSED):
                return _text_of(node)
    return None


@_reading
def dialog_item_centre(name):
    """The position of a row in the file dialog's list; None while the row does not exist."""
    for window in _windows():
        if window.get_role() not in _DIALOG_ROLES:
            continue
        for table in _walk(window):
            if table.get_role() not in (Atspi.Role.TABLE, Atspi.Role.TREE_TABLE):
                continue
            for cell in _children(table):
                parts = [cell, *_children(cell)]  # a cell with an icon has its text in a child object
                if name in [part.get_name() for part in parts] and _is(cell, Atspi.StateType.SHOWING):
                    return _centre(cell)
    return None


@_reading
def open_menu():
    """The names of the open menu's items without separators; None when no menu is open."""
    for program in _children(Atspi.get_desktop(0)):
        if program.get_name() != _PROGRAM:
            continue
        for node in _walk(program):
            if node.get_role() != Atspi.Role.MENU_ITEM or not _is(node, Atspi.StateType.SHOWING):
                continue
            items = _children(node.get_parent())
            return [item.get_name() for item in items if item.get_role() != Atspi.Role.SEPARATOR]
    return None


def wait_for_dialog(text):
    """Waits for a dialog with this text; returns its buttons."""

    def find():
        found = dialog()
        return found if found and text in "\n".join(found[0]) else None

    return until(find, f"dialog “{text}”")[1]


def wait_for_no_dialog():
    until(lambda: dialog() is None, "the dialog closed")


def wait_for_box(name, text):
    until_equal(lambda: box(name), text, f"box {name}")


PENDING = "（未適応）"  # is read after a rename name that is not applied


def wait_for_names(names):
    until_equal(lambda: [row.name.removesuffix(PENDING) for row in rows() or []], names, "the rows' names")
