#!/usr/bin/env python3
"""Makes the files in keymaps/ from the terminfo database (infocmp; Debian's ncurses-base and ncurses-term).
  scripts/make-keymaps.py            writes them anew
  scripts/make-keymaps.py --check    ends with 1 when one isn't what would be written, with 2 when that can't be told
The same database gives the same bytes."""
import os
import re
import subprocess
import sys
from pathlib import Path

FOLDER = Path(__file__).resolve().parent.parent / 'keymaps'

# --- terminfo ---------------------------------------------------------------------------------------------------------

NAMED = {'E': '\033', 'e': '\033', 'n': '\n', 'r': '\r', 't': '\t', 'b': '\b', 'f': '\f', 's': ' ', '^': '^',
         '\\': '\\', ',': ',', ':': ':'}
ESCAPE = re.compile(r'\\([0-7]{3}|.)|\^(.)', re.S)


def decode(text):
    """A capability's text as characters. An escape that isn't in NAMED stops the script: better none than wrong."""
    def one(match):
        escape, control = match.groups()
        if control:
            return chr(ord(control) ^ 0x40) if '?' <= control <= '_' else sys.exit(f'unknown control ^{control}')
        return chr(int(escape, 8)) if len(escape) == 3 else NAMED[escape]
    return ESCAPE.sub(one, text)


def capabilities(entry):
    """The key capabilities of one entry. Short names, because with -L infocmp leaves a backslash unescaped."""
    try:
        run = subprocess.run(['infocmp', '-1', '-x', entry], capture_output=True, text=True, check=True,
                             env={**os.environ, 'LC_ALL': 'C'})
    except (OSError, subprocess.CalledProcessError):
        print(f'no terminfo entry {entry}: install ncurses-bin and ncurses-term', file=sys.stderr)
        sys.exit(2)
    found = re.findall(r'^\t(k\w+)=(.*),$', run.stdout, re.M)
    return {name: decode(text) for name, text in found}


def octal(text):
    """As a key map writes it: printable characters stand as they are, others as three octal digits. So do the
    backslash, which would begin an escape, the quotation mark, for the reader's eyes, and a digit behind an escape."""
    out, escaped = '', False
    for c in text:
        escaped = not ' ' <= c <= '~' or c in '\\"' or (escaped and c.isdigit())
        out += f'\\{ord(c):03o}' if escaped else c
    return out


# --- keys -------------------------------------------------------------------------------------------------------------

CURSOR_KEYS = [('VK_UP', 'kcuu1'), ('VK_DOWN', 'kcud1'), ('VK_LEFT', 'kcub1'), ('VK_RIGHT', 'kcuf1')]
EDIT_KEYS = [('VK_HOME', 'khome'), ('VK_END', 'kend'), ('VK_INSERT', 'kich1'), ('VK_DELETE', 'kdch1'),
             ('VK_PRIOR', 'kpp'), ('VK_NEXT', 'knp')]
# Capabilities with these beginnings give a key with modifiers; the ending tells which.
MODIFIED_KEYS = [('VK_UP', 'kUP'), ('VK_DOWN', 'kDN'), ('VK_LEFT', 'kLFT'), ('VK_RIGHT', 'kRIT'), ('VK_HOME', 'kHOM'),
                 ('VK_END', 'kEND'), ('VK_INSERT', 'kIC'), ('VK_DELETE', 'kDC'), ('VK_PRIOR', 'kPRV'),
                 ('VK_NEXT', 'kNXT')]
MODIFIERS = [('', 'S'), ('3', 'A'), ('4', 'AS'), ('5', 'C'), ('6', 'CS'), ('7', 'AC')]
# A terminal keeps these two for its scrollback, although some entries name strings for them: without them the
# scrollback would be out of the keyboard's reach where PgUp and PgDn go to the host.
SCROLL_KEYS = [('VK_PRIOR', 'SB_PAGE_UP'), ('VK_NEXT', 'SB_PAGE_DOWN')]

# What the functions send, in either state of the terminal's modes.
CURSOR_FUNCTIONS = {f'\033{lead}{end}': f'VT_CURSOR_{name}' for lead in '[O'
                    for end, name in zip('ABDC', ('UP', 'DOWN', 'LEFT', 'RIGHT'))}
PF_FUNCTIONS = {f'\033O{"PQRS"[i]}': f'VT_PF{i + 1}' for i in range(4)}
VT220_FUNCTIONS = {f'\033[{code}~': name for code, name in [
    (1, 'VT_FIND'), (2, 'VT_INSERT_HERE'), (3, 'VT_REMOVE'), (4, 'VT_SELECT'), (5, 'VT_PREV_SCREEN'),
    (6, 'VT_NEXT_SCREEN'), (17, 'VT_F6'), (18, 'VT_F7'), (19, 'VT_F8'), (20, 'VT_F9'), (21, 'VT_F10'), (23, 'VT_F11'),
    (24, 'VT_F12'), (25, 'VT_F13'), (26, 'VT_F14'), (28, 'VT_F15'), (29, 'VT_F16'), (31, 'VT_F17'), (32, 'VT_F18'),
    (33, 'VT_F19'), (34, 'VT_F20')]}
