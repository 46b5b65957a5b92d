"""A mail server for the tests. Usage: smtp_server.py MODE FOLDER

Prints the port that it listens on. Modes: take, spoil-sent (takes, and puts a file where the outbox
has its folder "sent"), login, tls (with FOLDER/server.pem), starttls (the same), refuse-recipient,
refuse-message, drop (in the middle of the message), vanish (after the whole message, before the
answer), old-vanish (the same, of a server that knows no EHLO), and those that say no more from some
moment on: silent, silent-data, silent-body, silent-end. Each message taken is a file in FOLDER: its
envelope as JSON, an empty line, its text.
"""

import asyncio
import json
import shutil
import socket
import ssl
import sys
import threading
from pathlib import Path

MODE, FOLDER = sys.argv[1], Path(sys.argv[2])


class Handler:
    async def handle_RCPT(self, server, session, envelope, address, options):
        if MODE == "refuse-recipient":
            return "550 5.1.1 No such person here"
        envelope.rcpt_tos.append(address)
        return "250 OK"

    async def handle_DATA(self, server, session, envelope):
        if MODE == "refuse-message":
            return "554 5.7.1 We do not like the look of it"
        count = len(list(FOLDER.glob("*.mail")))
        about = {"from": envelope.mail_from, "to": envelope.rcpt_tos,
                 "login": bool(session.authenticated)}
        (FOLDER / f"{count}.mail").write_bytes(
            json.dumps(about).encode() + b"\n\n" + envelope.original_content)
        if MODE == "spoil-sent":
            sent = FOLDER.parent / "firm.db.outbox" / "sent"
            shutil.rmtree(sent, ignore_errors=True)
            sent.touch()
        return "250 Taken"


def is_login(server, session, envelope, mechanism, data):
    from aiosmtpd.smtp import AuthResult
    success = (data.login, data.password) == (b"clerk", b"s3cret#")
    return AuthResult(success=success, handled=False,
                      message=None if success else "535 5.7.8 Not " + data.password.decode())


async def serve_well():
    from aiosmtpd.smtp import SMTP
    context = None
    if MODE in ("tls", "starttls", "login"):
        context = ssl.create_default_context(ssl.Purpose.CLIENT_AUTH)
        context.load_cert_chain(FOLDER / "server.pem")
    options = {}
    if MODE in ("starttls", "login"):
        options = {"tls_context": context, "require_starttls": True}
    if MODE == "login":
        options.update(auth_required=True, authenticator=is_login)
    server = await asyncio.get_running_loop().create_server(
        lambda: SMTP(Handler(), enable_SMTPUTF8=True, **options), "127.0.0.1", 0,
        ssl=context if MODE == "tls" else None)
    print(server.sockets[0].getsockname()[1], flush=True)
    await server.serve_forever()


def serve_badly(listener):
    listener.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 4096)
    while True:
        connection, _ = listener.accept()
        threading.Thread(target=misbehave, args=(connection,), daemon=True).start()


def be_silent():
    threading.Event().wait()


def misbehave(connection):
    if MODE == "silent":
        be_silent()
    lines = connection.makefile("rwb")

    def say(text):
        lines.write(text + b"\r\n")
        lines.flush()

    say(b"220 here")
    for line in lines:
        if line.upper().startswith(b"DATA"):
            break
        is_unknown = MODE == "old-vanish" and line.upper().startswith(b"EHLO")
        say(b"502 What is that?" if is_unknown else b"250 OK")
    if MODE == "silent-data":
        be_silent()
    say(b"354 go on")
    for number, line in enumerate(lines):
        if line == b".\r\n" or (MODE in ("drop", "silent-body") and number == 3):
            break
    if MODE.startswith("silent"):
        be_silent()
    connection.shutdown(socket.SHUT_RDWR)
    connection.close()


if MODE == "drop" or MODE.endswith("vanish") or MODE.startswith("silent"):
    listening = socket.create_server(("127.0.0.1", 0))
    print(listening.getsockname()[1], flush=True)
    serve_badly(listening)
else:
    asyncio.run(serve_well())
