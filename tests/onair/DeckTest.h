#pragma once
// A deck bound to stream 1 of channel "A" of a demo station's real kernel, on the Null device
// with the virtual clock, with scripted dialogs and a recording logger.
#include "controls/RecordingLogger.h"
#include "foundation/Globals.h"
#include "foundation/Ini.h"
#include "foundation/controls/DisplayLabel.h"
#include "foundation/controls/UCButton.h"
#include "foundation/ui/ScriptedDialogs.h"
#include "kernel/EmbeddedKernel.h"
#include "kernel/audio/AudioEngine.h"
#include "kernel/audio/Channels.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCartPlayer.h"
#include "kernelapi/iCarts.h"
#include "onair/DeckFader.h"
#include "onair/IFCartPlayer.h"
#include "support/TempStation.h"
#include <QApplication>
#include <QMouseEvent>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>
#include <memory>

namespace DeckStatus {
constexpr qint32 Ready = 0, Playing = 1, Paused = 2, Cueing = 3, Cued = 4, Expiring = 5, Sync = 6;
}

class DeckTest : public ::testing::Test
{
protected:
    // expiringSeconds 0: a playing cart never shows Expiring (the demo sounds are short).
    void Open(int expiringSeconds = 0)
    {
        WriteIni(QStringLiteral("Audio"), QStringLiteral("Clock"), QStringLiteral("virtual"), station.KernelIniFile());
        WriteIni(QStringLiteral("Audio"), QStringLiteral("ExpiringSeconds"), QString::number(expiringSeconds),
                 station.KernelIniFile());
        kernel = EmbeddedKernel::Open(station.Folder(), nullptr);
        Globals::SetKernel(kernel);
        dialogs = new ScriptedDialogs;
        previousDialogs = Dialogs::SetHandler(std::unique_ptr<Dialogs::Handler>(dialogs));
    }

    void SetUp() override { Open(); }

    void TearDown() override
    {
        deck.reset();
        Dialogs::SetHandler(std::move(previousDialogs));
        Globals::SetKernel(nullptr);
        kernel.reset();
        Log::SetLogger(nullptr);
    }

    // A deck on stream 1 of channel A, shown at its usual size.
    IFCartPlayer& Deck(const QString& name = QStringLiteral("IFCartPlayer1"))
    {
        deck = std::make_unique<IFCartPlayer>();
        deck->setObjectName(name);
        deck->resize(deck->sizeHint());
        deck->SetChannelName(QStringLiteral("A"));
        deck->SetStreamIndex(1);
        deck->show();
        return *deck;
    }

    std::shared_ptr<iCartPlayer> Player() const { return deck->CartPlayer(); }
    std::shared_ptr<iCart> Cart(const QString& id) const { return kernel->Carts()->Cart(id); }

    void AdvanceMs(int ms) const
    {
        AudioEngine& engine = dynamic_cast<Channels&>(*kernel->Channels()).Engine();
        engine.Advance(static_cast<std::int64_t>(ms) * engine.Settings().sampleRate / 1000);
    }

    template <class T = QWidget> T* Child(const char* name) const
    {
        T* child = deck->findChild<T*>(QString::fromLatin1(name));
        EXPECT_NE(child, nullptr) << name;
        return child;
    }
    UCButton* Button(const char* name) const { return Child<UCButton>(name); }
    QToolButton* Tool(const char* name) const { return Child<QToolButton>(name); }
    DisplayLabel* Label(const char* name) const { return Child<DisplayLabel>(name); }
    DeckFader* Fader() const { return Child<DeckFader>("Fader"); }

    static void Press(UCButton* button)
    {
        QTest::mousePress(button, Qt::LeftButton);
        QTest::mouseRelease(button, Qt::LeftButton);
    }

    // A double click as a hand makes it: press, release, the second press that the window
    // system reports as a double click, and its release.
    static void DoubleClick(QWidget* widget)
    {
        SendLeft(widget, QEvent::MouseButtonPress, Qt::LeftButton);
        SendLeft(widget, QEvent::MouseButtonRelease, Qt::NoButton);
        SendLeft(widget, QEvent::MouseButtonDblClick, Qt::LeftButton);
        SendLeft(widget, QEvent::MouseButtonRelease, Qt::NoButton);
    }

    static void SendLeft(QWidget* widget, QEvent::Type type, Qt::MouseButtons held)
    {
        const QPointF at = widget->rect().center();
        QMouseEvent event(type, at, widget->mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier);
        QApplication::sendEvent(widget, &event);
    }

    // The name of the button a user sees, and would press, where the given one stands.
    QString OnTop(const char* placeOf) const
    {
        QWidget* at = deck->childAt(Child(placeOf)->geometry().center());
        while (at && at->parentWidget() != deck.get())
            at = at->parentWidget();
        return at ? at->objectName() : QString();
    }

    TempStation station;
    std::shared_ptr<EmbeddedKernel> kernel;
    ScriptedDialogs* dialogs = nullptr;
    std::unique_ptr<Dialogs::Handler> previousDialogs;
    std::shared_ptr<RecordingLogger> log = RecordingLogger::Install();
    std::unique_ptr<IFCartPlayer> deck;
};

// The same with the station's ten seconds of Expiring, in which every demo sound ends.
class ExpiringDeckTest : public DeckTest
{
protected:
    void SetUp() override { Open(10); }
};
