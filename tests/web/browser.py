"""A page of the game in headless Chromium, seen by its pixels and driven by its mouse and keys.

Coordinates are pixels of the game's own picture, 1024 by 832, from its top-left corner, wherever
the page shows it.
"""

import io
import tempfile
import time

from PIL import Image
from selenium import webdriver
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.actions.action_builder import ActionBuilder
from selenium.webdriver.chrome.service import Service

PICTURE = (1024, 832)
PATIENCE = 150  # seconds that anything waited for may take, on a busy machine too
SWITCHES = [
    "--headless=new", "--no-sandbox", "--no-first-run", "--hide-scrollbars",
    "--disable-background-networking", "--disable-component-update", "--disable-quic",
    "--disable-sync", "--force-color-profile=srgb", "--use-angle=swiftshader",
    "--enable-unsafe-swiftshader", "--window-size=1300,1100",
]


def say(what):
    print("==", what, flush=True)


def expect(what, truth):
    if not truth:
        raise SystemExit("error: " + what)


class Browser:
    failed = "failed.png"  # where the picture of a failure goes

    def __init__(self, *switches, before=""):
        """Starts a browser with an empty profile; `before` is a script that every page begins with."""
        self.profile = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        options = webdriver.ChromeOptions()
        options.binary_location = "/usr/bin/chromium"
        for switch in [*SWITCHES, "--user-data-dir=" + self.profile.name, *switches]:
            options.add_argument(switch)
        options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
        self.driver = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)
        self.driver.execute_cdp_cmd("Page.addScriptToEvaluateOnNewDocument", {"source": before})

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.driver.quit()
        self.profile.cleanup()

    def open(self, address):
        """Opens a page in which the game's picture has its own size."""
        self.driver.get(address)
        self.resize(PICTURE[0], PICTURE[1] + self.script(
            "return document.body.offsetHeight - document.querySelector('main').offsetHeight"))

    def resize(self, width, height, density=1):
        self.driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", {
            "width": width, "height": height, "deviceScaleFactor": density, "mobile": False})

    def be_tablet(self, width, height):
        """Becomes a device of that size, in units of the page, with a touch screen and no mouse."""
        self.driver.execute_cdp_cmd("Emulation.setTouchEmulationEnabled", {
            "enabled": True, "maxTouchPoints": 5})
        self.driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", {
            "width": width, "height": height, "deviceScaleFactor": 1, "mobile": True})

    def allow(self, address, folder):
        """Lets the page use the clipboard, and keeps what it downloads in a folder."""
        self.driver.execute_cdp_cmd("Browser.grantPermissions", {
            "origin": address, "permissions": ["clipboardReadWrite", "clipboardSanitizedWrite"]})
        self.driver.execute_cdp_cmd("Browser.setDownloadBehavior", {
            "behavior": "allow", "downloadPath": folder})

    def script(self, text, *arguments):
        return self.driver.execute_script(text, *arguments)

    def text(self, name):
        return self.script(f"return document.getElementById('{name}').textContent.trim()")

    def errors(self):
        return [line for line in self.driver.get_log("browser") if line["level"] == "SEVERE"]

    def place(self, x, y):
        """The point of the page, in its own units, that shows a point of the game's picture."""
        left, top, width, height = self.script(
            "const box = document.getElementById('canvas').getBoundingClientRect();"
            "return [box.left, box.top, box.width, box.height]")
        scale = min(width / PICTURE[0], height / PICTURE[1])
        return (left + width / 2 + (x + 0.5 - PICTURE[0] / 2) * scale,
                top + height / 2 + (y + 0.5 - PICTURE[1] / 2) * scale)

    def picture_height(self):
        width, height = self.script(
            "const box = document.getElementById('canvas').getBoundingClientRect();"
            "return [box.width, box.height]")
        return height / min(width / PICTURE[0], height / PICTURE[1])

    def from_bottom(self, x, y):
        return x, PICTURE[1] - y + (self.picture_height() - PICTURE[1]) / 2

    def move(self, x, y):
        pointer = ActionBuilder(self.driver, duration=0)
        pointer.pointer_action.move_to_location(*map(int, self.place(x, y)))
        pointer.perform()

    def click(self, *points, button=0):
        for x, y in points:
            pointer = ActionBuilder(self.driver, duration=0)
            pointer.pointer_action.move_to_location(*map(int, self.place(x, y)))
            pointer.pointer_action.pointer_down(button)
            pointer.pointer_action.pointer_up(button)
            pointer.perform()

    def touch(self, kind, *places):
        """What the fingers do that are down afterwards: touchStart, touchMove, touchEnd, touchCancel."""
        self.driver.execute_cdp_cmd("Input.dispatchTouchEvent", {
            "type": kind, "touchPoints": [{"x": x, "y": y, "id": i} for i, (x, y) in enumerate(places)]})

    def tap(self, *points, long=False):
        """Fingers that go down and up on the game's picture, half a second later or at once."""
        for point in points:
            x, y = self.place(*point)
            self.settle()
            self.driver.execute_cdp_cmd("Input.synthesizeTapGesture", {
                "x": x, "y": y, "duration": 800 if long else 50, "gestureSourceType": "touch"})

    def settle(self):
        """Waits for the page to have time: a page that is busy for long takes a tap for a long one."""
        self.driver.execute_async_script(
            "requestAnimationFrame(() => requestAnimationFrame(arguments[0]))")

    def tap_button(self, name):
        """Taps the button of the page that has a name, once it is there and can be pressed."""
        find = (f"const name = {name!r}, box = [...document.querySelectorAll('button:enabled')]"
                ".find(one => [one.ariaLabel, one.textContent].includes(name))?.getBoundingClientRect();"
                "return box?.width ? [box.left + box.width / 2, box.top + box.height / 2, box.height] : null")
        self.wait(f"the button {name}", lambda: self.script(find))
        x, y, height = self.script(find)
        if height < 44:
            raise SystemExit(f"error: the button {name} is only {height} high")
        self.settle()
        self.touch("touchStart", (x, y))
        self.touch("touchEnd")

    def words(self):
        """What the game tells the page of its screen."""
        return self.script("return screen_words").split()

    def press(self, keys, held=None):
        """Presses keys one after the other, while another one is held."""
        actions = ActionChains(self.driver)
        if held:
            actions.key_down(held)
        actions.send_keys(keys)
        if held:
            actions.key_up(held)
        actions.perform()

    def press_place(self, character, place):
        """Presses the key of a keyboard that types a character at a place of the American one."""
        for kind in ("keyDown", "keyUp"):
            self.driver.execute_cdp_cmd("Input.dispatchKeyEvent", {
                "type": kind, "key": character, "code": place})

    def hold(self, key, down):
        (ActionChains(self.driver).key_down if down else ActionChains(self.driver).key_up)(key).perform()

    def picture(self):
        png = self.driver.get_screenshot_as_png()
        return Image.open(io.BytesIO(png)).convert("RGB")

    def shows(self, wanted, tolerance=24):
        """Whether the game shows these colours, by point."""
        picture = self.picture()
        ratio = self.script("return devicePixelRatio")
        for point, colour in wanted.items():
            x, y = (int(part * ratio) for part in self.place(*point))
            if x >= picture.width or y >= picture.height or not near(
                    picture.getpixel((x, y)), colour, tolerance):
                return False
        return True

    def has(self, region, colour):
        """Whether a part of the picture (left, top, right, bottom) shows a colour anywhere."""
        picture = self.picture()
        ratio = self.script("return devicePixelRatio")
        corners = [int(part * ratio) for corner in (region[:2], region[2:])
                   for part in self.place(*corner)]
        return any(near(pixel, colour, 24) for pixel in picture.crop(corners).getdata())

    def wait(self, what, condition, patience=PATIENCE):
        end = time.monotonic() + patience
        while not condition():
            if time.monotonic() > end:
                self.driver.save_screenshot(str(self.failed))
                raise SystemExit(f"error: waited in vain for {what}; see {self.failed}")
            time.sleep(0.02)

    def wait_shows(self, what, wanted):
        self.wait(what, lambda: self.shows(wanted))

    def wait_text(self, name, text):
        self.wait(f"the text {text!r}", lambda: text in self.text(name))


def near(colour, wanted, tolerance):
    return all(abs(a - b) <= tolerance for a, b in zip(colour, wanted))
