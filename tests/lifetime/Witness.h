// SPDX-License-Identifier: MIT
#pragma once

namespace Lifetime
{

/// Uses what the library keeps for the whole process, and writes a line of it, headed by `name`, into each
/// log.
void Testify(const char* name);

/// Testifies when its life ends.
class CWitness
{
public:
    /// `name` must be a literal.
    explicit constexpr CWitness(const char* name) : mName(name) {}
    CWitness(const CWitness&) = delete;
    CWitness& operator=(const CWitness&) = delete;
    ~CWitness() { Testify(mName); }

    /// Makes a thread's own witness, which a thread makes at the first use.
    void Appear() const {}

private:
    const char* mName;
};

} // namespace Lifetime
