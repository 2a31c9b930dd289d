#include "Changes.h"

namespace tsql {

const Table& bindDelete(Binder& binder, const DeleteStatement& statement) {
    const int place = targetPlace(statement.table, statement.from);
    const Table& table =
        changeable(binder, place >= 0 ? statement.from[size_t(place)].table : statement.table);
    std::string& sql = binder.sql;
    sql += "DELETE FROM " + table.sql;
    Scope scope;
    if (statement.from.empty()) {
        TableReference target;
        target.table = statement.table;
        scope.sources.push_back(binder.source(target));
        if (statement.where) {
            sql += " WHERE ";
            binder.condition(*statement.where, scope);
        }
        if (statement.top) {
            sql += " LIMIT ";
            binder.expression(*statement.top, scope);
        }
        return table;
    }
    if (statement.top)
        refuse(kSyntax, QStringView(u"top"));
    if (place < 0)
        refuse(kNoObject, statement.table.name.text);
    const size_t start = sql.size();
    sql += " FROM ";
    binder.from(statement.from, scope);
    const std::string fromText = sql.substr(start);
    sql.resize(start);
    sql += std::string(" WHERE ") + table.rowPlace() + " IN (SELECT " + scope.sources[size_t(place)].sql +
           '.' + table.rowPlace() + fromText;
    if (statement.where) {
        sql += " WHERE ";
        binder.condition(*statement.where, scope);
    }
    sql += ')';
    return table;
}

}  // namespace tsql
