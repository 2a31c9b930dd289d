#include "ReferenceMove.h"

#include "CodeMove.h"
#include "ShareList.h"

namespace definition {
namespace {

QString numbered(const Reference& reference, int place) {
    return reference.column + QString::number(place);
}

QStringList literals(const Reference& reference, const QSet<qint64>& codes) {
    QList<qint64> sorted(codes.begin(), codes.end());
    std::sort(sorted.begin(), sorted.end());
    QStringList texts;
    for (const qint64 code : sorted)
        texts.append(heldLiteral(reference, code));
    return texts;
}

// As a condition; empty where there is none of them, or no such column.
QString holdsOneOf(const Reference& reference, const QSet<qint64>& codes, const QHash<QString, int>& known) {
    return codes.isEmpty() || !known.contains(reference.column.toLower())
               ? QString()
               : reference.column + " In (" + literals(reference, codes).join(u',') + ')';
}

// Emptied before anything moves: what moves then comes to a code that nobody holds any more.
QStringList codeStatements(const Holders& holders, const Renumbering& renumbering) {
    const Reference& reference = *holders.reference;
    QSet<qint64> emptied = renumbering.gone() + renumbering.taken();
    QStringList statements;
    if (reference.goesWithRow) {
        if (!emptied.isEmpty())
            statements.append("Delete From " + holders.table + " Where " + reference.column + " In (" +
                              literals(reference, emptied).join(u',') + ')' + holders.condition);
        emptied.clear();
    }
    emptied += renumbering.fresh();
    if (!emptied.isEmpty()) {
        QString settings = reference.column + "=NULL";
        if (!reference.alongside.isEmpty())
            settings += u',' + reference.alongside + "=NULL";
        statements.append("Update " + holders.table + " Set " + settings + " Where " + reference.column +
                          " In (" + literals(reference, emptied).join(u',') + ')' + holders.condition);
    }
    QList<std::pair<QString, QString>> moved;
    for (const auto [before, now] : renumbering.moved().asKeyValueRange())
        moved.append({heldLiteral(reference, before), heldLiteral(reference, now)});
    if (!moved.isEmpty())
        statements.append(exchangeStatement(holders.table, reference.column, moved, holders.condition));
    return statements;
}

// One statement that reads old values on its right-hand sides.
QString placeStatement(const Holders& holders, const Renumbering& renumbering,
                       const QHash<QString, int>& columns) {
    QStringList settings;
    for (const auto [place, from] : renumbering.places().asKeyValueRange()) {
        const QString target = numbered(*holders.reference, place);
        const QString source = numbered(*holders.reference, from);
        if (columns.contains(target))
            settings.append(target + u'=' +
                            (from > 0 && columns.contains(source) ? source : QStringLiteral("NULL")));
    }
    if (settings.isEmpty())
        return {};
    QString statement = "Update " + holders.table + " Set " + settings.join(u',');
    if (!holders.condition.isEmpty())
        statement += " Where 1=1" + holders.condition;
    return statement;
}

}  // namespace

QString heldLiteral(const Reference& reference, const QVariant& code) {
    if (code.typeId() == QMetaType::QString)
        return data::quoted(code.toString());
    const QString number = QString::number(code.toLongLong() - (reference.lessOne ? 1 : 0));
    return reference.as == HeldAs::ColumnName ? data::quoted("code_" + number) : number;
}

QStringList moveStatements(const Holders& holders, const Renumbering& renumbering,
                           const TableColumns& columns) {
    const QHash<QString, int> known = columns.value(holders.table.toLower());
    switch (holders.reference->as) {
        case HeldAs::Code:
        case HeldAs::ColumnName:
            if (known.contains(holders.reference->column.toLower()))
                return codeStatements(holders, renumbering);
            break;
        case HeldAs::Place:
            if (const QString statement = placeStatement(holders, renumbering, known); !statement.isEmpty())
                return {statement};
            break;
        case HeldAs::ShareList:
        case HeldAs::Amounts:
        case HeldAs::LayoutTable:
        case HeldAs::Prefix:
            break;
    }
    return {};
}

QString holdsChanged(const Holders& holders, const Renumbering& renumbering, const TableColumns& columns) {
    const Reference& reference = *holders.reference;
    const QHash<QString, int> known = columns.value(holders.table.toLower());
    if (reference.as == HeldAs::Code || reference.as == HeldAs::ColumnName) {
        const QList<qint64> moved = renumbering.moved().keys();
        const QSet<qint64> changed = renumbering.gone() + QSet<qint64>(moved.begin(), moved.end());
        return holdsOneOf(reference, changed, known);
    }
    QStringList filled;
    if (reference.as == HeldAs::Place)
        for (const int place : renumbering.leftPlaces())
            if (const QString column = numbered(reference, place); known.contains(column))
                filled.append(column + QLatin1String("<>0"));
    return filled.join(QStringLiteral(" Or "));
}

QString changesRow(const Holders& holders, const Renumbering& renumbering, const TableColumns& columns) {
    const Reference& reference = *holders.reference;
    const QHash<QString, int> known = columns.value(holders.table.toLower());
    if (reference.as == HeldAs::Code || reference.as == HeldAs::ColumnName) {
        const QList<qint64> moved = renumbering.moved().keys();
        const QSet<qint64> changed = renumbering.gone() + renumbering.taken() + renumbering.fresh() +
                                     QSet<qint64>(moved.begin(), moved.end());
        return holdsOneOf(reference, changed, known);
    }
    QStringList changed;
    if (reference.as == HeldAs::Place) {
        // Marks are texts, amounts numbers.
        const QString nothing = reference.ofMonth ? QStringLiteral("''") : QStringLiteral("0");
        const auto value = [&](const QString& column) { return "IsNull(" + column + u',' + nothing + ')'; };
        for (const auto [place, from] : renumbering.places().asKeyValueRange()) {
            const QString target = numbered(reference, place), source = numbered(reference, from);
            if (known.contains(target))
                changed.append(value(target) + "<>" +
                               (from > 0 && known.contains(source) ? value(source) : nothing));
        }
    }
    return changed.join(QStringLiteral(" Or "));
}

void followInRow(const Reference& reference, const Renumbering& renumbering,
                 const QList<data::ColumnInfo>& columns, QVariantList& row) {
    const auto place = [&](const QString& column) {
        for (int i = 0; i < columns.size(); ++i)
            if (columns[i].name.compare(column, Qt::CaseInsensitive) == 0)
                return i;
        return -1;
    };
    if (reference.as == HeldAs::Place) {
        const QVariantList before = row;
        for (const auto [now, from] : renumbering.places().asKeyValueRange()) {
            const int target = place(numbered(reference, now));
            const int source = from > 0 ? place(numbered(reference, from)) : -1;
            if (target >= 0)
                row[target] = source >= 0 ? before[source] : QVariant();
        }
        return;
    }
    const int held = place(reference.column);
    if (held < 0 || !row[held].isValid())
        return;
    const QString text = row[held].toString().trimmed();
    if (reference.as == HeldAs::ShareList) {
        row[held] = renumberShares(row[held].toString(), [&](qint64 code) { return renumbering.now(code); });
    } else if (reference.as == HeldAs::ColumnName &&
               text.startsWith(QLatin1String("code_"), Qt::CaseInsensitive)) {
        const qint64 code = text.mid(5).toLongLong();
        const qint64 now = renumbering.now(code);
        if (now == code)
            return;
        row[held] = now != 0 ? QVariant("code_" + QString::number(now)) : QVariant();
        if (const int other = place(reference.alongside); now == 0 && other >= 0)
            row[other] = QVariant();
    }
}

}  // namespace definition
