"""A Python host with a screen: opens it, filters by keyboard, reads the journal back by the names of the controls and asks
for a stock meanwhile.

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

seen = []


def look(screen):
    journal = screen.findChild(QTableView, "Journalliste")
    place = screen.findChild(QWidget, "drpLagerOrte")
    seen.append((screen.windowTitle(), journal.property("Caption")))
    place.setFocus()
    QTest.keyClicks(place, "h2")
    QTest.keyClick(place, Qt.Key.Key_Return)
    application.processEvents()  # Enter goes on to the next field, and leaving takes what was typed
    rows = journal.model()
    seen.append((journal.property("Caption"), *(rows.index(0, column).data() for column in (0, 1, 4, 6))))
    place.setProperty("Text", "Alle Lagerorte")  # as a user's choice
    try:
        lager.LagerbestandLaden()
    except ZablagerError as error:
        seen.append(error.text)
    seen.append((journal.property("Caption"), lager.Get_Bestand("Weizen", "H1", datetime.date(2024, 12, 31))))


def visit():
    screen = QApplication.activeModalWidget()
    if screen is None or not screen.isActiveWindow():
        return QTimer.singleShot(5, visit)
    try:
        look(screen)
    except Exception as failure:  # it must not end the process within the component's call
        seen.append(repr(failure))
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
    lager.Anlagenverzeichnis = f"{farm}/anlagen"
    lager.Stichdatum = datetime.date(2024, 6, 1)
    lager.Datenverzeichnis = f"{farm}/daten/B4711/Lager.2024"
    QTimer.singleShot(5, visit)
    QTimer.singleShot(60_000, application.closeAllWindows)  # what stays open by then has failed
    lager.LagerbestandLaden()

assert seen == [
    ("Lagerverwaltung des Betriebes 4711 Lindenhof, ", "2 Bewegungen"),
    ("1 Bewegung", "05.05.2024", "Hafer", "H2", "1.234,50"),
    "Die Lagerverwaltung ist schon geöffnet.",
    ("2 Bewegungen", 2.5),
], seen
