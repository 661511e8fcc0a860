// The cart browser's macro buttons: load a stored macro, save the rows as the macro under edit
// (under its own ID or another), recalculate it, and the save's questions for a name and a
// description.
#include "browse/IFBrowserCart.h"
#include "browse/BrowserRowModel.h"
#include "browse/CartIDQuestion.h"
#include "browse/CartRows.h"
#include "browse/MacroDescription.h"
#include "browse/MacroRows.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Log.h"
#include "foundation/Tr.h"
#include "foundation/ui/Dialogs.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCartList.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iMacro.h"
#include "kernelapi/iObjectWithProperties.h"
#include "shell/CInterface.h"
#include "shell/modInterface.h"
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QScopeGuard>
#include <QToolButton>

namespace {
// The kinds of cart the cart ID dialog offers: macros only, or every kind.
constexpr qint32 MacrosOnly = 2;
constexpr qint32 AllKinds = 7;

QToolButton* MacroButton(const QString& name, const QString& caption, const QString& tip, QWidget* parent)
{
    auto* button = new QToolButton(parent);
    button->setObjectName(name);
    button->setText(Tr(caption));
    button->setToolTip(Tr(tip));
    button->setFocusPolicy(Qt::NoFocus);
    // The footer is narrow: a caption is never cut.
    button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    return button;
}

void Warn(const QString& text)
{
    Dialogs::MessageBox(text, Dialogs::Buttons::Ok, {}, Dialogs::Icon::Warning);
}

// The program's message window over a piece of work, where the program shows one.
class BusyMessage
{
public:
    explicit BusyMessage(const QString& text) : m_ui(modInterface::Interface())
    {
        if (m_ui)
            m_ui->MessagePush(text);
    }
    ~BusyMessage()
    {
        if (m_ui)
            m_ui->MessagePop();
    }
    BusyMessage(const BusyMessage&) = delete;
    BusyMessage& operator=(const BusyMessage&) = delete;

private:
    CInterface* m_ui;
};
}

void IFBrowserCart::BuildMacroButtons(QHBoxLayout& buttons)
{
    CmdLoad = MacroButton(QStringLiteral("CmdLoad"), QStringLiteral("Load"), QStringLiteral("Load a macro"), ElaDiscControls);
    CmdSave = MacroButton(QStringLiteral("CmdSave"), QStringLiteral("Save"), QStringLiteral("Save the macro"), ElaDiscControls);
    CmdSave->setPopupMode(QToolButton::MenuButtonPopup);
    auto* saveMenu = new QMenu(CmdSave);
    saveMenu->setObjectName(QStringLiteral("MnuSave"));
    QAction* saveAs = saveMenu->addAction(Tr(QStringLiteral("Save as...")));
    saveAs->setObjectName(QStringLiteral("ActSaveAs"));
    CmdSave->setMenu(saveMenu);
    // A turning arrow: the footer has no room for the word.
    CmdRecalculate = MacroButton(QStringLiteral("CmdRecalculate"), QStringLiteral("\u21BB"),
                                 QStringLiteral("Recalculate the length of the macro"), ElaDiscControls);
    buttons.addWidget(CmdLoad);
    buttons.addWidget(CmdSave);
    buttons.addWidget(CmdRecalculate);
    connect(CmdLoad, &QToolButton::clicked, this, &IFBrowserCart::Load);
    connect(CmdSave, &QToolButton::clicked, this, &IFBrowserCart::Save);
    connect(saveAs, &QAction::triggered, this, &IFBrowserCart::SaveAs);
    connect(CmdRecalculate, &QToolButton::clicked, this, &IFBrowserCart::RecalculateMacro);
}

void IFBrowserCart::Load()
{
    Guarded(Object, QStringLiteral("iLoad"), [this] {
        bool cancel = false;
        Q_EMIT BeforeLoad(&cancel);
        if (cancel)
            return;
        const std::optional<QString> id =
            CartIDQuestion::Ask({.kind = CartIDQuestion::Kind::Open, .cartFilter = MacrosOnly, .parent = window()});
        if (!id)
            return;
        if (KernelCarts()->Cart(id->trimmed())->Type() != CartType::Macro) {
            Warn(Tr(QStringLiteral("%1 is not a macro.")).arg(id->trimmed()));
            return;
        }
        LoadMacroByName(id->trimmed());
    });
}

void IFBrowserCart::Save()
{
    Guarded(Object, QStringLiteral("iSave"), [this] { SaveMacro(QString()); });
}

void IFBrowserCart::SaveAs()
{
    Guarded(Object, QStringLiteral("iSaveAs"), [this] {
        if (m_mode != MacroMode || !m_macro)
            return;
        const std::optional<QString> id = CartIDQuestion::Ask(
            {.kind = CartIDQuestion::Kind::Save, .cartFilter = AllKinds, .cartID = m_macro->Cart()->ID(), .parent = window()});
        if (id)
            SaveMacro(*id);
    });
}

