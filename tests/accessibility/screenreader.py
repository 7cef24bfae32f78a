# SPDX-License-Identifier: MIT
"""A screen reader for tests: starts a program, hears what it announces on the system's accessibility
bus, and reads and uses its widgets from there. It waits for announcements, never for time to pass."""

import os
import subprocess
import tempfile
import warnings

import gi
gi.require_version('Atspi', '2.0')
from gi.repository import Atspi, GLib  # noqa: E402

# Its getters of interfaces are deprecated for functions that the older ones have not got.
warnings.simplefilter('ignore', DeprecationWarning)

PATIENCE_MS = 10000
STATES = Atspi.StateType


class Widget:
    """What the bus tells of a widget, asked for anew each time."""

    def __init__(self, accessible):
        self.accessible = accessible

    @property
    def name(self):
        return self.accessible.get_name()

    @property
    def description(self):
        return self.accessible.get_description()

    @property
    def role(self):
        return self.accessible.get_role_name()

    @property
    def children(self):
        accessible = self.accessible
        return [Widget(accessible.get_child_at_index(i))
                for i in range(accessible.get_child_count())]

    def all(self):
        yield self
        for child in self.children:
            yield from child.all()

    def has(self, state):
        return self.accessible.get_state_set().contains(state)

    @property
    def actions(self):
        actions = self.accessible.get_action_iface()
        return [actions.get_action_name(i) for i in range(actions.get_n_actions())]

    def do(self, action):
        self.accessible.get_action_iface().do_action(self.actions.index(action))

    def press(self):
        self.do('Press')

    @property
    def value(self):
        return self.accessible.get_value_iface()

    @property
    def range(self):
        value = self.value
        return value.get_minimum_value(), value.get_maximum_value()

    @property
    def text(self):
        return self.accessible.get_text_iface()

    @property
    def contents(self):
        return Atspi.Text.get_text(self.text, 0, -1)

    @property
    def selection(self):
        """The selected text's start and end, or nothing."""
        if Atspi.Text.get_n_selections(self.text) == 0:
            return None
        chosen = Atspi.Text.get_selection(self.text, 0)
        return chosen.start_offset, chosen.end_offset

    @property
    def editor(self):
        return self.accessible.get_editable_text_iface()


class ScreenReader:
    def __init__(self):
        Atspi.init()
        self.heard = []  # announcements: their kind, the widget's name, its role, a detail, a text
        self.listener = Atspi.EventListener.new(self._hear)
        for kinds in ('object:', 'window:'):
            self.listener.register(kinds)
        self.program = None
        self.said = None

    def _hear(self, event):
        try:
            text = event.any_data if isinstance(event.any_data, str) else None
            self.heard.append((event.type, event.source.get_name(), event.source.get_role_name(),
                               event.detail1, text))
        except GLib.Error:
            pass  # who told it is gone already

    def start(self, command, window):
        """Starts a program and waits until its window by that name is the active one."""
        self.heard.clear()
        self.said = tempfile.TemporaryFile(mode='w+')
        # The display's remarks on windows that have gone are none of this.
        rules = {'QT_LOGGING_RULES': '*.debug=false;qt.qpa.xcb*=false'}
        self.program = subprocess.Popen(command, stderr=self.said, env={**os.environ, **rules})
        self.wait_for(('window:activate', window))

    def stop(self):
        """Ends the program, and returns what it complained of."""
        self.program.terminate()
        self.program.wait()
        self.said.seek(0)
        with self.said:
            return self.said.read()

    def wait_until(self, holds, what):
        late = []
        timer = GLib.timeout_add(PATIENCE_MS, late.append, True)
        while not holds():
            if late:
                heard = '\n  '.join(map(str, self.heard))
                raise AssertionError(f'{what}\nheard since:\n  {heard}')
            GLib.MainContext.default().iteration(True)
        if not late:
            GLib.source_remove(timer)

    def wait_for(self, announcement):
        """Waits for an announcement that begins so; None stands for anything."""
        def is_it(heard):
            return all(wanted is None or wanted == got for wanted, got in zip(announcement, heard))
        self.wait_until(lambda: any(map(is_it, self.heard)), f'{announcement} is not announced')

    def applications(self):
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(i)
            if application and application.get_process_id() == self.program.pid:
                # Each answer is to be the program's own, not what this side remembers of it.
                application.set_cache_mask(Atspi.Cache.NONE)
                yield Widget(application)

    def find(self, name=None, role=None):
        """Returns the one widget by that name and role; None stands for any."""
        found = [widget for application in self.applications() for widget in application.all()
                 if name in (None, widget.name) and role in (None, widget.role)]
        if len(found) != 1:
            raise AssertionError(f'{len(found)} widgets are a "{role}" called "{name}"')
        return found[0]
