#include "Connection.h"

#include "CodePage.h"
#include "Errors.h"

namespace data {

int ResultSet::indexOf(const QString& name) const {
    for (int i = 0; i < columns.size(); ++i)
        if (columns[i].name.compare(name, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

QString Connection::admitted(const QString& sql) const {
    QString folded = foldToCodePage(sql);
    if (m_monitor)
        m_monitor(folded);
    return folded;
}

ResultSet Connection::execute(const QString& sql) {
    ResultSet last;
    last.affected = collect(sql, [&](const QList<ColumnInfo>& columns) -> ResultSet& {
        last = {.columns = columns};
        return last;
    });
    return last;
}

QList<ResultSet> Connection::executeAll(const QString& sql) {
    QList<ResultSet> all;
    collect(sql, [&](const QList<ColumnInfo>& columns) -> ResultSet& {
        all.append({.columns = columns});
        return all.last();
    });
    return all;
}

// Runs a batch whose rows go into what `next` gives for each SELECT. The rows affected, as run has them.
qint64 Connection::collect(const QString& sql,
                           const std::function<ResultSet&(const QList<ColumnInfo>&)>& next) {
    ResultSet* result = nullptr;
    return run(
        admitted(sql), [&](const QList<ColumnInfo>& columns) { result = &next(columns); },
        [&](const RowView& row) {
            QVariantList values;
            values.reserve(result->columns.size());
            for (int i = 0; i < result->columns.size(); ++i)
                values.append(row.value(i));
            result->rows.append(std::move(values));
            return true;
        });
}

qint64 Connection::stream(const QString& sql, const std::function<void(const QList<ColumnInfo>&)>& columns,
                          const std::function<bool(const RowView&)>& row) {
    return run(admitted(sql), columns, row);
}

Transaction::~Transaction() {
    if (!m_open)
        return;
    try {
        m_connection.rollback();
    } catch (const std::exception&) {
        // A connection that is gone has rolled back by itself; the error that led here is on its way.
    }
}

void Transaction::commit() {
    m_connection.commit();
    m_open = false;
}

QString quoted(const QString& text) {
    QString result = text;
    result.replace(QLatin1String("'"), QLatin1String("''"));
    return u'\'' + result + u'\'';
}

QString bracketed(const QString& name) {
    QString result = name;
    result.replace(QLatin1String("]"), QLatin1String("]]"));
    return u'[' + result + u']';
}

}  // namespace data
