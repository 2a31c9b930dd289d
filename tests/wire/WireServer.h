// A server for tests: it speaks the tabular data stream on a port of its own, with the embedded engine behind
// it. Like a real one it tells rows apart by keys alone, ends a transaction at any error and says more than
// it is asked. It goes with the object.
#pragma once

#include <QSemaphore>
#include <functional>
#include <thread>

#include "Session.h"

namespace wire {

class WireServer {
public:
    using Open = std::function<std::unique_ptr<data::Connection>()>;

    // `open` opens the company for a client; called, and the connection used, in the server's own thread.
    explicit WireServer(Open open);
    ~WireServer();
    WireServer(const WireServer&) = delete;
    WireServer& operator=(const WireServer&) = delete;

    // Ends every client's line, and comes back when that is done.
    void cut();

    // What is set here holds for lines that begin later.
    Harshness& harshness() { return m_harshness; }

    // For odbc::open.
    QString connectionString() const;

private:
    void listen();
    void serve();

    Open m_open;
    Harshness m_harshness;
    int m_listener = -1, m_port = 0;
    int m_wake[2] = {-1, -1};  // a pipe that wakes the thread: to cut the lines, or to its end
    QSemaphore m_cut;
    std::thread m_thread;
};

}  // namespace wire
