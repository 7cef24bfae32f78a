# SPDX-License-Identifier: MIT
"""tst_accessibility.py HOST [TEST...]: what a screen reader is told of the widgets in the host
program, what it hears when they change, and what it can do to them."""

import sys
import unittest

from screenreader import STATES, Atspi, ScreenReader

HOST = sys.argv.pop(1)
NAME = 'object:property-change:accessible-name'
VALUE = 'object:property-change:accessible-value'
CHECKED = 'object:state-changed:checked'
ENABLED = 'object:state-changed:enabled'
FOCUSED = 'object:state-changed:focused'
DELETED = 'object:text-changed:delete'
INSERTED = 'object:text-changed:insert'
CARET = 'object:text-caret-moved'
SELECTED = 'object:text-selection-changed'
TEXT_EVENTS = (DELETED, INSERTED, CARET, SELECTED)

reader = ScreenReader()


class Hosted(unittest.TestCase):
    """Each class has a host of its own, whose widgets its tests leave as they are not."""

    @classmethod
    def setUpClass(cls):
        reader.start([HOST], 'Widgets')

    @classmethod
    def tearDownClass(cls):
        complaints = reader.stop()
        if complaints:
            raise AssertionError('the host complains:\n' + complaints)

    def change(self, what):
        """Has the host change something; only what is announced from now on counts."""
        reader.heard.clear()
        reader.find(what, 'push button').press()

    def wait_for(self, *announcement):
        reader.wait_for(announcement)

    def wait_until_told(self, what):
        self.wait_for(NAME, what, 'label')
        self.assertEqual(reader.find(what).role, 'label')

    def focus_on(self, what, name):
        self.change(what)
        self.wait_for(FOCUSED, name, None, 1)


class TitleBar(Hosted):
    def test_window_is_a_frame_called_by_its_title(self):
        window = reader.find('Widgets', 'frame')
        self.assertTrue(window.has(STATES.ACTIVE))

    def test_title_bar_has_a_name_for_who_gets_there(self):
        self.focus_on('Go to the title bar', 'Title bar')
        bar = reader.find('Title bar', 'panel')
        self.assertTrue(bar.has(STATES.FOCUSED))

    def test_buttons_have_names_and_can_be_pressed(self):
        buttons = [child for child in reader.find('Title bar').children
                   if child.role == 'push button']
        names = [button.name for button in buttons]
        for name in ('Minimize', 'Maximize', 'Close', 'Search'):
            self.assertIn(name, names)
        for button in buttons:
            self.assertIn('Press', button.actions)

    def test_maximise_button_is_called_by_what_it_does(self):
        button = reader.find('Maximize')
        reader.heard.clear()
        button.press()
        self.wait_for(NAME, 'Restore', 'push button')
        self.assertEqual(button.name, 'Restore')
        reader.heard.clear()
        button.press()
        self.wait_for(NAME, 'Maximize', 'push button')
        self.assertEqual(button.name, 'Maximize')

    def test_menus_are_found(self):
        menu = reader.find('File', 'menu item')
        self.assertEqual(menu.actions, ['ShowMenu'])
        self.assertEqual(reader.find('New', 'menu item').actions, ['Press'])

    def test_action_is_a_button_that_triggers_it(self):
        reader.heard.clear()
        reader.find('Search', 'push button').press()
        self.wait_until_told('searched')


class Leaving(Hosted):
    def test_minimise_and_close_buttons_do_so(self):
        reader.heard.clear()
        close = reader.find('Close')
        reader.find('Minimize').press()
        self.wait_for('window:deactivate')
        close.press()
        self.assertEqual(reader.program.wait(10), 0)


