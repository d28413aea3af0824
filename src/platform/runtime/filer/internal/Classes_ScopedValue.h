// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

namespace Classes
{

/// Another value of a variable, for a scope.
template <class T>
class GScopedValue
{
public:
    GScopedValue(T& variable, T value)
        : mVariable(variable), mOuter(std::exchange(variable, std::move(value)))
    {
    }
    GScopedValue(const GScopedValue&) = delete;
    GScopedValue& operator=(const GScopedValue&) = delete;
    ~GScopedValue() { mVariable = std::move(mOuter); }

private:
    T& mVariable;
    T mOuter;
};

} // namespace Classes
