#include "onair/IFShortCuts.h"
#include "browse/drag/CMouseController.h"
#include "editing/KorvaneCommonDialog.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Log.h"
#include "foundation/StationSettings.h"
#include "foundation/Tr.h"
#include "foundation/controls/VolmarPannel.h"
#include "foundation/ui/Dialogs.h"
#include "foundation/ui/SilenceDescendants.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iMacro.h"
#include "kernelapi/iMacroItem.h"
#include "onair/IFFastCart.h"
#include "onair/PadFace.h"
#include "onair/ShortCutSlots.h"
#include "shell/CInterface.h"
#include "shell/components/CComponent.h"
#include "shell/modInterface.h"
#include <QCursor>
#include <QLabel>
#include <algorithm>

IFShortCuts::IFShortCuts(QWidget* parent)
    : QWidget(parent), m_dialog(new KorvaneCommonDialog(this))
{
    setObjectName(Object);
    Guarded(Object, QStringLiteral("UserControl_Initialize"), [this](Step& step) {
        step(QStringLiteral("Set"));
        CreateControls();
        m_dialog->SetCartFilter(KorvaneCommonDialog::Macros);
        m_component = std::make_shared<CComponent>();
        m_component->SetControl(this);
        step(QStringLiteral("Add"));
        modInterface::AddComponent(ComponentName, m_component);
    });
    ReadSlots();
    // A host names the control after making it: the number of pads is the one kept under the name.
    connect(this, &QObject::objectNameChanged, this, &IFShortCuts::ReadSlots);
}

void IFShortCuts::ReadSlots()
{
    SetSlots(StationSettings::Read(PersistenceName(), SlotsProperty, QString::number(ShortCutSlots::Default)).toInt());
    Component_ChangedProperty();
}

IFShortCuts::~IFShortCuts()
{
    SilenceDescendants(*this);
    for (const auto& connection : std::exchange(m_macroConnections, {}))
        disconnect(connection);
    if (m_component)
        modInterface::RemoveComponent(m_component);
}

QString IFShortCuts::PersistenceName() const
{
    return objectName().isEmpty() ? Object : objectName();
}

void IFShortCuts::SetSlots(int slots)
{
    Guarded(Object, QStringLiteral("Slots_Let"), [&] {
        const int wanted = ShortCutSlots::Clamp(slots);
        while (m_pads.size() > wanted)
            delete m_pads.takeLast();
        while (m_pads.size() < wanted)
            m_pads.append(MakePad(m_pads.size()));
        PlacePads();
        LblQty->setText(QString::number(wanted));
        if (wanted != StationSettings::Read(PersistenceName(), SlotsProperty, QString()).toInt())
            StationSettings::Write(PersistenceName(), SlotsProperty, QString::number(wanted));
    });
}

IFFastCart* IFShortCuts::MakePad(int index)
{
    auto* pad = new IFFastCart(ElaMain, index);
    pad->SetMode(PadFace::SingleLine);
    pad->SetCompatibleWithOldDragDropBehaviour(m_oldDragDrop);
    connect(pad, &IFFastCart::OldStyleTryToDrag, this, [this](int, const QString& cartID) { Q_EMIT OldStyleTryToDrag(cartID); });
    // The pad joins the registry as "FastCart..." when its TmrInit runs; then it takes its name here.
    connect(pad, &IFFastCart::AfterInit, this, &IFShortCuts::Component_ChangedProperty);
    pad->show();
    return pad;
}

void IFShortCuts::Component_ChangedProperty()
{
    for (IFFastCart* pad : m_pads)
        pad->Component()->SetName(ShortCutSlots::PadName(PersistenceName(), pad->Index()));
}

void IFShortCuts::SetCompatibleWithOldDragDropBehaviour(bool on)
{
    m_oldDragDrop = on;
    for (IFFastCart* pad : m_pads)
        pad->SetCompatibleWithOldDragDropBehaviour(on);
}

void IFShortCuts::SpinUp()
{
    SetSlots(Slots() + 1);
}

void IFShortCuts::SpinDown()
{
    SetSlots(Slots() - 1);
}

void IFShortCuts::SetMacro(std::shared_ptr<iMacro> macro)
{
    m_macro = std::move(macro);
    ConnectMacro();
}

void IFShortCuts::ConnectMacro()
{
    for (const auto& connection : std::exchange(m_macroConnections, {}))
        disconnect(connection);
    if (!m_macro)
        return;
    // Direct: the macro waits for the answers of its questions.
    m_macroConnections << connect(m_macro.get(), &iMacro::RequestNameToSave, this, &IFShortCuts::iMacro_RequestNameToSave, Qt::DirectConnection)
                       << connect(m_macro.get(), &iMacro::RequestDescriptionToSave, this, &IFShortCuts::iMacro_RequestDescriptionToSave,
                                  Qt::DirectConnection);
}

QString IFShortCuts::MacroName() const
{
    QString name;
    Guarded(Object, QStringLiteral("MacroName_Get"), [&] {
        if (m_macro && m_macro->Cart())
            name = m_macro->Cart()->ID();
    });
    return name;
}

