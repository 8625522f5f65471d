"""What must not break the page: names, records, other tabs, new builds, bad servers."""

import pathlib
import shutil
import subprocess
import tempfile

from browser import Browser, expect, say
from server import Server

ASSEMBLE = pathlib.Path(__file__).resolve().parents[2] / "web/assemble.py"
NAMES = ["hasOwnProperty", "__proto__", "constructor", "..", "<b>"]
TAILS = ["&utm_source=x", "?fbclid=1", "."]

# Records that no file can be: a folder's path, no path, no bytes, a way out of the folder.
BAD_RECORDS = """
const done = arguments[0];
const put = store.database.transaction("files", "readwrite").objectStore("files");
const bytes = new Uint8Array([1, 2, 3]);
put.put(bytes, "/player/resources");
put.put(bytes, 5);
put.put("words", "/player/words");
put.put(bytes, "/player/../shipped/resources/font.txt").onsuccess = done;
"""

# Asks the server for a new build, and whether the page has a worker and none is on its way.
WORKER_IS_DONE = """
const done = arguments[0];
navigator.serviceWorker.getRegistration().then(async one => {
    await one.update().catch(() => {});
    setTimeout(() => done(Boolean(one.active && !one.installing)), 200);
});
"""

MAPS_KEPT = "return [...store.known.keys()].filter(path => path.includes('/custom_')).map(path => path.split('/').pop())"


def start(browser, address):
    browser.driver.get(address)
    browser.wait("the game", lambda: browser.script("return game_state === 'running'"))


def take(browser, letters):
    browser.script("notice_show('')")
    browser.script(f"location.hash = '#map={letters}'")
    browser.wait_text("notice", "The map is in your list.")


def kept(browser):
    browser.wait("what is being kept", lambda: browser.script("return store.writing === 0"))
    return browser.script(MAPS_KEPT)


def names_and_records(browser, address, link_of):
    say("names, tails of links and records that could break a page")
    start(browser, address)
    for name in NAMES:
        take(browser, link_of(name))
    for tail in TAILS:
        take(browser, link_of("constructor") + tail)
    browser.driver.execute_async_script(BAD_RECORDS)
    start(browser, address)
    browser.wait_text("warnings", "Left out, since they cannot be read")
    expect("a name is lost", {"hasOwnProperty", "__proto__", "constructor"} <= set(kept(browser)))
    browser.script("indexedDB.deleteDatabase('quorrel')")


def refused_copy(browser, letters):
    say("a link that may not be copied is shown")
    take(browser, letters)
    browser.script("navigator.clipboard.writeText = () => Promise.reject(new Error('refused'))")
    browser.script("document.getElementById('copy_link').click()")
    browser.wait("the link to copy", lambda: "#map=" in browser.script("return element('link_text').value"))
    browser.script("element('link').close()")


def second_tab(browser, address, link_of):
    say("a second tab waits for its turn and then keeps what both have made")
    start(browser, address)
    first = browser.driver.current_window_handle
    browser.driver.switch_to.new_window("tab")
    start(browser, address)
    browser.wait_text("warnings", "open in another tab")
    take(browser, link_of("second"))
    expect("a tab writes before its turn", "second" not in kept(browser))
    second = browser.driver.current_window_handle
    browser.driver.switch_to.window(first)
    take(browser, link_of("first"))
    kept(browser)
    browser.driver.close()
    browser.driver.switch_to.window(second)
    browser.wait("both maps", lambda: {"first", "second"} <= set(kept(browser)))
    expect("the warning stays", browser.text("warnings") == "")
    lists = browser.script("return Module.FS.readFile('/player/resources/state_maps.txt', {encoding: 'utf8'})")
    expect("the list lacks a map", "first " in lists and "second " in lists)


