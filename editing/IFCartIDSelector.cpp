#include "editing/IFCartIDSelector.h"
#include "browse/IFBrowserCart.h"
#include "browse/IFBrowserFamily.h"
#include "foundation/CartNumbers.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Strings.h"
#include "foundation/Tr.h"
#include "foundation/controls/IFBlackBoard.h"
#include "foundation/ui/SilenceDescendants.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iFamilies.h"
#include "kernelapi/iFamily.h"
#include "kernelapi/iSound.h"
#include "kernelapi/iSoundFile.h"
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

// The ID selector's properties and its check of the ID; its controls are built in
// IFCartIDSelectorLayout.

namespace {
// The board's colours: green for what may be taken, amber for a warning, red for a refusal.
constexpr int GoodColor = 1;
constexpr int WarnColor = 2;
constexpr int ErrorColor = 3;

std::shared_ptr<CKernel> RequireKernel()
{
    auto kernel = Globals::Kernel();
    if (!kernel)
        throw KernelError(QStringLiteral("No kernel"));
    return kernel;
}

// The kernel's carts refuse to number a text that is no cart ID.
bool IsCartID(iCarts& carts, const QString& text)
{
    try {
        return carts.NumberOf(text) >= 0;
    } catch (const KernelError&) {
        return false;
    }
}
}

IFCartIDSelector::IFCartIDSelector(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(Object);
    BuildControls();
    WireControls();
    SetMode(OpenMode);
    FillSInfo();
}

IFCartIDSelector::~IFCartIDSelector()
{
    SilenceDescendants(*this);
}

// The first write always applies, so a new selector shows its controls for mode 0.
void IFCartIDSelector::SetMode(int mode)
{
    if (m_modeSet && mode == m_mode)
        return;
    m_modeSet = true;
    m_mode = mode;
    IFBrowserFamily1->SetFilterLevel(mode);
    ApplyMode();
    FillSInfo();
}

void IFCartIDSelector::SetDescMode(bool descMode)
{
    m_descMode = descMode;
    ApplyMode();
}

void IFCartIDSelector::ApplyMode()
{
    const bool save = m_mode == SaveMode;
    IDControls->setVisible(save);
    vsDescComment->setVisible(save && m_descMode);
}

void IFCartIDSelector::SetAuto(bool autoID)
{
    m_auto = autoID;
    if (ChkAuto->isChecked() != autoID)
        ChkAuto->setChecked(autoID);
}

void IFCartIDSelector::SetFillHoles(bool fillHoles)
{
    m_fillHoles = fillHoles;
    if (ChkFillHoles->isChecked() != fillHoles)
        ChkFillHoles->setChecked(fillHoles);
}

void IFCartIDSelector::SetAllowExisting(bool allow)
{
    m_allowExisting = allow;
    FillSInfo();
}

bool IFCartIDSelector::AllowSounds() const
{
    return IFBrowserCart1->AllowSounds();
}

void IFCartIDSelector::SetAllowSounds(bool allow)
{
    IFBrowserCart1->SetAllowSounds(allow);
}

bool IFCartIDSelector::AllowMacros() const
{
    return IFBrowserCart1->AllowMacros();
}

void IFCartIDSelector::SetAllowMacros(bool allow)
{
    IFBrowserCart1->SetAllowMacros(allow);
}

bool IFCartIDSelector::AllowControls() const
{
    return IFBrowserCart1->AllowControls();
}

void IFCartIDSelector::SetAllowControls(bool allow)
{
    IFBrowserCart1->SetAllowControls(allow);
}

void IFCartIDSelector::SetSelectedID(const QString& id)
{
    m_selectedID = id;
    if (id.size() >= 3)
        SetSelectedFamilyID(id.left(3).toUpper());
    TxtID->setText(id.toUpper());
}

void IFCartIDSelector::SetSelectedFamilyID(const QString& familyID)
{
    m_selectedFamilyID = familyID;
    IFBrowserFamily1->SetSelectedFamilyID(familyID);
}

void IFCartIDSelector::TxtID_Edited(const QString& text)
{
    const QString upper = text.toUpper();
    if (upper == text)
        return;
    const int cursor = TxtID->cursorPosition();
    TxtID->setText(upper);
    TxtID->setCursorPosition(cursor);
}

void IFCartIDSelector::Family_Changed(const QString& familyID)
{
    Guarded(Object, QStringLiteral("IFBrowserFamily1_Changed"), [&] {
        m_selectedFamilyID = familyID;
        IFBrowserCart1->LoadFamilyByName(familyID);
        if (m_auto)
            PerformAuto();
    });
}

