#!/usr/bin/python3
"""A GTK 4 program with one window that fills the screen, off which a file or its text can be dragged.

GtkSource.py FILE RESULT [text]
    FILE     what is dragged, or with "text" the text in it
    RESULT   whether it was taken goes into this file: "taken" or "refused"

Like Peer, it writes a line to standard output for what happens to its window ("entered", "left", "pressed", "dragged
over", "drag left"), and when the target of its own drag begins or ceases to take it ("taken", "untaken").
"""

import sys

import gi

gi.require_version("Gtk", "4.0")
gi.require_version("Gdk", "4.0")
from gi.repository import Gdk, Gio, GLib, Gtk  # noqa: E402

path, result = sys.argv[1:3]
is_text = sys.argv[3:] == ["text"]


def say(line):
    print(line, flush=True)


def write_result(outcome):
    with open(result, "w") as file:
        file.write(outcome)


def prepare(_source, _x, _y):
    if is_text:
        with open(path) as file:
            return Gdk.ContentProvider.new_for_value(file.read())
    return Gdk.ContentProvider.new_for_value(Gdk.FileList.new_from_list([Gio.File.new_for_path(path)]))


def follow(_source, drag):
    drag.connect("notify::selected-action",
                 lambda *_: say("taken" if drag.get_selected_action() == Gdk.DragAction.COPY else "untaken"))
    drag.connect("dnd-finished", lambda _: write_result("taken"))
    drag.connect("cancel", lambda *_: write_result("refused"))


def controllers():
    source = Gtk.DragSource(actions=Gdk.DragAction.COPY)
    source.connect("prepare", prepare)
    source.connect("drag-begin", follow)
    press = Gtk.GestureClick(propagation_phase=Gtk.PropagationPhase.CAPTURE)
    press.connect("pressed", lambda *_: say("pressed"))
    pointer = Gtk.EventControllerMotion()
    pointer.connect("enter", lambda *_: say("entered"))
    pointer.connect("leave", lambda *_: say("left"))
    drags = Gtk.DropControllerMotion()
    drags.connect("enter", lambda *_: say("dragged over"))
    drags.connect("leave", lambda *_: say("drag left"))
    return source, press, pointer, drags


def open_window():
    window = Gtk.Window(decorated=False)
    for controller in controllers():
        window.add_controller(controller)
    window.maximize()
    window.present()


GLib.set_prgname("GtkSource")
Gtk.init()
open_window()
GLib.MainLoop().run()
