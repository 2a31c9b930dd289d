// Inputs of any bytes for what reads texts from outside: statements, settings, clipboards, files. Fuzzed by
// ./dev fuzz; the inputs that are kept in corpora/ are played with the tests.
#pragma once

#include <QByteArray>
#include <QList>
#include <functional>

namespace fuzz {

struct Target {
    const char* name;
    // Throws where the input shows a fault; what a user may be told is none.
    std::function<void(const QByteArray& input)> run;
};
const QList<Target>& targets();

// Runs a step; a refusal in the words of server or program is an answer.
void answered(const std::function<void()>& step);
// Throws std::logic_error.
void require(bool holds, const char* what);

// Bytes that decide, one after the other; zeros once they have come to their end.
class Choices {
public:
    explicit Choices(const QByteArray& bytes) : m_bytes(bytes) {}
    bool atEnd() const { return m_at >= m_bytes.size(); }
    int below(int count) { return atEnd() ? 0 : static_cast<uchar>(m_bytes[m_at++]) % count; }
    QString oneOf(const QStringList& words) { return words[below(static_cast<int>(words.size()))]; }
    // What is left, as text.
    QString rest() { return QString::fromUtf8(m_bytes.mid(std::exchange(m_at, m_bytes.size()))); }

private:
    const QByteArray m_bytes;
    qsizetype m_at = 0;
};

void statement(const QByteArray& input);
void sequence(const QByteArray& input);
void options(const QByteArray& input);
void details(const QByteArray& input);
void settings(const QByteArray& input);
void gridLayout(const QByteArray& input);
void block(const QByteArray& input);
void record(const QByteArray& input);
void dbf(const QByteArray& input);
void scenario(const QByteArray& input);

}  // namespace fuzz
