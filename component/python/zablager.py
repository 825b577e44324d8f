"""The stock-keeping component for Python hosts (PyQt6): properties by name, failures as exceptions.

    from zablager import Zablager

    lager = Zablager().CreateObject("ZABLAGER.Lagerverwaltungsdaten")
    lager.Betriebsnummer = "4711"
    lager.Stichdatum = datetime.date(2024, 1, 1)
    lager.Kontrolle_LagerbestandLaden()
    print(lager.Get_Bestand("Weizen", "H1", datetime.date(2024, 12, 31)))

A message for the user, such as that of a missing year file, is no failure: its text stands in `LetzterFehler`.
"""

import datetime
import os

from PyQt6 import sip
from PyQt6.QtCore import QDate, QMetaObject, QPluginLoader, Qt, Q_ARG, Q_RETURN_ARG

_INSTALLED = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../zablager.so")


# Told to dir() only. PyQt6 cannot list them itself: it takes names for ASCII.
_PROPERTIES = (
    "Anlagenpasswort", "Anlagenverzeichnis", "Artikelname", "Betriebpasswort", "Betriebsadresse", "Betriebsname",
    "Betriebsnummer", "Datenverzeichnis", "Herkunft", "Lagername", "Lagerpasswort", "LetzteFehlernummer",
    "LetzterFehler", "Stammverzeichnis", "Stichdatum", "Währung")


class ZablagerError(Exception):
    """A refusal of the database engine or the file system, or a missing library or class (number 429)."""

    def __init__(self, number, text):
        super().__init__(f"{text} ({number})")
        self.number = number
        self.text = text


class Zablager:
    """The loaded library: that of the path, without one that of the installation to which this module belongs."""

    def __init__(self, path=_INSTALLED):
        path = os.path.abspath(path)
        if not os.path.exists(path):
            raise ZablagerError(429, f"Die Bibliothek '{path}' fehlt.")
        self._loader = QPluginLoader(path)
        self._root = self._loader.instance()
        if self._root is None:
            raise ZablagerError(429, f"Die Bibliothek '{path}' lässt sich nicht laden: {self._loader.errorString()}")
        if self._root.metaObject().className() != "Zablager":
            raise ZablagerError(429, f"Die Bibliothek '{path}' ist eine andere.")

    @property
    def Version(self):
        """The version of the library, such as "0.2.0"."""
        return self._root.property("Version")

    def CreateObject(self, klasse):
        """A new object of the class, deleted with its last reference."""
        _expect("klasse", klasse, str)
        created = QMetaObject.invokeMethod(
            self._root, "CreateObject", Qt.ConnectionType.DirectConnection, Q_RETURN_ARG("QObject*"),
            Q_ARG("QString", klasse))
        if created is None:
            raise ZablagerError(429, self._root.property("LetzterFehler"))
        sip.transferback(created)
        return Lagerverwaltungsdaten(created)


class Lagerverwaltungsdaten:
    """One object of the component; its attributes are the component's properties under their own names."""

    def __init__(self, created):
        object.__setattr__(self, "_object", created)

    def __getattr__(self, name):
        if name.startswith("_"):  # asked by copy and pickle before there is an object
            raise AttributeError(name)
        _index(self._object, name)
        value = self._object.property(name.encode())
        return value.toPyDate() if isinstance(value, QDate) else value

    def __setattr__(self, name, value):
        if not self._object.metaObject().property(_index(self._object, name)).isWritable():
            raise AttributeError(f"{name} kann nur gelesen werden")
        if name == "Stichdatum":  # the only property that looks at its value
            self._object.setProperty(name.encode(), _day(name, value))
            return self._check()
        _expect(name, value, str)
        self._object.setProperty(name.encode(), value)

    def __dir__(self):
        return [*super().__dir__(), *_PROPERTIES]

    def Get_Bestand(self, Artikel, Lagerort, Stichtag):
        """Stock of an article at a storage place at the end of a day (date, datetime or QDate), not rounded."""
        _expect("Artikel", Artikel, str)
        _expect("Lagerort", Lagerort, str)
        return self._invoke("Get_Bestand", Q_RETURN_ARG("double"), Q_ARG("QString", Artikel),
                            Q_ARG("QString", Lagerort), Q_ARG("QDate", _day("Stichtag", Stichtag)))

    def LagerbestandRechnen(self):
        """Fails on every call, as hosts know it; Get_Bestand answers."""
        return self._invoke("LagerbestandRechnen", Q_RETURN_ARG("double"))

    def LagerbestandLaden(self):
        """Opens the screen and returns when the user closes it; needs a QApplication."""
        self._invoke("LagerbestandLaden")

    def Kontrolle_LagerbestandLaden(self):
        """Carries the stocks of the key date's year and the later ones forward."""
        self._invoke("Kontrolle_LagerbestandLaden")

    def _invoke(self, method, *args):
        result = QMetaObject.invokeMethod(self._object, method, Qt.ConnectionType.DirectConnection, *args)
        self._check()
        return result

    def _check(self):
        number = self._object.property("LetzteFehlernummer")
        if number:
            raise ZablagerError(number, self._object.property("LetzterFehler"))


def _expect(name, value, *kinds):
    """Refuses what Qt would convert by guessing, or drop without a word."""
    if not isinstance(value, kinds):
        wanted = " oder ".join(kind.__name__ for kind in kinds)
        raise TypeError(f"{name}: {wanted} erwartet, nicht {type(value).__name__}")


def _day(name, value):
    _expect(name, value, datetime.date, QDate)
    if not isinstance(value, QDate):
        return QDate(value.year, value.month, value.day)
    if value.isValid() and not datetime.MINYEAR <= value.year() <= datetime.MAXYEAR:  # reading it back would fail
        raise ZablagerError(5, f"{name}: Das Jahr {value.year()} gibt es in Python nicht.")
    return value


def _index(qobject, name):
    index = qobject.metaObject().indexOfProperty(name.encode())
    if index < 0:
        raise AttributeError(name)
    return index
