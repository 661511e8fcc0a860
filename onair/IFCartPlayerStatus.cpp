// The deck's display of its player: the status table applied to the lines, the icon, the
// shared places and the panel's colour; the title, the volume, the flashing and the meter.
#include "onair/IFCartPlayer.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Strings.h"
#include "foundation/Tr.h"
#include "foundation/controls/DisplayLabel.h"
#include "foundation/controls/UCButton.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iCartPlayer.h"
#include "metering/Rounding.h"
#include "metering/UCSingleVumeter.h"
#include "onair/DeckBackground.h"
#include "onair/DeckDesign.h"
#include "onair/DeckFader.h"
#include <QSignalBlocker>
#include <QToolButton>
#include <algorithm>
#include <utility>

using namespace DeckDesign;

void IFCartPlayer::iCartPlayer_DisplayTitleChanged(const QString& title)
{
    GrabTitle(title);
}

void IFCartPlayer::iCartPlayer_DisplayTimeChanged(const QString& timeA, const QString& timeB)
{
    LblStatus->SetText(m_timeToggle ? timeB : timeA);
}

void IFCartPlayer::iCartPlayer_PercentToGoChanged(float percent)
{
    if (m_triplePlayMode)
        LblVolume->SetText(QString::number(RoundHalfEven(percent)) + QLatin1Char('%'));
}

void IFCartPlayer::iCartPlayer_StatusChanged(qint32 status)
{
    GrabStatus(status);
}

void IFCartPlayer::iCartPlayer_VolumeChanged(qint16 volume)
{
    GrabVolume(volume);
}

void IFCartPlayer::GrabStatus(qint32 status)
{
    Guarded(Object, QStringLiteral("GrabStatus"), [&] {
        if (!m_colorsRead)
            ReadColors();
        const DeckStatusTable::Row* row = DeckStatusTable::Find(status);
        if (!row) {
            ApplyUnknownStatus();
            return;
        }
        const bool seekingCue = status == static_cast<qint32>(CartPlayerStatus::Cued) && m_seeking;
        if (!seekingCue)
            ApplyStatusRow(status, *row);
        SetLabelsEnabled(status != 0);
        ElaBackground->SetBackColor(QColor::fromRgb(row->background));
    });
}

void IFCartPlayer::ApplyStatusRow(qint32 status, const DeckStatusTable::Row& row)
{
    using Text = DeckStatusTable::Text;
    using Slots = DeckStatusTable::Slots;
    switch (row.text) {
    case Text::Empty: LblStatus->SetText(QString()); break;
    case Text::Playing: LblStatus->SetText(Tr(QStringLiteral("Playing"))); break;
    case Text::PauseClock: LblStatus->SetText(MsToClock(m_player ? m_player->PauseRemaining() : 0)); break;
    case Text::CueClock: LblStatus->SetText(MsToClock(m_player ? m_player->CueRemaining() : 0)); break;
    case Text::Sync: LblStatus->SetText(Tr(QStringLiteral("Sync"))); break;
    case Text::Unchanged: break;
    }
    if (row.red)
        LblStatusToRed();
    else
        LblStatusToGreen();
    ShowIcon(iCartPlayer::StatusWord(status));
    m_flashLight.SetFlashing(row.flash);
    ShowCuers(row.cuers);
    ShowEject(m_triplePlayMode || row.ejectNormal);
    if (m_triplePlayMode) {
        BringToTop({CmdPlayStart, CmdPlayMid, CmdPlayStop});
        if (row.resetTriple)
            RaiseTriplePlay(false, false, false);
    } else {
        switch (row.top) {
        case Slots::CuePlaySkip: BringToTop({CmdCue, CmdPlay, CmdSkip}); break;
        case Slots::CuePauseSkip: BringToTop({CmdCue, CmdPause, CmdSkip}); break;
        case Slots::Cued:
            BringToTop({CmdPlay, m_player && m_player->CuePosition() != 0 ? static_cast<QWidget*>(CmdRecue) : CmdCue});
            break;
        }
        if (row.skipVisible)
            CmdSkip->setVisible(true);
    }
    if (row.clearMeter)
        ClearVumeter();
}

void IFCartPlayer::ApplyUnknownStatus()
{
    LblStatus->SetText(Tr(QStringLiteral("Unknown")));
    LblStatusToGreen();
    SetLabelsEnabled(false);
    ElaBackground->SetBackColor(QColor::fromRgb(DeckStatusTable::Dark));
}

// The two colour settings are read once and kept for the screens that share this panel.
void IFCartPlayer::ReadColors()
{
    const auto kernel = Globals::Kernel();
    if (!kernel)
        return;
    m_colorsRead = true;
    m_darkColor = kernel->Config(QStringLiteral("CCartPlayerDark"));
    m_lightColor = kernel->Config(QStringLiteral("CCartPlayerLight"));
}

void IFCartPlayer::GrabTitle(const QString& title)
{
    LblTitle->SetText(title);
}

void IFCartPlayer::GrabVolume(qint16 volume)
{
    LblVolume->SetText(volume == Silence ? Tr(QStringLiteral("NO")) : QString::number(volume) + QStringLiteral(" dB"));
    const int position = std::clamp<int>(volume, DeckFader::Bottom, DeckFader::Top);
    if (Fader->value() != position) {
        // A display of the kernel's volume, not a hand on the fader: nothing goes back.
        const QSignalBlocker quiet(Fader);
        Fader->setValue(position);
    }
}

void IFCartPlayer::RaiseTriplePlay(bool start, bool mid, bool stop)
{
    m_suppress = true;
    const std::pair<QToolButton*, bool> states[] = {{CmdPlayStart, start}, {CmdPlayMid, mid}, {CmdPlayStop, stop}};
    for (const auto& [button, checked] : states)
        if (!checked)
            button->setChecked(false);
    m_suppress = false;
}

void IFCartPlayer::LblStatusToGreen()
{
    LblStatus->SetColors(GreenBack, GreenFore);
}

void IFCartPlayer::LblStatusToRed()
{
    LblStatus->SetColors(RedBack, RedFore);
}

void IFCartPlayer::ShowHighLight(bool highLight)
{
    if (highLight) {
        const bool playing = m_player && m_player->Status() == static_cast<qint32>(CartPlayerStatus::Playing);
        LblTitle->SetForeColor(TitleLit);
        LblStatus->SetForeColor(playing ? RedFore : GreenFore);
    } else {
        LblTitle->SetForeColor(TitleDim);
        LblStatus->SetForeColor(StatusDim);
    }
}

void IFCartPlayer::SetLabelsEnabled(bool enabled)
{
    LblStatus->SetActive(enabled);
    LblTitle->SetActive(enabled);
}

void IFCartPlayer::TmrVumeter_Timer()
{
    RefreshLevel();
}

void IFCartPlayer::RefreshLevel()
{
    m_levelGuard.Run(Object, QStringLiteral("RefreshLevel"), [this] {
        const CVumeter::Reading reading = m_vumeter.Level();
        if (!reading.valid) {
            ClearVumeter();
            return;
        }
        // One bar for the two sides: it shows the louder.
        UCSingleVumeter1->SetValue(std::max(reading.left, reading.right), std::max(reading.leftPeak, reading.rightPeak));
    });
}

void IFCartPlayer::ClearVumeter()
{
    UCSingleVumeter1->SetValue(NoSignal, NoSignal);
}

void IFCartPlayer::TmrFlash_Timer()
{
    m_flashLight.Turn();
}
