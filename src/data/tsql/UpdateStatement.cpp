#include "Changes.h"

namespace tsql {
namespace {

bool onlyInner(std::span<const TableReference> from) {
    return std::all_of(from.begin(), from.end(), [](const TableReference& reference) {
        return reference.join == JoinKind::Comma || reference.join == JoinKind::Inner ||
               reference.join == JoinKind::Cross;
    });
}

bool holdsSelect(const Expression& expression) {
    return expression.select ||
           std::any_of(expression.arguments.begin(), expression.arguments.end(),
                       [](const Expression* argument) { return holdsSelect(*argument); });
}

std::vector<const Column*> assignedColumns(const UpdateStatement& statement, const Table& table) {
    std::vector<const Column*> columns;
    for (const Assignment& assignment : statement.assignments) {
        const Column& column = table.require(assignment.column);
        if (column.identity)
            refuse(u"Cannot update identity column '%1'.", column.name);
        if (std::find(columns.begin(), columns.end(), &column) != columns.end())
            refuse(kTwiceAssigned, column.name);
        columns.push_back(&column);
    }
    return columns;
}

void assignments(Binder& binder, const UpdateStatement& statement, const Table& table, Scope& scope) {
    const std::vector<const Column*> columns = assignedColumns(statement, table);
    for (size_t i = 0; i < columns.size(); ++i) {
        binder.sql += (i == 0 ? " SET " : ", ") + columns[i]->sql + " = ";
        binder.assigned(*statement.assignments[i].value, *columns[i], scope);
    }
}

// The other tables of an inner join become SQLite's FROM, their conditions part of WHERE.
void joinedUpdate(Binder& binder, const UpdateStatement& statement, const Table& table, size_t place) {
    std::string& sql = binder.sql;
    Scope scope;
    scope.qualify = true;
    scope.sources.push_back(binder.source(statement.from[place]));
    sql += "UPDATE " + table.sql + " AS " + scope.sources[0].sql;
    const size_t start = sql.size();
    for (size_t i = 0; i < statement.from.size(); ++i) {
        if (i == place)
            continue;
        sql += scope.sources.size() == 1 ? " FROM " : ", ";
        Source next = binder.source(statement.from[i]);
        binder.sourceText(statement.from[i], next);
        scope.sources.push_back(std::move(next));
    }
    const std::string fromText = binder.cut(start);
    assignments(binder, statement, table, scope);
    sql += fromText;
    const char* separator = " WHERE (";
    const auto restrict = [&](const Expression* condition) {
        if (!condition)
            return;
        sql += separator;
        separator = ") AND (";
        binder.condition(*condition, scope);
    };
    for (const TableReference& reference : statement.from)
        restrict(reference.on);
    restrict(statement.where);
    sql += *separator == ')' ? ")" : "";
}

// Values that come out of a select are all worked out before the first is written: the rows to change are
// found by their place beside them.
void updateFromSelect(Binder& binder, const UpdateStatement& statement, const Table& table, int place) {
    std::string& sql = binder.sql;
    std::vector<TableReference> from(statement.from.begin(), statement.from.end());
    if (place < 0) {
        TableReference target;
        target.table = statement.table;
        from.insert(from.begin(), target);
        place = 0;
    }
    const std::vector<const Column*> columns = assignedColumns(statement, table);
    sql += "UPDATE " + table.sql + " AS \"changed row\" SET ";
    for (size_t i = 0; i < columns.size(); ++i)
        sql += (i > 0 ? ", " : "") + columns[i]->sql + " = found.\"" + std::to_string(i) + '"';
    sql += " FROM (SELECT ";
    const size_t start = sql.size();
    Scope scope;
    sql += " FROM ";
    binder.from(from, scope);
    scope.qualify = true;
    const std::string fromText = binder.cut(start);
    sql += scope.sources[size_t(place)].sql + '.' + table.rowPlace() + " AS place";
    for (size_t i = 0; i < columns.size(); ++i) {
        sql += ", ";
        binder.assigned(*statement.assignments[i].value, *columns[i], scope);
        sql += " AS \"" + std::to_string(i) + '"';
    }
    sql += fromText;
    if (statement.where) {
        sql += " WHERE ";
        binder.condition(*statement.where, scope);
    }
    sql += std::string(") AS found WHERE \"changed row\".") + table.rowPlace() + " = found.place";
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
    const bool selects = std::any_of(statement.assignments.begin(), statement.assignments.end(),
                                     [](const Assignment& one) { return holdsSelect(*one.value); });
    if (statement.top && (selects || !statement.from.empty()))
        refuse(kSyntax, QStringView(u"top"));
    if (place >= 0 && onlyInner(statement.from) && (statement.from.size() > 1 || !selects)) {
        joinedUpdate(binder, statement, table, size_t(place));
        return table;
    }
    if (selects || !statement.from.empty()) {
        updateFromSelect(binder, statement, table, place);
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
    if (statement.top) {
        binder.sql += " LIMIT ";
        binder.expression(*statement.top, scope);
    }
    return table;
}

}  // namespace tsql