KEYPAD = [('N', f'VK_NUMPAD{i}', f'VT_KEYPAD_{i}') for i in range(10)] + [
    ('N', 'VK_DECIMAL', 'VT_KEYPAD_PERIOD'), ('N', 'VK_SUBTRACT', 'VT_KEYPAD_MINUS'),
    ('N', 'VK_ADD', 'VT_KEYPAD_COMMA'), ('E', 'VK_RETURN', 'VT_KEYPAD_ENTER')]

CURSOR_MODE = 'Functions: what these keys send follows the cursor key mode.'
NO_CURSOR_MODE = 'Strings: this terminal has one form of these keys.'
KEYPAD_MODE = 'Functions: what the keypad sends follows the keypad mode.'


class Map:
    """One file. `blocks` say where the keys with numbers above 12 lie on a keyboard that ends at F12: beginning
    and number of the first capability, modifiers, number of the first key, how many."""

    def __init__(self, name, entries, head, *, functions=None, cursor_note=CURSOR_MODE, edit_note='', key_notes=(),
                 blocks=(), keypad=False, only_free=False, extra=(), rename=None, without=()):
        self.name, self.entries, self.head = name, entries, head
        self.functions = functions or {}
        self.cursor_note, self.edit_note, self.key_notes = cursor_note, edit_note, key_notes
        self.blocks, self.keypad, self.only_free, self.extra = blocks, keypad, only_free, extra
        self.rename = rename or {}
        self.caps = {}
        for entry in reversed(entries):
            self.caps.update(capabilities(entry))
        for cap in without:
            del self.caps[cap]
        self.lines, self.taken = [], {}

    def note(self, text):
        self.lines.append(f'; {text}' if text else '')

    def put(self, modifiers, key, action):
        index = (''.join(sorted(modifiers)), key)
        if index in self.taken:
            sys.exit(f'{self.name}: {modifiers} {key} is bound twice')
        self.taken[index] = action
        self.lines.append(f'{modifiers}\t{key:<20}\t{action}')

    def put_cap(self, modifiers, key, cap):
        """False where the terminal has no such key."""
        text = self.caps.get(self.rename.get(cap, cap))
        if text is None:
            return False
        self.put(modifiers, key, self.functions.get(text) or f'"{octal(text)}"')
        return True

    def put_both(self, modifiers, key, cap):
        """The key of the keypad, Num Lock off, and the one of the block beside it."""
        return self.put_cap(modifiers or 'N', key, cap) and self.put_cap(modifiers + 'E', key, cap)

    # The parts of a file.

    def function_keys(self):
        self.lines.append('')
        for text in ('Function keys.',) + self.key_notes:
            self.note(text)
        for i in range(5 if self.only_free else 1, 25):
            self.put_cap('N', f'VK_F{i}', f'kf{i}')
        for start, first, modifiers, key, count in self.blocks:
            for i in range(count):
                # Alt and F4 closes the window, as everywhere.
                if (modifiers, key + i) != ('A', 4):
                    self.put_cap(modifiers, f'VK_F{key + i}', f'{start}{first + i}')

    def cursor_keys(self):
        self.lines.append('')
        self.note(f'Cursor keys. {self.cursor_note}')
        for key, cap in CURSOR_KEYS:
            self.put_both('', key, cap)

    def edit_keys(self):
        if not any(cap in self.caps for _, cap in EDIT_KEYS):
            return
        self.lines.append('')
        self.note('Editing keys.' + (f' {self.edit_note}' if self.edit_note else ''))
        for key, cap in EDIT_KEYS:
            # Shift and Delete is bound by default: without its own string it follows the plain key.
            if self.put_both('', key, cap) and key == 'VK_DELETE' and not {'kDC', 'kdl1'} & self.caps.keys():
                self.put_both('S', key, cap)
        # The middle key of the keypad, Num Lock off. Where the keypad has functions, kb2 is its 5.
        if not self.put_cap('N', 'VK_CLEAR', 'kbeg') and not self.keypad:
            self.put_cap('N', 'VK_CLEAR', 'kb2')
        for modifiers, key, cap in self.extra:
            self.put_both(modifiers, key, cap)
        if 'kpp' in self.caps:
            self.note('The scrollback stays in reach.')
            for key, function in SCROLL_KEYS:
                self.put('S', key, function)
                self.put('SE', key, function)

    def modified_keys(self):
        if 'kUP5' not in self.caps:
            return
        self.lines.append('')
        self.note('Cursor and editing keys with modifiers. Their form is always the same.')
        for key, cap in MODIFIED_KEYS:
            for ending, modifiers in MODIFIERS:
                if ('S', key) not in self.taken or modifiers != 'S':
                    self.put_both(modifiers, key, cap + ending)

    def main_block(self):
        self.lines.append('')
        self.note('Backspace, and with Ctrl the other of the two; Tab back.')
        self.put_cap('N', 'VK_BACK', 'kbs')
        self.put_cap('S', 'VK_BACK', 'kbs')
        self.put('C', 'VK_BACK', '"\\010"' if self.caps['kbs'] == '\x7f' else '"\\177"')
        self.put_cap('S', 'VK_TAB', 'kcbt')
        if 'kent' in self.caps and not self.keypad:
            self.lines.append('')
            self.note('Return of the keypad.')
            self.put_cap('E', 'VK_RETURN', 'kent')

    def keypad_keys(self):
        self.lines.append('')
        self.note(f'Keypad with Num Lock on. {KEYPAD_MODE}')
        for modifiers, key, function in KEYPAD:
            self.put(modifiers, key, function)

    def text(self):
        self.note(f'From the terminfo {"entries" if len(self.entries) > 1 else "entry"} {", ".join(self.entries)}.')
        for text in self.head:
            self.note(text)
        self.note('Made by scripts/make-keymaps.py.')
        self.function_keys()
        if not self.only_free:
            self.cursor_keys()
            self.edit_keys()
            self.modified_keys()
            self.main_block()
        if self.keypad:
            self.keypad_keys()
        return '\n'.join(self.lines) + '\n'


