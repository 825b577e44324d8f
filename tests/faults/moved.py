"""Faults whose places have moved since they were first planted, with the text as it is now."""
FAULTS = [
    ('K1 mask: Buchungsmenge without its sign', 'masks', 'masks/LAZukaufForm.cpp',
     'zeile.Buchungsmenge = zeile.Menge;',
     'zeile.Buchungsmenge = ui->txtMenge->Value();'),
    ('T3 pair: the second row takes the sign of the first', 'transfer', 'transfer/LAUmbuchForm.cpp',
     '*m_artikelauswahl2, *ui->txtZugangsID, 1, [this]',
     '*m_artikelauswahl2, *ui->txtZugangsID, -1, [this]'),
    ('X3 controls: after a delete of the last row the list runs off (wasLast dropped)', 'controls',
     'platform/controls/GridDelete.cpp',
     'const bool wasLast = position >= data.RecordCount();',
     'const bool wasLast = position > data.RecordCount();'),
    ('J4 writer: IN without the collation', 'jet', 'platform/jet/sqlite/ExpressionWriter.cpp',
     'write("(%M0%K IN ", expression);',
     'write("(%M0 IN ", expression);'),
    ('J10 edit: the row is not read again when an edit begins', 'jet', 'platform/jet/rows/KeyedRows.cpp',
     '    m_row.reset(); // as it is now, not as it was when it was last looked at\n',
     ''),
]
