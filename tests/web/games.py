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


# A pad whose buttons the test presses, by their numbers in the browser's standard mapping.
PAD = """
window.pad_buttons = Array(17).fill().map(() => ({pressed: false, value: 0}));
navigator.getGamepads = () => [{id: "pad", index: 0, connected: true, mapping: "standard",
    timestamp: performance.now(), axes: [0, 0, 0, 0], buttons: pad_buttons}];
dispatchEvent(new Event("gamepadconnected"));
"""
PAD_SOUTH, PAD_START, PAD_DOWN = 0, 9, 13


def pad_press(browser, button):
    for down in ("true", "false"):
        browser.script(f"pad_buttons[{button}] = {{pressed: {down}, value: Number({down})}}")
        browser.settle()
        browser.settle()


def play_by_pad(browser):
    say("a gamepad walks, clicks and goes back")
    browser.script(PAD)
    browser.move(512, 690)
    pad_press(browser, PAD_DOWN)  # to the button below, which plays
    pad_press(browser, PAD_SOUTH)
    browser.wait("the seats", lambda: "seats" in browser.words())
    pad_press(browser, PAD_START)
    browser.wait("the title menu", lambda: "title" in browser.words())


def drop(browser, text):
    browser.script("const data = new DataTransfer(); data.items.add(new File([arguments[0]], 'a.quorrel-game'));"
                   "document.dispatchEvent(new DragEvent('drop', {dataTransfer: data, cancelable: true}))", text)


def drop_on_editor(browser, text):
    say("a file dropped on the editor leaves it only for a game; two questions wait for each other")
    browser.click((816, 752))
    browser.wait("the editor", lambda: "editor" in browser.words())
    browser.script("notice_show('')")
    drop(browser, text[:60])
    browser.wait_text("notice", "line")
    expect("the editor is left", "editor" in browser.words())
    drop(browser, text)
    wait_board(browser, AFTER)
    first, second = browser.driver.execute_async_script("""
        const answers = [goods_ask(), goods_ask()];
        const press = value => setTimeout(() =>
            element('goods').querySelector(`[value=${value}]`).click(), 100);
        press('game');
        answers[0].then(() => press('map'));
        Promise.all(answers).then(arguments[0]);""")
    expect(f"the answers are {first} and {second}", (first, second) == ("game", "map"))


def play(address, link_of):
    with Browser() as browser, tempfile.TemporaryDirectory() as folder:
        start(browser, address)
        begin(browser, link_of("chain", CHAIN))
        link, file = take(browser, address, folder)
        visit(address, link, file)
        start(browser, address)
        play_by_pad(browser)
        start(browser, address)
        drop_on_editor(browser, file.read_text())
        resume(browser)
        browser.script(f"location.hash = '#map={link_of('chain', CHAIN)}&seats=human,elephant'")
        browser.wait_text("notice", "no seats")
