"""A Python host with a screen: opens it, filters by keyboard and reads the journal back by the names of the controls;
then it books a short day and asks for the stocks.

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
    from PyQt6.QtWidgets import QApplication, QLineEdit, QTableView, QWidget
except ImportError:
    print("PyQt6 is missing: the screen is not opened from Python")
    sys.exit(77)

program, library, module = sys.argv[1:]
sys.path.insert(0, module)
from zablager import Zablager, ZablagerError  # noqa: E402

seen = {}


def at_next_window(steps, behind=None):
    """Queues what the user does in the next modal window; what opens it returns only when it has closed.

    `behind` is the modal window of the moment, which handles events on its way to the next one.
    """
    def run():
        window = QApplication.activeModalWidget()
        if window is None or window is behind:
            return QTimer.singleShot(5, run)
        if QApplication.activeWindow() is not window:  # keys go to the active one
            window.activateWindow()
            return QTimer.singleShot(5, run)
        try:
            steps(window)
        except Exception as failure:  # it must not end the process within the component's call
            seen.setdefault("failures", []).append(repr(failure))
            window.close()

    QTimer.singleShot(5, run)


def look(screen):
    """The journal by the names of the controls, and what another call of the host meets while the screen is open."""
    journal = screen.findChild(QTableView, "Journalliste")
    seen["title"] = screen.windowTitle()
    seen["all"] = journal.property("Caption")
    place = screen.findChild(QWidget, "drpLagerOrte")
    place.setFocus()
    QTest.keyClicks(place, "h2")
    QTest.keyClick(place, Qt.Key.Key_Return)
    application.processEvents()  # Enter goes on to the next field, and leaving takes what was typed
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
    screen.close()


def press(window, name, key=Qt.Key.Key_Return):
    """A key on a control that has the focus; Enter presses a button."""
    window.activateWindow()  # as a window manager does when a mask has closed
    while QApplication.activeWindow() is not window:
        application.processEvents()
    control = window.findChild(QWidget, name)
    control.setFocus()
    QTest.keyClick(control, key)


def yes(box):
    seen.setdefault("questions", []).append(box.text().split("\n")[0])
    QTest.keyClick(box, Qt.Key.Key_J, Qt.KeyboardModifier.AltModifier)


def enter(screen, opens, *fields, light=1):
    """Opens a mask, types over its fields and saves; a red light (3) is answered with Yes."""
    def fill(mask):
        for name, text in fields:
            field = mask.findChild(QWidget, name)
            field.setFocus()
            (field if isinstance(field, QLineEdit) else field.lineEdit()).selectAll()
            QTest.keyClicks(field, text)
            QTest.keyClick(QApplication.focusWidget(), Qt.Key.Key_Tab)
        assert mask.findChild(QWidget, "Ampel").property("Ampel") == light, (fields, light)
        if light == 3:
            at_next_window(yes, mask)
        press(mask, "Command2(1)")

    at_next_window(fill, screen)
    press(screen, *opens)


def choose(screen, kind):
    """The newest booking of a kind becomes the current row."""
    journal = screen.findChild(QTableView, "Journalliste")
    rows = journal.model()
    found = [row for row in range(rows.rowCount()) if rows.index(row, 3).data() == kind]
    journal.setCurrentIndex(rows.index(found[-1], 0))


def day(screen):
    """Buys 100 of rye, sells 120 and makes that 60, moves 30, and deletes a purchase of 7."""
    rye = ("Buchdatum", "1.6."), ("drpLagerort", "H1"), ("drpGruppe", "Saatgut"), ("drpArtikel", "Roggen")
    partner = "stHandler", "HUBER"
    enter(screen, ("KurzEingabe", Qt.Key.Key_Z), *rye, ("txtMenge", "100"), partner)
    enter(screen, ("KurzEingabe", Qt.Key.Key_V), *rye, ("txtMenge", "120"), partner, light=3)
    choose(screen, "Verkauf")
    enter(screen, ("Command7(1)",), ("txtMenge", "60"))
    enter(screen, ("KurzEingabe", Qt.Key.Key_U), *rye, ("drpLagerorte2", "H2"), ("DrpArtikel2", "Roggen"),
          ("txtMenge", "30"))
    enter(screen, ("KurzEingabe", Qt.Key.Key_Z), *rye, ("drpLagerort", "H2"), ("txtMenge", "7"), partner)
    choose(screen, "Zukauf")
    at_next_window(yes, screen)
    press(screen, "Journalliste", Qt.Key.Key_Delete)
    seen["bookings"] = screen.findChild(QTableView, "Journalliste").property("Caption")
    seen["rye"] = [lager.Get_Bestand("Roggen", place, datetime.date(2024, 12, 31)) for place in ("H1", "H2")]
    screen.close()


def sql(file, *statements, password=None):
    subprocess.run([program, "sql", file, *(["--kennwort", password] if password else [])], text=True, check=True,
                   input="\n".join(f"INSERT INTO {statement}" for statement in statements))


with tempfile.TemporaryDirectory() as farm:
    subprocess.run([program, "einrichten", farm, "--betrieb", "4711", "--jahr", "2024"], check=True)
    sql(f"{farm}/daten/B4711/Lager.2024",
        "LAGERJOURNAL (Datum, Artikel, LagerortKurzKu, Menge) VALUES (#5/4/2024#, 'Weizen', 'H1', 2.5)",
        "LAGERJOURNAL (Datum, Artikel, LagerortKurzKu, Menge) VALUES (#5/5/2024#, 'Hafer', 'H2', -1234.5)")
    sql(f"{farm}/anlagen/Anlagen.mdb",
        "Objekte (Name, KurzKu, Objektart, Anzeigen) VALUES ('Halle Nord', 'H1', 'Lager', True)",
        "Objekte (Name, KurzKu, Objektart, Anzeigen) VALUES ('Halle Süd', 'H2', 'Lager', True)", password="volmira")
    sql(f"{farm}/daten/Grundstamm.mdb",
        "Saatgut (NAME, Einheit, Preis, Preisfaktor, Sperre) VALUES ('Roggen', 'kg', 42, '100', False)",
        "HANDLER (KurzKu, NAME, SPERRE) VALUES ('HUBER', 'Huber Anna', False)", password="RT-58KX")
    os.environ["XDG_CONFIG_HOME"] = f"{farm}/einstellungen"
    application = QApplication([])
    lager = Zablager(library).CreateObject("ZABLAGER.Lagerverwaltungsdaten")
    lager.Betriebsnummer = "4711"
    lager.Betriebsname = "Lindenhof"
    lager.Anlagenverzeichnis = f"{farm}/anlagen"
    lager.Stichdatum = datetime.date(2024, 6, 1)
    lager.Datenverzeichnis = f"{farm}/daten/B4711/Lager.2024"
    QTimer.singleShot(60_000, application.closeAllWindows)  # what stays open by then has failed
    for steps in look, day:
        at_next_window(steps)
        lager.LagerbestandLaden()

assert seen == {
    "title": "Lagerverwaltung des Betriebes 4711 Lindenhof, ",
    "all": "2 Bewegungen",
    "filtered": "1 Bewegung",
    "row": ["05.05.2024", "Hafer", "H2", "1.234,50"],
    "again": "2 Bewegungen",
    "second": "Die Lagerverwaltung ist schon geöffnet.",
    "stock": 2.5,
    "questions": ["Der Lagerstand wird negativ.", "Wollen Sie die markierte Zeile wirklich löschen ?"],
    "bookings": "6 Bewegungen",
    "rye": [10, 30],
}, seen
