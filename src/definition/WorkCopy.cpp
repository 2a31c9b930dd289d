#include "WorkCopy.h"

#include <QThread>

#include "Connection.h"
#include "DatabaseHelpers.h"
#include "Query.h"
#include "TextHelpers.h"

namespace definition {
namespace {

constexpr int kHundredth = 10;  // milliseconds, the step of a time stamp
const QString kCodeBefore = QStringLiteral("Codetemp");

// Bracketed, in the table's own order.
QStringList namesOf(const QList<data::ColumnInfo>& columns) {
    QStringList names;
    for (const data::ColumnInfo& column : columns)
        names.append(data::bracketed(column.name).toLower());
    return names;
}

QString typeOf(const data::ColumnInfo& column) {
    switch (column.type) {
        case data::ColumnType::Integer:
            return QStringLiteral("int");
        case data::ColumnType::Real:
            return QStringLiteral("float");
        case data::ColumnType::DateTime:
            return QStringLiteral("datetime");
        case data::ColumnType::Binary:
            return QStringLiteral("image");
        case data::ColumnType::Text:
            break;
    }
    return column.length > 0 ? QStringLiteral("varchar(%1)").arg(column.length) : QStringLiteral("text");
}

}  // namespace

QString freeTableName(const SuiteHost& host, const QString& mark) {
    // Of two pages that open within a hundredth of a second the second need not ask for the first one's name.
    static QString given;
    for (;; QThread::msleep(kHundredth)) {
        const QString name = host.context->Temp_Prefix + mark + Time_Stamp();
        if (name == given || Is_Object_Exist(*host.database, name))
            continue;
        return given = name;
    }
}

void WorkCopy::make(const SuiteHost& host, const QString& month) {
    // One transaction, so that the disk is waited for once.
    data::Transaction transaction(*host.database->Connection);
    m_name = freeTableName(host, QString());
    QStringList statements = {"Select * into " + m_name + " From " + m_page.table +
                              " Where Codemah=" + data::quoted(month)};
    if (!m_page.keepsCodes)
        statements.append("Update " + m_name + " Set Codetemp=" + m_page.fields.code);
    Exec_Sql(*host.database, statements.join(u'\n'));
    transaction.commit();
    m_exists = true;
}

void WorkCopy::drop(data::HostDatabase& db) {
    if (!m_exists)
        return;
    Exec_Sql(db, " if EXISTS (select [name] from sysobjects where name=" + data::quoted(m_name) +
                     " and xtype='U') drop table " + m_name);
    m_exists = false;
}

qsizetype WorkCopy::complete(data::HostDatabase& db, const QList<data::ColumnInfo>& tableColumns) {
    QStringList statements, added;
    for (const data::ColumnInfo& column : tableColumns) {
        const QString name = data::bracketed(column.name);
        if (!column.nullable || m_columns.contains(name.toLower()))
            continue;
        statements.append("Alter Table " + m_name + " Add " + name + u' ' + typeOf(column));
        added.append(name.toLower());
    }
    Exec_Sql(db, statements.join(u'\n'));
    m_columns += added;
    return m_columns.size();
}

void WorkCopy::remember(const data::Dataset& rows) {
    m_columns = namesOf(rows.columns());
    QList<qint64> codes;
    const int code = rows.columnIndex(m_page.fields.code);
    for (int row = 0; row < rows.recordCount(); ++row)
        codes.append(rows.valueAt(row, code).toLongLong());
    stored(codes, rows);
}

void WorkCopy::stored(const QList<qint64>& codes, const data::Dataset& rows) {
    m_copied = CopiedRows(codes);
    m_begun = {rows.columns(), {}};
    for (int row = 0; row < rows.recordCount(); ++row) {
        QVariantList values;
        for (int column = 0; column < rows.columns().size(); ++column)
            values.append(rows.valueAt(row, column));
        m_begun.rows.append(values);
    }
}

void WorkCopy::renew(const std::function<void(const QList<data::ColumnInfo>&, QVariantList&)>& change) {
    for (QVariantList& row : m_begun.rows)
        change(m_begun.columns, row);
}

// Whether nothing at all is different, which takes no texts to see.
bool WorkCopy::isSame(const Stored& one, const Stored& other) {
    if (one.rows.size() != other.rows.size() || namesOf(one.columns) != namesOf(other.columns))
        return false;
    const qsizetype codeBefore = namesOf(one.columns).indexOf(data::bracketed(kCodeBefore).toLower());
    for (qsizetype row = 0; row < one.rows.size(); ++row)
        for (qsizetype column = 0; column < one.columns.size(); ++column)
            if (column != codeBefore && one.rows[row][column] != other.rows[row][column])
                return false;
    return true;
}

// Each row as a text of the columns that both have, in the order of the texts. What the code was before is
// the copy's own affair.
QStringList WorkCopy::written(const Stored& stored, const Stored& other) {
    QMap<QString, int> columns;
    for (int column = 0; column < stored.columns.size(); ++column)
        for (const data::ColumnInfo& there : other.columns)
            if (const QString& name = stored.columns[column].name;
                name.compare(there.name, Qt::CaseInsensitive) == 0 &&
                name.compare(kCodeBefore, Qt::CaseInsensitive) != 0)
                columns.insert(name.toLower(), column);
    QStringList texts;
    for (const QVariantList& row : stored.rows) {
        QStringList values;
        for (const int column : columns)
            values.append(data::literal(row[column]));
        texts.append(values.join(u','));
    }
    texts.sort();
    return texts;
}

CopiedRow WorkCopy::current(const data::Dataset& rows) const {
    if (m_copied.isEmpty() || rows.state() == data::Dataset::State::Insert)
        return {};
    if (m_page.keepsCodes)
        return m_copied.left(rows.row());
    const int column = rows.columnIndex(kCodeBefore);
    const auto codeBefore = [&](int row) { return rows.valueAt(row, column).toLongLong(); };
    int twins = 0;
    for (int row = 0; row < rows.row(); ++row)
        twins += codeBefore(row) == codeBefore(rows.row()) ? 1 : 0;
    const CopiedRow copied = m_copied.withCode(codeBefore(rows.row()), twins);
    return copied.place > 0 ? copied : CopiedRow{codeBefore(rows.row())};
}

void WorkCopy::askRows(data::Questions& questions, const QString& month, ConfirmedRows& rows) {
    const QString& code = m_page.fields.code;
    questions.ask("Select " + code + (m_page.keepsCodes ? QString() : QStringLiteral(", Codetemp")) +
                      " From " + m_name + " order by " + code,
                  [this, &rows](const data::ResultSet& found) {
                      rows.codesBefore = m_copied.codes();
                      QHash<qint64, int> met;
                      for (const QVariantList& row : found.rows) {
                          const qint64 before = row.value(1).toLongLong();
                          const CopiedRow copied = m_page.keepsCodes
                                                       ? m_copied.left(rows.items.size())
                                                       : m_copied.withCode(before, met[before]++);
                          rows.items.append({row[0].toLongLong(), m_page.keepsCodes ? copied.code : before,
                                             qMax(0, copied.place)});
                      }
                  });
    questions.ask("Select * From " + m_name + " Where 1=0",
                  [this](const data::ResultSet& found) { m_columns = namesOf(found.columns); });
    questions.ask("Select * From " + m_page.table + " Where Codemah=" + data::quoted(month) + " Order By " +
                      m_page.fields.code,
                  [this, &rows](const data::ResultSet& found) {
                      m_storedColumns = namesOf(found.columns);
                      const Stored now = {found.columns, found.rows};
                      if (isSame(now, m_begun))
                          return;
                      const QStringList texts = written(now, m_begun);
                      if (texts == written(m_begun, now))
                          return;
                      rows.changedMeanwhile = qMax<size_t>(1, qHash(texts));
                      findStored(now, rows);
                  });
}

// Others have confirmed: each row is looked for among those that are stored now, by its name, and by its code
// where that row alone has a name that none had. What is stored has followed them there.
void WorkCopy::findStored(const Stored& now, ConfirmedRows& rows) const {
    const auto named = [this](const Stored& stored) {
        QList<std::pair<qint64, QString>> items;
        for (const QVariantList& row : stored.rows) {
            std::pair<qint64, QString> item;
            for (int column = 0; column < stored.columns.size(); ++column)
                if (const QString& name = stored.columns[column].name;
                    name.compare(m_page.fields.code, Qt::CaseInsensitive) == 0)
                    item.first = row[column].toLongLong();
                else if (name.compare(m_page.fields.name, Qt::CaseInsensitive) == 0)
                    item.second = Bare_Name(row[column].toString());
            items.append(item);
        }
        return items;
    };
    const auto then = named(m_begun), stored = named(now);
    const auto count = [](const auto& items, const QString& name) {
        return std::count_if(items.begin(), items.end(),
                             [&](const auto& item) { return item.second == name; });
    };
    const auto placeOf = [&](const ItemCode& item) {
        const QString name = then.value(item.placeBefore - 1).second;
        const bool unique = count(then, name) == 1 && count(stored, name) == 1;
        for (int place = 0; place < stored.size(); ++place)
            if (unique ? stored[place].second == name
                       : stored[place].first == item.before &&
                             (stored[place].second == name || count(then, stored[place].second) == 0))
                return place + 1;
        return 0;
    };
    rows.itemsHere = rows.items;
    rows.codesBeforeHere = rows.codesBefore;
    for (ItemCode& item : rows.items)
        if (item.placeBefore > 0 && item.placeBefore <= then.size()) {
            item.placeBefore = placeOf(item);
            item.before = item.placeBefore > 0 ? stored[item.placeBefore - 1].first : 0;
        }
    rows.codesBefore.clear();
    for (const auto& [code, name] : stored)
        rows.codesBefore.append(code);
}

QStringList WorkCopy::replacement(const QString& month) const {
    // The two may have come by their columns in another order, and one may have some that the other lacks.
    QStringList stored = m_storedColumns;
    stored.removeIf([&](const QString& column) { return !m_columns.contains(column); });
    const QString list = stored.join(u',');
    QStringList statements = {
        m_page.emptiesMonth.arg(m_page.table, data::quoted(month)),
        m_storedColumns == m_columns
            ? "insert into " + m_page.table + " select * from " + m_name
            : "insert into " + m_page.table + " (" + list + ") select " + list + " from " + m_name};
    if (!m_page.keepsCodes)
        statements.append("Update " + m_name + " Set Codetemp=" + m_page.fields.code);
    return statements;
}

bool WorkCopy::isStored(data::HostDatabase& db, const QString& month, const data::Dataset& rows) const {
    const data::ResultSet stored =
        db.Connection->execute("Select * From " + m_page.table + " Where Codemah=" + data::quoted(month));
    const Stored then = {rows.columns(), rows.heldRows()}, now = {stored.columns, stored.rows};
    return written(then, now) == written(now, then);
}

void WorkCopy::restore(data::HostDatabase& db, const data::Dataset& rows) const {
    if (!m_exists || Is_Object_Exist(db, m_name))
        return;
    QStringList statements = {"Select Top 0 * into " + m_name + " From " + m_page.table};
    for (const QVariantList& row : rows.heldRows())
        statements.append(data::insertion(m_name, rows.columns(), row));
    data::Transaction transaction(*db.Connection);
    Exec_Sql(db, statements.join(u'\n'));
    transaction.commit();
}

}  // namespace definition
