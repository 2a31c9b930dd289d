// What the suite's modules and its companion libraries hand to each other. A companion library lies
// in the folder DLLS/SharedForms of the installation, exports its entry points with C linkage under the
// names below, shows a modal form of its own and returns.
#pragma once

#include <QColor>
#include <QList>
#include <QString>

#include "DlgMsg.h"
#include "HostContext.h"

namespace widgets {
class DataGrid;
}

// A row of the grid that a print engine colours.
struct TColorRows {
    int Row = 0;  // from 0
    QColor Color;
};

// What a print engine needs to know, in the order in which the suite's print engines read it.
struct TDLLPrnParam {
    QObject* Source = nullptr;  // the module's report object; its properties are those of ReportSource
    widgets::DataGrid* Grid = nullptr;
    QString Title1, Title2, Title3;
    QString CurrentDate;  // Jalali, "year/month/day"
    QString Text1, Text2, Text3;
    // From here to UserIdText the bridge fills in, whatever stood there.
    QString Reserved1, Reserved2;  // empty
    QString CurrentDate2;
    QString HostText2;  // the installation folder
    data::Connection* Connection = nullptr;
    QString UserIdText;
    QString GridKey;  // program_item_form_part
    QString Text4;
    QList<TColorRows*> ColorRows;
};

namespace companions {

// Dynamic properties of the object that a module gives to RepPropertyForm_Show and as Source.
namespace ReportSource {
inline constexpr char kGridKey[] = "GridKey";        // key of the report's stored properties
inline constexpr char kInstallDir[] = "InstallDir";  // installation folder
}  // namespace ReportSource

// RowSieve: lets the operator restrict the rows of a table. `result` becomes a statement of the form
// "Select * From table Where condition", empty when he gives up. `baseText` names the table.
using ShowFilter = void(QString* result, data::HostContext* context, data::HostDatabase* database,
                        TDlgMsg* messages, widgets::DataGrid* grid, const QString& baseText,
                        const QString& reserved);
// RowSeek: finds a text in the selected column and moves the grid there. `result` becomes the text
// searched for last; `previous` is what it was the time before.
using GridSearch = void(QString* result, widgets::DataGrid* grid, const QString& sortColumn,
                        const QString& table, const QString& previous);
// RowSeek: orders the grid's rows by several columns. `result` becomes the order, for whom it interests.
using AdvSort = void(QString* result, widgets::DataGrid* grid, const QString& reserved1,
                     const QString& reserved2, const QString& reserved3);
// ReportSetup: lets the operator set title, paper, margins and fonts of a report. `mode` is "NoThing".
using RepPropertyForm_Show = void(const QString& mode, const QString& title, QObject* source);
// SheetOut and SheetOut1: preview and print of a grid.
using PrintForm_Show = void(TDLLPrnParam* parameters);

}  // namespace companions
