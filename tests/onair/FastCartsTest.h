#pragma once
// The fast-cart panel on a demo station's real kernel (Null device, virtual clock), with a
// playlist of carts on its pads and its timers ticked by hand.
#include "DeckTest.h"
#include "kernelapi/iChannel.h"
#include "kernelapi/iChannels.h"
#include "kernelapi/iObjectWithProperties.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iPlayListItem.h"
#include "kernelapi/iPlayLists.h"
#include "kernelapi/iStream.h"
#include "kernelapi/iStreams.h"
#include "onair/CFastCartColors.h"
#include "onair/IFFastCart.h"
#include "onair/IFFastCarts.h"
#include "onair/UCChannelStreamSelector.h"
#include "onair/UCFastCartsContents.h"
#include <QCheckBox>
#include <QLabel>

class FastCartsTest : public DeckTest
{
protected:
    void TearDown() override
    {
        panel.reset();
        DeckTest::TearDown();
    }

    // The panel, initialised, on stream 2 of channel A, showing a new list of the given carts.
    IFFastCarts& Panel(const QStringList& carts = {QStringLiteral("JIN0001"), QStringLiteral("JIN0002"), QStringLiteral("JIN0003")})
    {
        panel = std::make_unique<IFFastCarts>();
        panel->resize(900, 520);
        panel->show();
        panel->Init();
        panel->TmrInit_Timer();
        panel->UCChannelStreamSelector1->SetChannelName(QStringLiteral("A"));
        panel->UCChannelStreamSelector1->SetStreamIndex(2);
        list = kernel->PlayLists()->Add();
        for (int i = 0; i < carts.size(); ++i)
            list->Put(i + 1, carts[i].isEmpty() ? nullptr : Cart(carts[i]));
        panel->SetPlayList(list);
        Grid().TmrRefresh_Timer();
        for (int i = 0; i < UCFastCartsContents::NumSlots; ++i)
            Pad(i)->TmrInit_Timer();
        return *panel;
    }

    UCFastCartsContents& Grid() const { return *panel->UCFastCartsContents1; }
    IFFastCart* Pad(int index) const { return Grid().Pad(index); }
    std::shared_ptr<iCartPlayer> PlayerOf(const QString& channel, int stream) const
    {
        return kernel->Channels()->Item(channel)->Streams()->Item(stream)->CartPlayer();
    }

    static void PressOn(QWidget* widget, Qt::MouseButton button)
    {
        QTest::mousePress(widget, button, Qt::NoModifier, widget->rect().center());
        QTest::mouseRelease(widget, button, Qt::NoModifier, widget->rect().center());
    }

    std::unique_ptr<IFFastCarts> panel;
    std::shared_ptr<iPlayList> list;
};
