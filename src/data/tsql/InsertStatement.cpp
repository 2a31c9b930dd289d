#include "Changes.h"

namespace tsql {
namespace {

constexpr char16_t kCountMismatch[] =
    u"Column name or number of supplied values does not match table definition.";

std::vector<const Column*> targetColumns(const InsertStatement& statement, const Table& table) {
    std::vector<const Column*> result;
    for (const Name& name : statement.columns) {
        const Column& column = table.require(name);
        if (std::find(result.begin(), result.end(), &column) != result.end())
            refuse(kTwiceAssigned, column.name);
        if (column.identity)
            refuse(
                u"Cannot insert explicit value for identity column in table '%1' when IDENTITY_INSERT is set "
                u"to OFF.",
                table.name);
        result.push_back(&column);
    }
    if (statement.columns.empty())
        for (const Column& column : table.columns)
            if (!column.identity)
                result.push_back(&column);
    return result;
}

void checkRowSize(const InsertStatement& statement, size_t given, size_t wanted) {
    if (given == wanted)
        return;
    if (statement.columns.empty())
        refuse(kCountMismatch);
    const bool select = statement.select != nullptr;
    const QString relation = given < wanted ? QStringLiteral("more") : QStringLiteral("fewer");
    if (!select)
        refuse(
            u"There are %1 columns in the INSERT statement than values specified in the VALUES clause. The "
            u"number of "
            u"values in the VALUES clause must match the number of columns specified in the INSERT "
            u"statement.",
            relation);
    refuse(
        u"The select list for the INSERT statement contains %1 items than the insert list. The number of "
        u"SELECT values "
        u"must match the number of INSERT columns.",
        given < wanted ? QStringLiteral("fewer") : QStringLiteral("more"));
}

void bindRows(Binder& binder, const InsertStatement& statement, const std::vector<const Column*>& columns) {
    Scope scope;
    for (const auto& row : statement.rows) {
        checkRowSize(statement, row.size(), columns.size());
        binder.sql += &row == statement.rows.data() ? " VALUES (" : ", (";
        for (size_t i = 0; i < row.size(); ++i) {
            if (i > 0)
                binder.sql += ", ";
            if (row[i]->kind == ExpressionKind::Column)
                refuse(
                    u"The name \"%1\" is not permitted in this context. Valid expressions are constants, "
                    u"constant "
                    u"expressions, and (in some contexts) variables. Column names are not permitted.",
                    row[i]->name.text);
            binder.assigned(*row[i], *columns[i], scope);
        }
        binder.sql += ')';
    }
}

}  // namespace

const Table& changeable(Binder& binder, const ObjectName& name) {
    const Table& table = binder.catalogue().require(name);
    if (table.system)
        refuse(u"Ad hoc updates to system catalogs are not allowed.");
    return table;
}

const Table& bindInsert(Binder& binder, const InsertStatement& statement) {
    const Table& table = changeable(binder, statement.table);
    std::string& sql = binder.sql;
    sql += "INSERT INTO " + table.sql;
    if (statement.defaults) {
        sql += " DEFAULT VALUES";
        return table;
    }
    const std::vector<const Column*> columns = targetColumns(statement, table);
    for (size_t i = 0; i < columns.size(); ++i)
        sql += (i == 0 ? "(" : ", ") + columns[i]->sql;
    sql += ')';
    if (!statement.select) {
        bindRows(binder, statement, columns);
        return table;
    }
    std::vector<Type> types;
    types.reserve(columns.size());
    for (const Column* column : columns)
        types.push_back(column->type);
    SelectPurpose purpose;
    purpose.placeOrder = true;
    purpose.targets = &types;
    sql += ' ';
    checkRowSize(statement, binder.select(*statement.select, purpose).size(), columns.size());
    return table;
}

}  // namespace tsql
