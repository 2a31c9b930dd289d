// One condition on one column, as an operator says it and as the server reads it.
#pragma once

#include <QList>
#include <QString>
#include <optional>

#include "DataGrid.h"

namespace rowsieve {

// What a column is asked about as.
enum class ColumnSort { Text, Number, Mark };

// A column that can be asked about.
struct Field {
    QString name;
    QString title;
    ColumnSort sort = ColumnSort::Text;
};

// The visible columns of the grid that show a field of its dataset, in the order in which they stand.
QList<Field> fieldsOf(const widgets::DataGrid& grid);

// A way to compare, as the operator chooses and reads it and as the server does it.
struct Comparison {
    QString caption;
    // %1 stands for the column, %2 for the value: a literal, or the pattern of what is asked for.
    QString condition;
    // %1 stands for the column's title, %2 for the value.
    QString sentence;
    enum class Value { None, Whole, Beginning, Part } value = Value::Whole;

    bool takesValue() const { return value != Value::None; }
};

// What columns of that kind can be compared by, in the order of the choice.
const QList<Comparison>& comparisonsOf(ColumnSort sort);

// One row of the filter window.
struct Criterion {
    bool afterOr = false;  // how it is joined to the one before it
    Field field;
    Comparison comparison;
    QString value;  // as typed
};

// The number that was typed, as the server reads one: digits of all kinds, thousands separated or not.
// No value where it is none.
std::optional<QString> numberOf(const QString& typed);

// What is wrong with the value of a criterion, in the operator's words; empty when nothing is.
QString objection(const Criterion& criterion);

// The condition for a statement; every value must be free of objections. "And" binds before "or".
QString conditionOf(const QList<Criterion>& criteria);
// The same as a Persian sentence.
QString sentenceOf(const QList<Criterion>& criteria);

}  // namespace rowsieve
