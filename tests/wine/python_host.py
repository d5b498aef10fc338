#!/usr/bin/env python3
"""Runs a command under which python.exe (PythonBridge.cpp) finds Python.

    python_host.py COMMAND [WORD...]        (WINEPREFIX names the folder of Wine)
"""
import os
import pathlib
import re
import socketserver
import struct
import subprocess
import sys
import threading


def host_path(word):
    """The path of this machine that a path with a drive letter means; every other word as it is."""
    drive = re.match(r"([A-Za-z]:)[/\\](.*)", word, re.DOTALL)
    if not drive:
        return word
    root = pathlib.Path(os.environ["WINEPREFIX"], "dosdevices", drive[1].lower())
    return os.path.join(os.path.realpath(root), drive[2].replace("\\", "/"))


class Call(socketserver.BaseRequestHandler):
    def handle(self):
        size, = struct.unpack("<I", self.exactly(4))
        folder, *words = (host_path(word) for word in self.exactly(size).decode().split("\0"))
        child = subprocess.Popen([sys.executable, *words], cwd=folder, stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        threading.Thread(target=self.pass_input_on, args=[child.stdin], daemon=True).start()
        try:
            while block := child.stdout.read1():
                self.request.sendall(b"o\0\0\0" + struct.pack("<I", len(block)) + block)
            self.request.sendall(b"x\0\0\0" + struct.pack("<i", child.wait()))
        except OSError:  # the caller is gone
            child.kill()
            child.wait()

    def exactly(self, size):
        data = b""
        while len(data) < size:
            block = self.request.recv(size - len(data))
            if not block:
                raise EOFError
            data += block
        return data

    def pass_input_on(self, stream):
        try:
            while block := self.request.recv(4096):
                stream.write(block)
                stream.flush()
        except OSError:
            pass
        try:
            stream.close()
        except OSError:
            pass


class Host(socketserver.ThreadingTCPServer):
    daemon_threads = True


with Host(("127.0.0.1", 0), Call) as host:
    threading.Thread(target=host.serve_forever, daemon=True).start()
    os.environ["TREMLO_PYTHON_HOST"] = str(host.server_address[1])
    sys.exit(subprocess.run(sys.argv[1:]).returncode)