class NavigationBar(Hosted):
    def test_it_is_a_tool_bar_of_its_entries(self):
        bar = reader.find(role='tool bar')
        self.assertEqual([(child.role, child.name) for child in bar.children],
                         [('push button', 'Open'), ('check box', 'Pin'), ('separator', ''),
                          ('push button', 'Start page'), ('push button', 'Ada'),
                          ('push button', 'Help')])

    def test_entry_triggers_its_action(self):
        for entry, told in (('Open', 'opened'), ('Ada', 'met Ada'), ('Help', 'help:contents')):
            reader.heard.clear()
            reader.find(entry).press()
            self.wait_until_told(told)

    def test_tool_tip_describes_the_entry(self):
        self.assertEqual(reader.find('Pin').description, 'Keeps it on top')

    def test_checkable_entry_can_be_toggled(self):
        pin = reader.find('Pin', 'check box')
        self.assertFalse(pin.has(STATES.CHECKED))
        reader.heard.clear()
        pin.do('Toggle')
        self.wait_for(CHECKED, 'Pin', 'check box', 1)
        self.assertTrue(pin.has(STATES.CHECKED))
        reader.heard.clear()
        pin.do('Toggle')
        self.wait_for(CHECKED, 'Pin', 'check box', 0)
        self.change('Pin it')
        self.wait_for(CHECKED, 'Pin', 'check box', 1)
        self.assertTrue(pin.has(STATES.CHECKED))

    def test_changes_of_the_action_are_followed(self):
        entry = reader.find('Open')
        self.change('Take another name')
        self.wait_for(NAME, 'Save', 'push button')
        self.assertEqual(entry.name, 'Save')
        self.change('Forbid it')
        self.wait_for(ENABLED, 'Save', 'push button', 0)
        self.assertFalse(entry.has(STATES.ENABLED))
        self.assertNotIn('Press', entry.actions)
        self.change('Take the old name')
        self.wait_for(NAME, 'Open', 'push button')
        self.change('Allow it')
        self.wait_for(ENABLED, 'Open', 'push button', 1)
        self.assertIn('Press', entry.actions)

    def test_entry_comes_and_goes(self):
        self.change('Add an entry')
        self.wait_for('object:state-changed:showing', 'Late', 'push button', 1)
        bar = reader.find(role='tool bar')
        self.assertIn('Late', [child.name for child in bar.children])
        self.change('Remove the entry')
        self.wait_until_told('removed')
        self.assertNotIn('Late', [child.name for child in bar.children])


class Indicators(Hosted):
    def test_ring_tells_value_and_range(self):
        ring = reader.find('Download', 'progress bar')
        self.assertEqual(ring.range, (0, 200))
        self.assertTrue(ring.has(STATES.READ_ONLY))
        before = ring.value.get_current_value()
        self.change('Advance the ring')
        self.wait_for(VALUE, 'Download', 'progress bar')
        self.assertEqual(ring.value.get_current_value(), before + 10)

    def test_stages_tell_value_and_range(self):
        stages = reader.find('Order', 'progress bar')
        self.assertEqual(stages.range, (0, 3))
        self.assertEqual(stages.value.get_current_value(), 1)
        self.change('Advance the order')
        self.wait_for(VALUE, 'Order', 'progress bar')
        self.assertEqual(stages.value.get_current_value(), 2)

    def test_progress_is_not_the_readers_to_set(self):
        for name in ('Download', 'Order'):
            bar = reader.find(name, 'progress bar')
            before = bar.value.get_current_value()
            bar.value.set_current_value(before + 1)
            self.assertEqual(bar.value.get_current_value(), before)

    def test_switch_is_a_check_box_that_can_be_toggled(self):
        switch = reader.find('Night mode', 'check box')
        self.assertFalse(switch.has(STATES.CHECKED))
        reader.heard.clear()
        switch.do('Toggle')
        self.wait_until_told('night')
        self.wait_for(CHECKED, 'Night mode', 'check box', 1)
        self.assertTrue(switch.has(STATES.CHECKED))
        reader.heard.clear()
        switch.do('Toggle')
        self.wait_until_told('day')
        self.wait_for(CHECKED, 'Night mode', 'check box', 0)
        self.assertFalse(switch.has(STATES.CHECKED))

    def test_switch_that_the_program_turns_is_heard(self):
        switch = reader.find('Night mode', 'check box')
        self.change('Turn the lights out')
        self.wait_for(CHECKED, 'Night mode', 'check box', 1)
        self.change('Lock the switch')
        self.wait_for(ENABLED, 'Night mode', 'check box', 0)
        self.assertNotIn('Toggle', switch.actions)
        self.change('Free the switch')
        self.wait_for(ENABLED, 'Night mode', 'check box', 1)
        switch.do('Toggle')
        self.wait_for(CHECKED, 'Night mode', 'check box', 0)

    def test_switch_takes_the_focus(self):
        self.focus_on('Go to the address', 'Server')
        reader.heard.clear()
        reader.find('Night mode').do('SetFocus')
        self.wait_for(FOCUSED, 'Night mode', 'check box', 1)

    def test_choice_of_a_combo_box_is_heard(self):
        box = reader.find(role='combo box')
        self.assertEqual(box.name, 'Red')  # on Linux Qt calls a combo box by its choice
        self.change('Choose green')
        self.wait_for('object:selection-changed', 'Green', 'combo box')
        self.assertEqual(box.name, 'Green')


