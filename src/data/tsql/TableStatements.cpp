// CREATE of tables and indexes, DROP of tables.
#include "Engine.h"

namespace tsql {
namespace {

std::string defaultSql(Engine& engine, const Expression& value, const Type& type) {
    Binder binder(engine.catalogue());
    Scope scope;
    Bound bound = binder.expression(value, scope);
    binder.coerce(0, bound, type, Purpose::Assignment);
    return binder.sql;
}

bool isKeyed(const CreateTableStatement& statement, const Name& column) {
    for (const KeyDefinition& key : statement.keys)
        if (key.kind == KeyKind::Primary &&
            std::find(key.columns.begin(), key.columns.end(), column) != key.columns.end())
            return true;
    return false;
}

}  // namespace

Column definedColumn(Engine& engine, const ColumnDefinition& definition) {
    Column column = makeColumn(definition.name.text.toString(), definition.type);
    column.nullable = definition.nullable;
    column.identity = definition.identity;
    if (definition.defaultValue && definition.defaultValue->kind != ExpressionKind::Null)
        column.defaultSql = defaultSql(engine, *definition.defaultValue, definition.type);
    return column;
}

void refuseTwins(const Table& table) {
    for (size_t i = 0; i < table.columns.size(); ++i)
        for (size_t j = 0; j < i; ++j)
            if (table.columns[i].hash == table.columns[j].hash &&
                sameName(table.columns[i].name, table.columns[j].name))
                refuse(kTwiceInTable, table.columns[i].name, table.name);
}

const Table& existingTable(Engine& engine, const ObjectName& name) {
    const Table* table = engine.catalogue().find(name);
    if (!table || table->system)
        refuse(u"Cannot find the object \"%1\" because it does not exist or you do not have permissions.",
               name.name.text);
    return *table;
}

void addKey(Engine& engine, const Table& table, const KeyDefinition& key) {
    Index index;
    index.kind = key.kind;
    index.name =
        key.name.isEmpty()
            ? (key.kind == KeyKind::Primary ? QStringLiteral("PK__") : QStringLiteral("UQ__")) + table.name
            : key.name.text.toString();
    for (const Index& other : table.indexes) {
        if (sameName(other.name, index.name))
            refuse(
                u"The operation failed because an index or statistics with name '%1' already exists on table "
                u"'%2'.",
                index.name, table.name);
        if (key.kind == KeyKind::Primary && other.kind == KeyKind::Primary)
            refuse(u"Table '%1' already has a primary key defined on it.", table.name);
    }
    for (const Name& name : key.columns) {
        const int place = table.find(name);
        if (place < 0)
            refuse(u"Column name '%1' does not exist in the target table or view.", name.text);
        if (key.kind == KeyKind::Primary && table.columns[size_t(place)].nullable)
            refuse(u"Cannot define PRIMARY KEY constraint on nullable column in table '%1'.", table.name);
        index.columns.push_back(table.columns[size_t(place)].name);
    }
    const std::string sql = createIndexSql(table, index);
    if (sqlite3_exec(engine.handle().get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        if ((sqlite3_errcode(engine.handle().get()) & 0xff) == SQLITE_CONSTRAINT)
            refuse(
                u"The CREATE UNIQUE INDEX statement terminated because a duplicate key was found for the "
                u"object name "
                u"'dbo.%1' and the index name '%2'.",
                table.name, index.name);
        engine.handle().fail();
    }
}

void createTable(Engine& engine, const CreateTableStatement& statement) {
    if (engine.catalogue().find(statement.table))
        refuse(kObjectExists, statement.table.name.text);
    Table table = makeTable(statement.table.name.text.toString());
    qint64 seed = 1;
    for (const ColumnDefinition& definition : statement.columns) {
        Column column = definedColumn(engine, definition);
        if (!definition.nullabilityGiven && isKeyed(statement, definition.name))
            column.nullable = false;
        if (column.identity)
            seed = definition.identitySeed;
        table.columns.push_back(std::move(column));
    }
    refuseTwins(table);
    Savepoint savepoint(engine.handle());
    engine.handle().run(createTableSql(table));
    engine.catalogue().changed();
    for (const KeyDefinition& key : statement.keys)
        addKey(engine, table, key);
    if (seed != 1) {
        std::string name;
        appendText(name, table.name);
        engine.handle().run(std::string("INSERT INTO ") + table.schema() +
                            ".sqlite_sequence(name, seq) VALUES (" + name + ", " + std::to_string(seed - 1) +
                            ")");
    }
    savepoint.release();
}

void dropTables(Engine& engine, const DropTableStatement& statement) {
    for (const ObjectName& name : statement.tables) {
        const Table* table = engine.catalogue().find(name);
        if (!table || table->system)
            refuse(u"Cannot drop the table '%1', because it does not exist or you do not have permission.",
                   name.name.text);
        const std::string sql = "DROP TABLE " + table->sql;
        engine.catalogue().changed();
        engine.handle().run(sql);
    }
}

void createIndex(Engine& engine, const CreateIndexStatement& statement) {
    addKey(engine, existingTable(engine, statement.table), statement.key);
    engine.catalogue().changed();
}

}  // namespace tsql
