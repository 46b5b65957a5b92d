"""What an attack leaves behind, and the questions that are asked at the end of each."""

import collections
import dataclasses
import json
import signal

QUESTIONS = ("lost", "twice", "half written", "unclear")
# What nobody understands who did not write the program.
JARGON = ("std::", "bad_alloc", "basic_string", "terminate called", "Assertion", "what()",
          "vector", "unknown exception", "json.exception", "Traceback")


class Finding(Exception):
    def __init__(self, question, *words):
        super().__init__(" ".join(map(str, words)))
        assert question in QUESTIONS
        self.question = question


def require(condition, question, *words):
    if not condition:
        raise Finding(question, *words)


@dataclasses.dataclass
class Evidence:
    # What an undisturbed run makes: contents by name.
    wanted: dict
    # What is there: pairs of name and content.
    found: list
    # Names that are marked, or were said, to be done.
    claimed: set
    # Names that were said not to be done.
    denied: set = frozenset()
    # Names that may have been done where nobody can know.
    open: list = ()
    # Names of which the program says that it cannot know.
    unknown: set = frozenset()
    # Drafts and other things that lie about.
    strays: set = frozenset()


def ask(evidence, finished):
    """Is anything lost, twice or half written? `finished`: nothing more may be missing."""
    there = collections.Counter(name for name, _ in evidence.found)
    missing = evidence.claimed - there.keys()
    require(not missing, "lost", "said to be done, but nowhere:", *sorted(missing))
    missing = evidence.wanted.keys() - there.keys() - evidence.unknown if finished else ()
    require(not missing, "lost", "never done:", *sorted(missing))
    times = there + collections.Counter(evidence.open)
    twice = [name for name, count in times.items() if count > 1]
    require(not twice, "twice", "made more than once:", *sorted(twice))
    denied = evidence.denied & there.keys() - evidence.unknown
    require(not denied, "twice", "done, but said not to be, so that a person does it again:",
            *sorted(denied))
    broken = [name for name, content in evidence.found if evidence.wanted.get(name) != content]
    require(not broken, "half written", "not what an undisturbed run makes:", *sorted(broken))
    require(not (finished and evidence.strays), "half written", "left behind:",
            *sorted(evidence.strays))


def require_clear(ended, may_be_killed=False):
    """The program ended with an exit code of its own, and with a sentence unless it did all."""
    if may_be_killed and ended.code == -signal.SIGKILL:
        return
    require(ended.code >= 0, "unclear", "ended by signal", -ended.code, ended.err[:300])
    require(ended.code <= 3, "unclear", "ended with", ended.code)
    lines = ended.err.splitlines()
    require(lines or ended.code == 0, "unclear", "ended with", ended.code, "and without a word")
    for line in lines:
        require(line.startswith("hvnotify: ") and len(line) > 15, "unclear", "said:", line[:300])
        require(not any(word in line for word in JARGON), "unclear", "said:", line[:300])


def told(ended):
    """The data that the program printed; none where it was refused or killed."""
    if not ended.out:
        return []
    try:
        return json.loads(ended.out)
    except ValueError:
        require(ended.code < 0, "half written", "printed what is no JSON:", ended.out[:100])
        return []