class AddressEdit(Hosted):
    def setUp(self):
        self.edit = reader.find('Server', 'text')
        self.change('Move the server home')
        self.wait_until_told('moved')
        self.focus_on('Go to the address', 'Server')
        self.place_caret(0)

    def place_caret(self, offset):
        """Places the caret, and waits until that was heard: then all before was heard, too."""
        other = 5 if offset != 5 else 6
        Atspi.Text.set_caret_offset(self.edit.text, other)
        self.wait_for(CARET, 'Server', 'text', other)
        reader.heard.clear()
        Atspi.Text.set_caret_offset(self.edit.text, offset)
        self.wait_for(CARET, 'Server', 'text', offset)
        reader.heard.clear()

    def texts(self):
        """What was announced of the edit, as kind, offset and text."""
        return [(kind, detail, text) for kind, name, _, detail, text in reader.heard
                if kind in TEXT_EVENTS and name == 'Server']

    def type(self, keysym):
        Atspi.generate_keyboard_event(keysym, None, Atspi.KeySynthType.SYM)

    def test_it_is_an_editable_text_with_the_address(self):
        self.assertTrue(self.edit.has(STATES.EDITABLE))
        self.assertTrue(self.edit.has(STATES.FOCUSED))
        self.assertEqual(self.edit.contents, '192.168.0.1')
        self.assertEqual(Atspi.Text.get_character_count(self.edit.text), 11)
        self.assertEqual(Atspi.Text.get_text(self.edit.text, 4, 7), '168')

    def test_characters_are_where_they_are_shown(self):
        place = self.edit.accessible.get_component_iface().get_extents(Atspi.CoordType.SCREEN)
        lefts = []
        for offset in (0, 1, 2, 4, 8, 10):
            box = Atspi.Text.get_character_extents(self.edit.text, offset, Atspi.CoordType.SCREEN)
            self.assertGreaterEqual(box.x, place.x)
            self.assertLess(box.x + box.width, place.x + place.width)
            lefts.append(box.x)
            found = Atspi.Text.get_offset_at_point(self.edit.text, box.x + 1, box.y + 1,
                                                   Atspi.CoordType.SCREEN)
            self.assertEqual(found, offset)
        self.assertEqual(lefts, sorted(set(lefts)))

    def test_caret_can_be_placed(self):
        for offset in (3, 8, 11, 0):
            reader.heard.clear()
            Atspi.Text.set_caret_offset(self.edit.text, offset)
            self.wait_for(CARET, 'Server', 'text', offset)
            self.assertEqual(Atspi.Text.get_caret_offset(self.edit.text), offset)

    def test_caret_that_the_keyboard_moves_is_heard(self):
        self.type(0xff53)  # right
        self.wait_for(CARET, 'Server', 'text', 1)
        self.assertEqual(Atspi.Text.get_caret_offset(self.edit.text), 1)
        self.assertEqual(self.texts(), [(CARET, 1, None)])

    def test_typed_digit_alone_is_heard(self):
        self.place_caret(11)
        self.type(ord('7'))
        self.wait_for(CARET, 'Server', 'text', 12)
        self.assertEqual(self.edit.contents, '192.168.0.17')
        self.assertEqual(self.texts(), [(INSERTED, 11, '7'), (CARET, 12, None)])
        reader.heard.clear()
        self.type(0xff08)  # backspace
        self.wait_for(DELETED, 'Server', 'text', 11, '7')
        self.assertEqual(self.texts(), [(CARET, 11, None), (DELETED, 11, '7')])

    def test_change_by_the_program_is_heard_where_it_is(self):
        self.change('Move the server')
        self.wait_until_told('moved')
        self.assertEqual(self.edit.contents, '192.16.0.7')
        self.assertEqual(self.texts(), [(DELETED, 6, '8'), (DELETED, 9, '1'), (INSERTED, 9, '7')])

    def test_selection_can_be_made_and_read(self):
        self.assertIsNone(self.edit.selection)
        Atspi.Text.add_selection(self.edit.text, 4, 7)
        self.wait_for(SELECTED, 'Server', 'text')
        self.assertEqual(self.edit.selection, (4, 7))
        self.assertEqual(Atspi.Text.get_caret_offset(self.edit.text), 7)
        reader.heard.clear()
        Atspi.Text.remove_selection(self.edit.text, 0)
        self.wait_for(SELECTED, 'Server', 'text')
        self.assertIsNone(self.edit.selection)

    def test_selection_that_the_user_makes_is_heard(self):
        self.place_caret(4)
        self.change('Select with the keyboard')
        self.wait_until_told('selected')
        self.wait_for(SELECTED, 'Server', 'text')
        self.assertEqual(self.edit.selection, (4, 5))
        reader.heard.clear()
        self.type(0xff1b)  # escape
        self.wait_for(SELECTED, 'Server', 'text')
        self.assertIsNone(self.edit.selection)

    def test_selection_that_goes_with_the_focus_is_heard(self):
        Atspi.Text.add_selection(self.edit.text, 0, 3)
        self.wait_for(SELECTED, 'Server', 'text')
        self.change('Go to the switch')
        self.wait_for(SELECTED, 'Server', 'text')
        self.assertIsNone(self.edit.selection)

    def test_address_can_be_set_and_edited(self):
        editor = self.edit.editor
        Atspi.EditableText.set_text_contents(editor, '10.20.30.40')
        self.wait_for(INSERTED, 'Server', 'text', 9, '40')
        self.assertEqual(self.edit.contents, '10.20.30.40')
        Atspi.EditableText.insert_text(editor, 5, '5', 1)
        self.assertEqual(self.edit.contents, '10.205.30.40')
        Atspi.EditableText.delete_text(editor, 0, 1)
        self.assertEqual(self.edit.contents, '0.205.30.40')

    def test_what_is_no_address_is_not_taken(self):
        editor = self.edit.editor
        for text in ('10.20.30', '300.1.1.1', 'localhost', ''):
            Atspi.EditableText.set_text_contents(editor, text)
            self.assertEqual(self.edit.contents, '192.168.0.1')

    def test_address_that_is_read_only_stays(self):
        self.change('Fix the address')
        self.wait_until_told('fixed')
        self.assertTrue(self.edit.has(STATES.READ_ONLY))
        self.assertFalse(self.edit.has(STATES.EDITABLE))
        Atspi.EditableText.set_text_contents(self.edit.editor, '10.20.30.40')
        Atspi.EditableText.insert_text(self.edit.editor, 11, '1', 1)
        Atspi.EditableText.delete_text(self.edit.editor, 0, 1)
        self.assertEqual(self.edit.contents, '192.168.0.1')
        self.change('Free the address')
        self.wait_until_told('freed')
        self.assertTrue(self.edit.has(STATES.EDITABLE))


