// The recorder panel's buttons and drops: every one calls the recorder, and the panel waits
// for the recorder's events to show what happened.
#include "editing/IFCartRecorder.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iCartRecorder.h"
#include "kernelapi/iFamilies.h"
#include "kernelapi/iFamily.h"

namespace {
std::shared_ptr<CKernel> RequireKernel()
{
    auto kernel = Globals::Kernel();
    if (!kernel)
        throw KernelError(QStringLiteral("No kernel"));
    return kernel;
}
}

void IFCartRecorder::CmdRec_Clicked()
{
    PressKey(QStringLiteral("CmdRec_Click"), RecorderTable::Button::Rec);
}

void IFCartRecorder::CmdPause_Clicked()
{
    PressKey(QStringLiteral("CmdPause_Click"), RecorderTable::Button::Pause);
}

void IFCartRecorder::PressKey(const QString& procedure, RecorderTable::Button button)
{
    Guarded(Object, procedure, [&] {
        if (!m_recorder)
            return;
        using Command = RecorderTable::Command;
        for (const Command command : RecorderTable::Actions(button, m_recorder->RecordingState())) {
            switch (command) {
            case Command::Record:
                m_recorder->Record();
                break;
            case Command::Stop:
                m_recorder->Stop();
                break;
            case Command::Pause:
                m_recorder->Pause();
                break;
            case Command::Resume:
                m_recorder->Resume();
                break;
            }
        }
    });
}

void IFCartRecorder::CmdEject_Clicked()
{
    Guarded(Object, QStringLiteral("CmdEject_Click"), [this] {
        if (m_recorder)
            m_recorder->Eject();
    });
}

void IFCartRecorder::CmdBlank_Clicked()
{
    Guarded(Object, QStringLiteral("CmdBlank_Click"), [this] {
        QString familyID;
        QString cartID;
        Q_EMIT RequestBlankTape(familyID, cartID);
        if (m_recorder)
            LoadBlankTape(familyID.trimmed(), cartID.trimmed());
    });
}

// A cart given by the host is loaded; else a new cart in the given family, when the user may
// write there; else the tape is ejected.
void IFCartRecorder::LoadBlankTape(const QString& familyID, const QString& cartID)
{
    const auto kernel = RequireKernel();
    if (!cartID.isEmpty()) {
        m_recorder->Load(kernel->Carts()->Cart(cartID));
        return;
    }
    if (!familyID.isEmpty()) {
        const std::shared_ptr<iFamily> family = kernel->Families()->Item(familyID);
        if (family->MayWrite(QString()) || family->EveryBodyWrite()) {
            m_recorder->LoadBlank(family);
            return;
        }
    }
    m_recorder->Eject();
}

void IFCartRecorder::Drop(const QString& cartID, float, float)
{
    Guarded(Object, QStringLiteral("Drop"), [&] {
        if (!m_recorder)
            return;
        m_recorder->Load(RequireKernel()->Carts()->Cart(cartID));
    });
}
