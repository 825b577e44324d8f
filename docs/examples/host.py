"""A Python host: the same as early.cpp, with the installed module."""

import datetime

from zablager import Zablager, ZablagerError

zablager = Zablager()
lager = zablager.CreateObject("ZABLAGER.Lagerverwaltungsdaten")
lager.Betriebsnummer = "4711"
lager.Währung = "€"
lager.Stichdatum = datetime.date(2024, 1, 1)
lager.Kontrolle_LagerbestandLaden()
print("Weizen:", lager.Get_Bestand("Weizen", "H1", datetime.date(2025, 6, 30)))

try:
    lager.Get_Bestand("Bauer's Mix", "H1", datetime.date(2025, 6, 30))
except ZablagerError as fehler:
    print(fehler.number, fehler.text)
