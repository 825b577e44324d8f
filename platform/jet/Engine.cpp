#include "platform/jet/Engine.h"

#include "platform/jet/sqlite/Files.h"
#include "platform/jet/store/Pool.h"
#include "platform/system/Files.h"

namespace jet {

Engine::Engine() : Engine(std::make_unique<sqlite::Files>()) {}

Engine::Engine(std::unique_ptr<store::Store> store) : m_pool(std::make_unique<Pool>(std::move(store))) {}

Engine::~Engine() = default;

std::unique_ptr<Database> Engine::OpenDatabase(const QString& path, const QString& connect)
{
    return database(m_pool->open(path, connect));
}

std::unique_ptr<Database> Engine::CreateDatabase(const QString& path, const QString& locale)
{
    return database(m_pool->create(path, locale));
}

std::unique_ptr<Database> Engine::database(std::shared_ptr<OpenFile> file)
{
    auto session = std::make_shared<Database::Session>();
    session->path = file->path();
    session->file = std::move(file);
    session->openOther = [pool = m_pool.get()](const QString& path, const QString& connect) {
        return pool->open(path, connect);
    };
    session->giveBack = [pool = m_pool.get()](std::shared_ptr<OpenFile> given) {
        pool->giveBack(std::move(given));
    };
    session->requireDatabase = [pool = m_pool.get()](const QString& path) { pool->requireDatabase(path); };
    return std::unique_ptr<Database>(new Database(std::move(session)));
}

void Engine::CopyDatabase(const QString& source, const QString& target,
                          const std::function<void(double)>& progress)
{
    m_pool->copy(source, target, progress);
}

void Engine::CopyUnopened(const QString& source, const QString& target)
{
    m_pool->copyUnopened(source, target);
}

void Engine::DeleteDatabase(const QString& path)
{
    m_pool->remove(path);
}

void Engine::setBeforeChange(std::function<void(const QString& path)> told)
{
    m_pool->setBeforeChange(std::move(told));
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
