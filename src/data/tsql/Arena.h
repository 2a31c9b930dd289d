// Memory of one parsed batch: nodes are made in blocks and freed together, so they hold no owning
// members (views, numbers and pointers into the same arena only).
#pragma once

#include <QString>
#include <memory>
#include <span>
#include <type_traits>
#include <vector>

namespace tsql {

class Arena {
public:
    template <typename T>
    T* make() {
        static_assert(std::is_trivially_destructible_v<T>);
        return new (allocate(sizeof(T), alignof(T))) T();
    }

    template <typename T>
    std::span<T> copy(const std::vector<T>& items) {
        if (items.empty())
            return {};
        static_assert(std::is_trivially_copyable_v<T>);
        T* place = static_cast<T*>(allocate(items.size() * sizeof(T), alignof(T)));
        std::uninitialized_copy(items.begin(), items.end(), place);
        return {place, items.size()};
    }

    QStringView copy(const QString& text) {
        auto* place = static_cast<QChar*>(allocate(size_t(text.size()) * sizeof(QChar), alignof(QChar)));
        std::uninitialized_copy(text.begin(), text.end(), place);
        return {place, text.size()};
    }

private:
    static constexpr size_t kBlock = 8192;

    void* allocate(size_t size, size_t alignment) {
        size_t start = (m_used + alignment - 1) & ~(alignment - 1);
        if (m_blocks.empty() || start + size > m_capacity) {
            m_capacity = std::max(kBlock, size);
            m_blocks.emplace_back(new std::byte[m_capacity]);
            start = 0;
        }
        m_used = start + size;
        return m_blocks.back().get() + start;
    }

    std::vector<std::unique_ptr<std::byte[]>> m_blocks;
    size_t m_used = 0;
    size_t m_capacity = 0;
};

}  // namespace tsql
