#include "kernel/KernelLog.h"
#include "kernelapi/CLogger.h"

KernelLog::KernelLog(std::shared_ptr<CLogger> logger) : m_logger(std::move(logger)) {}

void KernelLog::Ok(const QString& object, const QString& procedure, const QString& text) const
{
    if (m_logger)
        m_logger->Ok(QLatin1String(Tag), object, procedure, text);
}

void KernelLog::Warn(const QString& object, const QString& procedure, const QString& text) const
{
    if (m_logger)
        m_logger->Warn(QLatin1String(Tag), object, procedure, text);
}

void KernelLog::Error(const QString& object, const QString& procedure, const QString& text) const
{
    if (m_logger)
        m_logger->Error(QLatin1String(Tag), object, procedure, text);
}
