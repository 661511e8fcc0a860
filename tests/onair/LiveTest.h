#pragma once
// The Live screen on a demo station's real kernel (Null device, virtual clock), with the
// shared recordsets open, shown at a working resolution and loaded by one tick of its loader.
#include "DeckTest.h"
#include "foundation/db/Database.h"
#include "onair/Directe.h"
#include "shell/modGlobals.h"
#include <QFile>

class LiveTest : public DeckTest
{
protected:
    void SetUp() override
    {
        DeckTest::SetUp();
        modGlobals::SetRecordsets();
    }

    void TearDown() override
    {
        live.reset();
        Globals::Data().Close();
        DeckTest::TearDown();
    }

    // The screen, shown at the size and loaded.
    Directe& Live(const QSize& size = QSize(1280, 720))
    {
        live = std::make_unique<Directe>();
        live->resize(size);
        live->show();
        QApplication::processEvents();
        live->TmrLoader_Timer();
        QApplication::processEvents();
        return *live;
    }

    // The ERROR lines written so far.
    QStringList Errors() const { return log->Errors(); }

    // Rewrites the station's kernel settings before the kernel opens.
    void EditKernelIni(const QString& from, const QString& to)
    {
        QFile file(station.KernelIniFile());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        QString text = QString::fromUtf8(file.readAll());
        file.close();
        ASSERT_TRUE(text.contains(from)) << from.toStdString();
        text.replace(from, to);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(text.toUtf8());
    }

    std::unique_ptr<Directe> live;
};
