"""A static web server on the loopback address."""

import functools
import http.server
import threading


class Server:
    """Serves a directory on the loopback address, below a path of its own."""

    class Handler(http.server.SimpleHTTPRequestHandler):
        def log_message(self, *_):
            pass

        def translate_path(self, path):
            return super().translate_path(path.removeprefix("/some/where"))

    def __init__(self, directory):
        handler = functools.partial(self.Handler, directory=directory)
        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), handler)
        self.address = f"http://127.0.0.1:{self.server.server_port}/some/where/"
        threading.Thread(target=self.server.serve_forever, daemon=True).start()

    def stop(self):
        self.server.shutdown()
        self.server.server_close()
