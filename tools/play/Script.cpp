#include "Script.h"

#include <QFile>
#include <optional>

#include "CodePage.h"

namespace play {
namespace {

const QString kRule = QStringLiteral("----");

// Reads words from a line; a quoted one knows \" \\ \n and \t.
class Lexer {
public:
    explicit Lexer(const QString& line) : m_line(line) {}

    // The next word; no value at the end of the line. Throws Failure for an open quote.
    std::optional<Word> next() {
        skipBlanks();
        if (atEnd())
            return std::nullopt;
        if (m_line[m_at] == u'"')
            return Word{quoted(), true};
        const qsizetype start = m_at;
        while (!atEnd() && !m_line[m_at].isSpace())
            ++m_at;
        return Word{m_line.mid(start, m_at - start), false};
    }

private:
    bool atEnd() const { return m_at >= m_line.size(); }
    void skipBlanks() {
        while (!atEnd() && m_line[m_at].isSpace())
            ++m_at;
    }

    QString quoted() {
        QString text;
        for (++m_at; !atEnd(); ++m_at) {
            const QChar character = m_line[m_at];
            if (character == u'"') {
                ++m_at;
                if (!atEnd() && !m_line[m_at].isSpace())
                    throw Failure{QStringLiteral("a blank must follow a closing quote")};
                return text;
            }
            text += character == u'\\' ? escaped() : character;
        }
        throw Failure{QStringLiteral("a quote is not closed")};
    }

    QChar escaped() {
        static const QString letters = QStringLiteral("\"\\nt"), meant = QStringLiteral("\"\\\n\t");
        const qsizetype which = ++m_at < m_line.size() ? letters.indexOf(m_line[m_at]) : -1;
        if (which < 0)
            throw Failure{QStringLiteral("unknown escape in quotes")};
        return meant[which];
    }

    QString m_line;
    qsizetype m_at = 0;
};

QList<Word> wordsOf(const QString& line) {
    Lexer lexer(line);
    QList<Word> words;
    while (const auto word = lexer.next())
        words.append(*word);
    return words;
}

QList<Value> rowOf(const QString& line) {
    QList<Value> values;
    bool separatorDue = false;
    for (const Word& word : wordsOf(line)) {
        if (word.is("|") != separatorDue)
            throw Failure{QStringLiteral("fields of a row stand between \" | \"")};
        separatorDue = !separatorDue;
        bool number = false;
        word.text.toDouble(&number);
        if (word.is("|"))
            continue;
        if (word.quoted)
            values.append({Value::Kind::Text, word.text});
        else if (word.is("NULL"))
            values.append({Value::Kind::Null, {}});
        else if (number)
            values.append({Value::Kind::Number, word.text});
        else
            throw Failure{QStringLiteral("texts of a row stand in quotes: ") + word.text};
    }
    if (!separatorDue)
        throw Failure{QStringLiteral("a row ends with a field")};
    return values;
}

class Reader {
public:
    explicit Reader(const QStringList& source) : m_source(source) {}

    QList<Line> read() {
        QList<Line> lines;
        while (m_at < m_source.size()) {
            const QString text = m_source[m_at++].trimmed();
            if (text.isEmpty() || text.startsWith(u'#'))
                continue;
            Line line;
            line.number = int(m_at);
            try {
                line.words = wordsOf(text);
                if (line.words.first().is("sql"))
                    readStatement(line);
            } catch (const Failure& failure) {
                line.trouble = failure.text;
                skipBlock(line);
            }
            // Each key waits until what the one before it did is over.
            const bool keys = line.trouble.isEmpty() && line.words.first().is("key");
            const QList<Word> words = line.words;
            for (qsizetype i = 1; keys && i + 1 < words.size(); ++i) {
                line.words = {words.first(), words[i]};
                lines.append(line);
                line.words = {words.first(), words.last()};
            }
            lines.append(line);
        }
        return lines;
    }

private:
    bool inBlock() const { return m_at < m_source.size() && !m_source[m_at].trimmed().isEmpty(); }

    // After trouble in a statement the rest of it is no command.
    void skipBlock(const Line& line) {
        while (!line.words.isEmpty() && line.words.first().is("sql") && inBlock())
            ++m_at;
    }

    void readStatement(Line& line) {
        if (line.words.size() > 1)
            throw Failure{QStringLiteral("sql stands alone in its line")};
        Statement& statement = line.statement;
        while (inBlock() && !m_source[m_at].startsWith(kRule))
            statement.text += m_source[m_at++] + u'\n';
        if (statement.text.isEmpty())
            throw Failure{QStringLiteral("sql is followed by its statement")};
        if (!inBlock())
            return;
        const QString rule = m_source[m_at++].trimmed();
        if (rule == kRule) {
            statement.outcome = Statement::Outcome::Rows;
            while (inBlock())
                statement.rows.append(rowOf(m_source[m_at++]));
        } else if (rule == kRule + QStringLiteral(" error")) {
            statement.outcome = Statement::Outcome::Error;
            if (!inBlock())
                throw Failure{QStringLiteral("---- error is followed by a part of the message")};
            statement.error = m_source[m_at++].trimmed();
            if (inBlock())
                throw Failure{QStringLiteral("one line follows ---- error")};
        } else {
            throw Failure{QStringLiteral("unknown rule: ") + rule};
        }
    }

    QStringList m_source;
    qsizetype m_at = 0;
};

}  // namespace

bool Value::operator==(const Value& other) const {
    if (kind != other.kind)
        return false;
    if (kind == Kind::Number)
        return text == other.text || text.toDouble() == other.text.toDouble();
    return comparable(text) == comparable(other.text);
}

QString Value::written() const {
    switch (kind) {
        case Kind::Null:
            return QStringLiteral("NULL");
        case Kind::Number:
            return text;
        case Kind::Text:
            return play::written(text);
    }
    return {};
}

Script Script::read(const QString& file) {
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly))
        throw Failure{QStringLiteral("cannot be read: ") + source.errorString()};
    QString text = QString::fromUtf8(source.readAll());
    text.remove(QChar(0xFEFF)).remove(u'\r');
    return {file, Reader(text.split(u'\n')).read()};
}

QString written(const QString& text) {
    QString result = text;
    result.replace(u'\\', QLatin1String("\\\\")).replace(u'"', QLatin1String("\\\""));
    result.replace(u'\n', QLatin1String("\\n")).replace(u'\t', QLatin1String("\\t"));
    return u'"' + result + u'"';
}

QString comparable(const QString& text) {
    return data::foldDigits(text);
}

}  // namespace play
