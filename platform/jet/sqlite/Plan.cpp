#include "platform/jet/sqlite/Plan.h"

#include "platform/jet/ConnectText.h"
#include "platform/jet/Errors.h"
#include "platform/jet/bind/ActionBinder.h"
#include "platform/jet/sql/Parser.h"
#include "platform/jet/sqlite/ActionWriter.h"
#include "platform/jet/sqlite/DefinitionWriter.h"
#include "platform/jet/sqlite/Names.h"
#include "platform/jet/sqlite/SelectWriter.h"

#include <algorithm>

namespace jet::sqlite {

namespace {

class Planner {
public:
    Planner(Connection& connection, const OpenFile& open) : m_connection(connection), m_plan(std::make_shared<Plan>())
    {
        m_plan->attachments = std::make_unique<Attachments>(connection, open);
        m_lookup = [this](const QString& name) { return find(name); };
    }

    std::shared_ptr<Plan> run(sql::Statement statement)
    {
        std::visit([this](auto& part) { plan(part); }, statement);
        if (m_plan->attachments->isEmpty()) m_plan->attachments.reset();
        return m_plan;
    }

private:
    bind::TablePtr find(const QString& name)
    {
        if (auto table = m_connection.catalogue().table(name)) return table;
        const auto link = m_connection.catalogue().link(name);
        return link ? m_plan->attachments->attach(*link) : nullptr;
    }

    void plan(sql::Select& select)
    {
        const auto into = std::move(select.into);
        auto bound = bind::bindSelect(std::move(select), m_lookup);
        if (into) return planInto(*into, bound);
        for (const auto& column : bound.columns)
            m_plan->fields.push_back(column.field);
        m_plan->rows = writeRows(bound);
        if (bound.isKeyed() && m_plan->attachments->isEmpty()) m_plan->keys = writeKeys(bound);
        m_plan->select = std::move(bound);
    }

    void planInto(const sql::Into& into, const bind::BoundSelect& select)
    {
        const QString file = into.file.isEmpty() ? readConnect(into.connect).database : into.file;
        const QByteArray schema = file.isEmpty() ? "main" : m_plan->attachments->attach(file, into.connect);
        const bool isLink = schema == "main" && m_connection.catalogue().link(into.table);
        if (isLink || !Catalogue::storedName(m_connection, schema, into.table).isEmpty())
            raise(ErrorNumber::TableExists, {into.table});
        sql::CreateTable create{into.table, intoColumns(select)};
        std::vector<Field> fields(create.columns.size());
        for (std::size_t i = 0; i < fields.size(); ++i)
            fields[i].type = create.columns[i].type;
        m_plan->definition = writeCreateTable(create, schema);
        m_plan->action = "INSERT INTO " + schema + '.' + quoted(into.table) + ' ' + writeRows(select, fields);
        m_plan->changesSchema = true;
    }

    /// Types and sizes of the source columns and nothing else of them; a counter stays one.
    static std::vector<sql::ColumnDefinition> intoColumns(const bind::BoundSelect& select)
    {
        std::vector<sql::ColumnDefinition> columns;
        bool hasCounter = select.tables.size() > 1 || select.grouped || select.tree.distinct;
        for (const auto& output : select.columns) {
            sql::ColumnDefinition column{output.field.name, output.field.type, output.field.size, false, false};
            if (column.type == Type::Counter && std::exchange(hasCounter, true)) column.type = Type::Long;
            if (column.type == Type::Null || (column.type == Type::Text && column.size == 0)) {
                column.type = Type::Text;
                column.size = 255;
            }
            columns.push_back(std::move(column));
        }
        return columns;
    }

    void plan(sql::Insert& insert)
    {
        const auto bound = bind::bindInsert(std::move(insert), m_lookup);
        requireOwn(*bound.table);
        m_plan->action = writeInsert(bound);
    }

    void plan(sql::Update& update)
    {
        const auto bound = bind::bindUpdate(std::move(update), m_lookup);
        requireOwn(*bound.table);
        m_plan->action = writeUpdate(bound);
    }

    void plan(sql::Delete& statement)
    {
        const auto bound = bind::bindDelete(std::move(statement), m_lookup);
        requireOwn(*bound.table);
        m_plan->action = writeDelete(bound);
    }

    /// Rows of a linked table are changed in their own file only.
    static void requireOwn(const bind::Table& table)
    {
        if (table.schema != "main") raise(ErrorNumber::ReadOnly);
    }

    void plan(sql::DropTable& drop)
    {
        m_plan->changesSchema = true;
        if (const auto link = m_connection.catalogue().link(drop.table))
            m_plan->droppedLink = link->name;
        else
            m_plan->definition = writeDropTable(drop, m_connection.catalogue());
    }

    template <typename Definition>
    void plan(const Definition& definition)
    {
        m_plan->changesSchema = true;
        m_plan->definition = writeDefinition(definition, m_connection.catalogue());
    }

    Connection& m_connection;
    std::shared_ptr<Plan> m_plan;
    bind::TableLookup m_lookup;
};

} // namespace

std::shared_ptr<Plan> planOf(Connection& connection, const sql::Shape& shape, const OpenFile& open)
{
    if (!shape.key.isEmpty())
        if (auto* known = connection.plans().find(shape.key)) return *known;
    auto plan = Planner(connection, open).run(sql::parse(shape));
    plan->parameters = static_cast<int>(shape.parameters.size());
    if (!plan->keys.isEmpty()) plan->row = writeRow(*plan->select, plan->parameters);
    if (!shape.key.isEmpty() && !plan->attachments) connection.plans().insert(shape.key, plan);
    return plan;
}

} // namespace jet::sqlite
