-- 1
CREATE TABLE Dungermittel (
    NAME Text(50), Einheit Text(15), Preis Double, Preisfaktor Text(3), Untergruppe Text(50), Sperre Boolean
);
CREATE TABLE Pflanzenschutzmittel (
    NAME Text(50), Einheit Text(15), Preis Double, Preisfaktor Text(3), Untergruppe Text(50), Sperre Boolean
);
CREATE TABLE Saatgut (
    NAME Text(50), Einheit Text(15), Preis Double, Preisfaktor Text(3), Untergruppe Text(50), Sperre Boolean
);
CREATE TABLE WIRTDUNG (
    NAME Text(50), Einheit Text(15), Preis Double, Preisfaktor Text(3), Untergruppe Text(50), Sperre Boolean
);
CREATE TABLE Zwischenfruechte (
    NAME Text(50), Einheit Text(15), Preis Double, Preisfaktor Text(3), Untergruppe Text(50), Sperre Boolean
);
CREATE TABLE Kulturen (
    NAME Text(50), Einheit Text(15), Preis Double, Preisfaktor Text(3), Untergruppe Text(50), Sperre Boolean
);
CREATE TABLE Futtermittel (
    NAME Text(50), Einheit Text(15), Preis Double, Preisfaktor Text(3), Untergruppe Text(50), Sperre Boolean
);
CREATE TABLE Treibstoffe (
    NAME Text(50), Einheit Text(15), Preis Double, Preisfaktor Text(3), Untergruppe Text(50), Sperre Boolean
);
CREATE TABLE SonstigeArtikel (
    NAME Text(50), Einheit Text(15), Preis Double, Preisfaktor Text(3), Untergruppe Text(50), Sperre Boolean
);
CREATE TABLE Arzneimittel (
    NAME Text(50), Einheit Text(15), Preis Double, Preisfaktor Text(3), Untergruppe Text(50), Sperre Boolean
);
CREATE TABLE HANDLER (
    KurzKu Text(15),
    NAME Text(50),
    VORNAME Text(50),
    Strasse Text(50),
    Ort Text(50),
    PLZ Text(10),
    SPERRE Boolean
);
