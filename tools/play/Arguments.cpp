#include "Arguments.h"

namespace play {

const Word& Arguments::next() {
    if (atEnd())
        throw Failure{QStringLiteral("not understood: a word is missing")};
    return m_line.words[m_at++];
}

bool Arguments::take(const char* keyword) {
    if (atEnd() || !m_line.words[m_at].is(keyword))
        return false;
    ++m_at;
    return true;
}

QString Arguments::text() {
    return next().text;
}

int Arguments::number() {
    const Word& word = next();
    bool understood = false;
    const int number = word.text.toInt(&understood);
    if (!understood || word.quoted)
        throw Failure{QStringLiteral("not understood: a number stands here, not ") + word.text};
    return number;
}

bool Arguments::yes() {
    const Word& word = next();
    if (!word.is("yes") && !word.is("no"))
        throw Failure{QStringLiteral("not understood: yes or no stands here, not ") + word.text};
    return word.is("yes");
}

QStringList Arguments::rest() {
    QStringList words(text());
    while (!atEnd())
        words.append(text());
    return words;
}

void Arguments::end() const {
    if (!atEnd())
        throw Failure{QStringLiteral("not understood: too many words, from ") + m_line.words[m_at].text};
}

bool Arguments::nextIsNumber() const {
    bool number = false;
    if (!atEnd() && !m_line.words[m_at].quoted)
        m_line.words[m_at].text.toInt(&number);
    return number;
}

}  // namespace play
