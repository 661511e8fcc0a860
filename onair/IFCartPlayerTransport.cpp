// The deck's transport: the keys, the triple play keys, the fader and the fade out, each a
// call on the player; Play on an empty player asks the host what to play.
#include "onair/IFCartPlayer.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Log.h"
#include "foundation/controls/UCButton.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCartPlayer.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iPlayList.h"
#include "metering/Rounding.h"
#include "onair/DeckDesign.h"
#include "onair/DeckFader.h"
#include <QScopeGuard>
#include <QToolButton>
#include <algorithm>

using namespace DeckDesign;

namespace {
constexpr qint32 PlayLatencyMs = 2000;
// Triple play's last key auditions this much of the cart's end.
constexpr qint32 TailMs = 5000;

bool IsNumberZero(const QVariant& value)
{
    static const int numbers[] = {QMetaType::Int,    QMetaType::UInt,  QMetaType::LongLong, QMetaType::ULongLong,
                                  QMetaType::Double, QMetaType::Float, QMetaType::Short,    QMetaType::UShort};
    return std::find(std::begin(numbers), std::end(numbers), value.typeId()) != std::end(numbers) && value.toDouble() == 0;
}

template <class T> std::shared_ptr<T> Holds(const QVariant& value)
{
    return value.metaType() == QMetaType::fromType<std::shared_ptr<T>>() ? value.value<std::shared_ptr<T>>() : nullptr;
}
}

void IFCartPlayer::ConnectButtons()
{
    connect(CmdCue, &UCButton::Pressed, this, [this] { Command(QStringLiteral("CmdCue_Pressed"), &iCartPlayer::Cue); });
    connect(CmdRecue, &UCButton::Pressed, this, [this] { Command(QStringLiteral("CmdRecue_Pressed"), &iCartPlayer::Recue); });
    connect(CmdPause, &UCButton::Pressed, this, [this] { Command(QStringLiteral("CmdPause_Pressed"), &iCartPlayer::Pause); });
    connect(CmdEject, &UCButton::Pressed, this, [this] { Command(QStringLiteral("CmdEject_Pressed"), &iCartPlayer::Eject); });
    connect(CmdSkip, &UCButton::Pressed, this, [this] { Command(QStringLiteral("CmdSkip_Pressed"), &iCartPlayer::Skip); });
    connect(CmdPlay, &UCButton::Pressed, this, &IFCartPlayer::CmdPlay_Pressed);
    connect(CmdFF, &UCButton::Pressed, this, [this] { Wind(QStringLiteral("CmdFF_Pressed"), true, false); });
    connect(CmdFF, &UCButton::AutoFired, this, [this] { Wind(QStringLiteral("CmdFF_AutoFired"), true, true); });
    connect(CmdRew, &UCButton::Pressed, this, [this] { Wind(QStringLiteral("CmdRew_Pressed"), false, false); });
    connect(CmdRew, &UCButton::AutoFired, this, [this] { Wind(QStringLiteral("CmdRew_AutoFired"), false, true); });
    for (QToolButton* button : {CmdPlayStart, CmdPlayMid, CmdPlayStop})
        connect(button, &QToolButton::toggled, this, [this, button](bool checked) { TripleButton_Toggled(button, checked); });
    connect(CmdFadeOut, &QToolButton::clicked, this, &IFCartPlayer::CmdFadeOut_Clicked);
    connect(Fader, &QScrollBar::valueChanged, this, &IFCartPlayer::SetFaderVolume);
}

void IFCartPlayer::Command(const QString& procedure, void (iCartPlayer::*command)())
{
    Guarded(Object, procedure, [&] {
        if (RequirePlayer(procedure))
            (m_player.get()->*command)();
    });
}

void IFCartPlayer::Wind(const QString& procedure, bool forward, bool repeat)
{
    Guarded(Object, procedure, [&] {
        if (repeat)
            m_cueSpeed.Update();
        else
            m_cueSpeed.Init();
        if (!RequirePlayer(procedure))
            return;
        if (forward)
            m_player->FastForward(m_cueSpeed.Speed());
        else
            m_player->Rewind(m_cueSpeed.Speed());
    });
}

