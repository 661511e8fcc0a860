#pragma once
#include <QString>
#include <stdexcept>

// The one exception a kernel call throws when it fails. The description is what the
// client's error convention writes into its ERROR line.
class KernelError : public std::runtime_error
{
public:
    explicit KernelError(const QString& description)
        : std::runtime_error(description.toStdString()), m_description(description) {}
    const QString& Description() const { return m_description; }

private:
    QString m_description;
};

// Thrown by operations whose implementation has not been built yet.
inline KernelError NotAvailable(const char* operation)
{
    return KernelError(QStringLiteral("%1: not available").arg(QLatin1String(operation)));
}
