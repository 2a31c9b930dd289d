#include "GridModel.h"

#include <unicode/unum.h>
#include <QHash>

#include "CodePage.h"
#include "Query.h"

namespace widgets {

using data::Dataset;

QString formatNumber(const QString& pattern, double number) {
    static QHash<QString, UNumberFormat*> formats;  // a handful of patterns, kept as long as the program
    UErrorCode status = U_ZERO_ERROR;
    UNumberFormat*& format = formats[pattern];
    if (format == nullptr) {
        format = unum_open(UNUM_PATTERN_DECIMAL, reinterpret_cast<const UChar*>(pattern.utf16()),
                           static_cast<int32_t>(pattern.size()), "en_US", nullptr, &status);
        unum_setAttribute(format, UNUM_ROUNDING_MODE, UNUM_ROUND_HALFUP);
    }
    UChar buffer[512];
    const int32_t length = unum_formatDouble(format, number, buffer, 512, nullptr, &status);
    return U_SUCCESS(status) && length <= 512
               ? QString::fromUtf16(reinterpret_cast<const char16_t*>(buffer), length)
               : data::valueText(number);
}

void GridModel::setDataset(Dataset* dataset) {
    if (m_dataset)
        m_dataset->disconnect(this);
    m_dataset = dataset;
    if (dataset != nullptr) {
        connect(dataset, &Dataset::rowsReset, this, &GridModel::reset);
        connect(dataset, &QObject::destroyed, this, &GridModel::reset);
        connect(dataset, &Dataset::rowInserted, this, [this](int row) {
            beginInsertRows({}, row, row);
            ++m_rows;
            endInsertRows();
        });
        connect(dataset, &Dataset::rowRemoved, this, [this](int row) {
            beginRemoveRows({}, row, row);
            --m_rows;
            endRemoveRows();
        });
        connect(dataset, &Dataset::rowChanged, this, [this](int row) {
            if (!m_columns.isEmpty())
                Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
        });
    }
    reset();
}

void GridModel::setGridColumns(const QList<GridColumn>& columns) {
    beginResetModel();
    m_columns = columns;
    endResetModel();
    reset();
}

void GridModel::reset() {
    beginResetModel();
    m_rows = m_dataset ? m_dataset->recordCount() : 0;
    m_fields.clear();
    for (const GridColumn& column : m_columns)
        m_fields.append(m_dataset ? m_dataset->columnIndex(column.field) : -1);
    endResetModel();
}

bool GridModel::isNumber(int column) const {
    const ColumnKind kind = m_columns[column].kind;
    return kind == ColumnKind::Number || kind == ColumnKind::Code;
}

Qt::Alignment GridModel::alignment(int column) const {
    const bool centred = m_columns[column].centred || m_columns[column].kind == ColumnKind::Mark;
    return Qt::AlignVCenter | (centred ? Qt::AlignHCenter : Qt::AlignRight | Qt::AlignAbsolute);
}

QString GridModel::format(int column, const QVariant& value) const {
    const GridColumn& definition = m_columns[column];
    QString text = data::valueText(value);
    if (definition.kind == ColumnKind::Mark)
        return text.trimmed() == data::kMark ? QStringLiteral("✓") : text.trimmed();
    if (definition.displayFormat.isEmpty() || text.isEmpty())
        return text;
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    return isNumber ? formatNumber(definition.displayFormat, number) : text;
}

QString GridModel::text(int row, int column) const {
    if (!m_dataset || column < 0 || column >= m_columns.size() || row < 0 || row >= m_rows)
        return {};
    try {
        return format(column, m_dataset->valueAt(row, field(column)));
    } catch (const std::exception&) {
        return {};
    }
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_rows;
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    switch (role) {
        case Qt::DisplayRole:
            return text(index.row(), index.column());
        case Qt::TextAlignmentRole:
            return QVariant(alignment(index.column()));
        case Qt::AccessibleTextRole:
        case Qt::AccessibleDescriptionRole:
        case Qt::CheckStateRole:
            return spoken(index, role);
        default:
            return {};
    }
}

// What a reader of the screen says of a cell: a drawn mark is no word.
QVariant GridModel::spoken(const QModelIndex& index, int role) const {
    const GridColumn& column = m_columns[index.column()];
    const QString shown = text(index.row(), index.column());
    const bool isMark = column.kind == ColumnKind::Mark, isSet = isMark && !shown.isEmpty();
    if (role == Qt::CheckStateRole)
        return isMark ? QVariant(isSet ? Qt::Checked : Qt::Unchecked) : QVariant();
    if (role == Qt::AccessibleTextRole)
        return isMark ? isSet ? QStringLiteral("علامت دارد") : QStringLiteral("علامت ندارد")
               : shown.isEmpty() ? QStringLiteral("خالي")
                                 : shown;
    return QStringLiteral("%1، رديف %2 از %3")
               .arg(column.title.simplified())
               .arg(index.row() + 1)
               .arg(m_rows) +
           (column.readOnly ? QStringLiteral("، فقط خواندني") : QString());
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const bool title = orientation == Qt::Horizontal && section >= 0 && section < m_columns.size();
    if (title && (role == Qt::DisplayRole || role == Qt::ToolTipRole))
        return m_columns[section].title.trimmed();
    if (orientation == Qt::Vertical && role == Qt::AccessibleTextRole)
        return QString::number(section + 1);
    return {};
}

}  // namespace widgets
