#include "Binder.h"
#include "Collation.h"

namespace tsql {
namespace {

bool holdsColumn(const Expression& expression) {
    return expression.kind == ExpressionKind::Column || expression.kind == ExpressionKind::RowPlace ||
           std::any_of(expression.arguments.begin(), expression.arguments.end(),
                       [](const Expression* argument) { return holdsColumn(*argument); });
}

bool showsAggregate(std::span<const SelectItem> items) {
    return std::any_of(items.begin(), items.end(), [](const SelectItem& item) {
        return item.value && holdsAggregate(std::span<Expression* const>(&item.value, 1));
    });
}

bool isGrouped(const Select& select) {
    return !select.groupBy.empty() || select.having || showsAggregate(select.items);
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
    std::vector<std::vector<OutputColumn>> parts;
    SelectPurpose part = purpose;
    part.placeOrder = false;
    for (const Select* core = &select; core; core = core->unionWith) {
        // A union takes no order or limit inside; a subquery may hold them.
        if (core->top)
            sql += "SELECT * FROM (";
        parts.push_back(selectCore(*core, part));
        if (core->top)
            sql += ')';
        if (parts.back().size() != parts.front().size())
            refuse(
                u"All queries combined using a UNION, INTERSECT or EXCEPT operator must have an equal number "
                u"of expressions in their target lists.");
        if (core->unionWith)
            sql += core->unionAll ? " UNION ALL " : " UNION ";
    }
    std::vector<OutputColumn> outputs = parts.front();
    for (size_t i = 0; i < outputs.size(); ++i) {
        Bound bound{{}, false, false, false, nullptr};
        for (const auto& columns : parts) {
            bound.type = commonType(bound.type, columns[i].bound.type);
            bound.nullable = bound.nullable || columns[i].bound.nullable;
        }
        outputs[i].bound = bound;
    }
    std::vector<Piece> pieces;
    for (const auto& columns : parts)
        for (size_t i = 0; i < columns.size(); ++i) {
            const Type& type = outputs[i].bound.type;
            // What SQLite keeps alike needs no conversion.
            const bool alike = type.isText() == columns[i].bound.type.isText();
            pieces.push_back(
                {columns[i].start, columns[i].end, columns[i].bound, alike ? columns[i].bound.type : type});
        }
    coerceAll(pieces);
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
        if (holdsAggregate(std::span<Expression* const>(&select.where, 1)))
            refuse(
                u"An aggregate may not appear in the WHERE clause unless it is in a subquery contained in a "
                u"HAVING "
                u"clause or a select list, and the column being aggregated is an outer reference.");
        sql += " WHERE ";
        condition(*select.where, scope);
    }
    for (size_t i = 0; i < select.groupBy.size(); ++i) {
        sql += i == 0 ? " GROUP BY " : ", ";
        if (!holdsColumn(*select.groupBy[i]))
            refuse(
                u"Each GROUP BY expression must contain at least one column that is not an outer reference.");
        collatedPiece(*select.groupBy[i], scope);
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
        // With HAVING alone all rows are one group, which SQLite knows by an aggregate among the columns.
        if (select.having && select.groupBy.empty() && outputs.empty() && !showsAggregate(select.items)) {
            wrap(start, "iif(count(*) >= 0, ", ", NULL)");
            output.bound.literal = nullptr;
        }
        if (!item.alias.isEmpty())
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
            finishItem(start, {column.name, source.bound(column)}, purpose, outputs);
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
    const bool first = outputs.empty();
    if (!first)
        sql.insert(start, ", ");
    output.start = start + (first ? 0 : 2);
    output.end = sql.size();
    if (purpose.named && !output.name.isEmpty()) {
        sql += " AS ";
        appendName(sql, output.name);
    }
    outputs.push_back(std::move(output));
}

// --- ORDER BY ----------------------------------------------------------------------------------------

// The place of an ordered value among the columns, from 1; 0 when it is none of them.
int Binder::orderedOutput(const Expression& value, const std::vector<OutputColumn>& outputs) const {
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
    int place = 0;
    for (size_t i = 0; i < outputs.size(); ++i) {
        if (!sameName(outputs[i].name, value.name.text))
            continue;
        if (place > 0)
            refuse(kAmbiguous, value.name.text);
        place = int(i) + 1;
    }
    return place;
}

void Binder::orderBy(const Select& select, const std::vector<OutputColumn>& outputs, Scope& scope,
                     bool placeOrder) {
    const char* separator = " ORDER BY ";
    for (const OrderItem& item : select.orderBy) {
        sql += separator;
        separator = ", ";
        placeOrder = placeOrder && item.value->kind != ExpressionKind::RowPlace;
        const int place = orderedOutput(*item.value, outputs);
        if (place > 0) {
            sql += std::to_string(place);
            const Bound& bound = outputs[size_t(place) - 1].bound;
            if (bound.type.isText())
                sql += std::string(" COLLATE ") + kCollation;
        } else if (select.unionWith) {
            refuse(
                u"ORDER BY items must appear in the select list if the statement contains a UNION, INTERSECT "
                u"or EXCEPT operator.");
        } else {
            const Piece ordered = collatedPiece(*item.value, scope);
            if (select.distinct && !isSelected(ordered, outputs))
                refuse(u"ORDER BY items must appear in the select list if SELECT DISTINCT is specified.");
        }
        if (item.descending)
            sql += " DESC";
    }
    // Rows that the order leaves equal keep their place.
    if (placeOrder && scope.sources.size() == 1 && scope.sources[0].table && !scope.sources[0].table->system)
        sql += separator + scope.sources[0].sql + '.' + scope.sources[0].table->rowPlace();
}

bool Binder::isSelected(const Piece& value, const std::vector<OutputColumn>& outputs) const {
    const auto text = [this](size_t start, size_t end) {
        return std::string_view(sql).substr(start, end - start);
    };
    return std::any_of(outputs.begin(), outputs.end(), [&](const OutputColumn& output) {
        return text(output.start, output.end) == text(value.start, value.end);
    });
}

}  // namespace tsql
