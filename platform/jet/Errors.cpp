#include "platform/jet/Errors.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace jet {

namespace {

struct Text {
    ErrorNumber number;
    const char16_t* text;
};

// clang-format off
constexpr Text Texts[] = {
    {ErrorNumber::InvalidArgument, u"Unzulässiger Prozeduraufruf oder ungültiges Argument"},
    {ErrorNumber::Overflow, u"Überlauf"},
    {ErrorNumber::DivisionByZero, u"Division durch Null"},
    {ErrorNumber::ReservedError, u"Reservierter Fehler (|)."},
    {ErrorNumber::TableExists, u"Tabelle '|' existiert bereits."},
    {ErrorNumber::ObjectNotFound, u"Das Datenbankmodul konnte das Objekt '|' nicht finden. Stellen Sie"
                                  u" sicher, dass das Objekt existiert und dass die Namens- und"
                                  u" Pfadangaben richtig eingegeben wurden."},
    {ErrorNumber::UpdateWithoutEdit, u"Update oder CancelUpdate ohne AddNew oder Edit."},
    {ErrorNumber::NoCurrentRecord, u"Kein aktueller Datensatz."},
    {ErrorNumber::DuplicateKey, u"Die von Ihnen vorgenommenen Änderungen an der Tabelle konnten nicht"
                                u" vorgenommen werden, da der Index, der Primärschlüssel oder die"
                                u" Beziehung mehrfach vorkommende Werte enthalten würde."},
    {ErrorNumber::FileNotFound, u"Datei '|' nicht gefunden."},
    {ErrorNumber::ReadOnly, u"Aktualisieren nicht möglich. Datenbank oder Objekt ist schreibgeschützt."},
    {ErrorNumber::WrongPassword, u"Kein zulässiges Kennwort."},
    {ErrorNumber::PathNotFound, u"'|' ist kein zulässiger Pfad. Stellen Sie sicher, dass der Pfad richtig"
                                u" eingegeben ist und dass Sie mit dem Server, auf dem sich die Datei"
                                u" befindet, verbunden sind."},
    {ErrorNumber::CannotOpenFile, u"Das Datenbankmodul kann die Datei '|' nicht öffnen. Sie ist bereits"
                                  u" von einem anderen Benutzer exklusiv geöffnet, oder Sie benötigen"
                                  u" eine Berechtigung, um die Daten lesen zu können."},
    {ErrorNumber::TooFewParameters, u"| Parameter wurden erwartet, aber es wurden zu wenig Parameter"
                                    u" übergeben."},
    {ErrorNumber::DuplicateAlias, u"Doppelter Ausgabealias '|'."},
    {ErrorNumber::CannotExecuteSelect, u"Eine Auswahlabfrage kann nicht ausgeführt werden."},
    {ErrorNumber::UnknownNameInCriterion, u"Das Datenbankmodul erkennt '|' nicht als gültigen Feldnamen"
                                          u" oder Ausdruck."},
    {ErrorNumber::ExpressionSyntax, u"| in Abfrageausdruck '|'."},
    {ErrorNumber::CriterionSyntax, u"| in Ausdruck."},
    {ErrorNumber::UnknownTable, u"Das Datenbankmodul kann die Eingabetabelle oder Abfrage '|' nicht"
                                u" finden. Stellen Sie sicher, dass sie existiert und der Name richtig"
                                u" eingegeben wurde."},
    {ErrorNumber::AmbiguousColumn, u"Das angegebene Feld '|' kann sich auf mehr als eine Tabelle"
                                   u" beziehen, die in der FROM-Klausel Ihrer SQL-Anweisung aufgeführt ist."},
    {ErrorNumber::UndefinedFunction, u"Undefinierte Funktion '|' in Ausdruck."},
    {ErrorNumber::OrderByConflictsWithDistinct, u"ORDER BY-Klausel (|) steht in Konflikt mit DISTINCT."},
    {ErrorNumber::AggregateNotAllowed, u"Die Aggregatfunktion '|' ist an dieser Stelle nicht zulässig."},
    {ErrorNumber::CircularAlias, u"Zirkelbezug, verursacht durch Alias '|' in der SELECT-Liste der"
                                 u" Abfragedefinition."},
    {ErrorNumber::CannotSortMemo, u"Sortieren nach Memo- oder OLE-Objektfeld (|) nicht möglich."},
    {ErrorNumber::CannotGroupMemo, u"Gruppieren nach Memo- oder OLE-Objektfeld (|) nicht möglich."},
    {ErrorNumber::NotInAggregate, u"Sie wollten eine Abfrage ausführen, die den angegebenen Ausdruck '|'"
                                  u" nicht als Teil der Aggregatfunktion einschließt."},
    {ErrorNumber::InvalidName, u"'|' ist kein zulässiger Name."},
    {ErrorNumber::UnknownInsertColumn, u"Die INSERT INTO-Anweisung enthält folgenden unbekannten"
                                       u" Feldnamen: '|'. Stellen Sie sicher, dass Sie den Namen richtig"
                                       u" eingegeben haben, und versuchen Sie es erneut."},
    {ErrorNumber::DeleteSyntax, u"Geben Sie die Tabelle an, die die zu löschenden Datensätze enthält."},
    {ErrorNumber::UnknownStatement, u"Unzulässige SQL-Anweisung; 'DELETE', 'INSERT', 'PROCEDURE',"
                                    u" 'SELECT' oder 'UPDATE' erwartet."},
    {ErrorNumber::FromSyntax, u"Syntaxfehler in FROM-Klausel."},
    {ErrorNumber::GroupBySyntax, u"Syntaxfehler in GROUP BY-Klausel."},
    {ErrorNumber::HavingSyntax, u"Syntaxfehler in HAVING-Klausel."},
    {ErrorNumber::InsertSyntax, u"Syntaxfehler in INSERT INTO-Anweisung."},
    {ErrorNumber::JoinSyntax, u"Syntaxfehler in JOIN-Operation."},
    {ErrorNumber::OrderBySyntax, u"Syntaxfehler in ORDER BY-Klausel."},
    {ErrorNumber::SelectSyntax, u"Die SELECT-Anweisung enthält ein reserviertes Wort oder einen"
                                u" Argumentnamen, das/der falsch eingegeben wurde oder fehlt, oder die"
                                u" Zeichensetzung ist falsch."},
    {ErrorNumber::TextAfterStatement, u"Zeichen gefunden nach Ende der SQL-Anweisung."},
    {ErrorNumber::UpdateSyntax, u"Syntaxfehler in UPDATE-Anweisung."},
    {ErrorNumber::WhereSyntax, u"Syntaxfehler in WHERE-Klausel."},
    {ErrorNumber::InvalidBookmark, u"Kein zulässiges Lesezeichen."},
    {ErrorNumber::FieldTooLong, u"Das Feld ist zu klein für die Datenmenge, die Sie hinzufügen wollten."
                                u" Versuchen Sie, weniger Daten einzufügen."},
    {ErrorNumber::FieldNotUpdatable, u"Das Feld kann nicht aktualisiert werden."},
    {ErrorNumber::RecordDeleted, u"Datensatz ist gelöscht."},
    {ErrorNumber::UnknownDatabaseType, u"Installierbares ISAM nicht gefunden."},
    {ErrorNumber::ChangedByAnotherUser, u"Das Datenbankmodul hat den Vorgang angehalten, da Sie und ein"
                                        u" weiterer Benutzer gleichzeitig versuchen, dieselben Daten zu"
                                        u" verändern."},
    {ErrorNumber::DatabaseExists, u"Datenbank existiert bereits."},
    {ErrorNumber::Locked, u"Aktualisieren nicht möglich; momentan gesperrt."},
    {ErrorNumber::NotSupported, u"Operation wird für diesen Objekttyp nicht unterstützt."},
    {ErrorNumber::NoSuchField, u"Element in dieser Auflistung nicht gefunden."},
    {ErrorNumber::CreateTableSyntax, u"Syntaxfehler in CREATE TABLE-Anweisung."},
    {ErrorNumber::CreateIndexSyntax, u"Syntaxfehler in CREATE INDEX-Anweisung."},
    {ErrorNumber::ColumnDefinitionSyntax, u"Syntaxfehler in Felddefinition."},
    {ErrorNumber::AlterTableSyntax, u"Syntaxfehler in ALTER TABLE-Anweisung."},
    {ErrorNumber::DropSyntax, u"Syntaxfehler in DROP TABLE- oder DROP INDEX-Anweisung."},
    {ErrorNumber::ValueRequired, u"Das Feld '|' darf keinen Null-Wert enthalten, da die"
                                 u" Required-Eigenschaft dieses Feldes auf True gesetzt ist."},
    {ErrorNumber::ValueNotAllowed, u"Der Wert verletzt die Gültigkeitsregel: |."},
    {ErrorNumber::UnknownFormat, u"Nicht erkennbares Datenbankformat '|'."},
    {ErrorNumber::TooComplex, u"Abfrage ist zu komplex."},
    {ErrorNumber::WrongColumnCount, u"Die Anzahl der Abfragewerte und Zielfelder ist nicht identisch."},
    {ErrorNumber::NoSuchTable, u"Tabelle oder Einschränkung nicht gefunden."},
    {ErrorNumber::IndexExists, u"Tabelle '|' enthält bereits einen Index mit dem Namen '|'."},
    {ErrorNumber::ColumnExists, u"Feld '|' existiert bereits in Tabelle '|'."},
    {ErrorNumber::ObjectClosed, u"Objekt ungültig oder nicht mehr festgelegt."},
    {ErrorNumber::ConversionFailed, u"Datentyp-Konvertierungsfehler."},
    {ErrorNumber::DiskFull, u"Der Datenträger ist voll; in die Datei '|' kann nicht geschrieben werden."},
    {ErrorNumber::DiskError, u"Fehler beim Lesen oder Schreiben der Datei '|'."},
    {ErrorNumber::TypeMismatch, u"Datentypenkonflikt in Kriterienausdruck."},
};
// clang-format on

} // namespace

