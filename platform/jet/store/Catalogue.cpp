#include "platform/jet/store/Catalogue.h"

#include "platform/jet/store/Scopes.h"

#include <QCryptographicHash>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace jet::store {

namespace {

const QString LinkNote = u"link"_s;
const QString PasswordNote = u"password"_s;
const QString VersionNote = u"version"_s;

QString saltedHash(const QString& salt, const QString& password)
{
    const QByteArray text = (salt + password).toUtf8();
    return QString::fromLatin1(QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex());
}

} // namespace

bind::TablePtr findTable(Connection& connection, const QString& name, int file)
{
    for (const QString& stored : connection.tables(file))
        if (bind::sameName(stored, name)) return connection.table(stored, file);
    return nullptr;
}

bind::TablePtr Catalogue::table(const QString& name) const
{
    for (const auto& known : m_tables)
        if (bind::sameName(known->name, name)) return known;
    auto table = findTable(m_connection, name);
    if (table) m_tables.push_back(table);
    return table;
}

std::vector<Link> Catalogue::links() const
{
    std::vector<Link> links;
    for (const Note& note : m_connection.notes(LinkNote))
        links.push_back({note.name, note.first, note.second});
    return links;
}

std::optional<Link> Catalogue::link(const QString& name) const
{
    for (const Link& link : links())
        if (bind::sameName(link.name, name)) return link;
    return {};
}

void Catalogue::addLink(const Link& link)
{
    m_connection.addNote({LinkNote, link.name, link.connect, link.sourceTable});
}

void Catalogue::removeLink(const Link& link)
{
    m_connection.removeNote(LinkNote, link.name);
}

bind::Present Catalogue::present() const
{
    return {
        [this](const QString& name) { return table(name); },
        [this](const QString& name) { return link(name).has_value(); },
        [this](const QString& table, const QString& index) { return m_connection.hasIndex(table, index); },
        [this](const QString& name) { return m_connection.isReserved(name); }};
}

bool Catalogue::hasPassword() const
{
    return !m_connection.notes(PasswordNote).empty();
}

bool Catalogue::accepts(const QString& password) const
{
    const auto notes = m_connection.notes(PasswordNote);
    return !notes.empty() && saltedHash(notes.front().first, password) == notes.front().second;
}

void Catalogue::setPassword(const QString& password)
{
    QString salt;
    for (int i = 0; i < 2; ++i)
        salt += QString::number(QRandomGenerator::system()->generate64(), 16);
    m_connection.addNote({PasswordNote, {}, salt, saltedHash(salt, password)});
}

int Catalogue::version() const
{
    if (!m_version || m_connection.isWriting()) {
        const auto notes = m_connection.notes(VersionNote);
        m_version = notes.empty() ? 0 : notes.front().first.toInt();
    }
    return *m_version;
}

void Catalogue::setVersion(int version)
{
    WriteScope scope(m_connection);
    m_connection.removeNote(VersionNote, {});
    m_connection.addNote({VersionNote, {}, QString::number(version), {}});
    scope.commit();
    m_version.reset();
}

void Catalogue::forget()
{
    m_tables.clear();
    m_version.reset();
}

} // namespace jet::store
