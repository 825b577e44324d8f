#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

// A scenario file holds cases, each on a fresh Musterhof. Its first line is "fall" with the fault it would catch; the steps
// follow, one a line, or several with " ; " between them. Lines that begin with blanks belong to the step before. "#" begins
// a remark, behind a step after two blanks. In what is expected "..." stands for anything, \r and \n for line breaks.
//
//   bucht 2024  05.03. | H1 | Weizen | 100 | Zukauf      rows, more of them below
//   fuellt 2024 LAGERJOURNAL     rows of any table: its columns stand below, then the rows, "Artikel | Menge"; NULL: left out
//   sql 2024 UPDATE ...          in a year file, Grundstamm, Stammdaten or Anlagen, by another program
//   heute 5.3.2024               the day
//   host Stichdatum 1.6.2024     what a host has set; Lagername and Betriebsname too
//   einstellung Name = 1         a setting of the user; "einstellung Name zeigt 1"
//   datei weg Grundstamm         a file cannot be found, or "kaputt", until "datei da Grundstamm"; the paper of the journal
//                                is the Formular, that of a delivery the Lieferschein
//   sperre 2024                  another program is writing in a file, until "frei"; "sperre 2024 ganz": none can read it
//
// The first of other steps opens the main screen. Fields are those of the window in front, by their object names.
//
//   oeffne                       the main screen anew
//   tasten z{Tab}12,5{Alt+B}     keys where the focus is; each waits for the window that the one before opens or closes
//   {Strg+1}{Eingabe}            the same
//   feld drpArtikel              the focus goes there, what stands there is selected
//   drpArtikel = Weizen          types over it and leaves by Tab; a tick becomes "an" or "aus"
//   klick Journalliste 3         the mouse, on a field or a row of a list; doppelklick
//   kopf Journalliste Artikel    the mouse on the head of a column
//   papier {Strg+P}              what the key prints, whose lines stand below; a line "..." is any number of them
//   oeffnet {F12} ... 2024.xlsx  the file that the user's own program is to open, or what is said instead; of a table the
//                                rows stand below, see tests/platform/family/Tabellenblatt.h
//
//   antwort Ja  text             before a question: it will be asked once, in this order, and answered so: OK, Ja, Nein,
//                                Wiederholen, Abbruch, Ignorieren; steps below it are done meanwhile
//   stets Ignorieren  text       the same for a question that may come often
//   meldung text                 what was said, or its lines below; a message that nobody expects is a failure
//
//   fenster Zukauf erfassen      the title of the window in front
//   fokus txtMenge               where the focus is; "markiert 7": what is selected there
//   txtMenge zeigt 12,50         the text of a field, label, tab, heading of a list; "Ampel zeigt rot" or "grün"
//   Journalliste zeigt           the rows of a list, which stand below
//   Journalliste hat Artikel: Weizen | Hafer      a column of it, from above
//   Journalliste steht auf ...   its current row, or "keine"
//   drpArtikel bietet A | B      what drops down
//   VonDatum sagt Strg+T         its tool tip
//   txtPreis ist verborgen       or sichtbar, an, aus, offen, zu, frei, gesperrt
//
//   neu 06.03.2024 | H2 | ...    the rows of 2024 since the screen opened: day, place, article, kind, Menge, Buchungsmenge,
//                                unit, price, factor, Buchungsart, BuchungsID, Uberstallt_alt, Verfuttert_an, comment
//   journal 2024                 all rows: day, place, article, quantity, Buchungsart
//   zeigt 2024 SELECT ...        the rows of a query

/// Each file of the room's folder is a test.
class Szenario : public testing::TestWithParam<std::string> {
public:
    static std::vector<std::string> dateien();
};
