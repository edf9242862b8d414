"""Uses the dialog as a screen reader does, through AT-SPI: walks all three windows and presses
Insert. accessibility_walk.py COMMAND

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


def expect(holds, problem):
    if not holds:
        problems.append(problem)
        print("PROBLEM:", problem)


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


def has(item, state):
    return item.get_state_set().contains(state)


def find(root, name, role):
    return next((i for i in walk(root) if (i.get_name(), i.get_role_name()) == (name, role)), None)


def window(title):
    frames = (frame for each in children(Atspi.get_desktop(0)) for frame in children(each))
    return next((frame for frame in frames
                 if frame.get_name() == title and has(frame, Atspi.StateType.SHOWING)), None)


def press(frame, name, role):
    """Does the first action of a control."""
    item = find(frame, name, role)
    expect(item.get_n_actions() and item.do_action(0), f"the {role} {name} cannot be pressed")


def inspect(title):
    """Waits for a window and listens to what is in it."""
    frame = await_result(title, lambda: window(title))
    heard = set()
    for item in walk(frame):
        name, role = item.get_name(), item.get_role_name()
        heard.add((role, name))
        # What belongs to a control that has a name itself: a list that drops down, the grip.
        whole = item.get_parent().get_role_name()
        if role not in PARTS and whole not in ("combo box", "status bar"):
            expect(role not in ("unknown", "invalid"), f"{name!r} has no role")
            expect(name, f"a {role} in {title!r} has no name")
    wanted = {(role, name) for role, names in WANTED[title].items() for name in names}
    expect(wanted <= heard, f"missing in {title!r}: {wanted - heard} of {heard}")
    return frame


def label_of(item):
    return [relation.get_target(0).get_name() for relation in item.get_relation_set()
            if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY]


dialog = subprocess.Popen([sys.argv[1]], stdout=subprocess.PIPE, text=True)
main = inspect("Listwright")
preview = find(main, "Preview", "text")
expect(has(preview, Atspi.StateType.READ_ONLY) and not has(preview, Atspi.StateType.EDITABLE),
       "the preview is not told of as text that is only read")
for label, role in (("Start", "text"), ("Suffix", "combo box"), ("Ending", "text")):
    expect(role in [item.get_role_name() for item in walk(main) if label in label_of(item)],
           f"the label {label} does not belong to its box")

# The links open the editors, whose buttons close them.
for link, title, button in (("Prefix", "Edit Step - Prefixes", "Cancel"),
                            ("Beginning", "Beginning (Storage)", "OK")):
    press(main, link, "link")
    editor = inspect(title)
    off = find(editor, "Apply text 15", "push button")
    expect(not (off and off.get_n_actions()), "an empty text can be applied")
    press(editor, button, "push button")
    await_result(f"{title} closed", lambda: window(title) is None)

press(main, "Increase End", "push button")
end = find(main, "End", "text")
await_result("End 4", lambda: Atspi.Text.get_text(end, 0, -1) == "4")
press(main, "Insert", "push button")
inserted, _ = dialog.communicate(timeout=PATIENCE)
expect((inserted, dialog.returncode) == ("    1. \n    2. \n    3. \n    4. \n", 0),
       f"Insert: status {dialog.returncode}, list {inserted!r}")
sys.exit(1 if problems else 0)
