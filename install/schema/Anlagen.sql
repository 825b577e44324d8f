-- 1
CREATE TABLE Objekte (Name Text(50), KurzKu Text(15), Objektart Text(30), Anzeigen Boolean);
