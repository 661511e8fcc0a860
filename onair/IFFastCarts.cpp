#include "onair/IFFastCarts.h"
#include "foundation/ErrorGuard.h"
#include "foundation/Globals.h"
#include "foundation/Tr.h"
#include "foundation/ui/SilenceDescendants.h"
#include "kernelapi/CKernel.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iCarts.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iPlayLists.h"
#include "kernelapi/iStream.h"
#include "onair/PadPictures.h"
#include "onair/UCChannelStreamSelector.h"
#include "onair/UCFastCartsContents.h"
#include "onair/UCPlayListDiskOperation.h"
#include "shell/CInterface.h"
#include "shell/modInterface.h"
#include "browse/drag/CMouseController.h"
#include <QCheckBox>
#include <QComboBox>
#include <QCursor>
#include <QKeyEvent>
#include <QToolButton>

// The panel's construction, its playlist, the keys and the output.

namespace {
constexpr int BarHeight = 30;
}

IFFastCarts::IFFastCarts(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(Object);
    setFocusPolicy(Qt::StrongFocus);
    CreateControls();
    ConnectControls();
    m_tmrInit.setInterval(100);
    m_tmrInit.setSingleShot(true);
    m_tmrFillCombo.setInterval(100);
    m_tmrFillCombo.setSingleShot(true);
    connect(&m_tmrInit, &QTimer::timeout, this, &IFFastCarts::TmrInit_Timer);
    connect(&m_tmrFillCombo, &QTimer::timeout, this, &IFFastCarts::TmrFillCombo_Timer);
}

IFFastCarts::~IFFastCarts()
{
    SilenceDescendants(*this);
}

QToolButton* IFFastCarts::MakeSwitch(const QString& name, const QString& sign, const QString& tip)
{
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setCheckable(true);
    button->setChecked(true);
    button->setProperty("sign", sign);
    button->setToolTip(Tr(tip));
    button->setFocusPolicy(Qt::NoFocus);
    button->setAutoRaise(true);
    return button;
}

void IFFastCarts::CreateControls()
{
    UCFastCartsContents1 = new UCFastCartsContents(this);
    CboPlayListNames = new QComboBox(this);
    CboPlayListNames->setObjectName(QStringLiteral("CboPlayListNames"));
    CboPlayListNames->setFocusPolicy(Qt::NoFocus);
    UCPlayListDiskOperation1 = new UCPlayListDiskOperation(this);
    UCPlayListDiskOperation1->setObjectName(QStringLiteral("UCPlayListDiskOperation1"));
    CmdRespondToKeys = MakeSwitch(QStringLiteral("CmdRespondToKeys"), QStringLiteral("Keys"), QStringLiteral("The pads answer the keyboard"));
    CmdRespondToMouse = MakeSwitch(QStringLiteral("CmdRespondToMouse"), QStringLiteral("Mouse"), QStringLiteral("A press on a pad plays it"));
    ChkMouseChannelAutoSelection = new QCheckBox(Tr(QStringLiteral("Mouse Channel Auto Selection")), this);
    ChkMouseChannelAutoSelection->setObjectName(QStringLiteral("ChkMouseChannelAutoSelection"));
    ChkMouseChannelAutoSelection->setFocusPolicy(Qt::NoFocus);
    UCChannelStreamSelector1 = new UCChannelStreamSelector(this);
    UCChannelStreamSelector1->setObjectName(QStringLiteral("UCChannelStreamSelector1"));
    UCFastCartsContents1->SetMousePerformsPlay(true);
    Dress(CmdRespondToKeys);
    Dress(CmdRespondToMouse);
}

