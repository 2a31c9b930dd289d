// Names of tables, columns and keywords compare without letter case.
#pragma once

#include <QString>
#include <QStringView>

namespace tsql {

// A letter in the one case that names are compared in; only Latin letters have two.
inline char16_t folded(QChar character) {
    const char16_t unit = character.unicode();
    return unit >= u'A' && unit <= u'Z' ? char16_t(unit + 32) : unit;
}

// The same for all spellings of a name.
inline quint32 foldedHash(QStringView text) {
    quint32 hash = 2166136261u;
    for (QChar character : text)
        hash = (hash ^ folded(character)) * 16777619u;
    return hash;
}

// Whether two spellings name one thing.
inline bool sameName(QStringView left, QStringView right) {
    if (left.size() != right.size())
        return false;
    for (qsizetype i = 0; i < left.size(); ++i)
        if (folded(left[i]) != folded(right[i]))
            return false;
    return true;
}

// A name as it stands in a statement, with the hash that finds it.
struct Name {
    QStringView text;
    quint32 hash = 0;

    Name() = default;
    Name(QStringView view) : text(view), hash(foldedHash(view)) {}
    Name(QStringView view, quint32 known) : text(view), hash(known) {}
    bool isEmpty() const { return text.isEmpty(); }
    bool operator==(const Name& other) const { return hash == other.hash && sameName(text, other.text); }
};

}  // namespace tsql