void IFCartIDSelector::PerformAuto()
{
    Guarded(Object, QStringLiteral("PerformAuto"), [this] {
        const QString family = IFBrowserFamily1->SelectedFamilyID();
        if (family.isEmpty())
            return;
        TxtID->setText((family + FreeCartNumber(family, m_fillHoles)).trimmed());
    });
}

void IFCartIDSelector::FillSInfo()
{
    Guarded(Object, QStringLiteral("FillSInfo"), [this] {
        const QString id = TxtID->text().trimmed();
        const auto kernel = Globals::Kernel();
        if (!kernel)
            return;
        if (!IsCartID(*kernel->Carts(), id)) {
            DisplayWarn(QStringLiteral("Invalid ID"));
            return;
        }
        if (MayUse(kernel->Carts()->FamilyIDOf(id)))
            FillInfo(id);
    });
}

// Whether the user may use the family for the mode; a refusal is on the board.
bool IFCartIDSelector::MayUse(const QString& familyID)
{
    const auto families = RequireKernel()->Families();
    if (!families->Exists(familyID)) {
        DisplayError(QStringLiteral("Family not exists"));
        return false;
    }
    const std::shared_ptr<iFamily> family = families->Item(familyID);
    if (m_mode == OpenMode) {
        if (family->MayRead(QString()) || family->EveryBody())
            return true;
        DisplayError(QStringLiteral("Without reading permissions"));
        return false;
    }
    if (m_mode == SaveMode) {
        if (family->MayWrite(QString()) || family->EveryBodyWrite())
            return true;
        DisplayError(QStringLiteral("Without writing permissions"));
        return false;
    }
    DisplayError(QStringLiteral("Unknown mode"));
    return false;
}

void IFCartIDSelector::FillInfo(const QString& id)
{
    const auto carts = RequireKernel()->Carts();
    const bool exists = carts->Exists(id);
    if (m_mode == OpenMode) {
        if (!exists) {
            DisplayError(QStringLiteral("ID not exists"));
            return;
        }
        DisplayOk(id);
        PrintCart(*carts->Cart(id));
        return;
    }
    if (!exists) {
        DisplayOk(Tr(QStringLiteral("Available ID")));
        return;
    }
    Display(m_allowExisting ? WarnColor : ErrorColor, Tr(QStringLiteral("*** Used ID ***")));
    Info->PrintText(id);
    PrintCart(*carts->Cart(id));
    CmdOK->setEnabled(m_allowExisting);
}

void IFCartIDSelector::PrintCart(const iCart& cart)
{
    Info->PrintText2(Tr(QStringLiteral("Descr:")), cart.Description());
    Info->PrintText2(Tr(QStringLiteral("Comment:")), cart.Comment());
    Info->PrintText2(Tr(QStringLiteral("Type:")), cart.TypeName());
    if (cart.Type() != CartType::Sound)
        return;
    Info->PrintText2(Tr(QStringLiteral("DurCart:")), MsToClock(cart.Time()));
    const auto sound = cart.Sound();
    const auto file = sound ? sound->SoundFile() : nullptr;
    Info->PrintText2(Tr(QStringLiteral("DurFile:")), file ? MsToClock(file->Length()) : QString());
}

void IFCartIDSelector::DisplayError(const QString& text)
{
    Display(ErrorColor, Tr(text));
    CmdOK->setEnabled(false);
}

void IFCartIDSelector::DisplayWarn(const QString& text)
{
    Display(WarnColor, Tr(text));
    CmdOK->setEnabled(false);
}

// What may be taken: its first line in green, OK enabled.
void IFCartIDSelector::DisplayOk(const QString& text)
{
    Display(GoodColor, text);
    CmdOK->setEnabled(true);
}

void IFCartIDSelector::Display(int color, const QString& text)
{
    Info->Cls();
    Info->SetColor(color);
    Info->PrintText(text);
}

void IFCartIDSelector::CmdOK_Click()
{
    m_selectedID = TxtID->text().trimmed();
    const bool described = m_mode == SaveMode && m_descMode;
    m_selectedDescription = described ? txtDescription->text().trimmed() : QString();
    m_selectedComment = described ? txtComment->text().trimmed() : QString();
    Q_EMIT OK(m_selectedID);
}

void IFCartIDSelector::CmdCancel_Click()
{
    Q_EMIT Cancel();
}