void IFShortCuts::SetMacroName(const QString& cartID)
{
    Guarded(Object, QStringLiteral("MacroName_Let"), [&] {
        std::shared_ptr<iMacro> macro = Globals::Kernel()->Carts()->NewMacro();
        macro->LoadByID(cartID);
        SetMacro(std::move(macro));
        RefreshHeader();
        RefreshContents();
    });
}

void IFShortCuts::RefreshHeader()
{
    Guarded(Object, QStringLiteral("RefreshHeader"), [this] {
        const std::shared_ptr<iCart> cart = m_macro ? m_macro->Cart() : nullptr;
        LblName->setText(cart ? cart->ID() : QString());
        VolmarPannel1->SetCaption(cart ? cart->Description() : QString());
    });
}

void IFShortCuts::RefreshContents()
{
    if (!m_macro)
        return;
    Guarded(Object, QStringLiteral("RefreshContents"), [this] {
        for (IFFastCart* pad : m_pads)
            pad->SetCart(nullptr);
        const int shown = ShortCutSlots::Shown(Slots(), m_macro->Count());
        for (int i = 1; i <= shown; ++i) {
            const std::shared_ptr<iMacroItem> item = m_macro->Item(i);
            m_pads[i - 1]->SetCart(item ? item->Cart() : nullptr);
        }
        ReportMissingCarts();
    });
}

// A cart named by the macro that is gone stays on its pad (its ID with the unknown picture), so
// that a save keeps the entry; the log says which.
void IFShortCuts::ReportMissingCarts() const
{
    QStringList missing;
    for (const IFFastCart* pad : m_pads)
        if (pad->Cart() && pad->Cart()->Type() == CartType::Unknown)
            missing << pad->Cart()->ID();
    if (!missing.isEmpty())
        LogWarn(Object, QStringLiteral("RefreshContents"),
                QStringLiteral("Macro %1 names carts that do not exist: %2").arg(MacroName(), missing.join(QStringLiteral(", "))));
}

void IFShortCuts::CmdSaveContents_Click()
{
    Guarded(Object, QStringLiteral("CmdSaveContents_Click"), [this] {
        if (!m_macro)
            SetMacro(Globals::Kernel()->Carts()->NewMacro());
        m_macro->RemoveAll();
        for (const IFFastCart* pad : m_pads)
            m_macro->Add(pad->Cart(), nullptr);
        m_dialogDescription.clear();
        m_macro->Save(QString());
        m_dialogDescription.clear();
        RefreshHeader();
    });
}

void IFShortCuts::CmdRestoreContents_Click()
{
    Guarded(Object, QStringLiteral("CmdRestoreContents_Click"), [this] {
        const QString id = MacroName();
        if (id.isEmpty())
            return;
        SetMacroName(id);
    });
}

void IFShortCuts::iMacro_RequestNameToSave(QString* name)
{
    Guarded(Object, QStringLiteral("iMacro_RequestNameToSave"), [&] {
        m_dialog->SetCartFilter(KorvaneCommonDialog::Macros);
        m_dialog->SetCartId(*name);
        m_dialog->ShowSaveCart(true);
        *name = m_dialog->CartId().trimmed();
        m_dialogDescription = name->isEmpty() ? QString() : m_dialog->CartDescription().trimmed();
    });
}

void IFShortCuts::iMacro_RequestDescriptionToSave(QString* description)
{
    Guarded(Object, QStringLiteral("iMacro_RequestDescriptionToSave"), [&] {
        if (!m_dialogDescription.isEmpty()) {
            *description = m_dialogDescription;
            return;
        }
        const std::optional<QString> typed = Dialogs::InputBox(Tr(QStringLiteral("Enter the new description")));
        *description = typed ? typed->trimmed() : QString();
    });
}

void IFShortCuts::ChangeDescription()
{
    Guarded(Object, QStringLiteral("ChangeDescription"), [this] {
        if (!m_macro)
            return;
        const std::optional<QString> typed = Dialogs::InputBox(Tr(QStringLiteral("Enter the new description")));
        if (!typed || typed->trimmed().isEmpty())
            return;
        const std::shared_ptr<iCart> cart = m_macro->Cart();
        cart->SetDescription(typed->trimmed());
        cart->Save();
        RefreshHeader();
    });
}

void IFShortCuts::Drop(const QString& cartID)
{
    Guarded(Object, QStringLiteral("Drop"), [&] {
        const auto found = std::find_if(m_pads.cbegin(), m_pads.cend(), [](const IFFastCart* pad) { return PointerOver(pad); });
        if (found == m_pads.cend())
            return;
        (*found)->SetCart(Globals::Kernel()->Carts()->Cart(cartID));
    });
}

void IFShortCuts::StartDrag()
{
    m_dragSource = true;
}

bool IFShortCuts::PointerOver(const QWidget* widget)
{
    if (const CInterface* ui = modInterface::Interface())
        return ui->MouseController().CursorOverControl(widget);
    return widget->isVisible() && widget->rect().contains(widget->mapFromGlobal(QCursor::pos()));
}
