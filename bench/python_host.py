"""Asks the stock questions of a file: once against their answers, then all again for each line of standard input,
printing the seconds that took.

    python_host.py LIBRARY QUESTIONS
"""

import datetime
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "component" / "python"))
from zablager import Zablager  # noqa: E402

library, questions = sys.argv[1:]
stock = Zablager(library).CreateObject("ZABLAGER.Lagerverwaltungsdaten")
stock.Betriebsnummer = "4711"
stock.Stichdatum = datetime.date(2020, 1, 1)
stock.Kontrolle_LagerbestandLaden()  # hands the number on; there is no other year to carry into
rows = [line.split("\t") for line in Path(questions).read_text(encoding="utf-8").splitlines()]
asked = [(article, place, datetime.date.fromisoformat(day)) for article, place, day, _ in rows]
for question, row in zip(asked, rows):
    if abs(stock.Get_Bestand(*question) - float(row[3])) > 1e-6:
        sys.exit(f"a stock is wrong: {question}: {stock.Get_Bestand(*question)} {stock.LetzterFehler}")
for _ in sys.stdin:
    begin = time.perf_counter()
    for question in asked:
        stock.Get_Bestand(*question)
    print(time.perf_counter() - begin, flush=True)
