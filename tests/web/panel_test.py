"""The browser panel in a real browser: headless Chromium drives the station through the
panel's page, and a TCP client of the remote command set checks what the station holds.

    panel_test.py STATION_PROGRAM SCREENSHOT_FOLDER
"""
import base64
import json
import os
import re
import socket
import subprocess
import sys
import time
import unittest
import urllib.request

from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

from web_rig import LIMIT, Line, Station, by_name, chromium, free_port, outside_address, until, viewport

PROGRAM = SHOTS = None
LEVEL_NAMES = ["M.BLK", "IRIS", "DTL", "R.GAIN", "B.GAIN", "R.BLK", "B.BLK"]


class PanelTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.station = Station(PROGRAM)
        cls.station.wait_serving()
        cls.line = Line(cls.station.tcp_port)
        cls.driver = chromium()
        cls.driver.get(cls.station.url)
        until(cls.driver, lambda d: d.find_elements(By.CSS_SELECTOR, '[aria-label="Camera 1"]:not([disabled])'),
              "camera buttons offered")
        cls.line.ask("camera 1")

    @classmethod
    def tearDownClass(cls):
        cls.driver.quit()
        cls.line.close()
        cls.station.stop()

    def setUp(self):
        viewport(self.driver, 1024, 768)

    def pressed(self, name):
        return by_name(self.driver, name).get_attribute("aria-pressed") == "true"

    def test_every_control_is_found_by_its_name(self):
        names = [f"Camera {n}" for n in range(1, 9)] + ["Group"] + [f"Scene {n}" for n in range(1, 5)]
        names += ["Store", "Clear", "Filter up", "Filter down", "Call", "Auto White", "Auto Black"] + LEVEL_NAMES
        for name in names:
            with self.subTest(name=name):
                self.assertTrue(self.driver.find_elements(By.CSS_SELECTOR, f'[aria-label="{name}"]'))
        for name in LEVEL_NAMES:
            self.assertEqual(by_name(self.driver, name).get_attribute("type"), "range")
        # The mode buttons as "<group> <caption>", for every group the window shows.
        labels = [e.get_attribute("aria-label") for e in self.driver.find_elements(By.CSS_SELECTOR, "[data-mode]")]
        for group in ("Bars", "Detail", "Shutter", "Gain", "White", "Iris", "Monitor"):
            self.assertTrue(any(l.startswith(group + " ") for l in labels), f"{group}: {labels}")

    def test_a_click_selects_the_camera_on_the_station_and_marks_it(self):
        by_name(self.driver, "Camera 2").click()
        until(self.driver, lambda d: self.line.value("camera") == "2", "camera 2 selected on the station")
        until(self.driver, lambda d: self.pressed("Camera 2") and not self.pressed("Camera 1"), "camera 2 pressed")
        # A mode button acts as the window's does, and the page follows.
        white = self.driver.find_elements(By.CSS_SELECTOR, '[data-mode="white"]:not([disabled])')
        target = white[-1]
        target.click()
        until(self.driver, lambda d: self.line.value("mode white") == target.get_attribute("data-index"),
              "white mode chosen on the station")
        until(self.driver, lambda d: target.get_attribute("aria-pressed") == "true", "white button pressed")
        self.line.ask("camera 1")

    def test_arrow_keys_move_a_fader_and_the_camera_takes_it(self):
        self.line.ask("camera 1")
        self.assertEqual(self.line.ask("level mblk 0"), "OK")
        until(self.driver, lambda d: self.line.value("queue") == "0", "the camera holds 0")
        fader = by_name(self.driver, "M.BLK")
        until(self.driver, lambda d: fader.get_attribute("value") == "0", "the fader follows the station")
        self.driver.execute_script("arguments[0].focus()", fader)  # as Tab does: a click would move it
        ActionChains(self.driver).send_keys(Keys.ARROW_UP * 5).perform()
        until(self.driver, lambda d: self.line.value("level mblk") == "5",
              lambda: f"M.BLK raised by 5 on the station, not {self.line.value('level mblk')}: page {fader.get_attribute('value')}")
        # The camera holds it: its answer to a page read brings back 5, not the 0 it held before.
        until(self.driver, lambda d: self.line.value("queue") == "0", "the frame has gone")
        self.assertEqual(self.line.ask("page read"), "OK")
        until(self.driver, lambda d: self.line.value("queue") == "0", "the page read is answered")
        self.assertEqual(self.line.value("level mblk"), "5")

    def test_a_fast_fader_sends_one_value_at_a_time_and_ends_on_the_last(self):
        self.line.ask("camera 1")
        # Count what the page sends, then move the iris as a finger would, 200 steps in a burst.
        self.driver.execute_script("""
            window.sentLevels = [];
            const send = WebSocket.prototype.send;
            WebSocket.prototype.send = function (line) {
              if (line.startsWith('level iris')) window.sentLevels.push(line);
              return send.call(this, line);
            };
            const fader = document.querySelector('[aria-label="IRIS"]');
            for (let v = -100; v <= 99; ++v) {
              fader.value = v;
              fader.dispatchEvent(new Event('input', {bubbles: true}));
            }""")
        until(self.driver, lambda d: self.line.value("level iris") == "99", "the last value reaches the station")
        sent = self.driver.execute_script("return window.sentLevels")
        self.assertLessEqual(len(sent), 3, sent)
        self.assertEqual(sent[-1], "level iris 99")

    def test_a_change_made_over_tcp_shows_on_the_page(self):
        self.line.ask("camera 1")
        self.assertEqual(self.line.ask("level iris -20"), "OK")
        until(self.driver, lambda d: by_name(d, "IRIS").get_attribute("value") == "-20", "IRIS follows TCP")
        self.line.ask("camera 3")
        until(self.driver, lambda d: self.pressed("Camera 3"), "camera 3 chosen elsewhere shows")
        # GROUP greys the filter, CALL and the monitor select at the window: the page too.
        greyed = ["Filter up", "Call", "Monitor OFF"]
        self.line.ask("camera group")
        until(self.driver, lambda d: self.pressed("Group") and all(not by_name(d, n).is_enabled() for n in greyed),
              "the controls the window greys for GROUP are greyed")
        self.assertTrue(by_name(self.driver, "Camera 1").is_enabled())
        self.line.ask("camera 1")
        until(self.driver, lambda d: self.pressed("Camera 1") and all(by_name(d, n).is_enabled() for n in greyed),
              "camera 1 chosen elsewhere shows, its controls offered")

    def test_every_page_sees_the_same_station_and_counts_the_others(self):
        first = self.driver.current_window_handle
        self.driver.switch_to.new_window("tab")
        second = self.driver.current_window_handle
        try:
            self.driver.get(self.station.url)
            until(self.driver, lambda d: d.find_elements(By.CSS_SELECTOR, '[aria-label="Camera 4"]:not([disabled])'),
                  "second page ready")
            until(self.driver, lambda d: d.find_element(By.ID, "clients").text == "3 connected",
                  "two pages and one TCP client counted")
            by_name(self.driver, "Camera 4").click()
            self.driver.switch_to.window(first)
            until(self.driver, lambda d: self.pressed("Camera 4"), "the first page follows the second")
            until(self.driver, lambda d: d.find_element(By.ID, "clients").text == "3 connected", "counted on both")
        finally:
            self.driver.switch_to.window(second)
            self.driver.close()
            self.driver.switch_to.window(first)
            self.line.ask("camera 1")

    def test_tablet_and_phone_widths_need_no_sideways_scrolling(self):
        for width, height in ((1024, 768), (768, 1024), (390, 844)):
            with self.subTest(size=f"{width}x{height}"):
                viewport(self.driver, width, height)
                self.driver.execute_script("document.activeElement.blur(); window.scrollTo(0, 0)")
                time.sleep(0.2)
                wide = self.driver.execute_script(
                    "return [document.documentElement.scrollWidth, window.innerWidth,"
                    " Math.max(...[...document.querySelectorAll('main *')].map(e => e.getBoundingClientRect().right))]")
                self.assertLessEqual(wide[0], wide[1], wide)
                self.assertLessEqual(wide[2], wide[1] + 0.5, wide)
                if SHOTS and (width, height) in ((1024, 768), (390, 844)):
                    shot = self.driver.execute_cdp_cmd("Page.captureScreenshot", {"captureBeyondViewport": False})
                    with open(os.path.join(SHOTS, f"web-panel-{width}x{height}.png"), "wb") as f:
                        f.write(base64.b64decode(shot["data"]))

    def test_the_whole_page_is_light_and_all_from_the_station(self):
        with urllib.request.urlopen(self.station.url) as reply:
            html = reply.read()
        files = re.findall(rb'(?:href|src)="([^"]+)"', html)
        self.assertTrue(files)
        total = len(html)
        for name in files:
            self.assertNotIn(b"//", name, "everything comes from the station")
            with urllib.request.urlopen(self.station.url + name.decode()) as reply:
                total += len(reply.read())
        self.assertLessEqual(total, 300 * 1024)
        # A name the page does not have is not found, and nothing outside the page's files is served.
        for wrong in ("nothing.js", "..%2Fmain.cpp"):
            with self.assertRaises(urllib.error.HTTPError):
                urllib.request.urlopen(self.station.url + wrong)

    def test_a_websocket_from_another_site_is_closed_before_it_acts(self):
        def handshake(origin):
            s = socket.create_connection(("127.0.0.1", self.station.web_port), timeout=LIMIT)
            head = (f"GET /ws HTTP/1.1\r\nHost: 127.0.0.1:{self.station.web_port}\r\nUpgrade: websocket\r\n"
                    "Connection: Upgrade\r\nSec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n"
                    f"Sec-WebSocket-Version: 13\r\nOrigin: {origin}\r\n\r\n")
            s.sendall(head.encode())
            data = b""
            while b"\r\n\r\n" not in data:
                data += s.recv(4096)
            rest = data.split(b"\r\n\r\n", 1)[1]
            while len(rest) < 2:
                rest += s.recv(4096)
            s.close()
            return rest[0]  # the first frame's opcode byte
        self.assertEqual(handshake(f"http://127.0.0.1:{self.station.web_port}"), 0x81)  # text: the greeting
        self.assertEqual(handshake("http://example.com"), 0x88)  # close