# --- the maps ---------------------------------------------------------------------------------------------------------

VT100_KEYS = ('F5 to F10 are strings, although keypad functions send the same:',
              'those would send digits in numeric mode.')
SHIFT_AND_CTRL = [('kf', 13, 'S', 1, 12), ('kf', 25, 'C', 1, 12), ('kf', 37, 'CS', 1, 12)]
SHIFTED_KEYS = ('F13 to F24 are those with Shift, F25 to F36 with Ctrl, F37 to F48 with both.',
                'So Ctrl and F4 goes to the host and closes no tab.')
ALL_FUNCTIONS = {**CURSOR_FUNCTIONS, **PF_FUNCTIONS}
WYSE = {'head': (), 'cursor_note': NO_CURSOR_MODE, 'edit_note': 'With Shift, Insert and Delete work on lines.',
        'key_notes': ('Terminfo knows the shifted strings of F3 to F8 alone.',),
        'extra': [('S', 'VK_HOME', 'kHOM'), ('S', 'VK_INSERT', 'kil1'), ('S', 'VK_DELETE', 'kdl1'),
                  ('', 'VK_END', 'kel'), ('S', 'VK_END', 'ked')],
        'blocks': [('kF', 3, 'S', 3, 6)]}


def maps():
    yield Map('Default', ['vt100'], ('Only keys without a built-in binding: those that have one keep it.',),
              key_notes=VT100_KEYS, keypad=True, only_free=True)
    yield Map('Linux', ['linux'], (), functions=CURSOR_FUNCTIONS,
              key_notes=('Shift and F1 to F8 are F13 to F20, as on the console.',), blocks=[('kf', 13, 'S', 1, 8)])
    yield Map('SCOANSI', ['scoansi'],
              ('Without F14, which is Shift and F2: its string is that of Shift and Tab, and terminfo leaves it out.',),
              cursor_note=NO_CURSOR_MODE, key_notes=SHIFTED_KEYS,
              blocks=SHIFT_AND_CTRL)
    yield Map('VT100', ['vt100'], (), functions=ALL_FUNCTIONS, key_notes=VT100_KEYS, keypad=True)
    yield Map('VT220', ['vt220', 'vt220+pcedit'],
              ('Functions wherever there is one: the terminal may send its 8-bit forms.',),
              functions={**ALL_FUNCTIONS, **VT220_FUNCTIONS},
              key_notes=('This terminal has no F5 for the host. Shift and F3 to F10 are F13 to F20.',),
              blocks=[('kf', 13, 'S', 3, 8)], keypad=True, rename={'kf15': 'khlp', 'kf16': 'krdo'})
    yield Map('Wyse50', ['wy50'], **WYSE)
    yield Map('Wyse60', ['wy60'], **WYSE)
    yield Map('Xterm', ['xterm'], (), functions=ALL_FUNCTIONS,
              key_notes=SHIFTED_KEYS + ('F49 to F60 are those with Alt; Alt and F4 is left to the window.',),
              edit_note='Home and End in the form of the application cursor mode, which no function follows.',
              blocks=SHIFT_AND_CTRL + [('kf', 49, 'A', 1, 12), ('kf', 61, 'AS', 1, 3)],
              keypad=True)
    yield Map('Nerith', ['ansi', 'xterm+noapp', 'xterm'],
              ('This terminal has no entry of its own. It takes ANSI sequences, but the entry ansi lacks function keys and',
               'most editing keys: those are from xterm, whose strings programs know best.'),
              cursor_note=NO_CURSOR_MODE, key_notes=SHIFTED_KEYS, blocks=SHIFT_AND_CTRL, without=['kbeg', 'kb2'])


def main():
    stale = []
    for one in maps():
        path, made = FOLDER / f'{one.name}.key', one.text().encode('ascii')
        if path.is_file() and path.read_bytes() == made:
            continue
        stale.append(str(path))
        if '--check' not in sys.argv:
            FOLDER.mkdir(exist_ok=True)
            path.write_bytes(made)
    if stale:
        print('\n'.join(stale))
    if stale and '--check' in sys.argv:
        sys.exit('stale: run scripts/make-keymaps.py')


main()
