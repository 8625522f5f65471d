"""Games that go from page to page: as links, as files, and over a reload."""

import pathlib
import tempfile

from browser import Browser, expect, say

# Two seats on a state machine, and where its stone stands before and after the first move.
CHAIN = "map 0 0 128\nwin 1\nstone 0\n. -3 0\n. -1 0\n. 1 0\n* 3 0\n" + "".join(
    f'=> {i} {i + 1} 0 0 24 ""\n' for i in range(3))
BEFORE, AFTER = (128, 416), (384, 416)
STONE = (73, 100, 151)


def start(browser, address):
    browser.open(address)
    browser.wait("the title menu", lambda: "title" in browser.words())


def wait_board(browser, stone):
    browser.wait("the board", lambda: "game" in browser.words())
    if "covered" in browser.words():
        browser.press(" ")
    browser.wait_shows("the stone", {stone: STONE})


def begin(browser, link):
    say("a link with seats begins a game at once")
    browser.script(f"location.hash = '#map={link}&utm_source=x&seats=human%2Chuman'")
    wait_board(browser, BEFORE)
    browser.click(BEFORE, AFTER, (512, 150))
    browser.wait("the other's turn", lambda: "covered" in browser.words())
    wait_board(browser, AFTER)


def take(browser, address, folder):
    """The game's link and its file."""
    browser.allow(address, folder)
    files = lambda: list(pathlib.Path(folder).glob("*.quorrel-game"))
    for button, done in (("copy_link", lambda: "copied" in browser.text("notice")), ("export_map", files)):
        browser.script(f"element('{button}').click()")
        browser.wait("the question", lambda: browser.script("return element('goods').open"))
        browser.script("element('goods').querySelector('[value=game]').click()")
        browser.wait(button, done)
    return browser.driver.execute_async_script("navigator.clipboard.readText().then(arguments[0])"), files()[0]


def visit(address, link, file):
    say("its link and its file show another player the same board, and it is his turn")
    with Browser() as browser:
        browser.open(link)
        wait_board(browser, AFTER)
        expect("the link stays in the address", browser.driver.current_url == address)
        start(browser, address)
        browser.driver.find_element("id", "file").send_keys(str(file))
        wait_board(browser, AFTER)
        say("what is no game gets one message, and nothing else changes")
        text = file.read_text()
        for content, words in ((text.replace("move 0", "move 9"), "line"), (text[:60], "line"),
                               ("quorrel game 2\n", "line 1")):
            bad = file.with_name("bad.quorrel-game")
            bad.write_text(content)
            browser.script("notice_show('')")
            browser.driver.find_element("id", "file").send_keys(str(bad))
            browser.wait_text("notice", words)
        expect("the board is gone", "game" in browser.words())
        for letters in ("", "AAAA", link.split("=")[1][:-9], "x" * 300000):
            browser.script("notice_show('')")
            browser.script(f"location.hash = '#game={letters}'")
            browser.wait_text("notice", "The link holds no game that can be read.")


def resume(browser):
    say("a page that is reloaded in mid-game goes back into it")
    browser.driver.refresh()
    browser.wait("the game to go back into", lambda: {"title", "left"} <= set(browser.words()))
    browser.script("element('resume').click()")
    wait_board(browser, AFTER)


def play(address, link_of):
    with Browser() as browser, tempfile.TemporaryDirectory() as folder:
        start(browser, address)
        begin(browser, link_of("chain", CHAIN))
        link, file = take(browser, address, folder)
        visit(address, link, file)
        resume(browser)
        browser.script(f"location.hash = '#map={link_of('chain', CHAIN)}&seats=human,elephant'")
        browser.wait_text("notice", "no seats")
