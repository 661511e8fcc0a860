#include "onair/IFFastCart.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Tr.h"
#include "foundation/ui/SilenceDescendants.h"
#include "kernelapi/iCart.h"
#include "onair/CFastCartColors.h"
#include "onair/PadLabel.h"
#include "onair/PadPictures.h"
#include "shell/components/CComponent.h"
#include "shell/modInterface.h"
#include <QLabel>

// The pad's construction, its cart, colours and mode; the controls and their places are in
// IFFastCartLayout, the mouse and the popup menu in IFFastCartInput.

IFFastCart::IFFastCart(QWidget* parent, int index)
    : QWidget(parent), m_index(index), m_colors(std::make_shared<CFastCartColors>())
{
    setObjectName(Object + QString::number(index));
    setMouseTracking(true);
    CreateControls();
    ConnectColors();
    m_colors->ReturnToDefaults();
    RefreshFromICart();
    RefreshColors();
    // Registered as "FastCart", "FastCart2"...: a grid holds 28 pads. The component offers
    // nothing until the pad holds a cart.
    m_component = std::make_shared<CComponent>();
    m_component->SetControl(this);
    connect(m_component.get(), &CComponent::DragDrop, this, &IFFastCart::Component_DragDrop);
    m_tmrInit.setInterval(100);
    m_tmrInit.setSingleShot(true);
    connect(&m_tmrInit, &QTimer::timeout, this, &IFFastCart::TmrInit_Timer);
    m_tmrInit.start();
}

IFFastCart::~IFFastCart()
{
    SilenceDescendants(*this);
    disconnect(m_cartConnection);
    disconnect(m_colorsConnection);
    if (m_initDone)
        modInterface::RemoveComponent(m_component);
}

void IFFastCart::TmrInit_Timer()
{
    m_tmrInit.stop();
    if (m_initDone)
        return;
    Guarded(Object, QStringLiteral("TmrInit_Timer"), [this] {
        modInterface::AddComponent(ComponentName, m_component);
        m_initDone = true;
        RefreshFromICart();
        Q_EMIT AfterInit();
    });
}

void IFFastCart::SetCart(std::shared_ptr<iCart> cart)
{
    if (cart == m_cart)
        return;
    m_cart = std::move(cart);
    ConnectCart();
    RefreshFromICart();
}

void IFFastCart::ConnectCart()
{
    disconnect(m_cartConnection);
    if (m_cart)
        m_cartConnection = connect(m_cart.get(), &iCart::ChangedProperties, this, &IFFastCart::iCart_ChangedProperties);
}

void IFFastCart::iCart_ChangedProperties()
{
    RefreshFromICart();
}

void IFFastCart::SetColors(std::shared_ptr<CFastCartColors> colors)
{
    if (!colors || colors == m_colors)
        return;
    m_colors = std::move(colors);
    ConnectColors();
    RefreshColors();
}

void IFFastCart::ConnectColors()
{
    disconnect(m_colorsConnection);
    m_colorsConnection = connect(m_colors.get(), &CFastCartColors::Changed, this, &IFFastCart::iColors_Changed);
}

void IFFastCart::iColors_Changed()
{
    RefreshColors();
}

QColor IFFastCart::BackColor() const
{
    return m_colors->Color(CFastCartColors::BackGroundPart);
}

void IFFastCart::SetShortcut(const QString& shortcut)
{
    m_shortcut = shortcut;
    RefreshFromICart();
}

void IFFastCart::SetMode(int mode)
{
    m_mode = mode == PadFace::Pad ? PadFace::Pad : PadFace::SingleLine;
    RefreshFromICart();
    RefreshColors();
    Reposition();
}

void IFFastCart::SetCaption(const QString& caption)
{
    m_caption = caption;
    LblCaption->setText(caption);
    LblCaption->setVisible(!caption.isEmpty());
    Reposition();
}

// The texts and the icon from the cart; a cart the kernel cannot read makes a blank pad.
void IFFastCart::RefreshFromICart()
{
    PadFace::Cart facts;
    Guarded(Object, QStringLiteral("RefreshFromICart"), [&] {
        if (!m_cart)
            return;
        facts.type = qint32(m_cart->Type());
        facts.id = m_cart->ID();
        facts.title = m_cart->Title();
        facts.comment = m_cart->Comment();
        facts.time = m_cart->Time();
        facts.loaded = true;
    });
    m_face = PadFace::Make(PadFace::Mode(m_mode), facts, m_shortcut, Tr(QStringLiteral("Not Loaded")));
    ApplyFace();
    if (m_initDone) {
        m_component->SetSharedObject(facts.loaded ? m_cart : nullptr);
        m_component->SetShareType(facts.loaded ? CComponent::ShareCart : CComponent::ShareNothing);
    }
}

void IFFastCart::ApplyFace()
{
    LblDescription1->SetText(m_face.description1);
    LblDescription2->SetText(m_face.description2);
    LblComment->SetText(m_face.comment);
    LblShortCut->SetText(m_face.shortcut);
    LblTime->SetText(m_face.time);
    LblDescription1->setVisible(m_face.description1Visible);
    LblDescription2->setVisible(m_face.description2Visible);
    LblComment->setVisible(m_face.commentVisible);
    LblShortCut->setVisible(m_face.shortcutVisible);
    LblTime->setVisible(m_face.timeVisible);
    Icon->setVisible(m_face.iconVisible);
    Icon->setPixmap(PadPictures::Icon(m_face.icon, std::max(1, Icon->height())));
    setToolTip(m_face.toolTip);
}

// A pad wears all five colours; a single line only the background and the description's.
void IFFastCart::RefreshColors()
{
    const auto colour = [this](int part) { return m_colors->Color(part); };
    LblDescription1->SetForeColor(colour(CFastCartColors::DescriptionPart));
    LblDescription2->SetForeColor(colour(CFastCartColors::DescriptionPart));
    if (m_mode == PadFace::Pad) {
        LblComment->SetForeColor(colour(CFastCartColors::CommentPart));
        LblShortCut->SetForeColor(colour(CFastCartColors::ShortcutPart));
        LblTime->SetForeColor(colour(CFastCartColors::TimePart));
    }
    update();
}
