#include "tests/platform/jet/Walk.h"

#include "tests/platform/jet/Notation.h"
#include "tests/platform/jet/Scratch.h"

#include <map>
#include <stdexcept>

using namespace Qt::StringLiterals;

Walk::Walk(jet::Database& database, const QString& kind, const QString& source) : m_database(database)
{
    static const std::map<QString, jet::Kind> kinds{{u"Default"_s, jet::Kind::Default},
                                                    {u"Table"_s, jet::Kind::Table},
                                                    {u"Dynaset"_s, jet::Kind::Dynaset},
                                                    {u"Snapshot"_s, jet::Kind::Snapshot}};
    m_rows = database.OpenRecordset(source, kinds.at(kind));
}

QString Walk::run(const QString& calls)
{
    QString answer;
    const std::string refused = refusal([&] {
        for (const QString& text : calls.split(u"; "_s))
            answer = call(text.section(u' ', 0, 0), text.section(u' ', 1));
        if (answer.isEmpty()) answer = standing();
    });
    return refused.empty() ? answer : u'!' + QString::fromStdString(refused);
}

QString Walk::call(const QString& name, const QString& argument)
{
    static const std::map<QString, void (jet::Recordset::*)()> plain{
        {u"MoveFirst"_s, &jet::Recordset::MoveFirst},
        {u"MoveLast"_s, &jet::Recordset::MoveLast},
        {u"MoveNext"_s, &jet::Recordset::MoveNext},
        {u"MovePrevious"_s, &jet::Recordset::MovePrevious},
        {u"AddNew"_s, &jet::Recordset::AddNew},
        {u"Edit"_s, &jet::Recordset::Edit},
        {u"Update"_s, &jet::Recordset::Update},
        {u"Delete"_s, &jet::Recordset::Delete},
        {u"CancelUpdate"_s, &jet::Recordset::CancelUpdate},
    };
    const auto found = plain.find(name);
    if (found == plain.end()) return answered(name, argument);
    (m_rows.get()->*found->second)();
    return {};
}

QString Walk::answered(const QString& name, const QString& argument)
{
    const QString field = argument.section(u" = "_s, 0, 0);
    const QString value = argument.section(u" = "_s, 1);
    const qsizetype place = argument.section(u' ', 0, 0).toInt();
    if (name == u"Count") return QString::number(m_rows->RecordCount());
    if (name == u"Place") return QString::number(m_rows->AbsolutePosition());
    if (name == u"From") return QString::number(m_rows->FindFrom(place, argument.section(u' ', 1)));
    if (name == u"Row") {
        const auto row = m_rows->RowAt(place);
        return row ? writtenRow(*row) : u"gone"_s;
    }
    if (name == u"Put") {
        put(field, value);
        return written((*m_rows)[field]);
    }
    if (name == u"FindFirst") {
        m_rows->FindFirst(argument);
        return m_rows->NoMatch() ? u"no match"_s : QString();
    }
    if (name == u"Set")
        m_rows->Set(field, read(value));
    else if (name == u"Mark")
        m_mark = m_rows->GetBookmark();
    else if (name == u"Back")
        m_rows->SetBookmark(m_mark);
    else if (name == u"BackToModified")
        m_rows->SetBookmark(m_rows->LastModified());
    else if (name == u"Close")
        m_database.Close();
    else if (name == u"elsewhere")
        m_other.OpenDatabase(m_database.Name())->Execute(argument);
    else
        throw std::runtime_error("no call of a recordset: " + name.toStdString());
    return {};
}

void Walk::put(const QString& field, const QString& value)
{
    m_rows->Edit();
    m_rows->Set(field, read(value));
    m_rows->Update();
}

QString Walk::standing() const
{
    if (m_rows->Bof() && m_rows->Eof()) return u"Bof Eof"_s;
    return m_rows->Bof() ? u"Bof"_s : m_rows->Eof() ? u"Eof"_s : writtenRow(*m_rows);
}
