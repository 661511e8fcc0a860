#include "onair/UCChannelStreamSelector.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iChannel.h"
#include "kernelapi/iChannels.h"
#include "kernelapi/iStream.h"
#include "kernelapi/iStreams.h"

namespace {
constexpr qint32 Recording = 1;
}

UCChannelStreamSelector::UCChannelStreamSelector(QWidget* parent) : QComboBox(parent)
{
    setObjectName(Object);
    setSizeAdjustPolicy(QComboBox::AdjustToContents);
}

void UCChannelStreamSelector::Fill()
{
    const QString channel = ChannelName();
    const int stream = StreamIndex();
    clear();
    Guarded(Object, QStringLiteral("Fill"), [this] {
        const auto kernel = Globals::Kernel();
        if (!kernel)
            return;
        const auto channels = kernel->Channels();
        for (int c = 1; c <= channels->Count(); ++c) {
            const auto item = channels->Item(c);
            if (item->Direction() == Recording)
                continue;
            for (int s = 1; s <= item->Streams()->Count(); ++s)
                addItem(QStringLiteral("%1 %2").arg(item->Name()).arg(s), QVariantList{item->Name(), s});
        }
    });
    if (!Choose(channel, stream))
        setCurrentIndex(count() > 0 ? 0 : -1);
}

QString UCChannelStreamSelector::ChannelName() const
{
    const QVariantList data = currentData().toList();
    return data.size() == 2 ? data[0].toString() : QString();
}

int UCChannelStreamSelector::StreamIndex() const
{
    const QVariantList data = currentData().toList();
    return data.size() == 2 ? data[1].toInt() : 0;
}

bool UCChannelStreamSelector::Choose(const QString& channelName, int streamIndex)
{
    const int line = findData(QVariantList{channelName, streamIndex});
    if (line < 0)
        return false;
    setCurrentIndex(line);
    return true;
}

std::shared_ptr<iStream> UCChannelStreamSelector::Stream() const
{
    std::shared_ptr<iStream> stream;
    if (ChannelName().isEmpty())
        return stream;
    Guarded(Object, QStringLiteral("Stream"), [&] {
        stream = Globals::Kernel()->Channels()->Item(ChannelName())->Streams()->Item(StreamIndex());
    });
    return stream;
}