class ConnectionTest(unittest.TestCase):
    def test_a_dropped_connection_shows_a_banner_and_comes_back_by_itself(self):
        station = Station(PROGRAM)
        driver = chromium()
        try:
            station.wait_serving()
            driver.get(station.url)
            until(driver, lambda d: d.find_element(By.ID, "lost").get_attribute("hidden"), "connected")
            port = station.web_port
            station.stop()
            until(driver, lambda d: d.find_element(By.ID, "lost").is_displayed(), "the banner says the link is lost")
            station = Station(PROGRAM, web_port=port)
            station.wait_serving()
            line = Line(station.tcp_port)
            line.ask("camera 5")
            line.close()
            until(driver, lambda d: not d.find_element(By.ID, "lost").is_displayed() and
                  by_name(d, "Camera 5").get_attribute("aria-pressed") == "true", "back, and following the station")
        finally:
            driver.quit()
            station.stop()


class LoopbackOnlyTest(unittest.TestCase):
    def test_an_address_beyond_loopback_is_refused_with_a_reason(self):
        station = Station(PROGRAM, web_address="0.0.0.0")
        try:
            end = time.monotonic() + LIMIT
            while "browser panel" not in station.output() and time.monotonic() < end:
                time.sleep(0.05)
            self.assertIn("takes a passcode", station.output())
            with self.assertRaises(OSError):
                urllib.request.urlopen(station.url, timeout=1)
        finally:
            station.stop()


