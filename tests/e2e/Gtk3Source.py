#!/usr/bin/python3
"""A GTK 3 program with one window that fills the screen, off which data can be dragged.

Gtk3Source.py FILE TYPE RESULT [FILE TYPE]...
    What is in each FILE is offered as TYPE. RESULT gets whether it was taken: "taken" or "refused".

Like Peer, it writes a line to standard output for what happens to its window ("entered", "left", "pressed", "dragged
over", "drag left"), and when the target of its own drag begins or ceases to take it ("taken", "untaken").
"""

import sys

import gi

gi.require_version("Gtk", "3.0")
gi.require_version("Gdk", "3.0")
from gi.repository import Gdk, GLib, Gtk  # noqa: E402

arguments = sys.argv[1:]
result = arguments.pop(2)
files = dict(zip(arguments[1::2], arguments[0::2]))


def say(line):
    print(line, flush=True)


def write_result(outcome):
    with open(result, "w") as file:
        file.write(outcome)


def deliver(_widget, _context, data, _info, _time):
    with open(files[data.get_target().name()], "rb") as file:
        data.set(data.get_target(), 8, file.read())


def follow(_widget, context):
    context.connect("action-changed",
                    lambda _, action: say("taken" if action == Gdk.DragAction.COPY else "untaken"))
    context.connect("dnd-finished", lambda _: write_result("taken"))
    context.connect("cancel", lambda *_: write_result("refused"))


def fill_screen(window):
    """KWin and GTK 3 as a Wayland program may tell each other the size of a maximised window for ever."""
    display = Gdk.Display.get_default()
    if "Wayland" not in type(display).__name__:
        window.maximize()
        return
    area = display.get_monitor(0).get_geometry()
    window.set_default_size(area.width, area.height)


def open_window():
    window = Gtk.Window(decorated=False)
    window.drag_source_set(Gdk.ModifierType.BUTTON1_MASK, [Gtk.TargetEntry.new(type, 0, 0) for type in files],
                           Gdk.DragAction.COPY)
    # It takes nothing, but hears of what is dragged over it.
    window.drag_dest_set(0, [], Gdk.DragAction.COPY)
    window.add_events(Gdk.EventMask.ENTER_NOTIFY_MASK | Gdk.EventMask.LEAVE_NOTIFY_MASK)
    window.connect("drag-data-get", deliver)
    window.connect("drag-begin", follow)
    window.connect("button-press-event", lambda *_: say("pressed"))
    window.connect("enter-notify-event", lambda *_: say("entered"))
    window.connect("leave-notify-event", lambda *_: say("left"))
    window.connect("drag-motion", lambda *_: say("dragged over"))
    window.connect("drag-leave", lambda *_: say("drag left"))
    window.connect("destroy", Gtk.main_quit)
    fill_screen(window)
    window.show_all()


GLib.set_prgname("Gtk3Source")
open_window()
Gtk.main()
