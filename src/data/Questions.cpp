#include "Questions.h"

#include <utility>

#include "Errors.h"

namespace data {

void Questions::ask(const QString& select, Take take) {
    m_texts.append(select);
    m_takes.append(std::move(take));
}

void Questions::send(Connection& connection) {
    const QStringList texts = std::exchange(m_texts, {});
    const QList<Take> takes = std::exchange(m_takes, {});
    if (texts.isEmpty())
        return;
    const QList<ResultSet> answers = connection.executeAll(texts.join(u'\n'));
    if (answers.size() != takes.size())
        throw ServerError(
            QStringLiteral("%1 answers to %2 questions.").arg(answers.size()).arg(takes.size()));
    for (qsizetype i = 0; i < answers.size(); ++i)
        takes[i](answers[i]);
}

}  // namespace data
