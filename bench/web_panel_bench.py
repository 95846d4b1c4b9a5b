#!/usr/bin/env python3
"""The browser panel's figures, measured (not asserted): the page's weight, how soon the first
controls show, how far the camera's value lags a fader moved in the browser next to the same
fader moved over TCP, and what 8 idle pages cost the station next to 8 idle TCP clients.

    /usr/bin/python3 bench/web_panel_bench.py build/gcc/ui/corvane-station
"""
import os
import re
import statistics
import sys
import time
import urllib.request

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "web"))
from web_rig import Line, Station, chromium, until  # noqa: E402
from selenium.webdriver.common.by import By  # noqa: E402

MOVES, EVERY_MS = 100, 10  # a one-second drag at 100 moves a second


def page_weight(url):
    with urllib.request.urlopen(url) as reply:
        html = reply.read()
    total = len(html)
    for name in re.findall(rb'(?:href|src)="([^"]+)"', html):
        with urllib.request.urlopen(url + name.decode()) as reply:
            total += len(reply.read())
    return total


def first_controls(driver, url):
    start = time.monotonic()
    driver.get(url)
    until(driver, lambda d: d.find_elements(By.CSS_SELECTOR, '[aria-label="Camera 1"]:not([disabled])'), "controls")
    return (time.monotonic() - start) * 1000


def browser_lag(driver, watch, run):
    """From the last move of a drag in the page to the station pushing that value."""
    final = -40 - run  # a value not held before this run
    driver.execute_script("""
        const [moves, every, final] = arguments;
        const fader = document.querySelector('[aria-label="IRIS"]');
        let i = 0;
        window.lastMove = 0;
        const timer = setInterval(() => {
          fader.value = i === moves - 1 ? final : 60 - (i % 100);
          fader.dispatchEvent(new Event('input', {bubbles: true}));
          if (++i === moves) { clearInterval(timer); window.lastMove = performance.timeOrigin + performance.now(); }
        }, every);""", MOVES, EVERY_MS, final)
    arrived = watch.wait_push(f"EV level iris {final}", limit=10)
    arrived_epoch = time.time() - (time.monotonic() - arrived)
    last = driver.execute_script("return window.lastMove") / 1000
    return (arrived_epoch - last) * 1000


def tcp_lag(mover, watch, run):
    final = -40 - run
    for i in range(MOVES):
        value = final if i == MOVES - 1 else 60 - (i % 100)
        mover.sock.sendall(f"level iris {value}\n".encode())
        if i < MOVES - 1:
            time.sleep(EVERY_MS / 1000)
    last = time.monotonic()
    return (watch.wait_push(f"EV level iris {final}", limit=10) - last) * 1000


def cpu_seconds(pid):
    fields = open(f"/proc/{pid}/stat").read().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def idle_cost(station, seconds=10):
    before = cpu_seconds(station.process.pid)
    time.sleep(seconds)
    return (cpu_seconds(station.process.pid) - before) / seconds * 100


def main(program):
    station = Station(program)
    driver = chromium()
    try:
        station.wait_serving()
        print(f"page weight: {page_weight(station.url)} bytes (limit 307200)")
        times = [first_controls(driver, station.url) for _ in range(5)]
        print(f"first controls shown: median {statistics.median(times):.0f} ms of {len(times)} loads "
              f"(max {max(times):.0f}; WebDriver's own round trips included)")
        watch, mover = Line(station.tcp_port), Line(station.tcp_port)
        watch.ask("camera 1")
        web = [browser_lag(driver, watch, run) for run in range(5)]
        tcp = [tcp_lag(mover, watch, run + 5) for run in range(5)]
        print(f"fader lag, last move to the station's push of that value ({MOVES} moves at {EVERY_MS} ms):")
        print(f"  browser: median {statistics.median(web):.0f} ms, max {max(web):.0f} ms")
        print(f"  TCP:     median {statistics.median(tcp):.0f} ms, max {max(tcp):.0f} ms")
        print(f"  (the frame leaves at the next 40 ms poll after the push at most)")
        driver.get("about:blank")
        watch.close()
        mover.close()
        tcp_clients = [Line(station.tcp_port) for _ in range(8)]
        print(f"station CPU at rest, 8 TCP clients: {idle_cost(station):.2f} % of a core")
        for c in tcp_clients:
            c.close()
        driver.get(station.url)
        for _ in range(7):
            driver.switch_to.new_window("tab")
            driver.get(station.url)
        time.sleep(2)  # every page greeted (the count still holds TCP clients the station has not seen go)
        print("pages say:", driver.find_element(By.ID, "clients").text)
        print(f"station CPU at rest, 8 browser pages: {idle_cost(station):.2f} % of a core")
    finally:
        driver.quit()
        station.stop()


if __name__ == "__main__":
    main(sys.argv[1])
