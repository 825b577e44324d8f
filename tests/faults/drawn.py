"""Plausible faults, one a row: key and what, room, file, text as it is, text with the fault. One in each of the first
functions that chance drew (see draw), D01 to D36 by the numbers of its list."""
FAULTS = [
    ('D01 error text: a stroke within a name is taken for the place of the next one', 'jet', 'platform/jet/Errors.cpp',
     "        text.replace(from, 1, name);\n        from += name.size();\n",
     "        text.replace(from, 1, name);\n"),
    ('D02 document: the first font of a page is not set when it is the first of the document', 'report',
     'platform/report/Document.cpp',
     "int current = -1;",
     "int current = 0;"),
    ('D03 settings: blank lines and remarks before the next section count as the end of this one', 'system',
     'platform/system/SettingsFile.cpp',
     "        if (!line.section && !line.key) continue;\n        if (line.key && entryName(",
     "        if (line.key && entryName("),
    ('D04 keys: the one-letter field is not marked when it has the focus already', 'overview',
     'overview/Tastenbefehle.cpp',
     "        gehe(*m_ui.KurzEingabe);\n        m_ui.KurzEingabe->selectAll();\n",
     "        gehe(*m_ui.KurzEingabe);\n"),
    ('D05 functions: only a first argument of NULL gives NULL', 'jet', 'platform/jet/sqlite/Functions.cpp',
     "if (!computation.answersNull && arguments.anyNull()) return sqlite3_result_null(context);",
     "if (!computation.answersNull && arguments.isNull(0)) return sqlite3_result_null(context);"),
    ('D06 links: the path is kept in Latin-1 but read as UTF-8', 'jet', 'platform/jet/sqlite/File.cpp',
     "run.bindText(place++, text.toUtf8());",
     "run.bindText(place++, text.toLatin1());"),
    ('D07 literals: only doubled apostrophes are halved, doubled quotation marks are not', 'jet',
     'platform/jet/sql/Lexer.cpp',
     "text.replace(QString(2, delimiter), QString(delimiter));",
     "text.replace(QString(2, u'\\''), QString(u'\\''));"),
    ('D08 demo: what is moved arrives at the place that it left', 'host', 'host/demo/Hofkalender.cpp',
     "bestand(*neu.nachWare, neu.nachOrt) -= neu.menge;",
     "bestand(*neu.nachWare, neu.ort) -= neu.menge;"),
    ('D09 column there: its case counts', 'core', 'core/farm/FeldVorhanden.cpp',
     "return gleich(feld.name, spalte);",
     "return feld.name == spalte;"),
    ('D10 input methods: begin and length of what is replaced swapped', 'controls', 'platform/controls/EditField.cpp',
     "event->replacementStart(),\n                           event->replacementLength());",
     "event->replacementLength(),\n                           event->replacementStart());"),
    ('D11 comparison: a date at the right of a number stays a text', 'jet', 'platform/jet/sqlite/ExpressionWriter.cpp',
     "return has(true) && has(false);",
     "return expression.arguments[0]->type == Type::Date && has(false);"),
    ("D12 opening: the host's storage place is set after the lists are filtered", 'overview',
     'overview/LagerbestandNeu.cpp',
     "        [this] { uebernimmLagerort(); },\n        [this] { m_filter->FilterEinstellen(); },\n",
     "        [this] { m_filter->FilterEinstellen(); },\n        [this] { uebernimmLagerort(); },\n"),
    ('D13 number text: 1E+15 is written out (>= -> >)', 'jet', 'platform/jet/Conversion.cpp',
     "if (exponent >= 15 || digits.size()",
     "if (exponent > 15 || digits.size()"),
    ('D14 combo: coming by Tab takes the mark off the text', 'controls', 'platform/controls/ComboField.cpp',
     "    if (!lineEdit()->hasSelectedText()) lineEdit()->end(false);",
     "    lineEdit()->end(false);"),
    ('D15 preview: the step is set on the upright scroll bar twice, sideways it creeps', 'report',
     'platform/report/PageView.cpp',
     "horizontalScrollBar()->setSingleStep(ScrollStep);",
     "verticalScrollBar()->setSingleStep(ScrollStep);"),
    ('D16 kept file: no more is read than it held when it was opened', 'system', 'platform/system/KeptFile.cpp',
     "QByteArray bytes(static_cast<qsizetype>(now.size), Qt::Uninitialized);",
     "QByteArray bytes(static_cast<qsizetype>(now.size < m_identity.size ? now.size : m_identity.size), Qt::Uninitialized);"),
    ('D17 grid: on a dark header pure colours stay dark (HSV for HSL)', 'controls', 'platform/controls/GridModel.cpp',
     "return QColor::fromHsl(colour.hslHue(),",
     "return QColor::fromHsv(colour.hslHue(),"),
    ('D18 traffic light: the linker drops its icons', 'transfer', 'transfer/ampel/Ampelbild.cpp',
     "    Q_INIT_RESOURCE(ampel);\n",
     ""),
    ('D19 JSON: quotation marks in the name of a column stand as they are', 'host', 'host/Ausgabe.cpp',
     "namen.append(json(spalte.name));",
     "namen.append(u'\"' + spalte.name + u'\"');"),
    ('D20 form: of a text with a remark within only the last piece is kept', 'report', 'platform/report/Element.cpp',
     "if (m_xml.isCharacters()) text += m_xml.text();",
     "if (m_xml.isCharacters()) text = m_xml.text().toString();"),
    ('D21 print: the default printer prints, whichever was named', 'report', 'platform/report/PrintControl.cpp',
     "QPrinter printer(info, QPrinter::HighResolution);",
     "QPrinter printer(QPrinter::HighResolution);"),
    ('D22 mask: one booking without a kind, and an article no longer brings its kind', 'masks',
     'masks/Artikelwahl.cpp',
     "artikel + u\"' AND ARTIKELART > ''\"_s,",
     "artikel + u\"'\"_s,"),
    ('D23 password: kept in small letters but tried as it is written', 'jet', 'platform/jet/store/Catalogue.cpp',
     "salt, saltedHash(salt, password)});",
     "salt, saltedHash(salt, password.toLower())});"),
    ("D24 change: the journal of another program's database is removed", 'jet', 'platform/jet/sqlite/Files.cpp',
     "if (!sys::readStart(path, 15).startsWith(\"SQLite format 3\")) QFile::remove(journal);",
     "QFile::remove(journal);"),
    ('D25 settings: a folder that may not be written in passes for a file in use', 'system',
     'platform/system/Settings.cpp',
     "    case QLockFile::PermissionError: throw fileFault(FileErrorNumber::PathAccess, path);\n",
     "    case QLockFile::PermissionError:\n"),
    ('D26 filter lists: the kinds of bookings without a storage place are missing (copied condition)', 'overview',
     'overview/Auswahllisten.cpp',
     "u\" WHERE LEN(TRIM(IIF(Isnull(ARTIKELART),'',ARTIKELART))) > 0\"_s",
     "u\" WHERE LEN(TRIM(IIF(Isnull(LAGERORTKURZKU),'',LAGERORTKURZKU))) > 0\"_s"),
    ('D27 find: the row that the search begins at is left out', 'jet', 'platform/jet/rows/KeysetRows.cpp',
     "qsizetype asked = position;",
     "qsizetype asked = position + 1;"),
    ("D28 formulas: the case of the table's name counts", 'report', 'platform/report/Rows.cpp',
     "else if (reference->table.compare(m_form.data.table, Qt::CaseInsensitive) != 0)",
     "else if (reference->table != m_form.data.table)"),
    ('D29 parser: a pattern of joined texts ends before the &', 'jet', 'platform/jet/sql/ExpressionParser.cpp',
     "node(Op::Like, std::move(left), parseConcatenation());",
     "node(Op::Like, std::move(left), parseSum());"),
    ('D30 combo: an entry with blanks around it is not found', 'controls', 'platform/controls/ComboBox.cpp',
     "if (itemText(row).trimmed().compare(wanted,",
     "if (itemText(row).compare(wanted,"),
    ('D31 open command: the number of the fault becomes 0 (the whole match is read)', 'host', 'host/OeffnenBefehl.cpp',
     "jet::ErrorNumber(fund.captured(1).toInt())",
     "jet::ErrorNumber(fund.captured().toInt())"),
    ('D32 directory: a folder spelled in another case holds nothing', 'system', 'platform/system/Files.cpp',
     "localPath(local.left(nameBegin));",
     "local.left(nameBegin);"),
    ('D33 package: an end tag that lies across two pieces is not met', 'family', 'platform/sheet/CompletePackage.cpp',
     "last = last.right(100) + piece;",
     "last = piece;"),
    ('D34 traffic light: the state that a host sets when told is overruled by the one before', 'transfer',
     'transfer/ampel/AmpelLED.cpp',
     "m_ampel = begrenzt(m_ampel);",
     "m_ampel = begrenzt(New_Ampel);"),
    ("D35 mask: a box that is hidden and set by the mask replaces the user's choice", 'masks',
     'masks/Einzelbuchung.cpp',
     "    if (haken.isVisible())\n        sys::SaveSetting(",
     "    sys::SaveSetting("),
    ('D36 form: a file that breaks off between two elements passes for a whole one', 'report',
     'platform/report/Element.cpp',
     "        refuseBrokenXml();\n        if (m_xml.isEndElement()) return;\n",
     "        if (m_xml.isEndElement()) return;\n"),
    ("D37 form file: a colour by its name, or '#zz', is no longer refused (|| -> &&)", 'report',
     'platform/report/Element.cpp',
     "if (!written.startsWith(u'#') || !color.isValid())",
     "if (!written.startsWith(u'#') && !color.isValid())"),
    ('D38 typesetter: colour and slant forgotten when a known font is looked up', 'report',
     'platform/report/Typesetter.cpp',
     '[&font](const Measured& known) { return known.font == font; });',
     '[&font](const Measured& known) { return known.font.size == font.size && known.font.bold == font.bold; });'),
    ('D39 host call: the screen counts as open before its file is there, so a missing template blocks the next call',
     'core', 'core/Lagerverwaltung.cpp',
     '    zustand.Jahr = QString::number(zustand.Stichdatum.year());\n'
     '    stelleJournalBereit(m_datenverzeichnis); // a missing template ends the call, what is copied by now stays\n'
     '    zustand.Herkunft = m_herkunft;\n'
     '    zustand.Datenverzeichnis = datenverzeichnis();\n'
     '    zustand.Hilfedatei = ProgrammVerzeichnis() + u"\\\\ZAB Hilfe\\\\Lagerverwaltung.chm"_s;\n'
     '\n'
     '    zustand.BildschirmOffen = true;\n',
     '    zustand.Jahr = QString::number(zustand.Stichdatum.year());\n'
     '    zustand.BildschirmOffen = true;\n'
     '    stelleJournalBereit(m_datenverzeichnis); // a missing template ends the call, what is copied by now stays\n'
     '    zustand.Herkunft = m_herkunft;\n'
     '    zustand.Datenverzeichnis = datenverzeichnis();\n'
     '    zustand.Hilfedatei = ProgrammVerzeichnis() + u"\\\\ZAB Hilfe\\\\Lagerverwaltung.chm"_s;\n'
     '\n'),
    ('D40 date field: the last day that is possible is refused (> -> >=)', 'controls',
     'platform/controls/DateCombo.cpp',
     'm_maxDate.isValid() && date > m_maxDate)',
     'm_maxDate.isValid() && date >= m_maxDate)'),
    ('D41 numbering: a later sale of the day gives those numbered before a new number, too', 'delivery',
     'delivery/Lieferscheinnummern.cpp',
     'u" WHERE IIF(ISNULL(LIEFERSCHEINNUMMER),0,LIEFERSCHEINNUMMER) = 0 AND BUCHUNGSART = \'Verkauf\'"\n'
     '            u" AND IIF(ISNULL(UBERSTALLT_ALT)',
     'u" WHERE BUCHUNGSART = \'Verkauf\'"\n'
     '            u" AND IIF(ISNULL(UBERSTALLT_ALT)'),
    ('D42 writer: dates in an IN list stay texts where the left side became a day number', 'jet',
     'platform/jet/sqlite/ExpressionWriter.cpp',
     'operand(*arguments[i], mixed);',
     'operand(*arguments[i], mixed && i > 1);'),
    ("D43 list: the number block's keys are not known any more (keypad modifier kept)", 'controls',
     'platform/controls/DataGrid.cpp',
     'const auto modifiers = event->modifiers() & ~Qt::KeypadModifier; // the number block has the key, too',
     'const auto modifiers = event->modifiers();'),
    ('D44 settings: case counts in the name of a section', 'system', 'platform/system/SettingsFile.cpp',
     "return section.toCaseFolded() + u'\\n' + key.toCaseFolded();",
     "return section + u'\\n' + key.toCaseFolded();"),
    ('D45 calendar: the day is chosen before the range is set, so the range of before bends it', 'controls',
     'platform/controls/DateCombo.cpp',
     '    days.setDateRange(m_minDate.isValid() ? m_minDate : QDate(100, 1, 1),\n'
     '                      m_maxDate.isValid() ? m_maxDate : QDate(9999, 12, 31));\n'
     '    const QDate date = Date();\n'
     '    days.setSelectedDate(date.isValid() ? date : sys::heute());\n',
     '    const QDate date = Date();\n'
     '    days.setSelectedDate(date.isValid() ? date : sys::heute());\n'
     '    days.setDateRange(m_minDate.isValid() ? m_minDate : QDate(100, 1, 1),\n'
     '                      m_maxDate.isValid() ? m_maxDate : QDate(9999, 12, 31));\n'),
    ('D46 functions: BEGINS keeps the new texts with the old answer', 'jet', 'platform/jet/value/Functions.cpp',
     "std::string(texts[2])}, answer};",
     "std::string(texts[2])}, asked.answer};"),
    ('D47 preview: choosing the same size again after another zoom does nothing (activated -> currentIndexChanged)',
     'report', 'platform/report/PreviewWindow.cpp',
     'connect(m_zoom, &QComboBox::activated, this,',
     'connect(m_zoom, &QComboBox::currentIndexChanged, this,'),
    ('D48 help menu: the programme information comes with the help, and not with its own entry', 'overview',
     'overview/Hilfemenue.cpp',
     'verdrahte(info, &QAction::triggered, menue,',
     'verdrahte(&hilfe, &QAction::triggered, menue,'),
    ('D49 create: a missing folder is not told as such (check left out)', 'jet', 'platform/jet/store/Pool.cpp',
     '    requireDirectory(local);\n    prepareForChange(local);\n',
     '    prepareForChange(local);\n'),
    ('D50 settings: a value is cut at its own last equals sign', 'system', 'platform/system/SettingsFile.cpp',
     "text.indexOf(u'=')",
     "text.lastIndexOf(u'=')"),
    ('D51 rows: a row that is gone reads as one of NULLs (outcome of the step ignored)', 'jet',
     'platform/jet/rows/KeyedRows.cpp',
     "    if (!row->next()) return {};\n",
     "    row->next();\n"),
    ('D52 list: a text that is cut by the width of its margin shows no tip', 'controls',
     'platform/controls/DataGrid.cpp',
     'fontMetrics().horizontalAdvance(text) + m_widths->margin() > visualRect(index).width()',
     'fontMetrics().horizontalAdvance(text) > visualRect(index).width()'),
    ('D53 year: after an ignored error the key date stays that of the year which was not opened', 'overview',
     'overview/Jahreswahl.cpp',
     '    modulzustand().Stichdatum = Stichdatum;\n',
     '    if (ausgang == sys::Outcome::Left) modulzustand().Stichdatum = Stichdatum;\n'),
    ('D54 pattern: only one * at the end may stand for nothing (while -> if)', 'jet', 'platform/jet/value/Pattern.cpp',
     "    while (at < p.size() && p[at] == u'*')\n        ++at;\n",
     "    if (at < p.size() && p[at] == u'*') ++at;\n"),
    ('D55 mask: from the middle of a group the begin is looked for ahead, so one group is skipped', 'controls',
     'platform/controls/Tasten.cpp',
     'while (gruppe(beginn) == anfaenge.end() && beginn->previousInFocusChain() != hier)\n'
     '        beginn = beginn->previousInFocusChain();',
     'while (gruppe(beginn) == anfaenge.end() && beginn->nextInFocusChain() != hier)\n'
     '        beginn = beginn->nextInFocusChain();'),
    ('D56 binder: only the first of a list or of two bounds is checked against the left side', 'jet',
     'platform/jet/bind/ExpressionBinder.cpp',
     '        for (std::size_t i = 1; i < arguments.size(); ++i)\n'
     '            requireComparable(*arguments[0], *arguments[i]);\n',
     '        requireComparable(*arguments[0], *arguments[1]);\n'),
    ('D57 open: the file is kept before its password is checked, so a wrong one passes at the second try', 'jet',
     'platform/jet/store/Pool.cpp',
     '    // Which text hosts hand over for files without a password is their affair: such a file opens with any.\n'
     '    if (file->catalogue().hasPassword() && !file->catalogue().accepts(readConnect(connect).password))\n'
     '        raiseOfFile(ErrorNumber::WrongPassword, local);\n'
     '    if (m_beforeChange) tellChanges(*file);\n'
     '    dropOldest();\n'
     '    m_entries.push_front({connect, file, *now, file->connection().writes()});\n',
     '    if (m_beforeChange) tellChanges(*file);\n'
     '    dropOldest();\n'
     '    m_entries.push_front({connect, file, *now, file->connection().writes()});\n'
     '    // Which text hosts hand over for files without a password is their affair: such a file opens with any.\n'
     '    if (file->catalogue().hasPassword() && !file->catalogue().accepts(readConnect(connect).password))\n'
     '        raiseOfFile(ErrorNumber::WrongPassword, local);\n'),
    ('D58 number format: zeros before the point count as decimals that are always shown', 'jet',
     'platform/jet/NumberFormat.cpp',
     "format.mid(point).count(u'0')",
     "format.count(u'0')"),
    ('D59 host: an error goes among the rows of the output', 'host', 'host/main.cpp',
     'schreibe(stderr, grund + hilfe);',
     'schreibe(stdout, grund + hilfe);'),
    ('D60 lexer: &HFFFFFFFF is no longer -1 (sign lost in the wider type)', 'jet', 'platform/jet/sql/Lexer.cpp',
     'return Value(static_cast<int>(number)); // &HFFFFFFFF is -1',
     'return Value(static_cast<qint64>(number));'),
    ('D61 typesetter: what is left below a cut keeps the height of all rows, so the end of the rows is not seen',
     'report', 'platform/report/Typesetter.cpp',
     'below.rows = std::max(0.0, block.rows - at);',
     'below.rows = block.rows;'),
    ('D62 list field: a wish to drop down stays and is met after each later check', 'controls',
     'platform/controls/ComboField.cpp',
     '    m_dropAfterCheck = false;\n    Cancel cancel;\n',
     '    Cancel cancel;\n'),
    ('D63 list field: what may be typed instead replaces the text that was found (guard lost)', 'controls',
     'platform/controls/DataCombo.cpp',
     'if (row < 0 && !m_foundField.isEmpty()) row = findEqual(',
     'if (!m_foundField.isEmpty()) row = findEqual('),
    ('D64 typesetter: frames are set before the texts, so they do not grow with them', 'report',
     'platform/report/Typesetter.cpp',
     '    const auto rules = rule;\n'
     '    for (const Text* const text : fromTopToBottom(band.texts)) {\n'
     '        if (!holds(text->show, standing)) continue;\n'
     '        setRulesAbove(text->y);\n'
     '        set(*text, standing, block, grown);\n'
     '    }\n'
     '    setRulesAbove(std::numeric_limits<double>::infinity());\n'
     '    for (auto box = boxes.begin(); box != rules; ++box)\n'
     '        set(**box, grown, block);\n',
     '    const auto rules = rule;\n'
     '    for (auto box = boxes.begin(); box != rules; ++box)\n'
     '        set(**box, grown, block);\n'
     '    for (const Text* const text : fromTopToBottom(band.texts)) {\n'
     '        if (!holds(text->show, standing)) continue;\n'
     '        setRulesAbove(text->y);\n'
     '        set(*text, standing, block, grown);\n'
     '    }\n'
     '    setRulesAbove(std::numeric_limits<double>::infinity());\n'),
    ('D65 snapshot: other files are not let go once they are read', 'jet', 'platform/jet/rows/SnapshotRows.cpp',
     "    m_plan->others.reset();\n",
     ""),
    ('D66 group of articles: the article chosen before stays and narrows the views', 'overview',
     'overview/Filterleiste.cpp',
     '        [this] { AuswahllistenFullen(); },\n'
     '        [this] { m_felder.drpArtikel.setText(AlleArtikel); },\n',
     '        [this] { AuswahllistenFullen(); },\n'),
    ('D67 carry-forward: the rows are listed before the lock, so two programs both open a row', 'core',
     'core/JahresUbertrag.cpp',
     '    journal->BeginTrans();\n'
     '    modulzustand().Ruecknahmen.clear(); // other rows rest on what was booked now\n'
     '    const auto ziel = journal->OpenRecordset(u"Lagerjournal"_s, jet::Kind::Dynaset);\n',
     '    const auto ziel = journal->OpenRecordset(u"Lagerjournal"_s, jet::Kind::Dynaset);\n'
     '    journal->BeginTrans();\n'
     '    modulzustand().Ruecknahmen.clear(); // other rows rest on what was booked now\n'),
    ('D68 writer: a column that is assigned to a field passes unchecked, as the NULL of an outer join', 'jet',
     'platform/jet/sqlite/ExpressionWriter.cpp',
     'const bool computed = expression.op != Op::Column || !field.isEmpty();',
     'const bool computed = expression.op != Op::Column;'),
    ('D69 data control: a row that was begun and holds no typed text is not saved', 'controls',
     'platform/controls/DataControl.cpp',
     'return isOpen() && (m_recordset->Editing() || m_bound.hasChanges());',
     'return isOpen() && m_bound.hasChanges();'),
    ('D70 keys: Enter held down presses a button again and again (order of two tests)', 'controls',
     'platform/controls/TasteUmsetzen.cpp',
     '    if (key->isAutoRepeat()) return true; // a key held too long leaves one field, not all\n'
     '    if (QAbstractButton* const button = pressable(field)) {\n'
     '        button->click();\n'
     '        return true;\n'
     '    }\n',
     '    if (QAbstractButton* const button = pressable(field)) {\n'
     '        button->click();\n'
     '        return true;\n'
     '    }\n'
     '    if (key->isAutoRepeat()) return true; // a key held too long leaves one field, not all\n'),
    ('D71 without the year before: a failed write counts as one, and the tick stays', 'overview',
     'overview/LagerbestandNeu.cpp',
     'setzeOhneVorjahr(*oeffneJournaldatei(), ohne); }}) != sys::Outcome::Done)',
     'setzeOhneVorjahr(*oeffneJournaldatei(), ohne); }}) == sys::Outcome::Ignored)'),
    ('D72 parser: a wrong date is told as a wrong number, and the other way round', 'jet',
     'platform/jet/sql/ExpressionParser.cpp',
     '    case SyntaxFault::Date: return u"Syntaxfehler in Datum"_s;\n'
     '    case SyntaxFault::Number: return u"Syntaxfehler in Zahl"_s;\n',
     '    case SyntaxFault::Date: return u"Syntaxfehler in Zahl"_s;\n'
     '    case SyntaxFault::Number: return u"Syntaxfehler in Datum"_s;\n'),
]
