"""What an assistive tool sees and hears of the programs on this display, over its bus."""

import os
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = int(os.environ.get("ASSISTIVE_PATIENCE", "180"))  # seconds, for a loaded machine

Role = Atspi.Role
State = Atspi.StateType


def wait_for(what, find):
    """What `find` returns, once that is something; events are heard meanwhile."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        while GLib.MainContext.default().iteration(False):
            pass
        try:
            found = find()
        except GLib.Error:  # it went while it was looked at
            found = None
        if found:
            return found
        time.sleep(0.05)
    raise AssertionError(f"no {what} within {PATIENCE} s")


def children(accessible):
    every = (accessible.get_child_at_index(i) for i in range(accessible.get_child_count()))
    return [child for child in every if child is not None]


def below(accessible):
    for child in children(accessible):
        yield child
        yield from below(child)


def has(accessible, state):
    return accessible.get_state_set().contains(state)


def windows():
    return [
        window
        for application in children(Atspi.get_desktop(0))
        for window in children(application)
        if has(window, State.SHOWING)
    ]


def window(title):
    """The window of that title, once it is there."""
    return wait_for(
        f'window "{title}"',
        lambda: next((found for found in windows() if found.get_name() == title), None),
    )


def gone(title):
    wait_for(
        f'end of "{title}"',
        lambda: title not in [found.get_name() for found in windows()],
    )


def control(inside, role, name, description=None):
    """The control of that kind that is called so, once it is on view."""

    def find():
        for found in below(inside):
            if found.get_role() != role or found.get_name() != name:
                continue
            if description not in (None, found.get_description()):
                continue
            if has(found, State.SHOWING):
                return found
        return None

    return wait_for(f'"{name}" in "{inside.get_name()}"', find)


def press(found):
    found.get_action_iface().do_action(0)


def snapshot(inside):
    """All below it by role and name."""
    found = {}
    for one in below(inside):
        found.setdefault((one.get_role(), one.get_name()), []).append(one)
    return found


def captions(found):
    """The names of the labels beside it."""
    return [
        relation.get_target(i).get_name()
        for relation in found.get_relation_set()
        if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY
        for i in range(relation.get_n_targets())
    ]


class Focus:
    """What has got the focus since."""

    def __init__(self):
        self.sources = []
        self.listener = Atspi.EventListener.new(lambda event: self.sources.append(event.source))
        self.listener.register("object:state-changed:focused")

    def last(self, role):
        return next((one for one in reversed(self.sources) if one.get_role() == role), None)


class Announcements:
    """The words of every notification that comes up or changes from now on, in their order."""

    def __init__(self):
        self.words = []
        self.listener = Atspi.EventListener.new(self.hear)
        for event in ("object:state-changed:showing", "object:property-change:accessible-name"):
            if not self.listener.register(event):
                raise AssertionError(f"{event} cannot be listened to")

    def hear(self, event):
        try:
            if event.source.get_role() == Role.NOTIFICATION:
                self.words.append((str(event.type), event.source.get_name()))
        except GLib.Error:  # it went while it was spoken of
            pass

    def shown(self, beginning):
        """Waits for a notification that comes up with words that begin so; those before are dropped."""
        wait_for(
            f'notification "{beginning}"',
            lambda: any("showing" in kind and words.startswith(beginning) for kind, words in self.words),
        )
        self.words.clear()

    def heard(self, beginning):
        """The next words that begin so, once both events of them have come; those before are dropped."""

        def find():
            said = [kind for kind, words in self.words if words.startswith(beginning)]
            return any("showing" in kind for kind in said) and any("name" in kind for kind in said)

        wait_for(f'announcement "{beginning}"', find)
        words = next(words for _, words in self.words if words.startswith(beginning))
        self.words.clear()
        return words
