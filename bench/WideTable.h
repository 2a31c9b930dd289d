// The table that the exports are measured on: 100,000 rows by 20 columns.
#pragma once

#include <QString>

namespace bench {

inline constexpr int kWideRows = 100'000;
// Its last columns, amount_1, amount_2, …
inline constexpr int kWideAmounts = 15;
inline const QString kWideTable = QStringLiteral("Wide_Rows");

// A company file with that table.
QString wideCompany();

}  // namespace bench
