"""Plays the page in a directory: play.py DIRECTORY. Ends with status 1 at the first fault."""

import base64
import pathlib
import re
import sys
import tempfile
import time
import zlib

from selenium.webdriver.common.keys import Keys

import games
import troubles
from browser import PICTURE, Browser, expect, say
import touch
from server import Server

BACKGROUND = (0, 0, 123)
PANEL = (0, 0, 59)
BAND = (0, 0, 65)
BOX = (0, 0, 43)
STONE = (73, 100, 151)
ACCEPTING = (168, 217, 255)
RED = (255, 0, 0)

PLAY_GAME, EDITOR, FAMILY_BEFORE = (512, 752), (816, 752), (352, 112)
SEATS_FEWER, SEATS_OK = (352, 96), (512, 768)
MAP_AFTER, MAP_PLAY = (672, 112), (512, 752)
ASIDE = (512, 150)

TITLE = {(120, 8): BACKGROUND, (120, 20): PANEL, (765, 20): PANEL, (357, 617): ACCEPTING}
SEATS = {(120, 8): PANEL}
MAP_LIST = {(120, 8): BACKGROUND, (120, 20): PANEL, (765, 752): PANEL}
BOARD = {(1000, 8): BAND, (120, 300): BACKGROUND}
WON = {(1000, 8): BAND, (120, 300): BOX}

CHAIN = "map 0 0 128\n{}stone 0\n. -3 0\n. -1 0\n. 1 0\n* 3 0\n" + "".join(
    f'=> {i} {i + 1} 0 0 24 "{{}}"\n' for i in range(3))
CHAIN_PLACES = [(128, 416), (384, 416), (640, 416), (896, 416)]
CARD = (512, 752)

# A map of each family that one seat wins, and the clicks of each move, from the stone on.
GAMES = {
    "state": (CHAIN.replace("{}", "win 1\n", 1).replace("{}", ""),
              list(zip(CHAIN_PLACES, CHAIN_PLACES[1:]))),
    "pushdown": ('map 0 0 128\nwin 1\ndeck 1 4 4 4\nhand 1\nstone 0\n. -3 0\n* 3 0\n=> 0 1 0 0 36 "*"\n',
                 [(CHAIN_PLACES[0], CHAIN_PLACES[3], CARD)]),
    "turing": (CHAIN.replace("{}", "win 0\ndeck 3 1 1 1\ntape 3\ngoal 0 2 18\n", 1)
               .replace("{}", "6R"), list(zip(CHAIN_PLACES, CHAIN_PLACES[1:]))),
}

# What the editor is made to write below.
MADE = "map 0 0 1\nwin 0\nstone 0\n. -128 0\n* 128 0\n=> 0 1 0 0 0 \"\"\n"
MADE_PATH = "custom_state_machines/a_b"
MADE_PLACES = [(384, 416), (640, 416)]
MADE_PREVIEW = dict(zip(MADE_PLACES, (STONE, ACCEPTING)))

NO_DATABASE = "Object.defineProperty(window, 'indexedDB', {value: undefined});"
FULL_DISK = """
const put = IDBObjectStore.prototype.put;
IDBObjectStore.prototype.put = function (...file) {
    put.apply(this, file);
    this.transaction.abort();
};"""


def link_letters(family, name, text):
    deflate = zlib.compressobj(wbits=-15)
    packed = deflate.compress(f"{family}\n{name}\n{text}".encode()) + deflate.flush()
    return base64.urlsafe_b64encode(packed).decode().rstrip("=")


def open_title(browser, address):
    browser.open(address)
    browser.wait_shows("the title menu", TITLE)


def play_each_family(browser):
    say("a game of each family, from a link to the winner")
    browser.click(PLAY_GAME)
    browser.wait_shows("the seats", SEATS)
    browser.click(SEATS_FEWER, SEATS_FEWER, SEATS_OK, ASIDE)
    for family, (text, moves) in GAMES.items():
        browser.script(f"location.hash = '#map={link_letters(family, 'duel', text)}'")
        browser.wait_text("notice", "The map is in your list.")
        browser.wait_shows("the map list", MAP_LIST | {(212, 416): STONE, (812, 416): ACCEPTING})
        browser.click(MAP_PLAY)
        for source, *target in moves:
            browser.wait_shows("the stone", BOARD | {source: STONE})
            browser.click(source, *target, ASIDE)
        browser.wait_shows(f"the winner of the {family} game", WON)
        expect("the winner's name is missing", browser.has((312, 384, 712, 448), RED))
        browser.script("notice_show('')")


