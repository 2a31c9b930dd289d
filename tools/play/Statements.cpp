#include "Statements.h"

#include "Errors.h"
#include "Player.h"
#include "Query.h"

namespace play {
namespace {

Value found(const QVariant& value) {
    if (!value.isValid() || value.isNull())
        return {};
    const bool text = value.metaType().id() == QMetaType::QString;
    return {text ? Value::Kind::Text : Value::Kind::Number, data::valueText(value)};
}

QString written(const QList<Value>& row) {
    QStringList values;
    for (const Value& value : row)
        values.append(value.written());
    return values.join(QStringLiteral(" | "));
}

void compareRows(const QList<QList<Value>>& expected, const data::ResultSet& result) {
    const qsizetype rows = qMax(expected.size(), result.rows.size());
    for (qsizetype i = 0; i < rows; ++i) {
        QList<Value> row;
        for (const QVariant& value : result.rows.value(i))
            row.append(found(value));
        if (i < expected.size() && i < result.rows.size() && expected[i] == row)
            continue;
        throw Failure{QStringLiteral("expected row %1 %2 but found %3")
                          .arg(i + 1)
                          .arg(i < expected.size() ? written(expected[i]) : QStringLiteral("to be missing"),
                               i < result.rows.size() ? written(row) : QStringLiteral("none"))};
    }
}

}  // namespace

void runStatement(Player& player, const Statement& statement) {
    const Observer::Unseen unseen(player.observer);
    const QString text = player.substituted(statement.text);
    data::Connection& connection = player.stage.objects().connection();
    if (statement.outcome != Statement::Outcome::Error) {
        const data::ResultSet result = connection.execute(text);
        if (statement.outcome == Statement::Outcome::Rows)
            compareRows(statement.rows, result);
        return;
    }
    try {
        connection.execute(text);
    } catch (const data::TextException& error) {
        if (comparable(error.text()).contains(comparable(statement.error)))
            return;
        throw Failure{QStringLiteral("expected the error ") + play::written(statement.error) +
                      QStringLiteral(" but found ") + play::written(error.text())};
    }
    throw Failure{QStringLiteral("expected the error ") + play::written(statement.error) +
                  QStringLiteral(" but found none")};
}

}  // namespace play