def sleeping_tab(page):
    say("without locks: a tab that slept gives way to the one that took its turn")
    server = Server(page)
    no_locks = "Object.defineProperty(navigator, 'locks', {value: undefined});"
    with Browser(before=no_locks) as browser:
        start(browser, server.address)
        browser.wait("the turn", lambda: browser.script("return store.may_write"))
        first = browser.driver.current_window_handle
        browser.driver.switch_to.new_window("tab")
        browser.driver.execute_cdp_cmd("Page.addScriptToEvaluateOnNewDocument", {"source": no_locks})
        start(browser, server.address)
        browser.wait_text("warnings", "open in another tab")
        second = browser.driver.current_window_handle
        browser.driver.switch_to.window(first)
        browser.script("BroadcastChannel.prototype.postMessage = () => {}")  # it answers nobody
        browser.driver.switch_to.window(second)
        browser.wait("the second's turn", lambda: browser.script("return store.may_write"))
        browser.driver.switch_to.window(first)
        browser.wait_text("warnings", "while this one slept")
        expect("two tabs may write", not browser.script("return store.may_write"))
    server.stop()


def refused_starts(page):
    """Where the page may not load the game at all."""
    server = Server(page)
    frame = "document.body.innerHTML = '<iframe sandbox=allow-scripts></iframe>';" \
            f"document.querySelector('iframe').src = '{server.address}'"
    for address, inner, words in (((pathlib.Path(page) / "index.html").resolve().as_uri(), "", "Opened as a file"),
                                  (server.address + "rules.html", frame, "The frame around")):
        say(f"what the page says: {words}")
        with Browser() as browser:
            browser.driver.get(address)
            if inner:
                browser.script(inner)
                browser.driver.switch_to.frame(0)
                browser.wait("the frame", lambda: browser.script("return Boolean(document.getElementById('choices'))"))
            browser.wait_text("curtain_text", words)
    server.stop()


def narrow_notice(browser):
    say("a long notice can be read on a phone")
    browser.resize(390, 844)
    browser.script("notice_show('words '.repeat(60)); warning_set('test', 'warning '.repeat(30))")
    expect("a line is cut", browser.script(
        "return ['notice', 'warnings'].every(name => element(name).scrollHeight <= element(name).clientHeight"
        " && element(name).getBoundingClientRect().bottom <= innerHeight)"
        " && document.documentElement.scrollWidth <= innerWidth"))


def next_build(browser, server, page):
    say("a new build comes whole or not at all, and a server that says nothing stops nobody")
    build_of = "return program_folder"
    with tempfile.TemporaryDirectory() as folder:
        parts, new = pathlib.Path(folder, "parts"), pathlib.Path(folder, "page")
        shutil.copytree(pathlib.Path(page).parent / "parts", parts)
        (parts / "page.css").open("a").write("/* new */")
        names = [path.relative_to(parts) for path in parts.rglob("*.*") if path.is_file()]
        subprocess.run([ASSEMBLE, parts, new, *names], check=True)
        start(browser, server.address)
        old_build = browser.script(build_of)
        # A browser asks for no update in a page's first minute.
        browser.driver.set_script_timeout(150)
        wait_for = lambda what: browser.wait(
            what, lambda: browser.driver.execute_async_script(WORKER_IS_DONE), 180)
        wait_for("the first set")
        server.directory, server.cut = new, "quorrel.wasm"
        for _ in range(2):
            wait_for("the end of the cut update")
            start(browser, server.address)
            expect("a cut update counts", browser.script(build_of) == old_build)
        server.cut = None
        wait_for("the update")
        server.silent = "."
        start(browser, server.address)
        expect("a whole update does not count", browser.script(build_of) != old_build)


def bad_servers(page):
    for name, trouble, words in (("silent", "quorrel.data", "has not answered"),
                                 ("cut", "quorrel.data", "quorrel.data"),
                                 ("cut", "quorrel.wasm", "quorrel.wasm"),
                                 ("cut", "scripts.js", "scripts.js did not come whole")):
        say(f"{trouble} is {name}")
        server = Server(page)
        setattr(server, name, trouble)
        with Browser() as browser:
            browser.driver.get(server.address)
            browser.wait_text("curtain_text", words)
            expect("there is no way to start again", browser.script("return !element('choices').hidden"))
            server.silent = server.cut = None
            browser.script("element('again').click()")
            browser.wait("the game", lambda: browser.script("return game_state === 'running'"))
        server.stop()


def play(page, link_of):
    server = Server(page)
    with Browser() as browser:
        names_and_records(browser, server.address, link_of)
    with Browser() as browser:
        second_tab(browser, server.address, link_of)
        refused_copy(browser, link_of("first"))
        narrow_notice(browser)
        next_build(browser, server, page)
    server.stop()
    sleeping_tab(page)
    refused_starts(page)
    bad_servers(page)
