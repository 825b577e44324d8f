#include "platform/jet/store/OpenFile.h"

namespace jet {

namespace {

constexpr qsizetype MostPlans = 100;

} // namespace

OpenFile::OpenFile(std::unique_ptr<store::Connection> connection)
    : m_connection(std::move(connection)), m_path(m_connection->path()), m_catalogue(*m_connection),
      m_plans(MostPlans)
{}

OpenFile::~OpenFile() = default;

std::shared_ptr<Plan> OpenFile::plan(const QString& key) const
{
    const auto* known = m_plans.object(key);
    return known ? *known : nullptr;
}

void OpenFile::keepPlan(const QString& key, const std::shared_ptr<Plan>& plan)
{
    m_plans.insert(key, new std::shared_ptr<Plan>(plan));
}

void OpenFile::tellChanges(std::function<void()> told)
{
    m_connection->onFirstRow(told);
    m_told = std::move(told);
}

void OpenFile::forget()
{
    m_plans.clear();
    m_connection->forget();
    m_catalogue.forget();
}

bool OpenFile::forgetIfChanged()
{
    const bool changed = m_connection->tablesChanged();
    if (changed) forget();
    return changed;
}

bool OpenFile::forgetIfNoticed()
{
    return m_connection->tablesMayHaveChanged() && forgetIfChanged();
}

} // namespace jet
