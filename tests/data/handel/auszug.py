#!/usr/bin/env python3
"""Takes 20 000 lines out of the trader's half a million: all lines of some articles, so that each pair of article and
place is whole. Which articles, a checksum of their codes decides. Reads the full table from standard input, writes the
cut to standard output:

    xz -dc transactions.csv.xz | ./auszug.py > bewegungen.csv
"""
import csv
import sys
import zlib

LINES = 20_000
COLUMNS = ["timestamp", "article", "place", "quantity", "unit_price_gbp"]


def chosen_articles(lines):
    counts = {}
    for line in lines:
        code = line["article"].strip().lower()
        counts[code] = counts.get(code, 0) + 1
    chosen, free = set(), LINES
    for code in sorted(counts, key=lambda code: zlib.crc32(code.encode())):
        if counts[code] <= free:
            chosen.add(code)
            free -= counts[code]
    return chosen


def main():
    lines = list(csv.DictReader(sys.stdin))
    chosen = chosen_articles(lines)
    out = csv.DictWriter(sys.stdout, COLUMNS, extrasaction="ignore", lineterminator="\n")
    out.writeheader()
    out.writerows(line for line in lines if line["article"].strip().lower() in chosen)


main()
