"""A window at the top left of the screen, from which the paths given as arguments can be dragged."""

import pathlib
import sys

import gi

gi.require_version("Gdk", "3.0")
gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, Gtk  # noqa: E402

TITLE = "Drag source"
SIZE = 120


def _give(_widget, _context, data, _info, _time):
    data.set_uris([pathlib.Path(path).resolve().as_uri() for path in sys.argv[1:]])


def _main():
    window = Gtk.Window(title=TITLE)
    window.set_default_size(SIZE, SIZE)
    area = Gtk.EventBox()
    area.drag_source_set(Gdk.ModifierType.BUTTON1_MASK, [], Gdk.DragAction.COPY)
    area.drag_source_add_uri_targets()
    area.connect("drag-data-get", _give)
    window.add(area)
    window.connect("destroy", Gtk.main_quit)
    window.show_all()
    window.move(0, 0)
    Gtk.main()


if __name__ == "__main__":
    _main()
