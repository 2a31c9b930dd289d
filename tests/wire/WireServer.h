// A server for tests: it speaks the tabular data stream on a port of its own, with the embedded engine behind
// it. Like a real one it tells rows apart by keys alone, ends a transaction at any error and says more than
// it is asked. It goes with the object.
#pragma once

#include <atomic>
#include <functional>
#include <thread>

#include "Session.h"

namespace wire {

class WireServer {
public:
    using Open = std::function<std::unique_ptr<data::Connection>()>;

    // `open` opens the company for a client; called, and the connection used, in the server's own thread.
    explicit WireServer(Open open, const Harshness& harshness = {});
    ~WireServer();
    WireServer(const WireServer&) = delete;
    WireServer& operator=(const WireServer&) = delete;

    // For odbc::open.
    QString connectionString() const;

private:
    void listen();
    void serve();

    Open m_open;
    Harshness m_harshness;
    int m_listener = -1, m_port = 0;
    int m_end[2] = {-1, -1};  // a pipe that wakes the thread to its end
    std::thread m_thread;
};

}  // namespace wire
