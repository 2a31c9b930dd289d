// Memory of one parsed batch: nodes are made in blocks and freed together, so they hold no owning
// members (views, numbers and pointers into the same arena only).
#pragma once

#include <QString>
#include <memory>
#include <memory_resource>
#include <span>
#include <type_traits>
#include <vector>

namespace tsql {

class Arena {
public:
    template <typename T>
    T* make() {
        static_assert(std::is_trivially_destructible_v<T>);
        return new (place<T>(1)) T();
    }

    template <typename T>
    std::span<T> copy(const std::vector<T>& items) {
        static_assert(std::is_trivially_copyable_v<T>);
        T* start = place<T>(items.size());
        std::uninitialized_copy(items.begin(), items.end(), start);
        return {start, items.size()};
    }

    QStringView copy(const QString& text) {
        auto* start = place<QChar>(size_t(text.size()));
        std::uninitialized_copy(text.begin(), text.end(), start);
        return {start, text.size()};
    }

private:
    template <typename T>
    T* place(size_t count) {
        return static_cast<T*>(m_memory.allocate(count * sizeof(T), alignof(T)));
    }

    static constexpr size_t kFirstBlock = 8192;
    std::pmr::monotonic_buffer_resource m_memory{kFirstBlock};
};

}  // namespace tsql
