"""A real browser, as the tests see it."""

import base64
import json
from pathlib import Path

from selenium import webdriver
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service

LONGEST_SCRIPT = 900  # seconds; axe-core takes minutes for a whole school
# Passes are not told one by one: of a whole school there are hundreds of thousands.
AXE = """
const done = arguments[arguments.length - 1];
axe.run({ resultTypes: ["violations"] }).then(found => done({ violations: found.violations }));
"""


class Browser:
    def __init__(self, axe):
        options = Options()
        # As root Chromium runs without its sandbox only; it opens nothing but our own pages.
        for argument in ("--headless=new", "--no-sandbox", "--hide-scrollbars", "--disable-dev-shm-usage"):
            options.add_argument(argument)
        options.set_capability("goog:loggingPrefs", {"performance": "ALL", "browser": "ALL"})
        self.driver = webdriver.Chrome(options=options, service=Service("/usr/bin/chromedriver"))
        self.driver.set_script_timeout(LONGEST_SCRIPT)
        self.axe = Path(axe).read_text(encoding="utf-8")

    def open(self, page):
        self.driver.get_log("performance")
        self.driver.get_log("browser")
        self.driver.get(page.as_uri())

    def show(self, width, scheme):
        features = [{"name": "prefers-color-scheme", "value": scheme}]
        self.driver.execute_cdp_cmd("Emulation.setEmulatedMedia", {"features": features})
        metrics = {"width": width, "height": 900, "deviceScaleFactor": 1, "mobile": False}
        self.driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", metrics)

    def requests(self):
        """The addresses that were asked for since the page was opened."""
        messages = [json.loads(entry["message"])["message"] for entry in self.driver.get_log("performance")]
        return [m["params"]["request"]["url"] for m in messages if m["method"] == "Network.requestWillBeSent"]

    def complaints(self):
        return [entry["message"] for entry in self.driver.get_log("browser")]

    def run(self, script):
        return self.driver.execute_script(script)

    def violations(self):
        """What axe-core finds wrong. It looks at whatever is on the page, at hidden parts as well."""
        self.driver.execute_script(self.axe)
        found = self.driver.execute_async_script(AXE)
        return [f"{v['id']}: {v['nodes'][0]['html'][:160]}" for v in found["violations"]]

    def picture(self, highest=8000):
        height = min(self.run("return document.documentElement.scrollHeight"), highest)
        width = self.run("return window.innerWidth")
        clip = {"x": 0, "y": 0, "width": width, "height": height, "scale": 1}
        command = {"format": "png", "captureBeyondViewport": True, "clip": clip}
        return base64.b64decode(self.driver.execute_cdp_cmd("Page.captureScreenshot", command)["data"])

    def paper(self, size):
        """The page as a PDF, on paper of so many inches."""
        command = {"paperWidth": size[0], "paperHeight": size[1]}
        return base64.b64decode(self.driver.execute_cdp_cmd("Page.printToPDF", command)["data"])
