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

// The server refused a statement; the text is the server's own. The page in front decides which of
// its messages the operator reads.
class ServerError : public TextException {
public:
    using TextException::TextException;
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
