// The table that the exports are measured on: 100,000 rows by 20 columns.
#pragma once

#include <QTemporaryDir>
#include <memory>

#include "DataGrid.h"
#include "HostContext.h"

namespace bench {

inline constexpr int kWideRows = 100'000;
// Its last columns, amount_1, amount_2, …
inline constexpr int kWideAmounts = 15;
inline const QString kWideTable = QStringLiteral("Wide_Rows");

// A company file with that table.
QString wideCompany();

// A grid over all of it, in the order of its codes, and a folder to export into.
struct WideGrid {
    QString file = wideCompany();
    std::unique_ptr<data::Connection> connection;
    data::Dataset rows;
    widgets::DataGrid view;
    QTemporaryDir folder;
    data::HostContext context;

    WideGrid();
};

}  // namespace bench
