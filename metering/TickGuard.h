#pragma once
#include <QString>
#include <functional>

// The error convention for work that repeats on every tick: the body runs guarded, and a
// failure writes its ERROR line only when the previous run succeeded. A source that fails on
// every tick is reported once, and again if it fails anew after having worked.
class TickGuard
{
public:
    // True when the body finished.
    bool Run(const QString& object, const QString& procedure, const std::function<void()>& body);
    bool Failing() const { return m_failing; }

private:
    bool m_failing = false;
};
