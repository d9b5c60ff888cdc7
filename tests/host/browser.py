"""A headless Chromium that a test drives through a pipe, without a network."""

import base64
import json
import os
import shutil
import subprocess
import tempfile

CHROMIUM = shutil.which("chromium")


class Browser:
    """One page in a browser of its own. What the page asks for is noted in `requests`."""

    def __init__(self):
        self.profile = tempfile.TemporaryDirectory()
        to_browser, self._writer = os.pipe()
        reader, from_browser = os.pipe()

        def take_pipes():
            # The browser reads descriptor 3 and writes descriptor 4.
            held = [os.dup(to_browser), os.dup(from_browser)]
            for number, descriptor in enumerate(held, 3):
                os.dup2(descriptor, number)

        self._process = subprocess.Popen(
            [
                CHROMIUM, "--headless", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
                "--remote-debugging-pipe", "--no-first-run", "--disable-background-networking",
                "--host-resolver-rules=MAP * ~NOTFOUND", f"--user-data-dir={self.profile.name}",
                "about:blank",
            ],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
            close_fds=False, preexec_fn=take_pipes,
        )
        os.close(to_browser)
        os.close(from_browser)
        self._reader = os.fdopen(reader, "rb")
        self._number = 0
        self._session = None
        self.requests = []
        self._events = []
        targets = self.call("Target.getTargets")["targetInfos"]
        page = next(target for target in targets if target["type"] == "page")
        attached = self.call("Target.attachToTarget", targetId=page["targetId"], flatten=True)
        self._session = attached["sessionId"]
        for domain in ("Page", "Network", "Runtime"):
            self.call(f"{domain}.enable")

    def close(self):
        try:
            self._session = None
            self.call("Browser.close")
        except (OSError, EOFError):
            pass
        try:
            self._process.wait(timeout=20)
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait()
        os.close(self._writer)
        self._reader.close()
        self.profile.cleanup()

    def _receive(self):
        message = bytearray()
        while (byte := self._reader.read(1)) != b"\0":
            if not byte:
                raise EOFError("the browser has ended")
            message += byte
        return json.loads(message)

    def call(self, method, **parameters):
        """Calls an operation of the DevTools protocol; its result."""
        self._number += 1
        request = {"id": self._number, "method": method, "params": parameters}
        if self._session:
            request["sessionId"] = self._session
        os.write(self._writer, json.dumps(request).encode() + b"\0")
        while True:
            answer = self._receive()
            if answer.get("id") == self._number:
                if "error" in answer:
                    raise RuntimeError(f"{method}: {answer['error']}")
                return answer["result"]
            self._note(answer)

    def _note(self, event):
        self._events.append(event.get("method"))
        if event.get("method") == "Network.requestWillBeSent":
            self.requests.append(event["params"]["request"]["url"])

    def open(self, path, width=1280, height=900, scheme="light"):
        """Shows a file in a window of that width, for a reader who likes that colour scheme."""
        self.call(
            "Emulation.setDeviceMetricsOverride",
            width=width, height=height, deviceScaleFactor=1, mobile=width < 600,
        )
        features = [{"name": "prefers-color-scheme", "value": scheme}]
        self.call("Emulation.setEmulatedMedia", features=features)
        self._events.clear()
        self.call("Page.navigate", url=path.resolve().as_uri())
        while "Page.loadEventFired" not in self._events:
            self._note(self._receive())

    def evaluate(self, expression):
        """The value of a JavaScript expression in the page."""
        answer = self.call("Runtime.evaluate", expression=expression, returnByValue=True)
        if "exceptionDetails" in answer:
            raise RuntimeError(answer["exceptionDetails"])
        return answer["result"].get("value")

    def screenshot(self, path):
        """The whole page as a picture."""
        answer = self.call("Page.captureScreenshot", captureBeyondViewport=True)
        path.write_bytes(base64.b64decode(answer["data"]))

    def pdf(self):
        """The page on paper."""
        answer = self.call("Page.printToPDF", preferCSSPageSize=True, printBackground=True)
        return base64.b64decode(answer["data"])
