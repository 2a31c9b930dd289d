// One client's line: its login, and what it asks.
#pragma once

#include <atomic>
#include <memory>

#include "Errors.h"
#include "Packets.h"
#include "Tokens.h"

namespace wire {

// What a run asks for besides what a server always does.
struct Harshness {
    std::atomic<bool> cutsAtCommit = false;    // the line in the place of the next commit's reply
    std::atomic<int> latencyMilliseconds = 0;  // before every reply
    bool noCount = false;          // replies do not tell how many rows a change touched, until a session asks
    std::atomic<int> replies = 0;  // that have been given to batches
    int packetSize = 4096;         // bytes, 512 at least
    int codePage = 1256;           // that the database says it has
    QStringList missingRights = {};
};

class Session {
public:
    Session(int socket, std::unique_ptr<data::Connection> company, Harshness& harshness);

    int socket() const { return m_packets.socket(); }
    // Serves the message that has begun to come; false when the line has ended.
    bool serve();

private:
    bool welcome(const QByteArray& login);
    bool batch(const QByteArray& content);
    bool isGivenUp() const;
    // Replies itself to what the engine behind knows nothing of; false for anything else.
    bool command(const QString& sql, Tokens& reply);
    void describeSession(Tokens& reply);
    bool call(const QByteArray& content);
    void primaryKeys(const QString& of, Tokens& reply);
    void run(const QString& sql, Tokens& reply);
    void refuse(const data::ServerError& error, Tokens& reply);

    Packets m_packets;
    std::unique_ptr<data::Connection> m_company;
    Harshness& m_harshness;  // the server's
    bool m_modern = true;
    bool m_counts = true;
};

}  // namespace wire