class PasscodeTest(unittest.TestCase):
    def test_beyond_loopback_nothing_acts_before_the_passcode(self):
        outside = outside_address()
        if outside is None:
            self.skipTest("this machine has no address beyond loopback")
        station = Station(PROGRAM, web_address="0.0.0.0", passcode="kestrel-42-amber")
        station.url = f"http://{outside}:{station.web_port}/"
        driver = None
        try:
            station.wait_serving()
            line = Line(station.tcp_port)  # on loopback: no passcode asked
            line.ask("camera 1")
            driver = chromium()
            driver.get(station.url)
            field = until(driver, lambda d: [e for e in d.find_elements(By.CSS_SELECTOR, '[aria-label="Passcode"]')
                                             if e.is_displayed()], "the page asks for the passcode")[0]
            # Nothing acts before it: a command on a socket of the page's own is refused.
            reply = driver.execute_async_script("""
                const done = arguments[arguments.length - 1];
                const ws = new WebSocket(`ws://${location.host}/ws`);
                ws.onopen = () => ws.send('camera 2');
                ws.onmessage = (m) => { ws.close(); done(m.data); };
                ws.onerror = () => done('socket error');""")
            self.assertEqual(reply, "ERR auth required")
            self.assertEqual(line.value("camera"), "1", "a command acted before the passcode")
            field.send_keys("kestrel-42-amber" + Keys.ENTER)
            until(driver, lambda d: not by_name(d, "Passcode").is_displayed(), "the passcode is accepted")
            until(driver, lambda d: d.find_elements(By.CSS_SELECTOR, '[aria-label="Camera 2"]:not([disabled])'),
                  "camera buttons offered")
            by_name(driver, "Camera 2").click()
            until(driver, lambda d: line.value("camera") == "2", "camera 2 selected once the passcode was given")
            line.close()
        finally:
            if driver:
                driver.quit()
            station.stop()


if __name__ == "__main__":
    PROGRAM, SHOTS = sys.argv[1], sys.argv[2] if len(sys.argv) > 2 else None
    if SHOTS:
        os.makedirs(SHOTS, exist_ok=True)
    unittest.main(argv=sys.argv[:1], verbosity=2)
