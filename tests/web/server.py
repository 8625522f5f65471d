"""A static web server on the loopback address."""

import http.server
import re
import threading


class Server:
    """Serves a directory on the loopback address, below a path of its own."""

    def __init__(self, directory):
        self.directory = directory
        self.silent = self.cut = None  # patterns of what gets no answer, or only half of its bytes
        self.over = threading.Event()
        handler = type("Handler", (Handler,), {"owner": self})
        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), handler)
        self.address = f"http://127.0.0.1:{self.server.server_port}/some/where/"
        threading.Thread(target=self.server.serve_forever, daemon=True).start()

    def stop(self):
        self.over.set()
        self.server.shutdown()
        self.server.server_close()


class Handler(http.server.SimpleHTTPRequestHandler):
    def __init__(self, *arguments):
        super().__init__(*arguments, directory=self.owner.directory)

    def log_message(self, *_):
        pass

    def translate_path(self, path):
        return super().translate_path(path.removeprefix("/some/where"))

    def matches(self, pattern):
        return pattern and re.search(pattern, self.path)

    def do_GET(self):
        if self.matches(self.owner.silent):
            self.owner.over.wait()
        else:
            super().do_GET()

    def copyfile(self, source, outputfile):
        content = source.read()
        outputfile.write(content[:len(content) // 2] if self.matches(self.owner.cut) else content)
