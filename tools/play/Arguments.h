// The words behind a command, read in turn and checked.
#pragma once

#include <functional>

#include "Script.h"

namespace play {

class Arguments {
public:
    // `skipped` words have been read already.
    Arguments(const Line& line, qsizetype skipped) : m_line(line), m_at(skipped) {}

    bool atEnd() const { return m_at >= m_line.words.size(); }
    // Takes the next word when it is that keyword.
    bool take(const char* keyword);
    // The next word; each throws Failure when there is none, or it is none of that kind.
    QString text();
    int number();
    bool yes();  // yes or no
    // All words that are left; at least one.
    QStringList rest();
    // Throws Failure when words are left over.
    void end() const;

    bool nextIsNumber() const;
    const Statement& statement() const { return m_line.statement; }

private:
    const Word& next();

    const Line& m_line;
    qsizetype m_at;
};

}  // namespace play
