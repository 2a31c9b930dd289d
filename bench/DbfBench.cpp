// A grid of 100,000 rows by 20 columns written as a dBase file. The floor steps the same rows, looking at
// each value's text, and writes values that it holds in memory with shapelib's own calls for a value.
#include <shapefil.h>

#include <QFile>
#include <QTemporaryDir>
#include <stdexcept>

#include "Bench.h"
#include "CodePage.h"
#include "DbfExport.h"
#include "Embedded.h"
#include "WideTable.h"

namespace bench {
namespace {

constexpr int kRounds = 7;

QByteArray codePageBytes(const QString& text) {
    QByteArray bytes;
    for (const QChar letter : text)
        bytes.append(static_cast<char>(data::codePageByte(letter)));
    return bytes;
}

// Shapelib's calls for the values of the rows, in memory.
class DirectWriter {
public:
    explicit DirectWriter(data::Dataset& rows) : m_rows(rows) {
        QStringList names;
        for (const data::ColumnInfo& column : rows.columns())
            names.append(column.name);
        m_selection = rows.selection(names);
        rows.connection()->stream(
            m_selection, [](const QList<data::ColumnInfo>&) {},
            [&](const data::RowView& row) {
                for (int column = 0; column < names.size(); ++column)
                    take(row.value(column), rows.columns()[column].type);
                return true;
            });
    }

    void step() const {
        qsizetype length = 0;
        const auto columns = static_cast<int>(m_rows.columns().size());
        m_rows.connection()->stream(
            m_selection, [](const QList<data::ColumnInfo>&) {},
            [&](const data::RowView& row) {
                for (int column = 0; column < columns; ++column)
                    length += row.text(column).size();
                return true;
            });
        if (length == 0)
            throw std::runtime_error("there are no values");
    }

    void write(const QString& file, const QString& like) const {
        DBFHandle model = DBFOpen(qPrintable(like), "rb");
        DBFHandle table = DBFCloneEmpty(model, qPrintable(file));
        DBFClose(model);
        auto text = m_texts.begin();
        auto whole = m_wholes.begin();
        auto real = m_reals.begin();
        const auto& columns = m_rows.columns();
        for (int row = 0; row < kWideRows; ++row) {
            for (int column = 0; column < columns.size(); ++column) {
                if (columns[column].type == data::ColumnType::Integer)
                    DBFWriteIntegerAttribute(table, row, column, *whole++);
                else if (columns[column].type == data::ColumnType::Real)
                    DBFWriteDoubleAttribute(table, row, column, *real++);
                else
                    DBFWriteStringAttribute(table, row, column, (text++)->constData());
            }
        }
        DBFClose(table);
    }

private:
    void take(const QVariant& value, data::ColumnType type) {
        if (type == data::ColumnType::Integer)
            m_wholes.push_back(value.toInt());
        else if (type == data::ColumnType::Real)
            m_reals.push_back(value.toDouble());
        else
            m_texts.push_back(codePageBytes(value.toString()));
    }

    data::Dataset& m_rows;
    QString m_selection;
    std::vector<QByteArray> m_texts;
    std::vector<int> m_wholes;
    std::vector<double> m_reals;
};

// The rows as both files hold them, without what the header says of day and code page.
QByteArray rowsOf(const QString& file) {
    QFile read(file);
    if (!read.open(QIODevice::ReadOnly))
        throw std::runtime_error("a file is missing");
    return read.readAll().mid(32);
}

}  // namespace

void exportDbf() {
    const auto connection = tsql::open(wideCompany(), tsql::OpenMode::Existing);
    data::Dataset rows;
    rows.setConnection(connection.get());
    rows.setTableName(kWideTable);
    rows.open();
    widgets::DataGrid grid;
    grid.setDataset(&rows);
    const QTemporaryDir folder;
    const QString ours = folder.filePath("ours.dbf"), direct = folder.filePath("direct.dbf");
    Export_Dbf(grid, ours, DbfText::Windows);
    const DirectWriter writer(rows);
    writer.write(direct, ours);
    if (rowsOf(ours) != rowsOf(direct))
        throw std::runtime_error("the two files differ");

    QList<double> writes;
    const auto floor = [&] {
        const double stepped = timed([&] { writer.step(); });
        writes.append(timed([&] { writer.write(direct, ours); }));
        return stepped + writes.last();
    };
    const auto exported = [&](DbfText text) {
        return [&, text] { return timed([&] { Export_Dbf(grid, ours, text); }); };
    };
    const Comparison windows = compare(kRounds, exported(DbfText::Windows), floor);
    report(QStringLiteral("export-dbf"), windows, 1.5);
    detail(QStringLiteral("export-dbf"),
           QStringLiteral("of the floor %1 ms are shapelib's writes, %2 × these")
               .arg(median(writes), 0, 'f', 2)
               .arg(windows.measured / median(writes), 0, 'f', 2));
    report(QStringLiteral("export-dbf-dos"), compare(kRounds, exported(DbfText::Dos), floor), 1.5);
}

}  // namespace bench