void IFFastCarts::ConnectControls()
{
    connect(CboPlayListNames, &QComboBox::activated, this, &IFFastCarts::CboPlayListNames_Click);
    connect(CmdRespondToKeys, &QToolButton::toggled, this, [this] { Dress(CmdRespondToKeys); });
    connect(CmdRespondToMouse, &QToolButton::toggled, this, &IFFastCarts::CmdRespondToMouse_Click);
    connect(UCPlayListDiskOperation1, &UCPlayListDiskOperation::Refresh, UCFastCartsContents1, &UCFastCartsContents::RefreshFromPlaylist);
    connect(UCFastCartsContents1, &UCFastCartsContents::OldStyleTryToDrag, this, &IFFastCarts::OldStyleTryToDrag);
    connect(UCFastCartsContents1, &UCFastCartsContents::RequestPreferredStream, this,
            [this](std::shared_ptr<iStream>& stream, Qt::MouseButton button, Qt::KeyboardModifiers) { AnswerPreferredStream(stream, button); },
            Qt::DirectConnection);
}

// A switch wears the picture of its state: "CmdClicked" down, "CmdNotClicked" up.
void IFFastCarts::Dress(QToolButton* button)
{
    const QSize size(BarHeight * 2, BarHeight - 4);
    button->setIconSize(size);
    button->setIcon(PadPictures::Switch(button->isChecked(), button->property("sign").toString(), size));
}

void IFFastCarts::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    PlaceControls();
}

// One bar along the top, the grid under it.
void IFFastCarts::PlaceControls()
{
    int x = 2;
    const auto place = [&](QWidget* widget, int width) {
        widget->setGeometry(x, 2, width, BarHeight - 4);
        x += width + 4;
    };
    place(CboPlayListNames, std::max(120, width() / 5));
    place(UCPlayListDiskOperation1, 180);
    place(CmdRespondToKeys, BarHeight * 2 + 4);
    place(CmdRespondToMouse, BarHeight * 2 + 4);
    place(ChkMouseChannelAutoSelection, ChkMouseChannelAutoSelection->sizeHint().width());
    place(UCChannelStreamSelector1, 130);
    UCFastCartsContents1->setGeometry(0, BarHeight, width(), std::max(0, height() - BarHeight));
}

void IFFastCarts::Init()
{
    m_tmrInit.start();
}

void IFFastCarts::TmrInit_Timer()
{
    m_tmrInit.stop();
    if (m_initDone)
        return;
    m_initDone = true;
    Guarded(Object, QStringLiteral("DelayedInit"), [this] { DelayedInit(); });
}

void IFFastCarts::DelayedInit()
{
    m_noneLine = QStringLiteral("[") + Tr(QStringLiteral("None")) + QStringLiteral("]");
    UCChannelStreamSelector1->Init();
    UCFastCartsContents1->Init();
    SetPlayList(nullptr);
    const auto kernel = Globals::Kernel();
    if (kernel) {
        const auto lists = kernel->PlayLists();
        connect(lists.get(), &iPlayLists::ChangedCount, this, &IFFastCarts::iPlayLists_ChangedCount);
        connect(lists.get(), &iPlayLists::ChangedPlayList, this, &IFFastCarts::iPlayLists_ChangedPlayList);
    }
    FillCombo();
}

void IFFastCarts::iPlayLists_ChangedCount()
{
    StartFillCombo();
}

void IFFastCarts::iPlayLists_ChangedPlayList(const QString&)
{
    StartFillCombo();
}

void IFFastCarts::StartFillCombo()
{
    m_tmrFillCombo.start();
}

void IFFastCarts::TmrFillCombo_Timer()
{
    m_tmrFillCombo.stop();
    FillCombo();
}

// The none line first, then each list by its name (its ID when it has none); a list that went
// away takes the panel back to no list.
void IFFastCarts::FillCombo()
{
    Guarded(Object, QStringLiteral("FillCombo"), [this] {
        const QSignalBlocker blocker(CboPlayListNames);
        CboPlayListNames->clear();
        CboPlayListNames->addItem(m_noneLine, QString());
        const auto kernel = Globals::Kernel();
        if (!kernel)
            return;
        const auto lists = kernel->PlayLists();
        for (int i = 1; i <= lists->Count(); ++i) {
            const auto list = lists->Item(i);
            CboPlayListNames->addItem(list->Name().isEmpty() ? list->ID() : list->Name(), list->ID());
        }
        const auto shown = PlayList();
        if (shown && lists->IndexOf(shown->ID()) == 0)
            SetPlayList(nullptr);
        SelectComboLine();
    });
}