def rest_and_wake(browser, link):
    """The board asks for no pictures until a key, a link or another size of the page comes."""
    say("a still board asks for no pictures")
    browser.script("window.asked = 0; const ask = requestAnimationFrame;"
                   "window.requestAnimationFrame = play => { ++asked; return ask(play); }")

    def rests():
        browser.script("asked = 0")
        time.sleep(0.3)
        return browser.script("return asked") == 0

    browser.wait("the rest", rests)
    browser.press(Keys.F1)
    browser.wait("the help", lambda: "help" in browser.words())
    browser.wait("the rest behind a key", rests)
    width, height = browser.script("return [innerWidth, innerHeight]")
    browser.resize(width, height - 100)
    browser.wait("the other size", lambda: browser.script("return canvas.height") == PICTURE[1] - 100)
    browser.resize(width, height)
    browser.wait("the rest behind a size", rests)
    browser.press(Keys.F1)
    browser.script(f"location.hash = '{link}'")
    browser.wait("the map list", lambda: browser.words()[:1] == ["maps"])
    browser.wait("the rest behind a link", rests)


def make_map(browser):
    """From the title menu: two states with a stone and an arrow, saved as a-b."""
    say("a map is made, and still there after a reload")
    browser.click(FAMILY_BEFORE, EDITOR)
    browser.wait_shows("the editor", BOARD)
    browser.move(*MADE_PLACES[0])
    browser.press("13")
    browser.move(*MADE_PLACES[1])
    browser.press("1u")
    browser.click(ASIDE, button=2)
    browser.click(ASIDE, button=2)
    browser.click(*MADE_PLACES)
    browser.press("2")
    browser.press("s", held=Keys.CONTROL)
    browser.press("a")
    browser.press_place("-", "Slash")  # as on a German keyboard
    browser.press("b" + Keys.ENTER)
    browser.wait("the kept map", lambda: browser.script(
        "return store.writing === 0 && Module.FS.analyzePath('/player/" + MADE_PATH + "').exists"))
    browser.driver.refresh()
    browser.wait_shows("the title menu", TITLE)
    browser.click(FAMILY_BEFORE, PLAY_GAME, SEATS_OK)
    browser.wait_shows("the map list", MAP_LIST)
    for _ in range(60):
        if browser.shows(MADE_PREVIEW):
            return
        browser.click(MAP_AFTER)
    raise SystemExit("error: the map is not in the list")


def take_link(browser, address, folder):
    say("its link and its file bring it to other players")
    browser.allow(address, folder)
    browser.script("document.getElementById('copy_link').click()")
    browser.wait_text("notice", "The link is copied.")
    link = browser.driver.execute_async_script("navigator.clipboard.readText().then(arguments[0])")
    browser.script("document.getElementById('export_map').click()")
    file = pathlib.Path(folder) / "a-b.quorrel"
    browser.wait("the exported file", file.exists)
    expect("the exported file is not the map", file.read_text() == MADE)
    return link, file


def visit_fresh(address, link, file):
    with Browser() as browser:
        browser.open(link)
        browser.wait_shows("the map of the link", MAP_LIST | MADE_PREVIEW)
        expect("the link stays in the address", browser.driver.current_url == address)

        say("what is no map gets one message")
        for letters in ("", "AAAA", "%00", "x" * 300000, link_letters("state", "n", "x" * 2000000)):
            browser.script("notice_show('')")
            browser.script(f"location.hash = '#map={letters}'")
            browser.wait_text("notice", "The link holds no map that can be read.")
        bad = file.with_name("bad.quorrel")
        for content, words in ((b"\0\xff<script>" * 99, "is not a map"), (b" " * 34000000, "too large")):
            bad.write_bytes(content)
            browser.driver.find_element("id", "file").send_keys(str(bad))
            browser.wait_text("notice", words)
        browser.driver.find_element("id", "file").send_keys(str(file))
        browser.wait_text("notice", "The map is in your list.")
        expect("the same map came twice",
               "a_b_2" not in browser.script("return Module.FS.readdir('/player/custom_state_machines')"))
        expect_quiet(browser)


def change_window(browser):
    say("another size, a dense display, fullscreen, a lost GPU: the same game")
    for width, height, density in ((700, 500, 1), (600, 900, 2)):
        browser.resize(width, height, density)
        browser.wait_shows("the map list", MAP_LIST)
    browser.open(browser.driver.current_url)
    browser.wait_shows("the title menu", TITLE)
    browser.press(Keys.F11)
    browser.wait("fullscreen", lambda: browser.script("return document.fullscreenElement !== null"))
    browser.press(Keys.F11)
    browser.wait("the window", lambda: browser.script("return document.fullscreenElement === null"))
    browser.wait_shows("the title menu", TITLE)
    browser.script("window.lost = document.getElementById('canvas').getContext('webgl2')"
                   ".getExtension('WEBGL_lose_context'); lost.loseContext()")
    browser.script("setTimeout(() => lost.restoreContext(), 100)")
    browser.click(PLAY_GAME)
    browser.wait_shows("the seats", SEATS)


