#pragma once
#include <QString>
#include <memory>

class CLogger;

// The kernel's own log records, under the program tag "Korvane_Kernel". Without a logger the
// records are dropped. Never throws.
class KernelLog
{
public:
    static constexpr const char* Tag = "Korvane_Kernel";

    explicit KernelLog(std::shared_ptr<CLogger> logger = {});

    void Ok(const QString& object, const QString& procedure, const QString& text) const;
    void Warn(const QString& object, const QString& procedure, const QString& text) const;
    void Error(const QString& object, const QString& procedure, const QString& text) const;

private:
    std::shared_ptr<CLogger> m_logger;
};
