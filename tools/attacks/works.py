"""What the program does, and how much of it is there at any moment."""

import re

from attacks.evidence import Evidence, ask, require, require_clear, told
from attacks.misbehaving_mail import GOOD, MailServer, normal
from drill import CHANNELS, FREE_TASKS, TODAY

DEMO = ("init", "--demo", "--clients", 3, "--seed", 3)
DUE_EMAILS = f"""SELECT ClientNotificationID FROM ClientNotification WHERE NotificationType=1 AND
    NotificationSent=FALSE AND Field1 IS NOT NULL AND NotificationDate<='{TODAY}'
    ORDER BY ClientNotificationID"""
STATES = """SELECT ClientNotificationID, CASE WHEN NotificationSent THEN 1 ELSE 0 END,
    NotificationSentStatus FROM ClientNotification WHERE ClientNotificationID IN ({})"""
ARMED = """SELECT NotificationType, NotificationDate, CompanyIDNum, ContactIDNum, Field1, Field2,
    Field3, Field4, Field5, Field6, Memo FROM ClientNotification WHERE ScheduleIDNum={}
    ORDER BY NotificationType"""


def interrupt(work, firm, run, may_be_killed=False):
    """Does the work as `run` disturbs it, and again undisturbed; asks after each."""
    ended = run()
    require_clear(ended, may_be_killed)
    firm.require_sound()
    ask(work.evidence(firm, ended), finished=ended.code == 0)
    again = work.again(firm)
    if again is None:
        return
    require_clear(again)
    firm.require_sound()
    ask(work.evidence(firm, again), finished=True)


class Work:
    command = ()
    # True for a work that makes the database.
    founds = False

    def start(self, firm, environment=None):
        return firm.start(*self.command, environment=environment)

    def again(self, firm):
        return firm.run(*self.command)


class Send(Work):
    """`send --due`, which puts messages into the outbox."""

    command = ("--json", "send", "--due")

    def __init__(self, firm):
        self.wanted, self.number_of = {}, {}
        for number in firm.ids(DUE_EMAILS):
            ended = self.send(firm, number)
            require(ended.code == 0, "unclear", "cannot send", number, ended.err)
            ((name, content),) = self.made(firm)
            self.wanted[number], self.number_of[name] = content, number
        self.states = STATES.format(",".join(map(str, self.wanted)))

    def send(self, firm, number):
        return firm.run("send", number)

    def made(self, firm):
        """The messages by name, without those whose number is known."""
        return [each for each in messages(firm.outbox) if each[0] not in self.number_of]

    def evidence(self, firm, ended):
        return Evidence(self.wanted, self.numbered(messages(firm.outbox)),
                        self.marked(firm) | said(ended, "sent"), said(ended, "failed"),
                        unknown=unknown(ended), strays=strays(firm.outbox))

    def numbered(self, pairs):
        return [(self.number_of.get(name, name), content) for name, content in pairs]

    def marked(self, firm):
        states = {number: tuple(state) for number, *state in firm.rows(self.states)}
        for number, state in states.items():
            require(state in ((0, 1), (1, 1), (1, 2)), "half written", "notification", number,
                    "is in no known state", state)
        return {number for number, (sent, _) in states.items() if sent}


class Submit(Send):
    """`send --due` by way of a mail server."""

    def __init__(self, firm):
        firm.mail = MailServer(GOOD)
        super().__init__(firm)

    def send(self, firm, number):
        return firm.run("--smtp", firm.mail.url, "send", number)

    def made(self, firm):
        return [each for each in firm.mail.taken() if each[0] not in self.number_of]

    def start(self, firm, environment=None):
        firm.mail = firm.mail or MailServer(GOOD)
        return firm.start("--smtp", firm.mail.url, "--smtp-timeout", 2, *self.command,
                          environment=environment)

    def again(self, firm):
        firm.mail.behaviour = GOOD
        return firm.run("--smtp", firm.mail.url, *self.command)

    def evidence(self, firm, ended):
        return Evidence(self.wanted, self.numbered(firm.mail.taken()),
                        self.marked(firm) | said(ended, "sent"), said(ended, "failed"),
                        open=[self.number_of.get(name, name) for name in firm.mail.open()],
                        unknown=unknown(ended), strays=strays(firm.outbox))


