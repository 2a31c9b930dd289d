#include "CodeMove.h"

#include <QStringList>

namespace definition {

QString exchangeStatement(const QString& table, const QString& column,
                          const QList<std::pair<QString, QString>>& literals, const QString& condition) {
    if (literals.isEmpty())
        return {};
    QStringList held;
    QString changes;
    bool empties = true;
    for (const auto& [from, to] : literals) {
        held.append(from);
        changes += " When " + from + " Then " + to;
        empties = empties && to == QLatin1String("NULL");
    }
    // The server refuses a choice of nothing but NULL.
    if (empties)
        changes += " Else " + column;
    return "Update " + table + " Set " + column + "=Case " + column + changes + " End Where " + column +
           " In (" + held.join(u',') + ')' + condition;
}

}  // namespace definition
