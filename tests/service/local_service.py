#!/usr/bin/env python3
"""The hazard service and the tile server on this machine's loopback, from files, for tests and for work by hand.

    tests/service/local_service.py [--data DIR] [--tile FILE] [--log FILE] [--work DIR] [--wishes FILE]

Prints one line "name=value" for each port (all of 127.0.0.1) and for the certificate of its authority, then "ready".
Ends when its standard input is closed, so that it never outlives who started it.

    http            plain
    https           certificate of the authority "ca"
    https-host      certificate of another host
    https-expired   certificate of yesterday
    https-foreign   certificate of an authority that nobody knows
    https-client    asks for a certificate of the client, which it must have
    https-client12  the same, TLS 1.2 alone
    https-client13  the same, TLS 1.3 alone
    https-may       asks for a certificate of the client and does without
    silent          takes connections and never says a word
    full            a connection to it never comes about
    refused         refuses connections

Answers: /map/api/fltsearch (fltsearch_C.json or fltsearch_S.json by mode), /map/api/pshm/V/C/CODE/fltinfo.geojson
(fltinfo_CODE.geojson), /xyz/std/Z/X/Y.png (the tile), else 404.

Misbehaviour is asked for in front of the path: segments "WHAT=HOW", where WHAT is "ranking", "model", "tile", "all" or
a fault's code, and HOW one of the methods "answer_..." below, with its argument behind a colon:

    curl 'http://127.0.0.1:PORT/ranking=cut/map/api/fltsearch?...'
    curl 'http://127.0.0.1:PORT/F005501=status:503/model=trickle:5/map/api/pshm/Y2021/AVR/F005501/fltinfo.geojson'

The same segments in the file of --wishes hold for every request that asks for nothing itself, from the moment they
are written.
"""

import argparse
import gzip
import json
import os
import pathlib
import random
import shutil
import socket
import socketserver
import ssl
import struct
import subprocess
import sys
import tempfile
import threading
import time
import urllib.parse

ROOT = pathlib.Path(__file__).resolve().parent.parent
LARGEST = 64 * 1024 * 1024


class Certificates:
    """An authority and the certificates of its servers, made anew for each run."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        self.ca = self._make("ca")
        self.good = self._make("good", "IP:127.0.0.1", self.ca)
        self.host = self._make("host", "DNS:elsewhere.example", self.ca)
        self.expired = self._expire(self.good, "expired")
        self.foreign = self._make("foreign", "IP:127.0.0.1", self._make("foreign-ca"))

    def _openssl(self, *words):
        subprocess.run(["openssl", *words], check=True, stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def _make(self, name, subject_name=None, authority=None):
        """A certificate with its key beside it; one without an authority is an authority."""
        certificate = self.folder / f"{name}.pem"
        signed = []
        if authority:
            signed = ["-CA", authority, "-CAkey", authority.with_suffix(".key"),
                      "-addext", "basicConstraints=critical,CA:FALSE", "-addext", f"subjectAltName={subject_name}"]
        self._openssl("req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes",
                      "-keyout", certificate.with_suffix(".key"), "-out", certificate, "-days", "2",
                      "-subj", f"/CN=Tremlo test {name}", *signed)
        return certificate

    def _expire(self, certificate, name):
        """A certificate for the same key whose term ended yesterday."""
        expired, request = self.folder / f"{name}.pem", self.folder / f"{name}.csr"
        key = expired.with_suffix(".key")
        shutil.copy(certificate.with_suffix(".key"), key)
        self._openssl("req", "-new", "-key", key, "-out", request, "-subj", f"/CN=Tremlo test {name}",
                      "-addext", "subjectAltName=IP:127.0.0.1")
        self._openssl("x509", "-req", "-in", request, "-CA", self.ca, "-CAkey", self.ca.with_suffix(".key"),
                      "-copy_extensions", "copy", "-days", "-1", "-out", expired)
        return expired

    def context(self, certificate, client=ssl.CERT_NONE, version=None):
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(certificate, certificate.with_suffix(".key"))
        context.load_verify_locations(self.ca)
        context.verify_mode = client
        if version:
            context.minimum_version = context.maximum_version = version
        return context


class Content:
    """What an honest service would answer."""

    def __init__(self, data, tile):
        self.data = pathlib.Path(data)
        self.tile = pathlib.Path(tile)

    def find(self, path):
        """Returns the kind of the request, the fault's code, the status and the body."""
        url = urllib.parse.urlsplit(path)
        words = url.path.strip("/").split("/")
        if words[:3] == ["map", "api", "fltsearch"]:
            mode = urllib.parse.parse_qs(url.query).get("mode", ["C"])[0]
            return "ranking", "", *self.read(f"fltsearch_{mode}.json")
        if words[:3] == ["map", "api", "pshm"] and len(words) == 7:
            return "model", words[5], *self.read(f"fltinfo_{words[5]}.geojson")
        if words[:2] == ["xyz", "std"] and len(words) == 5:
            return "tile", "", 200, self.tile.read_bytes()
        return "other", "", 404, b"<html><body>Not found</body></html>"

    def read(self, name):
        try:
            return 200, (self.data / pathlib.Path(name).name).read_bytes()
        except OSError:
            return 404, b'{"status":"Error"}'


