"""The browser panel's test rig: the desktop program on its built-in simulated line, serving
the panel and remote TCP lines on free loopback ports, a TCP client that asks the remote
command set what the station holds, and headless Chromium driven through Selenium."""
import os
import signal
import socket
import subprocess
import tempfile
import time
import urllib.request

from selenium import webdriver
from selenium.common.exceptions import TimeoutException
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By
from selenium.webdriver.support.ui import WebDriverWait

LIMIT = 10  # seconds: five times what any wait here takes at worst


def outside_address():
    """An address of this machine beyond loopback, or None where it has none."""
    try:
        names = subprocess.run(["hostname", "-I"], capture_output=True, text=True, timeout=LIMIT).stdout.split()
    except (OSError, subprocess.SubprocessError):
        return None
    return next((a for a in names if "." in a and not a.startswith("127.")), None)


def free_port():
    with socket.socket() as s:
        s.bind(("127.0.0.1", 0))
        return s.getsockname()[1]


class Station:
    """corvane-station with --web, its own settings folder, nobody at the screen."""

    def __init__(self, program, web_address="127.0.0.1", web_port=None, passcode=None):
        self.home = tempfile.TemporaryDirectory()
        self.web_port = web_port or free_port()
        self.tcp_port = free_port()
        env = dict(os.environ, QT_QPA_PLATFORM="offscreen", HOME=self.home.name,
                   XDG_CONFIG_HOME=os.path.join(self.home.name, "config"))
        env.pop("CORVANE_PORT", None)
        self.log = open(os.path.join(self.home.name, "station.log"), "w+")
        args = [program, "--simulate", "--no-restore", "--remote", "--remote-port", str(self.tcp_port),
                "--osc-port", str(free_port()), "--web", f"{web_address}:{self.web_port}"]
        if passcode:  # as a script gives it: from a file, never on the command line
            path = os.path.join(self.home.name, "passcode")
            with open(path, "w") as f:
                f.write(passcode + "\n")
            args += ["--remote-passcode-file", path]
        self.process = subprocess.Popen(
            args,
            env=env, stdout=self.log, stderr=subprocess.STDOUT)
        self.url = f"http://127.0.0.1:{self.web_port}/"

    def wait_serving(self):
        end = time.monotonic() + LIMIT
        while time.monotonic() < end:
            try:
                with urllib.request.urlopen(self.url, timeout=1) as reply:
                    if reply.status == 200:
                        return
            except OSError:
                time.sleep(0.05)
        raise AssertionError("the panel was not served:\n" + self.output())

    def output(self):
        self.log.flush()
        self.log.seek(0)
        return self.log.read()

    def stop(self):
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGTERM)
            try:
                self.process.wait(LIMIT)
            except subprocess.TimeoutExpired:
                self.process.kill()
                self.process.wait()
        self.log.close()
        self.home.cleanup()


class Line:
    """A remote-control TCP client: commands and their replies, pushed lines kept apart."""

    def __init__(self, port):
        end = time.monotonic() + LIMIT
        while True:
            try:
                self.sock = socket.create_connection(("127.0.0.1", port), timeout=LIMIT)
                break
            except OSError:
                if time.monotonic() > end:
                    raise
                time.sleep(0.05)
        self.buffer = b""
        self.pushed = []  # (arrival time, line)

    def _line(self):
        while b"\n" not in self.buffer:
            data = self.sock.recv(65536)
            if not data:
                raise AssertionError("the station closed the line")
            self.buffer += data
        line, self.buffer = self.buffer.split(b"\n", 1)
        return line.decode()

    def ask(self, command):
        self.sock.sendall(command.encode() + b"\n")
        while True:
            line = self._line()
            if line.startswith("EV "):
                self.pushed.append((time.monotonic(), line))
            else:
                return line

    def value(self, name):
        reply = self.ask(f"get {name}")
        assert reply.startswith(f"OK {name} "), reply
        return reply[len(f"OK {name} "):].strip('"')

    def wait_push(self, line, limit=LIMIT):
        """The arrival time of pushed `line`, waiting for it if it has not come."""
        end = time.monotonic() + limit
        self.sock.settimeout(0.2)
        try:
            while time.monotonic() < end:
                for at, seen in self.pushed:
                    if seen == line:
                        return at
                try:
                    got = self._line()
                    if got.startswith("EV "):
                        self.pushed.append((time.monotonic(), got))
                except socket.timeout:
                    pass
        finally:
            self.sock.settimeout(LIMIT)
        raise AssertionError(f"no push {line!r}; pushed: {[l for _, l in self.pushed][-20:]}")

    def close(self):
        self.sock.close()


def chromium(width=1024, height=768):
    options = webdriver.ChromeOptions()
    options.binary_location = "/usr/bin/chromium"
    for arg in ("--headless=new", "--no-sandbox", "--disable-dev-shm-usage", "--disable-gpu",
                f"--window-size={width},{height}", "--hide-scrollbars"):
        options.add_argument(arg)
    driver = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)
    driver.implicitly_wait(0)
    return driver


def viewport(driver, width, height):
    """The page's viewport exactly this size, as on a tablet or a phone."""
    driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride",
                           {"width": width, "height": height, "deviceScaleFactor": 1, "mobile": width < 500})


def by_name(driver, name):
    return driver.find_element(By.CSS_SELECTOR, f'[aria-label="{name}"]')


def until(driver, condition, what):
    """Waits for `condition`; fails saying `what` (a text, or a function giving one)."""
    try:
        return WebDriverWait(driver, LIMIT, poll_frequency=0.02).until(lambda d: condition(d))
    except TimeoutException:
        raise AssertionError(what() if callable(what) else what) from None
