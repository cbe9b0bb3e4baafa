#pragma once

#include <QSharedData>
#include <QSharedDataPointer>

#include <optional>
#include <utility>

namespace quenara {

/// An optional whose copies share its value until one of them is changed, and that takes no more
/// than a pointer: for what is large, and absent or alike in most records of a list. Access through
/// what is not constant ends the sharing.
template<class T>
class SharedOptional
{
public:
    using value_type = T;

    SharedOptional() = default;
    SharedOptional(std::nullopt_t /*empty*/) {}
    SharedOptional(T value) : m_shared(new Shared(std::move(value))) {}
    SharedOptional(const std::optional<T> &value)
    {
        if (value)
            emplace(*value);
    }

    [[nodiscard]] bool has_value() const { return m_shared.constData() != nullptr; }
    explicit operator bool() const { return has_value(); }

    // Of one that is not empty.

    const T &operator*() const { return m_shared->value; }
    T &operator*() { return m_shared->value; }
    const T *operator->() const { return &m_shared->value; }
    T *operator->() { return &m_shared->value; }

    [[nodiscard]] T value_or(T otherwise) const { return has_value() ? **this : otherwise; }

    T &emplace(T value = {})
    {
        m_shared = new Shared(std::move(value));
        return **this;
    }
    void reset() { m_shared = nullptr; }

    [[nodiscard]] bool isSharedWith(const SharedOptional &other) const
    {
        return m_shared.constData() == other.m_shared.constData();
    }

    friend bool operator==(const SharedOptional &a, const SharedOptional &b)
    {
        return a.isSharedWith(b) || (a && b && *a == *b);
    }

private:
    struct Shared : QSharedData
    {
        explicit Shared(T shared) : value(std::move(shared)) {}

        T value;
    };

    QSharedDataPointer<Shared> m_shared;
};

} // namespace quenara
