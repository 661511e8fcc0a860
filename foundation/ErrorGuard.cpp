#include "foundation/ErrorGuard.h"
#include "foundation/Log.h"
#include "kernelapi/KernelError.h"

QString DescribeException(std::exception_ptr error)
{
    try {
        std::rethrow_exception(error);
    } catch (const KernelError& e) {
        return e.Description();
    } catch (const std::exception& e) {
        return QString::fromUtf8(e.what());
    } catch (...) {
        return QStringLiteral("Unknown error");
    }
}

bool GuardedWith(const QString& procedure, const std::function<void(Step&)>& body,
                 const std::function<void(const QString&, const QString&)>& onError)
{
    Step step;
    try {
        body(step);
        return true;
    } catch (...) {
        const QString description = DescribeException(std::current_exception());
        try {
            onError(step.Name(), description);
        } catch (...) {
            // A second failure inside the handler is not reported.
        }
        return false;
    }
}

bool Guarded(const QString& object, const QString& procedure, const std::function<void(Step&)>& body)
{
    return GuardedWith(procedure, body, [&](const QString& step, const QString& description) {
        LogError(object, step.isEmpty() ? procedure : procedure + QLatin1Char('.') + step, description);
    });
}

bool Guarded(const QString& object, const QString& procedure, const std::function<void()>& body)
{
    return Guarded(object, procedure, [&](Step&) { body(); });
}