QString errorText(ErrorNumber number, const QStringList& names)
{
    const auto* found = std::find_if(std::begin(Texts), std::end(Texts),
                                     [number](const Text& row) { return row.number == number; });
    Q_ASSERT(found != std::end(Texts));
    QString text = QString::fromUtf16(found->text);
    qsizetype from = 0;
    for (const QString& name : names) {
        from = text.indexOf(u'|', from);
        if (from < 0) break;
        text.replace(from, 1, name);
        from += name.size();
    }
    return text;
}

void raise(ErrorNumber number, const QStringList& names, qsizetype position)
{
    throw Error(number, errorText(number, names), position);
}

Error named(const Error& error, const QString& kind, const QString& name)
{
    if (error.text().contains(u'\'' + name + u'\'')) return error;
    const QString end = error.text().endsWith(u'.') ? QString() : u"."_s;
    return Error(error.number(), error.text() + end + u' ' + kind + u": '"_s + name + u"'."_s,
                 error.position());
}

void raiseOfFile(ErrorNumber number, const QString& path)
{
    throw named(Error(number, errorText(number, {path})), u"Datei"_s, path);
}

Error noTruthValue(const QString& field)
{
    const Error error(ErrorNumber::ValueNotAllowed,
                      errorText(ErrorNumber::ValueNotAllowed, {u"0 (Nein) oder -1 (Ja)"_s}));
    return field.isEmpty() ? error : named(error, u"Feld"_s, field);
}

void refuse(const QString& feature, qsizetype position)
{
    throw Error(ErrorNumber::NotSupported, u"'"_s + feature + u"' wird in Abfragen nicht unterstützt."_s,
                position);
}

} // namespace jet
