CREATE TABLE PFLANZENSCHUTZMITTEL (NAME Text(50), Gruppe Text(100), Giftig Memo, Regnr Text(20));
CREATE TABLE REGISTER (Regnr Text(20), RegNrAlt Text(20), BEZEICHNUNG Text(100), Aufbrauchsfrist Date);