def expect_quiet(browser):
    errors = browser.errors()
    expect(f"errors in the console: {errors}", not errors)


def leave_unsaved(browser, address):
    say("a map that was left unsaved is brought back")
    open_title(browser, address)
    browser.click(FAMILY_BEFORE, EDITOR)
    browser.wait_shows("the editor", BOARD)
    browser.move(*MADE_PLACES[1])
    browser.press("1u")
    browser.move(*ASIDE)
    browser.wait_shows("the new state", {MADE_PLACES[1]: ACCEPTING})
    open_title(browser, address)
    browser.script("document.getElementById('bring_back').click()")
    browser.script("document.getElementById('kept_maps').selectedIndex = 0;"
                   "document.querySelector('#kept button[value=bring]').click()")
    browser.wait_shows("the map", MAP_LIST | {MADE_PLACES[1]: ACCEPTING})


def print_rules(address):
    say("the rules on two sheets")
    with Browser() as browser:
        browser.driver.get(address + "rules.html")
        expect("the rules lack pictures", browser.script(
            "return [...document.images].filter(image => image.naturalWidth > 0).length") == 4)
        for width, height in (8.27, 11.69), (8.5, 11):  # inches
            paper = {"paperWidth": width, "paperHeight": height}
            printed = base64.b64decode(browser.driver.execute_cdp_cmd("Page.printToPDF", paper)["data"])
            sheets = len(re.findall(rb"/Type /Page\b", printed))
            expect(f"the rules are printed on {sheets} sheets", sheets == 2)


def play_by_touch(address):
    with Browser() as browser:
        say("by touch alone: a game of three seats, a map made, saved and found again")
        browser.be_tablet(*touch.TABLET)
        browser.driver.get(address)
        browser.wait("the title menu", lambda: browser.words() == ["title"])
        expect("what was no tap clicked", touch.expect_no_click(browser))
        touch.play_three_seats(browser, link_letters("pushdown", "three", touch.DUEL))
        touch.make_map(browser)
        touch.try_map(browser)
        made = touch.save_map(browser)
        expect(f"the map is another: {made}", re.sub("hand .*", "hand", made) == touch.MADE)
        browser.driver.refresh()
        browser.wait("the title menu", lambda: browser.words() == ["title"])
        expect("the map is not in the list", touch.find_map(browser))
        expect_quiet(browser)
    with Browser() as browser:
        say("on a phone: a stepper of the editor by the row's ring")
        browser.be_tablet(390, 844)
        browser.driver.get(address)
        browser.wait("the title menu", lambda: browser.words() == ["title"])
        made = touch.step_by_ring(browser)
        expect(f"the decks are not one fewer: {made}", "deck 0 4 4 4" in made)


def main():
    server = Server(sys.argv[1])
    Browser.failed = pathlib.Path(sys.argv[1]).parent / "failed.png"
    with Browser() as browser, tempfile.TemporaryDirectory() as folder:
        start = time.monotonic()
        open_title(browser, server.address)
        say(f"the first picture after {time.monotonic() - start:.1f} s")
        play_each_family(browser)
        rest_and_wake(browser, f"#map={link_letters('state', 'rest', GAMES['state'][0])}")
        open_title(browser, server.address)
        make_map(browser)
        link, file = take_link(browser, server.address, folder)
        visit_fresh(server.address, link, file)
        change_window(browser)
        leave_unsaved(browser, server.address)
        expect_quiet(browser)

        say("without a network")
        server.stop()
        browser.open(server.address)
        browser.wait_shows("the title menu", TITLE)
    server = Server(sys.argv[1])
    print_rules(server.address)
    play_by_touch(server.address)
    with Browser(before=FULL_DISK) as browser:
        say("on a full disk")
        open_title(browser, server.address)
        browser.click(EDITOR)
        browser.wait_shows("the editor", BOARD)
        browser.press("s", held=Keys.CONTROL)
        browser.press("ab" + Keys.ENTER)
        browser.wait_text("warnings", "has no room for more: ab.")
    with Browser(before=NO_DATABASE) as browser:
        say("without a database, without WebGL 2")
        open_title(browser, server.address)
        browser.wait_text("warnings", "Maps that you make are not kept")
    with Browser("--disable-3d-apis") as browser:
        browser.driver.get(server.address)
        browser.wait_text("curtain_text", "WebGL 2")
    games.play(server.address, lambda name, text: link_letters("state", name, text))
    server.stop()
    troubles.play(sys.argv[1], lambda name: link_letters("state", name, f"map 0 0 1\n. {sum(map(ord, name))} 0\n"))
    say("the page is as it has to be")


main()
