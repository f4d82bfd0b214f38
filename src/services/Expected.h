#pragma once

#include <utility>
#include <variant>

// A value or the error that prevented it (std::expected is C++23).
template <typename T, typename E> class Expected
{
public:
    Expected(T value) : m_state(std::in_place_index<0>, std::move(value)) {}
    Expected(E error) : m_state(std::in_place_index<1>, std::move(error)) {}

    bool hasValue() const { return m_state.index() == 0; }
    explicit operator bool() const { return hasValue(); }
    const T& value() const { return std::get<0>(m_state); }
    T& value() { return std::get<0>(m_state); }
    const E& error() const { return std::get<1>(m_state); }

private:
    std::variant<T, E> m_state;
};
