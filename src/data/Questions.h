// Questions to the server that do not need each other's answers and travel in one text: on a network a text
// is waited for, not a statement.
#pragma once

#include "Connection.h"

namespace data {

class Questions {
public:
    using Take = std::function<void(const ResultSet&)>;

    // One SELECT, and what is done with what it gives.
    void ask(const QString& select, Take take);
    // A statement that gives no rows, in its place among the questions.
    void run(const QString& statement) { m_texts.append(statement); }

    // Sends all of it, nothing where nothing was asked, and hands out the answers in order. Then it is empty.
    // ServerError where any of it is refused; no answer is handed out then.
    void send(Connection& connection);

private:
    QStringList m_texts;
    QList<Take> m_takes;
};

}  // namespace data