void IFFastCarts::SelectComboLine()
{
    const auto shown = PlayList();
    const QSignalBlocker blocker(CboPlayListNames);
    CboPlayListNames->setCurrentIndex(std::max(0, CboPlayListNames->findData(shown ? shown->ID() : QString())));
}

void IFFastCarts::CboPlayListNames_Click()
{
    Guarded(Object, QStringLiteral("CboPlayListNames_Click"), [this] {
        const QString id = CboPlayListNames->currentData().toString();
        SetPlayList(id.isEmpty() ? nullptr : Globals::Kernel()->PlayLists()->Item(id));
    });
}

std::shared_ptr<iPlayList> IFFastCarts::PlayList() const
{
    return UCFastCartsContents1->PlayList();
}

void IFFastCarts::SetPlayList(std::shared_ptr<iPlayList> playList)
{
    UCPlayListDiskOperation1->SetPlayList(playList);
    UCFastCartsContents1->SetPlayList(std::move(playList));
    SelectComboLine();
}

void IFFastCarts::SetPreventShortCuts(bool prevent)
{
    if (prevent == m_preventShortCuts)
        return;
    m_preventShortCuts = prevent;
    if (prevent) {
        m_keysBeforePrevent = CmdRespondToKeys->isChecked();
        CmdRespondToKeys->setChecked(false);
    } else if (m_keysBeforePrevent) {
        CmdRespondToKeys->setChecked(*m_keysBeforePrevent);
        m_keysBeforePrevent.reset();
    }
    Dress(CmdRespondToKeys);
}

void IFFastCarts::CmdRespondToMouse_Click()
{
    const bool on = CmdRespondToMouse->isChecked();
    ChkMouseChannelAutoSelection->setEnabled(on);
    Dress(CmdRespondToMouse);
    UCFastCartsContents1->SetMousePerformsPlay(on);
}

void IFFastCarts::SendShortcut(QChar key)
{
    if (!CmdRespondToKeys->isChecked() || m_preventShortCuts)
        return;
    UCFastCartsContents1->SendShortcut(key, UCChannelStreamSelector1->Stream());
}

void IFFastCarts::keyPressEvent(QKeyEvent* event)
{
    const QString text = event->text();
    if (text.size() == 1 && !event->isAutoRepeat())
        SendShortcut(text.at(0));
    QWidget::keyPressEvent(event);
}

void IFFastCarts::AnswerPreferredStream(std::shared_ptr<iStream>& stream, Qt::MouseButton button)
{
    stream = PreferredStream(button);
}

std::shared_ptr<iStream> IFFastCarts::PreferredStream(Qt::MouseButton button) const
{
    if (!ChkMouseChannelAutoSelection->isChecked())
        return UCChannelStreamSelector1->Stream();
    const QString channel = button == Qt::RightButton ? QStringLiteral("B") : QStringLiteral("A");
    return UCChannelStreamSelector::StreamOf(channel, UCChannelStreamSelector1->StreamIndex());
}

void IFFastCarts::Drop(const QString& cartID)
{
    Guarded(Object, QStringLiteral("Drop"), [&] {
        const CInterface* ui = modInterface::Interface();
        const bool over = ui ? ui->MouseController().CursorOverControl(UCFastCartsContents1)
                             : UCFastCartsContents1->rect().contains(UCFastCartsContents1->mapFromGlobal(QCursor::pos()));
        if (!over)
            return;
        if (PlayList()) {
            UCFastCartsContents1->Drop(cartID);
            return;
        }
        const auto kernel = Globals::Kernel();
        if (!kernel->Carts()->Exists(cartID) || kernel->Carts()->Cart(cartID)->Type() != CartType::Macro)
            return;
        const auto list = kernel->PlayLists()->Add();
        SetPlayList(list);
        list->Load(cartID);
    });
}
