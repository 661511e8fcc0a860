// The cart browser's family: holding it, the fill that yields, and its changes.
#include "browse/IFBrowserCart.h"
#include "browse/BrowserRowModel.h"
#include "browse/BrowserView.h"
#include "browse/CartRows.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Log.h"
#include "foundation/Yield.h"
#include "foundation/controls/UCProgressBar.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iFamilies.h"
#include "kernelapi/iFamily.h"
#include <QElapsedTimer>
#include <QLabel>

namespace {
const QColor ListFilling(255, 128, 128);

QString TrueFalse(bool value)
{
    return value ? QStringLiteral("True") : QStringLiteral("False");
}
}

void IFBrowserCart::LoadFamilyByName(const QString& familyID)
{
    Guarded(Object, QStringLiteral("LoadFamilyByName"), [&] {
        LoadFamily(Globals::Kernel()->Families()->Item(familyID));
    });
}

void IFBrowserCart::LoadFamily(const std::shared_ptr<iFamily>& family)
{
    if (!family)
        return;
    // A fill yields to the event loop; a load asked for meanwhile ends it and follows it.
    m_pendingFamily = family;
    if (m_filling) {
        m_stop = true;
        return;
    }
    while (m_pendingFamily)
        FillFamily(std::exchange(m_pendingFamily, nullptr));
}

void IFBrowserCart::HoldFamily(const std::shared_ptr<iFamily>& family)
{
    ReleaseFamily();
    m_family = family;
    m_familyConnections << connect(family.get(), &iFamily::ChangedContents, this, &IFBrowserCart::Family_ChangedContents)
                        << connect(family.get(), &iFamily::SlightlyChangedContents, this, &IFBrowserCart::Family_SlightlyChangedContents)
                        << connect(family.get(), &iFamily::QueryClear, this, &IFBrowserCart::Eject);
}

void IFBrowserCart::ReleaseFamily()
{
    for (const QMetaObject::Connection& connection : std::exchange(m_familyConnections, {}))
        disconnect(connection);
    m_family.reset();
}

void IFBrowserCart::FillFamily(const std::shared_ptr<iFamily>& family)
{
    Guarded(Object, QStringLiteral("LoadFamily"), [&](Step& step) {
        step(QStringLiteral("Hold"));
        const bool refresh = m_family && m_family->ID() == family->ID();
        if (m_family != family)
            HoldFamily(family);
        m_signalArrowsVisible = false;
        const ViewState view = refresh ? RememberView() : ViewState{};
        ArrowPop();
        m_macro.reset();
        m_mode = FamilyMode;
        LogOk(Object, QStringLiteral("LoadFamily"), QStringLiteral("AllowSounds   = ") + TrueFalse(m_allowSounds));
        LogOk(Object, QStringLiteral("LoadFamily"), QStringLiteral("AllowMacros   = ") + TrueFalse(m_allowMacros));
        LogOk(Object, QStringLiteral("LoadFamily"), QStringLiteral("AllowControls = ") + TrueFalse(m_allowControls));
        LogOk(Object, QStringLiteral("LoadFamily"), QStringLiteral("Start of filling."));
        QElapsedTimer clock;
        clock.start();
        step(QStringLiteral("Fill"));
        BeginFilling();
        LblTitle->setText(family->ID() + QStringLiteral(" - ") + family->Description());
        try {
            FillRows(*family);
        } catch (...) {
            EndFilling();
            throw;
        }
        EndFilling();
        LogOk(Object, QStringLiteral("LoadFamily"), QStringLiteral("End of filling. ") + QString::number(clock.elapsed()) + QStringLiteral(" ms"));
        if (m_family != family)
            return; // ejected while it filled
        if (refresh)
            RestoreView(view);
        SetQty();
        RefreshTimings();
    });
}

void IFBrowserCart::BeginFilling()
{
    m_filling = true;
    m_stop = false;
    m_rows->Clear();
    m_arrow.reset();
    ProgressBar1->SetPercent(0);
    PicLoading->show();
    ListView1->setFocusPolicy(Qt::NoFocus);
}

void IFBrowserCart::EndFilling()
{
    RestoreListColor();
    ListView1->setFocusPolicy(Qt::StrongFocus);
    PicLoading->hide();
    m_stop = false;
    m_filling = false;
    m_signalArrowsVisible = true;
}

// The carts in slot order, a hundred at a time: after each hundred the progress moves and the
// event loop runs, where Stop, another load or an eject may end the fill. Rows reach the list
// with the first hundred and then at most every ShowRowsEveryMs, in one insertion each: every
// insertion repaints the list, which costs more than reading a hundred carts.
void IFBrowserCart::FillRows(iFamily& family)
{
    // The panel shows before the family's rows are read, and the read has the loop to itself.
    Yield();
    if (m_stop)
        return;
    const int count = family.Count();
    Yield();
    if (m_stop)
        return;
    std::vector<BrowserRow> pending;
    QElapsedTimer sinceShown;
    for (int index = 1; index <= count; ++index) {
        const std::shared_ptr<iCart> cart = family.Item(index);
        if (Available(*cart))
            CartRows::Append(pending, cart.get());
        if (index % RowsPerBatch != 0)
            continue;
        if (!sinceShown.isValid() || sinceShown.elapsed() >= ShowRowsEveryMs) {
            m_rows->Append(std::move(pending));
            sinceShown.start();
        }
        SetListColor(ListFilling);
        ProgressBar1->SetPercent(float(index) * 100 / float(count));
        Yield();
        if (m_stop)
            break;
    }
    // Stopped or done, what was read stays; an eject meanwhile took the family and its rows.
    if (m_family.get() == &family)
        m_rows->Append(std::move(pending));
}

void IFBrowserCart::Family_ChangedContents()
{
    LoadFamily(m_family);
}

void IFBrowserCart::Family_SlightlyChangedContents()
{
    Guarded(Object, QStringLiteral("Family_SlightlyChangedContents"), [this] {
        if (!m_family || m_mode != FamilyMode)
            return;
        QHash<QString, int> rowOf;
        for (int row = 0; row < m_rows->Count(); ++row)
            rowOf.insert(m_rows->Row(row).key, row);
        for (int index = 1; index <= m_family->Count(); ++index) {
            const std::shared_ptr<iCart> cart = m_family->Item(index);
            const auto found = rowOf.constFind(cart->ID());
            if (found == rowOf.constEnd() || cart->Type() == CartType::Separator)
                continue;
            BrowserRow row = m_rows->Row(*found);
            CartRows::SetCartInfo(row, *cart);
            m_rows->Replace(*found, std::move(row));
        }
        RefreshTimings();
    });
}

IFBrowserCart::ViewState IFBrowserCart::RememberView() const
{
    return ViewState{TopRow(), SelectedKeys()};
}

void IFBrowserCart::RestoreView(const ViewState& view)
{
    if (!view.selected.isEmpty())
        SetSelectedCartID(view.selected.first());
    Reselect(view.selected);
    if (view.topRow >= 0 && view.topRow < m_rows->Count())
        ListView1->scrollTo(m_rows->index(view.topRow, 0), QAbstractItemView::PositionAtTop);
}
