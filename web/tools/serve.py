#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Morvane Labs
# SPDX-License-Identifier: GPL-3.0-or-later
"""Serves a folder on 127.0.0.1 with the types a web app needs (WebAssembly,
manifest, modules), never caching, so a rebuilt page is what the next load gets."""
import argparse, functools, http.server, sys

TYPES = {".wasm": "application/wasm", ".webmanifest": "application/manifest+json",
         ".js": "text/javascript", ".mjs": "text/javascript", ".json": "application/json",
         ".svg": "image/svg+xml", ".mp3": "audio/mpeg"}


class Handler(http.server.SimpleHTTPRequestHandler):
    extensions_map = {**http.server.SimpleHTTPRequestHandler.extensions_map, **TYPES}

    def end_headers(self):
        self.send_header("Cache-Control", "no-cache")
        super().end_headers()

    def log_message(self, *args):
        if self.server.verbose:
            super().log_message(*args)


class Server(http.server.ThreadingHTTPServer):
    daemon_threads = True

    def handle_error(self, request, client_address):
        # A browser that closes the page drops its downloads; nothing went wrong.
        if isinstance(sys.exc_info()[1], (BrokenPipeError, ConnectionResetError)):
            return
        super().handle_error(request, client_address)


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("folder")
    ap.add_argument("--port", type=int, default=8080)
    ap.add_argument("--verbose", action="store_true")
    a = ap.parse_args()
    server = Server(("127.0.0.1", a.port), functools.partial(Handler, directory=a.folder))
    server.verbose = a.verbose
    print(f"http://127.0.0.1:{server.server_address[1]}/", flush=True)
    server.serve_forever()


if __name__ == "__main__":
    main()
