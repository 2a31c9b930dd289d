#include "Binder.h"
#include "Collation.h"

namespace tsql {
namespace {

bool holdsAggregate(const Expression& expression) {
    if (isAggregate(expression))
        return true;
    for (const Expression* argument : expression.arguments)
        if (holdsAggregate(*argument))
            return true;
    return false;
}

bool isGrouped(const Select& select) {
    if (!select.groupBy.empty() || select.having)
        return true;
    for (const SelectItem& item : select.items)
        if (item.value && holdsAggregate(*item.value))
            return true;
    return false;
}

const char* joinText(JoinKind kind) {
    switch (kind) {
        case JoinKind::Comma:
            return ", ";
        case JoinKind::Left:
            return " LEFT JOIN ";
        case JoinKind::Right:
            return " RIGHT JOIN ";
        case JoinKind::Full:
            return " FULL JOIN ";
        case JoinKind::Cross:
            return " CROSS JOIN ";
        case JoinKind::Inner:
            break;
    }
    return " JOIN ";
}

}  // namespace

// --- FROM --------------------------------------------------------------------------------------------

Source Binder::source(const TableReference& reference) {
    Source result;
    if (!reference.derived)
        result.table = &m_catalogue.require(reference.table);
    result.alias = reference.alias.isEmpty() ? reference.table.name : reference.alias;
    result.sql = quotedName(result.alias.text);
    return result;
}

void Binder::sourceText(const TableReference& reference, Source& source) {
    if (!reference.derived) {
        sql += source.table->sql + " AS " + source.sql;
        return;
    }
    sql += '(';
    SelectPurpose purpose;
    purpose.named = true;
    for (const OutputColumn& output : select(*reference.derived, purpose)) {
        if (output.name.isEmpty())
            refuse(u"No column name was specified for column %1 of '%2'.",
                   QString::number(source.derived.size() + 1), source.alias.text);
        Column column = makeColumn(output.name, output.bound.type);
        column.nullable = output.bound.nullable;
        source.derived.push_back(std::move(column));
    }
    sql += ") AS " + source.sql;
}

void Binder::from(std::span<const TableReference> references, Scope& scope) {
    scope.qualify = references.size() > 1;
    scope.sources.reserve(references.size());
    for (const TableReference& reference : references) {
        if (&reference != references.data())
            sql += joinText(reference.join);
        Source next = source(reference);
        for (const Source& other : scope.sources)
            if (other.alias == next.alias)
                refuse(
                    u"The objects \"%1\" and \"%2\" in the FROM clause have the same exposed names. Use "
                    u"correlation "
                    u"names to distinguish them.",
                    next.alias.text, other.alias.text);
        sourceText(reference, next);
        next.optional = reference.join == JoinKind::Left || reference.join == JoinKind::Full;
        if (reference.join == JoinKind::Right || reference.join == JoinKind::Full)
            for (Source& other : scope.sources)
                other.optional = true;
        scope.sources.push_back(std::move(next));
        if (reference.on) {
            sql += " ON ";
            condition(*reference.on, scope);
        }
    }
}

// --- SELECT ------------------------------------------------------------------------------------------

std::vector<OutputColumn> Binder::select(const Select& select, const SelectPurpose& purpose) {
    if (!select.unionWith)
        return selectCore(select, purpose);
    const size_t start = sql.size();
    std::vector<Type> types;
    std::vector<OutputColumn> outputs;
    bool rebind = false;
    const auto bindParts = [&](const SelectPurpose& part) {
        outputs.clear();
        for (const Select* core = &select; core; core = core->unionWith) {
            // A union takes no order or limit inside; a subquery may hold them.
            if (core->top)
                sql += "SELECT * FROM (";
            const std::vector<OutputColumn> columns = selectCore(*core, part);
            if (core->top)
                sql += ')';
            if (outputs.empty())
                outputs = columns;
            if (outputs.size() != columns.size())
                refuse(
                    u"All queries combined using a UNION, INTERSECT or EXCEPT operator must have an equal "
                    u"number of "
                    u"expressions in their target lists.");
            for (size_t i = 0; i < columns.size(); ++i) {
                Bound& bound = outputs[i].bound;
                rebind = rebind || bound.type.isText() != columns[i].bound.type.isText();
                bound = {commonType(bound.type, columns[i].bound.type),
                         bound.nullable || columns[i].bound.nullable, false, false, nullptr};
            }
            if (core->unionWith)
                sql += core->unionAll ? " UNION ALL " : " UNION ";
        }
    };
    SelectPurpose part = purpose;
    part.placeOrder = false;
    bindParts(part);
    if (rebind && !purpose.targets) {
        for (const OutputColumn& output : outputs)
            types.push_back(output.bound.type);
        part.targets = &types;
        sql.resize(start);
        bindParts(part);
    }
    Scope scope;
    orderBy(select, outputs, scope, false);
    return outputs;
}

std::vector<OutputColumn> Binder::selectCore(const Select& select, const SelectPurpose& purpose) {
    const size_t start = sql.size();
    Scope scope;
    scope.outer = purpose.outer;
    if (!select.from.empty()) {
        sql += " FROM ";
        from(select.from, scope);
    }
    const std::string fromText = sql.substr(start);
    sql.resize(start);
    if (isGrouped(select))
        scope.grouped = &select;

    std::vector<OutputColumn> outputs;
    sql += select.distinct ? "SELECT DISTINCT " : "SELECT ";
    selectItems(select, purpose, scope, outputs);
    sql += fromText;
    const Select* grouped = scope.grouped;
    scope.grouped = nullptr;
    if (select.where) {
        if (holdsAggregate(*select.where))
            refuse(
                u"An aggregate may not appear in the WHERE clause unless it is in a subquery contained in a "
                u"HAVING "
                u"clause or a select list, and the column being aggregated is an outer reference.");
        sql += " WHERE ";
        condition(*select.where, scope);
    }
    for (size_t i = 0; i < select.groupBy.size(); ++i) {
        sql += i == 0 ? " GROUP BY " : ", ";
        const size_t at = sql.size();
        const Bound bound = expression(*select.groupBy[i], scope);
        collate(at, bound);
    }
    scope.grouped = grouped;
    if (select.having) {
        sql += " HAVING ";
        condition(*select.having, scope);
    }
    if (!select.unionWith)
        orderBy(select, outputs, scope, purpose.placeOrder && !grouped && !select.distinct);
    if (select.top) {
        sql += " LIMIT ";
        expression(*select.top, scope);
    }
    return outputs;
}

void Binder::selectItems(const Select& select, const SelectPurpose& purpose, Scope& scope,
                         std::vector<OutputColumn>& outputs) {
    for (const SelectItem& item : select.items) {
        if (!item.value) {
            starItems(item, purpose, scope, outputs);
            continue;
        }
        const size_t start = sql.size();
        OutputColumn output;
        output.bound = expression(*item.value, scope);
        output.aliased = !item.alias.isEmpty();
        if (output.aliased)
            output.name = item.alias.text.toString();
        else if (item.value->kind == ExpressionKind::Column)
            output.name = item.value->name.text.toString();
        else if (item.value->kind == ExpressionKind::RowPlace)
            output.name = QStringLiteral("%%physloc%%");
        if (select.distinct || select.unionWith)
            collate(start, output.bound);
        finishItem(start, std::move(output), purpose, outputs);
    }
}

void Binder::starItems(const SelectItem& item, const SelectPurpose& purpose, const Scope& scope,
                       std::vector<OutputColumn>& outputs) {
    bool found = false;
    for (const Source& source : scope.sources) {
        if (!item.qualifier.isEmpty() && !(source.alias == item.qualifier))
            continue;
        found = true;
        for (const Column& column : source.columns()) {
            const size_t start = sql.size();
            checkGrouped(source, column, scope);
            if (scope.qualify || scope.outer)
                sql += source.sql + '.';
            sql += column.sql;
            finishItem(start, {column.name, source.bound(column), false}, purpose, outputs);
        }
    }
    if (!found && !item.qualifier.isEmpty())
        refuse(u"The column prefix '%1' does not match with a table name or alias name used in the query.",
               item.qualifier.text);
    if (!found)
        refuse(u"Must specify table to select from.");
}

void Binder::finishItem(size_t start, OutputColumn output, const SelectPurpose& purpose,
                        std::vector<OutputColumn>& outputs) {
    if (purpose.targets && outputs.size() < purpose.targets->size())
        coerce(start, output.bound, (*purpose.targets)[outputs.size()], Purpose::Assignment);
    if (purpose.named && !output.name.isEmpty()) {
        sql += " AS ";
        appendName(sql, output.name);
    }
    if (start > 0 && !outputs.empty())
        sql.insert(start, ", ");
    outputs.push_back(std::move(output));
}

// --- ORDER BY ----------------------------------------------------------------------------------------

// The place of an ordered value among the columns, from 1; 0 when it is none of them.
int Binder::orderedOutput(const Expression& value, const std::vector<OutputColumn>& outputs,
                          bool anyName) const {
    if (value.kind == ExpressionKind::Integer) {
        const int place = value.name.text.toInt();
        if (place < 1 || place > int(outputs.size()))
            refuse(
                u"The ORDER BY position number %1 is out of range of the number of items in the select list.",
                value.name.text);
        return place;
    }
    if (value.kind != ExpressionKind::Column || !value.qualifier.isEmpty())
        return 0;
    for (size_t i = 0; i < outputs.size(); ++i)
        if ((anyName || outputs[i].aliased) && sameName(outputs[i].name, value.name.text))
            return int(i) + 1;
    return 0;
}

void Binder::orderBy(const Select& select, const std::vector<OutputColumn>& outputs, Scope& scope,
                     bool placeOrder) {
    const char* separator = " ORDER BY ";
    for (const OrderItem& item : select.orderBy) {
        sql += separator;
        separator = ", ";
        placeOrder = placeOrder && item.value->kind != ExpressionKind::RowPlace;
        const int place = orderedOutput(*item.value, outputs, select.unionWith != nullptr);
        if (place > 0) {
            sql += std::to_string(place);
            const Bound& bound = outputs[size_t(place) - 1].bound;
            if (bound.type.isText())
                sql += std::string(" COLLATE ") + kCollation;
        } else if (select.unionWith) {
            refuse(
                u"ORDER BY items must appear in the select list if the statement contains a UNION, INTERSECT "
                u"or EXCEPT "
                u"operator.");
        } else {
            const size_t start = sql.size();
            const Bound bound = expression(*item.value, scope);
            collate(start, bound);
        }
        if (item.descending)
            sql += " DESC";
    }
    // Rows that the order leaves equal keep their place.
    if (placeOrder && scope.sources.size() == 1 && scope.sources[0].table && !scope.sources[0].table->system)
        sql += separator + scope.sources[0].sql + '.' + scope.sources[0].table->rowPlace();
}

}  // namespace tsql
