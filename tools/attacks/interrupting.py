"""Attacks on a running program: calls and allocations that fail, and its end at any moment."""

import collections
import functools
import itertools
import time

from attacks.firms import finish
from attacks.works import interrupt

CALL_FAULTS = ("EIO", "ENOSPC", "EINTR", "short", "kill", "kill-after")
MEMORY_FAULTS = ("once", "scarce")


def interleaved(lists):
    """One of each in turn, so that a part of the whole holds some of all."""
    return [each for row in itertools.zip_longest(*lists) for each in row if each is not None]


def mixed(lists, chance):
    """The same in no order, so that the rare come as soon as the frequent."""
    lists = [chance.sample(each, len(each)) for each in lists]
    chance.shuffle(lists)
    return interleaved(lists)


class FailingLibrary:
    """Loads a library ahead of the program that makes one thing after another fail."""

    def __init__(self, kit):
        self.kit = kit
        self.library = kit.library(self.source)
        self.cases = interleaved(self.cases_of(name) for name in self.works)

    def environment(self, firm, at, how):
        """`at` 0: nothing fails, and what could is listed."""
        return {"LD_PRELOAD": str(self.library), "FAIL_FOLDER": str(firm.folder),
                "FAIL_LIST": "" if at else str(firm.folder) + ".list",
                "FAIL_AT": str(at), "FAIL_HOW": how}

    def cases_of(self, name):
        work = self.kit.work(name)
        firm = self.kit.firm(f"{self.name} counted {name}", work.founds)
        finish(work.start(firm, self.environment(firm, 0, "")))
        lines = open(str(firm.folder) + ".list").read().split()
        firm.remove()
        kinds = collections.defaultdict(list)
        for number, of in self.numbered(lines):
            for how in self.faults:
                kinds[of, how].append((name, how, number, of))
        return mixed(kinds.values(), self.kit.chance(self.name, name))

    def label(self, case):
        name, how, number, of = case
        return f"{name}, {of} {number}, {how}"

    def run(self, case, firm_name, _chance):
        name, how, number, _ = case
        work = self.kit.work(name)
        firm = self.kit.firm(firm_name, work.founds)
        try:
            interrupt(work, firm, lambda: finish(
                work.start(firm, self.environment(firm, number, how))), how.startswith("kill"))
        finally:
            firm.remove()


class Calls(FailingLibrary):
    """Each system call on files and sockets fails once, or is the last."""

    name, share, source, faults = "calls", 40, "failing_calls", CALL_FAULTS
    works = ("arm", "send", "send aloud", "print", "call", "init", "copy", "submit",
             "submit, then send")

    def numbered(self, names):
        return enumerate(names, 1)


class Memory(FailingLibrary):
    """Each allocation fails, alone or for want of memory that lasts."""

    name, share, source, faults = "memory", 20, "failing_memory", MEMORY_FAULTS
    works = ("merge", "list", "send", "print", "call")

    def numbered(self, count):
        return ((number, "allocation") for number in range(1, int(count[0]) + 1))


class Moments:
    """The program is killed at any moment."""

    name, share = "moments", 5
    works = ("send", "send aloud", "arm", "print", "call", "submit", "init", "copy")

    def __init__(self, kit):
        self.kit, self.cases = kit, itertools.count()
        self.seconds = {name: self.duration(name) for name in self.works}

    def duration(self, name):
        """At best: a longer measure would have kills come too late."""
        return min(self.undisturbed(self.kit.work(name), f"timed {name} {n}") for n in range(5))

    def undisturbed(self, work, firm_name):
        firm = self.kit.firm(firm_name, work.founds)
        begin = time.monotonic()
        finish(work.start(firm))
        taken = time.monotonic() - begin
        firm.remove()
        return taken

    def label(self, case):
        return self.works[case % len(self.works)]

    def run(self, case, firm_name, chance):
        name = self.label(case)
        work = self.kit.work(name)
        firm = self.kit.firm(firm_name, work.founds)
        moment = chance.uniform(0, self.seconds[name])
        try:
            interrupt(work, firm, functools.partial(killed, work, firm, moment), True)
        finally:
            firm.remove()


def killed(work, firm, moment):
    process = work.start(firm)
    time.sleep(moment)
    process.kill()
    return finish(process)
