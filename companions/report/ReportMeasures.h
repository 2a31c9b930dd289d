// Measures that layout and painting of a report share.
#pragma once

#include "GridReport.h"

namespace report {

inline constexpr qreal kPadding = 50;         // beside the text of a cell, at full size
inline constexpr qreal kTitleSpacing = 1.25;  // of lines in the head

// The title of the column that counts the rows.
inline QString rowNumberTitle() {
    return QStringLiteral("رديف");
}

// The first title is the report's, the others stand under it.
inline qreal titlePoints(const ReportProperties& properties, int title) {
    return title == 0 ? properties.titleSize : properties.bodySize + 1;
}

}  // namespace report
