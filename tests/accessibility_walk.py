"""Uses the dialog as a screen reader does, through AT-SPI: walks all three windows, prints what a
person would hear of each control, and presses Insert. accessibility_walk.py COMMAND

Ends with 1 where a control has no name or no role, or is told of wrongly.
"""

import subprocess
import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = 60  # seconds until something that must happen counts as not happening

# Parts of a control and grounds that group controls: the control itself has the name.
PARTS = {"scroll bar", "filler", "list item", "separator", "viewport"}

# What must be told of, by window: names by role.
WANTED = {
    "Listwright": {"text": ["Preview", "Start", "Prefix"], "push button": ["Increase Start"],
                   "link": ["Prefix"], "list": ["Step Files"], "panel": ["Listing Type", "Actions"]},
    "Edit Step - Prefixes": {"list": ["Prefixes"], "push button": ["Step Roman macro", "Move up"]},
    "Beginning (Storage)": {"text": ["Text 15"], "push button": ["Apply text 15"]},
}

problems = []


def complain(text):
    problems.append(text)
    print("PROBLEM:", text)


def await_result(what, ask):
    """Asks until there is an answer; the events of the accessibility bus come in meanwhile."""
    end = GLib.get_monotonic_time() + PATIENCE * 1_000_000
    while GLib.get_monotonic_time() < end:
        try:
            answer = ask()
        except GLib.Error:  # the object has just gone
            answer = None
        if answer:
            return answer
        GLib.MainContext.default().iteration(False)
    sys.exit(f"{what}: not within {PATIENCE} seconds")


def children(item):
    return [child for child in map(item.get_child_at_index, range(item.get_child_count())) if child]


def walk(item):
    yield item
    for child in children(item):
        yield from walk(child)


def find(root, name, role):
    return next((i for i in walk(root) if (i.get_name(), i.get_role_name()) == (name, role)), None)


def is_shown(item):
    return item.get_state_set().contains(Atspi.StateType.SHOWING)


def window(title):
    frames = (frame for each in children(Atspi.get_desktop(0)) for frame in children(each))
    return next((frame for frame in frames if frame.get_name() == title and is_shown(frame)), None)


def press(item, what):
    """Does the item's first action, or complains that it has none."""
    if not item.get_n_actions() or not item.do_action(0):
        complain(f"{what} cannot be pressed")


def is_part(item):
    """What belongs to a control that has a name itself: a list that drops down, the grip."""
    whole = item.get_parent().get_role_name()
    return item.get_role_name() in PARTS or whole in ("combo box", "status bar")


def inspect(frame):
    heard = set()
    for item in walk(frame):
        name, role = item.get_name(), item.get_role_name()
        heard.add((name, role))
        if not is_part(item):
            print(f"    {role:14} {name}")
            if role in ("unknown", "invalid"):
                complain(f"{name!r} has no role")
            if not name:
                complain(f"a {role} in {frame.get_name()!r} has no name")
    for role, names in WANTED[frame.get_name()].items():
        for name in names:
            if (name, role) not in heard:
                complain(f"the {role} {name} is missing in {frame.get_name()!r}")


def open_and_inspect(title):
    frame = await_result(title, lambda: window(title))
    print(f"{title}:")
    inspect(frame)
    return frame


def labels_of(item):
    return [
        relation.get_target(0).get_name()
        for relation in item.get_relation_set()
        if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY
    ]


def main():
    dialog = subprocess.Popen([sys.argv[1]], stdout=subprocess.PIPE, text=True)
    frame = open_and_inspect("Listwright")

    preview = find(frame, "Preview", "text")
    states = preview.get_state_set()
    if states.contains(Atspi.StateType.EDITABLE) or not states.contains(Atspi.StateType.READ_ONLY):
        complain("the preview is not told of as text that is only read")
    for label, role in (("Start", "text"), ("Suffix", "combo box"), ("Ending", "text")):
        labelled = [item for item in walk(frame) if label in labels_of(item)]
        if role not in (item.get_role_name() for item in labelled):
            complain(f"the label {label} does not belong to its box")

    # The links open the editors, whose buttons close them.
    for link, title, button in (
        ("Prefix", "Edit Step - Prefixes", "Cancel"),
        ("Beginning", "Beginning (Storage)", "OK"),
    ):
        press(find(frame, link, "link"), link)
        editor = open_and_inspect(title)
        press(find(editor, button, "push button"), button)
        await_result(f"{title} closed", lambda: window(title) is None)

    press(find(frame, "Increase End", "push button"), "Increase End")
    end = find(frame, "End", "text")
    await_result("End 4", lambda: Atspi.Text.get_text(end, 0, -1) == "4")
    press(find(frame, "Insert", "push button"), "Insert")
    inserted, _ = dialog.communicate(timeout=PATIENCE)
    if inserted != "    1. \n    2. \n    3. \n    4. \n" or dialog.returncode != 0:
        complain(f"Insert: status {dialog.returncode}, list {inserted!r}")
    return 1 if problems else 0


sys.exit(main())