void IFCartPlayer::CmdPlay_Pressed()
{
    Guarded(Object, QStringLiteral("CmdPlay_Pressed"), [this] {
        if (!RequirePlayer(QStringLiteral("CmdPlay_Pressed")))
            return;
        if (m_player->Loaded()) {
            PlayLoaded();
            return;
        }
        QVariant requested;
        Q_EMIT UserRequestToPlay(requested);
        AnswerUserRequest(requested);
    });
}

void IFCartPlayer::AnswerUserRequest(const QVariant& requested)
{
    if (const auto cart = Holds<iCart>(requested)) {
        m_player->Load(cart);
    } else if (const auto playList = Holds<iPlayList>(requested)) {
        m_player->Load(playList);
    } else if (requested.typeId() == QMetaType::QString) {
        m_player->Load(CartByID(requested.toString()));
    } else {
        if (IsNumberZero(requested))
            LogWarn(Object, QStringLiteral("CmdPlay_Pressed"), QStringLiteral("Received non undestandable Requested Object"));
        return;
    }
    if (m_player->Loaded())
        PlayLoaded();
}

void IFCartPlayer::TripleButton_Toggled(QToolButton* button, bool checked)
{
    if (m_suppress)
        return;
    Guarded(Object, button->objectName() + QStringLiteral("_Click"), [&] {
        if (!RequirePlayer(button->objectName() + QStringLiteral("_Click")))
            return;
        if (!checked) {
            m_player->Pause();
            return;
        }
        RaiseTriplePlay(button == CmdPlayStart, button == CmdPlayMid, button == CmdPlayStop);
        const qint32 position = TriplePosition(button);
        {
            // The kernel reports Cued on the way; that passing state must not redraw the deck.
            m_seeking = true;
            const auto cleared = qScopeGuard([this] { m_seeking = false; });
            m_player->SetPosition(position);
        }
        PlayLoaded();
    });
}

qint32 IFCartPlayer::TriplePosition(const QToolButton* button) const
{
    if (button == CmdPlayStart)
        return 0;
    const auto cart = m_player->Cart();
    const qint32 time = cart ? cart->Time() : 0;
    if (button == CmdPlayMid)
        return RoundHalfEven(time / 2.0);
    return std::max(0, time - TailMs);
}

void IFCartPlayer::CmdFadeOut_Clicked()
{
    m_tmrFadeOut.start();
}

void IFCartPlayer::TmrFadeOut_Timer()
{
    if (!CmdFadeOut->isChecked())
        return;
    Guarded(Object, QStringLiteral("TmrFadeOut_Timer"), [this] {
        if (!RequirePlayer(QStringLiteral("TmrFadeOut_Timer"))) {
            m_tmrFadeOut.stop();
            return;
        }
        if (m_player->Status() == static_cast<qint32>(CartPlayerStatus::Ready)) {
            m_tmrFadeOut.stop();
            Fader->setValue(0);
        } else if (Fader->value() == DeckFader::Bottom) {
            m_player->Stop();
            CmdFadeOut->setChecked(false);
        } else {
            Fader->setValue(Fader->value() - 1);
        }
    });
}

void IFCartPlayer::SetFaderVolume(int value)
{
    SetVolume(value == DeckFader::Bottom ? Silence : static_cast<qint16>(value));
}

void IFCartPlayer::SetVolume(qint16 volume)
{
    Guarded(Object, QStringLiteral("SetVolume"), [&] {
        if (RequirePlayer(QStringLiteral("SetVolume")))
            m_player->SetVolume(volume);
    });
}

void IFCartPlayer::PlayLoaded()
{
    m_player->Play(false, false, nullptr, false, PlayLatencyMs);
}

std::shared_ptr<iCart> IFCartPlayer::CartByID(const QString& cartID) const
{
    const auto kernel = Globals::Kernel();
    if (!kernel)
        throw KernelError(QStringLiteral("No kernel to find cart %1").arg(cartID));
    return kernel->Carts()->Cart(cartID);
}

void IFCartPlayer::LoadAndPlay(const QString& procedure, const std::shared_ptr<iCart>& cart)
{
    if (!RequirePlayer(procedure))
        return;
    m_player->Load(cart);
    PlayLoaded();
}
