#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Prints what AT-SPI shows of a running application, a line for each object: its role, name, states and actions.

    accessible_tree.py APPLICATION [--do ACTION NAME]

With --do it then performs that action of the first object whose name begins with NAME, and prints the events that follow
within a second.
"""
import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

STATES = ["SELECTED", "FOCUSED", "ENABLED"]


def walk(thing, depth=0):
    yield thing, depth
    for index in range(min(thing.get_child_count(), 500)):
        child = thing.get_child_at_index(index)
        if child:
            yield from walk(child, depth + 1)


def actions(thing):
    action = thing.get_action_iface()
    return [Atspi.Action.get_action_name(action, i) for i in range(action.get_n_actions())] if action else []


def line(thing):
    states = thing.get_state_set()
    shown = [state.lower() for state in STATES if states.contains(getattr(Atspi.StateType, state))]
    return f"{thing.get_role_name()} \"{thing.get_name()}\" {' '.join(shown)} {actions(thing)}"


def main():
    desktop = Atspi.get_desktop(0)
    names = [desktop.get_child_at_index(i) for i in range(desktop.get_child_count())]
    application = next((found for found in names if found and found.get_name() == sys.argv[1]), None)
    if not application:
        sys.exit(f"{sys.argv[1]} is not there, but " + ", ".join(found.get_name() for found in names if found))
    things = list(walk(application))
    for thing, depth in things:
        print("  " * depth + line(thing))
    if sys.argv[2:3] != ["--do"]:
        return
    wanted, name = sys.argv[3:5]
    listener = Atspi.EventListener.new(lambda event: print("event", event.type, event.source.get_name()))
    for kind in ["object:state-changed:focused", "object:property-change:accessible-name", "object:selection-changed"]:
        listener.register(kind)
    target = next(thing for thing, _ in things if thing.get_name().startswith(name) and wanted in actions(thing))
    Atspi.Action.do_action(target.get_action_iface(), actions(target).index(wanted))
    loop = GLib.MainLoop()
    GLib.timeout_add(1000, loop.quit)
    loop.run()


main()
