#include "platform/jet/Engine.h"

#include "platform/jet/Pool.h"
#include "platform/system/Files.h"

namespace jet {

Engine::Engine() : m_pool(std::make_unique<Pool>()) {}

Engine::~Engine() = default;

std::unique_ptr<Database> Engine::OpenDatabase(const QString& path, const QString& connect)
{
    return database(m_pool->open(path, connect));
}

std::unique_ptr<Database> Engine::CreateDatabase(const QString& path, const QString& locale)
{
    return database(m_pool->create(path, locale));
}

std::unique_ptr<Database> Engine::database(std::shared_ptr<sqlite::Connection> connection)
{
    auto session = std::make_shared<Database::Session>();
    session->path = connection->path();
    session->connection = std::move(connection);
    session->openFile = [pool = m_pool.get()](const QString& path, const QString& connect) {
        return pool->open(path, connect);
    };
    session->giveBack = [pool = m_pool.get()](std::shared_ptr<sqlite::Connection> given) {
        pool->giveBack(std::move(given));
    };
    session->requireDatabase = [pool = m_pool.get()](const QString& path) { pool->requireDatabase(path); };
    return std::unique_ptr<Database>(new Database(std::move(session)));
}

int Engine::LockTimeout() const
{
    return m_pool->lockTimeout();
}

void Engine::setLockTimeout(int milliseconds)
{
    m_pool->setLockTimeout(milliseconds);
}

void Engine::release(const QString& path)
{
    m_pool->release(path);
}

Engine& engine()
{
    static Engine instance;
    static const bool listening = [] {
        sys::beforeFileChange([](const QString& path) { instance.m_pool->prepareForChange(path); });
        return true;
    }();
    Q_UNUSED(listening)
    return instance;
}

} // namespace jet
