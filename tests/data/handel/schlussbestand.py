#!/usr/bin/env python3
"""Computes what the stock journals must show, in plain Python: per article without case, place and year the opening
quantity (the closing one of the year before), the closing one and the mean price of the year's lines.

    ./schlussbestand.py < bewegungen.csv > schlussbestand.csv
"""
import csv
import sys
from decimal import Decimal


def main():
    pairs = {}  # (article, place) -> year -> list of (quantity, price)
    years = set()
    for line in csv.DictReader(sys.stdin):
        year = int(line["timestamp"][:4])
        pair = pairs.setdefault((line["article"].strip().lower(), line["place"]), {})
        pair.setdefault(year, []).append((int(line["quantity"]), Decimal(line["unit_price_gbp"])))
        years.add(year)

    out = csv.writer(sys.stdout, lineterminator="\n")
    out.writerow(["article", "place", "year", "lines", "opening", "closing", "mean_unit_price_gbp"])
    for (article, place), lines_of in sorted(pairs.items()):
        stock = 0
        for year in sorted(years):
            lines = lines_of.get(year, [])
            if not lines and stock == 0:
                continue  # nothing to tell of the pair in this year
            opening, stock = stock, stock + sum(quantity for quantity, _ in lines)
            mean = sum(price for _, price in lines) / len(lines) if lines else None
            out.writerow([article, place, year, len(lines), opening, stock, "" if mean is None else f"{mean:.6f}"])


main()
