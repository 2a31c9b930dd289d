// The three ways in which a step of the operator's work ends early. All are caught at the event
// boundary of widgets/, nowhere else, unless the catcher rethrows.
#pragma once

#include <QString>
#include <exception>

namespace data {

class TextException : public std::exception {
public:
    explicit TextException(QString text) : m_text(std::move(text)), m_utf8(m_text.toUtf8()) {}
    const QString& text() const { return m_text; }
    const char* what() const noexcept override { return m_utf8.constData(); }

private:
    QString m_text;
    QByteArray m_utf8;
};

// What a refusal of the server means to the module.
enum class Fault {
    Other,
    RepeatedKey,   // a key or unique index has the value already
    MissingValue,  // NULL in a column that must have a value
    TooLong,       // a text beyond its column
    Referred,      // a constraint on other rows
    Deadlock,      // the server has undone the transaction for another one's sake: it may be tried again
    LockTimeout,   // somebody else holds the rows
    NoSuchObject,  // a table, view or procedure
    NoSuchColumn,
    LineLost,       // nothing more can be sent until the connection is made anew; nothing is stored
    CommitUnknown,  // the line was cut while a transaction was stored: it may be or not
    GivenUp,        // the operator has cancelled the statement
    TimedOut        // the server has taken longer than the host lets it
};

// The server refused a statement; the text is the server's own. The page in front decides which of
// its messages the operator reads.
class ServerError : public TextException {
public:
    // `number` is the server's; where it gave none, 0, its words say which fault it is.
    explicit ServerError(const QString& text, int number = 0);
    // A fault that has no number.
    ServerError(const QString& text, Fault fault) : TextException(text), m_fault(fault) {}

    // The number of the message with those words; 0 for one that the module does not tell apart.
    static int numberOf(const QString& text);

    int number() const { return m_number; }
    Fault fault() const { return m_fault; }
    // The statement that was refused; empty where it is not known. Only its words: values are left out.
    const QString& statement() const { return m_statement; }
    void setStatement(const QString& sql);
    // Number, the server's words and the statement, for an administrator: values of rows are left
    // out of all of them.
    QString details() const;

private:
    int m_number = 0;
    Fault m_fault = Fault::Other;
    QString m_statement;
};

// The module refuses an input; the text is the Persian sentence that the operator reads.
class Refusal : public TextException {
public:
    using TextException::TextException;
};

// A file's path within a Persian sentence: it reads from the left there too.
inline QString pathInText(const QString& file) {
    return QChar(0x202A) + file + QChar(0x202C);
}

// A handler gives up its step after it has said all there is to say.
class SilentAbort : public std::exception {
public:
    const char* what() const noexcept override { return "abandoned"; }
};

}  // namespace data
