#!/usr/bin/python3
"""Makes one set of the page's files: assemble.py FROM TO FILE...

What may never be mixed with another build's, scripts, style sheets and the program, goes into a
folder named after the contents of all files; the pages that load it say what its bytes have to be.
Scripts that stand one after the other in a page come to a browser as one: each request takes time.
"""

import base64
import hashlib
import json
import pathlib
import re
import shutil
import sys

BOUND = {".js", ".css", ".wasm", ".data"}
CHECKED = {".js", ".css"}  # by the browser; what load.js fetches, by its length
SCRIPT = '<script src="([^"]*)" defer></script>\n'
JOINED = "scripts.js"
TELLER = "load.js"  # says what fails; where nothing can be checked, as in files, it has to come all the same


def integrity(content):
    return "sha256-" + base64.b64encode(hashlib.sha256(content).digest()).decode()


def scripts_join(files):
    """Replaces the scripts that follow one another in the first page by one of their contents."""
    page = files["index.html"].decode()
    run = re.search(f"(?:{SCRIPT}){{2,}}", page)[0]
    names = re.findall(SCRIPT, run)
    files[JOINED] = b"\n".join(files.pop(name) for name in names)
    files["index.html"] = page.replace(run, f'<script src="{JOINED}" defer></script>\n').encode()


def page_bind(page, build, bound):
    """Lets a page load the files of its build."""
    for name, content in bound.items():
        is_checked = pathlib.Path(name).suffix in CHECKED and name != TELLER
        sign = f' integrity="{integrity(content)}"' if is_checked else ""
        size = f' data-bytes="{len(content)}"'
        for link in ("href", "src"):
            page = page.replace(f'{link}="{name}"', f'{link}="{build}/{name}"{sign or size}')
    return page


def main():
    source, target = map(pathlib.Path, sys.argv[1:3])
    files = {name: (source / name).read_bytes() for name in sorted(sys.argv[3:])}
    build = hashlib.sha256(repr(files).encode()).hexdigest()[:12]
    worker = files.pop("worker.js")
    scripts_join(files)
    bound = {name: content for name, content in files.items() if pathlib.Path(name).suffix in BOUND}
    made = {}
    for name, content in files.items():
        if name in bound:
            name = f"{build}/{name}"
        elif name.endswith(".html"):
            content = page_bind(content.decode(), build, bound).encode()
        made[name] = content
    checks = {"./" if name == "index.html" else name: integrity(content) for name, content in made.items()}
    made["worker.js"] = worker.replace(b'"BUILD"', json.dumps(build).encode(), 1).replace(
        b"FILES", json.dumps(checks, indent=4).encode(), 1)
    shutil.rmtree(target, ignore_errors=True)
    for name, content in made.items():
        path = target / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)


main()
