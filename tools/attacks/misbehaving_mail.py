"""A mail server that follows a script, and a table of scripts by which servers misbehave."""

import contextlib
import email
import socket
import ssl
import struct
import subprocess
import threading
from typing import NamedTuple

STAGES = {"greeting": b"220 mail.example\r\n", "EHLO": b"250-mail.example\r\n250 8BITMIME\r\n",
          "HELO": b"250 mail.example\r\n", "MAIL": b"250 ok\r\n", "RCPT": b"250 ok\r\n",
          "DATA": b"354 go on\r\n", "body": b"", "end": b"250 taken\r\n", "QUIT": b"221 bye\r\n",
          "STARTTLS": b"220 go on\r\n"}
OFFER = b"250-mail.example\r\n250 STARTTLS\r\n"


class Over(Exception):
    """The server has had enough of this connection."""


def close(talk):
    raise Over


def reset(talk):
    talk.connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
    raise Over


def be_silent(talk):
    talk.is_silent.wait()
    raise Over


def encrypt(talk):
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain(talk.certificate)
    talk.use(context.wrap_socket(talk.connection, server_side=True))


def byte_by_byte(content):
    return tuple(bytes([byte]) for byte in content)


class Behaviour(NamedTuple):
    name: str
    # What the server does at a stage, instead of saying what it should: texts and functions.
    steps: dict
    scheme: str = "smtp-plain"

    def at(self, stage):
        steps = self.steps.get(stage, STAGES.get(stage, b"502 what?\r\n"))
        return steps if isinstance(steps, tuple) else (steps,)


class Talk:
    """One connection."""

    def __init__(self, server, connection):
        self.server, self.behaviour = server, server.behaviour
        self.is_silent, self.certificate = server.is_over, server.certificate
        self.use(connection)

    def use(self, connection):
        self.connection, self.lines = connection, connection.makefile("rb")

    def say(self, content):
        self.connection.sendall(content)

    def perform(self, stage):
        for step in self.behaviour.at(stage):
            self.say(step) if isinstance(step, bytes) else step(self)

    def hold(self):
        with contextlib.suppress(Over, OSError, ssl.SSLError), self.connection:
            self.perform("greeting")
            for line in self.lines:
                verb = line.split()[0].decode("latin-1").upper() if line.split() else ""
                self.perform(verb)
                if verb == "DATA":
                    self.take_message()
                if verb == "QUIT":
                    return
        self.lines.close()

    def take_message(self):
        content, is_body = [], True
        for line in self.lines:
            if is_body:
                self.perform("body")
                is_body = False
            if line == b".\r\n":
                break
            content.append(line[1:] if line.startswith(b".") else line)
        else:
            raise Over
        # Noted before it is said: who has read the answer finds the note.
        self.server.note(b"".join(content), self.verdict())
        self.perform("end")

    def verdict(self):
        """What an honest reader makes of the answer to the message."""
        answer = b"".join(step for step in self.behaviour.at("end") if isinstance(step, bytes))
        first, ended, _ = answer.partition(b"\n")
        while ended and first[3:4] == b"-":
            first, ended, _ = _.partition(b"\n")
        if not ended or not first[:3].isdigit() or first[3:4] not in b" \r":
            return "open"
        return {b"2": "taken", b"4": "refused", b"5": "refused"}.get(first[:1], "open")


class MailServer:
    """Listens until it is closed, and keeps what it was given."""

    def __init__(self, behaviour, certificate=None):
        self.behaviour, self.certificate = behaviour, certificate
        self.notes, self.is_over = [], threading.Event()
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.port = self.listener.getsockname()[1]
        threading.Thread(target=self.serve, daemon=True).start()

    @property
    def url(self):
        return f"{self.behaviour.scheme}://127.0.0.1:{self.port}"

    def serve(self):
        with contextlib.suppress(OSError):
            while True:
                connection, _ = self.listener.accept()
                connection.settimeout(60)
                threading.Thread(target=Talk(self, connection).hold, daemon=True).start()

    def note(self, content, verdict):
        self.notes.append((identity_of(content), content, verdict))

    def taken(self):
        """The messages that it said it has, by their identities."""
        return [(name, normal(content)) for name, content, verdict in self.notes
                if verdict == "taken"]

    def open(self):
        """Those that it may have delivered, though it has not said so."""
        return [name for name, _, verdict in self.notes if verdict == "open"]

    def close(self):
        self.is_over.set()
        self.listener.shutdown(socket.SHUT_RDWR)
        self.listener.close()


def identity_of(content):
    """The part of the Message-ID that is the sender's own, by which the outbox names its file."""
    header = email.message_from_bytes(content)["Message-ID"] or "a message without identity"
    return header.strip("<>").split("@")[0]


