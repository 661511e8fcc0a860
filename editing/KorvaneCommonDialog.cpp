#include "editing/KorvaneCommonDialog.h"
#include "editing/DlgCartIDSelector.h"
#include "editing/IFCartIDSelector.h"
#include "foundation/ErrorGuard.h"

namespace {
const QString Object = QStringLiteral("KorvaneCommonDialog");

KorvaneCommonDialog::ModalRunner& Runner()
{
    static KorvaneCommonDialog::ModalRunner runner = [](DlgCartIDSelector& dialog) { dialog.exec(); };
    return runner;
}
}

KorvaneCommonDialog::KorvaneCommonDialog(QWidget* parent)
    : QObject(parent), m_parent(parent)
{
}

KorvaneCommonDialog::ModalRunner KorvaneCommonDialog::SetModalRunner(ModalRunner runner)
{
    return std::exchange(Runner(), std::move(runner));
}

void KorvaneCommonDialog::Clear()
{
    m_cartFilter = AllKinds;
    m_cartId.clear();
    m_cartDescription.clear();
    m_cartComment.clear();
}

void KorvaneCommonDialog::ShowOpenCart()
{
    Guarded(Object, QStringLiteral("ShowOpenCart"), [this] {
        DlgCartIDSelector dialog(m_parent);
        Prepare(dialog, IFCartIDSelector::OpenMode);
        Run(dialog);
        m_cartId = dialog.ID();
    });
}

void KorvaneCommonDialog::ShowSaveCart(bool allowExisting)
{
    Guarded(Object, QStringLiteral("ShowSaveCart"), [&] {
        DlgCartIDSelector dialog(m_parent);
        Prepare(dialog, IFCartIDSelector::SaveMode);
        IFCartIDSelector& selector = *dialog.Selector();
        selector.SetAllowExisting(allowExisting);
        selector.SetDescMode(true);
        Run(dialog);
        m_cartId = dialog.ID();
        m_cartDescription = m_cartId.isEmpty() ? QString() : selector.SelectedDescription();
        m_cartComment = m_cartId.isEmpty() ? QString() : selector.SelectedComment();
    });
}

void KorvaneCommonDialog::Prepare(DlgCartIDSelector& dialog, int mode) const
{
    IFCartIDSelector& selector = *dialog.Selector();
    selector.SetMode(mode);
    // The kinds first: handing the ID over lists its family.
    selector.SetAllowSounds(m_cartFilter & Sounds);
    selector.SetAllowMacros(m_cartFilter & Macros);
    selector.SetAllowControls(m_cartFilter & Controls);
    selector.SetSelectedID(m_cartId);
}

void KorvaneCommonDialog::Run(DlgCartIDSelector& dialog)
{
    dialog.setWindowModality(Qt::WindowModal);
    Runner()(dialog);
}
