"""What the program does, and how much of it is there at any moment."""

import collections
import json
import re
import subprocess
from pathlib import Path

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
# One of each client's that is none of FREE_TASKS: so no document lies beside another one.
PAPER_TASKS = f"""SELECT max(ScheduleID) FROM Schedule WHERE Closed=FALSE AND
    DueDate BETWEEN '{TODAY}' AND '2026-06-01' GROUP BY ClientNum, ContactIDNum"""
UNSENT = """SELECT ClientNotificationID FROM ClientNotification WHERE NotificationSent=FALSE AND
    NotificationType IN ({}) ORDER BY ClientNotificationID"""


def make_firm(firm):
    """Makes the firm that is copied for the attacks: something in it waits for each work."""
    ended = firm.run(*DEMO)
    for task in firm.ids(PAPER_TASKS) if ended.code == 0 else ():
        ended = firm.run("arm", task, "--channel", "fax,letter,phone")
    return ended


def interrupt(work, firm, run, may_be_killed=False):
    """Does the work as `run` disturbs it, and again undisturbed; asks after each."""
    ended = run()
    require_clear(ended, may_be_killed)
    firm.require_sound()
    work.hear(firm, ended)
    ask(work.evidence(firm, ended), finished=ended.code == 0)
    again = work.again(firm)
    if again is None:
        return
    require_clear(again)
    firm.require_sound()
    work.hear(firm, again)
    ask(work.evidence(firm, again), finished=True)


class Work:
    command = ()
    # True for a work that makes the database.
    founds = False

    def start(self, firm, environment=None):
        return firm.start(*self.command, environment=environment)

    def again(self, firm):
        return firm.run(*self.command)

    def hear(self, firm, ended):
        """Keeps what a run tells that counts in the questions after others, too."""


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
                        marked(firm, self.states) | said(ended, "sent"), said(ended, "failed"),
                        unknown=unknown(ended), strays=strays(firm.outbox))

    def numbered(self, pairs):
        return [(self.number_of.get(name, name), content) for name, content in pairs]


class SendAloud(Send):
    """The same for people, who are told of each message as it goes: that counts too when the run is
    killed."""

    command = ("send", "--due")


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
                        marked(firm, self.states) | said(ended, "sent"), said(ended, "failed"),
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


class Print(Work):
    """`print --mark` of letters and faxes: each a page of a PDF and a file in its client's folder."""

    def __init__(self, firm):
        self.command = ("--json", "print", *firm.ids(UNSENT.format("2, 4")), "--mark")
        ended = firm.run(*self.command)
        require(ended.code == 0, "unclear", "cannot print:", ended.err)
        rows, pages = told_rows(ended), printed_pages(firm)
        self.states = STATES.format(",".join(str(row["notification"]) for row in rows))
        self.wanted, self.number_of = {}, {}
        for row, page in zip(rows, pages):
            for kind, content in (("page", page), ("document", Path(row["document"]).read_bytes())):
                name = f"{kind} of {row['notification']}"
                self.wanted[name], self.number_of[name] = content, row["notification"]
        self.name_of = {content: name for name, content in self.wanted.items()}
        require(len(rows) == len(pages) == len(self.name_of) / 2 > 1, "unclear",
                "pages or documents are alike")

    def hear(self, firm, ended):
        """A run may repeat what another one has left, and says so."""
        firm.repeated.update(row["notification"] for row in told_rows(ended)
                             if "beside another" in row["detail"])

    def evidence(self, firm, ended):
        contents = printed_pages(firm) + [file.read_bytes() for file in documents(firm)]
        found = [(self.name_of.get(each, "half of something"), each) for each in contents]
        for name, count in collections.Counter(name for name, _ in found).items():
            require(count <= 1 + firm.repeated[self.number_of.get(name)], "twice", "made untold:", name)
        done = marked(firm, self.states) | said(ended, "printed")
        return Evidence(self.wanted, list(dict(found).items()), self.named(done, "page", "document"),
                        self.named(said(ended, "failed"), "page"),
                        unknown=self.named(unknown(ended), "page", "document"),
                        strays=strays(firm.folder))

    def named(self, numbers, *kinds):
        return {f"{kind} of {number}" for kind in kinds for number in numbers}


class Call(Work):
    """`call --made`: a line behind the text, then the mark."""

    note = "back at two"

    def __init__(self, firm):
        self.number = firm.ids(UNSENT.format("8"))[0]
        self.states = STATES.format(self.number)
        self.command = ("call", self.number, "--made", "--note", self.note)
        require(firm.run(*self.command).code == 0, "unclear", "cannot note a call")
        self.wanted = {"line": self.text(firm)[0], "mark": "sent"}

    def text(self, firm):
        """The notification's, with one of the lines of calls, and how many there are."""
        text = json.loads(firm.run("--json", "show", self.number).out)["text"]
        lines = re.sub(r"\d\d:\d\d:\d\d", "now", text).splitlines()
        noted = [line for line in lines if line.endswith(self.note)]
        return [line for line in lines if line not in noted] + noted[:1], len(noted)

    def evidence(self, firm, ended):
        """Until the call is marked each run leaves a line."""
        text, lines = self.text(firm)
        require(lines <= firm.lines, "twice", "noted though it was marked")
        ((_, sent, status),) = firm.rows(self.states)
        firm.lines = lines + (not sent or status != 2)
        found = [("line", text)] * (lines > 0) + [("mark", "sent")] * (status == 2)
        claimed = {"line"} if marked(firm, self.states) else set()
        return Evidence(self.wanted, found, set(self.wanted) if ended.code == 0 else claimed)


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


def documents(firm):
    return sorted(firm.folder.rglob("*.mvw"))


def printed_pages(firm):
    """The texts of all pages of all PDFs."""
    texts = [subprocess.run(["pdftotext", file, "-"], check=True, capture_output=True, text=True).stdout
             for file in sorted(firm.folder.glob("*.pdf"))]
    return [page for text in texts for page in text.split("\f")[:-1]]


def marked(firm, states):
    """Those that are marked sent, or were on the way to it."""
    found = {number: tuple(state) for number, *state in firm.rows(states)}
    for number, state in found.items():
        require(state in ((0, 1), (1, 1), (1, 2)), "half written", "notification", number,
                "is in no known state", state)
    return {number for number, (sent, _) in found.items() if sent}


def told_rows(ended):
    """What the program says of each notification."""
    if ended.out.startswith("NOTIFICATION"):
        return told_lines(ended)
    data = told(ended)
    return data["notifications"] if "notifications" in data else data


def told_lines(ended):
    """The same, as people are told it."""
    faults = dict(re.findall(r"^hvnotify: notification (\d+) was not sent: (.*)", ended.err, re.M))
    return [{"notification": int(number), "result": result, "detail": faults.get(number, "")}
            for number, result in re.findall(r"^(\d+) +(\w+)", ended.out, re.M)]


def said(ended, result):
    return {row["notification"] for row in told_rows(ended) if row["result"] == result}


def unknown(ended):
    """Those of which the program says that it cannot know."""
    return {row["notification"] for row in told_rows(ended)
            if row["result"] not in ("sent", "printed")
            and re.search("known|may have taken", row["detail"])}
