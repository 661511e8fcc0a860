#pragma once
#include "KernelChecks.h"
#include "foundation/Ini.h"
#include "foundation/db/CatalogueSchema.h"
#include "foundation/db/Database.h"
#include "foundation/db/Recordset.h"
#include "kernel/EmbeddedKernel.h"
#include "kernel/FileLogger.h"
#include "kernelapi/iRecordset.h"
#include "support/TempStation.h"
#include <QDate>
#include <QFile>
#include <QSqlQuery>
#include <QStringList>
#include <gtest/gtest.h>

// A demo station with its embedded kernel open, logging to the station's log folder.
class KernelTest : public ::testing::Test
{
protected:
    std::shared_ptr<EmbeddedKernel> Reopen() const { return EmbeddedKernel::Open(station.Folder(), logger); }

    // A database of the station opened on its own connection, to check what the kernel stored.
    std::unique_ptr<Database> OpenData(const char* file) const
    {
        return Database::Open(station.DataDir() + QLatin1String(file));
    }

    // One value read straight from a database of the station.
    QVariant Read(const char* file, const QString& sql, const QVariantList& binds = {}) const
    {
        QSqlQuery query = OpenData(file)->Query(sql, binds);
        return query.next() ? query.value(0) : QVariant();
    }

    void Run(const char* file, const QString& sql, const QVariantList& binds = {}) const
    {
        OpenData(file)->Query(sql, binds);
    }

    // Today's lines of the station's log that carry the given text.
    QStringList LogLinesWith(const QString& text) const { return KernelChecks::LogLinesWith(*logger, text); }

    TempStation station;
    std::shared_ptr<FileLogger> logger = std::make_shared<FileLogger>(station.Folder().LogDir());
    std::shared_ptr<EmbeddedKernel> kernel = Reopen();
};
