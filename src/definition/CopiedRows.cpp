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
    m_left.removeIf(
        [&](const CopiedRow& copied) { return copied.place == row.place && copied.code == row.code; });
}

void CopiedRows::adopt(int row, qint64 code) {
    // No two of them look alike, so that each can be taken out.
    while (m_left.size() < row)
        m_left.append({0, -static_cast<int>(m_left.size()) - 1});
    m_left.insert(row, {code, row + 1});
}

}  // namespace definition
