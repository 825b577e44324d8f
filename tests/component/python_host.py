"""A Python host carries stocks forward and asks for them. Arguments: program, library, module's folder"""

import datetime
import os
import subprocess
import sys
import tempfile

try:
    from PyQt6.QtCore import QDate
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
    assert lager.Stichdatum == datetime.date(2023, 1, 1)
    lager.Kontrolle_LagerbestandLaden()
    assert lager.Get_Bestand("Mühlenkleie", "H1", DAY) == 2.5
    assert lager.Get_Bestand("Mühlenkleie", "H1", datetime.date(2019, 1, 1)) == 0.0
    assert "existiert nicht!" in lager.LetzterFehler
    assert refusal(lambda: lager.Get_Bestand("Bauer's Mix", "H1", DAY)) == 3075
    lager.Datenverzeichnis = f"{farm}/daten/B4711/Lager.2024"
    assert refusal(lager.LagerbestandLaden) == 3251
    assert refusal(lager.LagerbestandRechnen) == 3075
    lager.Artikelname = "Weizen"  # an old failure is not told again
    for day in (QDate(), QDate(10_000, 1, 1)):
        assert refusal(lambda: setattr(lager, "Stichdatum", day)) == 5
    assert refusal(lambda: lager.Lagerart, AttributeError)
    for name in ("Lagerart", "LetzterFehler"):
        assert refusal(lambda: setattr(lager, name, ""), AttributeError)

    second = zablager.CreateObject("ZABLAGER.Lagerverwaltungsdaten")
    texts = {name for name in dir(second) if name[0] != "_" and isinstance(getattr(second, name), str)}
    assert len(texts) == 14 and {"Währung", "Betriebsnummer"} <= texts, texts
    for name in texts - {"LetzterFehler"}:
        setattr(second, name, f"{name} ä\0'")
        for value in (None, True, 4711, b"4711", DAY):
            assert refusal(lambda: setattr(second, name, value), TypeError), (name, value)
        assert getattr(second, name) == f"{name} ä\0'"
    for value in (None, "2024-01-01", 45000, datetime.time(12)):
        assert refusal(lambda: setattr(second, "Stichdatum", value), TypeError), value
        assert refusal(lambda: second.Get_Bestand("Mühlenkleie", "H1", value), TypeError), value
    assert refusal(lambda: second.Get_Bestand(4711, "H1", DAY), TypeError)

    del zablager  # an object outlives the factory
    assert second.Get_Bestand("Mühlenkleie", "H1", DAY) == 2.5  # the farm is that of the last carry-forward
