#include "platform/jet/rows/Execution.h"

#include "platform/jet/Errors.h"
#include "platform/jet/rows/Plan.h"
#include "platform/jet/store/Scopes.h"

namespace jet {

namespace {

using store::Connection;

/// Row by row into a table of another store, which is made for them: whole or not at all.
qint64 copyElsewhere(const Plan& plan, const store::Parameters& parameters)
{
    auto& target = plan.elsewhere->connection();
    store::WriteScope scope(target);
    target.define(*plan.definition);
    const auto table = findTable(target, std::get<sql::CreateTable>(plan.definition->definition).table);
    const qint64 rows = addRows(target, *table, *plan.query->rows(parameters), plan.fields);
    scope.commit();
    plan.elsewhere->forget();
    return rows;
}

qint64 changeTables(OpenFile& file, const Plan& plan, const store::Parameters& parameters)
{
    if (plan.elsewhere) return copyElsewhere(plan, parameters);
    // Of another file only what is written is locked: who copies rows out does not keep others from booking.
    store::WriteScope scope(file.connection(),
                            plan.others ? Connection::Lock::WhenWriting : Connection::Lock::AtOnce);
    if (plan.droppedLink) file.catalogue().removeLink(*plan.droppedLink);
    if (plan.definition) file.connection().define(*plan.definition, plan.file);
    const qint64 rows = plan.action ? plan.action->run(parameters) : 0;
    scope.commit();
    return rows;
}

} // namespace

qint64 execute(Database::Session& session, const sql::Shape& shape)
{
    auto& file = session.use();
    const auto plan = planOf(file, shape, session.openOther);
    if (plan->isSelect()) raise(ErrorNumber::CannotExecuteSelect);
    if (!plan->changesTables()) return plan->action->run(shape.parameters);
    const qint64 rows = changeTables(file, *plan, shape.parameters);
    file.forgetIfChanged();
    return rows;
}

} // namespace jet
