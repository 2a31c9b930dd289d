#include "Changes.h"

namespace tsql {
namespace {

bool onlyInner(std::span<const TableReference> from) {
    return std::all_of(from.begin(), from.end(), [](const TableReference& reference) {
        return reference.join == JoinKind::Comma || reference.join == JoinKind::Inner ||
               reference.join == JoinKind::Cross;
    });
}

void assignments(Binder& binder, const UpdateStatement& statement, const Table& table, Scope& scope) {
    std::vector<const Column*> seen;
    for (const Assignment& assignment : statement.assignments) {
        const Column& column = table.require(assignment.column);
        if (column.identity)
            refuse(u"Cannot update identity column '%1'.", column.name);
        if (std::find(seen.begin(), seen.end(), &column) != seen.end())
            refuse(kTwiceAssigned, column.name);
        binder.sql += seen.empty() ? " SET " : ", ";
        seen.push_back(&column);
        binder.sql += column.sql + " = ";
        binder.assigned(*assignment.value, column, scope);
    }
}

// The other tables of an inner join become SQLite's FROM, their conditions part of WHERE.
void joinedUpdate(Binder& binder, const UpdateStatement& statement, const Table& table, int place) {
    std::string& sql = binder.sql;
    Scope scope;
    scope.qualify = true;
    scope.sources.reserve(statement.from.size() + 1);
    TableReference target;
    target.table = statement.table;
    if (place >= 0)
        target = statement.from[size_t(place)];
    scope.sources.push_back(binder.source(target));
    scope.sources[0].table = &table;
    sql += "UPDATE " + table.sql + " AS " + scope.sources[0].sql;

    const size_t start = sql.size();
    const char* separator = " FROM ";
    for (size_t i = 0; i < statement.from.size(); ++i) {
        if (int(i) == place)
            continue;
        sql += separator;
        separator = ", ";
        Source next = binder.source(statement.from[i]);
        binder.sourceText(statement.from[i], next);
        scope.sources.push_back(std::move(next));
    }
    const std::string fromText = sql.substr(start);
    sql.resize(start);
    assignments(binder, statement, table, scope);
    sql += fromText;
    separator = " WHERE ";
    for (const TableReference& reference : statement.from) {
        if (!reference.on)
            continue;
        sql += separator;
        separator = " AND ";
        binder.condition(*reference.on, scope);
    }
    if (statement.where) {
        sql += separator;
        binder.condition(*statement.where, scope);
    }
}

// An outer join keeps its shape; the rows to change are found by their place.
void outerUpdate(Binder& binder, const UpdateStatement& statement, const Table& table, int place) {
    std::string& sql = binder.sql;
    sql += "UPDATE " + table.sql + " AS \"changed row\"";
    const size_t start = sql.size();
    Scope scope;
    sql += " FROM ";
    binder.from(statement.from, scope);
    scope.qualify = true;
    const std::string fromText = sql.substr(start);
    sql.resize(start);
    assignments(binder, statement, table, scope);
    sql += fromText + " WHERE \"changed row\"." + table.rowPlace() + " = " +
           scope.sources[size_t(place)].sql + '.' + table.rowPlace();
    if (statement.where) {
        sql += " AND ";
        binder.condition(*statement.where, scope);
    }
}

}  // namespace

int targetPlace(const ObjectName& target, std::span<const TableReference> from) {
    for (size_t i = 0; i < from.size(); ++i)
        if (from[i].alias == target.name && !target.name.isEmpty())
            return int(i);
    for (size_t i = 0; i < from.size(); ++i)
        if (!from[i].derived && from[i].table.name == target.name)
            return int(i);
    return -1;
}

const Table& bindUpdate(Binder& binder, const UpdateStatement& statement) {
    const int place = targetPlace(statement.table, statement.from);
    const Table& table =
        changeable(binder, place >= 0 ? statement.from[size_t(place)].table : statement.table);
    if (!statement.from.empty()) {
        if (onlyInner(statement.from) || place < 0)
            joinedUpdate(binder, statement, table, place);
        else
            outerUpdate(binder, statement, table, place);
        return table;
    }
    Scope scope;
    TableReference target;
    target.table = statement.table;
    scope.sources.push_back(binder.source(target));
    binder.sql += "UPDATE " + table.sql;
    assignments(binder, statement, table, scope);
    if (statement.where) {
        binder.sql += " WHERE ";
        binder.condition(*statement.where, scope);
    }
    return table;
}

}  // namespace tsql
