// A random session as a scenario: an operator at every page, and a host that ends, shows and changes the
// month of the window at any line.
#pragma once

#include <QString>

namespace play {

struct Session {
    QString text;        // of the scenario
    int firstCheck = 0;  // the line from which on what is expected must hold; before it anything may fail
};

// The same for the same seed, on every machine.
Session randomSession(quint32 seed, int lines);

}  // namespace play
