#pragma once
#include "kernelapi/KernelError.h"

// A failed statement. Retryable when the engine reports a conflict that a new attempt of the
// whole transaction can resolve (SQLite busy or locked, PostgreSQL serialization failure or
// deadlock).
class DatabaseError : public KernelError
{
public:
    DatabaseError(const QString& description, bool retryable) : KernelError(description), m_retryable(retryable) {}
    bool Retryable() const { return m_retryable; }

private:
    bool m_retryable;
};
