// The pictures of the message dialog, drawn so that they stay sharp at every scale of the screen.
#pragma once

#include <QPixmap>

enum class MessageIcon { Warning, Question, Error, Stop, Information };

// `size` in device-independent pixels, `scale` the device pixels of one.
QPixmap messageIcon(MessageIcon icon, QSize size, qreal scale);
