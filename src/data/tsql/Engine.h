// One company file, shared by the process's connections to it: runs batches and keeps their plans.
#pragma once

#include <QCache>
#include <functional>

#include "Binder.h"
#include "Connection.h"
#include "Parser.h"

namespace tsql {

using ColumnsHandler = std::function<void(const QList<data::ColumnInfo>&)>;
using RowHandler = std::function<bool(const data::RowView&)>;

class Engine {
public:
    Engine(const QString& file, bool create);

    // Runs a batch; returns the rows touched by its last change.
    qint64 run(const QString& text, const ColumnsHandler& columns, const RowHandler& row);

    void begin();
    void commit();
    void rollback();

    const Handle& handle() const { return m_handle; }
    Catalogue& catalogue() { return m_catalogue; }

    // The column, in brackets, that is the primary key of the table alone; empty where there is none.
    QString keyColumn(const QString& table);

private:
    // A statement of a batch, translated and prepared; fits while the catalogue's version stays.
    struct Plan {
        quint64 version = 0;
        PreparedStatement statement;
        QList<data::ColumnInfo> columns;
        std::vector<Type> types;
        QString table;  // that the statement changes
        StatementKind kind = StatementKind::Select;
    };
    struct CachedBatch {
        std::unique_ptr<Batch> batch;
        std::vector<Plan> plans;  // by the number of their statement
        bool running = false;
    };
    // What a running batch hands its rows to.
    struct Run {
        CachedBatch& batch;
        const ColumnsHandler& columns;
        const RowHandler& row;
        qint64 affected = 0;
    };

    std::shared_ptr<CachedBatch> batchOf(const QString& text);
    void execute(const Statement& statement, Run& run);
    void query(const Statement& statement, Run& run);
    void change(const Statement& statement, Run& run);
    void selectInto(const Select& select, Run& run);
    void procedure(const ExecuteStatement& statement, Run& run);
    bool holds(const IfStatement& statement, Run& run);
    Plan& planOf(const Statement& statement, Run& run);
    void bind(const Statement& statement, Plan& plan);
    void prepare(Binder& binder, Plan& plan);
    void noticeForeignChanges();
    bool schemaChanged();
    void step(const Plan& plan, Run& run);
    bool done(const Plan& plan, Run& run) const;
    void changeWithoutKeys(const Plan& plan, Run& run);
    [[noreturn]] void refuseChange(const Plan& plan);

    Handle m_handle;
    Catalogue m_catalogue;
    PreparedStatement m_schemaVersionQuery;
    qint64 m_schemaVersion = 0;
    quint32 m_dataVersion = 0;
    static constexpr int kCachedBatches = 48;
    QCache<QString, std::shared_ptr<CachedBatch>> m_cache{kCachedBatches};
};

// --- statements that change tables (TableStatements.cpp, AlterTable.cpp) -------------------------------
// Each is done whole, in file and catalogue, or refused in the server's words with nothing changed.
void createTable(Engine& engine, const CreateTableStatement& statement);
void dropTables(Engine& engine, const DropTableStatement& statement);
void createIndex(Engine& engine, const CreateIndexStatement& statement);
void dropIndex(Engine& engine, const DropIndexStatement& statement);
void alterTable(Engine& engine, const AlterTableStatement& statement);

// Shared between them: the column that a definition means; a key added to a table, its twins refused; two
// columns or keys of one name refused; the table of that name, refused where there is none.
Column definedColumn(Engine& engine, const ColumnDefinition& definition);
void addKey(Engine& engine, const Table& table, const KeyDefinition& key);
void refuseTwins(const Table& table);
const Table& existingTable(Engine& engine, const ObjectName& name);

}  // namespace tsql
