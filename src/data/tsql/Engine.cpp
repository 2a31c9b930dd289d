#include "Engine.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

#include "Changes.h"
#include "CompanyProcedures.h"
#include "Rows.h"
#include "SystemViews.h"

namespace tsql {
namespace {

// Longer texts are scripts that run once.
constexpr qsizetype kCachedLength = 20000;

// Whatever way a statement ends, it holds no table open.
auto resetAtEnd(sqlite3_stmt* statement) {
    return qScopeGuard([statement] { sqlite3_reset(statement); });
}

data::ColumnInfo infoOf(const OutputColumn& output) {
    data::ColumnInfo info;
    info.name = output.name;
    info.type = columnType(output.bound.type);
    info.length = output.bound.type.isText() ? output.bound.type.length : 0;
    info.nullable = output.bound.nullable;
    info.identity = output.bound.identity;
    return info;
}

}  // namespace

Engine::Engine(const QString& file, bool create) : m_handle(file, create), m_catalogue(m_handle) {
    createSystemViews(m_handle);
    m_schemaVersionQuery = m_handle.prepare("PRAGMA main.schema_version");
    schemaChanged();
}

// --- transactions --------------------------------------------------------------------------------------

void Engine::begin() {
    m_handle.run("BEGIN IMMEDIATE");
}
void Engine::commit() {
    m_handle.run("COMMIT");
}

void Engine::rollback() {
    if (m_handle.inTransaction())
        m_handle.run("ROLLBACK");
    // Tables that were made or dropped in it are as before.
    m_catalogue.changed();
}

QString Engine::keyColumn(const QString& table) {
    for (const Index& index : m_catalogue.require({{}, Name(table)}).indexes)
        if (index.kind == KeyKind::Primary && index.columns.size() == 1)
            return data::bracketed(index.columns.front());
    return {};
}

// --- plans ---------------------------------------------------------------------------------------------

std::shared_ptr<Engine::CachedBatch> Engine::batchOf(const QString& text) {
    const std::shared_ptr<CachedBatch>* known = m_cache.object(text);
    if (known && !(*known)->running)
        return *known;
    auto fresh = std::make_shared<CachedBatch>();
    fresh->batch = parse(text);
    fresh->plans.resize(size_t(fresh->batch->count));
    if (!known && text.size() <= kCachedLength)
        m_cache.insert(text, new std::shared_ptr(fresh));
    return fresh;
}

bool Engine::schemaChanged() {
    sqlite3_stmt* query = m_schemaVersionQuery.get();
    const auto reset = resetAtEnd(query);
    if (sqlite3_step(query) != SQLITE_ROW)
        m_handle.fail();
    const qint64 version = sqlite3_column_int64(query, 0);
    const bool changed = version != m_schemaVersion;
    m_schemaVersion = version;
    return changed;
}

// Another process may have altered a table.
void Engine::noticeForeignChanges() {
    quint32 version = 0;
    sqlite3_file_control(m_handle.get(), "main", SQLITE_FCNTL_DATA_VERSION, &version);
    if (version == m_dataVersion)
        return;
    m_dataVersion = version;
    if (schemaChanged())
        m_catalogue.changed();
}

Engine::Plan& Engine::planOf(const Statement& statement, Run& run) {
    Plan& plan = run.batch.plans[size_t(statement.number)];
    if (plan.statement && plan.version == m_catalogue.version())
        return plan;
    plan = Plan();
    try {
        bind(statement, plan);
    } catch (const data::ServerError&) {
        // The name may be one that another process has just made.
        if (m_handle.inTransaction() || !schemaChanged())
            throw;
        m_catalogue.changed();
        plan = Plan();
        bind(statement, plan);
    }
    return plan;
}

void Engine::bind(const Statement& statement, Plan& plan) {
    Binder binder(m_catalogue);
    plan.version = m_catalogue.version();
    plan.kind = statement.kind;
    switch (statement.kind) {
        case StatementKind::Select: {
            SelectPurpose purpose;
            purpose.placeOrder = true;
            for (const OutputColumn& output :
                 binder.select(*static_cast<const SelectStatement&>(statement).select, purpose)) {
                plan.columns.append(infoOf(output));
                plan.types.push_back(output.bound.type);
            }
            break;
        }
        case StatementKind::Insert:
            plan.table = bindInsert(binder, static_cast<const InsertStatement&>(statement)).name;
            break;
        case StatementKind::Update:
            plan.table = bindUpdate(binder, static_cast<const UpdateStatement&>(statement)).name;
            break;
        case StatementKind::Delete:
            plan.table = bindDelete(binder, static_cast<const DeleteStatement&>(statement)).name;
            break;
        default: {
            Scope scope;
            binder.sql += "SELECT 1 WHERE ";
            binder.condition(*static_cast<const IfStatement&>(statement).condition, scope);
        }
    }
    prepare(binder, plan);
}

void Engine::prepare(Binder& binder, Plan& plan) {
    plan.statement = m_handle.prepare(binder.sql);
}

// --- running -------------------------------------------------------------------------------------------

qint64 Engine::run(const QString& text, const ColumnsHandler& columns, const RowHandler& row) {
    noticeForeignChanges();
    const std::shared_ptr<CachedBatch> batch = batchOf(text);
    const QScopedValueRollback running(batch->running, true);
    Run run{*batch, columns, row};
    for (const Statement* statement : batch->batch->statements)
        execute(*statement, run);
    return run.affected;
}

void Engine::execute(const Statement& statement, Run& run) {
    switch (statement.kind) {
        case StatementKind::Select: {
            const Select& select = *static_cast<const SelectStatement&>(statement).select;
            return select.into.name.isEmpty() ? query(statement, run) : selectInto(select, run);
        }
        case StatementKind::Insert:
        case StatementKind::Update:
        case StatementKind::Delete:
            return change(statement, run);
        case StatementKind::If: {
            const auto& branches = static_cast<const IfStatement&>(statement);
            if (const Statement* taken = holds(branches, run) ? branches.then : branches.otherwise)
                execute(*taken, run);
            return;
        }
        case StatementKind::Block:
            for (const Statement* inner : static_cast<const BlockStatement&>(statement).statements)
                execute(*inner, run);
            return;
        case StatementKind::Execute:
            return procedure(static_cast<const ExecuteStatement&>(statement), run);
        case StatementKind::CreateTable:
            return createTable(*this, static_cast<const CreateTableStatement&>(statement));
        case StatementKind::AlterTable:
            return alterTable(*this, static_cast<const AlterTableStatement&>(statement));
        case StatementKind::DropTable:
            return dropTables(*this, static_cast<const DropTableStatement&>(statement));
        case StatementKind::CreateIndex:
            return createIndex(*this, static_cast<const CreateIndexStatement&>(statement));
        case StatementKind::DropIndex:
            return dropIndex(*this, static_cast<const DropIndexStatement&>(statement));
        case StatementKind::Setting:
            return;
    }
}

void Engine::query(const Statement& statement, Run& run) {
    const Plan& plan = planOf(statement, run);
    sqlite3_stmt* prepared = plan.statement.get();
    const auto reset = resetAtEnd(prepared);
    run.columns(plan.columns);
    const StatementRow row(prepared, plan.types);
    for (;;) {
        const int code = sqlite3_step(prepared);
        if (code == SQLITE_DONE || (code == SQLITE_ROW && !run.row(row)))
            return;
        if (code != SQLITE_ROW)
            m_handle.fail();
    }
}

bool Engine::done(const Plan& plan, Run& run) const {
    const auto reset = resetAtEnd(plan.statement.get());
    const bool done = sqlite3_step(plan.statement.get()) == SQLITE_DONE;
    if (done)
        run.affected = sqlite3_changes64(m_handle.get());
    return done;
}

void Engine::step(const Plan& plan, Run& run) {
    if (done(plan, run))
        return;
    if (plan.kind == StatementKind::Update &&
        sqlite3_extended_errcode(m_handle.get()) == SQLITE_CONSTRAINT_UNIQUE)
        return changeWithoutKeys(plan, run);
    refuseChange(plan);
}

// SQLite looks at unique keys after every row, the server once after the last: rows may change places.
void Engine::changeWithoutKeys(const Plan& plan, Run& run) {
    const Table table = m_catalogue.require({{}, Name(plan.table)});
    Savepoint savepoint(m_handle);
    for (const Index& key : table.indexes)
        if (key.kind != KeyKind::Plain)
            m_handle.run(dropIndexSql(table, key));
    if (!done(plan, run))
        refuseChange(plan);
    for (const Index& key : table.indexes)
        if (key.kind != KeyKind::Plain && sqlite3_exec(m_handle.get(), createIndexSql(table, key).c_str(),
                                                       nullptr, nullptr, nullptr) != SQLITE_OK)
            refuseChange(plan);
    savepoint.release();
}

void Engine::change(const Statement& statement, Run& run) {
    const Plan& plan = planOf(statement, run);
    step(plan, run);
}

bool Engine::holds(const IfStatement& statement, Run& run) {
    const Plan& plan = planOf(statement, run);
    const auto reset = resetAtEnd(plan.statement.get());
    const int code = sqlite3_step(plan.statement.get());
    if (code != SQLITE_ROW && code != SQLITE_DONE)
        m_handle.fail();
    return code == SQLITE_ROW;
}

void Engine::selectInto(const Select& select, Run& run) {
    Binder binder(m_catalogue);
    SelectPurpose purpose;
    purpose.placeOrder = true;
    const std::vector<OutputColumn> outputs = binder.select(select, purpose);
    if (m_catalogue.find(select.into))
        refuse(kObjectExists, select.into.name.text);
    Table table = makeTable(select.into.name.text.toString());
    for (const OutputColumn& output : outputs) {
        if (output.name.isEmpty())
            refuse(
                u"An object or column name is missing or empty. For SELECT INTO statements, verify each "
                u"column has a "
                u"name. For other statements, look for empty alias names.");
        Column column =
            makeColumn(output.name, output.bound.type.kind == Kind::Null ? integerType() : output.bound.type);
        column.nullable = output.bound.nullable;
        // A numbering goes along with the rows of one table only.
        column.identity = output.bound.identity && select.from.size() == 1 && !select.unionWith;
        table.columns.push_back(std::move(column));
    }
    refuseTwins(table);
    Savepoint savepoint(m_handle);
    m_handle.run(createTableSql(table));
    m_catalogue.changed();
    m_handle.run("INSERT INTO " + table.sql + " " + binder.sql);
    run.affected = sqlite3_changes64(m_handle.get());
    savepoint.release();
}

void Engine::procedure(const ExecuteStatement& statement, Run& outer) {
    QStringList arguments;
    for (const Expression* argument : statement.arguments)
        arguments.append(argument->kind == ExpressionKind::Negate
                             ? u'-' + argument->arguments[0]->name.text.toString()
                             : argument->name.text.toString());
    const std::optional<QString> body = companyProcedure(statement.procedure.text, arguments);
    if (!body)
        refuse(kNoProcedure, statement.procedure.text);
    outer.affected = run(*body, outer.columns, outer.row);
}

// --- refusals ------------------------------------------------------------------------------------------

void Engine::refuseChange(const Plan& plan) {
    const QString text = QString::fromUtf8(sqlite3_errmsg(m_handle.get()));
    // "NOT NULL constraint failed: table.column", "UNIQUE constraint failed: table.column, table.column"
    const QString prefix = plan.table + u'.';
    const QStringList parts = text.mid(text.indexOf(QLatin1String(": ")) + 2).split(QLatin1String(", "));
    const int code = sqlite3_extended_errcode(m_handle.get());
    if (code == SQLITE_CONSTRAINT_NOTNULL)
        refuse(
            u"Cannot insert the value NULL into column '%1', table '%2'; column does not allow nulls. %3 "
            u"fails.",
            parts[0].mid(prefix.size()), plan.table,
            QStringView(plan.kind == StatementKind::Insert ? u"INSERT" : u"UPDATE"));
    if ((code & 0xff) != SQLITE_CONSTRAINT)
        m_handle.fail();
    const QString name = plan.table;
    for (const Index& index : m_catalogue.require({{}, Name(name)}).indexes) {
        QStringList columns;
        for (const QString& column : index.columns)
            columns.append(prefix + column);
        if (index.kind == KeyKind::Plain || columns != parts)
            continue;
        const QString named = index.name;
        if (index.kind == KeyKind::Primary)
            refuse(
                u"Violation of PRIMARY KEY constraint '%1'. Cannot insert duplicate key in object 'dbo.%2'.",
                named, name);
        refuse(u"Cannot insert duplicate key row in object 'dbo.%1' with unique index '%2'.", name, named);
    }
    refuse(
        u"Violation of PRIMARY KEY constraint of the identity column. Cannot insert duplicate key in object "
        u"'dbo.%1'.",
        name);
}

}  // namespace tsql
