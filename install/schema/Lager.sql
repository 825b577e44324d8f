-- 1
CREATE TABLE LAGERJOURNAL (
    ID Counter PRIMARY KEY,
    Datum Date,
    Artikel Text(50),
    Artikelart Text(25),
    LagerortKurzKu Text(15),
    Menge Double,
    Buchungsmenge Double,
    Preis Double,
    Preisfaktor Text(3),
    Einheit Text(15),
    Buchungsart Text(20),
    BuchungsID Long,
    BEErfassungsnummer Long,
    Kommentar Text(255),
    Uberstallt_alt Text(15),
    Verfuttert_an Text(15),
    Lieferscheinnummer Long,
    Untergruppe Text(50)
);
CREATE INDEX Bestandsfrage ON LAGERJOURNAL (Artikel, LagerortKurzKu, Datum, ID, Menge);
CREATE INDEX Bewegungen ON LAGERJOURNAL (Datum, ID, Artikel);
CREATE INDEX Artikelliste ON LAGERJOURNAL (Artikelart, Artikel, Einheit, Preisfaktor);
CREATE INDEX Partner ON LAGERJOURNAL (Verfuttert_an);
CREATE TABLE Einstellungen (ID Counter PRIMARY KEY);
CREATE TABLE Liefereinstellungen (
    Lieferscheinformular Text(255),
    LieferscheinZeile1 Text(100),
    LieferscheinZeile2 Text(100),
    LieferscheinZeile3 Text(100),
    LieferscheinZusatztext Memo,
    LieferscheinMitPreis Boolean
);
-- new files only: that the column is missing says that a year takes over the one before, and none may lose that
ALTER TABLE Einstellungen ADD COLUMN OhneVorjahr Boolean;
-- 2: the stock list finds the prices in its index
DROP INDEX Bestandsliste ON LAGERJOURNAL;
CREATE INDEX Bestandsliste ON LAGERJOURNAL (Artikel, LagerortKurzKu, Artikelart, Einheit, Datum, ID, Menge, Preis, Preisfaktor);
-- 3: the booking mask finds figures and light of an article in its index
DROP INDEX Suche ON LAGERJOURNAL;
CREATE INDEX Suche ON LAGERJOURNAL (LCASE(TRIM(Artikel)), Datum, ID, Menge, LagerortKurzKu, Buchungsart);
-- 4: sales are found by day and recipient, not by note number
DROP INDEX Buchungen ON LAGERJOURNAL;
CREATE INDEX Buchungen ON LAGERJOURNAL (Buchungsart, Artikel, LagerortKurzKu);
DROP INDEX Lieferscheine ON LAGERJOURNAL;
CREATE INDEX Lieferscheine ON LAGERJOURNAL (Buchungsart, Datum, Uberstallt_alt);
-- 5: the stock list finds its groups in its index with the places in sum, too; prices stand where pairs are asked for
DROP INDEX Bestandsliste ON LAGERJOURNAL;
CREATE INDEX Bestandsliste ON LAGERJOURNAL (Artikel, Artikelart, Einheit, LagerortKurzKu, Datum, ID, Menge);
DROP INDEX Bestandsfrage ON LAGERJOURNAL;
CREATE INDEX Bestandsfrage ON LAGERJOURNAL (Artikel, LagerortKurzKu, Datum, ID, Menge, Preis);
-- 6: sales without a note number are looked for in the index alone
DROP INDEX Lieferscheine ON LAGERJOURNAL;
CREATE INDEX Lieferscheine ON LAGERJOURNAL (Buchungsart, Datum, Uberstallt_alt, Lieferscheinnummer);
