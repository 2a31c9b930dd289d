// Asks for the name of a PDF file.
#pragma once

#include <QString>

namespace report {

// The whole name of the file to write; empty when the operator gives up.
QString askPdfName(const QString& suggested);

}  // namespace report
