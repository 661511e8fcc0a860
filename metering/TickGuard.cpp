#include "metering/TickGuard.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Log.h"

bool TickGuard::Run(const QString& object, const QString& procedure, const std::function<void()>& body)
{
    const bool wasFailing = m_failing;
    const bool finished = GuardedWith(procedure, [&](Step&) { body(); }, [&](const QString&, const QString& description) {
        if (!wasFailing)
            LogError(object, procedure, description);
    });
    m_failing = !finished;
    return finished;
}
