"""The real screen on a demo farm of its own, without a display: for the scripts beside it."""

import datetime
import json
import os
import subprocess
import sys
import tempfile

try:
    from PyQt6.QtCore import QTimer
    from PyQt6.QtGui import QFont
    from PyQt6.QtTest import QTest
    from PyQt6.QtWidgets import QApplication, QWidget
except ImportError:
    print("PyQt6 is missing: the screen cannot be driven", file=sys.stderr)
    sys.exit(77)

HERE = os.path.dirname(os.path.abspath(__file__))
TREE = os.path.dirname(os.path.dirname(HERE))
YEAR = datetime.date.today().year - 1

sys.path.insert(0, os.path.join(TREE, "component/python"))
from zablager import Zablager  # noqa: E402


def offscreen(directory, size, scale):
    """A display that is none, with room for the screen: without such a file it has 800 x 800."""
    name = os.path.join(directory, "bildschirm.json")
    screen = {"name": "Handbuch", "x": 0, "y": 0, "width": size.width(), "height": size.height(), "logicalDpi": 96,
              "logicalBaseDpi": 96, "dpr": scale}
    with open(name, "w", encoding="utf-8") as file:
        json.dump({"screens": [screen]}, file)
    os.environ["QT_QPA_PLATFORM"] = f"offscreen:configfile={name}"


def open_screen(build, farm, size, steps):
    """Opens the screen as a host does, runs the steps on it and closes it. A step that fails is told at the end."""
    failures = []

    def run():
        window = QApplication.activeModalWidget()
        try:
            window.resize(size)
            QTest.qWaitForWindowActive(window)
            steps(window)
        except Exception as failure:  # it must not end the process within the component's call
            failures.append(failure)
        QApplication.closeAllWindows()

    QTimer.singleShot(0, run)
    lager = Zablager(os.path.join(build, "lib/zablager.so")).CreateObject("ZABLAGER.Lagerverwaltungsdaten")
    lager.Betriebsnummer = "4711"
    lager.Betriebsname = "Demohof"
    lager.Stammverzeichnis = f"{farm}/daten"
    lager.Anlagenverzeichnis = f"{farm}/anlagen"
    lager.Betriebsadresse = "Feldweg 1, 12345 Musterdorf"
    lager.Währung = "EUR"
    lager.Lagerpasswort = ";pwd=quenlor"
    lager.Datenverzeichnis = f"{farm}/daten/B4711/Lager.{YEAR}"
    lager.Stichdatum = datetime.date(YEAR, 12, 31)
    lager.LagerbestandLaden()
    if failures:
        raise failures[0]


def on_demo_farm(build, size, scale, steps):
    """Runs the steps on the main screen of a new demo farm: its last closed year, whose rows do not depend on today."""
    with tempfile.TemporaryDirectory() as directory:
        farm = os.path.join(directory, "hof")
        subprocess.run([os.path.join(build, "bin/zablager"), "demo", farm], check=True)
        os.environ["XDG_CONFIG_HOME"] = os.path.join(farm, "einstellungen")
        offscreen(directory, size, scale)
        application = QApplication(["handbuch"])
        application.setFont(QFont("DejaVu Sans", 9))
        open_screen(build, farm, size, steps)


def activate(window):
    """Makes keys go to a window, as a window manager does."""
    window.activateWindow()
    while QApplication.activeWindow() is not window:
        QApplication.processEvents()


def in_mask(open_mask, steps):
    """Opens a mask, runs the steps on it and closes it, if they have not."""
    screen = QApplication.activeModalWidget()
    failures = []

    def run():
        mask = QApplication.activeModalWidget()
        if mask is screen:  # which handles events on its way to the mask
            return QTimer.singleShot(5, run)
        activate(mask)
        try:
            steps(mask)
        except Exception as failure:
            failures.append(failure)
        if mask.isVisible():
            mask.findChild(QWidget, "Command1").click()  # closing it would ask about what was typed

    QTimer.singleShot(5, run)
    open_mask()
    if failures:
        raise failures[0]


def shown(grid):
    """The cells of a grid's current row."""
    model, row = grid.model(), grid.currentIndex().row()
    return [model.index(row, column).data() for column in range(model.columnCount())]
