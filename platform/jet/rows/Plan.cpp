#include "platform/jet/rows/Plan.h"

#include "platform/jet/Errors.h"
#include "platform/jet/sql/Parser.h"
#include "platform/jet/store/ConnectText.h"

#include <numeric>
#include <utility>

namespace jet {

namespace {

class Planner {
public:
    Planner(OpenFile& file, const OpenOther& open, int parameters)
        : m_file(file), m_plan(std::make_shared<Plan>()),
          m_lookup([this](const QString& name) { return find(name); })
    {
        m_plan->others = std::make_unique<OtherFiles>(file, open);
        m_plan->parameters = parameters;
    }

    std::shared_ptr<Plan> run(sql::Statement statement)
    {
        std::visit([this](auto& part) { plan(part); }, statement);
        if (m_plan->others->isEmpty()) m_plan->others.reset();
        return m_plan;
    }

private:
    bind::TablePtr find(const QString& name)
    {
        if (auto table = m_file.catalogue().table(name)) return table;
        const auto link = m_file.catalogue().link(name);
        return link ? m_plan->others->table(*link) : nullptr;
    }

    void plan(sql::Select& select)
    {
        const auto into = std::move(select.into);
        m_plan->select = bind::bindSelect(std::move(select), m_lookup);
        for (const auto& column : m_plan->select->columns)
            m_plan->fields.push_back(column.field);
        if (into) return planInto(*into);
        m_plan->query = m_file.connection().query(*m_plan->select, m_plan->parameters);
    }

    void planInto(const sql::Into& into)
    {
        const QString path = into.file.isEmpty() ? readConnect(into.connect).database : into.file;
        OtherFiles::Target target{nullptr, 0};
        if (!path.isEmpty()) target = m_plan->others->target(path, into.connect);
        m_plan->file = target.number.value_or(0);
        auto& connection = target.number ? m_file.connection() : target.file->connection();
        const bool isOwn = target.number == 0;
        const bool isLink = isOwn && m_file.catalogue().link(into.table);
        if (isLink || findTable(connection, into.table, m_plan->file))
            raise(ErrorNumber::TableExists, {into.table});
        sql::CreateTable create{into.table, intoColumns(*m_plan->select)};
        requireNames(create, m_file.catalogue().present());
        if (!target.number) {
            m_plan->elsewhere = std::move(target.file);
            m_plan->query = m_file.connection().query(*m_plan->select, m_plan->parameters);
        } else {
            m_plan->action = connection.action(insertionInto(create));
        }
        m_plan->definition = bind::BoundDefinition{std::move(create), nullptr};
    }

    bind::BoundInsert insertionInto(const sql::CreateTable& create)
    {
        auto table = std::make_shared<bind::Table>();
        table->name = create.table;
        table->file = m_plan->file;
        for (const auto& column : create.columns)
            table->columns.push_back({column.name, column.type, column.size});
        bind::BoundInsert insert;
        insert.columns.resize(table->columns.size());
        std::iota(insert.columns.begin(), insert.columns.end(), 0);
        insert.table = std::move(table);
        insert.select = std::exchange(m_plan->select, {});
        insert.isNew = true;
        return insert;
    }

    /// Types and sizes of the source columns and nothing else of them; a counter stays one.
    static std::vector<sql::ColumnDefinition> intoColumns(const bind::BoundSelect& select)
    {
        std::vector<sql::ColumnDefinition> columns;
        bool hasCounter = select.tables.size() > 1 || select.grouped || select.tree.distinct;
        for (const auto& output : select.columns) {
            sql::ColumnDefinition column{output.field.name, output.field.type, output.field.size, false,
                                         false};
            if (column.type == Type::Counter && std::exchange(hasCounter, true)) column.type = Type::Long;
            if (column.type == Type::Null || (column.type == Type::Text && column.size == 0)) {
                column.type = Type::Text;
                column.size = 255;
            }
            columns.push_back(std::move(column));
        }
        return columns;
    }

    template <typename Bound>
    void planAction(const Bound& bound)
    {
        // Rows of a linked table are changed in their own file only.
        if (bound.table->file != 0) raise(ErrorNumber::ReadOnly);
        m_plan->action = m_file.connection().action(bound);
    }

    void plan(sql::Insert& insert) { planAction(bind::bindInsert(std::move(insert), m_lookup)); }
    void plan(sql::Update& update) { planAction(bind::bindUpdate(std::move(update), m_lookup)); }
    void plan(sql::Delete& statement) { planAction(bind::bindDelete(std::move(statement), m_lookup)); }

    void plan(sql::Definition& definition)
    {
        const auto* drop = std::get_if<sql::DropTable>(&definition);
        m_plan->droppedLink = drop ? m_file.catalogue().link(drop->table) : std::nullopt;
        if (!m_plan->droppedLink)
            m_plan->definition = bind::bindDefinition(std::move(definition), m_file.catalogue().present());
    }

    OpenFile& m_file;
    std::shared_ptr<Plan> m_plan;
    bind::TableLookup m_lookup;
};

} // namespace

std::shared_ptr<Plan> planOf(OpenFile& file, const sql::Shape& shape, const OpenOther& open)
{
    const bool isKept = !shape.key.isEmpty();
    if (isKept)
        if (auto known = file.plan(shape.key)) return known;
    auto plan = Planner(file, open, static_cast<int>(shape.parameters.size())).run(sql::parse(shape));
    if (isKept && !plan->others) file.keepPlan(shape.key, plan);
    return plan;
}

} // namespace jet
