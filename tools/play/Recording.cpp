#include "Recording.h"

#include <QFile>
#include <QRegularExpression>

#include "Errors.h"

namespace play {
namespace {

class Recording : public data::Connection {
public:
    Recording(std::unique_ptr<data::Connection> connection, const QString& file)
        : m_inner(std::move(connection)), m_file(file) {
        if (!m_file.open(QIODevice::Append))
            throw data::Refusal(file + QStringLiteral(": ") + m_file.errorString());
    }
    QString rowIdentity(const QString& table) override { return m_inner->rowIdentity(table); }

protected:
    qint64 run(const QString& sql, const std::function<void(const QList<data::ColumnInfo>&)>& columns,
               const std::function<bool(const data::RowView&)>& row) override {
        write(u'>', sql.simplified());
        const bool ordered = sql.contains(QLatin1String("order by"), Qt::CaseInsensitive);
        QStringList rows;
        qsizetype width = 0;
        const auto writeRows = [&] {
            if (!ordered)
                rows.sort();
            for (const QString& line : std::exchange(rows, {}))
                write(u' ', line);
        };
        try {
            const qint64 affected = m_inner->stream(
                sql,
                [&](const QList<data::ColumnInfo>& found) {
                    writeRows();
                    width = found.size();
                    columns(found);
                },
                [&](const data::RowView& found) {
                    QStringList values;
                    for (int column = 0; column < width; ++column)
                        values.append(found.isNull(column) ? QStringLiteral("NULL")
                                                           : QString::fromUtf8(found.text(column)));
                    rows.append(values.join(QLatin1String(" | ")));
                    return row(found);
                });
            writeRows();
            write(u'=', QString::number(affected));
            return affected;
        } catch (const data::ServerError& error) {
            // Each server has its own words; what they mean to the module is the same.
            write(u'!', QString::number(static_cast<int>(error.fault())));
            throw;
        }
    }
    void beginTransaction() override { m_inner->begin(); }
    void commitTransaction() override { m_inner->commit(); }
    void undoTransaction() override { m_inner->rollback(); }
    void makeSession() override { m_inner->connectAgain(); }

private:
    void write(QChar kind, QString text) {
        static const QRegularExpression workTable(QStringLiteral("\\b\\d*W_\\d{6,}\\b"));
        text.replace(workTable, QStringLiteral("work"));
        m_file.write((kind + text + u'\n').toUtf8());
    }

    std::unique_ptr<data::Connection> m_inner;
    QFile m_file;
};

}  // namespace

std::unique_ptr<data::Connection> recorded(std::unique_ptr<data::Connection> connection,
                                           const QString& file) {
    return std::make_unique<Recording>(std::move(connection), file);
}

QString firstDifference(const QString& oneFile, const QString& otherFile) {
    QFile one(oneFile), other(otherFile);
    for (QFile* file : {&one, &other})
        if (!file->open(QIODevice::ReadOnly))
            return file->fileName() + QStringLiteral(": ") + file->errorString();
    QByteArray statement;
    for (int line = 1;; ++line) {
        const QByteArray here = one.readLine(), there = other.readLine();
        if (here == there && here.isEmpty())
            return {};
        if (here != there)
            return QStringLiteral("line %1, after %2%3 has %4%5 has %6")
                .arg(line)
                .arg(QString::fromUtf8(statement), oneFile,
                     QString::fromUtf8(here.isEmpty() ? "nothing\n" : here), otherFile,
                     QString::fromUtf8(there.isEmpty() ? "nothing\n" : there));
        if (here.startsWith('>'))
            statement = here;
    }
}

}  // namespace play
