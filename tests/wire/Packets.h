// Messages of the tabular data stream over a socket: packets of the agreed size, one message at a time.
#pragma once

#include <QByteArray>
#include <optional>

namespace wire {

enum class MessageType : quint8 {
    Batch = 0x01,
    Call = 0x03,
    Reply = 0x04,
    Attention = 0x06,
    TransactionManager = 0x0E,
    Login = 0x10,
    Prelogin = 0x12
};

struct Message {
    MessageType type;
    QByteArray content;
};

class Packets {
public:
    explicit Packets(int socket) : m_socket(socket) {}
    ~Packets();
    Packets(const Packets&) = delete;
    Packets& operator=(const Packets&) = delete;

    int socket() const { return m_socket; }
    // The next message, waited for; none when the line has ended.
    std::optional<Message> read() const;
    // False when the line has ended.
    bool write(const QByteArray& reply) const;
    // Bytes of a packet, its head included.
    void setSize(int size) { m_size = size; }

private:
    bool receive(char* bytes, qsizetype size) const;
    bool send(const QByteArray& bytes) const;

    int m_socket;
    int m_size = 512;
};

}  // namespace wire
