// The record that a layout describes: which field stands where, with what in it, and what its readers would
// not take. Positions and lengths in bytes of a single-byte code page, positions from 1.
#pragma once

#include <QHash>
#include <QString>

#include "Dataset.h"

namespace layouts {

// A row of a layout table, by its columns.
struct LayoutRow {
    QString title, name;
    int length = 0, order = 0;
    QString type, fixed, source, alignment, padding;
    int decimals = 0;
};

struct RecordField {
    int row = 0;  // of the layout, from 1
    QString title, name;
    QString type;
    qint64 from = 0;
    int length = 0;
    QString value;  // as it is written, padded, as far as any record goes
    QStringList notes;
};

struct RecordLayout {
    QList<RecordField> fields;  // in the order in which they are written
    qint64 length = 0;

    QString text() const;  // as far as any record goes
    qsizetype notes() const;
};

QList<LayoutRow> layoutRows(const data::Dataset& rows);

// Rows of no length are outside the record. `sources` are values for sources, by their names in lower case; a
// sample of its type stands for any other.
RecordLayout recordOf(const QList<LayoutRow>& rows, const QHash<QString, QString>& sources);

}  // namespace layouts