// The rows become the macro's entries; under another ID than the macro's own a new macro is
// written, so that the macro loaded stays as it is stored. A refused save (an ID that is a cart
// of another kind, perhaps made a moment ago on another workstation) is told and changes
// nothing; a question left empty saves nothing and the rows stay.
void IFBrowserCart::SaveMacro(const QString& cartID)
{
    if (m_mode != MacroMode || !m_macro)
        return;
    std::shared_ptr<iMacro> target = m_macro;
    QString description;
    const QString chosen = cartID.trimmed().toUpper();
    if (!chosen.isEmpty() && chosen != m_macro->Cart()->ID()) {
        target = KernelCarts()->NewMacro();
        target->Cart()->SetID(chosen);
        description = m_macro->Cart()->Description();
    }
    target->RemoveAll();
    const std::shared_ptr<iCartList> carts = CartsToSave();
    for (int index = 1; index <= carts->Count(); ++index)
        target->Add(carts->Item(index), carts->Item(index)->Properties());

    m_saveCancelled = false;
    // Direct: the macro waits for the answers of its questions.
    const QList<QMetaObject::Connection> questions{
        connect(target.get(), &iMacro::RequestNameToSave, this, &IFBrowserCart::Macro_RequestNameToSave, Qt::DirectConnection),
        connect(target.get(), &iMacro::RequestDescriptionToSave, this, &IFBrowserCart::Macro_RequestDescriptionToSave,
                Qt::DirectConnection)};
    const auto forget = qScopeGuard([&] {
        for (const QMetaObject::Connection& connection : questions)
            disconnect(connection);
    });
    try {
        target->Save(description);
    } catch (const KernelError& error) {
        LogError(Object, QStringLiteral("iSave"), error.Description());
        Warn(Tr(QStringLiteral("The macro was not saved.")) + QLatin1Char('\n') + error.Description());
        return;
    }
    if (m_saveCancelled)
        return;
    m_macro = target;
    ShowMacroTitle();
    RefreshTimings();
    Q_EMIT AfterSave();
}

// A fresh cart per row that names one, in the rows' order, with its row as "Index".
std::shared_ptr<iCartList> IFBrowserCart::CartsToSave() const
{
    const std::shared_ptr<iCarts> carts = KernelCarts();
    std::shared_ptr<iCartList> list = carts->NewCollection();
    for (int row = 0; row < m_rows->Count(); ++row) {
        const BrowserRow& entry = m_rows->Row(row);
        if (!MacroRows::NamesCart(entry))
            continue;
        const std::shared_ptr<iCart> cart = carts->NewCart();
        cart->SetID(entry.key);
        cart->Properties()->SetProperty(QStringLiteral("Index"), row);
        list->Add(cart);
    }
    return list;
}

void IFBrowserCart::ShowMacroTitle()
{
    const std::shared_ptr<iCart> own = m_macro ? m_macro->Cart() : nullptr;
    LblTitle->setText(own ? own->ID() + QStringLiteral(" - ") + own->Title() : QString());
}

void IFBrowserCart::RecalculateMacro()
{
    Guarded(Object, QStringLiteral("CmdRecalculate_Click"), [this] {
        if (m_mode != MacroMode || !m_macro)
            return;
        const std::shared_ptr<iCart> own = m_macro->Cart();
        bool recalculated = true;
        {
            const BusyMessage message(Tr(QStringLiteral("Recalculating")));
            // A macro never saved has no stored steps to add up yet; its rows still refresh.
            if (!own->ID().isEmpty())
                recalculated = own->Recalculate(true);
        }
        if (!recalculated)
            Warn(Tr(QStringLiteral("An error occured.")));
        RefreshMacroRows();
        ShowMacroTitle();
    });
}

// Each row of a cart reads its cart again: a time changed, a cart gone shows as unknown.
void IFBrowserCart::RefreshMacroRows()
{
    for (int row = 0; row < m_rows->Count(); ++row) {
        const BrowserRow& entry = m_rows->Row(row);
        if (!MacroRows::NamesCart(entry) || entry.heading)
            continue;
        std::vector<BrowserRow> fresh;
        const std::shared_ptr<iCart> cart = KernelCarts()->Cart(entry.key);
        CartRows::Append(fresh, cart.get());
        if (fresh.size() == 1)
            m_rows->Replace(row, std::move(fresh.front()));
    }
    SetQty();
    RefreshTimings();
}

void IFBrowserCart::Macro_RequestNameToSave(QString* name)
{
    Guarded(Object, QStringLiteral("Macro_RequestNameToSave"), [&] {
        const std::optional<QString> id =
            CartIDQuestion::Ask({.kind = CartIDQuestion::Kind::Save, .cartFilter = MacrosOnly, .cartID = *name, .parent = window()});
        *name = id.value_or(QString()).trimmed();
    });
    m_saveCancelled = name->isEmpty();
}

void IFBrowserCart::Macro_RequestDescriptionToSave(QString* description)
{
    Guarded(Object, QStringLiteral("Macro_RequestDescriptionToSave"), [&] { *description = MacroDescription::Ask(); });
    m_saveCancelled = description->trimmed().isEmpty();
}
