#include "WireServer.h"

#include <arpa/inet.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <unistd.h>

#include <list>
#include <stdexcept>

namespace wire {
namespace {

constexpr char kCut = 'c', kEnd = 'e';

}  // namespace

WireServer::WireServer(Open open) : m_open(std::move(open)) {
    listen();
    if (::pipe(m_wake) != 0)
        throw std::runtime_error("no pipe");
    m_thread = std::thread([this] { serve(); });
}

WireServer::~WireServer() {
    [[maybe_unused]] const ssize_t woken = ::write(m_wake[1], &kEnd, 1);
    m_thread.join();
    for (const int file : {m_wake[0], m_wake[1], m_listener})
        ::close(file);
}

void WireServer::cut() {
    [[maybe_unused]] const ssize_t woken = ::write(m_wake[1], &kCut, 1);
    m_cut.acquire();
}

void WireServer::listen() {
    m_listener = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in place = {};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof place;
    auto* address = reinterpret_cast<sockaddr*>(&place);
    if (m_listener < 0 || ::bind(m_listener, address, size) != 0 || ::listen(m_listener, 4) != 0 ||
        ::getsockname(m_listener, address, &size) != 0)
        throw std::runtime_error("no port");
    m_port = ntohs(place.sin_port);
}

QString WireServer::connectionString() const {
    return QStringLiteral(
               "Driver=%1;Server=127.0.0.1;Port=%2;UID=test;PWD=test;TDS_Version=7.4;"
               "ClientCharset=UTF-8;Database=company")
        .arg(QStringLiteral(KORVANTA_TDS_DRIVER))
        .arg(m_port);
}

void WireServer::serve() {
    std::list<Session> sessions;
    for (;;) {
        std::vector<pollfd> waited = {{m_wake[0], POLLIN, 0}, {m_listener, POLLIN, 0}};
        for (const Session& session : sessions)
            waited.push_back({session.socket(), POLLIN, 0});
        if (::poll(waited.data(), waited.size(), -1) < 0)
            continue;
        if (char why = kEnd; waited[0].revents != 0) {
            if (::read(m_wake[0], &why, 1) != 1 || why == kEnd)
                return;
            sessions.clear();
            m_cut.release();
            continue;
        }
        size_t place = 2;
        for (auto session = sessions.begin(); session != sessions.end(); ++place)
            if (place < waited.size() && waited[place].revents != 0 && !session->serve())
                session = sessions.erase(session);
            else
                ++session;
        if (waited[1].revents != 0) {
            const int client = ::accept(m_listener, nullptr, nullptr);
            const int soon = 1;
            ::setsockopt(client, IPPROTO_TCP, TCP_NODELAY, &soon, sizeof soon);
            sessions.emplace_back(client, m_open(), m_harshness);
        }
    }
}

}  // namespace wire