class Windows(Hosted):
    def test_message_box_is_an_alert_with_its_text_and_buttons(self):
        self.focus_on('Go to the address', 'Server')
        self.change('Ask')
        self.wait_for('object:state-changed:showing', 'Delete', 'alert', 1)
        self.wait_for('window:activate', 'Delete', 'alert')
        self.wait_for(FOCUSED, 'No', 'push button', 1)
        box = reader.find('Delete', 'alert')
        self.assertEqual([widget.role for widget in box.all()
                          if widget.name == 'Delete it for good?'], ['label'])
        yes, no = (next(widget for widget in box.all() if widget.name == name)
                   for name in ('Yes', 'No'))
        self.assertTrue(no.has(STATES.FOCUSED))
        reader.heard.clear()
        yes.press()
        self.wait_until_told('answered yes')
        # Back to the window, and to who had the focus there.
        self.wait_for('window:activate', 'Widgets', 'frame')
        self.wait_for(FOCUSED, 'Server', 'text', 1)

    def test_message_box_and_window_are_told_of_like_qts_own(self):
        self.change('Ask plainly')
        self.wait_for('window:activate', 'Plain', 'alert')
        plain = reader.find('Plain')
        next(widget for widget in plain.all() if widget.name == 'No').press()
        self.wait_for('window:activate', 'Widgets')
        self.change('Show a plain window')
        self.wait_for('window:activate', 'Plain window')
        self.assertEqual(reader.find('Plain window').role, reader.find('Widgets').role)
        self.change('Hide the plain window')
        self.wait_for('window:activate', 'Widgets', 'frame')

    def test_busy_overlay_says_what_keeps_the_user_waiting(self):
        self.focus_on('Go to the address', 'Server')
        self.change('Be busy')
        self.wait_for(FOCUSED, 'Please wait', 'dialog', 1)
        self.assertTrue(reader.find('Please wait').has(STATES.BUSY))
        reader.heard.clear()
        self.change('Be done')
        self.wait_for(FOCUSED, 'Server', 'text', 1)


if __name__ == '__main__':
    unittest.main(verbosity=2)
