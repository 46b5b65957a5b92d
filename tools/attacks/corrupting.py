"""The attack on files: whatever the database file holds, each command ends with a sentence."""

import contextlib
import itertools
import sqlite3

from attacks.evidence import Evidence, ask, require_clear
from attacks.firms import finish
from attacks.works import messages, said, strays
from drill import FREE_TASKS

PAGE = 4096
PATIENCE = 30
# Values that no column should hold.
ODD = ("no date", "9999-99-99", "", "x" * 100_000, "a\0b", b"\xff\xfe\x00", 1e308, 2**63 - 1,
       -2**63, 0.5, -1, None)
ODD_TABLES = ("ClientNotification", "Schedule")


def flip(content, chance, bits):
    for _ in range(bits):
        content[chance.randrange(len(content))] ^= 1 << chance.randrange(8)


def page(content, chance):
    start = chance.randrange(len(content) // PAGE) * PAGE
    return slice(start, start + PAGE)


def zero_page(content, chance):
    content[page(content, chance)] = bytes(PAGE)


def fill_page(content, chance):
    content[page(content, chance)] = chance.randbytes(PAGE)


def swap_pages(content, chance):
    one, other = page(content, chance), page(content, chance)
    content[one], content[other] = content[other], content[one]


def repeat_page(content, chance):
    content[page(content, chance)] = content[page(content, chance)]


def cut_off(content, chance):
    del content[chance.randrange(len(content)):]


def cut_off_pages(content, chance):
    del content[page(content, chance).start:]


def lengthen(content, chance):
    content += chance.randbytes(chance.randrange(3 * PAGE))


def cut_out(content, chance):
    start = chance.randrange(len(content))
    del content[start:start + chance.randrange(2 * PAGE)]


def change_header(content, chance):
    content[chance.randrange(100)] = chance.randrange(256)


def change_tree(content, chance):
    """The head of a page: its kind, its number of cells and where they are."""
    start = page(content, chance).start
    content[start + chance.randrange(64)] = chance.randrange(256)


DAMAGES = {
    "one bit flipped": lambda content, chance: flip(content, chance, 1),
    "bits flipped": lambda content, chance: flip(content, chance, chance.randrange(2, 50)),
    "many bits flipped": lambda content, chance: flip(content, chance, 2000),
    "a page zeroed": zero_page,
    "a page filled": fill_page,
    "pages swapped": swap_pages,
    "a page repeated": repeat_page,
    "cut off": cut_off,
    "cut off between pages": cut_off_pages,
    "lengthened": lengthen,
    "cut out": cut_out,
    "the header changed": change_header,
    "a page's head changed": change_tree,
}


class Files:
    """The database file is damaged, or holds values that make no sense."""

    name, share = "files", 15
    kinds = (*DAMAGES, "a foreign log", "a foreign journal", *4 * ["an odd value"])

    def __init__(self, kit):
        self.kit, self.cases, self.send = kit, itertools.count(), kit.work("send")
        task = kit.origin.ids(FREE_TASKS)[0]
        number = next(iter(self.send.wanted))
        self.content = kit.origin.place.read_bytes()
        self.commands = [line.split() for line in (
            "due", "tasks", f"show {number}", f"explain {task}", f"merge {task}",
            "send --due --dry-run", f"arm {task} --channel email,fax,letter,phone",
            f"disarm {task} --channel email", f"cancel {number}", f"move {number} 2026-09-01",
            f"refresh {task}", "appointments", "address company 1", "address contact 1",
            "recipients firm 0 --kind email", "contact-default 1", "propagate", "fields",
            "copy --to copied.db")]

    def label(self, case):
        return self.kinds[case % len(self.kinds)]

    def run(self, case, firm_name, chance):
        firm = self.kit.firm(firm_name)
        try:
            bad = self.damage(firm, self.label(case), chance)
            damaged = firm.place.read_bytes()
            for command in chance.sample(self.commands, 4):
                require_clear(finish(firm.start("--json", *command), PATIENCE))
            firm.remove()
            firm.folder.mkdir()
            firm.place.write_bytes(damaged)
            self.send_twice(firm, bad)
        finally:
            firm.remove()

    def damage(self, firm, kind, chance):
        """Gives the numbers of the notifications that need not go out."""
        if kind == "an odd value":
            return self.make_odd(firm, chance)
        if kind in DAMAGES:
            content = bytearray(self.content)
            DAMAGES[kind](content, chance)
            firm.place.write_bytes(content)
        else:
            ending = "-wal" if kind == "a foreign log" else "-journal"
            (firm.folder / ("firm.db" + ending)).write_bytes(self.foreign(ending, chance))
        return set(self.send.wanted)

    def foreign(self, ending, chance):
        """Half of them begin as the engine's own do."""
        start = {"-wal": "377f0682002de218", "-journal": "d9d505f920a163d7"}[ending]
        return bytes.fromhex(start) * chance.randrange(2) + chance.randbytes(chance.randrange(9999))

    def make_odd(self, firm, chance):
        table = chance.choice(ODD_TABLES)
        with contextlib.closing(sqlite3.connect(firm.place)) as connection:
            columns = [row[1] for row in connection.execute(f"PRAGMA table_info({table})")]
            keys = [row[0] for row in connection.execute(f"SELECT {columns[0]} FROM {table}")]
            key = chance.choice(list(self.send.wanted) if table == "ClientNotification" else keys)
            is_changed = False
            while not is_changed:
                with contextlib.suppress(sqlite3.IntegrityError):
                    is_changed = connection.execute(
                        f"UPDATE {table} SET {chance.choice(columns[1:])}=? WHERE {columns[0]}=?",
                        (chance.choice(ODD), key)).rowcount
            connection.commit()
        return {key} if table == "ClientNotification" else set()

    def send_twice(self, firm, bad):
        done = set()
        for _ in range(2):
            ended = finish(firm.start(*self.send.command), PATIENCE)
            require_clear(ended)
            done |= said(ended, "sent")
            found = self.named(firm, done)
            wanted = {name: content for name, content in found if is_whole(content)}
            wanted |= dict.fromkeys(self.send.wanted.keys() - bad - wanted.keys())
            ask(Evidence(wanted, found, done, strays=strays(firm.outbox)), finished=True)

    def named(self, firm, done):
        """The messages by their notifications; one whose name has changed is of the next that was
        said to be sent."""
        pairs = self.send.numbered(messages(firm.outbox))
        others = iter(sorted(done - {name for name, _ in pairs}))
        return [(name if isinstance(name, int) else next(others, name), content)
                for name, content in pairs]


def is_whole(message):
    return message.endswith(b"\r\n") and b"\r\n\r\n" in message and b"\r\nTo: " in message
