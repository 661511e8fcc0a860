// The cart browser's recalculation of a whole family: the kernel measures the carts in the
// background while the loading panel shows its progress and Stop ends it.
#include "browse/IFBrowserCart.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Log.h"
#include "foundation/Tr.h"
#include "foundation/controls/UCProgressBar.h"
#include "foundation/ui/Dialogs.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iFamily.h"
#include "kernelapi/iRecalculation.h"
#include "shell/CInterface.h"
#include "shell/modInterface.h"
#include <QLabel>

namespace {
const QString Recalculant = QStringLiteral("Recalculant");
}

void IFBrowserCart::Stop()
{
    m_stop = true;
    if (m_recalculation)
        m_recalculation->Stop();
}

void IFBrowserCart::PerformRecalculationOnFamily(bool accurate)
{
    Guarded(Object, QStringLiteral("PerformRecalculationOnFamily"), [&] {
        if (m_recalculation) {
            LogWarn(Object, QStringLiteral("PerformRecalculationOnFamily"), QStringLiteral("A recalculation is running already. Skipping"));
            return;
        }
        const QString selected = SelectedCartID();
        const std::shared_ptr<iFamily> family = MenuFamily(selected.isEmpty() ? nullptr : KernelCarts()->Cart(selected));
        if (!family)
            return;
        m_recalculation = family->Recalculate(accurate);
        connect(m_recalculation.get(), &iRecalculation::Progress, this, [this](int, int, const QString& cartID) { Recalculation_Progress(cartID); });
        connect(m_recalculation.get(), &iRecalculation::Finished, this, &IFBrowserCart::Recalculation_Finished);
        ProgressBar1->SetPercent(0);
        ShowLoadingCaption(Tr(Recalculant));
        PicLoading->show();
        if (CInterface* ui = modInterface::Interface())
            ui->MessagePush(Tr(Recalculant));
    });
}

void IFBrowserCart::Recalculation_Progress(const QString& cartID)
{
    if (!m_recalculation)
        return;
    const int total = m_recalculation->Total();
    ProgressBar1->SetPercent(total > 0 ? float(m_recalculation->Done()) * 100 / float(total) : 0);
    ShowLoadingCaption(Tr(Recalculant) + QLatin1Char(' ') + cartID);
    PicLoading->show(); // a fill of the list meanwhile hid the panel they share
}

// The kernel has raised the family's change already, so the rows are read again; failures
// are told once, the log names the carts.
void IFBrowserCart::Recalculation_Finished(int failed)
{
    m_recalculation.reset();
    if (CInterface* ui = modInterface::Interface())
        ui->MessagePop();
    if (!m_filling)
        PicLoading->hide();
    ShowLoadingCaption(Tr(QStringLiteral("Loading")));
    RefreshTimings();
    if (failed > 0)
        Dialogs::MessageBox(Tr(QStringLiteral("%1 carts could not be recalculated. The log names them.")).arg(failed),
                            Dialogs::Buttons::Ok, {}, Dialogs::Icon::Warning);
}

void IFBrowserCart::ShowLoadingCaption(const QString& text)
{
    if (auto* caption = PicLoading->findChild<QLabel*>(QStringLiteral("LblLoading")))
        caption->setText(text);
}
