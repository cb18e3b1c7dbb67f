#!/usr/bin/env python3
"""Looks at the built documentation as a reader does: in a browser, at two widths, and link by link.

Every link of every page leads somewhere, and every image exists. A front page, a class, a guide and a page of tables are
rendered at 1280 and at 420 pixels: none of them is wider than the window, and every image has been loaded. Pictures of them
go to the folder PICTURES for a person to look at.

usage: check_pages.py HTML PICTURES      (needs Chromium, its driver and Selenium)
"""
import html.parser
import pathlib
import sys
import urllib.parse

PAGES = {"front": "index.html", "class": "classCVariant.html", "guide": "coming_from_qt.html", "steps": "tool_start.html",
         "tables": "formats.html"}
WIDTHS = (1280, 420)
# The contents scroll inside a frame beside the navigation tree.
TOO_WIDE = """return Math.max(...[document.documentElement, document.getElementById("doc-content")]
    .filter(part => part).map(part => part.scrollWidth - part.clientWidth));"""


class Page(html.parser.HTMLParser):
    """The anchors and the references of one page."""

    def __init__(self, path):
        super().__init__()
        self.anchors, self.references = set(), []
        self.feed(path.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        for key in ("id", "name"):
            if values.get(key):
                self.anchors.add(values[key])
        for key in ("href", "src", "data"):
            if values.get(key):
                self.references.append(values[key])


def dead_links(root):
    pages = {path: Page(path) for path in sorted(root.rglob("*.html"))}
    for path, page in pages.items():
        for reference in page.references:
            url = urllib.parse.urlsplit(reference)
            if url.scheme or url.netloc:
                continue
            target = path if not url.path else (path.parent / urllib.parse.unquote(url.path)).resolve()
            if not target.exists():
                yield f"{path.name}: {reference} leads nowhere"
            elif url.fragment and target in pages and url.fragment not in pages[target].anchors:
                yield f"{path.name}: {reference} names no place on its page"


def browser():
    from selenium import webdriver
    from selenium.webdriver.chrome.service import Service
    options = webdriver.ChromeOptions()
    for argument in ("--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
                     "--disable-background-networking", "--disable-component-update", "--disable-sync",
                     "--allow-file-access-from-files"):
        options.add_argument(argument)
    return webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)


def faults_of_rendering(driver, root, pictures):
    for width in WIDTHS:
        driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride",
                               {"width": width, "height": 900, "deviceScaleFactor": 1, "mobile": width < 768})
        for name, file in PAGES.items():
            driver.get((root / file).as_uri())
            driver.save_screenshot(str(pictures / f"{name}-{width}.png"))
            beyond = driver.execute_script(TOO_WIDE)
            if beyond > 0:
                yield f"{file} is {beyond} pixels too wide in a window of {width}"
            for image in driver.execute_script(
                    "return [...document.images].filter(i => !(i.complete && i.naturalWidth)).map(i => i.src);"):
                yield f"{file} at {width}: {image} was not loaded"


def main():
    root, pictures = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
    pictures.mkdir(parents=True, exist_ok=True)
    faults = list(dead_links(root))
    driver = browser()
    try:
        faults += faults_of_rendering(driver, root, pictures)
    finally:
        driver.quit()
    print("\n".join(faults) or f"{len(list(root.rglob('*.html')))} pages without a dead link; "
          f"{len(PAGES)} pages rendered at {' and '.join(map(str, WIDTHS))} pixels")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
