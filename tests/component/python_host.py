"""A Python host: sets up a farm, carries its stocks forward and asks for them late-bound; then it opens the screen,
filters by keyboard and reads the journal by the names of the controls.

Arguments: the program zablager, the library, the directory of the Python module.
"""

import datetime
import gc
import os
import subprocess
import sys
import tempfile

try:
    from PyQt6.QtCore import QDate, Qt, QTimer
    from PyQt6.QtTest import QTest
    from PyQt6.QtWidgets import QApplication, QTableView, QWidget
except ImportError:
    print("PyQt6 is missing: the late-bound host is not tested")
    sys.exit(77)

program, library, module = sys.argv[1:]
sys.path.insert(0, module)
from zablager import Zablager, ZablagerError  # noqa: E402

DAY = datetime.date(2024, 1, 1)


def refusal(action, kind=ZablagerError):
    """The number of the error; True when its kind has none."""
    try:
        action()
    except kind as error:
        return getattr(error, "number", True)
    return None


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
        seen.append(error.number)
    seen.append((journal.property("Caption"), lager.Get_Bestand("Mühlenkleie", "H1", DAY)))


def at_next_window(steps):
    """Queues what the user does in the next modal window, which he closes."""
    def visit():
        window = QApplication.activeModalWidget()
        if window is None or not window.isActiveWindow():
            return QTimer.singleShot(5, visit)
        try:
            steps(window)
        except Exception as failure:  # it must not end the process within the component's call
            seen.append(repr(failure))
        window.close()

    QTimer.singleShot(5, visit)


with tempfile.TemporaryDirectory() as farm:
    for year in ("2023", "2024"):
        subprocess.run([program, "einrichten", farm, "--betrieb", "4711", "--jahr", year], check=True)
    subprocess.run([program, "sql", f"{farm}/daten/B4711/Lager.2023"], text=True, check=True, input=(
        "INSERT INTO LAGERJOURNAL (Datum, Artikel, LagerortKurzKu, Menge) VALUES (#5/4/2023#, 'Mühlenkleie', 'H1', 2.5)"))
    os.environ["XDG_CONFIG_HOME"] = f"{farm}/einstellungen"

    zablager = Zablager(library)
    assert zablager.Version.count(".") == 2
    assert refusal(lambda: zablager.CreateObject("ZABLAGER.Ampel")) == 429
    assert refusal(lambda: Zablager(f"{farm}/fehlt.so")) == 429

    lager = zablager.CreateObject("ZABLAGER.Lagerverwaltungsdaten")
    assert lager.Stichdatum == datetime.date(1899, 12, 30)
    lager.Betriebsnummer = "4711"
    lager.Stichdatum = datetime.datetime(2023, 1, 1, 23, 59)
    assert (lager.Betriebsnummer, lager.Stichdatum) == ("4711", datetime.date(2023, 1, 1))
    lager.Kontrolle_LagerbestandLaden()

    assert lager.Get_Bestand("Mühlenkleie", "H1", DAY) == 2.5
    assert lager.Get_Bestand("Mühlenkleie", "H1", datetime.datetime(2023, 5, 3, 23, 59)) == 0.0
    assert lager.Get_Bestand("Mühlenkleie", "H1", datetime.date(2019, 1, 1)) == 0.0
    assert "existiert nicht!" in lager.LetzterFehler
    assert refusal(lambda: lager.Get_Bestand("Bauer's Mix", "H1", DAY)) == 3075
    assert refusal(lager.LagerbestandLaden) == 53  # no journal file is named
    lager.Datenverzeichnis = f"{farm}/daten/B4711/Lager.2024"
    assert refusal(lager.LagerbestandLaden) == 3251
    assert refusal(lager.LagerbestandRechnen) == 3075
    lager.Artikelname = "Weizen"  # an old failure is not told again
    for day in (QDate(), QDate(10_000, 1, 1)):
        assert refusal(lambda: setattr(lager, "Stichdatum", day)) == 5
    for wrong in (lambda: lager.Lagerart, lambda: setattr(lager, "Lagerart", ""),
                  lambda: setattr(lager, "LetzterFehler", "")):
        assert refusal(wrong, AttributeError)

    second = zablager.CreateObject("ZABLAGER.Lagerverwaltungsdaten")
    texts = [name for name in dir(second) if name[0] != "_" and isinstance(getattr(second, name), str)]
    texts.remove("LetzterFehler")
    assert len(texts) == 13 and {"Währung", "Betriebsnummer"} <= set(texts), texts
    for name in texts:
        setattr(second, name, f"{name} ä\0'")
        for value in (None, True, 4711, b"4711", DAY):
            assert refusal(lambda: setattr(second, name, value), TypeError), (name, value)
        assert getattr(second, name) == f"{name} ä\0'"
    for value in (None, "2024-01-01", 45000, datetime.time(12)):
        assert refusal(lambda: setattr(second, "Stichdatum", value), TypeError), value
        assert refusal(lambda: second.Get_Bestand("Mühlenkleie", "H1", value), TypeError), value
    assert refusal(lambda: second.Get_Bestand(4711, "H1", DAY), TypeError)
    for article in ("", "w" * 100_000, "\ud800"):
        assert second.Get_Bestand(article, "H1", DAY) == 0.0
    assert refusal(lambda: second.Get_Bestand("Wei\0zen", "H1", DAY)) == 3075

    # The farm is that of the last carry-forward, whichever object asks; an object outlives the factory.
    assert second.Get_Bestand("Mühlenkleie", "H1", DAY) == 2.5
    second.Kontrolle_LagerbestandLaden()
    del lager, zablager
    gc.collect()
    assert second.Get_Bestand("Mühlenkleie", "H1", DAY) == 0.0
    assert "existiert nicht!" in second.LetzterFehler

    subprocess.run([program, "sql", f"{farm}/daten/B4711/Lager.2024"], text=True, check=True, input=(
        "INSERT INTO LAGERJOURNAL (Datum, Artikel, LagerortKurzKu, Menge) VALUES (#5/5/2024#, 'Hafer', 'H2', -1234.5)"))
    application = QApplication([])
    lager = Zablager(library).CreateObject("ZABLAGER.Lagerverwaltungsdaten")
    lager.Betriebsnummer = "4711"
    lager.Betriebsname = "Lindenhof"
    lager.Datenverzeichnis = f"{farm}/daten/B4711/Lager.2024"
    lager.Stichdatum = datetime.date(2024, 6, 1)
    at_next_window(look)
    QTimer.singleShot(60_000, application.closeAllWindows)  # what stays open by then has failed
    lager.LagerbestandLaden()
    at_next_window(lambda screen: None)
    lager.LagerbestandLaden()  # and again
    at_next_window(lambda box: seen.append(box.text()[:13]))  # with a screen messages are windows
    assert lager.Get_Bestand("Mühlenkleie", "H1", datetime.date(2019, 1, 1)) == 0.0 and lager.LetzterFehler == ""
    assert seen == [("Lagerverwaltung des Betriebes 4711 Lindenhof, ", "2 Bewegungen"),
                    ("1 Bewegung", "05.05.2024", "Hafer", "H2", "1.234,50"), 5, ("2 Bewegungen", 2.5), "Der Dateiname"], seen
