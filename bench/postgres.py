"""The same questions to PostgreSQL 15, over its socket, on the same rows with the indices that serve it best.

The server is started in a temporary directory, as another user where this is the administrator. Its texts stand under its
German order, which tells capitals apart: that is less work than what the engine does. Results come as binary rows.
"""
import ctypes
import getpass
import math
import os
import random
import shutil
import sqlite3
import subprocess
import tempfile
import time
from pathlib import Path

PROGRAMS = Path("/usr/lib/postgresql/15/bin")
COLUMNS = "ID Datum Artikel Artikelart LagerortKurzKu Menge Einheit Preis Buchungsart Untergruppe".split()
TABLE = """CREATE TABLE j{0} (id int PRIMARY KEY, datum date, artikel text COLLATE "de-x-icu", artikelart text COLLATE
 "de-x-icu", ort text COLLATE "de-x-icu", menge float8, einheit text COLLATE "de-x-icu", preis float8, buchungsart text
 COLLATE "de-x-icu", untergruppe text COLLATE "de-x-icu")"""
INDICES = (
    "CREATE INDEX ON j{0} (artikel, ort, datum) INCLUDE (menge)",
    "CREATE INDEX ON j{0} (artikel, ort, artikelart, einheit, datum) INCLUDE (menge, untergruppe, id)",
    "CREATE INDEX ON j{0} (datum, id) INCLUDE (artikel)", "CREATE INDEX ON j{0} (artikelart, einheit)",
    "CREATE INDEX ON j{0} (buchungsart, artikel, ort)")  # fmt: skip
REPAIR = "UPDATE j2020 SET einheit='l' WHERE einheit='Lt' AND artikelart='Pflanzenschutzmittel'"
KEYS = "SELECT id FROM j2020 WHERE artikel<>'xx' AND datum>='2020-01-01' AND datum<='2020-12-31' ORDER BY "
QUANTITY = "round(coalesce(menge,0)*10000)/10000"
STOCKS = f"""SELECT sum(CASE WHEN menge<0 THEN -{QUANTITY} ELSE 0 END), sum(CASE WHEN menge>0 THEN {QUANTITY} ELSE 0 END),
 sum({QUANTITY}), artikel, ort, artikelart, einheit, (array_agg(untergruppe))[1], min(id) FROM j2020 WHERE artikel<>'xx'
 AND datum>='2020-01-01' AND datum<='2020-12-31' GROUP BY artikel, ort, artikelart, einheit ORDER BY artikel"""
SUMS = """(SELECT artikel, ort, round(sum(menge)*10000)/10000 AS menge FROM j{0} WHERE artikel IS NOT NULL AND ort IS NOT
 NULL GROUP BY artikel, ort) s"""
OPEN = "INSERT INTO j{1} SELECT -row_number() OVER (), '{1}-01-01', artikel, '', ort, menge, '', 0, 'Anfangsbestand', NULL FROM " + SUMS  # noqa: E501
CARRY = "UPDATE j{1} o SET menge=s.menge FROM " + SUMS + """ WHERE o.buchungsart='Anfangsbestand' AND o.artikel=s.artikel
 AND o.ort=s.ort AND o.menge<>s.menge"""


class Connection:
    """What libpq gives of it, called directly: no driver between."""

    def __init__(self, words):
        self.pq = ctypes.CDLL("libpq.so.5")
        for name in ("PQconnectdb", "PQexec", "PQexecParams", "PQprepare", "PQexecPrepared"):
            getattr(self.pq, name).restype = ctypes.c_void_p
        self.pq.PQgetvalue.restype = self.pq.PQerrorMessage.restype = self.pq.PQcmdTuples.restype = ctypes.c_char_p
        self.handle = ctypes.c_void_p(self.pq.PQconnectdb(words.encode()))

    def checked(self, result):
        result = ctypes.c_void_p(result)
        if self.pq.PQresultStatus(result) not in (1, 2):
            raise RuntimeError(self.pq.PQerrorMessage(self.handle).decode())
        return result

    def rows(self, sql):
        """The number of rows read or changed."""
        result = self.checked(self.pq.PQexecParams(self.handle, sql.encode(), 0, None, None, None, None, 1))
        count = self.pq.PQntuples(result) or int(self.pq.PQcmdTuples(result) or 0)
        self.pq.PQclear(result)
        return count

    def prepare(self, sql):
        self.pq.PQclear(self.checked(self.pq.PQprepare(self.handle, b"q", sql.encode(), 0, None)))

    def ask(self, values):
        """The number that the prepared statement answers; `values` is an array of its parameters' texts."""
        result = self.checked(self.pq.PQexecPrepared(self.handle, b"q", len(values), values, None, None, 0))
        answer = float(self.pq.PQgetvalue(result, 0, 0) or 0)
        self.pq.PQclear(result)
        return answer


