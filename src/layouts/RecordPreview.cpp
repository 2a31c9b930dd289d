#include "RecordPreview.h"

#include <QHBoxLayout>
#include <QRadioButton>

#include "CodePage.h"
#include "Components.h"
#include "DbfExport.h"
#include "ListDialog.h"
#include "Query.h"
#include "RecordStrip.h"

namespace layouts {
namespace {

using forms::ListColumn;

QList<ListColumn> titles() {
    const auto number = ListColumn::Kind::Number;
    return {{QStringLiteral("رديف"), 46, number}, {QStringLiteral("ميدان"), 180},
            {QStringLiteral("از"), 46, number},   {QStringLiteral("تا"), 46, number},
            {QStringLiteral("طول"), 46, number},  {QStringLiteral("مقدار"), 170},
            {QStringLiteral("نكته"), 200}};
}

// What the first employee's record has, by its columns.
QHash<QString, QString> firstEmployee(data::HostDatabase& db) {
    QHash<QString, QString> values;
    const data::ResultSet found =
        db.Connection->execute(QStringLiteral("Select Top 1 * From person Order By code"));
    for (qsizetype column = 0; column < found.columns.size() && !found.rows.isEmpty(); ++column)
        values.insert(found.columns[column].name.toLower(), data::valueText(found.rows[0][column]).trimmed());
    return values;
}

QByteArray bytesOf(const RecordLayout& record, DbfText page) {
    QByteArray bytes;
    for (const RecordField& field : record.fields) {
        QByteArray value;
        if (page == DbfText::Dos)
            value = Dos_Persian(field.value);
        else
            for (const QChar character : field.value)
                value.append(static_cast<char>(data::codePageByte(character)));
        bytes += value.leftJustified(field.value.size(), ' ', true);
    }
    return bytes.left(record.text().size());
}

QList<QStringList> rowsOf(const RecordLayout& record) {
    QList<QStringList> rows;
    for (const RecordField& field : record.fields)
        rows.append({QString::number(field.row), field.title, QString::number(field.from),
                     QString::number(field.from + field.length - 1), QString::number(field.length),
                     field.value.trimmed(), field.notes.join(QStringLiteral("؛ "))});
    return rows;
}

}  // namespace

QString recordAdvice(const data::Dataset& rows) {
    const qsizetype notes = recordOf(layoutRows(rows), {}).notes();
    return notes == 0 ? QString() : QStringLiteral("%1 نكته در ساختار فايل").arg(notes);
}

void previewRecord(const SuiteHost& host, const data::Dataset& rows, const QString& fileName) {
    const RecordLayout record = recordOf(layoutRows(rows), firstEmployee(*host.database));
    forms::ListDialog window(QStringLiteral("TRecordPreviewForm"),
                             QStringLiteral("پيش نمايش رکورد، %1 بايت").arg(record.length),
                             QStringLiteral("dbgFields"), titles(), {790, 520});
    QList<int> begins;
    for (const RecordField& field : record.fields)
        begins.append(static_cast<int>(qMin<qint64>(field.from, record.text().size())));
    auto* strip = new RecordStrip(&window);
    strip->show(record.text(), {}, begins);
    window.addAbove(strip, 0);
    if (fileName.trimmed().endsWith(QLatin1String("DBF"), Qt::CaseInsensitive)) {
        auto* pages = new QWidget(&window);
        auto* line = new QHBoxLayout(pages);
        line->setContentsMargins(0, 0, 0, 0);
        const auto add = [&](const char* name, const QString& caption, DbfText page) {
            auto* button = widgets::named(new QRadioButton(caption, pages), name);
            button->setFont(widgets::formFont());
            line->addWidget(button);
            QObject::connect(button, &QRadioButton::toggled, strip, [&, page](bool on) {
                if (on)
                    strip->show(record.text(), bytesOf(record, page), begins);
            });
            return button;
        };
        add("rbWindows", QStringLiteral("Windows-1256"), DbfText::Windows)->setChecked(true);
        add("rbDos", QStringLiteral("DOS"), DbfText::Dos);
        line->addStretch();
        window.addAbove(pages, 0);
    }
    window.setRows(rowsOf(record));
    QObject::connect(window.list().selectionModel(), &QItemSelectionModel::currentRowChanged, strip,
                     [&](const QModelIndex& row) {
                         if (row.isValid())
                             strip->showPosition(begins[row.row()]);
                     });
    window.addButtons();
    window.showModal();
}

}  // namespace layouts
