#pragma once
#include "kernelapi/iApplication.h"

class Database;

// The first row of table Application (Name, Version, OpenText, ClosedText) of the kernel's
// database, read once. Without a row every text is empty.
class Application : public iApplication
{
    Q_OBJECT
public:
    explicit Application(Database& db, QObject* parent = nullptr);

    QString Name() const override { return m_name; }
    QString Version() const override { return m_version; }
    QString OpenText() const override { return m_openText; }
    QString ClosedText() const override { return m_closedText; }

private:
    QString m_name;
    QString m_version;
    QString m_openText;
    QString m_closedText;
};
