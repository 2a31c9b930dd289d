#include "CopiedRows.h"

namespace definition {

CopiedRows::CopiedRows(const QList<qint64>& codes) : m_codes(codes) {
    for (const qint64 code : codes)
        m_left.append({code, static_cast<int>(m_left.size()) + 1});
}

CopiedRow CopiedRows::withCode(qint64 code, int n) const {
    for (const CopiedRow& row : m_left)
        if (row.code == code && n-- == 0)
            return row;
    return {};
}

void CopiedRows::remove(const CopiedRow& row) {
    m_left.removeIf([&](const CopiedRow& copied) { return copied.place == row.place; });
}

}  // namespace definition
