#include "Packets.h"

#include <sys/socket.h>
#include <unistd.h>

#include <QtEndian>

namespace wire {
namespace {

constexpr int kHead = 8;
constexpr char kLast = 1;  // the status of a message's last packet

}  // namespace

Packets::~Packets() {
    ::close(m_socket);
}

bool Packets::receive(char* bytes, qsizetype size) const {
    while (size > 0) {
        const ssize_t got = ::recv(m_socket, bytes, size_t(size), 0);
        if (got <= 0)
            return false;
        bytes += got;
        size -= got;
    }
    return true;
}

bool Packets::send(const QByteArray& bytes) const {
    for (qsizetype sent = 0; sent < bytes.size();) {
        const ssize_t taken =
            ::send(m_socket, bytes.constData() + sent, size_t(bytes.size() - sent), MSG_NOSIGNAL);
        if (taken <= 0)
            return false;
        sent += taken;
    }
    return true;
}

std::optional<Message> Packets::read() const {
    Message message{MessageType::Batch, {}};
    for (bool last = false; !last;) {
        char head[kHead];
        if (!receive(head, kHead))
            return {};
        const int size = qFromBigEndian<quint16>(head + 2) - kHead;
        if (size < 0)
            return {};
        QByteArray content(size, '\0');
        if (!receive(content.data(), size))
            return {};
        message.type = MessageType(quint8(head[0]));
        message.content += content;
        last = (head[1] & kLast) != 0;
    }
    return message;
}

bool Packets::write(const QByteArray& reply) const {
    const int room = m_size - kHead;
    for (qsizetype at = 0; at == 0 || at < reply.size(); at += room) {
        const QByteArray content = reply.mid(at, room);
        QByteArray packet(kHead, '\0');
        packet[0] = char(MessageType::Reply);
        packet[1] = at + room >= reply.size() ? kLast : char(0);
        qToBigEndian<quint16>(quint16(content.size() + kHead), packet.data() + 2);
        packet[6] = char(at / room + 1);
        if (!send(packet + content))
            return false;
    }
    return true;
}

}  // namespace wire
