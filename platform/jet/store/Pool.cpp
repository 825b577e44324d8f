#include "platform/jet/store/Pool.h"

#include "platform/jet/Errors.h"
#include "platform/jet/store/ConnectText.h"
#include "platform/system/Path.h"

#include <zablager/FileError.h>

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace jet {

namespace {

constexpr std::size_t MostUnused = 16; // files; each keeps a descriptor and some pages

void requireDirectory(const QString& path)
{
    const QString directory = QFileInfo(path).path();
    const auto found = sys::identify(directory);
    if (!found || !found->isDirectory) raise(ErrorNumber::PathNotFound, {path});
}

[[noreturn]] void raiseFormat(const QString& path)
{
    const QByteArray start = sys::readStart(path, 20);
    constexpr qint64 SmallestPage = 2048;
    const bool isWhole = sys::identify(path).value_or(sys::FileIdentity()).size >= SmallestPage;
    const bool isJet = isWhole && start.startsWith(QByteArray("\0\1\0\0", 4)) &&
                       (start.mid(4, 15) == "Standard Jet DB" || start.mid(4, 15) == "Standard ACE DB");
    const QString text = errorText(ErrorNumber::UnknownFormat, {path});
    if (!isJet) throw Error(ErrorNumber::UnknownFormat, text);
    throw Error(ErrorNumber::UnknownFormat,
                text + u" Die Datei ist eine Jet-Datenbank und muss vor dem Öffnen umgewandelt werden."_s);
}

} // namespace

std::shared_ptr<OpenFile> Engine::Pool::open(const QString& path, const QString& connect)
{
    QString local = sys::withLocalSeparators(path);
    auto now = sys::identify(local);
    if (!now) { // mostly it is spelled as it is called, and one system call has told all
        local = sys::localPath(path);
        now = sys::identify(local);
    }
    if (now && !now->isDirectory)
        if (auto file = known(local, connect, *now)) return file;
    if (!now) {
        requireDirectory(local);
        raise(ErrorNumber::FileNotFound, {local});
    }
    if (now->isDirectory) raise(ErrorNumber::CannotOpenFile, {local});
    auto file = connected(local);
    // Which text hosts hand over for files without a password is their affair: such a file opens with any.
    if (file->catalogue().hasPassword() && !file->catalogue().accepts(readConnect(connect).password))
        raiseOfFile(ErrorNumber::WrongPassword, local);
    if (m_beforeChange) tellChanges(*file);
    dropOldest();
    m_entries.push_front({connect, file, *now, file->connection().writes()});
    return file;
}

std::shared_ptr<OpenFile> Engine::Pool::known(const QString& path, const QString& connect,
                                              const sys::FileIdentity& now)
{
    const auto entry = std::find_if(m_entries.begin(), m_entries.end(), [&](const Entry& candidate) {
        return candidate.file->path() == path && candidate.connect == connect;
    });
    if (entry == m_entries.end()) return nullptr;
    const bool same = entry->isUsed() ? entry->left.sameFile(now) : entry->left == now;
    if (!same) {
        m_entries.erase(entry); // its users, if any, keep what they opened
        return nullptr;
    }
    m_entries.splice(m_entries.begin(), m_entries, entry);
    return m_entries.front().file;
}

void Engine::Pool::requireDatabase(const QString& path) const
{
    if (sys::identify(path)) connected(path);
}

std::shared_ptr<OpenFile> Engine::Pool::connected(const QString& path) const
{
    if (sys::identify(path).value_or(sys::FileIdentity()).size == 0)
        raise(ErrorNumber::UnknownFormat, {path});
    try {
        return std::make_shared<OpenFile>(m_store->open(path, m_lockTimeout));
    } catch (const Error& error) {
        if (error.number() == ErrorNumber::UnknownFormat) raiseFormat(path);
        throw;
    }
}

std::shared_ptr<OpenFile> Engine::Pool::create(const QString& path, const QString& locale)
{
    const QString local = sys::localPath(path);
    if (sys::identify(local)) raiseOfFile(ErrorNumber::DatabaseExists, local);
    requireDirectory(local);
    prepareForChange(local);
    const QString password = readConnect(locale).password;
    auto file = std::make_shared<OpenFile>(m_store->create(local, m_lockTimeout));
    if (password.isEmpty()) return file;
    try {
        file->catalogue().setPassword(password);
    } catch (const Error&) {
        file.reset();
        QFile::remove(local); // without it, it would open for everybody
        throw;
    }
    return file;
}

void Engine::Pool::giveBack(std::shared_ptr<OpenFile> file)
{
    const auto entry = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](const Entry& candidate) { return candidate.file == file; });
    if (entry == m_entries.end()) return;
    // Who has only read leaves the file as he found it: most users are stock questions, to which a system
    // call counts. What changed the file without writing a row makes the next opening a new connection, no
    // more.
    const qint64 before = std::exchange(entry->writes, file->connection().writes());
    if (before == entry->writes) return;
    const auto now = sys::identify(file->path());
    if (now && now->sameFile(entry->left))
        entry->left = *now; // not that of another file which took its place meanwhile
}

void Engine::Pool::release(const QString& path)
{
    const QString local = sys::localPath(path);
    m_entries.remove_if([&](const Entry& entry) {
        return !entry.isUsed() && (path.isEmpty() || entry.file->path() == local);
    });
}

/// Reading the file past its store would drop the locks of the transaction.
void Engine::Pool::requireNoWriting(const QString& path) const
{
    for (const Entry& entry : m_entries)
        if (entry.file->path() == path && entry.file->connection().isWriting())
            throw sys::FileError(sys::FileErrorNumber::AccessDenied,
                                 u"Zugriff verweigert: In '"_s + path + u"' wird gerade geschrieben."_s);
}

void Engine::Pool::prepareForChange(const QString& path)
{
    requireNoWriting(path);
    release(path);
    m_store->settle(path, m_lockTimeout);
}

void Engine::Pool::copy(const QString& source, const QString& target,
                        const std::function<void(double)>& progress) const
{
    const QString from = sys::localPath(source);
    if (!sys::identify(from)) raise(ErrorNumber::FileNotFound, {from});
    m_store->copy(from, sys::localPath(target), m_lockTimeout, progress);
}

void Engine::Pool::copyUnopened(const QString& source, const QString& target) const
{
    const QString from = sys::localPath(source);
    requireNoWriting(from);
    m_store->copyUnopened(from, sys::localPath(target));
}

void Engine::Pool::remove(const QString& path)
{
    const QString local = sys::localPath(path);
    prepareForChange(local);
    m_store->remove(local);
}

void Engine::Pool::tellChanges(OpenFile& file) const
{
    file.tellChanges([this, path = file.path()] { m_beforeChange(path); });
}

void Engine::Pool::setBeforeChange(std::function<void(const QString& path)> told)
{
    m_beforeChange = std::move(told);
    for (const Entry& entry : m_entries)
        tellChanges(*entry.file);
}

void Engine::Pool::dropOldest()
{
    const auto unused =
        std::count_if(m_entries.begin(), m_entries.end(), [](const Entry& entry) { return !entry.isUsed(); });
    if (static_cast<std::size_t>(unused) < MostUnused) return;
    const auto oldest = std::find_if(m_entries.rbegin(), m_entries.rend(),
                                     [](const Entry& entry) { return !entry.isUsed(); });
    m_entries.erase(std::next(oldest).base());
}

void Engine::Pool::setLockTimeout(int milliseconds)
{
    m_lockTimeout = milliseconds;
    for (const Entry& entry : m_entries)
        entry.file->connection().setLockTimeout(milliseconds);
}

} // namespace jet