def normal(message):
    """Without what runs differ in, and what only the outbox shows."""
    return b"\r\n".join(line for line in message.split(b"\r\n")
                        if not line.startswith((b"Date:", b"Bcc:")))


def make_certificate(folder):
    file = folder / "mail.pem"
    subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2",
                    "-subj", "/CN=mail.example", "-addext", "subjectAltName=IP:127.0.0.1",
                    "-keyout", file, "-out", folder / "mail.crt"], check=True, capture_output=True)
    with file.open("ab") as whole:
        whole.write((folder / "mail.crt").read_bytes())
    return file


GOOD = Behaviour("takes all", {})
# At each of these the server does each of those.
ASKED = ("greeting", "EHLO", "MAIL", "RCPT", "DATA", "end", "QUIT")
FAULTS = {
    "closes": (close,),
    "resets": (reset,),
    "is silent": (be_silent,),
    "puts off": (b"451 4.3.0 later\r\n",),
    "shuts down": (b"421 4.3.2 closing\r\n", close),
    "refuses": (b"554 5.7.1 no\r\n",),
    "refuses in many lines": (b"".join(b"554-no %d\r\n" % n for n in range(300)) + b"554 no\r\n",),
    "says garbage": (bytes(range(128, 256)) + b"\r\n",),
    "says nothing but a line end": (b"\r\n",),
    "says NUL": (b"2\0 5\0 0\0\r\n",),
    "says a giant line": (b"250 " + b"x" * 2_000_000 + b"\r\n",),
    "says a number too long": (b"25000 ok\r\n",),
    "breaks off in its answer": (b"250", close),
    "never ends its answer": (b"250-more\r\n" * 2000, close),
    "answers twice": (b"250 ok\r\n250 ok\r\n",),
    "answers out of turn": (b"354 go on\r\n",),
}
FAULTS_AT = [Behaviour(f"{fault} at {stage}", {stage: steps})
             for fault, steps in FAULTS.items() for stage in ASKED]
OTHERS = [Behaviour(*each) for each in [
    ("closes in the message", {"body": (close,)}),
    ("resets in the message", {"body": (reset,)}),
    ("is silent in the message", {"body": (be_silent,)}),
    ("refuses in the message", {"body": (b"552 5.3.4 too large\r\n", close)}),
    ("takes it and says no", {"end": (b"250 taken\r\n554 no\r\n",)}),
    ("says no and takes it", {"end": (b"554 no\r\n250 taken\r\n",)}),
    ("takes it and resets", {"end": (b"250 taken\r\n", reset)}),
    ("takes it in many lines", {"end": (b"250-taken\r\n" * 50 + b"250 taken\r\n",)}),
    ("takes it with NUL in its words", {"end": (b"250 ta\0ken\r\n",)}),
    ("knows no EHLO", {"EHLO": (b"502 what?\r\n",)}),
    ("knows neither EHLO nor HELO", {"EHLO": (b"502 what?\r\n",), "HELO": (b"502 what?\r\n",)}),
    ("says its answers before it is asked", {"greeting": b"".join(map(STAGES.get, (
        "greeting", "EHLO", "MAIL", "RCPT", "DATA"))), "EHLO": (), "MAIL": (), "RCPT": (),
        "DATA": ()}),
    ("speaks byte by byte", {stage: byte_by_byte(STAGES[stage]) for stage in ASKED}),
    ("ends lines with LF alone", {stage: (STAGES[stage].replace(b"\r", b""),) for stage in ASKED}),
    ("offers no encryption", {}, "smtp"),
    ("speaks no TLS", {}, "smtps"),
    ("refuses encryption", {"EHLO": OFFER, "STARTTLS": b"454 later\r\n"}, "smtp"),
    ("closes before encryption", {"EHLO": OFFER, "STARTTLS": (STAGES["STARTTLS"], close)}, "smtp"),
    ("is silent before encryption",
     {"EHLO": OFFER, "STARTTLS": (STAGES["STARTTLS"], be_silent)}, "smtp"),
    ("says garbage for encryption",
     {"EHLO": OFFER, "STARTTLS": (STAGES["STARTTLS"], bytes(range(256)) * 9)}, "smtp"),
    ("goes on unencrypted",
     {"EHLO": OFFER, "STARTTLS": (STAGES["STARTTLS"], STAGES["MAIL"] * 5)}, "smtp"),
    ("speaks on before encryption",
     {"EHLO": OFFER, "STARTTLS": (STAGES["STARTTLS"] + b"250 ok\r\n", encrypt)}, "smtp"),
    ("encrypts as a stranger", {"EHLO": OFFER, "STARTTLS": (STAGES["STARTTLS"], encrypt)}, "smtp"),
    ("is a stranger", {"greeting": (encrypt, STAGES["greeting"])}, "smtps"),
]]
MISBEHAVIOURS = FAULTS_AT + OTHERS
