"""The statistics service of test builds: a TLS server on the loopback interface; the program under test trusts its certificate."""

import collections
import os
import shutil
import socket
import ssl
import subprocess
import tempfile
import threading

from . import isolation

HOST, PORT = "127.0.0.1", 47443  # the host of test builds, see CMakePresets.json
ANSWER = b'HTTP/1.1 200 OK\r\nContent-Type: application/json\r\nContent-Length: 15\r\n\r\n{"status":"ok"}'

Request = collections.namedtuple("Request", "line head body")  # line: the first line of the head


class StatisticsService:
    """Records complete requests in `requests` and errors in `failures`. Create it after the desktop, which may move this
    process to a network namespace. Programs with `environment` trust its certificate, which is valid for `days` from the
    time of `clock` (an environment), by default from now."""

    def __init__(self, days=2, clock=None):
        self.requests, self.failures = [], []
        self._folder = tempfile.mkdtemp(prefix="tandry-statistics-")
        certificate, key = (os.path.join(self._folder, name) for name in ("own.pem", "own.key"))
        self._openssl("req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", str(days), "-subj", f"/CN={HOST}",
                      "-addext", f"subjectAltName=IP:{HOST}", "-keyout", key, "-out", certificate,
                      environment=clock or {})
        self._context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        self._context.load_cert_chain(certificate, key)
        self._claim = isolation.claim_port(PORT)
        self._listener = socket.create_server((HOST, PORT))
        self.environment = {
            "QT_PLUGIN_PATH": os.environ["TANDRY_TRUST"], "QT_QPA_GENERIC_PLUGINS": "tandrytrust",
            "TANDRY_TRUSTED_CERTIFICATE": certificate}
        threading.Thread(target=self._serve, daemon=True).start()

    def stop(self):
        """Ends the service."""
        # close() alone would not wake the thread that waits for a connection.
        self._listener.shutdown(socket.SHUT_RDWR)
        self._listener.close()
        self._claim.close()
        shutil.rmtree(self._folder, ignore_errors=True)

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
