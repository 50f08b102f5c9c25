"""The statistics service of test builds: a TLS server on the loopback whose certificate the program trusts."""

import collections
import os
import shutil
import socket
import ssl
import subprocess
import tempfile
import threading

from . import isolation

HOST, PORT = "127.0.0.1", 47443  # what test builds post to, see CMakePresets.json
ANSWER = b'HTTP/1.1 200 OK\r\nContent-Type: application/json\r\nContent-Length: 15\r\n\r\n{"status":"ok"}'
_TRUSTED = "/etc/ssl/certs"
_TRUSTED_BYTES = 64 * 1024

Request = collections.namedtuple("Request", "line head body")  # line: of the head the first


class StatisticsService:
    """Keeps every request that arrives whole in `requests`, and what went wrong in `failures`. Made after the desktop,
    which gives this process a network and mounts of its own. Its certificate is valid for `days` from the time that
    `clock` (an environment) gives, from now on without."""

    def __init__(self, days=2, clock=None):
        self.requests, self.failures = [], []
        self._folder = tempfile.mkdtemp(prefix="tandry-statistics-")
        self._certificate, self._key = (os.path.join(self._folder, name) for name in ("own.pem", "own.key"))
        self._openssl("req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", str(days), "-subj", f"/CN={HOST}",
                      "-addext", f"subjectAltName=IP:{HOST}", "-keyout", self._key, "-out", self._certificate,
                      environment=clock or {})
        self._have_it_trusted()
        self._context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        self._context.load_cert_chain(self._certificate, self._key)
        self._listener = socket.create_server((HOST, PORT))
        threading.Thread(target=self._serve, daemon=True).start()

    def stop(self):
        """Ends the service and takes its certificate back."""
        # Closing alone would not wake the thread that waits for a connection.
        self._listener.shutdown(socket.SHUT_RDWR)
        self._listener.close()
        isolation.release_disk(_TRUSTED)
        shutil.rmtree(self._folder, ignore_errors=True)

    def _have_it_trusted(self):
        digest = self._openssl("x509", "-hash", "-noout", "-in", self._certificate).strip()
        # In front of the system's own folder, and for this process and its children alone.
        isolation.small_disk(_TRUSTED, _TRUSTED_BYTES)
        shutil.copy(self._certificate, os.path.join(_TRUSTED, digest + ".0"))

    def _serve(self):
        while True:
            try:
                connection, _ = self._listener.accept()
            except OSError:
                return
            threading.Thread(target=self._talk, args=(connection,), daemon=True).start()

    def _talk(self, connection):
        try:
            with self._context.wrap_socket(connection, server_side=True) as talk:
                reader = talk.makefile("rb")
                while self._take_one(reader):
                    talk.sendall(ANSWER)
        except OSError as problem:
            self.failures.append(str(problem))

    def _take_one(self, reader):
        head = b""
        while not head.endswith(b"\r\n\r\n"):
            line = reader.readline()
            if not line:
                return False
            head += line
        lines = head.decode("latin-1").split("\r\n")
        headers = dict(line.split(": ", 1) for line in lines[1:] if line)
        self.requests.append(Request(lines[0], head, reader.read(int(headers["Content-Length"]))))
        return True

    @staticmethod
    def _openssl(*arguments, environment=None):
        return subprocess.run(["openssl", *arguments], check=True, capture_output=True, text=True, timeout=120,
                              env={**os.environ, **(environment or {})}).stdout
