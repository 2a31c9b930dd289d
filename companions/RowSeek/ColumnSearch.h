// Finds a text in one column of a grid, over all rows of its dataset.
#pragma once

#include <QList>

#include "DataGrid.h"

namespace rowseek {

class ColumnSearch {
public:
    // The grid must outlive it and its dataset stay open; `column` is a design index.
    ColumnSearch(widgets::DataGrid& grid, int column);

    // What is searched for; ی/ي/ى, ک/ك, digits of all kinds and letter cases count as the same, stretching
    // strokes, joiners and vowels not at all. Numbers are found as they are shown, with or without their
    // separators; a mark by "ض" or "✓".
    void setText(const QString& text, bool atBeginning);

    // What a step found.
    struct Found {
        int row = -1;          // -1: no row holds the text
        int place = 0;         // which of the rows that hold it, from 1
        int count = 0;         // rows that hold it
        bool wrapped = false;  // the search went past the end of the rows and on from their other end
    };
    // Moves the dataset to the nearest row after (before) the current one that holds the text, and from
    // the other end when there is none.
    Found next();
    Found prior();

private:
    Found find(bool forwards);
    Found nearest(bool forwards) const;
    void collect();
    QString shown(const QVariant& value) const;
    bool holds(const QVariant& value) const;

    widgets::DataGrid& m_grid;
    const widgets::GridColumn m_column;
    int m_field;
    QString m_text;
    bool m_atBeginning = false;
    bool m_collected = false;
    QList<int> m_rows;  // that hold the text, in order
};

}  // namespace rowseek
