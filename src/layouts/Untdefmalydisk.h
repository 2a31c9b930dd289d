// The layouts of the three files of the monthly tax report.
#pragma once

#include "Form.h"
#include "SuiteHost.h"

extern "C" {
extern widgets::Form* _FrmDefMalyDisk;
}

namespace layouts {

// Opens a layout by its table, "BCK_TAX1" to "BCK_TAX3", under a caption.
void openTaxLayout(const SuiteHost& host, const QString& table, const QString& caption,
                   const QString& fileName);

// Makes those of the three tables that are missing and seeds those that are empty. Where all is there no
// row is sent.
void prepareTaxLayouts(data::HostDatabase& db, const QStringList& tables);

}  // namespace layouts
