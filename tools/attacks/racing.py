"""The attack by races: two desks on one database, each by a name of its own."""

import functools
import itertools
import os
import subprocess
import tempfile
import time
from pathlib import Path

from attacks.evidence import ask, require_clear
from attacks.firms import finish

# How else one may call the database: from a firm's folder, what stands behind --database.
NAMES = {
    "its path": lambda folder: folder / "firm.db",
    "a name from its folder": lambda folder: "firm.db",
    "dots": lambda folder: f"./../{folder.name}/./firm.db",
    "doubled slashes": lambda folder: f"/{folder}//firm.db",
    "the folder of a process": lambda folder: "/proc/self/cwd/firm.db",
    "a symbolic link": lambda folder: linked(folder, os.symlink, "linked.db"),
    "a symbolic link elsewhere": lambda folder: linked(folder, os.symlink, "elsewhere/firm.db"),
    "a link to a link": lambda folder: linked(folder, os.symlink, "again.db", linked(
        folder, os.symlink, "first.db")),
    "a linked folder": lambda folder: linked(folder, os.symlink, "here", folder) / "firm.db",
    "a hard link": lambda folder: linked(folder, os.link, "hard.db"),
    "a hard link elsewhere": lambda folder: linked(folder, os.link, "elsewhere/hard.db"),
}
# For those who may mount.
MOUNTED_NAMES = {
    "a mounted folder": lambda folder: mounted(folder, folder) / "firm.db",
    "a mounted file": lambda folder: mounted(folder, folder / "firm.db"),
}


def mount_point(folder):
    """Beside the folder, so that nobody who looks through it comes upon itself."""
    return Path(f"{folder}.mounted")


def mounted(folder, what):
    place = mount_point(folder)
    place.mkdir() if what.is_dir() else place.touch()
    subprocess.run(["mount", "--bind", what, place], check=True, capture_output=True)
    return place


def unmount(folder):
    place = mount_point(folder)
    if not place.exists():
        return
    subprocess.run(["umount", place], check=False, capture_output=True)
    place.rmdir() if place.is_dir() else place.unlink()


@functools.cache
def may_mount():
    with tempfile.TemporaryDirectory() as folder:
        try:
            mounted(folder, Path(folder))
        except (OSError, subprocess.SubprocessError):
            return False
        finally:
            unmount(folder)
    return True


def is_there(firm, place):
    return (firm.folder / place).exists()


def linked(folder, link, name, target=None):
    place = folder / name
    place.parent.mkdir(exist_ok=True)
    link(target or folder / "firm.db", place)
    return place


class Races:
    """Two desks work on one database, by different names of it; one may be killed."""

    name, share = "races", 10
    works = ("send", "submit", "arm", "print")

    def __init__(self, kit):
        self.kit = kit
        self.names = {**NAMES, **(MOUNTED_NAMES if may_mount() else {})}
        names = [pair for pair in itertools.combinations(self.names, 2)
                 if not set(pair) >= MOUNTED_NAMES.keys()]
        kit.chance(self.name).shuffle(names)
        self.cases = ((work, *pair) for pair in itertools.cycle(names) for work in self.works)
        for work in self.works:
            kit.work(work)

    def label(self, case):
        return "{}, by {} and {}".format(*case)

    def run(self, case, firm_name, chance):
        name, *names = case
        work = self.kit.work(name)
        firm = self.kit.firm(firm_name)
        # Wherever a desk may take its outbox to be.
        firm.outbox = firm.folder
        try:
            places = [self.names[each](firm.folder) for each in names]
            self.race(work, firm, places, chance)
            firm.require_sound()
            for name, place in zip(names, places):
                if "hard" in name:  # a second name that is refused must go before work goes on
                    place.unlink()
            for place in [*(place for place in places if is_there(firm, place)), firm.place]:
                again = self.at(firm, place, work.again)
                require_clear(again)
                work.hear(firm, again)
                ask(work.evidence(firm, again), finished=place == firm.place)
        finally:
            unmount(firm.folder)
            firm.remove()

    def race(self, work, firm, places, chance):
        desks = []
        for place in places:
            desks.append(self.at(firm, place, work.start))
            time.sleep(chance.choice((0, 0, 0.002, 0.01)))
        is_killed = chance.random() < 0.3
        if is_killed:
            time.sleep(chance.uniform(0, 0.04))
            desks[0].kill()
        runs = [finish(desk) for desk in desks]
        for ended in runs:
            require_clear(ended, is_killed)
            work.hear(firm, ended)
        for ended in runs:
            ask(work.evidence(firm, ended), finished=False)

    def at(self, firm, place, act):
        own, firm.place = firm.place, place
        try:
            return act(firm)
        finally:
            firm.place = own