class SubmitThenSend(Submit):
    """The same, but the second run knows of no mail server: what the first one had on its way is
    not collected from the outbox."""

    def again(self, firm):
        firm.on_their_way = {name for name, _ in messages(firm.outbox)}
        return firm.run(*self.command)

    def evidence(self, firm, ended):
        evidence = super().evidence(firm, ended)
        if firm.on_their_way is not None:
            evidence.found += self.numbered(
                each for each in messages(firm.outbox, "*.eml")
                if each[0] not in firm.on_their_way)
        return evidence


class Arm(Work):
    """`arm` of all channels of one task."""

    def __init__(self, firm):
        self.task = firm.ids(FREE_TASKS)[0]
        self.command = ("--json", "arm", self.task, "--channel", ",".join(CHANNELS.values()))
        require(firm.run(*self.command).code == 0, "unclear", "cannot arm task", self.task)
        self.wanted = dict(self.rows(firm))
        require(len(self.wanted) == len(CHANNELS), "lost", "a channel has no row")

    def rows(self, firm):
        return [(row[0], tuple(row[1:])) for row in firm.rows(ARMED.format(self.task))]

    def evidence(self, firm, ended):
        bits = firm.ids(f"SELECT notifyType FROM Schedule WHERE ScheduleID={self.task}")[0]
        done = {bit for bit in CHANNELS if bits & bit}
        if ended.code == 0:
            require(done == set(CHANNELS), "lost", "the task knows only of", done)
        return Evidence(self.wanted, self.rows(firm), done)


class Init(Work):
    """`init`: a whole firm or none."""

    command, founds = DEMO, True

    def __init__(self, firm):
        require(firm.run(*self.command).code == 0, "unclear", "cannot make a firm")
        self.wanted, self.entries = firm.tables(), firm.entries()

    def again(self, firm):
        """Where a firm is there already it is left alone."""
        was_there = bool(tables_of(firm, firm.place))
        ended = firm.run(*self.command)
        require(was_there or ended.code == 0, "lost", "cannot make the firm:", ended.err)
        return ended

    def evidence(self, firm, ended):
        found = tables_of(firm, firm.place)
        return Evidence(self.wanted, list(found.items()), set(self.wanted if found else ()),
                        strays=firm.entries() - self.entries)


class Copy(Work):
    """`copy` to a new place."""

    def __init__(self, firm):
        require(self.again(firm).code == 0, "unclear", "cannot copy")
        self.wanted, self.entries = firm.tables(firm.copy_place()), firm.entries()

    def start(self, firm, environment=None):
        return firm.start("copy", "--to", firm.copy_place(), environment=environment)

    def again(self, firm):
        ended = firm.run("copy", "--to", firm.copy_place())
        was_finished = "goes to a new place" in ended.err
        require(ended.code == 0 or was_finished, "lost", "cannot go on with the copy:", ended.err)
        return ended

    def evidence(self, firm, ended):
        found = tables_of(firm, firm.copy_place())
        return Evidence(self.wanted, list(found.items()), set(self.wanted if found else ()),
                        strays=firm.entries() - self.entries)


class Read(Work):
    """What only reads: it prints all or nothing."""

    def __init__(self, firm, *command):
        self.command = command
        ended = firm.run(*command)
        require(ended.code == 0 and ended.out, "unclear", "cannot read:", *command)
        self.wanted = {"output": ended.out}

    def again(self, firm):
        return None

    def evidence(self, firm, ended):
        return Evidence(self.wanted, [("output", ended.out)] if ended.out else [],
                        {"output"} if ended.code == 0 else set())


def tables_of(firm, place):
    """What cannot be opened is no database yet."""
    return firm.tables(place) if firm.run("due", place=place).code in (0, 1) else {}


def merge_of(firm):
    return Read(firm, "--json", "merge", firm.ids(FREE_TASKS)[0])


def list_of(firm):
    return Read(firm, "--json", "tasks")


def messages(outbox, pattern="**/*.eml"):
    return [(file.stem, normal(file.read_bytes())) for file in outbox.glob(pattern)]


def strays(outbox):
    return {file.name for file in outbox.rglob("*") if file.suffix in (".tmp", ".new")}


def said(ended, result):
    return {row["notification"] for row in told(ended) if row["result"] == result}


def unknown(ended):
    """Those of which the program says that it cannot know."""
    return {row["notification"] for row in told(ended)
            if row["result"] != "sent" and re.search("known|may have taken", row["detail"])}
