#!/usr/bin/python3
# A mail server for the tests on 127.0.0.1: Debian's aiosmtpd with STARTTLS on the given
# certificate and a required login. Each message it accepts is taken apart with Python's own email
# package into a folder of INBOX named by its number (000, 001, ...): "envelope" (the sender, then
# each recipient, one a line), "subject" (decoded, UTF-8), "charset" and "body" (the text part,
# transfer encoding undone) and "attachments/N-NAME" (each attachment's bytes under its own name).
# With --abrupt it is no SMTP server but a peer that takes the message's first bytes and hangs up.
# It prints "ready PORT" once it listens.
import argparse
import email
import os
import socket
import ssl
import sys
import logging
import time
from email import policy

# aiosmtpd logs a warning of its own deprecated attributes at every login.
logging.getLogger("mail.log").setLevel(logging.ERROR)

parser = argparse.ArgumentParser()
parser.add_argument("--inbox")
parser.add_argument("--cert")
parser.add_argument("--key")
parser.add_argument("--user", default="zandolt")
parser.add_argument("--password", default="")
parser.add_argument("--refuse", action="append", default=[])
parser.add_argument("--abrupt", action="store_true")
args = parser.parse_args()


def free_port():
    with socket.socket() as s:
        s.bind(("127.0.0.1", 0))
        return s.getsockname()[1]


def abrupt():
    server = socket.socket()
    server.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
    server.bind(("127.0.0.1", 0))
    server.listen()
    print("ready", server.getsockname()[1], flush=True)
    while True:
        conn, _ = server.accept()
        f = conn.makefile("rb")
        conn.sendall(b"220 abrupt\r\n")
        while True:
            line = f.readline()
            if not line:
                break
            verb = line[:4].upper()
            if verb == b"DATA":
                conn.sendall(b"354 go on\r\n")
                f.read(64)
                break
            conn.sendall(b"250 ok\r\n")
        f.close()
        conn.shutdown(socket.SHUT_RDWR)
        conn.close()


if args.abrupt:
    abrupt()

from aiosmtpd.controller import Controller  # noqa: E402
from aiosmtpd.smtp import AuthResult, LoginPassword  # noqa: E402


class Inbox:
    count = 0

    async def handle_RCPT(self, server, session, envelope, address, rcpt_options):
        if address in args.refuse:
            return "550 5.1.1 no such mailbox"
        envelope.rcpt_tos.append(address)
        return "250 OK"

    async def handle_DATA(self, server, session, envelope):
        folder = os.path.join(args.inbox, "%03d" % Inbox.count)
        Inbox.count += 1
        os.makedirs(os.path.join(folder, "attachments"))
        msg = email.message_from_bytes(envelope.original_content, policy=policy.default)

        def put(name, data):
            with open(os.path.join(folder, name), "wb") as out:
                out.write(data if isinstance(data, bytes) else data.encode("utf-8"))

        put("envelope", "\n".join([envelope.mail_from] + envelope.rcpt_tos) + "\n")
        put("subject", str(msg["subject"]))
        text = msg.get_body(("plain",))
        put("charset", text.get_content_charset() or "")
        put("body", text.get_payload(decode=True))
        for i, part in enumerate(msg.iter_attachments()):
            put(os.path.join("attachments", "%d-%s" % (i, part.get_filename())), part.get_payload(decode=True))
        return "250 Message accepted"


def authenticate(server, session, envelope, mechanism, auth_data):
    good = isinstance(auth_data, LoginPassword) and auth_data.login.decode() == args.user and \
        auth_data.password.decode() == args.password
    return AuthResult(success=good, handled=False)


tls = ssl.create_default_context(ssl.Purpose.CLIENT_AUTH)
tls.load_cert_chain(args.cert, args.key)
port = free_port()
controller = Controller(Inbox(), hostname="127.0.0.1", port=port, tls_context=tls, require_starttls=True,
                        authenticator=authenticate, auth_required=True, auth_require_tls=True,
                        data_size_limit=64 * 1024 * 1024)
controller.start()
print("ready", port, flush=True)
try:
    while True:
        time.sleep(3600)
finally:
    controller.stop()
    sys.exit(0)
