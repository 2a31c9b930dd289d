#include "Engine.h"

namespace tsql {
namespace {

bool hasRows(Engine& engine, const Table& table) {
    return engine.handle().number("SELECT EXISTS (SELECT 1 FROM " + table.sql + ")") != 0;
}

// Makes the table anew with other columns and moves the rows over, each in its place. `values` are the
// columns' new values over the old table.
void rebuild(Engine& engine, const Table& old, const Table& changed, const std::vector<std::string>& values) {
    const bool identity = std::any_of(changed.columns.begin(), changed.columns.end(),
                                      [](const Column& column) { return column.identity; });
    Table interim = changed;
    interim.sql =
        std::string(changed.schema()) + '.' + quotedName(changed.name + QStringLiteral(" being altered"));
    std::string names = identity ? "" : std::string(changed.rowPlace()) + ", ";
    std::string selected = identity ? "" : std::string(old.rowPlace()) + ", ";
    for (size_t i = 0; i < changed.columns.size(); ++i) {
        names += (i > 0 ? ", " : "") + changed.columns[i].sql;
        selected += (i > 0 ? ", " : "") + values[i];
    }
    const Handle& handle = engine.handle();
    handle.run(createTableSql(interim));
    handle.run("INSERT INTO " + interim.sql + "(" + names + ") SELECT " + selected + " FROM " + old.sql);
    handle.run("DROP TABLE " + old.sql);
    handle.run("ALTER TABLE " + interim.sql + " RENAME TO " + quotedName(changed.name));
    for (const Index& index : changed.indexes)
        handle.run(createIndexSql(changed, index));
}

std::vector<std::string> ownValues(const Table& table) {
    std::vector<std::string> values;
    for (const Column& column : table.columns)
        values.push_back(column.sql);
    return values;
}

void addColumn(Engine& engine, const Table& table, const ColumnDefinition& definition) {
    Column column = definedColumn(engine, definition);
    Table changed = table;
    changed.columns.push_back(column);
    refuseTwins(changed);
    const bool needsValue = !column.nullable && column.defaultSql.empty();
    if (needsValue && hasRows(engine, table))
        refuse(
            u"ALTER TABLE only allows columns to be added that can contain nulls, or have a DEFAULT "
            u"definition specified, "
            u"or the column being added is an identity or timestamp column, or alternatively if none of the "
            u"previous "
            u"conditions are satisfied the table must be empty to allow addition of this column. Column '%1' "
            u"cannot be "
            u"added to non-empty table '%2' because it does not satisfy these conditions.",
            column.name, table.name);
    if (needsValue || column.identity) {
        std::vector<std::string> values = ownValues(table);
        values.push_back("NULL");
        return rebuild(engine, table, changed, values);
    }
    engine.handle().run("ALTER TABLE " + table.sql + " ADD COLUMN " + columnSql(column));
    // Rows that stand already keep NULL where they may.
    if (column.nullable && !column.defaultSql.empty())
        engine.handle().run("UPDATE " + table.sql + " SET " + column.sql + " = NULL");
}

void alterColumn(Engine& engine, const Table& table, const ColumnDefinition& definition) {
    const int place = table.find(definition.name);
    if (place < 0)
        refuse(u"ALTER TABLE ALTER COLUMN failed because column '%1' does not exist in table '%2'.",
               definition.name.text, table.name);
    const Column& before = table.columns[size_t(place)];
    Table changed = table;
    Column& column = changed.columns[size_t(place)];
    column.type = definition.type;
    column.nullable = definition.nullable;
    for (const Index& index : table.indexes)
        if (index.kind == KeyKind::Primary &&
            std::find(index.columns.begin(), index.columns.end(), before.name) != index.columns.end())
            column.nullable = false;
    if (column.type == before.type && column.nullable == before.nullable)
        return;
    if (!column.nullable && engine.handle().number("SELECT EXISTS (SELECT 1 FROM " + table.sql + " WHERE " +
                                                   before.sql + " IS NULL)") != 0)
        refuse(
            u"Cannot insert the value NULL into column '%1', table '%2'; column does not allow nulls. UPDATE "
            u"fails.",
            before.name, table.name);
    Binder binder(engine.catalogue());
    binder.sql = before.sql;
    Bound bound{before.type, before.nullable, false, true, nullptr};
    binder.coerce(0, bound, column.type, Purpose::Assignment);
    std::vector<std::string> values = ownValues(table);
    values[size_t(place)] = binder.sql;
    rebuild(engine, table, changed, values);
}

void dropColumn(Engine& engine, const Table& table, const Name& name) {
    const int place = table.find(name);
    if (place < 0)
        refuse(u"ALTER TABLE DROP COLUMN failed because column '%1' does not exist in table '%2'.", name.text,
               table.name);
    const QString column = table.columns[size_t(place)].name;
    for (const Index& index : table.indexes)
        if (std::find(index.columns.begin(), index.columns.end(), column) != index.columns.end())
            refuse(u"ALTER TABLE DROP COLUMN %1 failed because one or more objects access this column.",
                   column);
    if (table.columns.size() == 1)
        refuse(
            u"ALTER TABLE DROP COLUMN failed because '%1' is the only data column in table '%2'. A table "
            u"must have at "
            u"least one data column.",
            column, table.name);
    Table changed = table;
    changed.columns.erase(changed.columns.begin() + place);
    rebuild(engine, table, changed, ownValues(changed));
}

}  // namespace

void alterTable(Engine& engine, const AlterTableStatement& statement) {
    Savepoint savepoint(engine.handle());
    // Each step reads the table as the one before left it; a step that fails undoes them all.
    const auto step = [&](const auto& change) {
        const Table table = existingTable(engine, statement.table);
        engine.catalogue().changed();
        change(table);
    };
    for (const ColumnDefinition& definition : statement.columns)
        step([&](const Table& table) {
            statement.change == AlterKind::AlterColumn ? alterColumn(engine, table, definition)
                                                       : addColumn(engine, table, definition);
        });
    for (const KeyDefinition& key : statement.keys)
        step([&](const Table& table) { addKey(engine, table, key); });
    for (const Name& name : statement.dropped)
        step([&](const Table& table) { dropColumn(engine, table, name); });
    savepoint.release();
}

}  // namespace tsql
