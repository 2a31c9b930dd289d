#include "Catalogue.h"

#include "Collation.h"
#include "ServerText.h"
#include "SystemViews.h"

namespace tsql {
namespace {

constexpr QLatin1String kMarks[] = {QLatin1String("plain"), QLatin1String("unique"),
                                    QLatin1String("primary")};

bool isTemporary(QStringView name) {
    return name.startsWith(u'#');
}

std::string textLiteral(const QString& text) {
    std::string result;
    appendText(result, text);
    return result;
}

}  // namespace

int Table::find(const Name& column) const {
    for (size_t i = 0; i < columns.size(); ++i)
        if (columns[i].hash == column.hash && sameName(columns[i].name, column.text))
            return int(i);
    return -1;
}

const Column& Table::require(const Name& column) const {
    const int place = find(column);
    if (place < 0)
        refuse(kNoColumn, column.text);
    return columns[size_t(place)];
}

const char* Table::rowPlace() const {
    static constexpr const char* kNames[] = {"rowid", "_rowid_", "oid"};
    for (const char* name : kNames)
        if (find(Name(QString::fromLatin1(name))) < 0)
            return name;
    return kNames[0];
}

Column makeColumn(const QString& name, const Type& type) {
    Column column;
    column.name = name;
    column.hash = foldedHash(name);
    column.type = type;
    column.sql = quotedName(name);
    return column;
}

Table makeTable(const QString& name) {
    Table table;
    table.name = name;
    table.temporary = isTemporary(name);
    table.sql = std::string(table.schema()) + '.' + quotedName(name);
    return table;
}

std::string columnSql(const Column& column) {
    std::string sql = column.sql + ' ';
    if (column.identity)
        sql += "INTEGER PRIMARY KEY AUTOINCREMENT";
    else
        appendUtf8(sql, declaration(column.type));
    if (column.type.isText())
        sql += std::string(" COLLATE ") + kCollation;
    if (!column.nullable)
        sql += " NOT NULL";
    if (!column.defaultSql.empty())
        sql += " DEFAULT (" + column.defaultSql + ")";
    return sql;
}

std::string createTableSql(const Table& table) {
    std::string sql = "CREATE TABLE " + table.sql + "(";
    for (const Column& column : table.columns)
        sql += columnSql(column) + ",";
    sql.back() = ')';
    return sql;
}

QString indexName(const QString& table, const Index& index) {
    return kMarks[int(index.kind)] + u':' + table + u':' + index.name;
}

std::string createIndexSql(const Table& table, const Index& index) {
    std::string sql = index.kind == KeyKind::Plain ? "CREATE INDEX " : "CREATE UNIQUE INDEX ";
    sql += std::string(table.schema()) + '.';
    appendName(sql, indexName(table.name, index));
    sql += " ON " + quotedName(table.name) + "(";
    for (const QString& column : index.columns)
        sql += quotedName(column) + ",";
    sql.back() = ')';
    return sql;
}

std::string dropIndexSql(const Table& table, const Index& index) {
    std::string sql = std::string("DROP INDEX ") + table.schema() + '.';
    appendName(sql, indexName(table.name, index));
    return sql;
}

Catalogue::Catalogue(const Handle& handle) : m_handle(handle), m_systemTables(systemTables()) {}

const Table* Catalogue::find(const ObjectName& name) {
    const bool inTemporary = sameName(name.database.text, u"tempdb");
    for (const auto& table : m_systemTables)
        if (table->temporary == inTemporary && sameName(table->name, name.name.text))
            return table.get();
    if (!name.database.isEmpty() && !(inTemporary && isTemporary(name.name.text)))
        return nullptr;
    const auto [first, last] = m_tables.equal_range(name.name.hash);
    for (auto it = first; it != last; ++it)
        if (sameName(it->second->name, name.name.text))
            return it->second.get();
    return load(name);
}

const Table& Catalogue::require(const ObjectName& name) {
    if (const Table* table = find(name))
        return *table;
    if (name.database.isEmpty())
        refuse(kNoObject, name.name.text);
    refuse(u"Invalid object name '%1..%2'.", name.database.text, name.name.text);
}

void Catalogue::changed() {
    m_tables.clear();
    ++m_version;
}

const Table* Catalogue::load(const ObjectName& name) {
    const QString wanted = name.name.text.toString();
    Table shape = makeTable(wanted);
    const PreparedStatement lookup = m_handle.prepare(
        std::string("SELECT name FROM ") + shape.schema() +
        ".sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' AND name = " +
        textLiteral(wanted) + " COLLATE NOCASE");
    if (sqlite3_step(lookup.get()) != SQLITE_ROW)
        return nullptr;
    auto table = std::make_unique<Table>(makeTable(columnText(lookup.get(), 0)));
    loadColumns(*table);
    loadIndexes(*table);
    return m_tables.emplace(name.name.hash, std::move(table))->second.get();
}

void Catalogue::loadColumns(Table& table) {
    const PreparedStatement rows =
        m_handle.prepare("SELECT name, type, \"notnull\", dflt_value, pk FROM pragma_table_info(" +
                         textLiteral(table.name) + ", '" + table.schema() + "')");
    while (sqlite3_step(rows.get()) == SQLITE_ROW) {
        Column column = makeColumn(columnText(rows.get(), 0), typeDeclared(columnText(rows.get(), 1)));
        column.nullable = sqlite3_column_int(rows.get(), 2) == 0;
        column.defaultSql = columnText(rows.get(), 3).toStdString();
        column.identity = sqlite3_column_int(rows.get(), 4) != 0;
        table.columns.push_back(std::move(column));
    }
}

void Catalogue::loadIndexes(Table& table) {
    const PreparedStatement rows =
        m_handle.prepare(std::string("SELECT i.name, c.name FROM ") + table.schema() +
                         ".sqlite_master i, pragma_index_info(i.name, '" + table.schema() +
                         "') c WHERE i.type = 'index' AND i.tbl_name = " + textLiteral(table.name) +
                         " COLLATE NOCASE ORDER BY i.rowid, c.seqno");
    QString previous;
    while (sqlite3_step(rows.get()) == SQLITE_ROW) {
        const QString name = columnText(rows.get(), 0);
        if (name != previous) {
            Index index;
            for (int kind = 0; kind < 3; ++kind)
                if (name.startsWith(kMarks[kind] + u':'))
                    index.kind = KeyKind(kind);
            index.name = name.mid(kMarks[int(index.kind)].size() + table.name.size() + 2);
            table.indexes.push_back(std::move(index));
            previous = name;
        }
        table.indexes.back().columns.push_back(columnText(rows.get(), 1));
    }
}

}  // namespace tsql
