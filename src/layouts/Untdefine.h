// The layouts of the files for banks: for every bank its salary file and its control file, for every kind
// of loan its instalment file. Their tables are named by the row of the page that opens them.
#pragma once

#include "Form.h"
#include "SuiteHost.h"

extern "C" {
extern widgets::Form* _FrmDefine;
}

namespace layouts {

enum class BankFile { Sent, Control, Loan };

// The layout table of a row, as operators count rows.
QString bankLayoutTable(BankFile file, int row);
// Shows the layout window over it, modally; makes and fills the table where it is missing.
void openBankLayout(const SuiteHost& host, BankFile file, int row, const QString& fileName);

struct LayoutMove {
    int before;  // 0: a new row; what a row long gone has left in its place is dropped
    int now;     // 0: the row is deleted
};

// The statements that rename the layout tables of rows that have moved, in any order and all at once, and
// drop those of deleted rows. A row that has no table yet has none afterwards. To be called with every row
// that moves, in the transaction in which they are sent.
QStringList bankLayoutMoves(data::HostDatabase& db, BankFile file, const QList<LayoutMove>& moves);

}  // namespace layouts
