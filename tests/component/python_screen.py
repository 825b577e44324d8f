"""A Python host with a screen: opens it, filters by keyboard and reads the journal back by the names of the controls.

Arguments: the program zablager, the library, the directory of the Python module.
"""

import datetime
import os
import subprocess
import sys
import tempfile

try:
    from PyQt6.QtCore import Qt, QTimer
    from PyQt6.QtTest import QTest
    from PyQt6.QtWidgets import QApplication, QTableView, QWidget
except ImportError:
    print("PyQt6 is missing: the screen is not opened from Python")
    sys.exit(77)

program, library, module = sys.argv[1:]
sys.path.insert(0, module)
from zablager import Zablager, ZablagerError  # noqa: E402

seen = {}


def drive():
    """What the user does; LagerbestandLaden returns only when the screen is closed."""
    screen = QApplication.activeModalWidget()
    if screen is None:
        return QTimer.singleShot(10, drive)
    try:
        journal = screen.findChild(QTableView, "Journalliste")
        seen["title"] = screen.windowTitle()
        seen["all"] = journal.property("Caption")
        place = screen.findChild(QWidget, "drpLagerOrte")
        place.setFocus()
        QTest.keyClicks(place, "h2")
        QTest.keyClick(place, Qt.Key.Key_Return)
        seen["filtered"] = journal.property("Caption")
        rows = journal.model()
        seen["row"] = [rows.index(0, column).data() for column in (0, 1, 4, 6)]
        screen.findChild(QWidget, "drpLagerOrte").setProperty("Text", "Alle Lagerorte")  # as a user's choice
        seen["again"] = journal.property("Caption")
        try:
            lager.LagerbestandLaden()
        except ZablagerError as error:
            seen["second"] = error.text
        seen["stock"] = lager.Get_Bestand("Weizen", "H1", datetime.date(2024, 12, 31))
    finally:
        screen.close()


with tempfile.TemporaryDirectory() as farm:
    subprocess.run([program, "einrichten", farm, "--betrieb", "4711", "--jahr", "2024"], check=True)
    subprocess.run([program, "sql", f"{farm}/daten/B4711/Lager.2024"], text=True, check=True, input=(
        "INSERT INTO LAGERJOURNAL (Datum, Artikel, LagerortKurzKu, Menge) VALUES (#5/4/2024#, 'Weizen', 'H1', 2.5)\n"
        "INSERT INTO LAGERJOURNAL (Datum, Artikel, LagerortKurzKu, Menge) VALUES (#5/5/2024#, 'Hafer', 'H2', -1234.5)"))
    os.environ["XDG_CONFIG_HOME"] = f"{farm}/einstellungen"
    application = QApplication([])
    lager = Zablager(library).CreateObject("ZABLAGER.Lagerverwaltungsdaten")
    lager.Betriebsnummer = "4711"
    lager.Betriebsname = "Lindenhof"
    lager.Stichdatum = datetime.date(2024, 6, 1)
    lager.Datenverzeichnis = f"{farm}/daten/B4711/Lager.2024"
    QTimer.singleShot(0, drive)
    lager.LagerbestandLaden()

assert seen == {
    "title": "Lagerverwaltung des Betriebes 4711 Lindenhof, ",
    "all": "2 Bewegungen",
    "filtered": "1 Bewegung",
    "row": ["05.05.2024", "Hafer", "H2", "1.234,50"],
    "again": "2 Bewegungen",
    "second": "Die Lagerverwaltung ist schon geöffnet.",
    "stock": 2.5,
}, seen
