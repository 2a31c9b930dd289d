// The tables of a company and of its "##" tables, as T-SQL sees them. All of it is read back from the
// file: declared types stand in the columns' declarations, keys and indexes in the names of SQLite's
// indexes ("primary:table:name").
#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "Ast.h"
#include "Handle.h"

namespace tsql {

// A column as it is declared.
struct Column {
    QString name;
    quint32 hash = 0;
    Type type;
    bool nullable = true;
    bool identity = false;
    std::string defaultSql;  // SQLite's text of the default, empty without one
    std::string sql;         // the quoted name
};

// A key or an index. Only a primary or unique one tells rows apart.
struct Index {
    KeyKind kind = KeyKind::Plain;
    QString name;
    std::vector<QString> columns;
};

// A table of the company's file, or one of the process; names compare without letter case.
struct Table {
    QString name;
    bool temporary = false;
    bool system = false;  // a view of the catalogue
    std::vector<Column> columns;
    std::vector<Index> indexes;
    std::string sql;  // the quoted name with its schema

    int find(const Name& column) const;  // -1 when there is none
    const Column& require(const Name& column) const;
    // SQLite's name of the row's place, one that no column hides.
    const char* rowPlace() const;
    const char* schema() const { return temporary ? "temp" : "main"; }
};

// A column that may be NULL and has no default; hash and quoted name follow from its name.
Column makeColumn(const QString& name, const Type& type);
// A table to be made; its quoted name follows from its name.
Table makeTable(const QString& name);

// The statements that make a table and its indexes, and a column's part of them.
std::string columnSql(const Column& column);
std::string createTableSql(const Table& table);
std::string createIndexSql(const Table& table, const Index& index);
std::string dropIndexSql(const Table& table, const Index& index);
// SQLite's name of an index; T-SQL's index names are unique in their table only.
QString indexName(const QString& table, const Index& index);

class Catalogue {
public:
    explicit Catalogue(const Handle& handle);

    // Null when there is no such table. Valid until the next change.
    const Table* find(const ObjectName& name);
    // Throws "Invalid object name".
    const Table& require(const ObjectName& name);
    // Grows with every change, so that a plan knows whether it still fits.
    quint64 version() const { return m_version; }
    // To be called after a table was made, altered or dropped.
    void changed();

private:
    const Table* load(const ObjectName& name);
    void loadColumns(Table& table);
    void loadIndexes(Table& table);

    const Handle& m_handle;
    std::unordered_multimap<quint32, std::unique_ptr<Table>> m_tables;
    std::vector<std::unique_ptr<Table>> m_systemTables;
    quint64 m_version = 1;
};

}  // namespace tsql
