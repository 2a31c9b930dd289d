// What a page offers besides what it was made for: entries at the end of its menu, after its own, and their
// keys; the same on every page of a kind. A feature is one of these and a unit of its own.
#pragma once

#include <QKeySequence>
#include <functional>

namespace definition {

class DefinitionPage;

struct PageFeature {
    QString caption;
    int image = -1;
    QKeySequence key;
    // Whether pages like this have the entry, and whether it has something to do now; else it is grey.
    std::function<bool(const DefinitionPage&)> isOffered;
    std::function<bool(DefinitionPage&)> canRun;
    std::function<void(DefinitionPage&)> run;
    // What it has to say of the rows as they are; empty for nothing. A click on it runs it.
    std::function<QString(DefinitionPage&)> advice = {};
    // While the entry is grey its key is the grid's.
    bool sharesKey = false;
};

const QList<PageFeature>& pageFeatures();

// Adds the entries of those that the page offers to its menu.
void addFeatures(DefinitionPage& page);

// Says at the far end of the status line what one of them has to say of the rows, or nothing.
void adviseOnRows(DefinitionPage& page);

}  // namespace definition
