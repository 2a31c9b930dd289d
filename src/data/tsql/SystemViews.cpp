#include "SystemViews.h"

#include "CompanyProcedures.h"

namespace tsql {
namespace {

constexpr const char* kTables = " WHERE m.type = 'table' AND m.name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ";

std::string viewName(const char* name, bool temporary) {
    return std::string(temporary ? "tempdb..." : "company...") + name;
}

std::unique_ptr<Table> systemTable(const char* name, bool temporary, std::vector<Column> columns) {
    auto table = std::make_unique<Table>();
    table->name = QString::fromLatin1(name);
    table->temporary = temporary;
    table->system = true;
    table->columns = std::move(columns);
    table->sql = "temp.\"" + viewName(name, temporary) + '"';
    return table;
}

std::vector<Column> columnsOf(std::initializer_list<std::pair<const char*, Type>> list) {
    std::vector<Column> result;
    for (const auto& [name, type] : list)
        result.push_back(makeColumn(QString::fromLatin1(name), type));
    return result;
}

std::string objectsView(bool temporary) {
    const std::string schema = temporary ? "temp" : "main";
    std::string sql = "SELECT m.name AS name, m.rowid AS id, 'U ' AS xtype, 'U ' AS type, 1 AS uid FROM " +
                      schema + ".sqlite_master m" + kTables;
    if (!temporary)
        for (const QString& procedure : companyProcedureNames())
            sql += " UNION ALL SELECT '" + procedure.toStdString() + "', " +
                   std::to_string(-1 - companyProcedureNames().indexOf(procedure)) + ", 'P ', 'P ', 1";
    return sql;
}

std::string columnsView(bool temporary) {
    const std::string schema = temporary ? "temp" : "main";
    return "SELECT c.name AS name, m.rowid AS id, c.cid + 1 AS colid, c.cid + 1 AS colorder, "
           "stored_bytes(c.type) AS length, 1 - c.\"notnull\" AS isnullable FROM " +
           schema + ".sqlite_master m, pragma_table_info(m.name, '" + schema + "') c" + kTables;
}

void storedBytesOf(sqlite3_context* context, int, sqlite3_value** values) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(values[0]));
    sqlite3_result_int(context, storedBytes(typeDeclared(QString::fromUtf8(text))));
}

}  // namespace

std::vector<std::unique_ptr<Table>> systemTables() {
    const Type name{Kind::NVarChar, 0, 0, 128}, mark{Kind::Char, 0, 0, 2}, small{Kind::SmallInt};
    std::vector<std::unique_ptr<Table>> result;
    for (bool temporary : {false, true}) {
        result.push_back(systemTable(
            "sysobjects", temporary,
            columnsOf(
                {{"name", name}, {"id", integerType()}, {"xtype", mark}, {"type", mark}, {"uid", small}})));
        result.push_back(systemTable("syscolumns", temporary,
                                     columnsOf({{"name", name},
                                                {"id", integerType()},
                                                {"colid", small},
                                                {"colorder", small},
                                                {"length", small},
                                                {"isnullable", integerType()}})));
    }
    return result;
}

void createSystemViews(const Handle& handle) {
    sqlite3_create_function_v2(handle.get(), "stored_bytes", 1,
                               SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS, nullptr, storedBytesOf,
                               nullptr, nullptr, nullptr);
    for (bool temporary : {false, true}) {
        handle.run("CREATE TEMP VIEW \"" + viewName("sysobjects", temporary) + "\" AS " +
                   objectsView(temporary));
        handle.run("CREATE TEMP VIEW \"" + viewName("syscolumns", temporary) + "\" AS " +
                   columnsView(temporary));
    }
}

}  // namespace tsql
