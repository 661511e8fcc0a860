#include "onair/UCChannelStreamSelector.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/ui/SilenceDescendants.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iChannel.h"
#include "kernelapi/iChannels.h"
#include "kernelapi/iStreams.h"
#include <QComboBox>
#include <QHBoxLayout>
#include <QSpinBox>
#include <algorithm>

UCChannelStreamSelector::UCChannelStreamSelector(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(Object);
    CboChannel = new QComboBox(this);
    CboChannel->setObjectName(QStringLiteral("CboChannel"));
    TxtStream = new QSpinBox(this);
    TxtStream->setObjectName(QStringLiteral("TxtStream"));
    TxtStream->setRange(1, 1);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(CboChannel, 1);
    row->addWidget(TxtStream);
    connect(CboChannel, &QComboBox::currentIndexChanged, this, [this] {
        FitStreamRange();
        Q_EMIT Changed();
    });
    connect(TxtStream, &QSpinBox::valueChanged, this, &UCChannelStreamSelector::Changed);
}

UCChannelStreamSelector::~UCChannelStreamSelector()
{
    SilenceDescendants(*this);
}

void UCChannelStreamSelector::Init()
{
    Guarded(Object, QStringLiteral("Init"), [this] {
        const auto kernel = Globals::Kernel();
        if (!kernel)
            return;
        const QString chosen = ChannelName();
        const QSignalBlocker blocker(CboChannel);
        CboChannel->clear();
        const auto channels = kernel->Channels();
        for (int i = 1; i <= channels->Count(); ++i) {
            const auto channel = channels->Item(i);
            if (channel->Direction() != 1)
                CboChannel->addItem(channel->Name(), channel->Streams()->Count());
        }
        CboChannel->setCurrentIndex(std::max(0, CboChannel->findText(chosen)));
        FitStreamRange();
    });
}

void UCChannelStreamSelector::FitStreamRange()
{
    TxtStream->setMaximum(std::max(1, CboChannel->currentData().toInt()));
}

QString UCChannelStreamSelector::ChannelName() const
{
    return CboChannel->currentText();
}

void UCChannelStreamSelector::SetChannelName(const QString& name)
{
    const int index = CboChannel->findText(name);
    if (index >= 0)
        CboChannel->setCurrentIndex(index);
}

int UCChannelStreamSelector::StreamIndex() const
{
    return TxtStream->value();
}

void UCChannelStreamSelector::SetStreamIndex(int index)
{
    TxtStream->setValue(index);
}

std::shared_ptr<iStream> UCChannelStreamSelector::Stream() const
{
    return StreamOf(ChannelName(), StreamIndex());
}

std::shared_ptr<iStream> UCChannelStreamSelector::StreamOf(const QString& channel, int index)
{
    std::shared_ptr<iStream> stream;
    Guarded(Object, QStringLiteral("Stream"), [&] {
        const auto kernel = Globals::Kernel();
        if (!kernel || channel.isEmpty() || !kernel->Channels()->Exists(channel))
            return;
        const auto streams = kernel->Channels()->Item(channel)->Streams();
        if (streams->Count() > 0)
            stream = streams->Item(std::clamp(index, 1, streams->Count()));
    });
    return stream;
}
