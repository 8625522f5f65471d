"""Plays the page on a tablet, by touch alone."""

TABLET = (768, 1024)
PLAY_GAME, EDITOR = (512, 752), (816, 752)
SEATS_OK, MAP_AFTER, MAP_PLAY = (512, 768), (672, 112), (512, 752)
LEFT, RIGHT = (128, 416), (896, 416)
ASIDE = (512, 250)
BAND_SHOWN = (0, 0, 30)  # of what F2 shows, about

# Three seats play to and fro; the first one is the first without cards.
DUEL = ('map 0 0 128\nwin 1\ndeck 1 4 4 4\nhand 2\nstone 0\n* -3 0\n* 3 0\n'
        '=> 0 1 1 0 36 "*"\n=> 1 0 1 0 -36 "*"\n')

# What the editor is made to write below, and where its states stand in the picture.
MADE = ('map 0 0 1\nwin 0\ndeck 1 4 4 4\nhand\nstone 0\n. -256 0\n. 0 0\n* 256 0\n'
        '=> 0 1 0 0 0 "~(A,b)"\n=> 1 2 0 0 0 "!(3)|T*"\n')
MADE_PATH = "/player/custom_pushdown_machines/three_"
PLACES = [(256, 416), (512, 416), (768, 416)]


def wait_screen(browser, word, absent=""):
    browser.wait(f"the screen {word}", lambda: word in browser.words() and absent not in browser.words())


def play_three_seats(browser, link):
    browser.tap(PLAY_GAME)
    wait_screen(browser, "seats")
    browser.tap(SEATS_OK)
    wait_screen(browser, "maps")
    browser.script(f"location.hash = '#map={link}'")
    browser.wait_text("notice", "The map is in your list.")
    browser.tap(MAP_PLAY)
    wait_screen(browser, "game")
    shown = {browser.from_bottom(20, 190): BAND_SHOWN}
    for shows in (True, False):  # the button lasts until it is pressed again
        browser.tap_button("Show what can be done")
        browser.wait("what F2 shows", lambda: browser.shows(shown) == shows)
    moves = [(LEFT, RIGHT), (RIGHT, LEFT)]
    for turn in range(4):
        wait_screen(browser, "game", absent="covered") if turn == 0 else wait_screen(browser, "covered")
        if turn > 0:
            browser.tap_button("Continue")
            wait_screen(browser, "game", absent="covered")
        browser.tap(browser.from_bottom(512 if turn == 3 else 440, 80), *moves[turn % 2])
    wait_screen(browser, "won")
    browser.tap_button("Back")
    wait_screen(browser, "seats")
    browser.tap_button("Back")
    wait_screen(browser, "title")


def type_rule(browser, text, letters):
    """Types a text with the tablet's keyboard and letters with their buttons."""
    browser.tap_button("Type the arrow's rule")
    wait_screen(browser, "rule")
    browser.driver.execute_cdp_cmd("Input.insertText", {"text": text})
    for name in letters:
        browser.tap_button(name)
    browser.tap_button("OK")
    wait_screen(browser, "label", absent="rule")


def make_map(browser):
    browser.tap(EDITOR)
    wait_screen(browser, "editor")
    for place in PLACES:
        browser.tap(place)
        browser.tap_button("Add a state")
        wait_screen(browser, "state")
        if place == PLACES[0]:
            browser.tap_button("Add a stone")
    browser.tap_button("Make it accepting")
    browser.tap(ASIDE, long=True)
    wait_screen(browser, "editor", absent="state")
    for i, (text, letters) in enumerate([("~(A, ", ["triangle", ")"]), ("!(3)", ["or", "of the top card", "any card"])]):
        browser.tap(PLACES[i])
        wait_screen(browser, "state")
        browser.tap(PLACES[i + 1])
        wait_screen(browser, "pair")
        browser.tap_button("Add an arrow")
        wait_screen(browser, "arrow")
        type_rule(browser, text, letters)
        browser.tap(ASIDE, long=True)
        wait_screen(browser, "state")
        browser.tap(ASIDE, long=True)
        wait_screen(browser, "editor", absent="state")


def try_map(browser):
    browser.tap_button("Play the map")
    wait_screen(browser, "trial", absent="editor")
    browser.tap_button("Back to the editor")
    wait_screen(browser, "editor", absent="trial")


def save_map(browser):
    browser.tap_button("Save")
    wait_screen(browser, "name")
    browser.driver.execute_cdp_cmd("Input.insertText", {"text": "three'"})
    browser.tap_button("OK")
    wait_screen(browser, "editor", absent="name")
    browser.wait("the kept map", lambda: browser.script(
        f"return store.writing === 0 && Module.FS.analyzePath('{MADE_PATH}').exists"))
    return browser.script(f"return Module.FS.readFile('{MADE_PATH}', {{encoding: 'utf8'}})")


def find_map(browser):
    """From the title menu, by the name that the map list shows."""
    browser.tap(PLAY_GAME)
    wait_screen(browser, "seats")
    browser.tap(SEATS_OK)
    wait_screen(browser, "maps")
    for _ in range(60):
        if browser.script("return Module.ccall('page_map_name', 'string')") == "three'":
            return True
        browser.tap(MAP_AFTER)
    return False


def expect_no_click(browser):
    """On the title menu: what is no tap presses nothing there; fingers pull the board of the editor."""
    start = browser.place(*PLAY_GAME)
    aside = browser.place(300, 300)
    browser.touch("touchStart", start)
    browser.touch("touchCancel")
    browser.touch("touchStart", start)
    browser.touch("touchMove", (start[0], start[1] - 60))
    browser.touch("touchMove", (start[0], -200))  # out of the window
    browser.touch("touchEnd")
    for places in ([start], [start, aside], [start, aside, (50, 50)], []):
        browser.touch("touchStart" if places else "touchEnd", *places)
    browser.settle()
    return browser.words() == ["title"]


def step_by_ring(browser):
    """On a phone, whose fingers cannot hit the editor's own buttons: from the title menu."""
    browser.tap(EDITOR)
    wait_screen(browser, "editor")
    for key in ["Ring up"] * 3 + ["Ring to the left"] * 3 + ["Press what the ring is on"]:
        browser.tap_button(key)
        browser.settle()
    browser.tap_button("Save")
    wait_screen(browser, "name")
    browser.driver.execute_cdp_cmd("Input.insertText", {"text": "phone"})
    browser.tap_button("OK")
    path = "/player/custom_pushdown_machines/phone"
    browser.wait("the kept map", lambda: browser.script(
        f"return store.writing === 0 && Module.FS.analyzePath('{path}').exists"))
    return browser.script(f"return Module.FS.readFile('{path}', {{encoding: 'utf8'}})")