class Exchange(socketserver.StreamRequestHandler):
    """The requests of one connection, one after the other."""

    disable_nagle_algorithm = True

    def setup(self):
        if self.server.context:
            self.request = self.server.context.wrap_socket(self.request, server_side=True)
        super().setup()

    def handle(self):
        self.answered = 0
        try:
            while self.one_request():
                pass
        except OSError:
            pass  # the client went away

    def one_request(self):
        """Answers a request. Returns whether the connection stays open."""
        first = self.rfile.readline().decode("latin-1").split()
        if len(first) != 3:
            return False
        headers = {}
        while line := self.rfile.readline().decode("latin-1").strip():
            name, _, value = line.partition(":")
            headers[name] = value.strip()
        self.path = first[1]
        self.server.log({"method": first[0], "path": self.path, "version": first[2], "headers": headers,
                         "connection": self.client_address[1]})
        wishes, path = {}, self.path.lstrip("/")
        if self.server.wishes and "=" not in path.split("/", 1)[0].split("?")[0]:
            path = self.server.wishes.read_text() + path if self.server.wishes.exists() else path
        while "=" in path.split("/", 1)[0].split("?")[0]:
            wish, _, path = path.partition("/")
            what, _, how = wish.partition("=")
            wishes[what] = how
        kind, code, self.status, self.body = self.server.content.find("/" + path)
        how = wishes.get(code) or wishes.get(kind) or wishes.get("all") or "honest"
        self.answered += 1
        name, _, argument = how.partition(":")
        return bool(getattr(self, "answer_" + name.replace("-", "_"))(argument))

    def head(self, *lines, length=None):
        length = len(self.body) if length is None else length
        all_lines = [f"HTTP/1.1 {self.status} Answer", *lines]
        if length >= 0:
            all_lines.append(f"Content-Length: {length}")
        return "\r\n".join([*all_lines, "", ""]).encode("latin-1")

    def wait_for_client(self):
        """Says nothing more until the client gives up."""
        while self.rfile.read(1):
            pass

    def answer_honest(self, _):
        self.wfile.write(self.head() + self.body)
        return True

    def answer_file(self, name):
        self.status, self.body = self.server.content.read(name)
        return self.answer_honest("")

    def answer_status(self, status):
        """An error page of that status."""
        self.status = status
        self.body = f"<html><body><h1>{status}</h1></body></html>".encode()
        return self.answer_honest("")

    def answer_stamp(self, status):
        """The honest body under another status."""
        self.status = status
        return self.answer_honest("")

    def answer_empty(self, _):
        self.body = b""
        return self.answer_honest("")

    def answer_garbage(self, _):
        """A sound answer of HTTP with a body of any bytes."""
        self.body = random.Random(4612).randbytes(5000)
        return self.answer_honest("")

    def answer_nohttp(self, _):
        self.wfile.write(random.Random(4612).randbytes(5000) + b"\r\n\r\n")

    def answer_stall(self, _):
        self.wait_for_client()

    def answer_half(self, _):
        """Half of the body, then silence."""
        self.wfile.write(self.head() + self.body[: len(self.body) // 2])
        self.wait_for_client()

    def answer_cut(self, _):
        """Half of the body, then the end of the connection."""
        self.wfile.write(self.head() + self.body[: len(self.body) // 2])

    def answer_drop(self, _):
        """The end of the connection at once."""

    def answer_close(self, pause_ms):
        """The honest answer; so much later the end of the connection, which nothing has announced."""
        self.answer_honest("")
        time.sleep(float(pause_ms or 0) / 1000)

    def answer_reset(self, pause_ms):
        """The same with the connection broken off in place of closed."""
        self.answer_close(pause_ms)
        self.connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))

    def answer_close_every(self, count):
        """The honest answer, and behind every so many on a connection its end."""
        self.answer_honest("")
        return self.answered % int(count) != 0

    def answer_drop_second(self, _):
        """The honest answer to the first request of a connection; at the next one its end, without an answer."""
        return self.answered == 1 and self.answer_honest("")

    def answer_trickle(self, pause_ms):
        """Byte by byte, the head too, with a pause behind each."""
        for byte in self.head() + self.body:
            self.wfile.write(bytes([byte]))
            time.sleep(float(pause_ms or 0) / 1000)
        return True

    def answer_huge(self, size):
        """Zeros without a length in front: so many, or one more than a client takes."""
        self.wfile.write(self.head("Connection: close", length=-1))
        rest = int(size or LARGEST + 1)
        while rest > 0:
            self.wfile.write(bytes(min(rest, 1 << 20)))
            rest -= 1 << 20

    def answer_huge_length(self, _):
        """Announces more than a client takes, then sends nothing."""
        self.wfile.write(self.head(length=LARGEST + 1))
        self.wait_for_client()

    def endless(self, piece):
        """So many bytes of copies of a piece as a client does not take."""
        for _ in range(2 * LARGEST // (1 << 20)):
            self.wfile.write(piece * ((1 << 20) // len(piece)))

    def answer_heads(self, size):
        """So many bytes of lines in the head, then the honest answer; without a number there is hardly an end."""
        line = b"X-Filler: " + b"x" * 52 + b"\r\n"
        self.wfile.write(b"HTTP/1.1 200 Answer\r\n")
        if not size:
            return self.endless(line)
        self.wfile.write(line * (int(size) // len(line)))
        self.wfile.write(f"Content-Length: {len(self.body)}\r\n\r\n".encode() + self.body)
        return True

    def answer_interim(self, _):
        """Answers that announce the answer, hardly with an end."""
        self.endless(b"HTTP/1.1 102 Processing\r\n\r\n")

    def chunked(self):
        self.wfile.write(self.head("Transfer-Encoding: chunked", length=-1))
        self.wfile.write(f"{len(self.body):x}\r\n".encode() + self.body + b"\r\n")

    def answer_trailers(self, size):
        """The honest body, so many bytes of lines behind it; without a number there is hardly an end."""
        line = b"X: y\r\n"
        self.chunked()
        self.wfile.write(b"0\r\n")
        if not size:
            return self.endless(line)
        self.wfile.write(line * (int(size) // len(line)) + b"\r\n")
        return True

    def answer_bomb(self, size):
        """So many zeros, packed for the way into a thousandth of that, whether the client asked for it or not."""
        packed = gzip.compress(bytes(int(size)))
        self.wfile.write(self.head("Transfer-Encoding: gzip, chunked", length=-1))
        self.wfile.write(f"{len(packed):x}\r\n".encode() + packed + b"\r\n0\r\n\r\n")
        return True

    def answer_extension(self, _):
        """A chunk whose extension hardly has an end."""
        self.chunked()
        self.wfile.write(b"1;x=")
        self.endless(b"x")

    def answer_redirect_huge(self, size):
        """A redirect to the honest answer whose own body has so many bytes, or hardly an end."""
        wish = f"redirect-huge:{size}/" if size else "redirect-huge/"
        target = self.path.replace(wish, "honest/", 1)
        self.status, count = 302, int(size or 2 * LARGEST)
        self.wfile.write(self.head(f"Location: {target}", length=count))
        while count > 0:
            self.wfile.write(bytes(min(count, 1 << 20)))
            count -= 1 << 20
        return True

    def answer_redirect(self, hops):
        """So many redirects to the same request, then the answer; without a number there is no end to them."""
        if hops == "0":
            return self.answer_honest("")
        target = self.path.replace(f"redirect:{hops}/", f"redirect:{int(hops) - 1}/", 1) if hops else self.path
        return self.redirect(target)

    def answer_redirect_then_close(self, hops):
        """The same, the connection closed unannounced a moment behind each answer."""
        if hops == "0":
            return self.answer_close("1")
        self.redirect(self.path.replace(f"close:{hops}/", f"close:{int(hops) - 1}/", 1))
        time.sleep(0.001)

    def answer_redirect_to(self, address):
        """To another scheme or host: the address with percent signs."""
        return self.redirect(urllib.parse.unquote(address))

    def redirect(self, target):
        self.status, self.body = 302, b"moved"
        self.wfile.write(self.head(f"Location: {target}") + self.body)
        return True


class Listener(socketserver.ThreadingTCPServer):
    daemon_threads = True
    request_queue_size = 64

    def __init__(self, content, log, context=None, wishes=None):
        super().__init__(("127.0.0.1", 0), Exchange)
        self.content, self.log, self.context, self.wishes = content, log, context, wishes
        threading.Thread(target=self.serve_forever, daemon=True).start()

    def handle_error(self, request, client_address):
        pass  # a client that does not like the certificate

    def port(self):
        return self.server_address[1]


class Log:
    """One line of JSON for each request, written before it is answered."""

    def __init__(self, path):
        self.path = path
        self.lock = threading.Lock()

    def __call__(self, entry):
        if not self.path:
            return
        with self.lock, open(self.path, "a", encoding="utf-8") as file:
            file.write(json.dumps(entry) + "\n")


def deaf_ports():
    """Sockets that never serve: name, socket. The extra connections fill the queue of "full"."""
    sockets = []
    for name, backlog in (("silent", 64), ("full", 0), ("refused", None)):
        deaf = socket.socket()
        deaf.bind(("127.0.0.1", 0))
        if backlog is not None:
            deaf.listen(backlog)
        sockets.append((name, deaf))
        if name == "full":
            sockets.append(("", socket.create_connection(deaf.getsockname())))
            for _ in range(3):
                extra = socket.socket()
                extra.setblocking(False)
                extra.connect_ex(deaf.getsockname())
                sockets.append(("", extra))
    return sockets


def main():
    options = argparse.ArgumentParser(description="The hazard service and the tile server from files.")
    options.add_argument("--data", default=ROOT / "data" / "jshis", help="folder of the answers")
    options.add_argument("--tile", default=ROOT / "data" / "tiles" / "tile.png", help="the picture of every tile")
    options.add_argument("--log", help="file that takes one line of JSON for each request")
    options.add_argument("--work", help="folder for the certificates; without it one that is removed at the end")
    options.add_argument("--wishes", type=pathlib.Path, help="file of misbehaviour that may change meanwhile")
    arguments = options.parse_args()

    with tempfile.TemporaryDirectory() as own_folder:
        certificates = Certificates(arguments.work or own_folder)
        content, log = Content(arguments.data, arguments.tile), Log(arguments.log)
        contexts = {
            "http": None,
            "https": certificates.context(certificates.good),
            "https-host": certificates.context(certificates.host),
            "https-expired": certificates.context(certificates.expired),
            "https-foreign": certificates.context(certificates.foreign),
            "https-client": certificates.context(certificates.good, ssl.CERT_REQUIRED),
            "https-client12": certificates.context(certificates.good, ssl.CERT_REQUIRED, ssl.TLSVersion.TLSv1_2),
            "https-client13": certificates.context(certificates.good, ssl.CERT_REQUIRED, ssl.TLSVersion.TLSv1_3),
            "https-may": certificates.context(certificates.good, ssl.CERT_OPTIONAL),
        }
        for name, context in contexts.items():
            print(f"{name}={Listener(content, log, context, arguments.wishes).port()}")
        deaf = deaf_ports()
        for name, deaf_socket in deaf:
            if name:
                print(f"{name}={deaf_socket.getsockname()[1]}")
        print(f"ca={certificates.ca}")
        print("ready", flush=True)
        sys.stdin.buffer.read()
    os._exit(0)  # without waiting for connections that a client left open


if __name__ == "__main__":
    main()