class Server:
    def __init__(self):
        self.folder = tempfile.mkdtemp()
        self.user = "postgres" if os.geteuid() == 0 else getpass.getuser()
        self.prefix = ["runuser", "-u", self.user, "--"] if os.geteuid() == 0 else []
        shutil.chown(self.folder, self.user)

    def __enter__(self):
        data = self.folder + "/data"
        self.run("initdb", "-A", "trust", "--locale=C.UTF-8", "-D", data)
        settings = f"-k {self.folder} -c listen_addresses= -c shared_buffers=1GB -c work_mem=256MB"
        self.run("pg_ctl", "-w", "-D", data, "-o", settings, "-l", self.folder + "/log", "start")
        return self

    def __exit__(self, *_):
        self.run("pg_ctl", "-m", "immediate", "-D", self.folder + "/data", "stop")
        shutil.rmtree(self.folder)

    def run(self, program, *words):
        subprocess.run([*self.prefix, PROGRAMS / program, *words], check=True, capture_output=True, cwd=self.folder)

    def words(self):
        return f"host={self.folder} user={self.user} dbname=postgres"

    def load(self, year, file):
        """The rows of a year file."""
        source = sqlite3.connect(f"file:{file}?mode=ro&immutable=1", uri=True)
        psql = subprocess.Popen([PROGRAMS / "psql", "-q", "-v", "ON_ERROR_STOP=1", self.words()], stdin=subprocess.PIPE, text=True)
        psql.stdin.write(TABLE.format(year) + f";\nCOPY j{year} FROM STDIN;\n")
        for row in source.execute(f"SELECT {','.join(COLUMNS)} FROM LAGERJOURNAL"):
            psql.stdin.write("\t".join("\\N" if value is None else str(value) for value in row) + "\n")
        psql.stdin.write("\\.\n" + "".join(index.format(year) + ";\n" for index in INDICES) + f"VACUUM ANALYZE j{year};\n")
        psql.stdin.close()
        if psql.wait() != 0:
            raise RuntimeError(f"{file} was not loaded")
        return source


def least(work, rounds=5):
    times = []
    for _ in range(rounds):
        begin = time.perf_counter()
        work()
        times.append(time.perf_counter() - begin)
    return min(times)


def question(connection, source):
    """Seconds a question, of 2000 in a row; the answers checked against the year file."""
    random.seed(20241127)
    pairs = source.execute("SELECT DISTINCT Artikel, LagerortKurzKu FROM LAGERJOURNAL").fetchall()
    asked = [(*random.choice(pairs), f"2020-{random.randint(1, 12):02}-{random.randint(1, 28):02}") for _ in range(2000)]
    connection.prepare("SELECT sum(menge) FROM j2020 WHERE artikel=$1 AND ort=$2 AND datum<=$3::date")
    values = [(ctypes.c_char_p * 3)(*(text.encode() for text in one)) for one in asked]
    for one, value in list(zip(asked, values))[:5]:
        rows = source.execute("SELECT Menge FROM LAGERJOURNAL WHERE Artikel=? AND LagerortKurzKu=? AND Datum<=?", one)
        if not math.isclose(sum(row[0] for row in rows), connection.ask(value), abs_tol=1e-6):
            raise RuntimeError(f"PostgreSQL has another stock of {one}")
    return least(lambda: [connection.ask(value) for value in values]) / len(asked)


def views(connection, order, count):
    def read():
        connection.rows(REPAIR)
        if connection.rows(KEYS + order) != count or connection.rows(STOCKS) == 0:
            raise RuntimeError("PostgreSQL misses rows")
    return least(read)


def measure(store, rows, pairs, carried_rows, carried_pairs):
    """Seconds by what was asked; nothing where the server is not installed. `store` has the year files that were made."""
    if not (PROGRAMS / "initdb").exists():
        return {}
    found = {}
    with Server() as server:
        connection = Connection(server.words())
        source = server.load(2020, store / f"2020.{rows}.{pairs}")
        found["question"] = question(connection, source)
        found["by day"] = views(connection, "datum, id", rows)
        found["by article"] = views(connection, "artikel, datum, id", rows)
        connection.rows("DROP TABLE j2020")
        for year in range(2020, 2025):
            server.load(year, store / f"{year}.{carried_rows}.{carried_pairs}")
            if year > 2020:
                connection.rows(OPEN.format(year - 1, year))
                connection.rows(f"ANALYZE j{year}")

        def carry():
            for year in range(2021, 2025):
                if connection.rows(CARRY.format(year - 1, year)) != 0:
                    raise RuntimeError("PostgreSQL changed an opening row")
        found["carry"] = least(carry)
    return found
