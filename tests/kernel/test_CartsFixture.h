#pragma once
#include "KernelTest.h"
#include "kernel/CartWorld.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iFamilies.h"
#include "kernelapi/iFamily.h"
#include "kernelapi/iPlayLists.h"
#include "kernelapi/iUsers.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>

// The demo station's cart world: its collections, and a look at what the catalogue holds.
class CartWorldTest : public KernelTest
{
protected:
    static constexpr const char* SoundDb = "Sound.MDB";
    static constexpr const char* UserDb = "User.MDB";
    static constexpr const char* KernelDb = "Kernel.MDB";

    QVariant CartField(const QString& field, const QString& id) const
    {
        return Read(SoundDb, QStringLiteral("SELECT %1 FROM Cart WHERE ID = ?").arg(field), {id});
    }

    QString StoredFile(const QString& id) const
    {
        return Read(SoundDb, QStringLiteral("SELECT Filename FROM Sound WHERE ID = ?"), {id}).toString();
    }

    bool HasRow(const char* file, const QString& table, const QString& id) const
    {
        return Read(file, QStringLiteral("SELECT COUNT(*) FROM %1 WHERE ID = ?").arg(table), {id}).toInt() > 0;
    }

    // The PDF reports written so far, newest last, once every report started is done.
    QStringList Reports() const
    {
        kernel->World()->Reports().WaitForDone();
        const QDir folder(station.Dir() + QStringLiteral("reports"));
        QStringList paths;
        for (const QFileInfo& file : folder.entryInfoList({QStringLiteral("*.pdf")}, QDir::Files, QDir::Time | QDir::Reversed))
            paths << file.filePath();
        return paths;
    }

    static QByteArray Head(const QString& path, int bytes)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.read(bytes) : QByteArray();
    }

    bool Login(const QString& user, const QString& password) const { return kernel->Users()->Login(user, password); }

    std::shared_ptr<iCarts> carts = kernel->Carts();
    std::shared_ptr<iFamilies> families = kernel->Families();
};
