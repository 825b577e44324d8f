"""Faults whose places have moved since they were first planted, with the text as it is now."""
FAULTS = [
    ('K1 mask: Buchungsmenge without its sign', 'masks', 'masks/LAZukaufForm.cpp',
     'zeile.Buchungsmenge = zeile.Menge;',
     'zeile.Buchungsmenge = ui->txtMenge->Value();'),
    ('T3 pair: the second row takes the sign of the first', 'transfer', 'transfer/LAUmbuchForm.cpp',
     '*m_artikelauswahl2, *ui->txtZugangsID, 1, [this]',
     '*m_artikelauswahl2, *ui->txtZugangsID, -1, [this]'),
]
