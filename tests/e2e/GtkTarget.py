#!/usr/bin/python3
"""A GTK program with one window that takes drops.

GtkTarget.py VERSION KIND RESULT
    VERSION  3 or 4
    KIND     "files" or "text", which it takes as GTK programs do; GTK 3 also takes a format as it comes, by its name
    RESULT   what it got goes into this file; the addresses of files are lines. RESULT.over gets a byte each time
             that something is moved over the window
"""

import os
import sys

import gi

version, kind, result = sys.argv[1:4]
gi.require_version("Gtk", version + ".0")
gi.require_version("Gdk", version + ".0")
from gi.repository import Gdk, GLib, GObject, Gtk  # noqa: E402


def write(content):
    """The file is there only once it is whole."""
    with open(result + ".part", "wb") as file:
        file.write(content)
    os.rename(result + ".part", result)


def write_files(addresses):
    write("".join(address + "\n" for address in addresses).encode())


def hover(*_arguments):
    with open(result + ".over", "ab") as file:
        file.write(b".")


def take_gtk3(_widget, context, _x, _y, data, _info, time):
    if kind == "files":
        write_files(data.get_uris())
    elif kind == "text":
        write((data.get_text() or "").encode())
    else:
        write(data.get_data())
    Gtk.drag_finish(context, True, False, time)


def open_gtk3():
    window = Gtk.Window(default_width=400, default_height=300)
    window.drag_dest_set(Gtk.DestDefaults.ALL, [], Gdk.DragAction.COPY)
    if kind == "files":
        window.drag_dest_add_uri_targets()
    elif kind == "text":
        window.drag_dest_add_text_targets()
    else:
        window.drag_dest_set_target_list([Gtk.TargetEntry.new(kind, 0, 0)])
    window.connect("drag-data-received", take_gtk3)
    window.connect("drag-motion", hover)
    window.show_all()
    Gtk.main()


def hover_gtk4(_target, _x, _y):
    hover()
    return Gdk.DragAction.COPY


def take_value(_target, value, _x, _y):
    if kind == "files":
        write_files(file.get_uri() for file in value.get_files())
    else:
        write(value.encode())
    return True


def open_gtk4():
    target = Gtk.DropTarget.new(Gdk.FileList if kind == "files" else GObject.TYPE_STRING, Gdk.DragAction.COPY)
    target.connect("drop", take_value)
    target.connect("motion", hover_gtk4)
    window = Gtk.Window(default_width=400, default_height=300)
    window.add_controller(target)
    # A program in a Wayland session cannot place its window.
    if os.environ.get("XDG_SESSION_TYPE") == "wayland":
        window.set_decorated(False)
        window.maximize()
    window.present()
    GLib.MainLoop().run()


# The tests find the window by this name.
GLib.set_prgname("Peer")
if version == "3":
    open_gtk3()
else:
    Gtk.init()
    open_gtk4()
