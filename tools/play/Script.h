// A scenario as it is written: lines of words, and statements with the rows they must give.
#pragma once

#include <QList>
#include <QString>

namespace play {

// A word of a line.
struct Word {
    QString text;
    bool quoted = false;

    // A word of the grammar; a quoted one is always the operator's text.
    bool is(const char* keyword) const { return !quoted && text == QLatin1String(keyword); }
};

// One value of an expected or found row, as it is written: 12.5, NULL or text.
struct Value {
    enum class Kind { Null, Number, Text } kind = Kind::Null;
    QString text;

    bool operator==(const Value& other) const;
    QString written() const;
};

// T-SQL, and what must become of it.
struct Statement {
    enum class Outcome { Any, Rows, Error } outcome = Outcome::Any;
    QString text;
    QList<QList<Value>> rows;
    QString error;  // a part of the server's message
};

// A line that says something; blank ones and comments are gone.
struct Line {
    int number = 0;
    QList<Word> words;
    Statement statement;  // of a `sql` line
    QString trouble;      // why the line cannot be understood; empty when it can
};

struct Script {
    QString file;
    QList<Line> lines;

    // Lines with trouble are kept, so that they fail where they stand. Throws Failure when the file
    // cannot be read.
    static Script read(const QString& file);
};

// What goes wrong in a scenario; the text is the rest of the line after FILE:LINE.
struct Failure {
    QString text;
};

// "text" between double quotes, escaped as a scenario writes it.
QString written(const QString& text);
// Persian and Arabic digits as ASCII: how texts compare.
QString comparable(const QString& text);

}  // namespace play
