"""What all attacks work with: the program, a firm to copy, works that were done undisturbed, and
the libraries that are loaded ahead of the program."""

import functools
import os
import random
import subprocess
import threading
from pathlib import Path

from attacks import works
from attacks.firms import Firm
from attacks.misbehaving_mail import make_certificate

WORKS = {"init": works.Init, "arm": works.Arm, "send": works.Send, "copy": works.Copy,
         "send aloud": works.SendAloud,
         "submit": works.Submit, "submit, then send": works.SubmitThenSend,
         "print": works.Print, "call": works.Call,
         "merge": works.merge_of, "list": works.list_of}


class Kit:
    def __init__(self, program, folder, seed):
        self.program, self.folder, self.seed = program, folder, seed
        self.lock = threading.RLock()
        self.origin = Firm(program, folder / "origin")
        ended = works.make_firm(self.origin)
        if ended.code != 0:
            raise SystemExit(f"No firm to attack: {ended.err}")

    def firm(self, name, founds=False):
        return Firm(self.program, self.folder / name, None if founds else self.origin)

    def chance(self, *names):
        """The same chances for the same seed and names."""
        return random.Random(" ".join(map(str, (self.seed, *names))))

    @functools.cached_property
    def certificate(self):
        return make_certificate(self.folder)

    @functools.cache
    def work(self, name):
        firm = self.firm("undisturbed " + name, name == "init")
        try:
            return WORKS[name](firm)
        finally:
            firm.remove()

    @functools.cache
    def library(self, name):
        made = self.folder / (name + ".so")
        subprocess.run([os.environ.get("CXX", "g++"), "-std=c++20", "-O1", "-shared", "-fPIC",
                        "-o", made, Path(__file__).with_name(name + ".cpp"), "-ldl"], check=True)
        return made
